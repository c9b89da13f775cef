#include "search/browse.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

class Browse : public ProgramFixture {
  protected:
    Browse() {
        Start();
        Set(Form().cmbDir, "C:\\old");
    }
    // A click on Browse in one of the four modes, with the answer of its picker.
    std::string After(int mode, const std::string& answer) {
        Choose(Form().optBrowse, mode);
        prompts.Queue(answer);
        Click(Form().cmdBrowse);
        return Form().cmbDir.Text;
    }
};

TEST_F(Browse, APathReplacesTheBox) {
    EXPECT_EQ(After(0, "C:\\new"), "C:\\new");
}

TEST_F(Browse, AnAddedPathStandsBehindABar) {
    EXPECT_EQ(After(1, "C:\\new"), "C:\\old|C:\\new");
}

TEST_F(Browse, AnAddedPathAloneInAnEmptyBox) {
    Click(Form().cmdClearFolders);
    EXPECT_EQ(After(1, "C:\\new"), "C:\\new");
}

TEST_F(Browse, ACancelledPickerLeavesTheBox) {
    EXPECT_EQ(After(0, ""), "C:\\old");
}

TEST_F(Browse, AListReplacesTheBoxByItsLinesUpToItsEndMark) {
    Disk().AddFile("C:\\l.mpl", "C:\\a\r\nC:\\b\r\n*EOF\r\nC:\\c\r\n");
    EXPECT_EQ(After(2, "C:\\l.mpl"), "C:\\a|C:\\b");
}

TEST_F(Browse, AnAddedListWithoutEndMarkIsReadToItsEnd) {
    Disk().AddFile("C:\\l.mpl", "C:\\a\nC:\\b");
    EXPECT_EQ(After(3, "C:\\l.mpl"), "C:\\old|C:\\a|C:\\b");
}

TEST_F(Browse, NativePathsInAListAreTaken) {
    Disk().AddFile("C:\\l.mpl", "/home/ann/Music\r\n*EOF");
    EXPECT_EQ(After(2, "C:\\l.mpl"), "C:\\home\\ann\\Music");
}

TEST_F(Browse, AListThatCantBeReadIsToldAndLeavesTheBox) {
    EXPECT_EQ(After(2, "C:\\missing.mpl"), "C:\\old");
    EXPECT_TRUE(WasTold("The list can't be read: "));
}

TEST_F(Browse, AFileListOfOtherNamesIsOffered) {
    (void)After(2, "");
    EXPECT_EQ(prompts.Records().back().kind, session::PromptKind::kFile);
    (void)After(0, "");
    EXPECT_EQ(prompts.Records().back().title, "Select folder");
}

TEST_F(Browse, DroppedFoldersListsAndFilesAreAddedAsFolders) {
    Disk().AddFolder("C:\\new folder");
    Disk().AddFile("C:\\l.mpl", "C:\\a\r\n/home/ann/Music\r\n*EOF");
    Disk().AddFile("C:\\docs\\x.txt");
    search::DropLocations(S(), {"file:///new%20folder", "/l.mpl", "C:\\docs\\x.txt", "/missing"});
    EXPECT_EQ(Form().cmbDir.Text.Get(),
              "C:\\old|C:\\new folder|C:\\a|C:\\home\\ann\\Music|C:\\docs");
}

TEST_F(Browse, ADroppedFolderStandsAloneInAnEmptyBox) {
    Disk().AddFolder("C:\\d");
    Click(Form().mnuBrowse_ClearNow);
    search::DropLocations(S(), {"/d"});
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\d");
}

TEST_F(Browse, TheChosenModeHasItsColourInBothPlaces) {
    Choose(Form().optBrowse, 3);
    for (int i = 0; i < 4; ++i) {
        const fields::Color color = i == 3 ? fields::kRed : fields::kBlack;
        EXPECT_EQ(Form().optBrowse[i].ForeColor.Get(), color);
        EXPECT_EQ(Form().mnuBrowse_Behave[static_cast<std::size_t>(i)].ForeColor.Get(), color);
    }
}

TEST_F(Browse, OptionsAndMenuStayInStep) {
    Click(Form().mnuBrowse_Behave[2]);
    EXPECT_TRUE(Form().optBrowse[2].Value);
    EXPECT_FALSE(Form().mnuBrowse_Behave[0].Checked);
    Choose(Form().optBrowse, 1);
    EXPECT_TRUE(Form().mnuBrowse_Behave[1].Checked);
    EXPECT_FALSE(Form().mnuBrowse_Behave[2].Checked);
}

} // namespace
} // namespace tarvix::testing
