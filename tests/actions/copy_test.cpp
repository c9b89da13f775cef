#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Copies into one location, without a folder structure, duplicates skipped.
class Copy : public ProgramFixture {
  protected:
    void FindAll(int kind = 0, std::string_view location = "C:\\t") {
        Start();
        WithSubfolders();
        LookForAllAttributes();
        Choose(Form().optFilesVsDirs, kind);
        Search("*", location);
    }
    session::ActionTotals& Totals() { return State().lastAction; }
    void ExpectTotals(int done, int skipped, int failed) {
        EXPECT_EQ(Totals().done, done);
        EXPECT_EQ(Totals().skipped, skipped);
        EXPECT_EQ(Totals().failed, failed);
    }
};

TEST_F(Copy, MakesTheFoldersThatAreMissingAndLogsEverything) {
    Disk().AddFile("C:\\t\\a.txt", "1");
    FindAll();
    CopyAll("C:\\new\\deep");
    EXPECT_EQ(Disk().Content("C:\\new\\deep\\a.txt"), "1");
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "1");
    ExpectTotals(1, 0, 0);
    const std::string log = LogText();
    for (const char* entry :
         {" User selected all files and folders",
          " User clicked on the Copy Button which opened the Action form. ",
          " User selected to Copyobjects to folder: C:\\new\\deep Using One Location",
          " User selected to skip all duplicates at start.", " Created C:\\new",
          " Created C:\\new\\deep", " Copy C:\\t\\a.txt -- to -- C:\\new\\deep\\a.txt "}) {
        EXPECT_TRUE(HasEntry(log, entry)) << entry;
    }
}

TEST_F(Copy, ADuplicateIsSkippedWithoutALogLine) {
    Disk().AddFile("C:\\t\\a.txt", "new");
    Disk().AddFile("C:\\t\\b.txt", "b");
    Disk().AddFile("C:\\d\\a.txt", "old");
    FindAll();
    CopyAll("C:\\d");
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
    EXPECT_EQ(Disk().Content("C:\\d\\b.txt"), "b");
    ExpectTotals(1, 1, 0);
    EXPECT_EQ(LogText().find("Copy C:\\t\\a.txt"), std::string::npos);
}

TEST_F(Copy, ADuplicateThatDiffersInCaseOnlyIsSkipped) {
    Disk().AddFile("C:\\t\\a.txt", "new");
    Disk().AddFile("C:\\d\\A.TXT", "old");
    FindAll();
    CopyAll("C:\\d");
    EXPECT_FALSE(Disk().Node("C:\\d")->Child("a.txt"));
    ExpectTotals(0, 1, 0);
}

TEST_F(Copy, AFolderOfTheSameNameIsADuplicateToo) {
    Disk().AddFile("C:\\t\\a.txt", "new");
    Disk().AddFile("C:\\d\\a.txt\\inside", "x");
    FindAll();
    CopyAll("C:\\d");
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt\\inside"), "x");
    ExpectTotals(0, 1, 0);
}

TEST_F(Copy, OfTwoObjectsOfOneNameTheFirstIsPlaced) {
    Disk().AddFile("C:\\t\\a.txt", "top");
    Disk().AddFile("C:\\t\\sub\\a.txt", "below");
    FindAll();
    CopyAll("C:\\d");
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "top");
    ExpectTotals(1, 1, 0);
}

TEST_F(Copy, AnObjectOntoItselfIsRefusedAndTheOthersGoOn) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddFile("C:\\t\\sub\\b.txt", "b");
    FindAll();
    CopyAll("C:\\T");
    EXPECT_TRUE(WasTold(" User attempted to write object: \r\n\r\nC:\\t\\a.txt\r\n\r\n upon itself "
                        "or to its own subfolder as: \r\n\r\nC:\\T\\a.txt"));
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "a");
    EXPECT_EQ(Disk().Content("C:\\t\\b.txt"), "b");
    ExpectTotals(1, 1, 0);
}

TEST_F(Copy, AFolderIntoItsOwnSubfolderIsRefused) {
    Disk().AddFile("C:\\t\\sub\\b.txt", "b");
    FindAll(3);
    CopyAll("C:\\t\\sub\\deeper");
    EXPECT_TRUE(
        WasTold(" upon itself or to its own subfolder as: \r\n\r\nC:\\t\\sub\\deeper\\sub"));
    EXPECT_FALSE(Disk().Exists("C:\\t\\sub\\deeper"));
    ExpectTotals(0, 1, 0);
}

TEST_F(Copy, ARefusalIsOnlyLoggedInAutomaticMode) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    FindAll();
    State().options.blnAutoMode = true;
    CopyAll("C:\\t");
    EXPECT_FALSE(WasTold("upon itself"));
    EXPECT_TRUE(HasEntry(LogText(), " User attempted to write object: \r\n\r\nC:\\t\\a.txt\r\n\r\n "
                                    "upon itself or to its own subfolder as: "
                                    "\r\n\r\nC:\\t\\a.txt"));
}

TEST_F(Copy, AFolderTakesItsContentAlong) {
    Disk().AddFile("C:\\t\\sub\\x.txt", "x");
    Disk().AddFile("C:\\t\\sub\\deep\\y.txt", "y");
    Start();
    Choose(Form().optFilesVsDirs, 3);
    Search("sub*", "C:\\t");
    CopyAll("C:\\d");
    EXPECT_EQ(Disk().Content("C:\\d\\sub\\x.txt"), "x");
    EXPECT_EQ(Disk().Content("C:\\d\\sub\\deep\\y.txt"), "y");
    EXPECT_EQ(Disk().Content("C:\\t\\sub\\deep\\y.txt"), "y");
}

TEST_F(Copy, ALinkIsCopiedAsALink) {
    Disk().AddFile("C:\\far\\x.txt", "x");
    Disk().AddFolder("C:\\t");
    Disk().AddLink("C:\\t\\link", "C:\\far");
    FindAll(2);
    CopyAll("C:\\d");
    ASSERT_TRUE(Disk().Exists("C:\\d\\link"));
    EXPECT_TRUE(Disk().Node("C:\\d\\link")->IsLink());
    EXPECT_FALSE(Disk().Exists("C:\\d\\x.txt"));
}

TEST_F(Copy, TimesAndAttributesComeAlong) {
    auto& file = Disk().AddFile("C:\\t\\a.txt", "1");
    file.attributes |= platform::kReadOnly;
    file.modified = machine.clock.FromLocal({2001, 2, 3, 4, 5, 6});
    FindAll();
    CopyAll("C:\\d");
    const auto* copy = Disk().Node("C:\\d\\a.txt");
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->modified, machine.clock.FromLocal({2001, 2, 3, 4, 5, 6}));
    EXPECT_NE(copy->attributes & platform::kReadOnly, 0U);
    EXPECT_NE(Disk().Node("C:\\t\\a.txt")->attributes & platform::kReadOnly, 0U);
}

TEST_F(Copy, BlanksNextToSeparatorsAreTakenOutOfTheDestination) {
    Disk().AddFile("C:\\t\\a.txt", "1");
    FindAll();
    CopyAll("C:\\new \\ place\\");
    EXPECT_EQ(Disk().Content("C:\\new\\place\\a.txt"), "1");
    EXPECT_TRUE(HasEntry(LogText(), " Copy C:\\t\\a.txt -- to -- C:\\new\\place\\a.txt "));
}

TEST_F(Copy, ALeadingBlankOfANameIsLost) {
    Disk().AddFile("C:\\t\\ a.txt", "1");
    FindAll();
    CopyAll("C:\\d");
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "1");
}

TEST_F(Copy, TwoNamesThatBecomeOneLoseNothing) {
    Disk().AddFile("C:\\t\\ a.txt", "blank");
    Disk().AddFile("C:\\t\\a.txt", "plain");
    FindAll();
    CopyAll("C:\\d");
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "blank");
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "plain");
    EXPECT_EQ(Disk().Content("C:\\t\\ a.txt"), "blank");
    EXPECT_EQ(Totals().done, 1);
}

TEST_F(Copy, AFullDiskEndsTheLoopAndSaysSo) {
    Disk().AddDrive("E:");
    Disk().SetCapacity("E:", 5);
    Disk().AddFile("C:\\t\\1.txt", "1234");
    Disk().AddFile("C:\\t\\2.txt", "1234");
    Disk().AddFile("C:\\t\\3.txt", "1");
    FindAll();
    CopyAll("E:\\d");
    EXPECT_EQ(Disk().Content("E:\\d\\1.txt"), "1234");
    EXPECT_FALSE(Disk().Exists("E:\\d\\2.txt"));
    EXPECT_FALSE(Disk().Exists("E:\\d\\3.txt")) << "the loop ended";
    ExpectTotals(1, 0, 1);
    EXPECT_TRUE(WasTold("Disk full"));
    EXPECT_TRUE(State().blnErrorOccurred);
}

TEST_F(Copy, AFailingObjectDoesNotStopTheOthers) {
    Disk().AddFile("C:\\t\\1.txt", "1").isUnreadable = true;
    Disk().AddSpecial("C:\\t\\2.pipe");
    Disk().AddFile("C:\\t\\3.txt", "3");
    FindAll();
    CopyAll("C:\\d");
    EXPECT_THAT(Disk().AllFiles(), ::testing::Not(::testing::Contains("C:\\d\\1.txt")));
    EXPECT_EQ(Disk().Content("C:\\d\\3.txt"), "3");
    ExpectTotals(1, 0, 2);
    EXPECT_EQ(Totals().errors.size(), 2U);
    EXPECT_TRUE(State().blnErrorOccurred);
    program.Stop();
    const auto errors = Disk().Content(State().strErrorLogFile).value_or("");
    EXPECT_NE(errors.find(" Object = C:\\t\\1.txt\r\n"), std::string::npos);
    EXPECT_NE(errors.find(" Routine : CopyObject\r\n"), std::string::npos);
}

TEST_F(Copy, AnObjectThatIsGoneMeanwhileIsAFailureOfItsOwn) {
    Disk().AddFile("C:\\t\\1.txt", "1");
    Disk().AddFile("C:\\t\\2.txt", "2");
    FindAll();
    Disk().Node("C:\\t\\1.txt")->Detach();
    CopyAll("C:\\d");
    EXPECT_EQ(Disk().Content("C:\\d\\2.txt"), "2");
    ExpectTotals(1, 0, 1);
}

TEST_F(Copy, AWriteProtectedDriveTakesNothing) {
    Disk().AddDrive("D:", platform::DriveType::kCdRom, "iso9660");
    Disk().AddFile("C:\\t\\1.txt", "1");
    FindAll();
    CopyAll("D:\\d");
    ExpectTotals(0, 0, 1);
    EXPECT_FALSE(Disk().Exists("D:\\d"));
}

TEST_F(Copy, FromAWriteProtectedDriveLeavesItUntouched) {
    Disk().AddDrive("D:", platform::DriveType::kCdRom, "iso9660");
    Disk().AddFile("D:\\t\\1.txt", "1").attributes |= platform::kReadOnly;
    FindAll(0, "D:\\t");
    machine.faults.ResetCounts();
    CopyAll("C:\\d");
    EXPECT_EQ(Disk().Content("C:\\d\\1.txt"), "1");
    EXPECT_EQ(machine.faults.Count("SetAttributes"), 0U);
}

TEST_F(Copy, AStopTakesEffectAtTheNextObject) {
    for (const char* name : {"1", "2", "3", "4"}) {
        Disk().AddFile("C:\\t\\" + std::string(name), name);
    }
    FindAll();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("CopyFile", 2, [this] { Click(S().frmDialog.cmdStop); });
    CopyAll("C:\\d");
    // The first call found no folder and was made again, so the second is still the first object.
    EXPECT_EQ(Disk().Content("C:\\d\\1"), "1") << "the object in hand is finished";
    EXPECT_FALSE(Disk().Exists("C:\\d\\2"));
    EXPECT_FALSE(S().frmDialog.IsShown());
}

TEST_F(Copy, AnotherCopyStartsAfterAStop) {
    Disk().AddFile("C:\\t\\1", "1");
    FindAll();
    State().blnStopAction = true;
    CopyAll("C:\\d");
    EXPECT_EQ(Disk().Content("C:\\d\\1"), "1");
}

TEST_F(Copy, TheListStaysAsItStands) {
    Disk().AddFile("C:\\t\\1", "1");
    FindAll();
    CopyAll("C:\\d");
    EXPECT_THAT(Names(), ElementsAre("1"));
}

} // namespace
} // namespace tarvix::testing
