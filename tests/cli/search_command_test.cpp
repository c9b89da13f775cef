#include "tests/cli/cli_fixture.h"
#include "text/characters.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace tarvix::cli {
namespace {

class SearchCommandTest : public CliFixture {
  protected:
    SearchCommandTest() {
        Disk().AddFile("C:\\home\\ann\\Music\\a.mp3", "12345");
        Disk().AddFile("C:\\home\\ann\\Music\\Jazz\\b.MP3", "1234567890");
        Disk().AddFile("C:\\home\\ann\\Music\\Jazz\\cover.jpg", "");
        Disk().AddFolder("C:\\home\\ann\\Music\\Empty");
    }
    int Search(std::vector<std::string> more, const std::string& pattern = "*.mp3") {
        more.insert(more.begin(), {"search", pattern, "--in", "Music"});
        return Run(more);
    }
};

TEST_F(SearchCommandTest, PrintsNativePathsOneALine) {
    EXPECT_EQ(Search({}), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/a.mp3\n/home/ann/Music/Jazz/b.MP3\n");
    EXPECT_EQ(Err(), "");
}

TEST_F(SearchCommandTest, SubfoldersCanBeLeftOut) {
    EXPECT_EQ(Search({"--no-subfolders"}), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/a.mp3\n");
}

TEST_F(SearchCommandTest, NothingFoundIsDone) {
    EXPECT_EQ(Search({}, "*.ogg"), kDone);
    EXPECT_EQ(Out(), "");
}

TEST_F(SearchCommandTest, Print0EndsEachPathWithNul) {
    EXPECT_EQ(Search({"--print0"}), kDone);
    EXPECT_EQ(Out(), std::string("/home/ann/Music/a.mp3\0/home/ann/Music/Jazz/b.MP3\0", 49));
}

TEST_F(SearchCommandTest, TableHasAHeadLineAndTabs) {
    EXPECT_EQ(Search({"--tsv", "--columns", "Name,SizeSubItem,NativePath"}), kDone);
    EXPECT_EQ(Out(), "Name\tSize\tNativePath\n"
                     "a.mp3\t000,000,000,005\t/home/ann/Music/a.mp3\n"
                     "b.MP3\t000,000,000,010\t/home/ann/Music/Jazz/b.MP3\n");
}

TEST_F(SearchCommandTest, ColumnsAloneHaveNoHeadLine) {
    EXPECT_EQ(Search({"--columns", "PathNameNoSrchSubItem"}), kDone);
    EXPECT_EQ(Out(), "a.mp3\nJazz\\b.MP3\n");
}

TEST_F(SearchCommandTest, JsonIsOneObjectALineWithTheColumnKeys) {
    EXPECT_EQ(Search({"--json"}), kDone);
    std::istringstream lines(Out());
    std::string line;
    std::getline(lines, line);
    const auto first = nlohmann::json::parse(line);
    EXPECT_EQ(first["Name"], "a.mp3");
    EXPECT_EQ(first["SizeSubItem"], "000,000,000,005");
    EXPECT_EQ(first["PathSubItem"], "C:\\home\\ann\\Music");
    EXPECT_EQ(first["NativePath"], "/home/ann/Music/a.mp3");
    EXPECT_EQ(first.size(), 29U);
    std::getline(lines, line);
    EXPECT_EQ(nlohmann::json::parse(line)["Name"], "b.MP3");
}

TEST_F(SearchCommandTest, JsonWithColumnsStillTellsThePath) {
    EXPECT_EQ(Search({"--json", "--columns", "Name"}), kDone);
    EXPECT_EQ(Out().substr(0, Out().find('\n')),
              R"({"Name":"a.mp3","NativePath":"/home/ann/Music/a.mp3"})");
}

TEST_F(SearchCommandTest, JsonHasFactsBesideTheCells) {
    ASSERT_EQ(Search({"--json"}), kDone);
    const auto file = nlohmann::json::parse(Out().substr(0, Out().find('\n')));
    EXPECT_EQ(file["Bytes"], 5);
    EXPECT_TRUE(file["Bytes"].is_number_integer());
    EXPECT_EQ(file["Modified"], "2025-06-01T12:00:00");
    EXPECT_EQ(file["IsFolder"], false);
    ASSERT_EQ(Search({"--json", "--kind", "empty-folders"}, "*"), kDone);
    const auto folder = nlohmann::json::parse(Out());
    EXPECT_TRUE(folder["Bytes"].is_null());
    EXPECT_EQ(folder["IsFolder"], true);
    EXPECT_EQ(folder["SizeSubItem"], "");
}

TEST_F(SearchCommandTest, ModifiedIsThatEvenWhereTheListShowsAnotherDate) {
    auto& node = Disk().AddFile("C:\\home\\ann\\Music\\old.mp3", "x");
    node.modified = machine.clock.FromLocal({2020, 5, 5, 10, 0, 0});
    ASSERT_EQ(
        Search({"--json", "--columns", "date", "--date-kind", "created", "--since", "2025-01-01"},
               "old*"),
        kDone);
    EXPECT_EQ(Out(), "{\"DateSubItem\":\"2025/06/01 12:00:00\",\"NativePath\":"
                     "\"/home/ann/Music/old.mp3\",\"Modified\":\"2020-05-05T10:00:00\"}\n");
}

TEST_F(SearchCommandTest, EachToldCellBringsItsFactInJson) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"size", R"({"SizeSubItem":"000,000,000,005","NativePath":"/home/ann/Music/a.mp3",)"
                 R"("Bytes":5})"},
        {"Name", R"({"Name":"a.mp3","NativePath":"/home/ann/Music/a.mp3"})"},
        {"IsFolder,Bytes", R"({"IsFolder":false,"Bytes":5,"NativePath":"/home/ann/Music/a.mp3"})"}};
    for (const auto& [columns, object] : cases) {
        ASSERT_EQ(Search({"--json", "--columns", columns}, "a*"), kDone);
        EXPECT_EQ(Out(), object + "\n");
    }
}

TEST_F(SearchCommandTest, FactsCanBePrintedAsCells) {
    EXPECT_EQ(Search({"--tsv", "--columns", "bytes,Modified,isfolder,name"}, "a*"), kDone);
    EXPECT_EQ(Out(), "Bytes\tModified\tIsFolder\tName\n5\t2025-06-01T12:00:00\tfalse\ta.mp3\n");
    EXPECT_EQ(Search({"--columns", "Bytes,IsFolder", "--kind", "empty-folders"}, "*"), kDone);
    EXPECT_EQ(Out(), "\ttrue\n");
}

TEST_F(SearchCommandTest, ATableWithoutColumnsHasThoseThatTheOptionsShow) {
    for (const char* column : {"DateSubItem", "TypeSubItem", "AttributesSubItem"}) {
        ASSERT_EQ(Run({"options", "set", std::string("blnListItems (") + column + ")", "False"}),
                  kDone)
            << Err();
    }
    EXPECT_EQ(Search({"--tsv"}, "a*"), kDone);
    const std::string head = Out().substr(0, Out().find('\n'));
    EXPECT_THAT(head, ::testing::StartsWith("Name\tSize\tExt\tVersion\tExe Type\tOS\tPath\t"));
    EXPECT_THAT(head, ::testing::EndsWith("\tSearch For Entry\tNativePath"));
    EXPECT_THAT(head, ::testing::Not(::testing::HasSubstr("Date")));
    EXPECT_EQ(Search({"--tsv", "--columns", "all"}, "a*"), kDone);
    EXPECT_THAT(Out(), ::testing::HasSubstr("\tSearch Folder Index\tNativePath\tBytes\tModified\t"
                                            "IsFolder\n"));
}

TEST_F(SearchCommandTest, ATableEscapesWhatWouldBreakIt) {
    Disk().AddFile("C:\\home\\ann\\Music\\odd\\a\uF05Cn\uF009t\uF00An\uF00Dr.mp3");
    EXPECT_EQ(Run({"search", "*", "--in", "Music/odd", "--tsv", "--columns", "name,NativePath"}),
              kDone);
    EXPECT_EQ(Out(), "Name\tNativePath\na\\\\n\\tt\\nn\\rr.mp3\t"
                     "/home/ann/Music/odd/a\\\\n\\tt\\nn\\rr.mp3\n");
}

TEST_F(SearchCommandTest, ATerminalGetsNoControlCharacters) {
    Disk().AddFile("C:\\home\\ann\\Music\\odd\\\uF01B]0;x\uF007\x7F\u009B\u00E9\uF0FF.mp3");
    const std::string path = "/home/ann/Music/odd/\x1B]0;x\x07\x7F\u009B\u00E9\xFF.mp3\n";
    const std::string shown = "/home/ann/Music/odd/\\x1B]0;x\\x07\\x7F\\xC2\\x9B\u00E9\\xFF.mp3\n";
    EXPECT_EQ(Run({"search", "*", "--in", "Music/odd"}), kDone);
    EXPECT_EQ(Out(), path);
    isOutTerminal = true;
    EXPECT_EQ(Run({"search", "*", "--in", "Music/odd"}), kDone);
    EXPECT_EQ(Out(), shown);
    EXPECT_EQ(Run({"search", "*", "--in", "Music/odd", "--columns", "NativePath"}), kDone);
    EXPECT_EQ(Out(), shown);
    EXPECT_EQ(Run({"search", "*", "--in", "Music/odd", "--print0"}), kDone);
    EXPECT_EQ(Out(), path.substr(0, path.size() - 1) + '\0');
}

TEST_F(SearchCommandTest, OddNamesKeepTheirCharacters) {
    Disk().AddFile("C:\\home\\ann\\Music\\odd\\\uF03Aq\uF03F\uF009t\uF00An\uF022\x7F.mp3");
    ASSERT_EQ(Run({"search", "*", "--in", "Music/odd", "--print0"}), kDone);
    EXPECT_EQ(Out(), std::string("/home/ann/Music/odd/:q?\tt\nn\"\x7F.mp3") + '\0');
    ASSERT_EQ(Run({"search", "*", "--in", "Music/odd", "--columns", "Name"}), kDone);
    EXPECT_EQ(Out(), ":q?\\tt\\nn\"\x7F.mp3\n");
    ASSERT_EQ(Run({"search", "*", "--in", "Music/odd", "--json"}), kDone);
    EXPECT_EQ(nlohmann::json::parse(Out())["Name"], ":q?\tt\nn\"\x7F.mp3");
}

TEST_F(SearchCommandTest, JsonEscapesWhatItMust) {
    for (const char* name : {"say \uF022hi\uF022", "back\uF05Cslash", "caf\u00E9 \uF022", "\x7F"}) {
        Disk().AddFile("C:\\home\\ann\\Music\\json\\" + std::string(name) + ".mp3");
    }
    ASSERT_EQ(Run({"search", "*", "--in", "Music/json", "--json", "--columns", "Name"}), kDone);
    std::vector<std::string> names;
    std::istringstream lines(Out());
    for (std::string line; std::getline(lines, line);)
        names.push_back(nlohmann::json::parse(line)["Name"]);
    EXPECT_THAT(names, ::testing::UnorderedElementsAre("say \"hi\".mp3", "back\\slash.mp3",
                                                       "caf\u00E9 \".mp3", "\x7F.mp3"));
}

TEST_F(SearchCommandTest, KindsFindWhatTheySay) {
    EXPECT_EQ(Search({"--kind", "folders"}, "*"), kDone);
    EXPECT_THAT(Out(), ::testing::HasSubstr("/home/ann/Music/Jazz\n"));
    EXPECT_EQ(Search({"--kind", "empty-folders"}, "*"), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/Empty\n");
    EXPECT_EQ(Search({"--kind", "empty-files"}, "*"), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/Jazz/cover.jpg\n");
}

TEST_F(SearchCommandTest, SizeBoundsAreInclusive) {
    EXPECT_EQ(Search({"--size-at-least", "10"}), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/Jazz/b.MP3\n");
    EXPECT_EQ(Search({"--size-at-most", "5"}), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/a.mp3\n");
    EXPECT_EQ(Search({"--size-range", "6..9"}), kDone);
    EXPECT_EQ(Out(), "");
}

TEST_F(SearchCommandTest, DatesTestTheChosenKind) {
    auto& node = Disk().AddFile("C:\\home\\ann\\Music\\old.mp3", "x");
    node.modified = machine.clock.FromLocal({2020, 5, 5, 10, 0, 0});
    EXPECT_EQ(Search({"--before", "2020-12-31"}), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/old.mp3\n");
    EXPECT_EQ(Search({"--between", "2020-05-05..2020-05-05"}), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/old.mp3\n");
    EXPECT_EQ(Search({"--since", "2025-01-01"}), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/a.mp3\n/home/ann/Music/Jazz/b.MP3\n");
    EXPECT_EQ(Search({"--before", "2020-12-31", "--date-kind", "created"}), kDone);
    EXPECT_EQ(Out(), "");
}

TEST_F(SearchCommandTest, AttributeBoxesWiden) {
    Disk().AddFile("C:\\home\\ann\\Music\\locked.mp3").attributes |= platform::kReadOnly;
    EXPECT_EQ(Search({}, "locked*"), kDone);
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Search({"--read-only", "yes"}), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/locked.mp3\n");
    EXPECT_EQ(Search({"--any-attribute"}, "locked*"), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/locked.mp3\n");
}

TEST_F(SearchCommandTest, OneEachAndNot) {
    Disk().AddFile("C:\\home\\ann\\Music\\z.mp3");
    EXPECT_EQ(Search({"--one-each"}), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/a.mp3\n/home/ann/Music/Jazz/b.MP3\n");
    EXPECT_EQ(Search({"--not"}), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/Jazz/cover.jpg\n");
}

TEST_F(SearchCommandTest, AMissingLocationIsRefusedBeforeAnythingStarts) {
    EXPECT_EQ(Run({"search", "*", "--in", "nope"}), kBadRequest);
    EXPECT_EQ(Err(), "tarvix-cli: There is no folder \"nope\" to search: give --in folders that "
                     "exist.\n");
    EXPECT_TRUE(Disk().Calls().made.empty());
}

TEST_F(SearchCommandTest, OverlappingPatternsAreANoteAndNothingIsAsked) {
    EXPECT_EQ(Search({}, "cov|b"), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/Jazz/b.MP3\n/home/ann/Music/Jazz/cover.jpg\n");
    EXPECT_EQ(Err(), "tarvix-cli: Note: the patterns overlap, so an object may match several of "
                     "them.\n");
}

TEST_F(SearchCommandTest, AnActionWithoutAnswerEndsWithThreeAndTellsHowToAnswer) {
    EXPECT_EQ(Run({"copy", "cov|b", "--in", "Music", "--to", "/home/ann/Out", "--yes"}),
              kUnanswered);
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Err(), "tarvix-cli: Search strings may not be mutually exclusive Would you like to "
                     "cancel? - This needs an answer: give --answer Yes or --answer No.\n");
}

TEST_F(SearchCommandTest, AnAnswerGoesToTheQuestion) {
    EXPECT_EQ(Search({"--answer", "no"}, "cov|b"), kDone);
    EXPECT_EQ(Out(), "/home/ann/Music/Jazz/b.MP3\n/home/ann/Music/Jazz/cover.jpg\n");
}

TEST_F(SearchCommandTest, AnAnswerThatIsNoButtonIsRefused) {
    EXPECT_EQ(Search({"--answer", "Maybe"}, "cov|b"), kBadRequest);
    EXPECT_THAT(Err(), ::testing::HasSubstr("has no button \"Maybe\". Its buttons are: Yes, No."));
}

TEST_F(SearchCommandTest, NoticesGoToStderrAndTheSearchGoesOn) {
    EXPECT_EQ(Run({"search", "*.mp3", "--in", "Music|Music/Jazz"}), kDone);
    EXPECT_THAT(Err(), ::testing::HasSubstr("NOT mutually exclusive"));
    EXPECT_THAT(Out(), ::testing::HasSubstr("/home/ann/Music/Jazz/b.MP3\n"));
}

TEST_F(SearchCommandTest, AnObjectThatCannotBeOpenedIsToldAndGivesOne) {
    Disk().AddUnopenable("C:\\home\\ann\\Music", "bad?.mp3", "bad\xFF.mp3");
    EXPECT_EQ(Search({}), kSomeFailed);
    EXPECT_THAT(Err(), ::testing::HasSubstr("bad?.mp3"));
    EXPECT_EQ(Out(), "/home/ann/Music/a.mp3\n/home/ann/Music/Jazz/b.MP3\n");
}

TEST_F(SearchCommandTest, SortClicksTheColumnHead) {
    const std::string a = "/home/ann/Music/a.mp3\n";
    const std::string b = "/home/ann/Music/Jazz/b.MP3\n";
    const std::vector<std::pair<std::string, std::string>> cases{{"Name", a + b},
                                                                 {"Name:desc", b + a},
                                                                 {"SizeSubItem", a + b},
                                                                 {"sizesubitem:desc", b + a},
                                                                 {"PathNameSubItem:asc", a + b}};
    for (const auto& [sort, paths] : cases) {
        EXPECT_EQ(Search({"--sort", sort}), kDone);
        EXPECT_EQ(Out(), paths) << sort;
    }
}

TEST_F(SearchCommandTest, ATerminalSeesHowFarItCameAndThenACleanLine) {
    for (int i = 0; i < 100; ++i)
        Disk().AddFile("C:\\home\\ann\\Music\\many\\" + std::to_string(i) + ".mp3");
    isTerminal = true;
    EXPECT_EQ(Search({}), kDone);
    EXPECT_THAT(Err(), ::testing::HasSubstr("\r\x1B[KFound "));
    EXPECT_THAT(Err(), ::testing::EndsWith("\r\x1B[K"));
}

TEST_F(SearchCommandTest, WhatCouldNotBeReadIsALineOnStderrAndExitOne) {
    machine.faults.FailPath("C:\\home\\ann\\Music\\Jazz", 70, "Open");
    EXPECT_EQ(Search({}), kSomeFailed);
    EXPECT_EQ(Out(), "/home/ann/Music/a.mp3\n");
    EXPECT_EQ(Err(),
              "tarvix-cli: C:\\home\\ann\\Music\\Jazz could not be read: Permission denied.\n");
    EXPECT_EQ(RunScript("set cmbSearchFor = *\nset cmbDir = /home/ann/Music/Jazz\n"
                        "click cmdSearch\n"),
              kSomeFailed);
    EXPECT_EQ(Err(),
              "tarvix-cli: C:\\home\\ann\\Music\\Jazz could not be read: Permission denied.\n");
}

TEST_F(SearchCommandTest, EqualFailuresAreOneLineWithTheirCount) {
    for (const char* name : {"p", "q", "r"}) {
        const std::string folder = std::string("C:\\home\\ann\\Music\\") + name;
        Disk().AddFolder(folder);
        machine.faults.FailPath(folder, 70, "Open");
    }
    EXPECT_EQ(Search({}), kSomeFailed);
    EXPECT_EQ(Err(), "tarvix-cli: 3 objects could not be read: Permission denied. The first is "
                     "C:\\home\\ann\\Music\\p; --verbose lists all.\n");
    EXPECT_EQ(Search({"--verbose"}), kSomeFailed);
    EXPECT_EQ(Err(), "tarvix-cli: C:\\home\\ann\\Music\\p could not be read: Permission denied.\n"
                     "tarvix-cli: C:\\home\\ann\\Music\\q could not be read: Permission denied.\n"
                     "tarvix-cli: C:\\home\\ann\\Music\\r could not be read: Permission denied.\n");
}

TEST_F(SearchCommandTest, ProgressIsNoLongerThanALineAndIsTakenOffBeforeResults) {
    for (int i = 0; i < 100; ++i)
        Disk().AddFile("C:\\home\\ann\\Music\\many\\" + std::to_string(i) + ".mp3");
    isTerminal = true;
    terminalWidth = 12;
    EXPECT_EQ(Search({}), kDone);
    EXPECT_THAT(Err(), ::testing::HasSubstr("Found "));
    const std::string written = Err();
    for (const std::string_view piece : text::Split(written, '\r'))
        EXPECT_LT(piece.substr(piece.starts_with("\x1B[K") ? 3 : 0).size(), 12U) << piece;
}

TEST_F(SearchCommandTest, AnInterruptionStopsInOrderAndKeepsWhatWasFound) {
    for (int i = 0; i < 100; ++i)
        Disk().AddFile("C:\\home\\ann\\Music\\many\\" + std::to_string(i) + ".mp3");
    interrupted = 2;
    EXPECT_EQ(Search({}), 130);
    EXPECT_EQ(Err(), "tarvix-cli: The search was cut short by an interruption.\n");
    EXPECT_LT(std::ranges::count(Out(), '\n'), 102);
}

TEST_F(SearchCommandTest, TheFirstRunNoticeIsAnsweredByItself) {
    ASSERT_TRUE(Disk().DeleteFile(HistoryFile(), true));
    EXPECT_EQ(Search({}), kDone);
    EXPECT_EQ(Err(), "");
    EXPECT_EQ(Out(), "/home/ann/Music/a.mp3\n/home/ann/Music/Jazz/b.MP3\n");
}

} // namespace
} // namespace tarvix::cli
