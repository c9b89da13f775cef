// Objects that a search saw, where others change the disk in the moments that count.

#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_trash.h"
#include "tests/platform/conformance.h"
#include "tests/platform/linux_disk.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/syscall.h>
#include <unistd.h>

namespace tarvix::platform {
namespace {

namespace fs = std::filesystem;

class LinuxSeen : public testing::Test {
  protected:
    static constexpr unsigned kExchange = 2; // RENAME_EXCHANGE

    void SetUp() override {
        disk_.MakeFile("s\\sub\\a", "inside");
        disk_.MakeFile("outside\\a", "secret");
    }
    FileSystem& files() { return disk_.Files(); }
    std::string At(std::string_view path) { return disk_.Root() + "\\" + std::string(path); }
    fs::path Native(std::string_view path) { return fs::path(disk_.Native(path)); }

    SeenObject See(std::string_view path) {
        path_ = At(path);
        const auto look = files().LookAt(path_);
        EXPECT_TRUE(look);
        return {path_,
                {.identity = look->facts.identity,
                 .size = look->facts.size,
                 .attributes = look->facts.attributes,
                 .location = static_cast<std::uint32_t>(At("s").size())},
                Same::kObject};
    }
    static void Exchange(const fs::path& a, const fs::path& b) {
        ASSERT_EQ(::syscall(SYS_renameat2, AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), kExchange), 0);
    }
    static std::string TextOf(const fs::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    LinuxDisk disk_;
    std::string path_;
};

TEST_F(LinuxSeen, WhatCameToTheNameBeforeTheMoveGoesBack) {
    for (int round = 0; round < 3; ++round) {
        const auto look = files().LookAtSeen(See("s\\sub\\a"));
        ASSERT_TRUE(look);
        Exchange(Native("s\\sub\\a"), Native("outside\\a"));
        EXPECT_EQ(NumberOf(files().MoveFileTo(*look, {At("new"), nullptr}, {})),
                  kChangedSinceSearch);
        EXPECT_EQ(TextOf(Native("s\\sub\\a")), "secret");
        EXPECT_EQ(TextOf(Native("outside\\a")), "inside");
        EXPECT_FALSE(fs::exists(Native("new")));
        Exchange(Native("s\\sub\\a"), Native("outside\\a"));
    }
}

TEST_F(LinuxSeen, ARenameStaysInTheFolderThatTheObjectLiesIn) {
    const auto look = files().LookAtSeen(See("s\\sub\\a"));
    ASSERT_TRUE(look);
    fs::rename(Native("s\\sub"), Native("away"));
    fs::create_directory_symlink(Native("outside"), Native("s\\sub"));
    const auto renamed = files().MoveFileTo(*look, {At("s\\sub\\b"), nullptr}, {});
    EXPECT_FALSE(fs::exists(Native("outside\\b")));
    EXPECT_EQ(TextOf(Native("outside\\a")), "secret");
    EXPECT_EQ(TextOf(Native(renamed ? "away\\b" : "away\\a")), "inside");
}

TEST_F(LinuxSeen, WhatCameToTheNameBeforeTheDeletionStays) {
    const auto look = files().LookAtSeen(See("s\\sub\\a"));
    ASSERT_TRUE(look);
    Exchange(Native("s\\sub\\a"), Native("outside\\a"));
    EXPECT_EQ(NumberOf(files().DeleteFileOf(*look, true)), kChangedSinceSearch);
    EXPECT_EQ(NumberOf(files().SetAttributesOf(*look, kReadOnly)), kChangedSinceSearch);
    EXPECT_EQ(TextOf(Native("s\\sub\\a")), "secret");
    EXPECT_EQ(::access(Native("s\\sub\\a").c_str(), W_OK), 0);
}

TEST_F(LinuxSeen, AHardLinkToAnotherFileIsAnotherObject) {
    const SeenObject seen = See("s\\sub\\a");
    fs::rename(Native("s\\sub\\a"), Native("old"));
    fs::create_hard_link(Native("outside\\a"), Native("s\\sub\\a"));
    EXPECT_EQ(NumberOf(files().LookAtSeen(seen)), kChangedSinceSearch);
}

TEST_F(LinuxSeen, AnotherNameOfTheFileMayComeAndGo) {
    SeenObject seen = See("s\\sub\\a");
    seen.same = Same::kContent;
    fs::create_hard_link(Native("s\\sub\\a"), Native("twin"));
    EXPECT_EQ(NumberOf(files().LookAtSeen(seen)), 0);
    fs::remove(Native("twin"));
    EXPECT_EQ(NumberOf(files().LookAtSeen(seen)), 0);
}

TEST_F(LinuxSeen, AFileBornAfterTheLookIsAnotherEvenUnderTheSameNumber) {
    SeenObject seen = See("s\\sub\\a");
    if (files().Facts(At("s\\sub\\a"))->created == kNoTime) GTEST_SKIP() << "no births here";
    seen.sighting.identity.changed -= 60'000'000'000;
    EXPECT_EQ(NumberOf(files().LookAtSeen(seen)), kChangedSinceSearch);
}

TEST_F(LinuxSeen, ADeepFolderIsReachedByItsLocation) {
    std::string path = "s";
    for (int i = 0; i < 40; ++i)
        path += "\\" + std::string(150, 'f');
    std::string made = "s";
    for (int i = 0; i < 40; ++i) {
        made += "\\" + std::string(150, 'f');
        ASSERT_EQ(NumberOf(files().CreateFolder(At(made))), 0);
    }
    auto stream = files().CreateTextFile(At(path + "\\a"), false);
    ASSERT_TRUE(stream);
    ASSERT_TRUE((*stream)->Close());
    const auto look = files().LookAtSeen(See(path + "\\a"));
    ASSERT_TRUE(look);
    EXPECT_EQ(NumberOf(files().MoveFileTo(*look, {At("new"), nullptr}, {})), 0);
    EXPECT_TRUE(fs::exists(Native("new")));
}

} // namespace
} // namespace tarvix::platform
