#include "actions/request/destination_controls.h"
#include "actions/request/multi_paths.h"
#include "actions/request/read_request.h"
#include "session/user_input.h"
#include "tests/actions/bare_session.h"

#include <gmock/gmock.h>

#include <array>

namespace tarvix::actions {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DestinationControls : public BareSession {
  protected:
    DestinationControls() {
        session.state.strAction = "Copy";
        AddDestinationEvents(session.events);
        AddMultiPathEvents(session.events);
    }
    void Click(fields::Control& control) {
        const auto clicked = session::UserClick(session, control);
        EXPECT_TRUE(clicked) << clicked.error();
    }
    void Set(fields::Control& control, std::string_view value) {
        const auto set = session::UserSet(session, control, value);
        EXPECT_TRUE(set) << set.error();
    }
    std::string DuplicateChoice() {
        std::string set;
        for (const fields::CheckBox* box :
             {&Form().chkAsk, &Form().chkSkipAll, &Form().chkRename, &Form().chkOverWrite}) {
            if (box->Value == 1) set += box->Name() + " ";
        }
        return set;
    }
};

// ---- where to ----

TEST_F(DestinationControls, EachWayIsLogged) {
    constexpr std::array kLogs{" User selected to Copy objects into one location folder.",
                               " User selected to Copy objects into multiple location folders.",
                               " User selected to Copy objects up the folder tree.",
                               " User selected to Copy objects into one folder each based on a "
                               "special rule."};
    for (int i = 3; i >= 0; --i) {
        Click(Form().optTo[i]);
        EXPECT_TRUE(HasEntry(kLogs[static_cast<std::size_t>(i)])) << i;
        EXPECT_EQ(Form().optTo.Chosen(), i);
    }
}

TEST_F(DestinationControls, SeveralLocationsAndARuleClearWhatWasTyped) {
    for (const int way : {1, 3}) {
        Form().cmbDir.Text = "E:\\Bk";
        Click(Form().optTo[way]);
        EXPECT_EQ(Form().cmbDir.Text.Get(), "") << way;
    }
}

TEST_F(DestinationControls, OneLocationClearsOnlyWhatIsLeftFromAnotherWay) {
    for (const char* kept : {"E:\\Bk", "\\\\pc\\d", "%Temp%", "/home/ann", "~/Music"}) {
        Form().optTo.Choose(2);
        Form().cmbDir.Text = kept;
        Form().optTo.Choose(2);
        Click(Form().optTo[0]);
        EXPECT_EQ(Form().cmbDir.Text.Get(), kept);
    }
    for (const char* left : {"\\in", "in", ""}) {
        Form().optTo.Choose(2);
        Form().cmbDir.Text = left;
        Form().optTo.Choose(2);
        Click(Form().optTo[0]);
        EXPECT_EQ(Form().cmbDir.Text.Get(), "") << left;
    }
}

TEST_F(DestinationControls, UpTheTreeStartsWithOneLevel) {
    session.state.strAction = "Move";
    Form().cmbDir.Text = "E:\\Bk";
    Form().txtFolderTree.Text = "7";
    Form().lblFolderTree.Caption = "Number of folder names";
    Click(Form().optTo[2]);
    EXPECT_EQ(Form().txtFolderTree.Text.Get(), "1");
    EXPECT_EQ(Form().lblFolderTree.Caption.Get(), "Number of levels to move object up folder tree");
    EXPECT_EQ(Form().cmbDir.Text.Get(), "E:\\Bk");
    EXPECT_FALSE(Form().cmbDir.Visible);
    EXPECT_FALSE(Form().cmdBrowse.Visible);
    EXPECT_TRUE(Form().txtFolderTree.Visible);
    EXPECT_TRUE(Form().chkFolderRename.Visible);
    Click(Form().optTo[0]);
    EXPECT_TRUE(Form().cmbDir.Visible);
    EXPECT_TRUE(Form().cmdBrowse.Visible);
    EXPECT_FALSE(Form().txtFolderTree.Visible);
}

TEST_F(DestinationControls, EachWayGoesBackToTheFirstDuplicateChoice) {
    struct Case {
        const char* action;
        bool isAutomatic;
        const char* choice;
    };
    for (const Case& c : {Case{"Copy", false, "chkAsk "}, Case{"Move", false, "chkAsk "},
                          Case{"Copy", true, "chkRename "}, Case{"Move", true, "chkSkipAll "}}) {
        session.state.strAction = c.action;
        session.state.options.blnAutoMode = c.isAutomatic;
        Form().optTo.Choose(2);
        Click(Form().chkOverWrite);
        Form().optTo.Choose(2);
        Click(Form().optTo[0]);
        EXPECT_EQ(DuplicateChoice(), c.choice) << c.action << c.isAutomatic;
        Form().chkOverWrite.Value = 0;
    }
}

// ---- what the box takes ----

TEST_F(DestinationControls, TheBoxRefusesKeysThatNoPathHas) {
    for (const char key : std::string_view("/\"?<>")) {
        EXPECT_FALSE(TakesKey(key, false)) << key;
        EXPECT_FALSE(TakesKey(key, true)) << key;
    }
    for (const char key : std::string_view("*|")) {
        EXPECT_FALSE(TakesKey(key, false)) << key;
        EXPECT_TRUE(TakesKey(key, true)) << key;
    }
    EXPECT_TRUE(TakesKey('\\', false));
    EXPECT_TRUE(TakesKey(':', false));
    EXPECT_TRUE(TakesKey('%', false));
}

TEST_F(DestinationControls, AWholeTextLosesNoCharacterButTheQuotesAroundIt) {
    for (const char* text : {"E:\\<B>k?*|\\\"ü\"x", "C:\\data/x/y", "/", "~/Music",
                             "file:///home/ann", "/home/ann/What? \"A*B\" <1>"}) {
        Set(Form().cmbDir, text);
        EXPECT_EQ(Form().cmbDir.Text.Get(), text);
    }
    Set(Form().cmbDir, "\"/home/ann\"");
    EXPECT_EQ(Form().cmbDir.Text.Get(), "/home/ann");
    Set(Form().cmbDir, "\"E:\\Bk\"");
    EXPECT_EQ(Form().cmbDir.Text.Get(), "E:\\Bk");
    Set(Form().cmbDir, "\"\"\"");
    EXPECT_EQ(Form().cmbDir.Text.Get(), "");
}

TEST_F(DestinationControls, InANativePathEveryKeyIsTaken) {
    for (const char* path :
         {"/", "/home/ann/What? \"A*B\" <1>", "~/Music", "file:///home/ann", "FILE:/"}) {
        EXPECT_TRUE(TakesKey('/', false, path)) << path;
        EXPECT_TRUE(TakesKey('|', false, path)) << path;
        EXPECT_TRUE(TakesKey('"', true, path)) << path;
    }
    EXPECT_FALSE(TakesKey('/', false, "C:/"));
}

TEST_F(DestinationControls, LevelsAreDigitsOnly) {
    Form().txtFolderTree.Visible = true;
    Set(Form().txtFolderTree, "-1a2 ٣");
    EXPECT_EQ(Form().txtFolderTree.Text.Get(), "12");
}

TEST_F(DestinationControls, BrowsingFillsTheBoxInDriveForm) {
    prompts.Queue("/home/ann/Music");
    Click(Form().cmdBrowse);
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\home\\ann\\Music");
    prompts.Queue("");
    Click(Form().cmdBrowse);
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\home\\ann\\Music") << "cancelled";
}

// ---- duplicates ----

TEST_F(DestinationControls, SettingOneDuplicateChoiceClearsTheOthers) {
    Click(Form().chkSkipAll);
    EXPECT_EQ(DuplicateChoice(), "chkSkipAll ");
    Click(Form().chkOverWrite);
    EXPECT_EQ(DuplicateChoice(), "chkOverWrite ");
    Click(Form().chkRename);
    EXPECT_EQ(DuplicateChoice(), "chkRename ");
}

TEST_F(DestinationControls, TheOneThatIsSetMayBeCleared) {
    Click(Form().chkAsk);
    EXPECT_EQ(DuplicateChoice(), "");
    EXPECT_FALSE(Form().txtRename.Visible);
}

TEST_F(DestinationControls, TheRenameFieldsShowOnlyWhereADuplicateMayBeRenamed) {
    struct Case {
        fields::CheckBox& box;
        bool isShown;
    };
    for (const Case& c : {Case{Form().chkSkipAll, false}, Case{Form().chkRename, true},
                          Case{Form().chkOverWrite, false}, Case{Form().chkAsk, true}}) {
        Click(c.box);
        EXPECT_EQ(Form().chkRenameBeg.Visible.Get(), c.isShown) << c.box.Name();
        EXPECT_EQ(Form().chkRenameEnd.Visible.Get(), c.isShown) << c.box.Name();
        EXPECT_EQ(Form().txtRename.Visible.Get(), c.isShown) << c.box.Name();
    }
}

TEST_F(DestinationControls, TheRenameFieldsStartAtTheEnd) {
    Click(Form().chkRenameBeg);
    EXPECT_EQ(Form().chkRenameEnd.Value.Get(), 0);
    Click(Form().chkRename);
    EXPECT_EQ(Form().chkRenameBeg.Value.Get(), 1) << "they were shown all the time";
    Click(Form().chkSkipAll);
    Click(Form().chkRename);
    EXPECT_EQ(Form().chkRenameBeg.Value.Get(), 0);
    EXPECT_EQ(Form().chkRenameEnd.Value.Get(), 1);
}

TEST_F(DestinationControls, OneOfTwoIsAlwaysSet) {
    for (auto [a, b] : {std::pair{&Form().chkRenameBeg, &Form().chkRenameEnd},
                        std::pair{&Form().chkFindReplace, &Form().chkAdd},
                        std::pair{&Form().chkAddBeg, &Form().chkAddEnd}}) {
        ShowRenameFields(session);
        Set(*a, "1");
        EXPECT_EQ(b->Value.Get(), 0) << b->Name();
        Set(*a, "0");
        EXPECT_EQ(b->Value.Get(), 1) << b->Name();
        Set(*b, "0");
        EXPECT_EQ(a->Value.Get(), 1) << a->Name();
        Set(*b, "1");
        EXPECT_EQ(a->Value.Get(), 0) << a->Name();
    }
}

// ---- rename ----

TEST_F(DestinationControls, EachRenameModeShowsItsFields) {
    Click(Form().chkFindReplace);
    EXPECT_TRUE(Form().txtFind.Visible);
    EXPECT_TRUE(Form().txtReplace.Visible);
    EXPECT_TRUE(Form().optOnceVsAll[1].Visible);
    EXPECT_FALSE(Form().txtAdd.Visible);
    EXPECT_FALSE(Form().chkAddBeg.Visible);
    EXPECT_FALSE(Form().lblAddEnd.Visible);
    Click(Form().chkAdd);
    EXPECT_FALSE(Form().txtFind.Visible);
    EXPECT_FALSE(Form().optOnceVsAll[0].Visible);
    EXPECT_TRUE(Form().txtAdd.Visible);
    EXPECT_TRUE(Form().lblAddEnd.Visible);
    EXPECT_FALSE(Form().lblAddBeg.Visible);
    Click(Form().chkAddBeg);
    EXPECT_FALSE(Form().lblAddEnd.Visible);
    EXPECT_TRUE(Form().lblAddBeg.Visible);
}

// ---- lists of paths ----

class MultiPaths : public DestinationControls {
  protected:
    MultiPaths() {
        Disk().AddFile("C:\\data\\one.mpl",
                       "E:\\a\\\r\n F:\\ b \r\n\r\n/home/ann\r\n*EOF\r\nZ:\\no");
        Disk().AddFile("C:\\data\\two.MPL", "G:\\c\r\n");
        Disk().AddFile("C:\\data\\other.txt", "H:\\d");
        Disk().AddFolder("C:\\data\\folder.mpl");
        RefreshMultiPathList(session);
        Click(Form().optTo[1]);
    }
    // As the request has them.
    std::vector<std::string> Paths() { return ReadRequest(session).strMultiPath; }
    int Places() { return ReadRequest(session).Places(); }
};

TEST_F(MultiPaths, TheListsOfTheDataFolderAreOffered) {
    EXPECT_THAT(Form().filMultiPath.Items(), ElementsAre("one.mpl", "two.MPL"));
    EXPECT_TRUE(Form().filMultiPath.Visible);
    EXPECT_FALSE(Form().OKButton.Visible) << "no path yet";
}

TEST_F(MultiPaths, AClickLoadsTheListAndShowsIt) {
    Set(Form().filMultiPath, "one.mpl");
    EXPECT_THAT(Paths(), ElementsAre("E:\\a", "F:\\b", "C:\\home\\ann"));
    EXPECT_THAT(Form().lstMulti.Items(), ElementsAre("E:\\a", "F:\\b", "C:\\home\\ann"));
    EXPECT_EQ(Places(), 3);
    EXPECT_THAT(machine.launcher.opened, ElementsAre("C:\\data\\one.mpl"));
    EXPECT_TRUE(Form().OKButton.Visible);
}

TEST_F(MultiPaths, SeveralListsAddUpInTheirOrder) {
    Set(Form().filMultiPath, "two.MPL");
    Set(Form().filMultiPath, "one.mpl");
    EXPECT_THAT(Paths(), ElementsAre("E:\\a", "F:\\b", "C:\\home\\ann", "G:\\c"));
    EXPECT_EQ(machine.launcher.opened.size(), 2U);
}

TEST_F(MultiPaths, AListThatIsChosenNoMoreIsClosedWhereThatCanBeAsked) {
    machine.launcher.canClose = true;
    Set(Form().filMultiPath, "one.mpl");
    Set(Form().filMultiPath, "one.mpl");
    EXPECT_THAT(Paths(), IsEmpty());
    EXPECT_EQ(Places(), 0);
    EXPECT_THAT(machine.launcher.closed, ElementsAre("C:\\data\\one.mpl"));
    EXPECT_EQ(machine.launcher.opened.size(), 1U);
    EXPECT_FALSE(Form().OKButton.Visible);
}

TEST_F(MultiPaths, WhereNoProgramCanBeAskedNothingHappens) {
    Set(Form().filMultiPath, "one.mpl");
    CloseMultiPathInEditor(session);
    EXPECT_THAT(machine.launcher.closed, IsEmpty());
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(MultiPaths, AListThatNoProgramShowsIsLoadedAllTheSame) {
    machine.launcher.refusal = 70;
    Set(Form().filMultiPath, "two.MPL");
    EXPECT_THAT(Paths(), ElementsAre("G:\\c"));
    EXPECT_TRUE(prompts.Records().empty());
    EXPECT_NE(Form().lblStatus.Caption.Get(), "");
}

TEST_F(MultiPaths, ADoubleClickOnThePathsClearsTheChoice) {
    machine.launcher.canClose = true;
    Set(Form().filMultiPath, "one.mpl");
    Set(Form().filMultiPath, "two.MPL");
    session.events.Raise(session, "frmDialog.lstMulti_DblClick");
    EXPECT_THAT(Form().lstMulti.Items(), IsEmpty());
    EXPECT_EQ(Form().filMultiPath.ValueText(), "");
    EXPECT_THAT(Paths(), IsEmpty());
    EXPECT_THAT(machine.launcher.closed, ElementsAre("C:\\data\\one.mpl", "C:\\data\\two.MPL"));
}

TEST_F(MultiPaths, AtMostAThousandPathsAreTaken) {
    std::string text;
    for (int i = 0; i < 1005; ++i) {
        text += "E:\\" + std::to_string(i) + "\r\n";
    }
    Disk().AddFile("C:\\data\\two.MPL", text);
    Set(Form().filMultiPath, "two.MPL");
    EXPECT_EQ(Places(), 1000);
    EXPECT_EQ(Paths().back(), "E:\\999");
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Only the first 1000 locations are used.");
}

TEST_F(MultiPaths, AnotherWayHasOneDestinationAndOffersToGoOn) {
    Click(Form().optTo[0]);
    EXPECT_EQ(Places(), 1);
    EXPECT_TRUE(Form().OKButton.Visible);
    EXPECT_FALSE(Form().filMultiPath.Visible);
}

TEST_F(MultiPaths, AListThatIsGoneIsTold) {
    Disk().Node("C:\\data\\two.MPL")->Detach();
    Set(Form().filMultiPath, "two.MPL");
    EXPECT_THAT(Paths(), IsEmpty());
    EXPECT_EQ(prompts.Records().size(), 1U);
}

} // namespace
} // namespace tarvix::actions
