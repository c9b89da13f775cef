#include "tests/endtoend/program_path.h"
#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class RefusalsTest : public Trees {};

TEST_F(RefusalsTest, EachIsOneSentenceAndNothingIsDone) {
    MakeBasic();
    struct Case {
        std::vector<std::string> arguments;
        std::string sentence;
    };
    const std::vector<Case> cases{
        {{"search", "*"}, "Say where to search with --in, such as --in ~/Music."},
        {{"search", "*", "--in", "basic", "--size-at-least", "big"},
         "--size-at-least takes a size below 4 EiB, such as 4096, 10K, 1.5M or \"2 GB\", "
         "not \"big\"."},
        {{"search", "*", "--in", "basic", "--since", "soon"},
         "--since takes a date such as 2026-11-15, \"2026-11-15 19:54:52\" or \"last 7 days\", "
         "not \"soon\"."},
        {{"search", "*", "--in", "basic", "--columns", "Nmae"},
         "There is no column \"Nmae\". Did you mean \"Name\"?"},
        {{"search", "*", "--in", "basic", "--jsn"},
         "There is no option --jsn. Did you mean \"--json\"? tarvix-cli search --help lists "
         "them."},
        {{"search", "*", "--in", "nowhere"},
         "There is no folder \"nowhere\" to search: give --in folders that exist."},
        {{"search", "*", "--in", "basic/a.mp3"},
         "\"basic/a.mp3\" is a file: give --in the folders to search."},
        {{"copy", "*", "--in", "basic", "--to", "out", "--structure", "mirrow"},
         "--structure: mirrow not in {none,mirror,folder,backup}. Did you mean \"mirror\"?"},
        {{"--drive", "X=nowhere", "search", "*", "--in", "basic"},
         "--drive X=nowhere names no folder: give a drive a folder that exists."},
    };
    for (const auto& [arguments, sentence] : cases) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.exitCode, 2) << sentence;
        EXPECT_EQ(outcome.out, "") << sentence;
        EXPECT_EQ(outcome.err, "tarvix-cli: " + sentence + "\n");
    }
    EXPECT_FALSE(fs::exists(Root() / "out"));
    EXPECT_FALSE(fs::exists(DataFolder() / "TXAction 11.15.25 19.54.52.log"));
}

TEST_F(RefusalsTest, AQuestionIsAnsweredOnlyWhenToldHow) {
    MakeBasic();
    const Outcome asked = Run({"list", "mp|tx", "--in", "basic"});
    EXPECT_EQ(asked.exitCode, 3);
    EXPECT_EQ(asked.out, "");
    EXPECT_THAT(asked.err, HasSubstr("give --answer Yes or --answer No."));
    const Outcome answered = Run({"list", "mp|tx", "--in", "basic", "--answer", "No"});
    EXPECT_EQ(answered.exitCode, 0);
    EXPECT_EQ(std::ranges::count(answered.out, '\n'), 5);
    const Outcome searched = Run({"search", "mp|tx", "--in", "basic"});
    EXPECT_EQ(searched.exitCode, 0);
    EXPECT_EQ(searched.out, answered.out);
}

TEST_F(RefusalsTest, HelpAndVersionAreResults) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"--help"}, {"search", "--help"}, {"run", "-h"}}) {
        const Outcome outcome = Run(words);
        EXPECT_EQ(outcome.exitCode, 0);
        EXPECT_EQ(outcome.err, "");
        EXPECT_THAT(outcome.out, HasSubstr("Usage: tarvix-cli"));
    }
    EXPECT_THAT(Run({"--version"}).out, StartsWith("Tarvix "));
}

TEST_F(RefusalsTest, ResultsThatCannotBeWrittenGiveOne) {
    MakeBasic();
    const std::string command = ProgramPath() + " --data-folder " + DataFolder().string() +
                                " search '*' --in " + (Root() / "basic").string() +
                                " > /dev/full 2> " + (Root() / "err").string();
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
    EXPECT_THAT(ReadAll(Root() / "err"), HasSubstr("could not be written"));
}

} // namespace
} // namespace tarvix::endtoend
