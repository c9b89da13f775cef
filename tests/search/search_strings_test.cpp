#include "search/search_strings.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using search::ParseSearchFor;
using ::testing::ElementsAre;

std::vector<std::string> Strings(std::string_view text) {
    return ParseSearchFor(text).strings;
}

bool MayOverlap(std::string_view text) {
    return ParseSearchFor(text).blnNotExclusive;
}

TEST(ParseSearchFor, AnEmptyTextSearchesEverything) {
    EXPECT_THAT(Strings(""), ElementsAre("*"));
}

TEST(ParseSearchFor, BarsAloneSearchEverything) {
    EXPECT_THAT(Strings("||"), ElementsAre("*"));
}

TEST(ParseSearchFor, APlainWordIsWrappedInStars) {
    EXPECT_THAT(Strings("mp3"), ElementsAre("*mp3*"));
}

TEST(ParseSearchFor, AWordWithADotAStarOrAQuestionMarkStaysAsTyped) {
    EXPECT_THAT(Strings(".mp3|a*b|a?c"), ElementsAre(".mp3", "a*b", "a?c"));
}

TEST(ParseSearchFor, BracketsAndNumberSignsDoNotKeepAWordFromBeingWrapped) {
    EXPECT_THAT(Strings("[live]|#1"), ElementsAre("*[live]*", "*#1*"));
}

TEST(ParseSearchFor, ATrailingBarAndADoubleBarLoseTheEmptyPiece) {
    EXPECT_THAT(Strings("*.a|*.b|"), ElementsAre("*.a", "*.b"));
    EXPECT_THAT(Strings("*.a||*.b"), ElementsAre("*.a", "*.b"));
    EXPECT_THAT(Strings("|*.a"), ElementsAre("*.a"));
}

TEST(ParseSearchFor, AtMostNinetyNineStringsAreTaken) {
    std::string text;
    for (int i = 0; i < 120; ++i) {
        text += "*." + std::to_string(i) + "|";
    }
    const auto strings = Strings(text);
    ASSERT_EQ(strings.size(), 99U);
    EXPECT_EQ(strings.back(), "*.98");
}

TEST(ParseSearchFor, TwoPlainWordsMayOverlap) {
    EXPECT_TRUE(MayOverlap("red|blue"));
}

TEST(ParseSearchFor, TwoExtensionsWithALeadingStarDoNot) {
    EXPECT_FALSE(MayOverlap("*.mp3|*.flac"));
}

TEST(ParseSearchFor, FormsThatMayOverlap) {
    EXPECT_TRUE(MayOverlap("red|*.mp3")) << "both ends and ends-with";
    EXPECT_TRUE(MayOverlap("red|a.*")) << "both ends and begins-with";
    EXPECT_TRUE(MayOverlap("a.*|*.mp3")) << "begins-with and ends-with";
    EXPECT_TRUE(MayOverlap("*a.b*|blue")) << "typed stars at both ends count as wrapped";
}

TEST(ParseSearchFor, FormsThatMayNot) {
    EXPECT_FALSE(MayOverlap("red"));
    EXPECT_FALSE(MayOverlap("a.*|b.*"));
    EXPECT_FALSE(MayOverlap("a.txt|b.txt"));
    EXPECT_FALSE(MayOverlap("red|a.txt"));
    EXPECT_FALSE(MayOverlap("a*b|*.mp3")) << "a star inside is no form of its own";
}

TEST(ParseSearchFor, OnlyTheLastPieceCanNameARecycleFolder) {
    EXPECT_TRUE(ParseSearchFor("*.txt|$ReCyCle.bin").blnRecycleAllowed);
    EXPECT_FALSE(ParseSearchFor("recycler|*.txt").blnRecycleAllowed);
}

class SearchStrings : public ProgramFixture {
  protected:
    SearchStrings() {
        Disk().AddFile("C:\\t\\red apple.txt");
        Disk().AddFile("C:\\t\\blue.txt");
    }
    static constexpr const char* kQuestion =
        "Search strings may not be mutually exclusive\r\nWould you like to cancel?";
    static constexpr const char* kTurnOff =
        "Turning off NOT selection. It is not allowed with multiple search strings.";
};

TEST_F(SearchStrings, TwoPlainWordsAskWhetherToCancelWithNoAsTheDefault) {
    Start();
    Search("red|blue", "C:\\t");
    ASSERT_EQ(prompts.Records().size(), 1U);
    EXPECT_EQ(prompts.Records()[0].text, kQuestion);
    EXPECT_EQ(prompts.Records()[0].style, 292);
    EXPECT_THAT(Names(), ElementsAre("red apple.txt", "blue.txt"));
}

TEST_F(SearchStrings, YesCancelsTheSearch) {
    Start();
    prompts.Queue("Yes");
    Search("red|blue", "C:\\t");
    EXPECT_EQ(program.Rows().Count(), 0U);
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Search stopped prematurely");
    EXPECT_EQ(LogText().find("Start portion"), std::string::npos);
}

TEST_F(SearchStrings, TwoExtensionsDoNotAsk) {
    Start();
    Search("*.txt|*.mp3", "C:\\t");
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(SearchStrings, ABatchIsNotAsked) {
    Start();
    for (const char* action :
         {"Automated Playlist Gen", "Automated Move", "Automated Playlist Gen Full"}) {
        State().strAction = action;
        Search("red|blue", "C:\\t");
        EXPECT_TRUE(prompts.Records().empty()) << action;
        EXPECT_THAT(Names(), ElementsAre("red apple.txt", "blue.txt")) << action;
    }
    EXPECT_TRUE(MayOverlap("red|blue"));
}

TEST_F(SearchStrings, SeveralStringsSwitchNotOffAndSaySo) {
    Start();
    Set(Form().chkNot, "1");
    Search("*.txt|*.mp3", "C:\\t");
    EXPECT_TRUE(WasTold(kTurnOff));
    EXPECT_EQ(Form().chkNot.Value.Get(), 0);
    EXPECT_FALSE(Form().chkNot.Visible);
    EXPECT_EQ(program.Rows().Count(), 2U);
}

TEST_F(SearchStrings, SeveralStringsWithoutNotHideItSilently) {
    Start();
    Search("*.txt|*.mp3", "C:\\t");
    EXPECT_FALSE(WasTold(kTurnOff));
    EXPECT_FALSE(Form().chkNot.Visible);
}

TEST_F(SearchStrings, OneStringShowsNotAgain) {
    Start();
    Search("*.txt|*.mp3", "C:\\t");
    Search("*.txt", "C:\\t");
    EXPECT_TRUE(Form().chkNot.Visible);
}

TEST_F(SearchStrings, ASearchWithLikeCharactersDoesNotShowNotAgain) {
    Start();
    Search("*.txt|*.mp3", "C:\\t");
    for (const char* text : {"*[a].txt", "#.txt"}) {
        Search(text, "C:\\t");
        EXPECT_FALSE(Form().chkNot.Visible) << text;
    }
}

TEST_F(SearchStrings, AStandingEntryLosesItsLeadingBlanks) {
    Disk().AddFile("C:\\t\\l.lnk");
    Start();
    Search("  *.lnk", "C:\\t");
    EXPECT_EQ(Form().cmbSearchFor.Text.Get(), "*.lnk");
    EXPECT_THAT(Names(), ElementsAre("l.lnk"));
}

} // namespace
TEST_F(SearchStrings, ABarBehindARecycleFolderLeavesItTheLastPiece) {
    EXPECT_TRUE(search::ParseSearchFor("*recyc*|").blnRecycleAllowed);
    EXPECT_TRUE(search::ParseSearchFor("x|*recyc*||").blnRecycleAllowed);
    EXPECT_FALSE(search::ParseSearchFor("*recyc*|x").blnRecycleAllowed);
}

TEST_F(SearchStrings, SubfoldersThatMayNotBeSelectedMayNotAfterASearchEither) {
    Start();
    State().options.blnAllowUserSelectSubfolders = false;
    Form().chkIncludeSubFolders.Enabled = false;
    Search("*", "C:\\t");
    EXPECT_FALSE(Form().chkIncludeSubFolders.Enabled);
}

} // namespace tarvix::testing
