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
    std::vector<std::string> Unread() {
        std::vector<std::string> paths;
        for (const auto& object : State().unread.All()) {
            paths.push_back(object.path);
        }
        return paths;
    }
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

TEST_F(UnreadableFolders, ADeniedFolderHasNoObjectsAndLeavesOneRecord) {
    Crawl(platform::kPermissionDenied);
    EXPECT_THAT(Names(), ElementsAre("a.txt", "d.txt"));
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_EQ(Records(), 1U);
    EXPECT_NE(ErrorLog().find("Error Number = 70\r\n"), std::string::npos);
    EXPECT_NE(ErrorLog().find(" Path = C:\\t\\bad\r\n"), std::string::npos);
    EXPECT_THAT(Unread(), ElementsAre("C:\\t\\bad"));
}

TEST_F(UnreadableFolders, OneWhoseDeviceFailsOrIsNotReadyIsToldAsWell) {
    for (const int error : {57, 71}) {
        machine.faults.ClearFaults();
        Crawl(error);
        EXPECT_THAT(Names(), ElementsAre("a.txt", "d.txt")) << error;
        EXPECT_THAT(Unread(), ElementsAre("C:\\t\\bad")) << error;
    }
    EXPECT_EQ(Records(), 1U) << "of the last run";
}

TEST_F(UnreadableFolders, OneThatVanishedIsNotMissed) {
    for (const int error : {53, 76}) {
        machine.faults.ClearFaults();
        Crawl(error);
        EXPECT_THAT(Names(), ElementsAre("a.txt", "d.txt")) << error;
        EXPECT_THAT(Unread(), IsEmpty()) << error;
    }
    EXPECT_EQ(Records(), 0U);
}

TEST_F(UnreadableFolders, AListingThatBreaksOffIsToldAsOne) {
    Start();
    WithSubfolders();
    machine.faults.FailPath("C:\\t\\bad", 57, "List");
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Unread(), ElementsAre("C:\\t\\bad"));
    EXPECT_EQ(Records(), 1U);
}

TEST_F(UnreadableFolders, EachIsToldOnceHoweverManyStringsLookForIt) {
    Start();
    WithSubfolders();
    machine.faults.FailPath("C:\\t\\bad", 70, "Open");
    machine.faults.FailPath("C:\\t\\good\\d.txt", 70);
    machine.faults.FailPath("C:\\t", 70, "Open");
    Search("*.txt|d*|x.*", "C:\\t");
    EXPECT_THAT(Unread(), ElementsAre("C:\\t"));
    EXPECT_EQ(Records(), 1U);
}

TEST_F(UnreadableFolders, TheStatusLineCountsThemAndOpensTheList) {
    Crawl(platform::kPermissionDenied);
    EXPECT_TRUE(Form().cmdUnread.Visible);
    EXPECT_EQ(Form().cmdUnread.Caption.Get(), "1 object could not be read...");
    prompts.Queue("cmdOK");
    Click(Form().cmdUnread);
    ASSERT_EQ(prompts.Records().size(), 1U);
    EXPECT_EQ(prompts.Records()[0].form, "frmUnread");
    machine.faults.ClearFaults();
    Search("*.txt", "C:\\t");
    EXPECT_FALSE(Form().cmdUnread.Visible);
    EXPECT_THAT(Unread(), IsEmpty());
}

TEST_F(UnreadableFolders, ADeniedFolderIsAskedAboutWhenSecurityWarningsAreWanted) {
    Start();
    AskAboutSecurity();
    WithSubfolders();
    machine.faults.FailPath("C:\\t\\bad", platform::kPermissionDenied, "Open");
    prompts.Queue("Yes");
    prompts.Queue("No");
    Search("*.txt", "C:\\t");
    ASSERT_EQ(Told().size(), 2U);
    EXPECT_EQ(prompts.Records()[0].title, "Bad File or Folder Name");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "d.txt"));
    EXPECT_EQ(Records(), 1U);
}

TEST_F(UnreadableFolders, InAutomaticModeADeniedFolderIsRecordedUnasked) {
    Start();
    AskAboutSecurity();
    State().options.blnAutoMode = true;
    WithSubfolders();
    machine.faults.FailPath("C:\\t\\bad", platform::kPermissionDenied, "Open");
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_EQ(Records(), 1U);
}

TEST_F(UnreadableFolders, WithoutSubfoldersOnlyTheLocationCounts) {
    Start();
    S().blnListItems[results::kFilesInFolder] = true;
    Choose(Form().optFilesVsDirs, 3);
    machine.faults.FailPath("C:\\t\\bad", platform::kPermissionDenied, "Open");
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("bad", "good"));
    EXPECT_THAT(Unread(), IsEmpty());
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

TEST_F(UnreadableFolders, AFileWhoseFactsCannotBeReadIsNotListedButTold) {
    Start();
    WithSubfolders();
    machine.faults.FailPath("C:\\t\\bad\\b.txt", platform::kPermissionDenied);
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "d.txt", "c.txt"));
    EXPECT_THAT(Told(), IsEmpty());
    EXPECT_THAT(Unread(), ElementsAre("C:\\t\\bad\\b.txt"));
    EXPECT_EQ(Records(), 1U);
}

} // namespace
} // namespace tarvix::testing
