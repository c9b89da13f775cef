#include "platform/linux/linux_environment.h"
#include "platform/linux/linux_native_paths.h"
#include "platform/linux/linux_platform.h"
#include "text/case.h"

#include <gtest/gtest.h>

namespace tarvix::platform {

namespace {
class LinuxEnvironmentTest : public testing::Test {
  protected:
    LinuxEnvironment Make() { return LinuxEnvironment(source_, paths_); }
    std::string ValueOf(std::string_view name) { return Make().Get(name).value_or("(none)"); }

    EnvironmentSource source_{.variables = {"HOME=/home/ann", "PATH=/usr/bin:/bin", "LANG=C.UTF-8",
                                            "MUSICBOX=/srv/box", "EMPTY=", "=odd", "odd"},
                              .home = "/home/ann",
                              .userName = "ann",
                              .computerName = "den",
                              .userFolders = {},
                              .programFolder = "/home/ann/tarvix",
                              .dataFolder = {}};
    Mounts mounts_{{{'M', "/srv"}},
                   [] { return std::string("1 1 8:1 / / rw - ext4 /dev/sda1 rw\n"); }};
    LinuxNativePaths paths_{mounts_, "/home/ann"};
};
} // namespace

TEST_F(LinuxEnvironmentTest, WellKnownVariablesAlwaysHaveAValue) {
    source_.variables.clear();
    const struct {
        const char* name;
        const char* value;
    } rows[] = {
        {"UserProfile", "C:\\home\\ann"},
        {"USERPROFILE", "C:\\home\\ann"},
        {"SystemDrive", "C:"},
        {"windir", "C:\\usr"},
        {"SystemRoot", "C:\\usr"},
        {"ProgramFiles", "C:\\usr"},
        {"ProgramFiles(x86)", "C:\\opt"},
        {"ProgramData", "C:\\var\\lib"},
        {"Temp", "C:\\tmp"},
        {"Public", "C:\\home\\ann\\Public"},
        {"AppData", "C:\\home\\ann\\.config"},
        {"LocalAppData", "C:\\home\\ann\\.local\\share"},
        {"Music", "C:\\home\\ann\\Music"},
        {"Documents", "C:\\home\\ann\\Documents"},
        {"UserName", "ann"},
        {"ComputerName", "den"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ValueOf(row.name), row.value) << row.name;
}

TEST_F(LinuxEnvironmentTest, UserFoldersComeFromTheDesktop) {
    source_.userFolders = "# a comment\n"
                          "XDG_MUSIC_DIR=\"$HOME/Meine Musik\"\n"
                          "  XDG_VIDEOS_DIR=\"/srv/films\"\r\n"
                          "XDG_DOCUMENTS_DIR=\"$HOME/a\\\"b\"\n"
                          "XDG_PICTURES_DIR=\"relative\"\n"
                          "XDG_DESKTOP_DIR=\"$HOME\"\n"
                          "XDG_MUSIC_DIRECTORY=\"/wrong\"\n";
    EXPECT_EQ(ValueOf("Music"), "C:\\home\\ann\\Meine Musik");
    EXPECT_EQ(ValueOf("Videos"), "M:\\films");
    EXPECT_EQ(ValueOf("Documents"), "C:\\home\\ann\\a\xEF\x80\xA2"
                                    "b");
    EXPECT_EQ(ValueOf("Pictures"), "C:\\home\\ann\\Pictures");
    EXPECT_EQ(ValueOf("Desktop"), "C:\\home\\ann");
}

TEST_F(LinuxEnvironmentTest, VariablesOfTheProcessFollow) {
    EXPECT_EQ(ValueOf("musicbox"), "M:\\box");
    EXPECT_EQ(ValueOf("PATH"), "/usr/bin:/bin");
    EXPECT_EQ(ValueOf("LANG"), "C.UTF-8");
    EXPECT_EQ(ValueOf("EMPTY"), "");
    EXPECT_EQ(ValueOf("missing"), "(none)");
    source_.variables.push_back("windir=/elsewhere");
    EXPECT_EQ(ValueOf("WINDIR"), "C:\\usr");
}

TEST_F(LinuxEnvironmentTest, AllGivesEachNameOnceInOrder) {
    const auto all = Make().All();
    for (std::size_t i = 1; i < all.size(); ++i)
        EXPECT_LT(text::CompareNoCase(all[i - 1].first, all[i].first), 0) << all[i].first;
}

TEST_F(LinuxEnvironmentTest, TempAndStoreFollowTheirVariables) {
    source_.variables = {"TMPDIR=/var/tmp", "XDG_DATA_HOME=/srv/data", "XDG_CONFIG_HOME=/srv/conf"};
    EXPECT_EQ(ValueOf("Temp"), "C:\\var\\tmp");
    EXPECT_EQ(ValueOf("Tmp"), "C:\\var\\tmp");
    EXPECT_EQ(ValueOf("AppData"), "M:\\conf");
    EXPECT_EQ(Make().VirtualStore(), "M:\\data\\tarvix\\VirtualStore");
    source_.variables = {"TMPDIR=relative", "XDG_DATA_HOME="};
    EXPECT_EQ(ValueOf("Temp"), "C:\\tmp");
    EXPECT_EQ(Make().VirtualStore(), "C:\\home\\ann\\.local\\share\\tarvix\\VirtualStore");
}

TEST_F(LinuxEnvironmentTest, ProgramAndDataFolder) {
    EXPECT_EQ(Make().ProgramFolder(), "C:\\home\\ann\\tarvix");
    EXPECT_FALSE(Make().DataFolder());
    source_.dataFolder = "/srv/data";
    EXPECT_EQ(Make().DataFolder(), "M:\\data");
    source_.dataFolder = "D:\\data";
    EXPECT_EQ(Make().DataFolder(), "D:\\data");
    source_.dataFolder = "~/data";
    EXPECT_EQ(Make().DataFolder(), "C:\\home\\ann\\data");
}

TEST_F(LinuxEnvironmentTest, InstalledFoldersAreProtected) {
    for (const char* folder : {"C:\\usr", "C:\\usr\\bin", "C:\\opt\\tarvix", "C:\\usr\\local\\bin"})
        EXPECT_TRUE(Make().IsProtectedFolder(folder)) << folder;
    for (const char* folder : {"C:\\", "C:\\home\\ann", "C:\\usr2", "C:\\option", "M:\\usr"})
        EXPECT_FALSE(Make().IsProtectedFolder(folder)) << folder;
}

TEST(LinuxPlatformTest, TheProcessItselfIsRead) {
    LinuxPlatform machine({.now = text::DateTime{2026, 1, 2, 3, 4, 5},
                           .dataFolder = "/some/where",
                           .hasDesktop = false});
    const Platform parts = machine.Parts();
    EXPECT_TRUE(parts.environment.Get("UserProfile"));
    EXPECT_TRUE(parts.files.Facts(parts.environment.ProgramFolder()));
    EXPECT_EQ(parts.environment.DataFolder(), parts.paths.ToDrive("/some/where"));
    EXPECT_EQ(parts.clock.Now(), (text::DateTime{2026, 1, 2, 3, 4, 5}));
    EXPECT_FALSE(parts.registry.ClassDefault("*\\shell"));
    EXPECT_EQ(parts.launcher.OpenDocument("C:\\").error().number, kPermissionDenied);
    ASSERT_FALSE(parts.files.Drives().empty());
    EXPECT_EQ(parts.files.Drives().front().path, "C:");
    EXPECT_TRUE(parts.files.Drives().front().isReady);
}

TEST(LinuxPlatformTest, NothingIsStartedForAMissingDocument) {
    LinuxPlatform machine;
    const auto opened = machine.Parts().launcher.OpenDocument("C:\\no such folder\\a.txt");
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().number, kFileNotFound);
}

} // namespace tarvix::platform
