#include "actions/place/action_run.h"
#include "actions/place/find_destination.h"
#include "actions/place/object.h"
#include "actions/place/special_rule.h"
#include "tests/actions/bare_session.h"

namespace tarvix::actions {
namespace {

// A rule, and what it gives for objects, with disk, user and log.
class SpecialRuleTest : public BareSession {
  protected:
    // The folder that a valid rule gives.
    std::string Convert(const std::string& path, const std::string& typed, bool isAgain = false) {
        const auto rule = ValidateSpecialRule(typed);
        EXPECT_TRUE(rule) << typed;
        ActionRequest request;
        request.way = Way::kSpecialRule;
        request.typed = typed;
        if (rule) request.rule = *rule;
        ActionRun run(session, request);
        run.rule = tally;
        const auto found =
            FindDestination(session, run, {.name = "n", .path = path, .actual = path}, 0, isAgain);
        tally = run.rule;
        hasFailed = found.hasFailed;
        EXPECT_TRUE(found.path.empty() || found.path.ends_with("\\n")) << found.path;
        return found.path.empty() ? "" : found.path.substr(0, found.path.size() - 2);
    }
    void ExpectCounts(int ok, int noFolder, int shortSearch, int shortReplace) {
        EXPECT_EQ(tally.intRuleOk, ok);
        EXPECT_EQ(tally.intRuleNoFolder, noFolder);
        EXPECT_EQ(tally.intRuleShortSearch, shortSearch);
        EXPECT_EQ(tally.intRuleShortReplace, shortReplace);
    }
    // "\x" and more of it, so that the text has so many characters with what stands before.
    static std::string Filler(std::size_t count) { return "\\" + std::string(count - 1, 'x'); }

    RuleTally tally;
    bool hasFailed = false;
};

void ExpectRefusal(const std::string& rule, const char* told) {
    const auto read = ValidateSpecialRule(rule);
    ASSERT_FALSE(read) << rule;
    EXPECT_EQ(read.error(), told) << rule;
}

// ---- validation ----

TEST(ValidateSpecialRule, OneReplacementAndAdjoiningOnesAreValid) {
    EXPECT_TRUE(ValidateSpecialRule("E:\\Sorted\\*1*"));
    const auto rule = ValidateSpecialRule("*1**250*");
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->positions, (std::vector<int>{1, 250}));
    EXPECT_FALSE(rule->set);
    EXPECT_EQ(rule->SetText(), "");
}

TEST(ValidateSpecialRule, ASearchSetIsReadWithItsNumbers) {
    const auto rule = ValidateSpecialRule("E:\\Sorted\\|12,3|\\x");
    ASSERT_TRUE(rule);
    ASSERT_TRUE(rule->set);
    EXPECT_EQ(rule->set->start, 12);
    EXPECT_EQ(rule->set->length, 3);
    EXPECT_EQ(rule->SetText(), "|12,3|");
    EXPECT_TRUE(ValidateSpecialRule("E:\\|1,1|"));
}

TEST(ValidateSpecialRule, AsterisksMustCloseEachOther) {
    constexpr const char* kTold = "Asterick's do NOT MATCH in Special Rule - example *2*";
    ExpectRefusal("E:\\*", kTold);
    ExpectRefusal("E:\\*1*\\*2", kTold);
}

TEST(ValidateSpecialRule, APositionMustBeANumber) {
    constexpr const char* kTold =
        "Replacement character position is not numeric in Special Rule - example *2*";
    ExpectRefusal("E:\\**", kTold);
    ExpectRefusal("E:\\*a*", kTold);
    ExpectRefusal("E:\\*1*\\*2x*", kTold);
}

TEST(ValidateSpecialRule, APositionMustLieWithinItsRange) {
    constexpr const char* kTold =
        "Replacement character position must be 1-250 in Special Rule - example *1**250*";
    ExpectRefusal("E:\\*0*", kTold);
    ExpectRefusal("E:\\*-1*", kTold);
    ExpectRefusal("E:\\*251*", kTold);
    EXPECT_TRUE(ValidateSpecialRule("E:\\*250*"));
}

TEST(ValidateSpecialRule, ASearchSetTakesUpOneWholeLevel) {
    constexpr const char* kTold = "Search Set is incorrect in Special Rule - example |2,2|";
    for (const char* rule :
         {"|2,2|", "E:\\a|2,2|", "E:\\|2,2|a", "E:\\|2,2", "E:\\|22|\\a", "E:\\|22|\\a,b",
          "E:\\2,2|", "E:\\|a,2|", "E:\\|2,|", "E:\\|0,2|", "E:\\|2,0|"}) {
        ExpectRefusal(rule, kTold);
    }
}

TEST(ValidateSpecialRule, ACommaOutsideOfBarsIsALetter) {
    const auto rule = ValidateSpecialRule("E:\\a,b\\*1*");
    ASSERT_TRUE(rule);
    EXPECT_FALSE(rule->set);
    EXPECT_TRUE(ValidateSpecialRule("E:\\a,b\\|2,2|\\c,d"));
    ExpectRefusal("E:\\a,b", "You have selected 'Special Rule', yet you have not typed a rule.");
}

TEST(ValidateSpecialRule, AFolderIsNeverNamedByDotsAlone) {
    constexpr const char* kTold =
        "A folder of a Special Rule can't be named . or .., type the folders themselves.";
    for (const char* rule : {"E:\\..\\*1*", "E:\\*1*\\.", "E:\\a\\.\\|2,2|", "E:\\ .. \\*1*"}) {
        ExpectRefusal(rule, kTold);
    }
    EXPECT_TRUE(ValidateSpecialRule("E:\\...\\*1*"));
}

TEST(ValidateSpecialRule, ARuleWithoutAMarkIsNone) {
    ExpectRefusal("E:\\Sorted", "You have selected 'Special Rule', yet you have not typed a rule.");
    ExpectRefusal("", "You have selected 'Special Rule', yet you have not typed a rule.");
}

// ---- conversion, as text ----

struct ConvertCase {
    const char* path;
    const char* rule;
    RuleEnd end;
    const char* folder;
};

TEST(SpecialRuleConvert, GivesAFolderOrWhyThereIsNone) {
    for (const ConvertCase& c : {
             ConvertCase{"C:\\a.txt", "E:\\Sorted\\*1*\\", RuleEnd::kFolder, "E:\\Sorted\\C"},
             ConvertCase{"C:\\日本.txt", "E:\\*5*", RuleEnd::kFolder, "E:\\本"},
             ConvertCase{"C:\\a.txt", "E:\\x\\*3*\\y", RuleEnd::kFolder, "E:\\x\\y"},
             ConvertCase{"C:\\a.txt", "*1*:\\x", RuleEnd::kFolder, "C:\\x"},
             ConvertCase{"C:\\a.txt", "E:\\*8*", RuleEnd::kFolder, "E:\\t"},
             ConvertCase{"C:\\a.txt", "E:\\*9*", RuleEnd::kShortReplace, ""},
             ConvertCase{"C:\\a.txt", "E:\\x*2*", RuleEnd::kColon, ""},
             ConvertCase{"C:\\.a", "E:\\x\\*4*", RuleEnd::kDots, "E:\\x\\."},
             ConvertCase{"C:\\..a", "E:\\x\\*4**5*\\y", RuleEnd::kDots, "E:\\x\\..\\y"},
             ConvertCase{"C:\\x.\uF02E", "E:\\x\\*5**6*\\y", RuleEnd::kDots, "E:\\x\\.\uF02E\\y"},
             ConvertCase{"C:\\..a", "E:\\x\\*4**6*", RuleEnd::kFolder, "E:\\x\\.a"},
             ConvertCase{"C:\\ab", "E:\\|4,2|", RuleEnd::kSearch, ""},
             ConvertCase{"C:\\ab", "E:\\|4,3|", RuleEnd::kShortSearch, ""},
             ConvertCase{"C:\\a\\b", "E:\\|4,3|", RuleEnd::kSlashInSet, ""},
         }) {
        const auto rule = ValidateSpecialRule(c.rule);
        ASSERT_TRUE(rule) << c.rule;
        const RuleResult result = SpecialRuleConvert(*rule, c.path);
        EXPECT_EQ(result.end, c.end) << c.path << ' ' << c.rule;
        if (c.end == RuleEnd::kFolder) {
            EXPECT_EQ(result.folder, c.folder) << c.path << ' ' << c.rule;
        }
    }
}

TEST(SpecialRuleConvert, CutsTheRuleAtItsSearchSet) {
    const auto rule = ValidateSpecialRule("E:\\*4*\\|5,1|\\x");
    ASSERT_TRUE(rule);
    const RuleResult result = SpecialRuleConvert(*rule, "C:\\ab");
    EXPECT_EQ(result.front, "E:\\a\\");
    EXPECT_EQ(result.set, "b");
    EXPECT_EQ(result.rest, "\\x");
    EXPECT_EQ(result.WithFound("Abba"), "E:\\a\\Abba\\x");
}

// ---- replacement characters ----

TEST_F(SpecialRuleTest, EachMarkBecomesTheCharacterAtItsPosition) {
    EXPECT_EQ(Convert("C:\\a.txt", "E:\\Sorted\\*1*\\"), "E:\\Sorted\\C");
    EXPECT_EQ(Convert("C:\\abc.txt", "E:\\*4**5*\\*6*x"), "E:\\ab\\cx");
    EXPECT_EQ(Convert("C:\\日本.txt", "E:\\*5*"), "E:\\本");
    ExpectCounts(3, 0, 0, 0);
}

TEST_F(SpecialRuleTest, APositionBeyondThePathFailsAndIsRemembered) {
    const std::string path = "C:" + Filler(98);
    EXPECT_EQ(Convert(path, "*1**250*"), "");
    EXPECT_EQ(session.state.strFailedPosition, "250");
    ExpectCounts(0, 0, 0, 1);
    EXPECT_TRUE(HasEntry(" " + path +
                         "'s full path length is equal to: 100. Position *250* is greater than "
                         "that."));
}

TEST_F(SpecialRuleTest, AReplacedSeparatorIsToldAndNotDoubled) {
    EXPECT_EQ(Convert("C:\\a.txt", "E:\\x\\*3*\\y"), "E:\\x\\y");
    EXPECT_TRUE(
        HasEntry(" With this object C:\\a.txt and this Special Rule E:\\x\\*3*\\y this path "
                 "was created, E:\\x\\\\\\y after applying the Replacement Characters. "
                 "Replacing \\\\ with a single \\."));
}

TEST_F(SpecialRuleTest, ANetworkDestinationKeepsItsFirstSeparators) {
    EXPECT_EQ(Convert("C:\\a.txt", "\\\\pc\\d\\*4*"), "\\\\pc\\d\\a");
    EXPECT_FALSE(Log().contains("Replacing"));
}

TEST_F(SpecialRuleTest, ADriveLetterMayComeFromThePath) {
    EXPECT_EQ(Convert("C:\\a.txt", "*1*:\\x"), "C:\\x");
    EXPECT_EQ(Convert("C:\\a.txt", "*1**2*\\x"), "C:\\x");
    ExpectCounts(2, 0, 0, 0);
}

TEST_F(SpecialRuleTest, AColonInAnyOtherPlaceFailsTheObject) {
    EXPECT_EQ(Convert("C:\\a.txt", "E:\\x*2*"), "");
    const std::string told = " With this object C:\\a.txt and this Special Rule E:\\x*2* this path "
                             "was created, E:\\x: It has a : in the wrong position, can only be "
                             "position 2. Skipping this object.";
    EXPECT_TRUE(HasEntry(told));
    ASSERT_TRUE(WasTold(told));
    EXPECT_EQ(prompts.Records().back().style, session::kCritical);
    ExpectCounts(0, 0, 0, 1);
    EXPECT_EQ(Convert("C:\\a.txt", "E\\*2*x"), "") << "not in position 2";
}

TEST_F(SpecialRuleTest, AMisplacedColonIsOnlyLoggedInAutomaticMode) {
    session.state.options.blnAutoMode = true;
    EXPECT_EQ(Convert("C:\\a.txt", "E:\\x*2*"), "");
    EXPECT_TRUE(prompts.Records().empty());
    EXPECT_TRUE(Log().contains("It has a : in the wrong position"));
}

TEST_F(SpecialRuleTest, BlanksNextToSeparatorsGo) {
    EXPECT_EQ(Convert("C:\\a b.txt", "E:\\x\\*5*\\y"), "E:\\x\\y");
}

// ---- search set ----

class SearchSet : public SpecialRuleTest {
  protected:
    SearchSet() {
        Disk().AddDrive("E:");
        Disk().AddFolder("E:\\Sorted\\Beatles, The");
        Disk().AddFolder("E:\\Sorted\\Bee Gees");
        Disk().AddFile("E:\\Sorted\\abba.txt", "x");
        Disk().AddFolder("E:\\Sorted\\More [live] #1");
    }
};

TEST_F(SearchSet, TheFirstFolderThatContainsTheSetIsTaken) {
    EXPECT_EQ(Convert("C:\\be1.mp3", "E:\\Sorted\\|4,2|"), "E:\\Sorted\\Beatles, The");
    EXPECT_EQ(Convert("C:\\gees.mp3", "E:\\Sorted\\|4,4|\\x"), "E:\\Sorted\\Bee Gees\\x");
    ExpectCounts(2, 0, 0, 0);
}

TEST_F(SearchSet, AFileOfThatNameIsNoFolder) {
    EXPECT_EQ(Convert("C:\\abba.mp3", "E:\\Sorted\\|4,4|"), "");
    ExpectCounts(0, 1, 0, 0);
}

TEST_F(SearchSet, TheSetMatchesItselfWhateverCharactersItHolds) {
    EXPECT_EQ(Convert("C:\\[live].mp3", "E:\\Sorted\\|4,6|"), "E:\\Sorted\\More [live] #1");
    EXPECT_EQ(Convert("C:\\#1.mp3", "E:\\Sorted\\|4,2|"), "E:\\Sorted\\More [live] #1");
    EXPECT_EQ(Convert("C:\\[lazy].mp3", "E:\\Sorted\\|4,6|"), "");
    EXPECT_EQ(Convert("C:\\??.mp3", "E:\\Sorted\\|4,2|"), "");
    EXPECT_EQ(Convert("C:\\**.mp3", "E:\\Sorted\\|4,2|"), "");
}

TEST_F(SearchSet, ReplacementsAndASetWorkTogetherAndCountOnce) {
    EXPECT_EQ(Convert("C:\\bs.mp3", "E:\\*5*orted\\|4,1|\\*4*"), "E:\\sorted\\Beatles, The\\b");
    ExpectCounts(1, 0, 0, 0);
}

TEST_F(SearchSet, ASetBeyondThePathFailsTheObject) {
    EXPECT_EQ(Convert("C:\\ab", "E:\\Sorted\\|4,3|"), "");
    ExpectCounts(0, 0, 1, 0);
    EXPECT_TRUE(HasEntry(
        " C:\\ab's full path length is equal to: 5. Position |4,3| is greater than that."));
    EXPECT_EQ(Convert("C:\\bee", "E:\\Sorted\\|4,3|"), "E:\\Sorted\\Bee Gees") << "just within";
}

TEST_F(SearchSet, ASetWithASeparatorFailsTheObject) {
    EXPECT_EQ(Convert("C:\\a\\b.mp3", "E:\\Sorted\\|4,3|"), "");
    ExpectCounts(0, 1, 0, 0);
    EXPECT_TRUE(HasEntry(" With this object C:\\a\\b.mp3 and this Special Rule E:\\Sorted\\|4,3| "
                         "this search Set was created, |4,3| It has slashes '\\' which can not be "
                         "searched for."));
}

TEST_F(SearchSet, ASetThatNeverMatchesCountsEachObjectAndNamesTheLastSearch) {
    EXPECT_EQ(Convert("C:\\qq.mp3", "E:\\Sorted\\|4,2|"), "");
    EXPECT_EQ(Convert("C:\\zz.mp3", "E:\\Sorted\\|4,2|"), "");
    ExpectCounts(0, 2, 0, 0);
    EXPECT_EQ(session.state.strLastFailedSearch, "E:\\Sorted\\*zz*");
    EXPECT_TRUE(HasEntry(" C:\\zz.mp3 Triggered a search that found nothing. Using position |4,2|. "
                         "With C:\\zz.mp3 and E:\\Sorted\\|4,2| this search path was created, "
                         "E:\\Sorted\\*zz* after applying the Search Set."));
}

TEST_F(SearchSet, AMissingFolderCountsAndLogsAsNothingFound) {
    EXPECT_EQ(Convert("C:\\be.mp3", "E:\\Nowhere\\|4,2|"), "");
    ExpectCounts(0, 1, 0, 0);
    EXPECT_EQ(session.state.strLastFailedSearch, "E:\\Nowhere\\*be*");
    EXPECT_TRUE(prompts.Records().empty());
    EXPECT_FALSE(Disk().Exists("E:\\Nowhere"));
}

TEST_F(SearchSet, ABadNameInThePathCountsAndLogsAsNothingFound) {
    machine.faults.FailAll("Open", 52);
    EXPECT_EQ(Convert("C:\\be.mp3", "E:\\Sorted\\|4,2|"), "");
    ExpectCounts(0, 1, 0, 0);
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(SearchSet, AnyOtherErrorIsHandledAndFailsTheObject) {
    machine.faults.FailAll("Open", 70);
    EXPECT_EQ(Convert("C:\\be.mp3", "E:\\Sorted\\|4,2|"), "");
    ASSERT_EQ(prompts.Records().size(), 1U);
    EXPECT_EQ(prompts.Records()[0].title, "Permission denied");
    EXPECT_TRUE(hasFailed);
    ExpectCounts(0, 0, 0, 0);
}

TEST_F(SearchSet, ASecondConversionForADuplicateLeavesCountersAndLogAlone) {
    const std::string before = Log();
    EXPECT_EQ(Convert("C:\\be.mp3", "E:\\Sorted\\|4,2|", true), "E:\\Sorted\\Beatles, The");
    EXPECT_EQ(Convert("C:\\q.mp3", "E:\\Sorted\\|4,1|", true), "");
    EXPECT_EQ(Convert("C:\\ab", "E:\\Sorted\\|4,3|", true), "");
    EXPECT_EQ(Convert("C:\\ab", "E:\\*99*", true), "");
    EXPECT_EQ(Convert("C:\\ab", "E:\\*4*", true), "E:\\a");
    ExpectCounts(0, 0, 0, 0);
    EXPECT_EQ(Log(), before);
}

// ---- searches that are too long ----

class LongSearchSet : public SearchSet {
  protected:
    LongSearchSet() {
        front = "E:" + Filler(120) + Filler(104);
        Disk().AddFolder(front + "\\bees");
    }
    std::string Rule() const { return front + "\\|4,2|"; }
    std::string front; // 226 characters; the search has 5 more
};

TEST_F(LongSearchSet, GoesOnWithAShortPathWhenTheUserContinues) {
    prompts.Queue("cmdContinue");
    EXPECT_EQ(Convert("C:\\be.mp3", Rule()), front + "\\bees");
    ExpectCounts(1, 0, 0, 0);
    EXPECT_TRUE(session.state.blnPathLimitHit);
}

TEST_F(LongSearchSet, SkippingCountsAsNoFolder) {
    prompts.Queue("cmdSkip");
    EXPECT_EQ(Convert("C:\\be.mp3", Rule()), "");
    ExpectCounts(0, 1, 0, 0);
    EXPECT_EQ(session.state.bytPathChoice, session::kPathSkip);
}

TEST_F(LongSearchSet, AutomaticModeSkipsAllWithoutAsking) {
    session.state.options.blnAutoMode = true;
    EXPECT_EQ(Convert("C:\\be.mp3", Rule()), "");
    EXPECT_EQ(session.state.bytPathChoice, session::kPathSkipAll);
    EXPECT_TRUE(prompts.Records().empty());
    ExpectCounts(0, 1, 0, 0);
}

TEST_F(LongSearchSet, TwoHundredAndThirtyCharactersAreNotTooLong) {
    const std::string folder = front.substr(0, 225);
    Disk().AddFolder(folder + "\\bees");
    EXPECT_EQ(Convert("C:\\be.mp3", folder + "\\|4,2|"), folder + "\\bees");
    EXPECT_TRUE(prompts.Records().empty());
    EXPECT_FALSE(session.state.blnPathLimitHit);
}

TEST_F(LongSearchSet, WithoutAShortPathTheObjectIsSkipped) {
    prompts.Queue("cmdContinue");
    const std::string beyond = front + Filler(240) + Filler(40);
    EXPECT_EQ(Convert("C:\\be.mp3", beyond + "\\|4,2|"), "");
    const std::string told =
        beyond + "\\*be*'s path exceeds 259 characters in length AND the folder portion "
                 "does not exist. \r\n\r\nIt's actual length is : 511 characters."
                 "\r\n\r\nWas unable to calculate a short path to substitute. Skipping "
                 "this object.";
    EXPECT_TRUE(WasTold(told));
    EXPECT_TRUE(HasEntry(" " + told));
    EXPECT_EQ(session.state.bytPathChoice, session::kPathSkip);
    ExpectCounts(0, 1, 0, 0);
}

} // namespace
} // namespace tarvix::actions
