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

} // namespace
} // namespace tarvix::endtoend
