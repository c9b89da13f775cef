#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

class CommandLine : public ProgramFixture {
  protected:
    std::string Locations() { return Form().cmbDir.Text.Get(); }
    std::string Pattern() { return Form().cmbSearchFor.Text.Get(); }
};

TEST_F(CommandLine, NoArgumentLeavesTheDefaultLocation) {
    Start();
    EXPECT_EQ(Locations(), "%UserProfile%\\Documents");
    EXPECT_EQ(Pattern(), "");
}

TEST_F(CommandLine, AFolderBecomesTheLocation) {
    Start("C:\\home\\ann\\Music");
    EXPECT_EQ(Locations(), "C:\\home\\ann\\Music");
    EXPECT_EQ(Pattern(), "");
}

TEST_F(CommandLine, AFinalSlashOfAFolderIsDropped) {
    Start("C:\\home\\ann\\Music\\");
    EXPECT_EQ(Locations(), "C:\\home\\ann\\Music");
}

TEST_F(CommandLine, ANativeFolderIsTakenInDriveForm) {
    Start("/home/ann/Music/");
    EXPECT_EQ(Locations(), "C:\\home\\ann\\Music");
}

TEST_F(CommandLine, AFileBecomesItsFolderAndItsName) {
    Disk().AddFile("C:\\home\\ann\\Music\\a song.mp3");
    Start("C:\\home\\ann\\Music\\a song.mp3");
    EXPECT_EQ(Locations(), "C:\\home\\ann\\Music");
    EXPECT_EQ(Pattern(), "a song.mp3");
}

TEST_F(CommandLine, AFileInADrivesRootBecomesTheDrive) {
    Disk().AddFile("C:\\a.txt");
    Start("C:\\a.txt");
    EXPECT_EQ(Locations(), "C:");
    EXPECT_EQ(Pattern(), "a.txt");
}

TEST_F(CommandLine, AMissingPathLeavesBothBoxesUntouched) {
    Start("C:\\home\\ann\\nowhere");
    EXPECT_EQ(Locations(), "%UserProfile%\\Documents");
    EXPECT_EQ(Pattern(), "");
}

TEST_F(CommandLine, AListIsReadUpToItsEndMark) {
    Disk().AddFile("C:\\home\\ann\\two.mpl", "C:\\a\r\nC:\\b\r\n*EOF\r\nC:\\never\r\n");
    Start("C:\\home\\ann\\two.mpl");
    EXPECT_EQ(Locations(), "|C:\\a|C:\\b");
    EXPECT_EQ(Pattern(), "");
}

TEST_F(CommandLine, AListWithoutAnEndMarkIsReadToItsEnd) {
    Disk().AddFile("C:\\home\\ann\\two.mpl", "C:\\a\r\nC:\\b");
    Start("C:\\home\\ann\\two.mpl");
    EXPECT_EQ(Locations(), "|C:\\a|C:\\b");
}

TEST_F(CommandLine, AListIsKnownByItsExtensionInAnyCase) {
    Disk().AddFile("C:\\home\\ann\\LIST.Mpl", "C:\\a\r\n*EOF");
    Start("/home/ann/LIST.Mpl");
    EXPECT_EQ(Locations(), "|C:\\a");
}

TEST_F(CommandLine, AListOfNativePathsIsTakenInDriveForm) {
    Disk().AddFile("C:\\home\\ann\\l.mpl", "/home/ann/Music\n~/Documents\n*EOF\n");
    Start("C:\\home\\ann\\l.mpl");
    EXPECT_EQ(Locations(), "|C:\\home\\ann\\Music|C:\\home\\ann\\Documents");
}

TEST_F(CommandLine, AFolderNamedLikeAListIsAFolder) {
    Disk().AddFolder("C:\\home\\ann\\folder.mpl");
    Start("C:\\home\\ann\\folder.mpl");
    EXPECT_EQ(Locations(), "C:\\home\\ann\\folder.mpl");
}

TEST_F(CommandLine, ALocationReadFromAListIsSearched) {
    Disk().AddFile("C:\\a\\x.txt");
    Disk().AddFile("C:\\b\\y.txt");
    Disk().AddFile("C:\\home\\ann\\two.mpl", "C:\\a\r\nC:\\b\r\n*EOF");
    Start("C:\\home\\ann\\two.mpl");
    Click(Form().cmdSearch);
    EXPECT_EQ(Names(), (std::vector<std::string>{"x.txt", "y.txt"}));
}

} // namespace
} // namespace tarvix::testing
