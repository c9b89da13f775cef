#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

class OptionMenu : public ProgramFixture {};

TEST_F(OptionMenu, LetsTheSubfoldersBeSelectedAndForbidsIt) {
    Start();
    State().options.blnAllowUserSelectSubfolders = false;
    Form().chkIncludeSubFolders.Enabled = false;
    Click(Form().mnuOptions_AllowUserSelectSubfolders);
    EXPECT_TRUE(State().options.blnAllowUserSelectSubfolders);
    EXPECT_TRUE(Form().chkIncludeSubFolders.Enabled);
    EXPECT_TRUE(Form().mnuOptions_AllowUserSelectSubfolders.Checked);
    Click(Form().mnuOptions_AllowUserSelectSubfolders);
    EXPECT_FALSE(Form().chkIncludeSubFolders.Enabled);
}

TEST_F(OptionMenu, SetsTheSubfoldersForThisRunAndTheNext) {
    Start();
    Click(Form().mnuOptions_DefaultToIncludeSubfolders);
    Click(Form().mnuOptions_AllowUserSelectSubfolders);
    EXPECT_EQ(Form().chkIncludeSubFolders.Value, 1);
    program.Stop();
    session::ScriptedPrompts quiet;
    app::Program next(machine.platform, quiet);
    next.Start("");
    EXPECT_EQ(next.Session().frmSearch.chkIncludeSubFolders.Value, 1);
    EXPECT_TRUE(next.Session().frmSearch.chkIncludeSubFolders.Enabled);
    EXPECT_TRUE(next.Session().frmSearch.mnuOptions_DefaultToIncludeSubfolders.Checked);
    next.Stop();
}

} // namespace
} // namespace tarvix::testing
