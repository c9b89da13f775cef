#include "results/net_hood.h"
#include "session/paths/env_variables.h"
#include "tests/shortcuts/shortcut_files.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

class LinkColumns : public ProgramFixture {
  protected:
    LinkColumns() {
        Disk().AddFile("C:\\t\\a.lnk", ShortcutBytes("lnk/wine/72_everything.lnk"));
        Disk().AddFile("C:\\t\\b.url", ShortcutBytes("url/handmade/h01_full.url"));
        Disk().AddFile("C:\\t\\c.txt", "text");
    }
    void Find() {
        Start();
        LookForAllAttributes();
        Search("*", "C:\\t");
    }
    void Find(std::string_view target) {
        Start();
        LookForAllAttributes();
        Form().cboTargetPath.Text = std::string(target);
        Search("*.lnk|*.url", "C:\\t");
    }
};

TEST_F(LinkColumns, HoldTheSevenValues) {
    Find();
    EXPECT_THAT(Cells(results::kTargetPath),
                ElementsAre("C:\\Program Files\\App\\app.exe", "http://example.com/x", ""));
    EXPECT_THAT(Cells(results::kTargetArguments), ElementsAre("/open \"a b\" -n 5", "", ""));
    EXPECT_THAT(Cells(results::kWorkingDir), ElementsAre("C:\\Program Files\\App", "", ""));
    EXPECT_THAT(Cells(results::kHotKey), ElementsAre("CTRL+ALT+SHIFT+T", "1652", ""));
    EXPECT_THAT(Cells(results::kWindowStyle), ElementsAre("Maximized", "", ""));
    EXPECT_THAT(Cells(results::kDescription), ElementsAre("Everything set", "", ""));
    EXPECT_THAT(Cells(results::kIconPath), ElementsAre("C:\\Program Files\\App\\app.ico,5",
                                                       "C:\\windows\\system32\\shell32.dll,4", ""));
}

TEST_F(LinkColumns, AreEmptyWhileTheyAreHidden) {
    Start();
    S().blnListItems.fill(false);
    LookForAllAttributes();
    Search("*", "C:\\t");
    EXPECT_THAT(Cells(results::kTargetPath), ElementsAre("", "", ""));
}

TEST_F(LinkColumns, OfAWindowStyleWithoutANameAreEmpty) {
    std::string link = ShortcutBytes("lnk/wine/52_show_1.lnk");
    link[0x3C] = 2;
    Disk().AddFile("C:\\t\\a.lnk", link);
    Find();
    EXPECT_EQ(Cells(results::kWindowStyle)[0], "");
    EXPECT_EQ(Cells(results::kTargetPath)[0], "C:\\windows\\notepad.exe");
}

TEST_F(LinkColumns, OfAnEmptyAddressAreEmptyWithoutAMessage) {
    Disk().AddFile("C:\\t\\b.url", "");
    Find();
    EXPECT_EQ(Cells(results::kHotKey)[1], "");
    EXPECT_EQ(Cells(results::kIconPath)[1], "");
    EXPECT_FALSE(WasTold("ERROR"));
}

TEST_F(LinkColumns, TheFilterLooksInTheTargetInAnyCase) {
    Find("program files\\app");
    EXPECT_THAT(Names(), ElementsAre("a.lnk"));
}

TEST_F(LinkColumns, TheFilterLooksInTheFoldedTargetToo) {
    Disk().AddFolder("C:\\Program Files");
    Start();
    State().options.blnAutoEnvVar = true;
    State().options.envVariables = {{true, "Programs", "C:\\Program Files"}};
    LookForAllAttributes();
    Form().cboTargetPath.Text = "%PROGRAMS%";
    Search("*.lnk|*.url", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("a.lnk"));
    EXPECT_THAT(Cells(results::kTargetPath), ElementsAre("%Programs%\\App\\app.exe"));
    EXPECT_THAT(Cells(results::kWorkingDir), ElementsAre("%Programs%\\App"));
    EXPECT_THAT(Cells(results::kIconPath), ElementsAre("%Programs%\\App\\app.ico,5"));
}

TEST_F(LinkColumns, WorkingFolderAndIconAreUnfoldedByTheirOption) {
    Disk().AddFile("C:\\t\\a.lnk", ShortcutBytes("lnk/wine/38_workdir_env_slash.lnk"));
    Start();
    State().options.blnRemoveEnvVar = true;
    LookForAllAttributes();
    Search("*.lnk", "C:\\t");
    EXPECT_THAT(Cells(results::kWorkingDir), ElementsAre("C:\\home\\ann\\Desktop\\"));
}

// The targets of a place with letters of its own are spelled as that place does.
TEST_F(LinkColumns, BelowAPlaceWithLettersOfItsOwnAreSpelledByIt) {
    Disk().AddFile("C:\\w\\dosdevices\\c\uF03A\\PROGRAM files\\App\\app.EXE", "x");
    Disk().AddFile("C:\\w\\drive\\menu\\a.lnk", ShortcutBytes("lnk/wine/72_everything.lnk"));
    Start();
    LookForAllAttributes();
    Search("*.lnk", "C:\\w\\drive\\menu");
    EXPECT_THAT(Cells(results::kTargetPath), ElementsAre("C:\\PROGRAM files\\App\\app.EXE"));
}

TEST_F(LinkColumns, OfADesktopEntryAreFilled) {
    Disk().AddFile("C:\\t\\d.desktop", "[Desktop Entry]\nExec=a b\nTerminal=true\nComment=c\n");
    Start();
    LookForAllAttributes();
    Search("*.desktop", "C:\\t");
    EXPECT_THAT(Cells(results::kTargetPath), ElementsAre("a"));
    EXPECT_THAT(Cells(results::kTargetArguments), ElementsAre("b"));
    EXPECT_THAT(Cells(results::kWindowStyle), ElementsAre("Terminal"));
    EXPECT_THAT(Cells(results::kDescription), ElementsAre("c"));
}

TEST_F(LinkColumns, OfAFolderShortcutLeadToItsTarget) {
    Disk().AddFile("C:\\h\\NetHood\\share\\target.lnk",
                   ShortcutBytes("lnk/wine/07_unc_share_root.lnk"));
    Disk().AddFile("C:\\h\\NetHood\\Computers Near Me\\target.lnk",
                   ShortcutBytes("lnk/wine/07_unc_share_root.lnk"));
    EXPECT_EQ(results::ResolveNetHood(S(), "C:\\h\\NetHood\\share"), "\\\\srv\\share");
    EXPECT_EQ(results::ResolveNetHood(S(), "C:\\h\\NetHood\\share\\below"),
              "C:\\h\\NetHood\\share\\below");
    EXPECT_EQ(results::ResolveNetHood(S(), "C:\\h\\NetHood\\Computers Near Me"),
              "C:\\h\\NetHood\\Computers Near Me");
    EXPECT_EQ(results::ResolveNetHood(S(), "C:\\h\\NetHood\\none"), "C:\\h\\NetHood\\none");
}

class Folding : public ProgramFixture {
  protected:
    Folding() {
        State().options.blnAutoEnvVar = true;
        State().options.envVariables = {{false, "No", "C:\\a"},
                                        {true, "Sub", "C:\\a\\b"},
                                        {true, "Top", "C:\\a"},
                                        {false, "SystemRoot", "C:\\a\\b"}};
        Disk().AddFolder("C:\\a\\b");
    }
    std::string Folded(std::string_view path, bool prefersRoot = false) {
        return session::ConvertToEnvVar(S(), path, prefersRoot);
    }
};

TEST_F(Folding, TakesTheFirstIncludedVariableThatFits) {
    EXPECT_EQ(Folded("c:\\A\\b\\c"), "%Sub%\\c");
    EXPECT_EQ(Folded("C:\\a\\x"), "%Top%\\x");
    EXPECT_EQ(Folded("C:\\z"), "C:\\z");
    EXPECT_EQ(Folded("C:\\a\\b\\c", true), "%SystemRoot%\\c");
}

TEST_F(Folding, LeavesAddressesVariablesAndOtherDrives) {
    EXPECT_EQ(Folded("file:/a"), "file:/a");
    EXPECT_EQ(Folded("HTTP:/a"), "HTTP:/a");
    EXPECT_EQ(Folded("%Top%\\x"), "%Top%\\x");
    EXPECT_EQ(Folded("Y:\\a"), "Y:\\a");
    EXPECT_EQ(Folded(""), "");
}

TEST_F(Folding, IsOffByItsOption) {
    State().options.blnAutoEnvVar = false;
    EXPECT_EQ(Folded("C:\\a\\b"), "C:\\a\\b");
}

TEST_F(Folding, KnowsTheShortFormsOfFolders) {
    Disk().AddFolder("C:\\a long folder");
    State().options.envVariables = {{true, "Long", "C:\\a long folder"}};
    const auto shortForm = Disk().ShortPath("C:\\a long folder");
    ASSERT_TRUE(shortForm);
    EXPECT_EQ(Folded(*shortForm + "\\x"), "%Long%\\x");
}

} // namespace
} // namespace tarvix::testing
