#include "session/paths/missing_folders.h"
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

TEST_F(MissingFolders, ARefusalIsAskedAboutAndTriedAgainWhenTheUserSaysSo) {
    machine.faults.FailCall("CreateFolder", 1, platform::kPermissionDenied);
    prompts.Queue("Retry");
    const auto result = CreateMissingFolder(S(), "C:\\new\\x.txt", false);
    EXPECT_TRUE(result.blnFolderCreated);
    EXPECT_EQ(result.errorNumber, 0);
    ASSERT_EQ(Told().size(), 1U);
    EXPECT_TRUE(Told()[0].starts_with("CreateMissingFolder has not proceeded as expected."));
    EXPECT_TRUE(Disk().Exists("C:\\new"));
}

TEST_F(MissingFolders, ARefusalThatStandsIsRecordedWithTheFolder) {
    machine.faults.FailPath("C:\\new", platform::kPermissionDenied, "CreateFolder");
    prompts.Queue("Cancel");
    CreateMissingFolder(S(), "C:\\new\\x.txt", false);
    const std::string log = Disk().Content(State().strErrorLogFile).value_or("");
    EXPECT_NE(log.find(" Object = C:\\new\r\n Object Type =  folder \r\n"), std::string::npos);
    EXPECT_NE(log.find(" Routine : CreateMissingFolder\r\n Module Module1\r\n Recovery : 4\r\n"),
              std::string::npos);
}

TEST_F(MissingFolders, AMissingDriveIsRecordedWithoutAPrompt) {
    CreateMissingFolder(S(), "Q:\\new\\x.txt", false);
    EXPECT_TRUE(Told().empty());
    EXPECT_NE(Disk().Content(State().strErrorLogFile).value_or("").find("Error Number = 76\r\n"),
              std::string::npos);
}

TEST_F(MissingFolders, InAutomaticModeARefusalIsOnlyRecorded) {
    State().options.blnAutoMode = true;
    machine.faults.FailAll("CreateFolder", platform::kPermissionDenied);
    const auto result = CreateMissingFolder(S(), "C:\\new\\x.txt", false);
    EXPECT_EQ(result.errorNumber, platform::kPermissionDenied);
    EXPECT_TRUE(Told().empty());
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
