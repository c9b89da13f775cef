#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;

class CopyTest : public Trees {
  protected:
    static struct stat Facts(const fs::path& file) {
        struct stat facts {};
        EXPECT_EQ(lstat(file.c_str(), &facts), 0) << file;
        return facts;
    }
    Outcome Copy(const std::string& pattern, const std::string& from, const std::string& to) {
        return Run({"copy", pattern, "--in", from, "--any-attribute", "--to", to, "--yes"});
    }
};

TEST_F(CopyTest, KeepsBytesTimesAndMode) {
    MakeBasic();
    const fs::path source = Root() / "basic/sub/c.mp3";
    fs::permissions(source, static_cast<fs::perms>(0640));
    const Outcome outcome = Copy("c.mp3", "basic", "out");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "Copied 1 of 1 object.\n");
    const fs::path copy = Root() / "out/c.mp3";
    EXPECT_EQ(ReadAll(copy), std::string(2048, 'c'));
    EXPECT_EQ(Facts(copy).st_mode, Facts(source).st_mode);
    EXPECT_EQ(Facts(copy).st_mtim.tv_sec, Facts(source).st_mtim.tv_sec);
    EXPECT_EQ(Facts(copy).st_mtim.tv_nsec, Facts(source).st_mtim.tv_nsec);
}

TEST_F(CopyTest, LeavesTheSourcesAndWhatIsThere) {
    MakeBasic();
    AddFile("out/a.mp3", "mine");
    const Outcome outcome = Copy("*.mp3", "basic", "out");
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.out, "Copied 2 of 3 objects; 1 skipped as it exists already.\n");
    EXPECT_EQ(ReadAll(Root() / "out/a.mp3"), "mine");
    EXPECT_EQ(ReadAll(Root() / "out/D.MP3"), "d");
    EXPECT_EQ(ReadAll(Root() / "basic/a.mp3"), "12345");
}

TEST_F(CopyTest, ASecondRunSkipsEverything) {
    MakeBasic();
    EXPECT_EQ(Copy("*.txt", "basic", "out").exitCode, 0);
    const Outcome again = Copy("*.txt", "basic", "out");
    EXPECT_EQ(again.exitCode, 0);
    EXPECT_EQ(again.out, "Copied 0 of 2 objects; 2 skipped as they exist already.\n");
}

TEST_F(CopyTest, OddNamesArriveAsTheyAre) {
    MakeWeird();
    const Outcome outcome = Copy("*", "weird", "out");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "Copied 23 of 23 objects.\n");
    for (const fs::directory_entry& entry : fs::directory_iterator(Root() / "weird")) {
        if (entry.is_directory()) continue;
        const fs::path name = entry.path().filename();
        EXPECT_TRUE(fs::exists(Root() / "out" / name)) << entry.path();
    }
}

TEST_F(CopyTest, ALinkIsCopiedAsALink) {
    MakeLinks();
    EXPECT_EQ(Copy("*.txt", "links", "out").exitCode, 0);
    EXPECT_EQ(fs::read_symlink(Root() / "out/to-file.txt"), "real/file.txt");
    EXPECT_EQ(fs::read_symlink(Root() / "out/dangling.txt"), "nowhere");
    EXPECT_EQ(ReadAll(Root() / "out/file.txt"), "real");
}

TEST_F(CopyTest, AFolderIsCopiedWithAllThatIsInIt) {
    MakeBasic();
    const Outcome outcome =
        Run({"copy", "sub", "--in", "basic", "--kind", "folders", "--to", "out", "--yes"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(ReadAll(Root() / "out/sub/below/e.txt"), "e");
}

TEST_F(CopyTest, WithoutYesNothingIsDone) {
    MakeBasic();
    const Outcome outcome = Run({"copy", "*", "--in", "basic", "--to", "out"});
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("give --yes."));
    EXPECT_FALSE(fs::exists(Root() / "out"));
}

TEST_F(CopyTest, NoTemporaryFileIsLeft) {
    MakeBasic();
    EXPECT_EQ(Copy("*", "basic", "out").exitCode, 0);
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(Root() / "out"))
        names.push_back(entry.path().filename().string());
    EXPECT_THAT(names, ::testing::UnorderedElementsAre("a.mp3", "b.txt", "c.mp3", "D.MP3",
                                                       "none.dat", "e.txt"));
}

TEST_F(CopyTest, ATypedBackslashIsACharacterOfAName) {
    AddFile("deep/in/a.txt", "a");
    const Outcome renamed =
        Run({"rename", "a.txt", "--in", "deep", "--insert", "..\\..\\x", "--yes"});
    EXPECT_EQ(renamed.exitCode, 0) << renamed.err;
    EXPECT_EQ(ReadAll(Root() / "deep/in/a..\\..\\x.txt"), "a");
    const Outcome back =
        Run({"rename", "*", "--in", "deep", "--find", "\\..\\", "--replace", "?", "--yes"});
    EXPECT_EQ(back.exitCode, 0) << back.err;
    EXPECT_EQ(ReadAll(Root() / "deep/in/a..?x.txt"), "a");
}

TEST_F(CopyTest, ATypedSlashIsRefused) {
    AddFile("deep/in/a.txt", "a");
    const Outcome renamed = Run({"rename", "a.txt", "--in", "deep", "--insert", "../x", "--yes"});
    EXPECT_EQ(renamed.exitCode, 2);
    EXPECT_THAT(renamed.err, HasSubstr("as no name may hold /."));
    EXPECT_EQ(ReadAll(Root() / "deep/in/a.txt"), "a");
}

} // namespace
} // namespace tarvix::endtoend
