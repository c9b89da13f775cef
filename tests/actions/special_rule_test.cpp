#include "actions/place/special_rule.h"
#include "tests/actions/bare_session.h"

namespace tarvix::actions {
namespace {

class SpecialRule : public BareSession {
  protected:
    bool IsValid(const std::string& rule) { return ValidateSpecialRule(session, rule); }
    // The folder that a valid rule gives.
    std::string Convert(const std::string& path, const std::string& rule) {
        EXPECT_TRUE(IsValid(rule)) << rule;
        return SpecialRuleConvert(session, path, rule);
    }
    void ExpectRefusal(const std::string& rule, const char* told) {
        const std::size_t before = prompts.Records().size();
        EXPECT_FALSE(IsValid(rule)) << rule;
        ASSERT_EQ(prompts.Records().size(), before + 1) << rule;
        EXPECT_EQ(prompts.Records().back().text, told) << rule;
        EXPECT_EQ(prompts.Records().back().style, session::kOkOnly);
    }
    void ExpectCounts(int ok, int noFolder, int shortSearch, int shortReplace) {
        EXPECT_EQ(State().intRuleOk, ok);
        EXPECT_EQ(State().intRuleNoFolder, noFolder);
        EXPECT_EQ(State().intRuleShortSearch, shortSearch);
        EXPECT_EQ(State().intRuleShortReplace, shortReplace);
    }
    // "\x" and more of it, so that the text has so many characters with what stands before.
    static std::string Filler(std::size_t count) { return "\\" + std::string(count - 1, 'x'); }
};

// ---- validation ----

TEST_F(SpecialRule, OneReplacementAndAdjoiningOnesAreValid) {
    EXPECT_TRUE(IsValid("E:\\Sorted\\*1*"));
    EXPECT_TRUE(IsValid("*1**250*"));
    EXPECT_EQ(State().intRulePosition, (std::vector<int>{0, 1, 250}));
    EXPECT_TRUE(State().blnRuleHasReplacement);
    EXPECT_FALSE(State().blnRuleHasSearchSet);
}

TEST_F(SpecialRule, ASearchSetIsReadWithItsNumbers) {
    EXPECT_TRUE(IsValid("E:\\Sorted\\|12,3|\\x"));
    EXPECT_EQ(State().intSetStart, 12);
    EXPECT_EQ(State().intSetLength, 3);
    EXPECT_EQ(State().strSearchSetText, "|12,3|");
    EXPECT_TRUE(IsValid("E:\\|1,1|"));
}

TEST_F(SpecialRule, AsterisksMustCloseEachOther) {
    constexpr const char* kTold = "Asterick's do NOT MATCH in Special Rule - example *2*";
    ExpectRefusal("E:\\*", kTold);
    ExpectRefusal("E:\\*1*\\*2", kTold);
}

TEST_F(SpecialRule, APositionMustBeANumber) {
    constexpr const char* kTold =
        "Replacement character position is not numeric in Special Rule - example *2*";
    ExpectRefusal("E:\\**", kTold);
    ExpectRefusal("E:\\*a*", kTold);
    ExpectRefusal("E:\\*1*\\*2x*", kTold);
}

TEST_F(SpecialRule, APositionMustLieWithinItsRange) {
    constexpr const char* kTold =
        "Replacement character position must be 1-250 in Special Rule - example *1**250*";
    ExpectRefusal("E:\\*0*", kTold);
    ExpectRefusal("E:\\*-1*", kTold);
    ExpectRefusal("E:\\*251*", kTold);
    EXPECT_TRUE(IsValid("E:\\*250*"));
}

TEST_F(SpecialRule, ASearchSetTakesUpOneWholeLevel) {
    constexpr const char* kTold = "Search Set is incorrect in Special Rule - example |2,2|";
    for (const char* rule :
         {"|2,2|", "E:\\a|2,2|", "E:\\|2,2|a", "E:\\|2,2", "E:\\|22|\\a", "E:\\|22|\\a,b",
          "E:\\2,2|", "E:\\a,b\\*1*", "E:\\|a,2|", "E:\\|2,|", "E:\\|0,2|", "E:\\|2,0|"}) {
        ExpectRefusal(rule, kTold);
    }
}

TEST_F(SpecialRule, ARuleWithoutAMarkIsNone) {
    ExpectRefusal("E:\\Sorted", "You have selected 'Special Rule', yet you have not typed a rule.");
    ExpectRefusal("", "You have selected 'Special Rule', yet you have not typed a rule.");
}

TEST_F(SpecialRule, ARefusalForgetsTheRuleBefore) {
    EXPECT_TRUE(IsValid("E:\\*1*\\|2,2|"));
    EXPECT_FALSE(IsValid("E:\\Sorted"));
    EXPECT_FALSE(State().blnRuleHasReplacement);
    EXPECT_FALSE(State().blnRuleHasSearchSet);
    EXPECT_EQ(State().intRulePosition, std::vector<int>{0});
}

// ---- replacement characters ----

TEST_F(SpecialRule, EachMarkBecomesTheCharacterAtItsPosition) {
    EXPECT_EQ(Convert("C:\\a.txt", "E:\\Sorted\\*1*\\"), "E:\\Sorted\\C");
    EXPECT_EQ(Convert("C:\\abc.txt", "E:\\*4**5*\\*6*x"), "E:\\ab\\cx");
    EXPECT_EQ(Convert("C:\\日本.txt", "E:\\*5*"), "E:\\本");
    ExpectCounts(3, 0, 0, 0);
}

TEST_F(SpecialRule, APositionBeyondThePathFailsAndIsRemembered) {
    const std::string path = "C:" + Filler(98);
    EXPECT_EQ(Convert(path, "*1**250*"), "");
    EXPECT_EQ(State().strFailedPosition, "250");
    ExpectCounts(0, 0, 0, 1);
    EXPECT_TRUE(HasEntry(" " + path +
                         "'s full path length is equal to: 100. Position *250* is greater than "
                         "that."));
}

TEST_F(SpecialRule, AReplacedSeparatorIsToldAndNotDoubled) {
    EXPECT_EQ(Convert("C:\\a.txt", "E:\\x\\*3*\\y"), "E:\\x\\y");
    EXPECT_TRUE(
        HasEntry(" With this object C:\\a.txt and this Special Rule E:\\x\\*3*\\y this path "
                 "was created, E:\\x\\\\\\y after applying the Replacement Characters. "
                 "Replacing \\\\ with a single \\."));
}

TEST_F(SpecialRule, ANetworkDestinationKeepsItsFirstSeparators) {
    EXPECT_EQ(Convert("C:\\a.txt", "\\\\pc\\d\\*4*"), "\\\\pc\\d\\a");
    EXPECT_FALSE(Log().contains("Replacing"));
}

TEST_F(SpecialRule, ADriveLetterMayComeFromThePath) {
    EXPECT_EQ(Convert("C:\\a.txt", "*1*:\\x"), "C:\\x");
    EXPECT_EQ(Convert("C:\\a.txt", "*1**2*\\x"), "C:\\x");
    ExpectCounts(2, 0, 0, 0);
}

TEST_F(SpecialRule, AColonInAnyOtherPlaceFailsTheObject) {
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

TEST_F(SpecialRule, AMisplacedColonIsOnlyLoggedInAutomaticMode) {
    session.state.options.blnAutoMode = true;
    EXPECT_EQ(Convert("C:\\a.txt", "E:\\x*2*"), "");
    EXPECT_TRUE(prompts.Records().empty());
    EXPECT_TRUE(Log().contains("It has a : in the wrong position"));
}

TEST_F(SpecialRule, BlanksNextToSeparatorsGo) {
    EXPECT_EQ(Convert("C:\\a b.txt", "E:\\x\\*5*\\y"), "E:\\x\\y");
}

// ---- search set ----

class SearchSet : public SpecialRule {
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
    EXPECT_EQ(State().strLastFailedSearch, "E:\\Sorted\\*zz*");
    EXPECT_TRUE(HasEntry(" C:\\zz.mp3 Triggered a search that found nothing. Using position |4,2|. "
                         "With C:\\zz.mp3 and E:\\Sorted\\|4,2| this search path was created, "
                         "E:\\Sorted\\*zz* after applying the Search Set."));
}

TEST_F(SearchSet, AMissingFolderCountsAndLogsAsNothingFound) {
    EXPECT_EQ(Convert("C:\\be.mp3", "E:\\Nowhere\\|4,2|"), "");
    ExpectCounts(0, 1, 0, 0);
    EXPECT_EQ(State().strLastFailedSearch, "E:\\Nowhere\\*be*");
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
    EXPECT_TRUE(State().blnErrorOccurred);
    ExpectCounts(0, 0, 0, 0);
}

TEST_F(SearchSet, ASecondConversionForADuplicateLeavesCountersAndLogAlone) {
    State().blnDuplicateRename = true;
    const std::string before = Log();
    EXPECT_EQ(Convert("C:\\be.mp3", "E:\\Sorted\\|4,2|"), "E:\\Sorted\\Beatles, The");
    EXPECT_EQ(Convert("C:\\q.mp3", "E:\\Sorted\\|4,1|"), "");
    EXPECT_EQ(Convert("C:\\ab", "E:\\Sorted\\|4,3|"), "");
    EXPECT_EQ(Convert("C:\\ab", "E:\\*99*"), "");
    EXPECT_EQ(Convert("C:\\ab", "E:\\*4*"), "E:\\a");
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
