#include "platform/linux/drive_table.h"

#include <gtest/gtest.h>

namespace tarvix::platform {

namespace {
constexpr std::string_view kTable =
    R"(22 27 0:21 / /proc rw,relatime - proc proc rw
23 27 0:22 / /sys rw,relatime - sysfs sysfs rw
24 27 0:6 / /dev rw - devtmpfs devtmpfs rw
25 24 0:23 / /dev/shm rw - tmpfs tmpfs rw
27 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw
28 27 8:2 / /home rw,relatime shared:2 master:3 - ext4 /dev/sda2 rw
29 27 0:30 / /run rw,nosuid - tmpfs tmpfs rw
30 27 8:17 / /media/ann/USB\040stick rw,nosuid - vfat /dev/sdb1 rw
31 27 0:40 / /srv/music rw,relatime - cifs //Server/Music/Albums rw
32 27 0:41 / /srv/films rw,relatime - nfs4 nas:/export/films rw
33 27 11:0 / /cdrom ro - iso9660 /dev/sr0 ro
34 27 8:33 / /mnt/backup rw - btrfs /dev/sdc1 rw
35 34 8:34 / /mnt/backup/inner rw - ext4 /dev/sdc2 rw
36 29 0:50 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw
37 27 0:51 / /net/x rw - autofs systemd-1 rw
38 27 0:52 / /net/x rw - nfs old:/x rw
)";

std::vector<std::string> Letters(const DriveTable& table) {
    std::vector<std::string> letters;
    for (const DriveInfo& drive : table.Drives())
        letters.push_back(drive.path + " " + drive.nativeMount);
    return letters;
}

DriveTable Table(std::vector<ExtraDrive> extras = {}) {
    return DriveTable(ParseMountInfo(kTable), extras);
}

std::string NativeOf(const DriveTable& table, std::string_view drivePath) {
    const auto parsed = ParseDrivePath(drivePath);
    if (!parsed) return "no drive path";
    const auto base = table.BaseOf(*parsed);
    if (!base) return "unknown";
    std::string native = base->folder;
    for (std::size_t i = base->namesTaken; i < parsed->names.size(); ++i)
        native += "/" + std::string(parsed->names[i]);
    return native;
}
} // namespace

TEST(LinuxMounts, LinesAreReadWithAndWithoutOptionalFields) {
    const auto mounts = ParseMountInfo(kTable);
    ASSERT_EQ(mounts.size(), 15u);
    EXPECT_EQ(mounts[4].point, "/");
    EXPECT_EQ(mounts[4].fileSystem, "ext4");
    EXPECT_EQ(mounts[5].source, "/dev/sda2");
    EXPECT_EQ(mounts[7].point, "/media/ann/USB stick");
    EXPECT_FALSE(mounts[7].isReadOnly);
    EXPECT_TRUE(mounts[10].isReadOnly);
}

TEST(LinuxMounts, OctalEscapesAreDecoded) {
    const auto mounts = ParseMountInfo(
        "1 1 8:1 / /media/a\\040b\\011c\\134d\\303\\274 rw - ext4 /dev/x\\040y rw\n");
    ASSERT_EQ(mounts.size(), 1u);
    EXPECT_EQ(mounts[0].point, "/media/a b\tc\\d\xC3\xBC");
    EXPECT_EQ(mounts[0].source, "/dev/x y");
}

TEST(LinuxMounts, WhatIsNoEscapeStays) {
    const auto mounts = ParseMountInfo("1 1 8:1 / /media/a\\9\\04 rw - ext4 /dev/x rw\n");
    ASSERT_EQ(mounts.size(), 1u);
    EXPECT_EQ(mounts[0].point, "/media/a\\9\\04");
}

TEST(LinuxMounts, LinesThatCannotBeReadArePassedOver) {
    for (const char* text :
         {"", "\n\n", "garbage", "1 2 3", "1 1 8:1 / /x rw", "1 1 8:1 / /x rw shared:1 ",
          "1 1 8 / /x rw - ext4 d rw", "1 1 a:b / /x rw - ext4 d rw", "1 1 8:1 / x rw - ext4 d rw",
          "1 1 8:1 / /x rw -"}) {
        EXPECT_TRUE(ParseMountInfo(text).empty()) << text;
    }
    EXPECT_EQ(ParseMountInfo("garbage\n1 1 8:1 / / rw - ext4 /dev/sda1 rw").size(), 1u);
}

TEST(LinuxMounts, OfTwoMountsOnOnePointTheLastCounts) {
    const auto mounts = ParseMountInfo(kTable);
    int count = 0;
    for (const Mount& mount : mounts) {
        if (mount.point != "/net/x") continue;
        ++count;
        EXPECT_EQ(mount.fileSystem, "nfs");
    }
    EXPECT_EQ(count, 1);
}

TEST(LinuxMounts, LettersGoToMediaDiscsAndSharesInOrder) {
    EXPECT_EQ(Letters(Table()),
              (std::vector<std::string>{"C: /", "D: /media/ann/USB stick", "E: /srv/music",
                                        "F: /srv/films", "G: /cdrom", "H: /mnt/backup",
                                        "I: /mnt/backup/inner", "J: /net/x"}));
}

TEST(LinuxMounts, ExtraDrivesKeepTheirLetters) {
    const DriveTable table =
        Table({{'e', "/mnt/backup/"}, {'T', "/home/ann/t"}, {'C', "/x"}, {'1', "/y"}, {'U', "z"}});
    EXPECT_EQ(Letters(table),
              (std::vector<std::string>{"C: /", "D: /media/ann/USB stick", "E: /mnt/backup",
                                        "F: /srv/music", "G: /srv/films", "H: /cdrom",
                                        "I: /mnt/backup/inner", "J: /net/x", "T: /home/ann/t"}));
}

TEST(LinuxMounts, DrivesHaveTypes) {
    std::map<std::string, DriveType> types;
    const DriveTable table = Table({{'T', "/dev/shm"}});
    for (const DriveInfo& drive : table.Drives())
        types[drive.nativeMount] = drive.type;
    EXPECT_EQ(types["/"], DriveType::kFixed);
    EXPECT_EQ(types["/media/ann/USB stick"], DriveType::kRemovable);
    EXPECT_EQ(types["/srv/music"], DriveType::kNetwork);
    EXPECT_EQ(types["/cdrom"], DriveType::kCdRom);
    EXPECT_EQ(types["/mnt/backup"], DriveType::kFixed);
    EXPECT_EQ(types["/dev/shm"], DriveType::kRamDisk);
    EXPECT_EQ(table.Drives()[1].fileSystem, "vfat");
}

TEST(LinuxMounts, NativePathsGoToTheLongestMount) {
    const DriveTable table = Table();
    const struct {
        const char* native;
        const char* drive;
    } rows[] = {
        {"/", "C:\\"},
        {"/home/ann/a.mp3", "C:\\home\\ann\\a.mp3"},
        {"/mnt/backup", "H:\\"},
        {"/mnt/backup/x", "H:\\x"},
        {"/mnt/backup/inner", "I:\\"},
        {"/mnt/backup/inner/x/y", "I:\\x\\y"},
        {"/mnt/backup2/x", "C:\\mnt\\backup2\\x"},
        {"/media/ann/USB stick/a b", "D:\\a b"},
        {"/srv/music/a", "E:\\a"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(table.ToDrive(row.native), row.drive);
}

TEST(LinuxMounts, DrivePathsGoBack) {
    const DriveTable table = Table();
    const struct {
        const char* drive;
        const char* native;
    } rows[] = {
        {"C:\\", ""},
        {"c:\\home\\ann", "/home/ann"},
        {"h:", "/mnt/backup"},
        {"I:\\x", "/mnt/backup/inner/x"},
        {"Q:\\x", "unknown"},
        {"\\\\Server\\Music\\Albums\\a", "/srv/music/a"},
        {"\\\\SERVER\\music\\ALBUMS", "/srv/music"},
        {"\\\\server\\music", "unknown"},
        {"\\\\nas\\export\\films\\a.mkv", "/srv/films/a.mkv"},
        {"\\\\other\\share\\x", "unknown"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(NativeOf(table, row.drive), row.native) << row.drive;
}

TEST(LinuxMounts, BoundariesArePseudoFileSystemsAndMountsWithLetters) {
    const DriveTable table = Table();
    const auto* top = table.BoundariesIn("/");
    ASSERT_NE(top, nullptr);
    EXPECT_EQ(*top, (DriveTable::Names{"proc", "sys", "dev", "cdrom"}));
    EXPECT_EQ(*table.BoundariesIn("/media/ann"), (DriveTable::Names{"USB stick"}));
    EXPECT_EQ(*table.BoundariesIn("/run/user/1000"), (DriveTable::Names{"gvfs"}));
    EXPECT_EQ(*table.BoundariesIn("/mnt/backup"), (DriveTable::Names{"inner"}));
    // A disk without a letter of its own belongs to the drive it is mounted on, and so does /run.
    EXPECT_EQ(table.BoundariesIn("/home"), nullptr);
    EXPECT_FALSE(top->contains("home"));
    EXPECT_FALSE(top->contains("run"));
}

TEST(LinuxMounts, AFolderThatWasGivenALetterIsNoBoundary) {
    const DriveTable table = Table({{'T', "/home/ann/Music"}});
    EXPECT_EQ(table.BoundariesIn("/home/ann"), nullptr);
}

TEST(LinuxMounts, AMountKeepsItsLetterWhenOthersComeAndGo) {
    const char* const usb = "1 1 8:17 / /media/usb rw - ext4 /dev/sdb1 rw\n";
    const char* const disk = "2 1 8:33 / /mnt/disk rw - ext4 /dev/sdc1 rw\n";
    std::string text = std::string(usb) + disk;
    Mounts mounts({}, [&] { return text; });
    EXPECT_EQ(Letters(*mounts.Refreshed()),
              (std::vector<std::string>{"C: /", "D: /media/usb", "E: /mnt/disk"}));
    text = disk;
    EXPECT_EQ(Letters(*mounts.Refreshed()), (std::vector<std::string>{"C: /", "E: /mnt/disk"}));
    text = "3 1 8:49 / /mnt/new rw - ext4 /dev/sdd1 rw\n" + std::string(disk) + usb;
    EXPECT_EQ(Letters(*mounts.Refreshed()),
              (std::vector<std::string>{"C: /", "D: /media/usb", "E: /mnt/disk", "F: /mnt/new"}));
}

TEST(LinuxMounts, WithNoMoreLettersMountsStayReachableByC) {
    std::string text;
    for (int i = 0; i < 30; ++i) {
        text += "1 1 8:" + std::to_string(i) + " / /mnt/m" + std::to_string(i) +
                " rw - ext4 /dev/x rw\n";
    }
    const DriveTable table(ParseMountInfo(text), {});
    EXPECT_EQ(table.Drives().size(), 24u);
    EXPECT_EQ(table.ToDrive("/mnt/m29/a"), "C:\\mnt\\m29\\a");
    EXPECT_FALSE(table.BoundariesIn("/mnt")->contains("m29"));
}

} // namespace tarvix::platform
