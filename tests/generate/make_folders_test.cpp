#include "generate/folder_names.h"
#include "tests/generate/generate_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> All(generate::NextName next) {
    std::vector<std::string> names;
    for (auto name = next(); name; name = next())
        names.push_back(*name);
    return names;
}

TEST(FolderNames, ByNumbersAreAsLongAsTheLastOneThatIsMade) {
    EXPECT_THAT(All(generate::NumberedNames(8, 5)), ElementsAre("08", "09", "10", "11", "12"));
    EXPECT_EQ(All(generate::NumberedNames(1, 10)).front(), "01");
    EXPECT_EQ(All(generate::NumberedNames(1, 10)).back(), "10");
    EXPECT_EQ(All(generate::NumberedNames(1, 9)).front(), "1");
}

TEST(FolderNames, ByDigitsAndLettersLoseTheirZeros) {
    EXPECT_THAT(All(generate::CountedNames("00A", "00C")), ElementsAre("A", "B", "C"));
    EXPECT_THAT(All(generate::CountedNames("00Z", "011")), ElementsAre("Z", "10", "11"));
    EXPECT_THAT(All(generate::CountedNames("000", "001")), ElementsAre("0", "1"));
    EXPECT_THAT(All(generate::CountedNames("00B", "00A")), IsEmpty());
    EXPECT_EQ(All(generate::CountedNames("000", "ZZZ")).size(), 46656U);
}

class Folders : public GenerateFixture {
  protected:
    void Make(std::vector<std::string> answers, const std::string& place = "C:\\d") {
        Begin();
        Do(
            Form().mnuTools_MakeFolders, [&](fields::FrmDialog& form) { Set(form.cmbDir, place); },
            std::move(answers));
    }
    bool Made(const std::string& name) { return Disk().Exists("C:\\d\\" + name); }
};

TEST_F(Folders, AreNumbered) {
    Make({"", "n", "1", "10"});
    EXPECT_TRUE(Made("01"));
    EXPECT_TRUE(Made("10"));
    EXPECT_FALSE(Made("11"));
    EXPECT_FALSE(Dialog().IsShown());
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Made 10 folders in C:\\d");
    EXPECT_TRUE(HasEntry(LogText(), " User selected to create folders 01 -- to -- 10 in folder: "
                                    "C:\\d"));
}

TEST_F(Folders, AreCountedByDigitsAndLetters) {
    Make({"", "A", "a", "c"});
    EXPECT_TRUE(Made("A"));
    EXPECT_TRUE(Made("C"));
    EXPECT_TRUE(HasEntry(LogText(), " User selected to create folders 00A -- to -- 00C in folder: "
                                    "C:\\d"));
}

TEST_F(Folders, WithAnEndBeforeTheStartAreNoneAndAreLogged) {
    Make({"", "A", "C", "A"});
    EXPECT_TRUE(HasEntry(LogText(), " User selected to create folders 00C -- to -- 00A in folder: "
                                    "C:\\d"));
    EXPECT_FALSE(Made("A"));
}

TEST_F(Folders, AreNamedByAListUpToItsMark) {
    Disk().AddFile("C:\\t\\names.txt", "one\r\n  two three\r\n\r\nwhat?\r\n*EOF\r\nnever\r\n");
    Make({"C:\\t\\names.txt"});
    EXPECT_TRUE(Made("one"));
    EXPECT_TRUE(Made("two three"));
    EXPECT_TRUE(Made("what\uF03F"));
    EXPECT_FALSE(Made("never"));
    EXPECT_TRUE(HasEntry(LogText(), " User selected to create folders. They were named using file: "
                                    "C:\\t\\names.txt in folder: C:\\d."));
}

TEST_F(Folders, OfAListWithoutItsMarkAreMadeAndTheLogLineIsMissing) {
    Disk().AddFile("C:\\t\\names.txt", "one\r\ntwo\r\n");
    Make({"C:\\t\\names.txt"});
    EXPECT_TRUE(Made("two"));
    EXPECT_TRUE(WasTold("*EOF missing from end of text file: "));
    EXPECT_FALSE(HasEntry(LogText(), " User selected to create folders. They were named using "
                                     "file: C:\\t\\names.txt in folder: C:\\d."));
}

TEST_F(Folders, OfAMissingOrEmptyListAreAskedForAgain) {
    Disk().AddFile("C:\\t\\empty.txt");
    Make({"C:\\t\\none.txt", "OK", "C:\\t\\empty.txt", "OK", "", "A", "1", "1"});
    EXPECT_THAT(Told(), Contains("file missing"));
    EXPECT_THAT(Told(), Contains("file is empty"));
    EXPECT_TRUE(Made("1"));
}

TEST_F(Folders, TakeNoAnswerThatIsNone) {
    Make({"", "x", "OK", "N", "y", "OK", "12:00:00 AM", "OK", "2147483649", "OK", "2147483647", "2",
          "OK", "1"});
    EXPECT_THAT(Told(), Contains("\"X\" is not valid response."));
    EXPECT_THAT(Told(), Contains("\"y\" is not numeric."));
    EXPECT_THAT(Told(), Contains("\"12:00:00 AM\" is not valid."));
    EXPECT_THAT(Told(), Contains("\"2147483649\" is to big a number limited to 2,147,483,648"));
    EXPECT_THAT(Told(), Contains("Biggest numeric name - \"2147483649\" is to big a number limited "
                                 "to 2,147,483,648"));
    EXPECT_TRUE(Made("2147483647"));
}

TEST_F(Folders, TakeNoCountedNameThatIsNone) {
    Make({"", "A", "-", "OK", "0000", "OK", "Z", "z"});
    EXPECT_THAT(Told(), Contains("\"-\" is not alphanumeric."));
    EXPECT_THAT(Told(), Contains("\"0000\" is to long, this routine is limited to 0 through ZZZ."));
    EXPECT_TRUE(Made("Z"));
}

TEST_F(Folders, EndWithOneSummaryWhenNamesAreTakenOrRefused) {
    Disk().AddFolder("C:\\d\\2");
    Disk().AddFile("C:\\t\\names.txt", "1\r\n2\r\nno/name\r\n*EOF\r\n");
    Make({"C:\\t\\names.txt"});
    EXPECT_THAT(Told(), Contains("Made 1 folder in C:\\d.\r\n\r\n1 name is taken already.\r\n1 "
                                 "could not be made.\r\n   2\r\n   no/name"));
    EXPECT_EQ(State().lastAction.done, 1);
    EXPECT_EQ(State().lastAction.failed, 1);
}

TEST_F(Folders, OfAListThatLeadsElsewhereAreRefused) {
    Disk().AddFolder("C:\\d\\in");
    Disk().AddFile("C:\\t\\names.txt",
                   "..\\up\r\n.\r\n..\r\nin\\..\\..\\up\r\nin\\deep\r\n*EOF\r\n");
    Make({"C:\\t\\names.txt"});
    EXPECT_FALSE(Disk().Exists("C:\\up"));
    EXPECT_TRUE(Made("in\\deep"));
    EXPECT_EQ(State().lastAction.done, 1);
    EXPECT_EQ(State().lastAction.failed, 4);
}

TEST_F(Folders, ACancelMakesNone) {
    Make({"", ""});
    EXPECT_THAT(Told(), Contains("Canceled"));
    EXPECT_FALSE(Dialog().IsShown());
}

TEST_F(Folders, InAMissingFolderAreRefusedBeforeAnythingIsAsked) {
    Make({}, "C:\\none");
    EXPECT_TRUE(WasTold("There is no folder C:\\none to make folders in."));
    EXPECT_TRUE(stayedOpen);
}

} // namespace
} // namespace tarvix::testing
