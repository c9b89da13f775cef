#include "cli/arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace tarvix::cli {
namespace {

using Words = std::vector<std::string>;

Request Read(const Words& words) {
    auto request = ReadArguments(words);
    EXPECT_TRUE(request) << (request ? "" : request.error().sentence);
    return request ? std::move(*request) : Request{};
}

SearchRequest ReadSearch(Words words) {
    words.insert(words.begin(), {"search", "*.mp3", "--in", "/music"});
    Request request = Read(words);
    const auto* search = std::get_if<SearchRequest>(&request.command);
    return search ? *search : SearchRequest{};
}

// The sentence of a request that must be refused.
std::string Refusal(const Words& words) {
    const auto request = ReadArguments(words);
    if (request) return "it was taken";
    EXPECT_EQ(request.error().exitCode, kBadRequest);
    EXPECT_EQ(request.error().out, "");
    return request.error().sentence;
}

std::string SearchRefusal(Words words) {
    words.insert(words.begin(), {"search", "*.mp3", "--in", "/music"});
    return Refusal(words);
}

TEST(ArgumentsTest, ABareSearchLooksForFilesInSubfolders) {
    const SearchRequest search = ReadSearch({});
    EXPECT_EQ(search.criteria.patterns, Words{"*.mp3"});
    EXPECT_EQ(search.criteria.locations, Words{"/music"});
    EXPECT_EQ(search.criteria.kind, 0);
    EXPECT_FALSE(search.criteria.noSubfolders);
    EXPECT_EQ(search.criteria.dateKind, 0);
    EXPECT_EQ(search.output.format, RowFormat::kPaths);
    for (const auto& attribute : search.criteria.attributes) {
        EXPECT_FALSE(attribute);
    }
}

TEST(ArgumentsTest, InTakesSeveralLocationsAndMayBeRepeated) {
    const Request request = Read({"search", "a", "--in", "x", "y|z", "--in", "w"});
    EXPECT_EQ(std::get<SearchRequest>(request.command).criteria.locations,
              (Words{"x", "y|z", "w"}));
}

TEST(ArgumentsTest, SeveralPatternsMayStandBeforeIn) {
    const Request request = Read({"search", "a", "b|c", "--in", "x"});
    EXPECT_EQ(std::get<SearchRequest>(request.command).criteria.patterns, (Words{"a", "b|c"}));
}

TEST(ArgumentsTest, WhatStandsBehindInIsNeverAPattern) {
    EXPECT_EQ(Refusal({"delete", "--in", "x", "y", "--yes"}),
              "Put what to find before --in, such as \"*.mp3\", or \"*\" for all.");
}

TEST(ArgumentsTest, BracketsInWordsStayAsTyped) {
    const Request request = Read({"search", "[a,b]", "--in", "[x]", "--answer", "[1,2]"});
    const auto& search = std::get<SearchRequest>(request.command);
    EXPECT_EQ(search.criteria.patterns, Words{"[a,b]"});
    EXPECT_EQ(search.criteria.locations, Words{"[x]"});
    EXPECT_EQ(search.answers, Words{"[1,2]"});
}

TEST(ArgumentsTest, WordsBehindADoubleDashAreNoOptions) {
    const Request request = Read({"search", "--in", "x", "--", "-a*"});
    EXPECT_EQ(std::get<SearchRequest>(request.command).criteria.patterns, Words{"-a*"});
}

TEST(ArgumentsTest, KindsAreTheChoicesOfTheForm) {
    const Words kinds{"files", "empty-files", "all", "folders", "Empty-Folders"};
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        EXPECT_EQ(ReadSearch({"--kind", kinds[i]}).criteria.kind, static_cast<int>(i));
    }
    EXPECT_EQ(SearchRefusal({"--kind", "links"}),
              "--kind: links not in {files,empty-files,all,folders,empty-folders}.");
}

TEST(ArgumentsTest, SizesMakeOneTest) {
    const auto low = ReadSearch({"--size-at-least", "1K"}).criteria.size;
    EXPECT_EQ(low.low, 1024);
    EXPECT_EQ(low.high, std::nullopt);
    const auto high = ReadSearch({"--size-at-most", "1K"}).criteria.size;
    EXPECT_EQ(high.low, std::nullopt);
    EXPECT_EQ(high.high, 1024);
    for (const Words& words : {Words{"--size-range", "1K..2K"},
                               Words{"--size-at-least", "1K", "--size-at-most", "2K"}}) {
        const auto size = ReadSearch(words).criteria.size;
        EXPECT_EQ(size.low, 1024);
        EXPECT_EQ(size.high, 2048);
    }
}

TEST(ArgumentsTest, DatesMakeOneTest) {
    const text::DateTime newYear{2026, 1, 1};
    EXPECT_EQ(ReadSearch({"--since", "2026-01-01"}).criteria.date.low, newYear);
    EXPECT_EQ(ReadSearch({"--since", "2026-01-01"}).criteria.date.high, std::nullopt);
    EXPECT_EQ(ReadSearch({"--before", "2026-01-01"}).criteria.date.high, newYear);
    const auto both = ReadSearch({"--between", "2026-01-01..2026-01-31"}).criteria.date;
    EXPECT_EQ(both.low, newYear);
    EXPECT_EQ(both.high, (text::DateTime{2026, 1, 31, 23, 59, 59}));
    const auto pair = ReadSearch({"--since", "2026-01-01", "--before", "2026-01-31"}).criteria.date;
    EXPECT_EQ(pair.low, newYear);
    EXPECT_EQ(pair.high, (text::DateTime{2026, 1, 31}));
    EXPECT_EQ(ReadSearch({"--date-kind", "accessed"}).criteria.dateKind, 2);
}

TEST(ArgumentsTest, RangesThatAreNoneAreRefused) {
    EXPECT_EQ(SearchRefusal({"--size-range", "10K"}),
              "--size-range takes two ends with \"..\" between, not \"10K\".");
    const std::string backwards = "The sizes run backwards: the first end must not be above the "
                                  "second.";
    EXPECT_EQ(SearchRefusal({"--size-range", "2K..1K"}), backwards);
    EXPECT_EQ(SearchRefusal({"--size-at-least", "2K", "--size-at-most", "2047"}), backwards);
    EXPECT_EQ(SearchRefusal({"--between", "2026-01-02..2026-01-01"}),
              "The dates run backwards: the first end must not be above the second.");
    EXPECT_EQ(SearchRefusal({"--size-range", "1K..2K", "--size-at-most", "5"}),
              "--size-at-most excludes --size-range: leave one of them out.");
    EXPECT_THAT(SearchRefusal({"--between", "x..2026-01-01"}),
                ::testing::StartsWith("--between takes a date such as"));
}

TEST(ArgumentsTest, AttributesAreThreeStates) {
    const auto some = ReadSearch({"--read-only", "yes", "--hidden", "any", "--64", "no"}).criteria;
    EXPECT_EQ(some.attributes[0], 1);
    EXPECT_EQ(some.attributes[1], 2);
    EXPECT_EQ(some.attributes[8], 0);
    EXPECT_FALSE(some.attributes[2]);
    const auto any = ReadSearch({"--any-attribute", "--alias", "no"}).criteria;
    EXPECT_EQ(any.attributes[9], 2);
    EXPECT_EQ(any.attributes[4], 0);
    EXPECT_EQ(SearchRefusal({"--hidden", "maybe"}), "--hidden: maybe not in {no,yes,any}.");
}

TEST(ArgumentsTest, ColumnsAreCheckedAgainstTheTable) {
    const auto output = ReadSearch({"--columns", "name, NativePath,sizesubitem"}).output;
    EXPECT_EQ(output.columns, (std::vector<int>{0, kNativePathColumn, 1}));
    EXPECT_EQ(output.format, RowFormat::kCells);
    EXPECT_EQ(SearchRefusal({"--columns", "Name,SizeSubitm"}),
              "There is no column \"SizeSubitm\". Did you mean \"SizeSubItem\"?");
}

TEST(ArgumentsTest, OutputFormatsExcludeEachOther) {
    EXPECT_EQ(ReadSearch({"--json"}).output.format, RowFormat::kJson);
    EXPECT_EQ(ReadSearch({"--tsv", "--columns", "Name"}).output.format, RowFormat::kTable);
    EXPECT_EQ(SearchRefusal({"--json", "--tsv"}), "--json excludes --tsv: leave one of them out.");
    EXPECT_EQ(SearchRefusal({"--print0", "--tsv"}),
              "--tsv excludes --print0: leave one of them out.");
    EXPECT_EQ(SearchRefusal({"--print0", "--columns", "Name"}),
              "--columns excludes --print0: leave one of them out.");
}

TEST(ArgumentsTest, SortTakesAColumnAndADirection) {
    EXPECT_FALSE(ReadSearch({"--sort", "Name"}).output.sort->descending);
    EXPECT_TRUE(ReadSearch({"--sort", "DateSubItem:desc"}).output.sort->descending);
    EXPECT_THAT(SearchRefusal({"--sort", "Name:up"}), ::testing::HasSubstr("\":desc\""));
}

TEST(ArgumentsTest, WhatIsMissingIsNamed) {
    EXPECT_THAT(Refusal({"search", "--in", "x"}), ::testing::StartsWith("Put what to find"));
    EXPECT_EQ(Refusal({"search", "x"}), "Say where to search with --in, such as --in ~/Music.");
    EXPECT_EQ(Refusal({"search", "x", "--in"}), "--in: 1 required LOCATION missing.");
    EXPECT_EQ(Refusal({"copy", "x", "--in", "y"}),
              "Say where the copies go with --to, such as --to ~/Copies.");
    EXPECT_EQ(Refusal({"run"}), "SCRIPT is required. tarvix-cli run --help tells more.");
    EXPECT_EQ(Refusal({"sample"}), "DIR is required. tarvix-cli sample --help tells more.");
    EXPECT_THAT(Refusal({}), ::testing::StartsWith("Name a command"));
}

TEST(ArgumentsTest, UnknownWordsGetTheNearestName) {
    EXPECT_THAT(Refusal({"serch", "x"}),
                ::testing::StartsWith("There is no command \"serch\". Did you mean \"search\"?"));
    EXPECT_EQ(SearchRefusal({"--colums", "Name"}),
              "There is no option --colums. Did you mean \"--columns\"? "
              "tarvix-cli search --help lists them.");
    EXPECT_THAT(SearchRefusal({"--size-at-lest=5"}),
                ::testing::HasSubstr("Did you mean \"--size-at-least\"?"));
    EXPECT_THAT(Refusal({"run", "a", "b"}), ::testing::HasSubstr("\"b\""));
}

TEST(ArgumentsTest, NotWorksWithOnePatternOnly) {
    EXPECT_TRUE(ReadSearch({"--not"}).criteria.isNot);
    EXPECT_THAT(Refusal({"search", "a|b", "--in", "x", "--not"}),
                ::testing::StartsWith("--not works with one pattern only"));
}

TEST(ArgumentsTest, AnActionNeedsAPlaceAndKnownChoices) {
    const Words copy{"copy", "x", "--in", "y", "--to", "z"};
    auto with = [&](Words more) {
        more.insert(more.begin(), copy.begin(), copy.end());
        return more;
    };
    const Request request = Read(with({"--yes", "--structure", "none", "--on-duplicate", "skip"}));
    EXPECT_TRUE(std::get<ActionRequest>(request.command).confirmed);
    EXPECT_EQ(std::get<ActionRequest>(request.command).way, kToFolder);
    EXPECT_EQ(std::get<ActionRequest>(request.command).destination, "z");
    EXPECT_EQ(Refusal(with({"--structure", "mirrow"})),
              "--structure: mirrow not in {none,mirror,folder,backup}. Did you mean \"mirror\"?");
    EXPECT_EQ(Refusal(with({"--on-duplicate", "delete"})),
              "--on-duplicate: delete not in {skip,ask,overwrite,rename}.");
    EXPECT_EQ(Refusal(with({"--rule", "C:\\x\\*1*"})),
              "--to excludes --rule: leave one of them out.");
    EXPECT_EQ(Refusal({"copy", "x", "--in", "y", "--mpl", "a", "--rule", "C:\\x\\*1*"}),
              "--rule excludes --mpl: leave one of them out.");
    EXPECT_EQ(Refusal({"copy", "x", "--in", "y", "--to", ""}),
              "Say where the copies go with --to, such as --to ~/Copies.");
    EXPECT_EQ(Refusal(with({"--json"})), "--json requires --dry-run.");
}

TEST(ArgumentsTest, ACopyTakesEachStructureAndDuplicateChoice) {
    const Request request =
        Read({"copy", "x", "--in", "y", "--to", "z", "--structure", "BACKUP", "--on-duplicate",
              "rename", "--rename-text", "+", "--rename-at", "beginning", "-n", "--json"});
    const auto& action = std::get<ActionRequest>(request.command);
    EXPECT_EQ(action.structure, 3);
    EXPECT_EQ(action.duplicateChoice, 3);
    EXPECT_EQ(action.renameText, "+");
    EXPECT_TRUE(action.renameAtBeginning);
    EXPECT_TRUE(action.dryRun && action.json);
}

TEST(ArgumentsTest, AMoveGoesOneWayAndNeverOverwrites) {
    const Words move{"move", "x", "--in", "y"};
    auto with = [&](Words more) {
        more.insert(more.begin(), move.begin(), move.end());
        return more;
    };
    EXPECT_EQ(Refusal(move), "Say where they go with --to, --up or --rule, such as --to ~/Sorted.");
    EXPECT_EQ(Refusal(with({"--up", "1", "--to", "z"})),
              "--to excludes --up: leave one of them out.");
    EXPECT_EQ(Refusal(with({"--to", "z", "--on-duplicate", "overwrite"})),
              "A move never overwrites: --on-duplicate takes skip, ask or rename for it.");
    const auto request = Read(with({"--up", "2", "--with-folder-names"}));
    const auto& action = std::get<ActionRequest>(request.command);
    EXPECT_EQ(action.way, kUpTheTree);
    EXPECT_EQ(action.levels, 2);
    EXPECT_TRUE(action.withFolderNames);
}

TEST(ArgumentsTest, ARenameInsertsOrReplaces) {
    const Words rename{"rename", "x", "--in", "y"};
    auto with = [&](Words more) {
        more.insert(more.begin(), rename.begin(), rename.end());
        return more;
    };
    const std::string neither = "Say what to do with the names: --insert TEXT, or --find TEXT with "
                                "--replace TEXT.";
    EXPECT_EQ(Refusal(rename), neither);
    EXPECT_EQ(Refusal(with({"--insert", "a", "--find", "b"})),
              "--insert excludes --find: leave one of them out.");
    EXPECT_EQ(Refusal(with({"--find", ""})), neither);
    EXPECT_EQ(std::get<ActionRequest>(Read(with({"--insert", ""})).command).insertedText, "");
    const auto request = Read(with({"--find", " - ", "--replace", "_", "--portion", "name"}));
    const auto& action = std::get<ActionRequest>(request.command);
    EXPECT_EQ(action.insertedText, std::nullopt);
    EXPECT_EQ(action.soughtText, " - ");
    EXPECT_EQ(action.newText, "_");
    EXPECT_EQ(action.portion, 2);
}

TEST(ArgumentsTest, TheMachineIsAskedForBeforeOrBehindTheCommand) {
    for (const Words& words :
         {Words{"--now", "2026-11-15 19:54:52", "--drive", "e=/srv/x", "run", "-"},
          Words{"run", "-", "--drive", "E:=/srv/x", "--now", "2026-11-15 19:54:52"}}) {
        const Request request = Read(words);
        EXPECT_EQ(request.machine.now, (text::DateTime{2026, 11, 15, 19, 54, 52}));
        ASSERT_EQ(request.machine.drives.size(), 1U);
        EXPECT_EQ(request.machine.drives[0].first, 'E');
        EXPECT_EQ(request.machine.drives[0].second, "/srv/x");
    }
    EXPECT_THAT(Refusal({"--drive", "music", "run", "-"}), ::testing::StartsWith("--drive takes"));
    EXPECT_THAT(Refusal({"--drive", "C=/x", "run", "-"}), ::testing::StartsWith("--drive takes"));
    EXPECT_THAT(Refusal({"--now", "noon", "run", "-"}),
                ::testing::StartsWith("--now takes a date"));
}

TEST(ArgumentsTest, TheListsOfACopyMayComeWithAFolder) {
    const Request request =
        Read({"copy", "x", "--in", "y", "--mpl", "a", "--mpl", "b", "--to", "z"});
    const auto& action = std::get<ActionRequest>(request.command);
    EXPECT_EQ(action.way, kToLists);
    EXPECT_EQ(action.lists, (Words{"a", "b"}));
    EXPECT_EQ(action.destination, "z");
}

TEST(ArgumentsTest, OfSeveralValuesTheLastCounts) {
    EXPECT_EQ(ReadSearch({"--kind", "all", "--kind", "folders"}).criteria.kind, 3);
    EXPECT_EQ(ReadSearch({"--size-at-least", "1", "--size-at-least", "2"}).criteria.size.low, 2);
    EXPECT_EQ(ReadSearch({"--columns", "Name", "--columns", "SizeSubItem"}).output.columns,
              std::vector<int>{1});
}

TEST(ArgumentsTest, OptionsHasCommandsOfItsOwn) {
    for (const Words& words : {Words{"options"}, Words{"options", "list"}}) {
        EXPECT_EQ(std::get<OptionsRequest>(Read(words).command).verb, OptionsVerb::kList);
    }
    const auto set =
        std::get<OptionsRequest>(Read({"options", "--json", "set", "list", ""}).command);
    EXPECT_EQ(set.verb, OptionsVerb::kSet);
    EXPECT_EQ(set.key, "list");
    EXPECT_EQ(set.value, "");
    EXPECT_TRUE(set.json);
}

TEST(ArgumentsTest, HelpIsGivenWhateverElseIsWrong) {
    const auto end = ReadArguments({"search", "--size-at-least", "big", "--help"});
    ASSERT_FALSE(end);
    EXPECT_EQ(end.error().exitCode, kDone);
    EXPECT_THAT(end.error().out, ::testing::HasSubstr("\nUsage: tarvix-cli search "));
}

// What people type, mistype and paste, in any order: it is taken, or told in one sentence.
TEST(ArgumentsTest, AnyWordsAreTakenOrRefused) {
    const Words words{"search",
                      "copy",
                      "move",
                      "rename",
                      "delete",
                      "run",
                      "sample",
                      "paths",
                      "options",
                      "list",
                      "get",
                      "set",
                      "--in",
                      "--to",
                      "--rule",
                      "--up",
                      "--mpl",
                      "--kind",
                      "files",
                      "--size-at-least",
                      "10K",
                      "--size-range",
                      "1..2",
                      "--since",
                      "--between",
                      "2026-01-01..2026-01-02",
                      "--hidden",
                      "any",
                      "--columns",
                      "Name",
                      "--sort",
                      "Name:desc",
                      "--json",
                      "--tsv",
                      "--print0",
                      "--yes",
                      "-y",
                      "-n",
                      "-yn",
                      "-x",
                      "--not",
                      "--json=no",
                      "--not=maybe",
                      "--kind=",
                      "--=",
                      "-",
                      "--",
                      "---",
                      "",
                      " ",
                      "[",
                      "]",
                      "[]",
                      "[a,b]",
                      "{}",
                      "\x01",
                      "\x80\xFF",
                      "%s",
                      "a=b",
                      "--now",
                      "--drive",
                      "E=/x",
                      "-1",
                      "99999999999999999999",
                      "--find",
                      "--insert",
                      "--any-attribute=3"};
    std::mt19937 random(20261115);
    std::uniform_int_distribution<std::size_t> pick(0, words.size() - 1);
    std::uniform_int_distribution<int> length(0, 9);
    int taken = 0;
    for (int round = 0; round < 200; ++round) {
        Words arguments;
        if (round % 2 == 0) arguments = {"search", "x", "--in", "y"};
        for (int count = length(random); count > 0; --count)
            arguments.push_back(words[pick(random)]);
        const auto request = ReadArguments(arguments);
        if (request) {
            ++taken;
            continue;
        }
        const bool isTold = request.error().exitCode == kBadRequest &&
                            !request.error().sentence.empty() && request.error().out.empty();
        EXPECT_TRUE(isTold) << ::testing::PrintToString(arguments);
    }
    EXPECT_GT(taken, 0);
}

TEST(ArgumentsTest, HelpAndVersionGoToStdout) {
    for (const Words& words : {Words{"--help"}, Words{"search", "--help"}, Words{"copy", "-h"},
                               Words{"run", "--help"}, Words{"sample", "--help"}}) {
        const auto end = ReadArguments(words);
        ASSERT_FALSE(end);
        EXPECT_EQ(end.error().exitCode, kDone);
        EXPECT_EQ(end.error().sentence, "");
        EXPECT_THAT(end.error().out, ::testing::HasSubstr("Example"));
    }
    EXPECT_THAT(ReadArguments({"--version"}).error().out, ::testing::StartsWith("Tarvix "));
}

} // namespace
} // namespace tarvix::cli
