#include "session/missing_folders.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

using session::CreateMissingFolder;

class MissingFolders : public ProgramFixture {
  protected:
    MissingFolders() { Start(); }
};

TEST_F(MissingFolders, AllLevelsAreMadeTopmostFirstAndLogged) {
    const auto result = CreateMissingFolder(S(), "C:\\new\\sub\\deep\\file.txt", false);
    EXPECT_TRUE(result.blnFolderCreated);
    EXPECT_FALSE(result.blnFolderAlreadyThere);
    EXPECT_EQ(result.path, "C:\\new\\sub\\deep");
    EXPECT_EQ(result.errorNumber, 0);
    EXPECT_TRUE(Disk().Exists("C:\\new\\sub\\deep"));
    EXPECT_FALSE(Disk().Exists("C:\\new\\sub\\deep\\file.txt"));
    const std::string log = LogText();
    const auto top = log.find(" Created C:\\new\r\n");
    const auto middle = log.find(" Created C:\\new\\sub\r\n");
    const auto bottom = log.find(" Created C:\\new\\sub\\deep\r\n");
    EXPECT_LT(top, middle);
    EXPECT_LT(middle, bottom);
    EXPECT_NE(bottom, std::string::npos);
}

TEST_F(MissingFolders, AFolderPathIsMadeItself) {
    CreateMissingFolder(S(), "C:\\new\\sub", true);
    EXPECT_TRUE(Disk().Exists("C:\\new\\sub"));
}

TEST_F(MissingFolders, OneThatStandsIsLeftAndLogsNothing) {
    const auto result = CreateMissingFolder(S(), "C:\\home\\ann\\x.txt", false);
    EXPECT_FALSE(result.blnFolderCreated);
    EXPECT_TRUE(result.blnFolderAlreadyThere);
    EXPECT_EQ(LogText().find(" Created "), std::string::npos);
}

TEST_F(MissingFolders, BlanksNextToSeparatorsAreTakenOut) {
    CreateMissingFolder(S(), "C:\\new \\ sub\\x.txt", false);
    EXPECT_TRUE(Disk().Exists("C:\\new\\sub"));
}

TEST_F(MissingFolders, ADriveIsNeverMade) {
    const auto result = CreateMissingFolder(S(), "C:\\x.txt", false);
    EXPECT_FALSE(result.blnFolderCreated);
    EXPECT_EQ(result.errorNumber, 0);
}

TEST_F(MissingFolders, AMissingDriveFailsWithoutAnEndlessClimb) {
    const auto result = CreateMissingFolder(S(), "Q:\\new\\sub\\x.txt", false);
    EXPECT_FALSE(result.blnFolderCreated);
    EXPECT_EQ(result.errorNumber, platform::kPathNotFound);
}

TEST_F(MissingFolders, ARefusalInTheMiddleIsTold) {
    machine.faults.FailPath("C:\\new\\sub", platform::kPermissionDenied, "CreateFolder");
    const auto result = CreateMissingFolder(S(), "C:\\new\\sub\\x.txt", false);
    EXPECT_EQ(result.errorNumber, platform::kPermissionDenied);
    EXPECT_FALSE(Disk().Exists("C:\\new\\sub"));
}

TEST_F(MissingFolders, AFullDiskBehindTheFirstLevelLeavesThatLevel) {
    // Tried are "sub", "new", which is made, and "sub" again.
    machine.faults.FailCall("CreateFolder", 3, platform::kDiskFull);
    const auto result = CreateMissingFolder(S(), "C:\\new\\sub\\x.txt", false);
    EXPECT_EQ(result.errorNumber, platform::kDiskFull);
    EXPECT_TRUE(Disk().Exists("C:\\new"));
    EXPECT_FALSE(Disk().Exists("C:\\new\\sub"));
}

TEST_F(MissingFolders, AShareIsNotMadeButFoldersBelowItAre) {
    Disk().AddDrive("\\\\server\\share", platform::DriveType::kNetwork, "cifs");
    const auto result = CreateMissingFolder(S(), "\\\\server\\share\\new\\x.txt", false);
    EXPECT_TRUE(result.blnFolderCreated);
    EXPECT_TRUE(Disk().Exists("\\\\server\\share\\new"));
}

TEST_F(MissingFolders, AFileInTheWayIsTold) {
    Disk().AddFile("C:\\thing");
    const auto result = CreateMissingFolder(S(), "C:\\thing\\sub\\x.txt", false);
    EXPECT_NE(result.errorNumber, 0);
    EXPECT_FALSE(result.blnFolderCreated);
}

TEST_F(MissingFolders, MoreThan100LevelsAreNotMade) {
    std::string path = "C:";
    for (int i = 0; i < 102; ++i) {
        path += "\\a";
    }
    const auto result = CreateMissingFolder(S(), path, true);
    EXPECT_NE(result.errorNumber, 0);
    EXPECT_FALSE(Disk().Exists("C:\\a"));
}

} // namespace
} // namespace tarvix::testing
