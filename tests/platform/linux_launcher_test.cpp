#include "platform/linux/linux_launcher.h"
#include "platform/linux/linux_platform.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

namespace tarvix::platform {
namespace {

namespace fs = std::filesystem;

// An editor that writes down what it was given.
class LinuxLauncherTest : public ::testing::Test {
  protected:
    LinuxLauncherTest() {
        std::string pattern = (fs::temp_directory_path() / "tarvix-XXXXXX").string();
        root_ = mkdtemp(pattern.data());
        std::ofstream(Editor()) << "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.part\"\n"
                                   "mv \"$0.part\" \"$0.out\"\n";
        fs::permissions(Editor(), fs::perms::owner_all);
    }
    ~LinuxLauncherTest() override {
        std::error_code ignored;
        fs::remove_all(root_, ignored);
    }
    fs::path Editor() const { return root_ / "editor"; }
    std::string AddFile(const std::string& name) {
        std::ofstream(root_ / name) << "x";
        return parts_.paths.ToDrive((root_ / name).string());
    }
    // What the editor was given; it runs beside this process.
    std::string Given() const {
        while (!fs::exists(root_ / "editor.out")) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        std::ifstream stream(root_ / "editor.out");
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    LinuxPlatform machine_;
    Platform parts_ = machine_.Parts();
    fs::path root_;
};

TEST_F(LinuxLauncherTest, ACommandGetsItsArgumentsAndThenTheNativePath) {
    const std::string path = AddFile("a log & m\xC3\xB6re 50%.log");
    const auto opened = parts_.launcher.OpenWith(Editor().string() + " --new 'two words'", path);
    ASSERT_TRUE(opened) << opened.error().description;
    EXPECT_EQ(Given(),
              "--new\ntwo words\n" + (root_ / "a log & m\xC3\xB6re 50%.log").string() + "\n");
}

TEST_F(LinuxLauncherTest, ACommandThatIsNotThereIsRefused) {
    const std::string path = AddFile("a.log");
    for (const char* command : {"/no/such/editor", "'unbalanced"}) {
        const auto opened = parts_.launcher.OpenWith(command, path);
        ASSERT_FALSE(opened) << command;
        EXPECT_EQ(opened.error().number, kPermissionDenied);
    }
}

TEST_F(LinuxLauncherTest, NothingIsStartedForAMissingFile) {
    const auto opened = parts_.launcher.OpenWith(Editor().string(), "C:\\no such folder\\a.txt");
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().number, kFileNotFound);
    EXPECT_FALSE(fs::exists(root_ / "editor.out"));
}

TEST_F(LinuxLauncherTest, WithoutADesktopNothingIsStarted) {
    EXPECT_EQ(NullLauncher().OpenWith(Editor().string(), AddFile("a.log")).error().number,
              kPermissionDenied);
}

} // namespace
} // namespace tarvix::platform
