#include "session/lifecycle/startup.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

using fields::WindowState;

class MainWindow : public ProgramFixture {
  protected:
    void Resize(int width, int height, WindowState state = WindowState::kNormal) {
        Form().Width = width;
        Form().Height = height;
        Form().State = state;
        lifecycle::frmSearch_Resize(S());
    }
};

TEST_F(MainWindow, StartsIdleInItsLeastSizeWithItsEntries) {
    Start();
    EXPECT_TRUE(Form().IsShown());
    EXPECT_EQ(Form().Width, 12000);
    EXPECT_EQ(Form().Height, 7450);
    EXPECT_TRUE(Form().Caption.starts_with("Search Form - Tarvix v")) << Form().Caption;
    EXPECT_NE(Form().Caption.find("2026"), std::string::npos);
    EXPECT_EQ(Form().cmbSearchFor.Items(),
              (std::vector<fields::ComboItem>{{"  *.lnk"}, {"  *.mpl"}, {"  *.url"}}));
    EXPECT_EQ(Form().cboSize.Items(),
              (std::vector<fields::ComboItem>{{"At Least", 4}, {"At Most", 2}, {"Range", 1}}));
    EXPECT_EQ(Form().cboDate.Items(),
              (std::vector<fields::ComboItem>{{"Before", 32}, {"Since", 16}, {"Range", 8}}));
    EXPECT_EQ(Form().lblCurrentFolder.ForeColor.Get(), 0xFF0000U);
    EXPECT_EQ(Form().lblSearchFor.ForeColor.Get(), 255U);
    EXPECT_EQ(Form().optBrowse.Chosen(), 0);
    EXPECT_TRUE(Form().mnuTools_CreateMPLfromCombo.Enabled);
    EXPECT_FALSE(Form().mnuActions.Enabled);
    EXPECT_FALSE(Form().fraSelection.Visible);
    EXPECT_EQ(Form().lblNumOfFilesFound.Caption.Get(), "0");
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "");
    EXPECT_EQ(State().intMaxYear, 2046);
}

TEST_F(MainWindow, LoadsTheActionWindowHidden) {
    Start();
    EXPECT_EQ(State().strLastForm, "frmDialog");
    EXPECT_FALSE(S().frmDialog.IsShown());
    EXPECT_FALSE(State().blnPreloadDialog);
}

TEST_F(MainWindow, AVerbForEveryFileNeedsMoreThanOneCharacter) {
    machine.registry.SetClassDefault("*\\shell", "x");
    machine.registry.SetClassDefault("Unknown\\shell", "openas");
    Start();
    EXPECT_FALSE(State().blnStarShell);
    EXPECT_TRUE(State().blnUnknownShell);
}

TEST_F(MainWindow, AScreenOfExactlyTheLeastSizePasses) {
    Start();
    Resize(12000, 7450, WindowState::kMaximized);
    EXPECT_FALSE(State().blnEnded);
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(MainWindow, AMaximisedWindowOneTwipTooSmallEndsTheProgramWithTheMessage) {
    for (const auto& [width, height] : {std::pair{11999, 7450}, std::pair{12000, 7449}}) {
        app::Program other(machine.platform, prompts);
        other.Start("");
        auto& form = other.Session().frmSearch;
        form.Width = width;
        form.Height = height;
        form.State = WindowState::kMaximized;
        lifecycle::frmSearch_Resize(other.Session());
        EXPECT_TRUE(other.Session().state.blnEnded) << width << " by " << height;
        EXPECT_FALSE(form.IsShown());
        EXPECT_EQ(prompts.Records().back().text,
                  " Tarvix is ending as it is to large for this screen size.\r\n\r\n"
                  "800x549 is minimun size required.\r\n\r\n"
                  "Recomend changing settings or turning off any screen partitioning "
                  "software.\r\n\r\n"
                  "1680x1050 or 1600x1200, both work great for tiling Tarvix 2x2.");
    }
}

TEST_F(MainWindow, ANormalWindowThatIsTooSmallIsWidened) {
    Start();
    Resize(300, 9000);
    EXPECT_EQ(Form().Width, 12000);
    EXPECT_EQ(Form().Height, 9000);
    Resize(15000, 10);
    EXPECT_EQ(Form().Width, 15000);
    EXPECT_EQ(Form().Height, 7450);
}

TEST_F(MainWindow, AMinimisedWindowStaysSoButNotDuringABatch) {
    Start();
    Resize(100, 100, WindowState::kMinimized);
    EXPECT_EQ(Form().State, WindowState::kMinimized);
    EXPECT_EQ(Form().Width, 100);
    State().blnAutoMove = true;
    Resize(100, 100, WindowState::kMinimized);
    EXPECT_EQ(Form().State, WindowState::kNormal);
}

TEST_F(MainWindow, ActivationAfterAnActionClearsTheListUnlessTheSearchRepeats) {
    Disk().AddFile("C:\\t\\a.txt");
    Start();
    Search("*", "C:\\t");
    State().blnRedoAfterAction = true;
    lifecycle::frmSearch_Activate(S());
    EXPECT_EQ(program.Rows().Count(), 0U);
    EXPECT_FALSE(State().blnRedoAfterAction);
    EXPECT_FALSE(State().blnRedoNow);
}

TEST_F(MainWindow, ActivationAfterAnActionRepeatsTheSearch) {
    Disk().AddFile("C:\\t\\a.txt");
    Start();
    Search("*", "C:\\t");
    Disk().AddFile("C:\\t\\b.txt");
    Set(Form().chkRepeatSearch, "1");
    State().blnRedoAfterAction = true;
    lifecycle::frmSearch_Activate(S());
    EXPECT_EQ(Names(), (std::vector<std::string>{"a.txt", "b.txt"}));
    EXPECT_FALSE(State().blnRedoAfterAction);
}

TEST_F(MainWindow, ActivationRepeatsOnceWhenTheFormAskedForIt) {
    Disk().AddFile("C:\\t\\a.txt");
    Start();
    Set(Form().chkRepeatSearch, "1");
    Form().cmbDir.Text = "C:\\t";
    State().blnRepeatRequested = true;
    lifecycle::frmSearch_Activate(S());
    EXPECT_EQ(Names(), std::vector<std::string>{"a.txt"});
    EXPECT_FALSE(State().blnRepeatRequested);
    EXPECT_FALSE(State().blnRedoNow);
}

TEST_F(MainWindow, ActivationPutsTheFocusWhereWorkGoesOn) {
    Start();
    lifecycle::frmSearch_Activate(S());
    EXPECT_EQ(Form().Focus, &Form().cmbSearchFor);
    State().blnPlayListMode = true;
    lifecycle::frmSearch_Activate(S());
    EXPECT_EQ(Form().Focus, &Form().chkRepeatSearch);
    State().blnEditTargets = true;
    lifecycle::frmSearch_Activate(S());
    EXPECT_EQ(Form().Focus, &Form().cmdEditTargets);
}

TEST_F(MainWindow, UnloadHidesTheOtherWindowsAndTheTargetBox) {
    Start();
    S().frmDialog.Show();
    Form().cboTargetPath.Text = "x";
    program.Stop();
    EXPECT_FALSE(S().frmDialog.IsShown());
    EXPECT_EQ(Form().cboTargetPath.Text.Get(), "");
    EXPECT_FALSE(Form().mnuTargetPath.Enabled);
    EXPECT_TRUE(State().blnEnded);
}

TEST_F(MainWindow, UnloadDuringASearchEndsTheWalk) {
    for (int i = 0; i < 50; ++i) {
        Disk().AddFile("C:\\t\\f" + std::to_string(i));
    }
    Start();
    S().yielder.After(90, [this] { program.Stop(); });
    Search("*", "C:\\t");
    EXPECT_TRUE(State().blnEnded);
    EXPECT_LT(program.Rows().Count(), 50U);
}

} // namespace
} // namespace tarvix::testing
