#include "platform/names.h"
#include "search/name_checks.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class StrangeNames : public ProgramFixture {
  protected:
    void FindFiles(std::string_view pattern = "*") {
        Start();
        WithSubfolders();
        LookForAllAttributes();
        Search(pattern, "C:\\t");
    }
    static std::size_t Count(std::string_view text, std::string_view part) {
        std::size_t count = 0;
        for (auto at = text.find(part); at != text.npos; at = text.find(part, at + 1)) {
            ++count;
        }
        return count;
    }
};

// U+F000 plus the code, as UTF-8.
std::string Carried(char c) {
    const auto low = static_cast<unsigned char>(c);
    return {'\xEF', static_cast<char>(0x80 | (low >> 6)), static_cast<char>(0x80 | (low & 0x3F))};
}

TEST_F(StrangeNames, EachReservedCharacterIsCarriedFoundAndCopied) {
    for (const char reserved : std::string(R"(\:*?"<>|)")) {
        ProgramFixture::Disk().AddNative("C:\\t", std::string("x") + reserved + "y.txt", "1");
    }
    FindFiles("x*.txt");
    ASSERT_EQ(program.Rows().Count(), 8U);
    const auto names = Names();
    for (const char reserved : std::string(R"(\:*?"<>|)")) {
        EXPECT_THAT(names, ::testing::Contains("x" + Carried(reserved) + "y.txt"));
    }
    EXPECT_TRUE(Told().empty());
    CopyAll("C:\\copies");
    for (const std::string& name : names) {
        EXPECT_EQ(Disk().Content("C:\\copies\\" + name), "1") << platform::ForDisplay(name);
    }
}

TEST_F(StrangeNames, ACarriedStarIsNoWildcardAndNoSentinel) {
    Disk().AddNative("C:\\t", "ILLEGAL*NAME", "1");
    FindFiles();
    EXPECT_THAT(Names(), ElementsAre("ILLEGAL" + Carried('*') + "NAME"));
}

TEST_F(StrangeNames, OneThatIsNotUtf8IsSkippedWarnedOnceAndLoggedEachTime) {
    Disk().AddUnopenable("C:\\t", "caf?.txt", "caf\xE9.txt", "1");
    Disk().AddUnopenable("C:\\t\\sub", "na?ve.txt", "na\xEFve.txt", "1");
    Disk().AddFile("C:\\t\\good.txt");
    FindFiles();
    EXPECT_THAT(Names(), ElementsAre("good.txt"));
    EXPECT_THAT(Told(),
                ElementsAre("A file or folder was found in C:\\t.\r\n\r\n"
                            "It contains 8 characters in its name. \r\n\r\n"
                            "The name is: caf?.txt\r\n\r\n"
                            "where '?' - represents non-Western Europe character encoding.\r\n\r\n"
                            "This file/folder will be not displayed or included in totals.\r\n\r\n"
                            "For this session, you will get no more warnings about names like "
                            "this.\r\n\r\n"
                            "The warnings are placed in the Action Log, if you have turned it "
                            "on.\r\n\r\n"
                            "Turning on 'Automatic Mode' will stop this message completely."));
    EXPECT_EQ(prompts.Records()[0].form, "frmForChar");
    EXPECT_EQ(prompts.Records()[0].title, "Routine IsNameValid - " + Told()[0]);
    EXPECT_EQ(Form().lblNumOfFilesAttrib.Caption.Get(), "1") << "not in totals";
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, " A file or folder was found in C:\\t.\r\n\r\n"
                              "It contains 8 characters in its name. \r\n\r\n"
                              "The name is: caf?.txt\r\n\r\n"
                              "where '?' - represents non-Western Europe character encoding."));
    EXPECT_EQ(Count(log, "The name is: na?ve.txt"), 1U);
}

TEST_F(StrangeNames, AFolderThatIsNotUtf8IsNotDescendedInto) {
    Disk().AddNative("C:\\t", "good.txt");
    auto& folder = Disk().AddFolder("C:\\t\\sub");
    auto moved = folder.Detach();
    Disk().Node("C:\\t")->Attach(std::move(moved), "b?d",
                                 "b\xE1"
                                 "d");
    FindFiles();
    EXPECT_THAT(Names(), ElementsAre("good.txt"));
    EXPECT_TRUE(WasTold("The name is: b?d"));
}

TEST_F(StrangeNames, AutomaticModeLogsButDoesNotWarn) {
    Disk().AddUnopenable("C:\\t", "caf?.txt", "caf\xE9.txt", "1");
    Disk().AddFile("C:\\t\\trailing.txt ");
    Start();
    State().options.blnAutoMode = true;
    WithSubfolders();
    Search("*", "C:\\t");
    EXPECT_THAT(Told(), IsEmpty());
    const std::string log = LogText();
    EXPECT_EQ(Count(log, "The name is: caf?.txt"), 1U);
    EXPECT_EQ(Count(log, "Skipped: C:\\t\\trailing.txt "), 1U);
}

TEST_F(StrangeNames, ASecondSearchWarnsNoMore) {
    Disk().AddUnopenable("C:\\t", "caf?.txt", "caf\xE9.txt", "1");
    Disk().AddFile("C:\\t\\x ");
    FindFiles();
    const std::size_t told = Told().size();
    EXPECT_EQ(told, 2U);
    Click(Form().cmdSearch);
    EXPECT_EQ(Told().size(), told);
}

TEST_F(StrangeNames, ATrailingBlankIsNeverListedNeverDescendedIntoAndToldOnce) {
    Disk().AddFile("C:\\t\\file.txt ");
    Disk().AddFile("C:\\t\\folder \\inside.txt");
    Disk().AddFile("C:\\t\\plain.txt");
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 2);
    Search("*", "C:\\t");
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\plain.txt"));
    EXPECT_THAT(
        Told(),
        ElementsAre(
            "Skipped: C:\\t\\file.txt \r\n\r\n"
            " as it has trailing spaces in the object name. This is a very serious error. If you "
            "attempt to delete it in Explorer nothing will happen or worse Explorer will delete "
            "the object with the same name minus the trailing space(s). If this object is a "
            "directory, contents can only be displayed in Explorer if and only if no object exists "
            "with the same name minus the trailing space(s). \r\n\r\n"
            "Only solution I know of involves wiping everything off the partition or drive. Backup "
            "everything before you attempt this.\r\n\r\n"
            "For this session, you will get no more warnings about names like this on this "
            "form.\r\n\r\n"
            "The warnings are placed in the Action Log, if you have turned it on.\r\n\r\n"
            "Turning on 'Automatic Mode' will stop this message completely."));
    EXPECT_EQ(prompts.Records()[0].form, "frmTrailingSp");
    const std::string log = LogText();
    EXPECT_EQ(Count(log, "Skipped: C:\\t\\file.txt \r\n"), 1U);
    EXPECT_EQ(Count(log, "Skipped: C:\\t\\folder \r\n"), 1U);
}

TEST_F(StrangeNames, ATrailingBlankIsNotListedByARootSearchEither) {
    Disk().AddFile("C:\\t\\file.txt ");
    Start();
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(StrangeNames, ALeadingBlankAndALeadingDotAreNamesLikeOthers) {
    Disk().AddFile("C:\\t\\ a.txt");
    Disk().AddFile("C:\\t\\.b.txt");
    FindFiles();
    EXPECT_THAT(Names(), ElementsAre(" a.txt", ".b.txt"));
}

// ---- the exact test of a name ----

bool Matches(std::string_view name, std::string_view pattern, bool isNot = false) {
    return search::NameMatch(pattern, isNot).CheckNameMatch(name);
}

TEST(NameMatch, StarIsAnyRunAndQuestionMarkOneCharacter) {
    EXPECT_TRUE(Matches("a.mp3", "*.mp3"));
    EXPECT_TRUE(Matches(".mp3", "*.mp3"));
    EXPECT_TRUE(Matches("abc", "a?c"));
    EXPECT_TRUE(Matches("aéc", "a?c"));
    EXPECT_FALSE(Matches("ac", "a?c"));
    EXPECT_FALSE(Matches("abbc", "a?c"));
}

TEST(NameMatch, ThePatternMustFitTheWholeName) {
    EXPECT_FALSE(Matches("a.mp3.bak", "*.mp3"));
    EXPECT_FALSE(Matches("xa.mp3", "a.mp3"));
    EXPECT_FALSE(Matches("noextension", "*.*"));
}

TEST(NameMatch, CaseDoesNotCount) {
    EXPECT_TRUE(Matches("ÄRGER.TXT", "är*.txt"));
}

TEST(NameMatch, BracketsAndNumberSignsAreTakenLiterally) {
    EXPECT_TRUE(Matches("[a].txt", "[a].txt"));
    EXPECT_FALSE(Matches("a.txt", "[a].txt"));
    EXPECT_TRUE(Matches("#1.txt", "#1*"));
    EXPECT_FALSE(Matches("11.txt", "#1*"));
    EXPECT_TRUE(Matches("a]b[c", "a]b[c"));
}

TEST(NameMatch, TypedCharactersMatchThoseThatNamesCarry) {
    EXPECT_TRUE(Matches("a\uF03Ab.txt", "a:b*"));
    EXPECT_FALSE(Matches("a\uF03Ab.txt", "a:b*", true));
    EXPECT_TRUE(Matches("a\uF05Cb\uF022\uF03C\uF03E", "A\\B\"<>"));
    EXPECT_TRUE(Matches("end\uF02E", "*."));
    EXPECT_TRUE(Matches("\uF020x\uF020", " x "));
    EXPECT_TRUE(Matches("caf\uF0E9", "caf?"));
    EXPECT_TRUE(Matches("caf\uF0E9", "caf\xE9"));
    EXPECT_FALSE(Matches("caf\uF0E9", "caf\u00E9"));
    EXPECT_TRUE(Matches("x\uF0EF\uF080\uF0BA", "x?"));
}

TEST(NameMatch, ACarriedWildcardOfThePatternIsNone) {
    EXPECT_TRUE(Matches("a\uF02Ab", "a\uF02Ab"));
    EXPECT_FALSE(Matches("axb", "a\uF02Ab"));
    EXPECT_TRUE(Matches("why\uF03F", "why\uF03F"));
    EXPECT_FALSE(Matches("whyx", "why\uF03F"));
}

TEST(NameMatch, NotInvertsTheResult) {
    EXPECT_FALSE(Matches("a.mp3", "*.mp3", true));
    EXPECT_TRUE(Matches("a.txt", "*.mp3", true));
}

} // namespace
} // namespace tarvix::testing
