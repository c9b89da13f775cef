#include "tests/endtoend/cli_process.h"

#include <gmock/gmock.h>

#include <fstream>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class DataFolderTest : public CliProcess {
  protected:
    void AddData(const std::string& name, const std::string& text) {
        std::ofstream(DataFolder() / name, std::ios::binary) << text;
    }
    std::string Data(const std::string& name) { return ReadAll(DataFolder() / name); }
    std::string FindIn(const std::string& location, std::vector<std::string> before = {}) {
        before.insert(before.end(),
                      {"search", "*.txt", "--in", location, "--columns", "PathNameSubItem"});
        const Outcome outcome = Run(before);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
        return outcome.out;
    }
};

TEST_F(DataFolderTest, ASavedDriveHasItsLetter) {
    AddFile("collection/a.txt");
    AddData("TXPlatform.txt",
            "PathForm = drive\nDrive Q: = " + (Root() / "collection").string() + "\n*EOF");
    EXPECT_EQ(FindIn("Q:\\"), "Q:\\a.txt\n");
}

TEST_F(DataFolderTest, ADriveOfTheCommandLineWinsAndIsNotSaved) {
    AddFile("collection/a.txt");
    AddFile("other/b.txt");
    const std::string saved = "Drive Q: = " + (Root() / "collection").string();
    AddData("TXPlatform.txt", "PathForm = drive\n" + saved + "\n*EOF");
    EXPECT_EQ(FindIn("Q:\\", {"--drive", "Q=" + (Root() / "other").string()}), "Q:\\b.txt\n");
    EXPECT_THAT(Data("TXPlatform.txt"), HasSubstr(saved));
    EXPECT_THAT(Data("TXPlatform.txt"), Not(HasSubstr("other")));
}

TEST_F(DataFolderTest, EveryRunWritesItsFilesAndKeepsTheHistoriesOfEarlierOnes) {
    AddFile("one/a.txt");
    AddFile("two/b.txt");
    FindIn((Root() / "one").string());
    FindIn((Root() / "two").string());
    const std::string history = Data("TXFSFolderHistoryFile.txt");
    EXPECT_THAT(history, HasSubstr("\\one\r\n11/15/2025 7:54:52 PM\r\n"));
    EXPECT_THAT(history, HasSubstr("\\two\r\n11/15/2025 7:54:52 PM\r\n*EOF"));
    EXPECT_THAT(Data("TXOptionFile.txt"), HasSubstr("\r\nblnSort = False\r\n"));
    EXPECT_TRUE(fs::exists(DataFolder() / "TXOptionFile.bak"));
}

TEST_F(DataFolderTest, PathsTellsWhereTheyLie) {
    const Outcome outcome = Run({"paths"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_THAT(Shown(outcome.out), HasSubstr("Options\tROOT/data/TXOptionFile.txt\n"));
}

TEST_F(DataFolderTest, AnOptionThatWasSetCounts) {
    EXPECT_EQ(Run({"options", "set", "PathForm", "drive"}).exitCode, 0);
    EXPECT_EQ(Run({"options", "set", "strDefSearchFolder(0)", Root().string()}).exitCode, 0);
    const Outcome outcome = RunScript("dump cmbDir\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("C:\\"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("%UserProfile%")));
}

TEST_F(DataFolderTest, SettingsKeepTheirModeAndTheirLink) {
    AddFile("elsewhere/options.txt", "x\r\n0.1.0\r\nblnSort = False\r\n*EOF");
    fs::permissions(Root() / "elsewhere/options.txt", fs::perms(0640));
    fs::create_symlink(Root() / "elsewhere/options.txt", DataFolder() / "TXOptionFile.txt");
    EXPECT_EQ(Run({"options", "set", "blnSort", "True"}).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(DataFolder() / "TXOptionFile.txt"));
    EXPECT_THAT(ReadAll(Root() / "elsewhere/options.txt"), HasSubstr("blnSort = True\r\n"));
    EXPECT_EQ(fs::status(Root() / "elsewhere/options.txt").permissions(), fs::perms(0640));
}

TEST_F(DataFolderTest, SetOnAFileThatCannotBeReadWholeSaysSoAndChangesNothing) {
    const std::string damaged = "x\r\n0.1.0\r\nbytArchive = much\r\nblnSort = True\r\n*EOF";
    AddData("TXOptionFile.txt", damaged);
    const Outcome outcome = Run({"options", "set", "blnAllowAll", "True"});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.err, HasSubstr("could not be read whole, so nothing was saved in it"));
    EXPECT_EQ(Data("TXOptionFile.txt"), damaged);
}

TEST_F(DataFolderTest, ASearchGoesOnWithoutOneAndSaysThatNothingIsSaved) {
    AddFile("t/a.txt");
    const Outcome outcome = Run({"--data-folder", "t/a.txt/data", "search", "*.txt", "--in", "t"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("/t/a.txt\n"));
    EXPECT_THAT(outcome.err, HasSubstr("The data folder can't be written"));
}

} // namespace
} // namespace tarvix::endtoend
