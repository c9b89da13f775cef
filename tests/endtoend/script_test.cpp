#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class ScriptTest : public Trees {};

TEST_F(ScriptTest, DrivesTheWholeRoadFromSearchToCopy) {
    MakeBasic();
    const Outcome outcome = RunScript("# find, choose, copy\n"
                                      "set cmbSearchFor = *.mp3\n"
                                      "set cmbDir = " +
                                      Root().string() +
                                      "/basic\n"
                                      "set chkIncludeSubFolders = 1\n"
                                      "click cmdSearch\n"
                                      "dump lstMain Name SizeSubItem\n"
                                      "select like d.*\n"
                                      "click cmdCopySelected\n"
                                      "set cmbDir = " +
                                      Root().string() +
                                      "/out\n"
                                      "answer OK\n"
                                      "click OKButton\n"
                                      "dump lblNumOfFilesSelected\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "Name\tSize\n"
                           "a.mp3\t000,000,000,005\n\n"
                           "c.mp3\t000,000,002,048\n\n"
                           "D.MP3\t000,000,000,001\n"
                           "1\n");
    EXPECT_EQ(ReadAll(Root() / "out/D.MP3"), "d");
    EXPECT_FALSE(fs::exists(Root() / "out/a.mp3"));
}

TEST_F(ScriptTest, AFileIsReadAsStdinIs) {
    AddFile("script.txt", "dump lblNumOfFilesFound\r\n");
    const Outcome outcome = Run({"run", "script.txt"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "0\n");
}

TEST_F(ScriptTest, AStopDuringTheSearchKeepsTheRowsFoundSoFar) {
    for (int i = 0; i < 200; ++i)
        AddFile("many/file" + std::to_string(i) + ".txt");
    const Outcome outcome = RunScript("set cmbSearchFor = *.txt\nset cmbDir = " + Root().string() +
                                      "/many\nafter 100 yields click cmdStop\n"
                                      "click cmdSearch\ndump lblNumOfFilesFound\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_LT(std::stoi(outcome.out), 200);
}

TEST_F(ScriptTest, TheFirstRunNoticeIsAnsweredByItself) {
    fs::remove_all(DataFolder());
    const Outcome outcome = RunScript("dump prompts\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_THAT(outcome.out, StartsWith("16\tTarvix\tWARNING - Using this program carelessly"));
    EXPECT_THAT(outcome.out, HasSubstr("\tOK\n"));
    EXPECT_EQ(std::ranges::count(outcome.out, '\n'), 3);
    const Outcome second = RunScript("dump prompts\n");
    EXPECT_EQ(second.out, "");
}

TEST_F(ScriptTest, LeadingAnswersReachTheFirstRunNotice) {
    fs::remove_all(DataFolder());
    const Outcome outcome = RunScript("answer OK\nanswer No\nanswer Maybe\ndump prompts\n");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.err, HasSubstr("has no button \"Maybe\""));
}

TEST_F(ScriptTest, AnUnansweredPromptEndsItWithThree) {
    MakeBasic();
    const Outcome outcome = RunScript("set cmbSearchFor = a|b\nset cmbDir = " + Root().string() +
                                      "/basic\nclick cmdSearch\ndump lstMain\n");
    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, StartsWith("tarvix-cli: line 3: Search strings may not be mutually "
                                        "exclusive"));
}

TEST_F(ScriptTest, ErrorsNameTheLine) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"\nset cmbSerchFor = x\n",
         "line 2: frmSearch has no control \"cmbSerchFor\". Did you mean \"cmbSearchFor\"?"},
        {"click cmdStop\n", "line 1: frmSearch.cmdStop is hidden."},
        {"# x\nselct 1\n", "line 2: There is no statement \"selct\". Did you mean \"select\"?"},
        {"select 1\n", "line 1: There is no row 1: the list has 0."},
    };
    for (const auto& [script, sentence] : cases) {
        const Outcome outcome = RunScript(script);
        EXPECT_EQ(outcome.exitCode, 2) << script;
        EXPECT_EQ(outcome.err, "tarvix-cli: " + sentence + "\n");
    }
}

TEST_F(ScriptTest, TheActionLogLiesInTheDataFolder) {
    MakeBasic();
    EXPECT_EQ(RunScript("set cmbSearchFor = *\nset cmbDir = " + Root().string() +
                        "/basic\nclick cmdSearch\n")
                  .exitCode,
              0);
    EXPECT_THAT(ReadAll(DataFolder() / "TXAction 11.15.25 19.54.52.log"),
                HasSubstr("11/15/2025 19:54:52 User selected to search for files"));
}

TEST_F(ScriptTest, TheSampleCanBeSearchedAtOnce) {
    EXPECT_EQ(Run({"sample", "demo"}).exitCode, 0);
    const Outcome found = Run({"search", "*.jpg", "--in", "demo"});
    EXPECT_EQ(found.exitCode, 0) << found.err;
    EXPECT_THAT(Shown(found.out), HasSubstr("ROOT/demo/Photos/Holiday 2025/Panorama 3:1.jpg\n"));
    EXPECT_EQ(Run({"sample", "demo"}).exitCode, 2);
}

} // namespace
} // namespace tarvix::endtoend
