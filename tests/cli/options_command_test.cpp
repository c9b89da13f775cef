#include "cli/request.h"
#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::cli {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const std::string kFolder = "C:\\home\\ann\\tarvix\\";

class OptionsCommand : public CliFixture {
  protected:
    std::string Options() { return Disk().Content(kFolder + "TXOptionFile.txt").value_or(""); }
    std::string Settings() { return Disk().Content(kFolder + "TXPlatform.txt").value_or(""); }
    std::string Get(const std::string& key) {
        EXPECT_EQ(Run({"options", "get", key}), kDone) << Err();
        return Out();
    }
};

TEST_F(OptionsCommand, ListsEachKeyWithItsValueAndChangesNothing) {
    EXPECT_EQ(Run({"options", "list"}), kDone);
    EXPECT_THAT(Out(), StartsWith("blnAllowAll = False\n"));
    EXPECT_THAT(Out(), HasSubstr("\nstrDefSearchFolder(0) = %UserProfile%\\Documents[\n"));
    EXPECT_THAT(Out(), HasSubstr("\nblnListItems (SizeSubItem) = True\n"));
    EXPECT_THAT(
        Out(),
        HasSubstr("\nListPathForm = native\nSizeForm = bytes\nLongestPath = 259\nEditor = \n"));
    EXPECT_EQ(Options(), "");
    EXPECT_EQ(Settings(), "");
    const std::string listed = Out();
    EXPECT_EQ(Run({"options"}), kDone);
    EXPECT_EQ(Out(), listed);
}

TEST_F(OptionsCommand, ListsAsOneObject) {
    EXPECT_EQ(Run({"options", "list", "--json"}), kDone);
    EXPECT_THAT(Out(), StartsWith("{\"blnAllowAll\":\"False\","));
}

TEST_F(OptionsCommand, TellsOneValueByItsKeyInAnyCase) {
    EXPECT_EQ(Get("BYTARCHIVE"), "2\n");
    EXPECT_EQ(Get("blnListItems(pathlevels)"), "True\n");
    EXPECT_EQ(Get("LatestFileYear"), "2025\n");
}

TEST_F(OptionsCommand, SetsAnOptionInItsFileAndNothingElse) {
    EXPECT_EQ(Run({"options", "set", "blnSort", "true"}), kDone) << Err();
    EXPECT_THAT(Options(), HasSubstr("\r\nblnSort = True\r\n"));
    EXPECT_TRUE(Options().ends_with("*EOF"));
    EXPECT_EQ(Settings(), "");
    EXPECT_EQ(Get("blnSort"), "True\n");
    EXPECT_EQ(Run({"options", "set", "blnListItems (OSSubItem)", "False"}), kDone) << Err();
    EXPECT_THAT(Options(), HasSubstr("(OSSubItem) = False\r\n"));
    EXPECT_THAT(Options(), HasSubstr("\r\nblnSort = True\r\n"));
}

TEST_F(OptionsCommand, SetsAFolderWithItsTitleAndKeepsTheTitleWithoutOne) {
    EXPECT_EQ(Run({"options", "set", "strDefSearchFolder(1)", "~/Music|/srv/x[ Mine "}), kDone);
    EXPECT_EQ(Get("strDefSearchFolder(1)"), "C:\\home\\ann\\Music|C:\\srv\\x[ Mine \n");
    EXPECT_EQ(Run({"options", "set", "strDefSearchFolder(1)", "%Temp%"}), kDone);
    EXPECT_EQ(Get("strDefSearchFolder(1)"), "%Temp%[ Mine \n");
}

TEST_F(OptionsCommand, SetsAMachineSettingInItsOwnFile) {
    EXPECT_EQ(Run({"options", "set", "Drive E:", "/srv/collection"}), kDone) << Err();
    EXPECT_EQ(Run({"options", "set", "latestfileyear", "2031"}), kDone) << Err();
    EXPECT_THAT(Settings(), HasSubstr("\r\nDrive E: = /srv/collection\r\n"));
    EXPECT_THAT(Settings(), HasSubstr("\r\nLatestFileYear = 2031\r\n"));
    EXPECT_EQ(Options(), "");
    EXPECT_EQ(Run({"options", "set", "Drive E:", ""}), kDone) << Err();
    EXPECT_THAT(Settings(), Not(HasSubstr("\r\nDrive E:")));
}

TEST_F(OptionsCommand, RefusesWhatIsNoKey) {
    EXPECT_EQ(Run({"options", "get", "blnSrot"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("There is no option \"blnSrot\". Did you mean \"blnSort\"?"));
    EXPECT_EQ(Run({"options", "set", "nonsense", "1"}), kBadRequest);
    EXPECT_EQ(Options(), "");
}

TEST_F(OptionsCommand, RefusesWhatIsNoValue) {
    for (const auto& [key, value] :
         std::vector<std::pair<std::string, std::string>>{{"blnSort", "perhaps"},
                                                          {"bytArchive", "3"},
                                                          {"bytSortBy", "27"},
                                                          {"ListPathForm", "nativ"},
                                                          {"Drive C:", "/x"},
                                                          {"Drive E:", "relative"}}) {
        EXPECT_EQ(Run({"options", "set", key, value}), kBadRequest) << key;
        EXPECT_THAT(Err(), HasSubstr("\"" + value + "\" is no value for " + key + ".")) << key;
    }
    EXPECT_EQ(Run({"options", "set", "sngDefWebSeconds", "656"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("no less than 1 and no more than 655."));
    EXPECT_EQ(Options(), "");
    EXPECT_EQ(Settings(), "");
}

TEST_F(OptionsCommand, RefusesOtherWords) {
    struct Case {
        std::vector<std::string> words;
        std::string sentence;
    };
    for (const auto& [words, sentence] : std::vector<Case>{
             {{"show"}, "There is no command \"show\". tarvix-cli options --help lists them."},
             {{"sett"},
              "There is no command \"sett\". Did you mean \"set\"? tarvix-cli options --help lists "
              "them."},
             {{"get"}, "KEY is required. tarvix-cli options get --help tells more."},
             {{"set", "blnSort"}, "VALUE is required. tarvix-cli options set --help tells more."},
             {{"list", "more"},
              "tarvix-cli options list can't use \"more\": it has all its arguments already."},
             {{"set", "a", "b", "c"},
              "tarvix-cli options set can't use \"c\": it has all its arguments already."}}) {
        std::vector<std::string> arguments{"options"};
        arguments.insert(arguments.end(), words.begin(), words.end());
        EXPECT_EQ(Run(arguments), kBadRequest);
        EXPECT_EQ(Err(), "tarvix-cli: " + sentence + "\n");
        EXPECT_EQ(Options(), "");
    }
}

TEST_F(OptionsCommand, AFileThatCannotBeWrittenIsTold) {
    machine.faults.FailAll("CreateTextFile", platform::kPermissionDenied);
    EXPECT_EQ(Run({"options", "set", "blnSort", "True"}), kSomeFailed);
    EXPECT_THAT(Err(), HasSubstr("unexpected error 70 "));
}

TEST_F(OptionsCommand, AnOptionIsThereWhenTheProgramStarts) {
    EXPECT_EQ(Run({"options", "set", "strDefSearchFolder(0)", "/home/ann/Music"}), kDone);
    EXPECT_EQ(RunScript("dump cmbDir\n"), kDone);
    EXPECT_EQ(Out(), "C:\\home\\ann\\Music\n");
}

// ---- paths ----

class PathsCommand : public CliFixture {};

TEST_F(PathsCommand, TellsWhereEverythingLiesAndMakesNothing) {
    const auto files = Disk().AllFiles();
    EXPECT_EQ(Run({"paths"}), kDone);
    EXPECT_EQ(Out(), "Program\t/home/ann/tarvix\n"
                     "Data folder\t/home/ann/tarvix\n"
                     "Options\t/home/ann/tarvix/TXOptionFile.txt\n"
                     "Options at the last start\t/home/ann/tarvix/TXOptionFile.bak\n"
                     "Machine settings\t/home/ann/tarvix/TXPlatform.txt\n"
                     "Search history\t/home/ann/tarvix/TXFSSearchHistoryFile.txt\n"
                     "Location history\t/home/ann/tarvix/TXFSFolderHistoryFile.txt\n"
                     "Destination history\t/home/ann/tarvix/TXFDFolderHistoryFile.txt\n"
                     "Action logs\t/home/ann/tarvix/TXAction *.log\n"
                     "Error log\t/home/ann/tarvix/TXProgramError.log\n");
    EXPECT_EQ(Disk().AllFiles(), files);
}

TEST_F(PathsCommand, TellsThemAsOneObject) {
    EXPECT_EQ(Run({"paths", "--json"}), kDone);
    EXPECT_THAT(Out(), StartsWith("{\"Program\":\"/home/ann/tarvix\","));
}

TEST_F(PathsCommand, FollowsTheDataFolderThatWasAskedFor) {
    machine.environment.dataFolder = "C:\\srv\\data";
    EXPECT_EQ(Run({"paths"}), kDone);
    EXPECT_THAT(Out(), HasSubstr("Data folder\t/srv/data\n"));
    EXPECT_FALSE(Disk().Exists("C:\\srv\\data"));
}

TEST_F(PathsCommand, TakesNoArgument) {
    EXPECT_EQ(Run({"paths", "x"}), kBadRequest);
}

} // namespace
} // namespace tarvix::cli
