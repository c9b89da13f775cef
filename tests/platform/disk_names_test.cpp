#include "platform/disk_names.h"
#include "platform/names.h"

#include <gtest/gtest.h>

namespace tarvix::platform {

TEST(DiskNames, EachFamilyHasItsRules) {
    const struct {
        const char* fileSystem;
        const char* native;
        const char* why;
    } table[] = {
        {"vfat", "a:b", "FAT takes no : in a name"},
        {"vfat", "why?", "FAT takes no ? in a name"},
        {"msdos", "a\\b", "FAT takes no \\ in a name"},
        {"vfat", "a\nb", "FAT takes no control character in a name"},
        {"vfat", "end ", "FAT takes no blank at a name's end"},
        {"vfat", "caf\xE9", "FAT takes no bytes that are no text"},
        {"vfat", " lead", ""},
        {"vfat", "plain ä.txt", ""},
        {"exfat", "a|b", "exFAT takes no | in a name"},
        {"exfat", "a\x01", "exFAT takes no control character in a name"},
        {"exfat", "end ", ""},
        {"ntfs3", "a:b", ""},
        {"ntfs3", "caf\xE9", "NTFS takes no bytes that are no text"},
        {"cifs", "a:b", ""},
        {"cifs", "con.txt", "The share may take no name of a device"},
        {"cifs", "Lpt1", "The share may take no name of a device"},
        {"cifs", "console", ""},
        {"cifs", "com0", ""},
        {"ext4", "a:b\n\xE9 ", ""},
        {"btrfs", "CON", ""},
    };
    for (const auto& row : table) {
        EXPECT_EQ(WhyNoName(row.fileSystem, NameToDrive(row.native)), row.why)
            << row.fileSystem << " " << row.native;
    }
}

} // namespace tarvix::platform
