#include "cli/arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
    EXPECT_EQ(search.criteria.patterns, "*.mp3");
    EXPECT_EQ(search.criteria.locations, Words{"/music"});
    EXPECT_EQ(search.criteria.kind, 0);
    EXPECT_TRUE(search.criteria.subfolders);
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

TEST(ArgumentsTest, SeveralPatternsAreJoinedByBars) {
    const Request request = Read({"search", "a", "b|c", "--in", "x"});
    EXPECT_EQ(std::get<SearchRequest>(request.command).criteria.patterns, "a|b|c");
}

TEST(ArgumentsTest, BracketsInWordsStayAsTyped) {
    const Request request = Read({"search", "[a,b]", "--in", "[x]", "--answer", "[1,2]"});
    const auto& search = std::get<SearchRequest>(request.command);
    EXPECT_EQ(search.criteria.patterns, "[a,b]");
    EXPECT_EQ(search.criteria.locations, Words{"[x]"});
    EXPECT_EQ(search.answers, Words{"[1,2]"});
}

TEST(ArgumentsTest, WordsBehindADoubleDashAreNoOptions) {
    const Request request = Read({"search", "--in", "x", "--", "-a*"});
    EXPECT_EQ(std::get<SearchRequest>(request.command).criteria.patterns, "-a*");
}

TEST(ArgumentsTest, KindsAreTheChoicesOfTheForm) {
    const Words kinds{"files", "empty-files", "all", "folders", "Empty-Folders"};
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        EXPECT_EQ(ReadSearch({"--kind", kinds[i]}).criteria.kind, static_cast<int>(i));
    }
    EXPECT_EQ(SearchRefusal({"--kind", "links"}),
              "--kind takes files, empty-files, all, folders or empty-folders, not \"links\".");
}

TEST(ArgumentsTest, SizesMakeOneTest) {
    EXPECT_EQ(ReadSearch({"--size-at-least", "1K"}).criteria.size->choice, "At Least");
    EXPECT_EQ(ReadSearch({"--size-at-most", "1K"}).criteria.size->choice, "At Most");
    for (const Words& words : {Words{"--size-range", "1K..2K"},
                               Words{"--size-at-least", "1K", "--size-at-most", "2K"}}) {
        const auto size = ReadSearch(words).criteria.size;
        ASSERT_TRUE(size);
        EXPECT_EQ(size->choice, "Range");
        EXPECT_EQ(size->first, 1024);
        EXPECT_EQ(size->second, 2048);
    }
}

TEST(ArgumentsTest, DatesMakeOneTest) {
    EXPECT_EQ(ReadSearch({"--since", "2026-01-01"}).criteria.date->choice, "Since");
    EXPECT_EQ(ReadSearch({"--before", "2026-01-01"}).criteria.date->choice, "Before");
    const auto both = ReadSearch({"--between", "2026-01-01..2026-01-31"}).criteria.date;
    EXPECT_EQ(both->choice, "Range");
    EXPECT_EQ(both->second, (text::DateTime{2026, 1, 31, 23, 59, 59}));
    const auto pair = ReadSearch({"--since", "2026-01-01", "--before", "2026-01-31"}).criteria.date;
    EXPECT_EQ(pair->choice, "Range");
    EXPECT_EQ(pair->second, (text::DateTime{2026, 1, 31}));
    EXPECT_EQ(ReadSearch({"--date-kind", "accessed"}).criteria.dateKind, 2);
}

TEST(ArgumentsTest, RangesThatAreNoneAreRefused) {
    EXPECT_EQ(SearchRefusal({"--size-range", "10K"}),
              "--size-range takes two ends with \"..\" between, not \"10K\".");
    EXPECT_EQ(SearchRefusal({"--size-range", "2K..1K"}),
              "--size-range 2K..1K runs backwards: the first end must not be above the second.");
    EXPECT_EQ(SearchRefusal({"--size-range", "1K..2K", "--size-at-most", "5"}),
              "--size-range stands for --size-at-least and --size-at-most: leave those out.");
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
    EXPECT_EQ(SearchRefusal({"--hidden", "maybe"}),
              "--hidden takes no, yes or any, not \"maybe\".");
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
    EXPECT_EQ(SearchRefusal({"--json", "--tsv"}), "Give only one of --json, --tsv and --print0.");
    EXPECT_EQ(SearchRefusal({"--print0", "--columns", "Name"}),
              "--print0 prints paths only: leave --columns out.");
}

TEST(ArgumentsTest, SortTakesAColumnAndADirection) {
    EXPECT_FALSE(ReadSearch({"--sort", "Name"}).output.sort->descending);
    EXPECT_TRUE(ReadSearch({"--sort", "DateSubItem:desc"}).output.sort->descending);
    EXPECT_THAT(SearchRefusal({"--sort", "Name:up"}), ::testing::HasSubstr("\":desc\""));
}

TEST(ArgumentsTest, WhatIsMissingIsNamed) {
    EXPECT_THAT(Refusal({"search", "--in", "x"}), ::testing::StartsWith("Put what to find"));
    EXPECT_EQ(Refusal({"search", "x"}), "Say where to search with --in, such as --in ~/Music.");
    EXPECT_EQ(Refusal({"search", "x", "--in"}), "--in needs a value behind it.");
    EXPECT_EQ(Refusal({"copy", "x", "--in", "y"}),
              "Say where the copies go with --to, such as --to ~/Copies.");
    EXPECT_EQ(Refusal({"run"}), "Name the script to run, or - to read it from stdin.");
    EXPECT_EQ(Refusal({"sample"}), "Name the folder to fill, such as ~/tarvix-sample.");
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
    EXPECT_EQ(std::get<ActionRequest>(request.command).destination, "z");
    EXPECT_EQ(Refusal(with({"--structure", "mirrow"})),
              "--structure takes none, mirror, folder or backup, not \"mirrow\". Did you mean "
              "\"mirror\"?");
    EXPECT_EQ(Refusal(with({"--on-duplicate", "delete"})).substr(0, 66),
              "--on-duplicate takes skip, ask, overwrite or rename, not \"delete\".");
    EXPECT_EQ(Refusal(with({"--rule", "C:\\x\\*1*"})),
              "Give only one of --to and --rule, and --rule without --mpl.");
    EXPECT_EQ(Refusal(with({"--json"})),
              "--json needs --dry-run: an action itself prints one line.");
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
    EXPECT_EQ(Refusal(with({"--up", "1", "--to", "z"})), "Give only one of --to, --up and --rule.");
    EXPECT_EQ(Refusal(with({"--up", "0"})), "--up takes a number of levels from 1 on, not \"0\".");
    EXPECT_EQ(Refusal(with({"--to", "z", "--on-duplicate", "overwrite"})),
              "A move never overwrites: --on-duplicate takes skip, ask or rename for it.");
    const auto request = Read(with({"--up", "2", "--with-folder-names"}));
    const auto& action = std::get<ActionRequest>(request.command);
    EXPECT_EQ(action.way, 2);
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
    EXPECT_EQ(Refusal(with({"--insert", "a", "--find", "b"})), neither);
    EXPECT_EQ(Refusal(with({"--find", ""})), "--find needs a text to look for.");
    const auto request = Read(with({"--find", " - ", "--replace", "_", "--portion", "name"}));
    const auto& action = std::get<ActionRequest>(request.command);
    EXPECT_FALSE(action.insertsText);
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
