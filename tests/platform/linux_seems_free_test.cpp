// What is known of a folder's names without a look at the disk, and what is done upon it.

#include "platform/dir.h"
#include "platform/short_names.h"
#include "tests/platform/linux_disk.h"

namespace tarvix::platform {

namespace {
class LinuxSeemsFreeTest : public testing::TestWithParam<CopyRoads> {
  protected:
    FileSystem& files() { return disk_.Files(); }
    std::string At(std::string_view path) const { return disk_.Root() + "\\" + std::string(path); }
    bool SeemsFree(std::string_view path) { return files().KnownFree(At(path)).has_value(); }
    std::string Standing(std::string_view path) { return WhatStands(files(), At(path)).name; }
    Result<void> Copy(std::string_view from, std::string_view to) {
        return files().CopyFile(At(from), At(to), false, {});
    }
    Result<void> Move(std::string_view from, std::string_view to) {
        return files().MoveFile(At(from), At(to), {});
    }
    // Looks for a name that isn't there, so that the folder's names become known.
    void Know(const std::string& folder) {
        ASSERT_FALSE(files().Facts(At(folder + "\\No such name in here")));
    }
    void SetUp() override {
        disk_.MakeFile("f\\one.txt", "1");
        disk_.MakeFile("source", "from");
    }

    // By a clock that stands still, a busy machine is never too slow to be believed.
    static std::int64_t StandingClock() { return 0; }

    LinuxDisk disk_{GetParam(), {.now = StandingClock, .tick = StandingClock}};
};

void WriteByOthers(const std::string& native, std::string_view content) {
    const int fd = ::open(native.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    ASSERT_GE(fd, 0);
    EXPECT_EQ(::write(fd, content.data(), content.size()), static_cast<ssize_t>(content.size()));
    ::close(fd);
}
} // namespace

INSTANTIATE_TEST_SUITE_P(
    Roads, LinuxSeemsFreeTest,
    testing::Values(CopyRoads{}, CopyRoads{.aheadAge = 0},
                    CopyRoads{.unnamedParts = false, .renameNoReplace = false},
                    CopyRoads{.unnamedParts = false, .renameNoReplace = false, .links = false}));

TEST_P(LinuxSeemsFreeTest, NothingIsKnownOfAFolderThatWasNotReadYet) {
    EXPECT_FALSE(SeemsFree("f\\two.txt"));
    EXPECT_FALSE(SeemsFree("f\\one.txt"));
    EXPECT_FALSE(SeemsFree("no folder\\two.txt"));
    ASSERT_TRUE(files().Facts(At("f\\one.txt"))); // found by its exact name
    EXPECT_FALSE(SeemsFree("f\\two.txt"));
}

TEST_P(LinuxSeemsFreeTest, ANameThatNoneIsLikeIsFree) {
    Know("f");
    EXPECT_TRUE(SeemsFree("f\\two.txt"));
    EXPECT_TRUE(SeemsFree("f\\two.txt")); // and stays so
    EXPECT_TRUE(SeemsFree("f\\one.tx"));
    EXPECT_TRUE(SeemsFree("f\\\u00E9"));
}

TEST_P(LinuxSeemsFreeTest, NamesThatStandInAnyCaseAreNotFree) {
    disk_.MakeFile("f\\\u00C9t\u00E9", "");
    disk_.MakeFolder("f\\Folder");
    disk_.MakeFile("f\\a\uF03Ab", "");
    disk_.MakeLink("f\\link", "nowhere");
    Know("f");
    for (const char* name : {"one.txt", "ONE.TXT", "One.Txt", "\u00C9t\u00E9", "\u00E9T\u00C9",
                             "folder", "Folder", "A\uF03AB", "a\uF03Ab", "LINK"}) {
        EXPECT_FALSE(SeemsFree(std::string("f\\") + name)) << name;
    }
    EXPECT_TRUE(SeemsFree("f\\a\uF03Ac"));
}

TEST_P(LinuxSeemsFreeTest, AMadeShortNameIsNeverFree) {
    const std::string name = "A rather long name.txt";
    disk_.MakeFile("f\\" + name, "");
    Know("f");
    const std::string made = ShortNameOf(name);
    ASSERT_TRUE(LooksLikeMadeShortName(made));
    EXPECT_FALSE(SeemsFree("f\\" + made));
    EXPECT_FALSE(SeemsFree("f\\abcdef~1.txt"));
    EXPECT_EQ(Standing("f\\" + made), name);
    EXPECT_EQ(Standing("f\\abcdef~1.txt"), "");
}

TEST_P(LinuxSeemsFreeTest, RootsAndWhatCannotBeANameAreNeverFree) {
    Know("f");
    for (const char* path :
         {"T:", "T:\\", "t:\\.", "Q:\\x", "", "x", "T:\\a?b", "\\\\no\\share\\x"})
        EXPECT_FALSE(files().KnownFree(path)) << path;
    EXPECT_FALSE(SeemsFree("f\\a*"));
    EXPECT_FALSE(SeemsFree("f\\a:b"));
    EXPECT_FALSE(SeemsFree("f\\."));
    EXPECT_FALSE(SeemsFree("f\\two.txt\\..\\one.txt"));
}

TEST_P(LinuxSeemsFreeTest, AFileMovedToANameThatOthersMadeInBetweenIsRefusedAndAllStays) {
    Know("f");
    ASSERT_TRUE(SeemsFree("f\\two.txt"));
    WriteByOthers(disk_.Native("f\\two.txt"), "theirs");
    EXPECT_EQ(NumberOf(Move("source", "f\\two.txt")), kAlreadyExists);
    EXPECT_EQ(disk_.Content("source"), "from");
    EXPECT_EQ(disk_.Content("f\\two.txt"), "theirs");
    EXPECT_EQ(disk_.Names("f").size(), 2u);
    EXPECT_FALSE(SeemsFree("f\\two.txt"));
    EXPECT_EQ(Standing("f\\two.txt"), "two.txt");
    EXPECT_EQ(NumberOf(Move("source", "f\\two.txt")), kAlreadyExists);
}

TEST_P(LinuxSeemsFreeTest, AFileCopiedToANameThatOthersMadeInBetweenIsRefusedAndAllStays) {
    Know("f");
    ASSERT_TRUE(SeemsFree("f\\two.txt"));
    WriteByOthers(disk_.Native("f\\two.txt"), "theirs");
    EXPECT_EQ(NumberOf(Copy("source", "f\\two.txt")), kAlreadyExists);
    EXPECT_EQ(disk_.Content("source"), "from");
    EXPECT_EQ(disk_.Content("f\\two.txt"), "theirs");
    EXPECT_EQ(disk_.Names("f").size(), 2u);
    EXPECT_FALSE(SeemsFree("f\\two.txt"));
    EXPECT_EQ(Standing("f\\TWO.TXT"), "two.txt");
    EXPECT_EQ(NumberOf(Copy("source", "f\\two.txt")), kAlreadyExists);
}

TEST_P(LinuxSeemsFreeTest, WhileWeChangeTheFolderOthersAreNeverReplaced) {
    Know("f");
    for (int i = 0; i < 40; ++i) {
        const std::string ours = "f\\ours " + std::to_string(i);
        const std::string theirs = "f\\theirs " + std::to_string(i);
        ASSERT_TRUE(Copy("source", ours));
        SeemsFree(theirs);
        WriteByOthers(disk_.Native(theirs), "theirs");
        ASSERT_EQ(NumberOf(i % 2 == 0 ? Copy("source", theirs) : Move(ours, theirs)),
                  kAlreadyExists);
        ASSERT_FALSE(SeemsFree(theirs));
        ASSERT_EQ(disk_.Content(theirs), "theirs");
        ASSERT_EQ(disk_.Content(ours), "from");
    }
}

TEST_P(LinuxSeemsFreeTest, AFolderOrLinkThatOthersMadeInBetweenIsNotReplacedEither) {
    Know("f");
    ASSERT_TRUE(SeemsFree("f\\folder"));
    disk_.MakeFolder("f\\folder");
    EXPECT_NE(NumberOf(Move("source", "f\\folder")), 0);
    EXPECT_NE(NumberOf(Copy("source", "f\\folder")), 0);
    Know("f");
    ASSERT_TRUE(SeemsFree("f\\link"));
    disk_.MakeLink("f\\link", "nowhere");
    EXPECT_NE(NumberOf(Move("source", "f\\link")), 0);
    EXPECT_NE(NumberOf(Copy("source", "f\\link")), 0);
    EXPECT_EQ(disk_.Content("source"), "from");
    EXPECT_TRUE(std::filesystem::is_symlink(disk_.Native("f\\link")));
    EXPECT_TRUE(disk_.Names("f\\folder").empty());
}

TEST_P(LinuxSeemsFreeTest, AFolderThatOthersTookAwayIsNotFound) {
    Know("f");
    ASSERT_TRUE(SeemsFree("f\\two.txt"));
    ASSERT_EQ(::rename(disk_.Native("f").c_str(), disk_.Native("g").c_str()), 0);
    EXPECT_EQ(NumberOf(Move("source", "f\\two.txt")), kPathNotFound);
    ASSERT_FALSE(SeemsFree("f\\two.txt") && Copy("source", "f\\two.txt"));
    EXPECT_EQ(disk_.Content("source"), "from");
    EXPECT_EQ(disk_.Names("g").size(), 1u);
}

TEST_P(LinuxSeemsFreeTest, WhatWeMadeIsNotFree) {
    Know("f");
    ASSERT_TRUE(SeemsFree("f\\copy"));
    ASSERT_TRUE(Copy("source", "f\\copy"));
    EXPECT_FALSE(SeemsFree("f\\copy"));
    EXPECT_FALSE(SeemsFree("f\\COPY"));
    ASSERT_TRUE(SeemsFree("f\\folder"));
    ASSERT_TRUE(files().CreateFolder(At("f\\folder")));
    EXPECT_FALSE(SeemsFree("f\\FOLDER"));
    ASSERT_TRUE(SeemsFree("f\\tree"));
    ASSERT_TRUE(files().CopyFolder(At("f\\folder"), At("f\\tree"), false, {}));
    EXPECT_FALSE(SeemsFree("f\\tree"));
    ASSERT_TRUE(SeemsFree("f\\text"));
    ASSERT_TRUE(files().CreateTextFile(At("f\\text"), false));
    EXPECT_FALSE(SeemsFree("f\\Text"));
    ASSERT_TRUE(SeemsFree("f\\moved"));
    ASSERT_TRUE(Move("source", "f\\moved"));
    EXPECT_FALSE(SeemsFree("f\\moved"));
    ASSERT_TRUE(SeemsFree("f\\tree 2"));
    ASSERT_TRUE(files().MoveFolder(At("f\\tree"), At("f\\tree 2")));
    EXPECT_FALSE(SeemsFree("f\\TREE 2"));
    ASSERT_TRUE(SeemsFree("f\\Moved 2"));
    ASSERT_TRUE(Move("f\\moved", "f\\Moved 2"));
    EXPECT_FALSE(SeemsFree("f\\moved 2"));
}

TEST_P(LinuxSeemsFreeTest, WhatWeTookAwayIsFree) {
    disk_.MakeFile("f\\two.txt", "2");
    disk_.MakeFile("f\\three.txt", "3");
    disk_.MakeFile("f\\four.txt", "4");
    disk_.MakeFolder("f\\folder");
    disk_.MakeFolder("f\\tree");
    Know("f");
    ASSERT_TRUE(files().DeleteFile(At("f\\one.txt"), false));
    EXPECT_TRUE(SeemsFree("f\\one.txt"));
    EXPECT_TRUE(SeemsFree("f\\ONE.TXT"));
    ASSERT_TRUE(Move("f\\two.txt", "f\\other.txt"));
    EXPECT_TRUE(SeemsFree("f\\two.txt"));
    ASSERT_TRUE(Move("f\\three.txt", "away"));
    EXPECT_TRUE(SeemsFree("f\\three.txt"));
    ASSERT_TRUE(disk_.Bin().Recycle(std::vector{At("f\\four.txt")}, {}));
    EXPECT_TRUE(SeemsFree("f\\four.txt"));
    ASSERT_TRUE(files().RemoveFolder(At("f\\folder")));
    EXPECT_TRUE(SeemsFree("f\\folder"));
    ASSERT_TRUE(files().MoveFolder(At("f\\tree"), At("tree")));
    EXPECT_TRUE(SeemsFree("f\\tree"));
    ASSERT_TRUE(Copy("away", "f\\one.txt"));
    EXPECT_EQ(disk_.Content("f\\one.txt"), "3");
}

TEST_P(LinuxSeemsFreeTest, ANameThatTwoHadIsNotFreeAsLongAsOneHasIt) {
    disk_.MakeFile("f\\song", "1");
    disk_.MakeFile("f\\Song", "2");
    Know("f");
    EXPECT_FALSE(SeemsFree("f\\SONG"));
    ASSERT_TRUE(files().DeleteFile(At("f\\song"), false));
    Know("f");
    EXPECT_FALSE(SeemsFree("f\\SONG"));
    ASSERT_TRUE(Move("f\\Song", "f\\tune"));
    Know("f");
    EXPECT_TRUE(SeemsFree("f\\song"));
}

TEST_P(LinuxSeemsFreeTest, WhatWePutThereOurselvesRightAfterTheAnswerIsNotReplaced) {
    Know("f");
    ASSERT_TRUE(SeemsFree("f\\two.txt"));
    ASSERT_TRUE(Copy("source", "f\\two.txt"));
    disk_.MakeFile("other", "other");
    EXPECT_EQ(NumberOf(Move("other", "f\\two.txt")), kAlreadyExists);
    ASSERT_TRUE(SeemsFree("f\\three.txt"));
    ASSERT_TRUE(Move("other", "f\\Three.txt"));
    EXPECT_EQ(NumberOf(Move("source", "f\\three.txt")), kAlreadyExists);
    EXPECT_EQ(NumberOf(Copy("source", "f\\three.txt")), kAlreadyExists);
    EXPECT_EQ(disk_.Content("f\\two.txt"), "from");
    EXPECT_EQ(disk_.Content("f\\Three.txt"), "other");
    EXPECT_EQ(disk_.Content("source"), "from");
}

TEST_P(LinuxSeemsFreeTest, AnAnswerIsForItsFolderAloneAndGoesWithIt) {
    disk_.MakeFile("g\\TWO.TXT", "in g");
    Know("f");
    ASSERT_TRUE(SeemsFree("f\\two.txt"));
    ASSERT_TRUE(files().MoveFolder(At("f"), At("away")));
    ASSERT_TRUE(files().MoveFolder(At("g"), At("f")));
    EXPECT_FALSE(SeemsFree("f\\two.txt"));
    EXPECT_EQ(NumberOf(Move("source", "f\\two.txt")), kAlreadyExists);
    EXPECT_EQ(disk_.Content("f\\TWO.TXT"), "in g");
    EXPECT_EQ(disk_.Names("f").size(), 1u);
}

TEST_P(LinuxSeemsFreeTest, ALinkToAFolderThatWeTurnedTakesItsNamesWithIt) {
    disk_.MakeFile("g\\TWO.TXT", "in g");
    disk_.MakeLink("link", "f");
    disk_.MakeLink("link 2", "g");
    Know("link");
    ASSERT_TRUE(Copy("source", "link\\ours"));
    ASSERT_TRUE(SeemsFree("link\\two.txt"));
    ASSERT_TRUE(files().DeleteFile(At("link"), false));
    ASSERT_TRUE(Move("link 2", "link"));
    EXPECT_FALSE(SeemsFree("link\\two.txt"));
    EXPECT_EQ(NumberOf(Move("source", "link\\two.txt")), kAlreadyExists);
    EXPECT_EQ(disk_.Names("g").size(), 1u);
}

TEST_P(LinuxSeemsFreeTest, WhatStandsHasTheNameAsTheDiskSpellsIt) {
    disk_.MakeFolder("f\\Folder");
    for (const bool isKnown : {false, true}) {
        EXPECT_EQ(Standing("f\\one.txt"), "one.txt");
        EXPECT_EQ(Standing("F\\ONE.TXT"), "one.txt");
        EXPECT_EQ(Standing("f\\folder"), "Folder");
        EXPECT_EQ(Standing("f\\none"), "");
        EXPECT_EQ(Standing("no folder\\none"), "");
        EXPECT_EQ(WhatStands(files(), "t:\\").name, "T:");
        if (!isKnown) Know("f");
    }
}

} // namespace tarvix::platform
