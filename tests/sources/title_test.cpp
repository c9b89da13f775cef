#include "tests/sources/source_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class TitleTest : public SourceFixture {
  protected:
    void AddPage(const std::string& name, const std::string& title) {
        Disk().AddFile("C:\\t\\" + name, "<html><title>" + title + "</title></html>");
    }
    void Rename(int kind = 0) {
        Find(kind);
        Do(Form().mnuRenameSelFromTitle, [](fields::FrmDialog&) {});
    }
};

TEST_F(TitleTest, APageGetsItsOwnTitleBeforeItsName) {
    AddPage("a.htm", "First page");
    AddPage("B.HTML", "Second: page");
    Rename();
    EXPECT_THAT(Files(), ElementsAre("First page a.htm", "Second page B.HTML"));
    ExpectTotals(2, 0, 0);
    EXPECT_TRUE(WasTold("Are you sure you want to rename all selected objects?"));
    ExpectLog({" User clicked the on the 'Rename Objects based on Html <title>' menu item which "
               "opened the Action form. ",
               " User selected to insert <TITLE> at beg of the current name",
               " Renamed C:\\t\\a.htm -- as -- C:\\t\\First page a.htm"});
}

TEST_F(TitleTest, TheNoteComesFirst) {
    AddPage("a.htm", "T");
    Rename();
    ASSERT_FALSE(Told().empty());
    EXPECT_EQ(
        Told().front(),
        "If you have selected a set of files, first the program will check if the file "
        "itself is an .htm(l). \r\nIf so, it uses its own title tag to rename. If not, second "
        "the program will look for an .htm(l), in the same folder, \r\nwith a matching name "
        "and use it's title tag. If no match is found it will use the title tag of the first "
        ".htm(l) \r\nin the same folder. When the object is a folder the same steps are taken "
        "except working inside the \r\nfolder and a folder can NOT be an html.\r\nThe <Title> "
        "will be added to the beginning of the current name.");
}

TEST_F(TitleTest, AnotherFileTakesThePageOfItsNameElseTheFirstOne) {
    AddPage("x.htm", "Of x");
    AddPage("y (1).html", "Of y");
    Disk().AddFile("C:\\t\\y.mp3", "y");
    Disk().AddFile("C:\\t\\z.mp3", "z");
    Find(0, "*.mp3");
    Do(Form().mnuRenameSelFromTitle, [](fields::FrmDialog&) {});
    EXPECT_THAT(Files(), ElementsAre("Of x z.mp3", "Of y y.mp3", "x.htm", "y (1).html"));
}

TEST_F(TitleTest, EachPageIsFoundByTheNameThatItHadAtFirst) {
    AddPage("a.htm", "TA");
    AddPage("b.htm", "TB");
    Disk().AddFile("C:\\t\\a.mp3", "a");
    Disk().AddFile("C:\\t\\b.mp3", "b");
    Rename();
    EXPECT_THAT(Files(), ElementsAre("TA a.htm", "TA a.mp3", "TB b.htm", "TB b.mp3"));
}

TEST_F(TitleTest, AFolderTakesThePageInIt) {
    AddPage("Abba\\other.htm", "Other");
    AddPage("Abba\\abba.htm", "The band");
    AddPage("Queen\\list.html", "Kings");
    Disk().AddFolder("C:\\t\\None");
    Rename(3);
    EXPECT_THAT(Folders(), ElementsAre("Kings Queen", "None", "The band Abba"));
    ExpectLog({" Was unable to rename C:\\t\\None since no Html file was found."});
    ExpectTotals(2, 1, 0);
}

TEST_F(TitleTest, AFolderAndWhatLiesInItAreBothRenamed) {
    AddPage("Abba\\abba.htm", "T");
    Rename(2);
    EXPECT_THAT(Files(), ElementsAre("T Abba\\T abba.htm"));
    ExpectTotals(2, 0, 0);
}

TEST_F(TitleTest, ATitleOfIllegalCharactersAloneIsNone) {
    AddPage("a.htm", "?:&lt;*/\\|&quot;&gt;");
    AddPage("b.htm", "  ");
    Disk().AddFile("C:\\t\\c.htm", "nothing");
    Rename();
    EXPECT_THAT(Files(), ElementsAre("a.htm", "b.htm", "c.htm"));
    for (const char* name : {"a", "b", "c"}) {
        ExpectLog({std::string(" Was unable to rename C:\\t\\") + name +
                   ".htm since no <TITLE> was found in the html file."});
    }
    ExpectTotals(0, 3, 0);
}

TEST_F(TitleTest, ATitleSpreadOverThreeLinesIsFound) {
    AddPage("a.htm", "One\r\nTwo\r\nThree");
    Rename();
    EXPECT_THAT(Files(), ElementsAre("OneTwoThree a.htm"));
}

TEST_F(TitleTest, ReferencesAndTabsBecomeWhatPeopleRead) {
    AddPage("a.htm", "\tTom &amp; Jerry&nbsp;1/2\t");
    Rename();
    EXPECT_THAT(Files(), ElementsAre("Tom & Jerry 12 a.htm"));
}

TEST_F(TitleTest, ANameThatIsTakenGetsTheTextAtItsEnd) {
    AddPage("a.htm", "T");
    Disk().AddFile("C:\\t\\T a.htm", "old");
    Find(0, "a.htm");
    Do(Form().mnuRenameSelFromTitle, [](fields::FrmDialog& form) { form.chkRenameEnd.Value = 0; });
    EXPECT_THAT(Files(), ElementsAre("T a.htm", "T a_.htm"));
    EXPECT_EQ(Content("T a.htm"), "old");
    ExpectTotals(1, 0, 0);
}

TEST_F(TitleTest, APageThatCannotBeReadFailsAlone) {
    AddPage("a.htm", "A");
    AddPage("b.htm", "B");
    machine.faults.FailPath("C:\\t\\a.htm", platform::kPermissionDenied, "ReadBytes");
    State().options.blnAutoMode = true;
    Rename();
    EXPECT_THAT(Files(), ElementsAre("a.htm", "B b.htm"));
    ExpectTotals(1, 0, 1);
}

TEST_F(TitleTest, ALongSearchIsAskedAbout) {
    const std::string folder = "C:\\t\\" + std::string(240, 'x');
    Disk().AddFile(folder + "\\abcdefghi.mp3", "x");
    Disk().AddFile(folder + "\\abc.htm", "<title>T</title>");
    Find(0, "abcdefghi*");
    Rename();
    EXPECT_TRUE(WasTold("Routine - RenameAsTitle is attempting to search with this"));
    EXPECT_THAT(LogText(), HasSubstr(" User selected to skip finding html, to Rename as Title, by "
                                     "not searching with this: "));
    EXPECT_TRUE(Disk().Exists(folder + "\\abcdefghi.mp3"));
}

TEST_F(TitleTest, ThePreviewTellsWithoutRenaming) {
    AddPage("a.htm", "T");
    AddPage("b.htm", "");
    Disk().AddFile("C:\\t\\c.htm", "<title>T</title>");
    Disk().AddFile("C:\\t\\T c.htm", "<title>X</title>");
    Find(0, "?.htm");
    EXPECT_THAT(Foretell(Form().mnuRenameSelFromTitle, [](fields::FrmDialog&) {}),
                ElementsAre("C:\\t\\T a.htm - rename", " - left alone: no title in its page",
                            "C:\\t\\T c_.htm - duplicate: rename"));
}

TEST_F(TitleTest, WithNothingSelectedNothingOpens) {
    Start();
    Click(Form().mnuRenameSelFromTitle);
    EXPECT_TRUE(WasTold("Nothing is selected."));
    EXPECT_FALSE(Dialog().IsShown());
}

TEST_F(TitleTest, AStopRenamesNothingMore) {
    for (const char* name : {"a.htm", "b.htm", "c.htm"})
        AddPage(name, "T");
    Find();
    Do(Form().mnuRenameSelFromTitle, [this](fields::FrmDialog&) {
        S().yielder.After(2, [this] { State().blnStopAction = true; });
    });
    EXPECT_THAT(Files(), ElementsAre("a.htm", "b.htm", "c.htm"));
    EXPECT_EQ(Totals().done, 0);
}

TEST_F(TitleTest, WhatWasExchangedSinceTheSearchStays) {
    AddPage("a.htm", "T");
    Find();
    Disk().Node("C:\\t\\a.htm")->Detach();
    AddPage("a.htm", "U");
    State().options.blnAutoMode = true;
    Do(Form().mnuRenameSelFromTitle, [](fields::FrmDialog&) {});
    EXPECT_THAT(Files(), ElementsAre("a.htm"));
    ExpectTotals(0, 0, 1);
}

} // namespace
} // namespace tarvix::testing
