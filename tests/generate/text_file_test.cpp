#include "platform/error.h"
#include "session/product.h"
#include "tests/generate/generate_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

class TextFiles : public GenerateFixture {};

// ---- lists of the selection ----

TEST_F(TextFiles, NamesOnlyOneALineWithTheMarkOfTheEnd) {
    Disk().AddFile("C:\\t\\a b.txt");
    Disk().AddFile("C:\\t\\b.lnk");
    Disk().AddFile("C:\\t\\Äpfel.txt");
    Find();
    EXPECT_EQ(Write(Form().mnuNamesTxt, "C:\\d\\n.txt"), Data("names.txt"));
    EXPECT_FALSE(Disk().Exists("C:\\d\\n Extra Path Only.txt"));
    EXPECT_EQ(State().lastAction.done, 3);
}

TEST_F(TextFiles, FullPathsAreThoseOfThisMachine) {
    Disk().AddFile("C:\\t\\a b.txt");
    Disk().AddFile("C:\\t\\sub\\Äpfel.txt");
    Find();
    EXPECT_EQ(Write(Form().mnuPathNamesTxt, "C:\\d\\List.txt"), Data("paths_native.txt"));
    EXPECT_EQ(Disk().Content("C:\\d\\List Extra Path Only.txt"), Data("paths_native_folders.txt"));
    EXPECT_FALSE(Disk().Exists("C:\\d\\List.txt.tmp"));
}

TEST_F(TextFiles, PathsOfFoldersInTurnAreEachTheirFolders) {
    Disk().AddFile("C:\\t\\a\\1.txt");
    Disk().AddFile("C:\\t\\b\\2.txt");
    Disk().AddFile("C:\\t\\a\\3.txt");
    Disk().AddFile("C:\\t\\b\\4.txt");
    Find();
    program.Rows().Reorder({0, 2, 1, 3}); // folder by folder before
    EXPECT_EQ(Write(Form().mnuPathNamesTxt, "C:\\d\\List.txt", {"OK"}, WithoutMark()),
              "/t/a/1.txt\r\n/t/b/2.txt\r\n/t/a/3.txt\r\n/t/b/4.txt\r\n");
}

TEST_F(TextFiles, FullPathsInDriveForm) {
    InDriveForm();
    Disk().AddFile("C:\\t\\a b.txt");
    Disk().AddFile("C:\\t\\sub\\Äpfel.txt");
    Find();
    EXPECT_EQ(Write(Form().mnuPathNamesTxt, "C:\\d\\List.txt"), Data("paths_drive.txt"));
}

TEST_F(TextFiles, TheSecondFileHasALineForEachObjectAlsoWhenTheyShareAFolder) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\t\\b.txt");
    Find();
    Write(Form().mnuPathNamesTxt, "C:\\d\\List.txt", {"OK"}, WithoutMark());
    EXPECT_EQ(Disk().Content("C:\\d\\List Extra Path Only.txt"), "/t\r\n/t\r\n");
}

TEST_F(TextFiles, TheSecondFileOfANameWithoutADotEndsInTheDot) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    Write(Form().mnuPathNamesTxt, "C:\\d.x\\List", {"OK"}, WithoutMark());
    EXPECT_FALSE(Disk().Exists("C:\\d.x"));
    Disk().AddFolder("C:\\d.x");
    EXPECT_EQ(Write(Form().mnuPathNamesTxt, "C:\\d.x\\List", {"OK"}, WithoutMark()),
              "/t/a.txt\r\n");
    EXPECT_EQ(Disk().Content("C:\\d.x\\List Extra Path Only."), "/t\r\n");
}

TEST_F(TextFiles, ASecondFileThatStandsIsNamedInTheQuestion) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\d\\List Extra Path Only.txt", "mine");
    Find();
    EXPECT_EQ(Write(Form().mnuPathNamesTxt, "C:\\d\\List.txt", {"Cancel"}), "(none)");
    EXPECT_THAT(Told(), Contains("Are you sure you want to Copy Path and Names to Text File: "
                                 "C:\\d\\List.txt ?\r\n\r\nC:\\d\\List Extra Path Only.txt will be "
                                 "replaced by this action."));
    EXPECT_EQ(Disk().Content("C:\\d\\List Extra Path Only.txt"), "mine");
}

TEST_F(TextFiles, AMultiplePathListHoldsPathsAndTheMarkWhateverTheBoxSays) {
    Disk().AddFile("C:\\t\\a b.txt");
    Disk().AddFile("C:\\t\\sub\\Äpfel.txt");
    Find();
    EXPECT_EQ(Write(Form().mnuPathNamesMPL, "C:\\d\\x.mpl", {"OK"}, WithoutMark()),
              Data("paths.mpl"));
    EXPECT_FALSE(Disk().Exists("C:\\d\\x Extra Path Only.mpl"));
}

TEST_F(TextFiles, AListNamedMplByHandGetsTheMarkAndOneNamedM3uNever) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    EXPECT_EQ(Write(Form().mnuNamesTxt, "C:\\d\\x.mpl", {"OK"}, WithoutMark()),
              "a.txt\r\n*EOF\r\n");
    EXPECT_EQ(Write(Form().mnuNamesTxt, "C:\\d\\x.m3u", {"OK"}), "a.txt\r\n");
    EXPECT_EQ(Write(Form().mnuNamesTxt, "C:\\d\\x.MPL", {"OK"}, WithoutMark()), "a.txt\r\n");
}

TEST_F(TextFiles, AChosenFileLosesItsBarsBeforeAnythingIsAskedOrWritten) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\d\\ab.txt", "old");
    Find();
    Do(Form().mnuNamesTxt, [](fields::FrmDialog& form) { form.cmbDir.Text = "C:\\d\\a|b.txt"; },
       {"Cancel"});
    EXPECT_TRUE(WasTold("The current file will be replaced by this action."));
    EXPECT_EQ(Disk().Content("C:\\d\\ab.txt"), "old");
    Do(Form().mnuNamesTxt, [](fields::FrmDialog& form) { form.cmbDir.Text = "C:\\d\\a|b.txt"; });
    EXPECT_EQ(Disk().Content("C:\\d\\ab.txt"), "a.txt\r\n*EOF\r\n");
    EXPECT_EQ(Dialog().cmbDir.Text.Get(), "C:\\d\\ab.txt");
}

TEST_F(TextFiles, ANameWithALineBreakIsLeftOutAndTold) {
    Disk().AddNative("C:\\t", "bad\nname.txt");
    Disk().AddFile("C:\\t\\good.txt");
    Find();
    EXPECT_EQ(Write(Form().mnuNamesTxt, "C:\\d\\n.txt", {"OK"}, WithoutMark()), "good.txt\r\n");
    EXPECT_TRUE(WasTold("1 object has a line break in its path, which a list of lines can't hold. "
                        "It was left out:\r\n\r\nC:\\t\\bad\u240Aname.txt"));
    EXPECT_EQ(State().lastAction.done, 1);
    EXPECT_EQ(State().lastAction.skipped, 1);
}

TEST_F(TextFiles, PathsFrom248CharactersAreShortenedInDriveForm) {
    InDriveForm();
    const std::string folder = "C:\\t\\" + std::string(100, 'a') + "\\" + std::string(100, 'b');
    Disk().AddFile(folder + "\\" + std::string(36, 'c') + ".txt"); // 247 characters
    Disk().AddFile(folder + "\\" + std::string(37, 'd') + ".txt"); // 248
    Find();
    const std::string written =
        Write(Form().mnuPathNamesMPL, "C:\\d\\long.mpl", {"OK"}, WithoutMark());
    EXPECT_THAT(written, HasSubstr(folder + "\\" + std::string(36, 'c') + ".txt\r\n"));
    EXPECT_THAT(written,
                HasSubstr("\\" + std::string(100, 'b') + "\\" + std::string(37, 'd') + ".txt\r\n"));
    EXPECT_THAT(written, Not(HasSubstr(folder + "\\d")));
}

TEST_F(TextFiles, PathsInNativeFormStayWholeHoweverLong) {
    const std::string folder = "/t/" + std::string(100, 'a') + "/" + std::string(100, 'b');
    Disk().AddFile("C:\\t\\" + std::string(100, 'a') + "\\" + std::string(100, 'b') + "\\" +
                   std::string(60, 'c') + ".txt");
    Find();
    EXPECT_EQ(Write(Form().mnuPathNamesMPL, "C:\\d\\long.mpl"),
              folder + "/" + std::string(60, 'c') + ".txt\r\n*EOF\r\n");
}

// ---- what may go wrong ----

TEST_F(TextFiles, NothingSelectedIsSaidAndNoWindowOpens) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    Click(Form().cmdSelectNone);
    for (fields::MenuEntry* entry :
         {&Form().mnuNamesTxt, &Form().mnuPathNamesTxt, &Form().mnuPathNamesMPL,
          &Form().mnuNamesM3u, &Form().mnuPathNamesM3u, &Form().mnuTools_TargetPaths,
          &Form().mnuTools_CreateHtml, &Form().mnuTools_BypassMPL, &Form().mnuTools_NewSearchFor}) {
        const std::size_t before = TimesTold("Nothing is selected.");
        Do(*entry, {});
        EXPECT_FALSE(wasShown) << entry->Name();
        EXPECT_EQ(TimesTold("Nothing is selected."), before + 1) << entry->Name();
    }
}

TEST_F(TextFiles, AFullDiskLeavesTheOldFileAndTheWindowOpen) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\d\\n.txt", "old");
    Find();
    machine.faults.FailAll("Close", platform::kDiskFull);
    EXPECT_EQ(Write(Form().mnuNamesTxt, "C:\\d\\n.txt"), "old");
    EXPECT_TRUE(stayedOpen);
    EXPECT_TRUE(State().blnErrorOccurred);
    EXPECT_FALSE(Disk().Exists("C:\\d\\n.txt.tmp"));
}

TEST_F(TextFiles, AStopLeavesTheOldFile) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\t\\b.txt");
    Disk().AddFile("C:\\d\\n.txt", "old");
    Find();
    EXPECT_EQ(Write(Form().mnuNamesTxt, "C:\\d\\n.txt", {"OK"},
                    [this](fields::FrmDialog&) {
                        S().yielder.After(2, [this] { State().blnStopAction = true; });
                    }),
              "old");
    EXPECT_FALSE(Disk().Exists("C:\\d\\n.txt.tmp"));
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Stopped: nothing was written.");
}

TEST_F(TextFiles, AFileInAMissingFolderIsRecordedAndNoFolderMade) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    EXPECT_EQ(Write(Form().mnuNamesTxt, "C:\\none\\n.txt"), "(none)");
    EXPECT_FALSE(Disk().Exists("C:\\none"));
    EXPECT_TRUE(State().blnErrorOccurred);
    EXPECT_TRUE(WasTold("is not valid."));
}

TEST_F(TextFiles, ASecondPathThatIsTooLongGivesUpWhenItIsSkipped) {
    Disk().AddFile("C:\\t\\a.txt");
    const std::string folder = "C:\\d\\" + std::string(200, 'f');
    Disk().AddFolder(folder);
    Find();
    const std::string file = folder + "\\" + std::string(46, 'n') + ".txt"; // 256 characters
    EXPECT_EQ(Write(Form().mnuPathNamesTxt, file), "(none)");
    EXPECT_TRUE(stayedOpen);
    EXPECT_TRUE(State().blnErrorOccurred);
    EXPECT_TRUE(WasTold("was about to be created. The path is 272 characters in length."));
}

TEST_F(TextFiles, ASecondPathThatIsTooLongIsShortened) {
    Disk().AddFile("C:\\t\\a.txt");
    const std::string folder = "C:\\d\\" + std::string(200, 'f');
    Disk().AddFolder(folder);
    Find();
    const std::string file = folder + "\\" + std::string(46, 'n') + ".txt";
    EXPECT_EQ(Write(Form().mnuPathNamesTxt, file, {"OK", "cmdContinue"}, WithoutMark()),
              "/t/a.txt\r\n");
    EXPECT_EQ(Disk().Content(folder + "\\" + std::string(46, 'n') + " Extra Path Only.txt"),
              "/t\r\n");
}

// ---- the menu ----

TEST_F(TextFiles, EachEntryProposesItsFileInTheFirstLocationAndSaysWhatItDoes) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\u\\b.txt");
    struct Row {
        fields::MenuEntry* entry;
        std::string file;
        std::string heading;
    };
    auto& form = Form();
    const std::vector<Row> rows{
        {&form.mnuNamesTxt, "C:\\t\\New Names Only Text File.txt", "Copy Names Only to Text File:"},
        {&form.mnuPathNamesTxt, "C:\\t\\New Full Path Text File.txt",
         "Copy Path and Names to Text File:"},
        {&form.mnuPathNamesMPL, "C:\\t\\New Multiple Path List File.mpl",
         "Copy Path and Names to Text File:"},
        {&form.mnuNamesM3u, "C:\\t\\New Playlist.m3u", "Copy Names Only to Text File:"},
        {&form.mnuPathNamesM3u, "C:\\t\\New Playlist.m3u", "Copy Path and Names to Text File:"},
        {&form.mnuTools_TargetPaths, "C:\\t\\New Target Path List.txt",
         "Copy Target Paths to Text File:"},
        {&form.mnuTools_CreateMPLfromCombo, "C:\\t\\New Multiple Path List File.mpl",
         "Create MPL From Combo Box:"},
        {&form.mnuTools_NumericIncrement, "C:\\t\\New Numeric Increment List.txt",
         "Create Numeric Increment Text File:"},
    };
    Find(0, "*", "C:\\t|C:\\u");
    for (const Row& row : rows) {
        std::string heading;
        Do(*row.entry, [&](fields::FrmDialog& dialog) { heading = dialog.lblMain.Caption; },
           {"Cancel"});
        EXPECT_EQ(proposed, row.file) << row.entry->Name();
        EXPECT_EQ(heading, row.heading) << row.entry->Name();
    }
}

TEST_F(TextFiles, TheFileIsKeptWhileTheActionStaysTheSame) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    Write(Form().mnuNamesTxt, "C:\\d\\mine.txt");
    Do(Form().mnuNamesTxt, {}, {"Cancel"});
    EXPECT_EQ(proposed, "C:\\d\\mine.txt");
    Do(Form().mnuPathNamesTxt, {}, {"Cancel"});
    EXPECT_EQ(proposed, "C:\\t\\New Full Path Text File.txt");
}

TEST_F(TextFiles, ARememberedDestinationTakesThePlaceOfTheLocation) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    State().strRememberedDestination = "C:\\d\\";
    Do(Form().mnuNamesTxt, {}, {"Cancel"});
    EXPECT_EQ(proposed, "C:\\d\\New Names Only Text File.txt");
    Do(Form().mnuTools_NumericIncrement, {}, {});
    EXPECT_EQ(proposed, "C:\\d");
}

TEST_F(TextFiles, BrowsingAsksForANewFileUnderTheTitleOfTheKind) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    const std::vector<std::pair<fields::MenuEntry*, std::string>> rows{
        {&Form().mnuPathNamesMPL, "MPL File to create."},
        {&Form().mnuNamesM3u, "Playlist File to create."},
        {&Form().mnuNamesTxt, "Text File to create."},
        {&Form().mnuTools_TargetPaths, "Target Path List File to create."},
        {&Form().mnuTools_CreateMPLfromCombo, "MPL File to create."},
        {&Form().mnuTools_NumericIncrement, "Numeric Increment File to create."}};
    for (const auto& [entry, title] : rows) {
        std::string chosen;
        Do(*entry,
           [&](fields::FrmDialog& form) {
               prompts.Queue("C:\\d\\picked.txt");
               Click(form.cmdBrowse);
               chosen = form.cmbDir.Text;
           },
           {"Cancel"});
        EXPECT_EQ(chosen, "C:\\d\\picked.txt") << title;
        const auto& records = prompts.Records();
        EXPECT_EQ(records[records.size() - 2].title, title);
    }
}

TEST_F(TextFiles, ACancelledBrowseChangesNothing) {
    Disk().AddFile("C:\\t\\a.txt");
    Find();
    Do(Form().mnuNamesTxt,
       [&](fields::FrmDialog& form) {
           form.cmbDir.Text = "C:\\d\\kept.txt";
           prompts.Queue("");
           Click(form.cmdBrowse);
           EXPECT_EQ(form.cmbDir.Text.Get(), "C:\\d\\kept.txt");
       },
       {"Cancel"});
}

// ---- the search locations and the boxes ----

TEST_F(TextFiles, ThePathListOfTheLocationsNeedsNoSelection) {
    Disk().AddFile("C:\\t\\a.txt");
    Begin();
    Set(Form().cmbDir, "C:\\t|/d|");
    Form().mnuTools_CreateMPLfromCombo.Enabled = true;
    EXPECT_EQ(Write(Form().mnuTools_CreateMPLfromCombo, "C:\\d\\l.mpl", {"OK"}, WithoutMark()),
              Data("locations.mpl"));
    EXPECT_FALSE(WasTold("Nothing is selected."));
}

TEST_F(TextFiles, PathsGoIntoTheBoxOfTheLocationsEachWithItsBar) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\t\\sub\\b.txt");
    Find(2);
    Click(Form().mnuTools_BypassMPL);
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\t|C:\\t\\sub|C:\\t\\sub|");
}

TEST_F(TextFiles, NamesGoIntoTheBoxOfTheSearchEachWithItsBar) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\t\\b.txt");
    Find();
    Click(Form().mnuTools_NewSearchFor);
    EXPECT_EQ(Form().cmbSearchFor.Text.Get(), "a.txt|b.txt|");
}

// ---- numbers ----

class Numbers : public GenerateFixture {
  protected:
    std::string Numbered(std::vector<std::string> answers, const Fill& fill = {}) {
        Begin();
        answers.insert(answers.begin(), "OK");
        return Write(Form().mnuTools_NumericIncrement, "C:\\d\\n.txt", std::move(answers), fill);
    }
};

TEST_F(Numbers, StandInPlaceOfTheFirstStarOnly) {
    EXPECT_EQ(Numbered({"1", "3", "1", "00#", "a*b*c"}), Data("numbers.txt"));
}

TEST_F(Numbers, AreAskedForWithTheirPresets) {
    Numbered({"1", "3", "1", "00#", "a*b*c"});
    EXPECT_THAT(Told(), Contains("Numeric Starting Point"));
    EXPECT_THAT(Told(), Contains("Numeric Ending Point"));
    EXPECT_THAT(Told(), Contains("Should numbers always be the same length? 1-True 0-False"));
    EXPECT_THAT(Told(), Contains("Numeric Format String. example - 00#"));
    EXPECT_THAT(Told(), Contains("Enter Line Text.  Type * where number goes"));
}

TEST_F(Numbers, OfAnyLengthHaveNoPicture) {
    EXPECT_EQ(Numbered({"9", "11", "0", "*"}, WithoutMark()), "9\r\n10\r\n11\r\n");
}

TEST_F(Numbers, ALineWithoutAStarIsWrittenOnceForEachNumber) {
    EXPECT_EQ(Numbered({"1", "2", "0", "same"}, WithoutMark()), "same\r\nsame\r\n");
}

TEST_F(Numbers, AStartBeyondTheEndWritesNothing) {
    EXPECT_EQ(Numbered({"5", "4", "0", "*"}), "*EOF\r\n");
}

TEST_F(Numbers, WhatIsNoNumberIsAskedAgain) {
    EXPECT_EQ(Numbered({"x", "OK", "12:00:00 AM", "OK", "1", "-2", "OK", "1", "1", "0", "*"},
                       WithoutMark()),
              "1\r\n");
    EXPECT_THAT(Told(), Contains("\"x\" is not numeric."));
    EXPECT_THAT(Told(), Contains("\"12:00:00 AM\" is not valid."));
    EXPECT_THAT(Told(), Contains("\"-2\" is not numeric."));
    EXPECT_EQ(TimesTold("Numeric Starting Point"), 4U); // a bad end begins anew
}

TEST_F(Numbers, TheSameLengthAndItsPictureAreAskedUntilTheyAreAnswered) {
    EXPECT_EQ(Numbered({"1", "1", "yes", "1", "000", "OK", "0#", "*"}, WithoutMark()), "01\r\n");
    EXPECT_EQ(TimesTold("Should numbers always"), 2U);
    EXPECT_TRUE(WasTold("A # symbol is required to represent the number used in the numeric "
                        "increment.\r\nThe zeros represent the leading zeros for short numbers."
                        "\r\nLeading zeros allow you to create a numeric increment that is always "
                        "the same number of characters."));
}

TEST_F(Numbers, ACancelLeavesANewFileEmptyAndAnOldOneAlone) {
    EXPECT_EQ(Numbered({"1", ""}), "");
    EXPECT_THAT(Told(), Contains("Canceled"));
    EXPECT_FALSE(Dialog().IsShown());
    Disk().AddFile("C:\\d\\n.txt", "old");
    EXPECT_EQ(Numbered({""}), "old");
}

TEST_F(Numbers, TheMarkIsCheckedAtFirst) {
    Begin();
    Dialog().chkAddEOF.Value = 0;
    EXPECT_THAT(Numbered({"1", "1", "0", "*"}), EndsWith("*EOF\r\n"));
}

TEST_F(Numbers, ANumberOfManyDigitsIsTooBig) {
    Numbered({"1234567890123456789", "OK", ""});
    EXPECT_THAT(Told(), Contains("\"1234567890123456789\" is too big a number."));
}

} // namespace
} // namespace tarvix::testing
