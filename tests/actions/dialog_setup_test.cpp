#include "actions/request/dialog_setup.h"
#include "actions/request/read_request.h"
#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

// What the action window shows for each action.
class DialogSetup : public ActionFixture {
  protected:
    DialogSetup() { Start(); }
    void Open(const std::string& action) {
        State().strAction = action;
        actions::OpenDialog(S());
    }
    std::string Ways() {
        std::string ways;
        for (int i = 0; i < 4; ++i) {
            if (Dialog().optTo[i].Visible) ways += std::to_string(i);
        }
        return ways;
    }
    std::string Duplicates() {
        std::string shown;
        for (const auto* box : {&Dialog().chkAsk, &Dialog().chkSkipAll, &Dialog().chkRename,
                                &Dialog().chkOverWrite}) {
            if (box->Visible) shown += box->Name() + (box->Value == 1 ? "* " : " ");
        }
        return shown;
    }
};

struct Shown {
    const char* action;
    const char* ways;
    bool destination;
    bool browse;
    bool duplicates;
    bool overwrite;
    bool structure;
    bool levels;
    bool rename;
    bool eof;
    bool comments;
    bool isMove;
};

TEST_F(DialogSetup, EachActionShowsItsFields) {
    constexpr Shown kShown[] = {
        {"Copy", "013", true, true, true, true, true, false, false, false, false, false},
        {"Move", "023", true, true, true, false, true, false, false, false, false, true},
        {"Rename", "", false, false, false, false, false, false, true, false, false, false},
        {"RenameAsTitle", "", false, false, false, false, false, false, false, false, false, false},
        {"RenameFromTextFile", "", true, true, false, false, false, false, false, false, false,
         false},
        {"RenameFromHTMLSearch", "", true, true, false, false, false, false, false, false, false,
         false},
        {"RenameFromSelfSearch", "", true, true, false, false, false, false, false, false, false,
         false},
        {"CopyRenameAsFolderName", "", true, true, true, true, false, true, false, false, false,
         false},
        {"Names Only", "", true, true, false, false, false, false, false, true, true, false},
        {"Path and Names", "", true, true, false, false, false, false, false, true, true, false},
        {"Target Paths", "", true, true, false, false, false, false, false, true, false, false},
        {"CreateHTML", "", true, true, false, false, false, false, false, false, false, false},
        {"Create MPL From Combo Box", "", true, true, false, false, false, false, false, true,
         false, false},
        {"Numeric Increment", "", true, true, false, false, false, false, false, true, false,
         false},
        {"MakeFolders", "", true, true, false, false, false, false, false, false, false, false},
        {"Automated Playlist Gen", "0", true, false, true, false, true, false, false, false, false,
         false},
        {"Automated Playlist Gen Full", "0", true, false, true, false, true, false, false, false,
         false, false},
    };
    for (const Shown& shown : kShown) {
        Open(shown.action);
        auto& form = Dialog();
        EXPECT_EQ(Ways(), shown.ways) << shown.action;
        EXPECT_EQ(form.cmbDir.Visible.Get(), shown.destination) << shown.action;
        EXPECT_EQ(form.cmdBrowse.Visible.Get(), shown.browse) << shown.action;
        EXPECT_EQ(form.fraDuplicates.Visible.Get(), shown.duplicates) << shown.action;
        EXPECT_EQ(form.chkOverWrite.Visible.Get(), shown.overwrite) << shown.action;
        EXPECT_EQ(form.fraStructure.Visible.Get(), shown.structure) << shown.action;
        EXPECT_EQ(form.txtFolderTree.Visible.Get(), shown.levels) << shown.action;
        EXPECT_EQ(form.fraRenameOnly.Visible.Get(), shown.rename) << shown.action;
        EXPECT_EQ(form.chkAddEOF.Visible.Get(), shown.eof) << shown.action;
        EXPECT_EQ(form.chkComments.Visible.Get(), shown.comments) << shown.action;
        EXPECT_EQ(form.chkFindSimilar.Visible.Get(), shown.comments) << shown.action;
        EXPECT_EQ(actions::ReadRequest(S()).isMove, shown.isMove) << shown.action;
        EXPECT_EQ(form.optStructure.Chosen(), 0) << shown.action;
        EXPECT_EQ(form.lstMulti.Header.Get(),
                  std::string(shown.action) + " to File Locations.  (Double click to clear.)");
    }
}

TEST_F(DialogSetup, AWayThatAnActionLacksFallsBackToOneLocation) {
    Open("Move");
    Dialog().optTo.Choose(2);
    Open("Copy");
    EXPECT_EQ(Dialog().optTo.Chosen(), 0);
    Dialog().optTo.Choose(1);
    Open("Move");
    EXPECT_EQ(Dialog().optTo.Chosen(), 0);
    Dialog().optTo.Choose(3);
    Open("MakeFolders");
    EXPECT_EQ(Dialog().optTo.Chosen(), 0);
}

TEST_F(DialogSetup, ManyLocationsAndUpTheTreeSurviveTheNextAction) {
    Open("Copy");
    Dialog().optTo.Choose(1);
    Open("Copy");
    EXPECT_EQ(Dialog().optTo.Chosen(), 1);
    Open("Move");
    Dialog().optTo.Choose(2);
    Open("Move");
    EXPECT_EQ(Dialog().optTo.Chosen(), 2);
    EXPECT_FALSE(Dialog().cmbDir.Visible);
    EXPECT_FALSE(Dialog().cmdBrowse.Visible);
}

TEST_F(DialogSetup, ForManyLocationsAWholePathIsClearedAndOkNeedsALoadedList) {
    Open("Copy");
    Dialog().optTo.Choose(1);
    Dialog().cmbDir.Text = "C:\\d";
    Open("Copy");
    EXPECT_EQ(Dialog().cmbDir.Text.Get(), "");
    EXPECT_FALSE(Dialog().OKButton.Visible);
    Dialog().cmbDir.Text = "\\part";
    Open("Copy");
    EXPECT_EQ(Dialog().cmbDir.Text.Get(), "\\part");
}

TEST_F(DialogSetup, OverwritingFallsToSkippingWhereItIsNotOffered) {
    for (const char* action : {"Move", "Automated Playlist Gen"}) {
        Open("Copy");
        Set(Dialog().chkOverWrite, "1");
        Open(action);
        EXPECT_EQ(Duplicates(), "chkAsk chkSkipAll* chkRename ") << action;
    }
}

TEST_F(DialogSetup, AutomaticModeNeverAsks) {
    struct Case {
        const char* action;
        const char* duplicates;
    };
    State().options.blnAutoMode = true;
    for (const Case& c :
         {Case{"Copy", "chkAsk chkSkipAll chkRename* chkOverWrite "},
          Case{"Move", "chkAsk chkSkipAll* chkRename "},
          Case{"CopyRenameAsFolderName", "chkAsk chkSkipAll* chkRename chkOverWrite "},
          Case{"Automated Playlist Gen", "chkAsk chkSkipAll* chkRename "}}) {
        for (auto* box : {&Dialog().chkSkipAll, &Dialog().chkRename, &Dialog().chkOverWrite}) {
            box->Value = 0;
        }
        Dialog().chkAsk.Value = 1;
        Open(c.action);
        EXPECT_EQ(Duplicates(), c.duplicates) << c.action;
        EXPECT_FALSE(Dialog().chkAsk.Enabled) << c.action;
    }
    State().options.blnAutoMode = false;
    Open("Copy");
    EXPECT_TRUE(Dialog().chkAsk.Enabled);
}

TEST_F(DialogSetup, WhileAPlaylistIsEditedFolderToFolderIsNotOffered) {
    State().blnPlayListMode = true;
    Open("Copy");
    EXPECT_FALSE(Dialog().optStructure[2].Visible);
    Dialog().optStructure.Choose(2);
    actions::frmDialog_Activate(S());
    EXPECT_EQ(Dialog().optStructure.Chosen(), 0);
}

TEST_F(DialogSetup, TheNewestDestinationIsOfferedForOneLocation) {
    Dialog().cmbDir.ClearItems();
    Dialog().cmbDir.AddItem("E:\\newest");
    Dialog().cmbDir.AddItem("E:\\older");
    Dialog().cmbDir.Text = "";
    Open("Copy");
    EXPECT_EQ(Dialog().cmbDir.Text.Get(), "E:\\newest");
    Dialog().cmbDir.Text = "C:\\typed";
    Open("Copy");
    EXPECT_EQ(Dialog().cmbDir.Text.Get(), "C:\\typed");
    Dialog().optTo.Choose(3);
    Dialog().cmbDir.Text = "";
    Open("Copy");
    EXPECT_EQ(Dialog().cmbDir.Text.Get(), "");
}

TEST_F(DialogSetup, TheNewestDestinationIsOfferedWhereItCanBeUsed) {
    Disk().AddFile("C:\\list.txt", "one\r\n*EOF\r\n");
    Disk().AddFolder("C:\\folder");
    const auto offered = [this](const std::string& newest, const std::string& action) {
        Dialog().cmbDir.ClearItems();
        Dialog().cmbDir.AddItem(newest);
        Dialog().cmbDir.Text = "";
        Open(action);
        return Dialog().cmbDir.Text.Get();
    };
    EXPECT_EQ(offered("C:\\list.txt", "Copy"), "");
    EXPECT_EQ(offered("C:\\folder", "Copy"), "C:\\folder");
    EXPECT_EQ(offered("C:\\list.txt", "RenameFromTextFile"), "C:\\list.txt");
    EXPECT_EQ(offered("C:\\folder", "RenameFromTextFile"), "");
    EXPECT_EQ(offered("C:\\gone", "RenameFromHTMLSearch"), "");
}

TEST_F(DialogSetup, TheBoxIsClearedOfWhatAnotherUseLeftThere) {
    struct Case {
        const char* before;
        const char* now;
        bool keeps;
    };
    for (const Case& c : {Case{"", "Copy", true},
                          {"Copy", "Move", true},
                          {"Copy", "CopyRenameAsFolderName", true},
                          {"RenameFromTextFile", "Copy", false},
                          {"RenameFromTextFile", "RenameFromTextFile", true},
                          {"RenameFromTextFile", "RenameFromHTMLSearch", false},
                          {"RenameFromTextFile", "Rename", false},
                          {"Names Only", "Move", false},
                          {"Copy", "Rename", true},
                          {"Copy", "RenameFromSelfSearch", false}}) {
        Dialog().cmbDir.Text = "C:\\left";
        State().strPrevAction = c.before;
        State().strAction = c.now;
        actions::ClearForeignDestination(S());
        EXPECT_EQ(Dialog().cmbDir.Text.Get(), c.keeps ? "C:\\left" : "")
            << c.before << ", " << c.now;
    }
}

} // namespace
} // namespace tarvix::testing
