#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Crawls in which a folder can't be opened.
class UnreadableFolders : public ProgramFixture {
  protected:
    UnreadableFolders() {
        Disk().AddFile("C:\\t\\a.txt");
        Disk().AddFile("C:\\t\\bad\\b.txt");
        Disk().AddFile("C:\\t\\bad\\deep\\c.txt");
        Disk().AddFile("C:\\t\\good\\d.txt");
    }
    void Crawl(int error, std::string_view folder = "C:\\t\\bad") {
        Start();
        WithSubfolders();
        machine.faults.FailPath(folder, error, "Open");
        Search("*.txt", "C:\\t");
    }
    void AskAboutSecurity() { State().options.blnSkipNTFS = false; }
    std::string ErrorLog() { return Disk().Content(State().strErrorLogFile).value_or(""); }
    std::size_t Records() {
        std::size_t count = 0;
        const std::string log = ErrorLog();
        for (std::size_t at = log.find("Error Number"); at != log.npos;
             at = log.find("Error Number", at + 1)) {
            ++count;
        }
        return count;
    }
};

TEST_F(UnreadableFolders, ADeniedFolderHasNoObjectsAndIsNotTold) {
    Crawl(platform::kPermissionDenied);
    EXPECT_THAT(Names(), ElementsAre("a.txt", "d.txt"));
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_EQ(Records(), 0U);
}

TEST_F(UnreadableFolders, NorIsOneThatVanishedOrWhoseDriveIsNotReady) {
    for (const int error : {53, 57, 71, 76}) {
        machine.faults.ClearFaults();
        Crawl(error);
        EXPECT_THAT(Names(), ElementsAre("a.txt", "d.txt")) << error;
    }
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_EQ(Records(), 0U);
}

TEST_F(UnreadableFolders, ABadNameIsPassedOverWhileSecurityWarningsAreSkipped) {
    Crawl(platform::kBadFileName);
    EXPECT_THAT(Names(), ElementsAre("a.txt", "d.txt"));
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_EQ(Records(), 0U);
}

TEST_F(UnreadableFolders, ABadNameIsAskedAboutWhenSecurityWarningsAreWanted) {
    Start();
    AskAboutSecurity();
    WithSubfolders();
    machine.faults.FailPath("C:\\t\\bad", platform::kBadFileName, "Open");
    prompts.Queue("No");
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "d.txt")) << "the crawl goes on";
    ASSERT_EQ(Told().size(), 1U);
    EXPECT_EQ(prompts.Records()[0].title, "Bad File or Folder Name");
    EXPECT_NE(
        Told()[0].find("Search folder = C:\\t\r\nPath = C:\\t\\bad\r\n File = Dir function not "
                       "performed yet\r\n"),
        std::string::npos)
        << Told()[0];
    EXPECT_NE(ErrorLog().find(" Routine : BuildSubFoldersArray\r\n Module frmSearch\r\n Recovery : "
                              "5\r\n"),
              std::string::npos);
}

TEST_F(UnreadableFolders, ARetryReadsTheFolderAfterAll) {
    Start();
    AskAboutSecurity();
    WithSubfolders();
    machine.faults.ResetCounts();
    Search("*.txt", "C:\\t");
    std::size_t number = 0; // of the call that opens the folder
    for (const auto& call : machine.faults.Calls()) {
        if (call.operation != "Open") continue;
        ++number;
        if (call.path == "C:\\t\\bad") break;
    }
    machine.faults.ResetCounts();
    machine.faults.FailCall("Open", number, platform::kBadFileName);     // ahead
    machine.faults.FailCall("Open", number + 1, platform::kBadFileName); // then at its turn
    prompts.Queue("Yes");
    Click(Form().cmdSearch);
    EXPECT_EQ(Told().size(), 1U);
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt", "d.txt", "c.txt"));
}

TEST_F(UnreadableFolders, ALocationThatCannotBeReadIsToldUnderTheWalkOfTheRoot) {
    Start();
    AskAboutSecurity();
    machine.faults.FailPath("C:\\t", platform::kBadFileName, "Open");
    prompts.Queue("No");
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_NE(ErrorLog().find(" Routine : FindFilesAtRoot\r\n"), std::string::npos);
}

TEST_F(UnreadableFolders, InAutomaticModeABadNameIsRecordedUnasked) {
    Start();
    AskAboutSecurity();
    State().options.blnAutoMode = true;
    WithSubfolders();
    machine.faults.FailPath("C:\\t\\bad", platform::kBadFileName, "Open");
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_EQ(Records(), 1U);
}

TEST_F(UnreadableFolders, OneThatCannotBeReadIsNotEmpty) {
    Disk().AddFolder("C:\\t\\empty");
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 4);
    for (const int error : {platform::kPermissionDenied, platform::kBadFileName}) {
        machine.faults.ClearFaults();
        machine.faults.FailPath("C:\\t\\bad\\deep", error, "Open");
        Search("*", "C:\\t");
        EXPECT_THAT(Names(), ElementsAre("empty")) << error;
    }
}

TEST_F(UnreadableFolders, AFileWhoseFactsCannotBeReadIsNotListedAndNotTold) {
    Start();
    WithSubfolders();
    machine.faults.FailPath("C:\\t\\bad\\b.txt", platform::kPermissionDenied);
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "d.txt", "c.txt"));
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_EQ(Records(), 0U);
}

} // namespace
} // namespace tarvix::testing
