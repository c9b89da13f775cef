#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <sys/mount.h>
#include <sys/stat.h>

namespace tarvix::endtoend {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

// Deletions on real folders, into a trash of their own beside them.
class DeleteTest : public Trees {
  protected:
    DeleteTest() {
        setenv("HOME", Root().c_str(), 1);
        setenv("XDG_DATA_HOME", (Root() / ".local/share").c_str(), 1);
    }
    Outcome Delete(const std::string& pattern, const std::string& from,
                   std::vector<std::string> more = {}) {
        more.insert(more.begin(), {"delete", pattern, "--in", from, "--any-attribute", "--yes"});
        return Run(more);
    }
    fs::path Trash() const { return Root() / ".local/share/Trash"; }
    std::size_t CountIn(const fs::path& folder) const {
        std::size_t count = 0;
        if (!fs::exists(folder)) return count;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (!entry.is_directory()) ++count;
        }
        return count;
    }
};

TEST_F(DeleteTest, EverythingFoundLiesInTheTrashWithWhatBringsItBack) {
    MakeBasic();
    const Outcome outcome = Delete("*.mp3", "basic");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "Recycled 3 of 3 objects.\n");
    EXPECT_FALSE(fs::exists(Root() / "basic/a.mp3"));
    EXPECT_FALSE(fs::exists(Root() / "basic/sub/c.mp3"));
    EXPECT_EQ(ReadAll(Trash() / "files/c.mp3"), std::string(2048, 'c'));
    const std::string info = ReadAll(Trash() / "info/c.mp3.trashinfo");
    EXPECT_THAT(Shown(info), HasSubstr("[Trash Info]\nPath=ROOT/basic/sub/c.mp3\nDeletionDate="));
}

TEST_F(DeleteTest, WhatWasRecycledCanBeRestored) {
    const std::string gio = "dbus-run-session -- gio trash ";
    const std::string quietly = " >" + (Root() / "gio.out").string() + " 2>&1";
    if (std::system((gio + "--list" + quietly).c_str()) != 0) {
        GTEST_SKIP() << "there is no service behind gio that knows the trash";
    }
    MakeBasic();
    ASSERT_EQ(Delete("c.mp3", "basic").exitCode, 0);
    ASSERT_EQ(std::system((gio + "--restore trash:///c.mp3" + quietly).c_str()), 0);
    EXPECT_EQ(ReadAll(Root() / "basic/sub/c.mp3"), std::string(2048, 'c'));
}

TEST_F(DeleteTest, AScriptPutsBackWhatItRecycled) {
    MakeBasic();
    AddFile("basic/d/one of d.mp3", "1");
    AddFile("basic/d/what? 50%.mp3", "2");
    const std::string script = "set cmbSearchFor = *\nset cmbDir = " + Root().string() +
                               "/basic\nset optFilesVsDirs(2) = 1\nset chkIncludeSubFolders = 1\n"
                               "answer Yes\nclick cmdSearch\nclick cmdSelectAll\n"
                               "click cmdDeleteSelected\nclick cmdOutcome\n"
                               "click frmOutcome.cmdPutBack\ndump frmOutcome.lblMain\n";
    const std::size_t before = CountIn(Root() / "basic");
    const Outcome outcome = RunScript(script);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_THAT(outcome.out, ::testing::StartsWith("Put back "));
    EXPECT_THAT(outcome.out, ::testing::Not(HasSubstr("failed")));
    EXPECT_EQ(CountIn(Root() / "basic"), before);
    EXPECT_EQ(CountIn(Trash()), 0U);
    EXPECT_EQ(ReadAll(Root() / "basic/d/what? 50%.mp3"), "2");
    EXPECT_EQ(ReadAll(Root() / "basic/sub/c.mp3"), std::string(2048, 'c'));
}

TEST_F(DeleteTest, WithoutYesNothingHappens) {
    MakeBasic();
    const Outcome outcome = Run({"delete", "*.mp3", "--in", "basic"});
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_THAT(outcome.err, EndsWith("give --yes.\n"));
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(fs::exists(Root() / "basic/a.mp3"));
    EXPECT_FALSE(fs::exists(Trash()));
}

TEST_F(DeleteTest, OddNamesAreRecycledAsTheyAre) {
    MakeWeird();
    const std::size_t before = CountIn(Root() / "weird");
    const Outcome outcome = Delete("*", "weird", {"--override-system-hidden", "yes"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(CountIn(Trash() / "files") + CountIn(Root() / "weird"), before)
        << "what can't be listed stays";
    EXPECT_THAT(outcome.out, HasSubstr(" of " + std::to_string(CountIn(Trash() / "files")) + " "));
}

TEST_F(DeleteTest, OfALinkOnlyTheLinkGoes) {
    MakeLinks();
    EXPECT_EQ(Delete("to-*", "links").exitCode, 0);
    EXPECT_EQ(ReadAll(Root() / "links/real/file.txt"), "real");
    EXPECT_EQ(fs::read_symlink(Trash() / "files/to-file.txt"), "real/file.txt");
}

TEST_F(DeleteTest, AReadOnlyFileGoesAndAHiddenOneOnlyWhenAskedFor) {
    AddFile("t/read-only.txt", "r");
    fs::permissions(Root() / "t/read-only.txt", static_cast<fs::perms>(0444));
    AddFile("t/.hidden.txt", "h");
    const Outcome kept = Delete("*.txt", "t", {"--override-system-hidden", "no"});
    EXPECT_EQ(kept.exitCode, 1);
    EXPECT_EQ(kept.out, "Recycled 1 of 2 objects; 1 skipped.\n");
    EXPECT_TRUE(fs::exists(Root() / "t/.hidden.txt"));
    EXPECT_EQ(Delete("*.txt", "t", {"--override-system-hidden", "yes"}).exitCode, 0);
    EXPECT_FALSE(fs::exists(Root() / "t/.hidden.txt"));
}

TEST_F(DeleteTest, NamesThatDifferOnlyInCaseAreToldApart) {
    for (const char* name : {"SONG.mp3", "Song.mp3", "song.mp3"}) {
        AddFile(fs::path("t") / name, name);
    }
    const Outcome outcome = RunScript("set cmbSearchFor = *.mp3\n"
                                      "set cmbDir = " +
                                      (Root() / "t").string() +
                                      "\n"
                                      "click cmdSearch\n"
                                      "select 2\n"
                                      "answer Yes\n"
                                      "click cmdDeleteSelected\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(CountIn(Root() / "t"), 2U);
    ASSERT_EQ(CountIn(Trash() / "files"), 1U);
    for (const auto& entry : fs::directory_iterator(Trash() / "files")) {
        EXPECT_EQ(ReadAll(entry.path()), entry.path().filename()) << "the one that was listed";
        EXPECT_FALSE(fs::exists(Root() / "t" / entry.path().filename()));
    }
}

TEST_F(DeleteTest, TwoObjectsOfOneNameBothStayWhole) {
    AddFile("t/a/same.txt", "first");
    AddFile("t/b/same.txt", "second");
    EXPECT_EQ(Delete("same.txt", "t").exitCode, 0);
    EXPECT_EQ(CountIn(Trash() / "files"), 2U);
    EXPECT_EQ(CountIn(Trash() / "info"), 2U);
}

TEST_F(DeleteTest, AFolderAndWhatIsInItGoOnce) {
    AddFile("t/d/a.txt", "1");
    AddFile("t/d/e/b.txt", "2");
    AddFile("t/D/a.txt", "neighbour");
    const Outcome outcome =
        Run({"delete", "*", "--in", "t/d", "--kind", "all", "--any-attribute", "--answer", "Yes"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "Recycled 3 of 3 objects.\n");
    EXPECT_EQ(ReadAll(Root() / "t/D/a.txt"), "neighbour");
    EXPECT_EQ(CountIn(Root() / "t/d"), 0U);
    EXPECT_EQ(CountIn(Trash() / "files"), 2U);
}

TEST_F(DeleteTest, WhatCannotBeRecycledStaysOrGoesAsTheOptionSays) {
    AddFile("t/a.txt", "1");
    AddFile(".local/share/Trash", "in the way of the trash");
    const Outcome kept = Delete("*.txt", "t", {"--on-recycle-failure", "keep"});
    EXPECT_EQ(kept.exitCode, 1);
    EXPECT_EQ(kept.out, "Recycled 0 of 1 object; 1 failed.\n");
    EXPECT_EQ(ReadAll(Root() / "t/a.txt"), "1");
    const Outcome unanswered = Delete("*.txt", "t");
    EXPECT_EQ(unanswered.exitCode, 3);
    EXPECT_EQ(ReadAll(Root() / "t/a.txt"), "1");
    const Outcome gone = Delete("*.txt", "t", {"--on-recycle-failure", "delete"});
    EXPECT_EQ(gone.exitCode, 0);
    EXPECT_EQ(gone.out, "Recycled 0 of 1 object; 1 deleted for good.\n");
    EXPECT_FALSE(fs::exists(Root() / "t/a.txt"));
}

TEST_F(DeleteTest, TheTrashItselfIsNeitherSearchedNorDeleted) {
    AddFile("t/a.txt");
    ASSERT_EQ(Delete("a.txt", "t").exitCode, 0);
    const Outcome found = Run({"search", "a.txt", "--in", ".", "--any-attribute"});
    EXPECT_EQ(found.out, "");
    const Outcome asked = Run({"search", "a.txt", "--in", ".local/share/Trash", "--any-attribute"});
    EXPECT_EQ(Shown(asked.out), "ROOT/.local/share/Trash/files/a.txt\n");
}

// ---- a full disk ----

// The home folder, its trash and what is deleted, on a small disk without any room.
class FullDiskDelete : public CliProcess {
  protected:
    ~FullDiskDelete() override {
        if (isMounted_) ::umount2(Disk().c_str(), MNT_DETACH);
    }
    bool Fill() {
        AddFolder("disk");
        isMounted_ = ::mount("tmpfs", Disk().c_str(), "tmpfs", 0, "size=256k") == 0;
        if (!isMounted_) return false;
        ::setenv("HOME", Disk().c_str(), 1);
        ::setenv("XDG_DATA_HOME", (Disk() / "share").c_str(), 1);
        AddFile("disk/w/a.tmp", "1");
        AddFile("disk/w/b.tmp", "2");
        std::ofstream fill(Disk() / "fill", std::ios::binary);
        while (fill.put('f')) {
        }
        return true;
    }
    Outcome Delete() {
        return Run({"delete", "*.tmp", "--in", "disk/w", "--any-attribute", "--yes",
                    "--on-recycle-failure", "keep"});
    }
    void ExpectNothingInTheTrash() {
        std::error_code none;
        for (const auto& entry : fs::recursive_directory_iterator(Disk() / "share", none)) {
            EXPECT_TRUE(entry.is_directory()) << entry.path();
        }
    }
    fs::path Disk() const { return Root() / "disk"; }

  private:
    bool isMounted_ = false;
};

TEST_F(FullDiskDelete, LeavesEverythingWhereItIsAndSaysWhy) {
    if (!Fill()) GTEST_SKIP() << "nothing can be mounted here";
    const Outcome outcome = Delete();
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.out, "Recycled 0 of 2 objects; 2 failed.\n");
    EXPECT_THAT(Shown(outcome.err), HasSubstr("There is no space left on the drive that holds "
                                              "ROOT/disk/w/a.tmp."));
    EXPECT_EQ(ReadAll(Disk() / "w/a.tmp"), "1");
    EXPECT_EQ(ReadAll(Disk() / "w/b.tmp"), "2");
    ExpectNothingInTheTrash();
}

TEST_F(FullDiskDelete, GoesOnOnceThereIsRoom) {
    if (!Fill()) GTEST_SKIP() << "nothing can be mounted here";
    ASSERT_EQ(Delete().exitCode, 1);
    fs::remove(Disk() / "fill");
    const Outcome outcome = Delete();
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(ReadAll(Disk() / "share/Trash/files/a.tmp"), "1");
    EXPECT_EQ(ReadAll(Disk() / "share/Trash/files/b.tmp"), "2");
    EXPECT_FALSE(fs::exists(Disk() / "w/a.tmp"));
}

} // namespace
} // namespace tarvix::endtoend
