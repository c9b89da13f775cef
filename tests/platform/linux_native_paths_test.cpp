#include "platform/linux/linux_native_paths.h"
#include "platform/names.h"

#include <gtest/gtest.h>

#include <random>

namespace tarvix::platform {

namespace {
class LinuxNativePathsTest : public testing::Test {
  protected:
    Mounts mounts_{{{'T', "/srv/collection"}},
                   [] { return std::string("1 1 8:1 / / rw - ext4 /dev/sda1 rw\n"); }};
    LinuxNativePaths paths_{mounts_, "/home/ann"};
};
} // namespace

TEST_F(LinuxNativePathsTest, NativeFormsAreKnown) {
    for (const char* text : {"/", "/x", "~", "~/x", "file:///x", "FILE:///x"})
        EXPECT_TRUE(paths_.IsNative(text)) << text;
    for (const char* text : {"", "x", "x/y", "C:\\x", "\\\\s\\s", "~ann", "file:/x", "http://x"})
        EXPECT_FALSE(paths_.IsNative(text)) << text;
}

TEST_F(LinuxNativePathsTest, ToDrive) {
    const struct {
        const char* text;
        const char* drive;
    } rows[] = {
        {"/", "C:\\"},
        {"//", "C:\\"},
        {"/home/ann/", "C:\\home\\ann"},
        {"//home//./ann/../bob/.", "C:\\home\\bob"},
        {"/../..", "C:\\"},
        {"~", "C:\\home\\ann"},
        {"~/Music/a.mp3", "C:\\home\\ann\\Music\\a.mp3"},
        {"~/..", "C:\\home"},
        {"/srv/collection", "T:\\"},
        {"/srv/collection/a", "T:\\a"},
        {"/srv/collection/../x", "C:\\srv\\x"},
        {"file:///srv/collection/A%20b%C3%BC.mp3", "T:\\A b\xC3\xBC.mp3"},
        {"file://localhost/x", "C:\\x"},
        {"file://elsewhere/x", "file://elsewhere/x"},
        {"file:///bad%2", "file:///bad%2"},
        {"C:\\x", "C:\\x"},
        {"some text", "some text"},
        {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(paths_.ToDrive(row.text), row.drive) << row.text;
}

TEST_F(LinuxNativePathsTest, ToNative) {
    const struct {
        const char* drive;
        const char* native;
    } rows[] = {
        {"C:", "/"},
        {"C:\\", "/"},
        {"c:\\home\\ann\\", "/home/ann"},
        {"T:\\", "/srv/collection"},
        {"T:\\a\\b", "/srv/collection/a/b"},
        {"Q:\\a", ""},
        {"\\\\server\\share\\a", ""},
        {"a.txt", ""},
        {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(paths_.ToNative(row.drive), row.native) << row.drive;
}

TEST_F(LinuxNativePathsTest, AFolderThatIsKnownLeadsWhereItsDriveLeads) {
    std::string mounts = "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
                         "2 1 8:2 / /media/one rw - ext4 /dev/sdb1 rw\n";
    Mounts changing{{}, [&mounts] { return mounts; }};
    const LinuxNativePaths paths{changing, "/home/ann"};
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(paths.ToNative("D:\\f\\a.txt"), "/media/one/f/a.txt");
        EXPECT_EQ(paths.ToNative("C:\\a.txt"), "/a.txt");
        EXPECT_EQ(paths.ToNative("C:\\f\\.."), "/");
        EXPECT_EQ(paths.ToNative("C:\\f\\b."), "/f/b.");
        EXPECT_EQ(paths.ToNative("C:\\f\\b*"), "");
        EXPECT_EQ(paths.ToNative("C:\\f\\\uF03Fx"), "/f/?x");
        EXPECT_EQ(paths.ToNative("D:\\f\\"), "/media/one/f");
    }
    mounts = "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n";
    (void)changing.Refreshed();
    EXPECT_EQ(paths.ToNative("D:\\f\\a.txt"), "");
    EXPECT_EQ(paths.ToNative("C:\\f\\a.txt"), "/f/a.txt");
}

TEST_F(LinuxNativePathsTest, ReservedCharactersGoThereAndBack) {
    const std::string native = "/home/ann/a\\b:c*d?e\"f<g>h|i\nj";
    EXPECT_EQ(paths_.ToNative(paths_.ToDrive(native)), native);
}

TEST_F(LinuxNativePathsTest, AnyValidNameGoesThereAndBack) {
    std::mt19937 random(7);
    const char* const pieces[] = {"a",
                                  "Z",
                                  ".",
                                  " ",
                                  "\\",
                                  ":",
                                  "*",
                                  "?",
                                  "|",
                                  "\x01",
                                  "\x1F",
                                  "\x7F",
                                  "\xC3\xBC",
                                  "\xE2\x82\xAC",
                                  "\xF0\x9F\x8E\xB5",
                                  "\xEE\x80\x80",
                                  "~",
                                  "%",
                                  "\"",
                                  "<",
                                  ">"};
    for (int round = 0; round < 3000; ++round) {
        std::string name = "n";
        for (std::size_t i = random() % 12; i > 0; --i)
            name += pieces[random() % std::size(pieces)];
        const std::string native = "/home/" + name;
        ASSERT_EQ(NameToNative(NameToDrive(name)), name);
        ASSERT_EQ(paths_.ToNative(paths_.ToDrive(native)), native);
    }
}

TEST_F(LinuxNativePathsTest, RandomBytesNeverLeadToAnotherName) {
    std::mt19937 random(8);
    for (int round = 0; round < 20000; ++round) {
        std::string name;
        for (std::size_t i = 1 + random() % 6; i > 0; --i) {
            const char c = static_cast<char>(1 + random() % 255);
            name += c == '/' ? 'x' : c;
        }
        if (name == "." || name == "..") continue;
        const std::string native = "/home/" + name;
        ASSERT_TRUE(CanBeName(NameToDrive(name)));
        ASSERT_EQ(paths_.ToNative(paths_.ToDrive(native)), native);
    }
}

} // namespace tarvix::platform
