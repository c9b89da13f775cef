#include "actions/request/dialog_setup.h"
#include "actions/request/ok_button.h"
#include "results/selection.h"
#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kNoFolder = "It appears you did not select a destination folder. ";

// The branches of OK, with what they say.
class Requests : public ActionFixture {
  protected:
    Requests() {
        Disk().AddFile("C:\\t\\a.txt", "a");
        Disk().AddFile("C:\\t\\sub\\b.txt", "b");
        Disk().AddFolder("C:\\d");
    }
    // Presses OK for an action that another menu starts, with `answers` queued.
    void Run(const std::string& action, const std::string& destination,
             std::vector<std::string> answers = {}, bool isSelected = true) {
        if (isSelected) {
            Find();
        } else {
            Start();
        }
        results::BuildFileArray(S());
        State().strAction = action;
        Dialog().lblMain.Caption = "Write a list to:";
        Dialog().Show();
        actions::OpenDialog(S());
        Dialog().cmbDir.Text = destination;
        for (std::string& answer : answers) {
            prompts.Queue(std::move(answer));
        }
        actions::OKButton_Click(S());
        stayedOpen = Dialog().IsShown();
        isUsable = Dialog().OKButton.Enabled;
    }
    void ExpectRefused(const std::string& action, const std::string& destination,
                       const std::string& told) {
        Run(action, destination);
        EXPECT_THAT(Told(), Contains(told)) << action;
        EXPECT_TRUE(stayedOpen) << action;
        EXPECT_TRUE(isUsable) << action;
        EXPECT_FALSE(WasTold("Are you sure")) << action;
    }
};

// ---- written files ----

TEST_F(Requests, AListNeedsAProperName) {
    ExpectRefused("Names Only", "C:\\", "You did not select a proper file name.\r\n\r\n");
}

TEST_F(Requests, AListNeedsANameThatAFileCanHave) {
    ExpectRefused("Names Only", "C:\\d/x.txt",
                  "C:\\d/x.txt can't be used as a destination, as no folder in a path with \\ "
                  "between its folders can hold /.\r\n\r\nChange it, or type the whole path with / "
                  "between its folders.");
}

TEST_F(Requests, AListIsNotWrittenOverAFolder) {
    ExpectRefused("Target Paths", "C:\\d\\",
                  "C:\\d is a folder, you can not write a file over an existing folder.");
    ExpectRefused("Target Paths", "C:\\t\\sub",
                  "C:\\t\\sub is a folder, you can not write a file over an existing folder.");
}

TEST_F(Requests, AListAsksAndTellsWhetherItReplacesAFile) {
    Run("Names Only", "C:\\d\\new.m3u", {"Cancel"});
    EXPECT_THAT(Told(), Contains("Are you sure you want to Write a list to: C:\\d\\new.m3u\r\n\r\n"
                                 "(Local playlists only work if created in same folder as all the "
                                 "songs) ?"));
    EXPECT_TRUE(stayedOpen);
    Run("Path and Names", "C:\\d\\new.txt", {"Cancel"});
    EXPECT_THAT(Told(), Contains("Are you sure you want to Write a list to: C:\\d\\new.txt ?"));
    Run("Names Only", "C:\\t\\a.txt", {"Cancel"});
    EXPECT_THAT(Told(), Contains("Are you sure you want to Write a list to: C:\\t\\a.txt ?\r\n\r\n"
                                 "The current file will be replaced by this action."));
    EXPECT_EQ(prompts.Records().back().style, 65);
}

TEST_F(Requests, AListOfNothing) {
    Run("Target Paths", "C:\\d\\new.txt", {"OK"}, false);
    EXPECT_THAT(Told(), Contains("nothing was selected"));
    EXPECT_TRUE(stayedOpen);
}

TEST_F(Requests, FoldersAreMadeInAFolder) {
    ExpectRefused("MakeFolders", "C", "You did not select a valid location for folders.");
    ExpectRefused("MakeFolders", "C:\\t\\a.txt",
                  "C:\\t\\a.txt is a file, you can not create folders inside it.");
}

TEST_F(Requests, FoldersAreMadeInAPlaceThatAPathCanName) {
    ExpectRefused("MakeFolders", "C:\\d?",
                  "C:\\d? can't be used as a destination, as no folder in a path with \\ between "
                  "its folders can hold ?.\r\n\r\nChange it, or type the whole path with / between "
                  "its folders.");
    ExpectRefused("MakeFolders", "C:\\d\\x:y",
                  "C:\\d\\x:y can't be used as a destination, as a : can only stand behind the "
                  "letter of a drive.\r\n\r\nChange it, or type the whole path with / between its "
                  "folders.");
}

// ---- batches ----

TEST_F(Requests, ABatchWithAFileAsDestinationSkipsItsStep) {
    State().batch.strDestination = "C:\\t\\a.txt";
    Find();
    State().blnAutoMove = true;
    State().strAction = "Automated Move";
    Click(Form().cmdMoveSelected);
    EXPECT_TRUE(State().batch.blnStepFailed);
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_FALSE(Dialog().IsShown());
    State().blnAutoMove = false;
    ExpectLog({" C:\\t\\a.txt is a file, you can not move objects inside it.\r\nThis search step "
               "skipped.\r\n"});
}

TEST_F(Requests, ABatchMakesItsDestinationAndMoves) {
    State().batch.strDestination = "C:\\new\\deep";
    State().batch.blnSkip = true;
    Find();
    State().blnAutoMove = true;
    State().strAction = "Automated Move";
    Click(Form().cmdMoveSelected);
    State().blnAutoMove = false;
    EXPECT_FALSE(State().batch.blnStepFailed);
    EXPECT_EQ(Disk().Content("C:\\new\\deep\\a.txt"), "a");
    EXPECT_FALSE(Disk().Exists("C:\\t\\a.txt"));
    EXPECT_THAT(Told(), IsEmpty());
    ExpectLog({" User selected to Automated Moveobjects to folder: C:\\new\\deep"});
}

TEST_F(Requests, ABatchWhoseDestinationCannotBeMadeSkipsItsStep) {
    Disk().AddDrive("D:", platform::DriveType::kCdRom, "iso9660");
    State().batch.strDestination = "D:\\new";
    Find();
    State().options.blnAutoMode = true;
    State().blnAutoMove = true;
    State().strAction = "Automated Move";
    Click(Form().cmdMoveSelected);
    State().blnAutoMove = false;
    EXPECT_TRUE(State().batch.blnStepFailed);
    EXPECT_TRUE(Disk().Exists("C:\\t\\a.txt"));
    ExpectLog(
        {" Was unable to create destination folder D:\\new\r\nThis search step skipped.\r\n"});
}

TEST_F(Requests, ABatchThatFoundNothingSkipsItsStepWithoutFailing) {
    State().batch.strDestination = "C:\\d";
    Find(0, "C:\\t", "nothing*");
    State().blnAutoMove = true;
    State().strAction = "Automated Move";
    Click(Form().cmdMoveSelected);
    State().blnAutoMove = false;
    EXPECT_FALSE(State().batch.blnStepFailed);
    EXPECT_THAT(Told(), ::testing::Not(Contains("Nothing is selected.")));
    ExpectLog({" Was unable to do move, no objects found.\r\nThis search step skipped.\r\n"});
}

TEST_F(Requests, ABatchsPlaylistOfNothing) {
    Run("Automated Playlist Gen", "C:\\d\\p.m3u", {}, false);
    EXPECT_FALSE(stayedOpen);
    ExpectLog({" Was unable to Generate Playlist , no objects found.\r\nThis search step "
               "skipped.\r\n"});
}

// ---- renames ----

TEST_F(Requests, ARenameIsConfirmedAndLogged) {
    Find();
    Do(Form().cmdRenameSelected,
       [this](fields::FrmDialog& form) {
           Set(form.chkFindReplace, "1");
           Set(form.txtFind, "a");
           Set(form.txtReplace, "c");
       },
       {"OK"});
    EXPECT_THAT(Told(), Contains("Are you sure you want to rename all selected objects?"));
    EXPECT_TRUE(Disk().Exists("C:\\t\\c.txt"));
    ExpectLog({" User clicked on the Rename Button which opened the Action form. ",
               " User selected to find and replace rename using: \r\nFind: a Replace: c"});
}

TEST_F(Requests, ARenameFromAFileNeedsThatFile) {
    ExpectRefused("RenameFromHTMLSearch", "C:\\none.htm",
                  "You did not select an existing html file name.\r\n\r\n");
    ExpectRefused("RenameFromSelfSearch", "", "You did not select an existing file name.\r\n\r\n");
    ExpectRefused("RenameFromTextFile", "C:\\t",
                  "You did not select an existing file name.\r\n\r\n");
}

TEST_F(Requests, ARenameByTitleIsConfirmedAndMarksTheList) {
    Run("RenameAsTitle", "", {"OK"});
    EXPECT_FALSE(stayedOpen);
    EXPECT_TRUE(State().blnRedoAfterAction);
    ExpectLog({" User selected to insert <TITLE> at beg of the current name"});
}

// ---- copies named after folders ----

TEST_F(Requests, ACopyNamedAfterFoldersNeedsLevelsAndADestination) {
    Run("CopyRenameAsFolderName", "C:\\d");
    EXPECT_THAT(Told(), Contains("Must have a selected more than one Folder name to use."));
    Dialog().txtFolderTree.Text = "1";
    Run("CopyRenameAsFolderName", "C");
    EXPECT_THAT(Told(),
                Contains("It appears you did not select a valid destination folder.\r\nC is "
                         "only one character.\r\n\r\n"));
    Run("CopyRenameAsFolderName", "");
    EXPECT_THAT(Told(), Contains("It appears you did not select a destination folder. \r\n\r\n"));
}

TEST_F(Requests, ACopyNamedAfterFoldersWarnsOfAnExtensionAndCopies) {
    Dialog().txtFolderTree.Text = "1";
    Run("CopyRenameAsFolderName", "C:\\d.x", {"OK"});
    EXPECT_THAT(Told(),
                Contains("It appears you did not select a destination folder.\r\nC:\\d.x may "
                         "have an extension.\r\n\r\nAre you sure you want to Write a list "
                         "to: C:\\d.x using folder structure - None ?"));
    EXPECT_EQ(Disk().Content("C:\\d.x\\t.txt"), "a");
    EXPECT_EQ(Disk().Content("C:\\d.x\\sub.txt"), "b");
}

// ---- copies and moves ----

TEST_F(Requests, UpTheTreeNeedsALevelAndNamesIt) {
    Find();
    Move([this](fields::FrmDialog& form) {
        Click(form.optTo[2]);
        Set(form.txtFolderTree, "0");
    });
    EXPECT_THAT(Told(),
                Contains("Must have a value of one or greater in the 'Up Folder Tree' textbox."));
    EXPECT_TRUE(stayedOpen);
    Find();
    Move([this](fields::FrmDialog& form) { Set(form.txtFolderTree, "1"); }, {"Cancel"});
    EXPECT_THAT(Told(), Contains("Are you sure you want to move object(s) up folder tree 1 "
                                 "folder(s)?\r\nUsing folder structure - None ?"));
    Find(0, "C:\\t\\sub");
    Move([this](fields::FrmDialog& form) {
        Set(form.txtFolderTree, "1");
        Set(form.chkFolderRename, "1");
    });
    EXPECT_THAT(Told(),
                Contains("Are you sure you want to move and rename object(s) up folder tree "
                         "1 folder(s)?\r\nUsing folder structure - None ?"));
    EXPECT_EQ(Disk().Content("C:\\t\\sub b.txt"), "b");
}

TEST_F(Requests, UpTheTreeWithAnotherStructureLogsWhatStaysBehind) {
    Find(0, "C:\\t\\sub");
    Move([this](fields::FrmDialog& form) {
        Click(form.optTo[2]);
        Click(form.optStructure[1]);
    });
    EXPECT_EQ(Disk().Content("C:\\t\\sub\\b.txt"), "b");
    ExpectLog({" Found no destination for C:\\t\\sub\\b.txt"});
}

TEST_F(Requests, ARuleThatIsNoneIsRefusedAndOneThatIsAsks) {
    Find();
    Copy([this](fields::FrmDialog& form) {
        Click(form.optTo[3]);
        Set(form.cmbDir, "C:\\d");
    });
    EXPECT_TRUE(stayedOpen);
    EXPECT_THAT(Told(),
                Contains("You have selected 'Special Rule', yet you have not typed a rule."));
    Find();
    Copy([this](fields::FrmDialog& form) { Set(form.cmbDir, "C:\\d.x\\*4*"); }, {"Cancel"});
    EXPECT_THAT(Told(),
                Contains("It appears you did not select a destination folder.\r\nC:\\d.x\\*4* "
                         "may have an extension.\r\n\r\nAre you sure you want to Copy Files "
                         "or Folders to: to varying folders using Special Rule - "
                         "C:\\d.x\\*4*?"));
    EXPECT_THAT(Told(),
                Contains("No error conditions occured during Special Rule. Objects were "
                         "successfully copied or acted upon as per the options you chose on "
                         "the Ask form. (Your last choice was - skip duplicate(s).) See the "
                         "action log for more details."));
}

TEST_F(Requests, TheReportOfARuleCountsWhatFoundNoFolder) {
    Find();
    Move([this](fields::FrmDialog& form) {
        Click(form.optTo[3]);
        Set(form.cmbDir, "C:\\d\\*9*");
        Set(form.chkSkipAll, "1");
    });
    EXPECT_THAT(
        Told(),
        Contains("No error conditions occured during Special Rule. Objects were successfully "
                 "moved or skipped as duplicates. See the action log for more details."));
    Disk().AddFile("C:\\t\\a.txt", "a");
    Find(0, "C:\\t", "a.txt");
    Copy([this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d\\*99*");
        Set(form.chkRename, "1");
    });
    EXPECT_THAT(
        Told(),
        Contains(
            "Rule text used: \r\n\r\nC:\\d\\*99*\r\n\r\n0 - objects were successfully copied or "
            "renamed as duplicates. \r\n\r\n0 - objects did not find a destination "
            "folder.\r\n\r\n0 - objects path/name were shorter than character position typed "
            "into the Search Set of the Special Rule. example - |2,2|  If any had exceeded, they "
            "would have matched anything so the object was skipped entirely.\r\n\r\n1 - objects "
            "path/name were shorter than character position typed into the Replacement "
            "Character of the Special Rule or there was a misplaced colon. - *99*\r\n\r\nSee the "
            "action log for more details."));
}

TEST_F(Requests, TheSameDriveIsWarnedOfInADriveMirror) {
    Disk().AddDrive("E:");
    Find();
    Copy(
        [this](fields::FrmDialog& form) {
            Set(form.cmbDir, "C:\\d");
            Click(form.optStructure[1]);
        },
        {"Cancel"});
    EXPECT_THAT(
        Told(),
        Contains("You are about to copy file(s)\\folder(s) \r\non to the very same location(s) "
                 "as the original(s).\r\n\r\nAre you sure you want to Copy Files or Folders "
                 "to: C:\\d using folder structure - Drive Mirror ?"));
    Find();
    Copy([this](fields::FrmDialog& form) {
        Set(form.cmbDir, "E:\\any\\folder");
        Click(form.optStructure[1]);
    });
    EXPECT_EQ(TimesTold("very same location"), 1U);
    EXPECT_EQ(Disk().Content("E:\\t\\sub\\b.txt"), "b");
}

TEST_F(Requests, AMoveThatStillHoldsOverwriteSkips) {
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find();
    Move([this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        form.chkAsk.Value = 0;
        form.chkOverWrite.Value = 1;
    });
    EXPECT_THAT(Told(),
                Contains("Overwrite can not be performed when moving files.\r\nThis will skip "
                         "all duplicates found."));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
    EXPECT_EQ(Disk().Content("C:\\d\\b.txt"), "b");
    ExpectLog({" User selected to overwrite all duplicates at start."});
}

TEST_F(Requests, TheFirstChoiceThatIsSetCounts) {
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find();
    Copy([this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        form.chkRename.Value = form.chkSkipAll.Value = form.chkOverWrite.Value = 1;
    });
    EXPECT_EQ(Disk().Content("C:\\d\\a_.txt"), "a");
    ExpectLog({" User selected to rename all duplicates at start."});
}

TEST_F(Requests, WithNoChoiceNothingRuns) {
    Find();
    Copy([this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        Set(form.chkAsk, "0");
    });
    EXPECT_FALSE(Disk().Exists("C:\\d\\a.txt"));
    EXPECT_TRUE(isUsable);
}

TEST_F(Requests, ARefusalKeepsTheStructure) {
    Find();
    int structure = -1;
    Copy([&](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\t\\a.txt");
        Click(form.optStructure[3]);
        prompts.Queue("OK");
        Click(form.OKButton);
        structure = form.optStructure.Chosen();
    });
    EXPECT_EQ(structure, 3);
}

// ---- what becomes of the list ----

TEST_F(Requests, AMoveClearsTheList) {
    Find();
    Move(To("C:\\d"));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_FALSE(State().blnRedoAfterAction);
}

TEST_F(Requests, OrSearchesAgain) {
    Find(0, "C:\\t", "a*|b*");
    Set(Form().chkRepeatSearch, "1");
    Disk().AddFile("C:\\d\\a.txt", "old");
    Move(To("C:\\d"));
    EXPECT_THAT(Names(), ElementsAre("a.txt")) << "the duplicate that was skipped";
}

TEST_F(Requests, ACancelLeavesTheListAsItStands) {
    Find();
    const auto before = Names();
    Move(To("C:\\d"), {"Cancel"});
    EXPECT_EQ(Names(), before);
    EXPECT_TRUE(State().blnActionCancelled);
}

TEST_F(Requests, AMoveForgetsTheRememberedDestination) {
    Find();
    State().strRememberedDestination = "C:\\d";
    Move([](fields::FrmDialog& form) { EXPECT_EQ(form.cmbDir.Text.Get(), "C:\\d"); });
    EXPECT_EQ(State().strRememberedDestination, "");
}

// ---- automatic mode ----

TEST_F(Requests, InAutomaticModeErrorsAreOfferedAtTheEnd) {
    Find();
    State().options.blnAutoMode = true;
    machine.faults.FailAll("CopyFile", platform::kPathFileAccess);
    Copy(To("C:\\d"));
    EXPECT_THAT(Told(), Contains("Error has occurred, would you like to view the Program Error log "
                                 "file?"));
}

} // namespace
} // namespace tarvix::testing
