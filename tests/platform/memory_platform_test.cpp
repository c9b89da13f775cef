#include "tests/machine/memory_platform.h"

#include <gtest/gtest.h>

namespace tarvix::platform {

TEST(MemoryPlatform, HasTheFoldersOfAnn) {
    MemoryPlatform machine;
    for (const char* folder :
         {"C:\\home\\ann\\Documents", "C:\\home\\ann\\Music", "C:\\tmp", "C:\\home\\ann\\tarvix"}) {
        EXPECT_TRUE(GetFolder(machine.platform.files, folder)) << folder;
    }
}

TEST(MemoryPlatform, ItsDiskIsDatedByItsClockAndFailsAsTold) {
    MemoryPlatform machine;
    machine.clock.SetNow({2024, 2, 29, 12, 0, 0});
    ASSERT_TRUE(machine.platform.files.CreateFolder("C:\\tmp\\new"));
    const auto facts = machine.platform.files.Facts("C:\\tmp\\new");
    ASSERT_TRUE(facts);
    EXPECT_EQ(machine.platform.clock.ToLocal(facts->modified),
              (text::DateTime{2024, 2, 29, 12, 0, 0}));
    machine.faults.FailAll("Facts", kDeviceError);
    EXPECT_FALSE(machine.platform.files.Facts("C:\\tmp"));
    EXPECT_TRUE(machine.disk.Facts("C:\\tmp"));
}

TEST(MemoryClock, StandsUntilItIsSet) {
    MemoryClock clock;
    EXPECT_EQ(clock.Now(), (text::DateTime{2026, 11, 15, 19, 54, 52}));
    EXPECT_EQ(clock.Now(), (text::DateTime{2026, 11, 15, 19, 54, 52}));
    clock.Advance(5 * 3600);
    EXPECT_EQ(clock.Now(), (text::DateTime{2026, 11, 16, 0, 54, 52}));
}

TEST(MemoryClock, SteadyGrowsByItsStep) {
    MemoryClock clock;
    clock.SetStep(15'000'000);
    const auto first = clock.Steady();
    EXPECT_EQ(clock.Steady() - first, 15'000'000);
}

TEST(MemoryClock, FileTimesAreLocalTimes) {
    MemoryClock clock;
    EXPECT_EQ(clock.ToLocal(kNoTime), text::DateTime{});
    EXPECT_EQ(clock.ToLocal(0), (text::DateTime{1970, 1, 1, 0, 0, 0}));
    EXPECT_EQ(clock.ToLocal(-1), (text::DateTime{1969, 12, 31, 23, 59, 59}));
    EXPECT_EQ(clock.ToLocal(1'999'999'999), (text::DateTime{1970, 1, 1, 0, 0, 1}));
    clock.SetZone(3600);
    EXPECT_EQ(clock.ToLocal(0), (text::DateTime{1970, 1, 1, 1, 0, 0}));
    EXPECT_EQ(clock.ToLocal(clock.FromLocal({2020, 5, 6, 7, 8, 9})),
              (text::DateTime{2020, 5, 6, 7, 8, 9}));
}

TEST(MemoryNativePaths, TranslatesByTheLongestMount) {
    MemoryFileSystem disk;
    disk.AddDrive("E:", DriveType::kFixed, "ext4", "/srv/books");
    disk.AddDrive("\\\\server\\share");
    MemoryNativePaths paths(disk);
    const struct {
        const char* native;
        const char* drive;
    } table[] = {
        {"/", "C:\\"},
        {"/home/ann/a b.txt", "C:\\home\\ann\\a b.txt"},
        {"/srv/books", "E:\\"},
        {"/srv/books/a", "E:\\a"},
        {"/srv/bookshelf", "C:\\srv\\bookshelf"},
        {"/mnt/server/share/x", "\\\\SERVER\\SHARE\\x"},
        {"/a:b", "C:\\a\uF03Ab"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(paths.ToDrive(row.native), row.drive) << row.native;
        EXPECT_EQ(paths.ToNative(row.drive), row.native) << row.drive;
    }
}

TEST(MemoryNativePaths, TakesHomeAndFileAddresses) {
    MemoryFileSystem disk;
    MemoryNativePaths paths(disk);
    EXPECT_EQ(paths.ToDrive("~"), "C:\\home\\ann");
    EXPECT_EQ(paths.ToDrive("~/Music/"), "C:\\home\\ann\\Music");
    EXPECT_EQ(paths.ToDrive("file:///home/a%20b/100%"), "C:\\home\\a b\\100%");
    EXPECT_EQ(paths.ToDrive("file://localhost/tmp"), "C:\\tmp");
    EXPECT_EQ(paths.ToDrive("C:\\a"), "C:\\a");
    EXPECT_EQ(paths.ToDrive("a/b"), "a/b");
    EXPECT_FALSE(paths.IsNative("~name"));
    EXPECT_FALSE(paths.IsNative("a/b"));
    EXPECT_EQ(paths.ToNative("Z:\\a"), "");
    EXPECT_EQ(paths.ToNative("a"), "");
}

TEST(MemoryLauncher, RecordsWhatItWasAskedFor) {
    MemoryPlatform machine;
    machine.disk.AddFile("C:\\tmp\\a.txt");
    EXPECT_TRUE(machine.platform.launcher.OpenDocument("C:\\tmp\\a.txt"));
    EXPECT_EQ(machine.platform.launcher.OpenDocument("C:\\tmp\\b.txt").error().number,
              kFileNotFound);
    machine.launcher.refusal = kPermissionDenied;
    EXPECT_EQ(machine.platform.launcher.OpenDocument("C:\\tmp").error().number, kPermissionDenied);
    EXPECT_EQ(machine.launcher.opened, std::vector<std::string>{"C:\\tmp\\a.txt"});
}

TEST(MemoryRegistry, FindsKeysInAnyCase) {
    MemoryPlatform machine;
    EXPECT_FALSE(machine.platform.registry.ClassDefault("*\\shell"));
    machine.registry.SetClassDefault("*\\shell", "open");
    EXPECT_EQ(machine.platform.registry.ClassDefault("*\\SHELL"), "open");
}

} // namespace tarvix::platform
