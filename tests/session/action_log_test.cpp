#include "session/action_log.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

using session::DashesFor;

TEST(Dashes, AnEmptyTextHasAnEmptyDashLine) {
    EXPECT_EQ(DashesFor(""), "");
}

TEST(Dashes, ThreeCharactersWithALineEndAreUnderlinedByTwo) {
    EXPECT_EQ(DashesFor("a\r\n"), "--");
}

TEST(Dashes, FourCharactersWithALineEndAreUnderlinedByThree) {
    EXPECT_EQ(DashesFor("ab\r\n"), "---");
}

TEST(Dashes, ThreeCharactersWithoutALineEndAreUnderlinedByThree) {
    EXPECT_EQ(DashesFor("abc"), "---");
}

TEST(Dashes, TwoThirdsOfCharactersNotOfBytes) {
    EXPECT_EQ(DashesFor("ä"), "-");
    EXPECT_EQ(DashesFor("äöü\r\näö"), "-----"); // 7 characters: 4.67
}

TEST(Dashes, ALoneLineFeedIsNoLineEnd) {
    EXPECT_EQ(DashesFor("a\nb"), "---");
}

class ActionLogFile : public ProgramFixture {};

TEST_F(ActionLogFile, BearsTheStartTimeAndOpensAndClosesWithItsLines) {
    Start();
    EXPECT_EQ(State().strActionLogFile, "C:\\home\\ann\\tarvix\\TXAction 11.15.26 19.54.52.log");
    EXPECT_EQ(LogText(), "Opened Log at 11/15/2026 7:54:52 PM\r\n\r\n"
                         "Logging is turned on.\r\n\r\n"
                         "\r\nClosed Log at 11/15/2026 7:54:52 PM\r\n");
}

TEST_F(ActionLogFile, AnEntryIsItsLineItsUnderliningAndAnEmptyLine) {
    Start();
    session::LogTimed(S(), " Created C:\\x");
    EXPECT_NE(LogText().find("\r\n\r\n11/15/2026 19:54:52 Created C:\\x\r\n"
                             "--------------------------------\r\n\r\n"),
              std::string::npos);
}

TEST_F(ActionLogFile, PlannedEntriesAreWrittenWithTheNextOneInTheirOrder) {
    Start();
    machine.faults.ResetCounts();
    session::LogPlanned(S(), " C:\\x is queued.");
    session::LogPlanned(S(), " C:\\y is queued.");
    EXPECT_EQ(machine.faults.Count("Flush"), 0u);
    session::LogTimed(S(), " Stopped.");
    EXPECT_EQ(machine.faults.Count("Flush"), 1u);
    EXPECT_NE(LogText().find("11/15/2026 19:54:52 C:\\x is queued.\r\n"
                             "-----------------------------------\r\n\r\n"
                             "11/15/2026 19:54:52 C:\\y is queued.\r\n"
                             "-----------------------------------\r\n\r\n"
                             "11/15/2026 19:54:52 Stopped.\r\n"),
              std::string::npos);
}

TEST_F(ActionLogFile, APlannedEntryThatCannotBeWrittenIsTroubleAtTheFlush) {
    Start();
    session::LogPlanned(S(), " C:\\x is queued.");
    machine.faults.FailAll("Flush", platform::kDiskFull);
    EXPECT_FALSE(State().blnLogFailed);
    S().log.Flush(S());
    EXPECT_TRUE(State().blnLogFailed);
}

TEST_F(ActionLogFile, AnEmptyEntryIsThreeEmptyLines) {
    Start();
    session::WriteToActionLog(S(), "");
    EXPECT_NE(LogText().find("turned on.\r\n\r\n\r\n\r\n\r\n"), std::string::npos);
}

TEST_F(ActionLogFile, WithLoggingOffItHoldsItsOpeningLinesDuringTheRunAndIsRecycledAtItsEnd) {
    Disk().AddFile(machine.environment.programFolder + "\\TXOptionFile.txt",
                   "blnFileLog = False\r\n*EOF\r\n");
    Start();
    session::LogTimed(S(), " Created C:\\x");
    const std::string path = State().strActionLogFile;
    EXPECT_EQ(Disk().Content(path), "Opened Log at 11/15/2026 7:54:52 PM\r\n\r\n"
                                    "Logging is turned off.\r\n\r\n");
    program.Stop();
    EXPECT_FALSE(Disk().Exists(path));
    EXPECT_EQ(machine.bin.Paths(), std::vector<std::string>{path});
    EXPECT_FALSE(WasTold("recycle"));
}

TEST_F(ActionLogFile, WithLoggingOffOneThatCannotBeRecycledStaysUntold) {
    Start();
    State().options.blnFileLog = false;
    machine.bin.SetHasTrash("C:", false);
    program.Stop();
    EXPECT_TRUE(Disk().Exists(State().strActionLogFile));
    EXPECT_TRUE(Told().empty());
}

TEST_F(ActionLogFile, WithLoggingOnItStays) {
    Start();
    program.Stop();
    EXPECT_TRUE(Disk().Exists(State().strActionLogFile));
    EXPECT_TRUE(machine.bin.Paths().empty());
}

TEST_F(ActionLogFile, ASecondSessionWithinOneSecondTakesTheNextOnesName) {
    app::Program second(machine.platform, prompts);
    Start();
    second.Start("");
    EXPECT_EQ(second.Session().state.strActionLogFile,
              "C:\\home\\ann\\tarvix\\TXAction 11.15.26 19.54.53.log");
    EXPECT_EQ(second.Session().state.strErrorLogFile,
              "C:\\home\\ann\\tarvix\\TXProgramError_1.log");
    EXPECT_TRUE(Told().empty());
    second.Stop();
}

TEST_F(ActionLogFile, ASecondLaterItHasAnotherName) {
    app::Program second(machine.platform, prompts);
    Start();
    machine.clock.Advance(1);
    second.Start("");
    EXPECT_EQ(second.Session().state.strActionLogFile,
              "C:\\home\\ann\\tarvix\\TXAction 11.15.26 19.54.53.log");
    second.Stop();
}

TEST_F(ActionLogFile, OneThatCannotBeWrittenIsToldAndTheRunGoesOn) {
    machine.faults.FailAll("CreateTextFile", platform::kPermissionDenied);
    Disk().AddFile("C:\\t\\a.txt");
    Start();
    EXPECT_TRUE(WasTold("unexpected error 70 "));
    Search("*", "C:\\t");
    EXPECT_EQ(Names(), std::vector<std::string>{"a.txt"});
}

TEST_F(ActionLogFile, AWriteThatFailsEndsOnlyThatEntry) {
    Start();
    machine.faults.ResetCounts();
    machine.faults.FailCall("Write", 1, platform::kDiskFull);
    session::LogTimed(S(), " first");
    session::LogTimed(S(), " second");
    const std::string log = LogText();
    EXPECT_FALSE(HasEntry(log, " first"));
    EXPECT_TRUE(HasEntry(log, " second"));
}

TEST_F(ActionLogFile, IsAlwaysANewOne) {
    const std::string taken = "C:\\home\\ann\\tarvix\\TXAction 11.15.26 19.54.52.log";
    Disk().AddFile(taken, "an earlier run's");
    Start();
    EXPECT_EQ(State().strActionLogFile, "C:\\home\\ann\\tarvix\\TXAction 11.15.26 19.54.53.log");
    EXPECT_EQ(Disk().Content(taken), "an earlier run's");
}

TEST_F(ActionLogFile, TheFirstFailedWriteIsToldOnceAtTheNextYield) {
    Start();
    machine.faults.FailAll("Write", platform::kDiskFull);
    session::LogTimed(S(), " first");
    session::LogTimed(S(), " second");
    EXPECT_EQ(TimesTold("A log of this run can't be written: "), 0U);
    S().Yield();
    session::LogTimed(S(), " third");
    S().Yield();
    EXPECT_EQ(TimesTold("A log of this run can't be written: "), 1U);
    EXPECT_TRUE(State().blnLogFailed);
}

TEST_F(ActionLogFile, CarriedCharactersStandAsThemselves) {
    Start();
    session::LogTimed(S(), " C:\\a\uF03Ab");
    EXPECT_NE(LogText().find(" C:\\a:b\r\n"), std::string::npos);
}

class TimeText : public ProgramFixture {};

TEST_F(TimeText, FollowsTheClock) {
    Start();
    EXPECT_EQ(S().TimeText(), "11/15/2026 19:54:52");
    EXPECT_EQ(S().TimeText(), "11/15/2026 19:54:52");
    machine.clock.Advance(1);
    EXPECT_EQ(S().TimeText(), "11/15/2026 19:54:53");
    machine.clock.Advance(24 * 3600 - 1);
    EXPECT_EQ(S().TimeText(), "11/16/2026 19:54:52");
    machine.clock.SetNow({2026, 11, 16, 0, 0, 0});
    EXPECT_EQ(S().TimeText(), "11/16/2026 00:00:00");
}

TEST_F(TimeText, FollowsAClockThatIsSetBack) {
    Start();
    EXPECT_EQ(S().TimeText(), "11/15/2026 19:54:52");
    machine.clock.SetNow({2025, 1, 2, 3, 4, 5});
    EXPECT_EQ(S().TimeText(), "01/02/2025 03:04:05");
    machine.clock.SetNow({2026, 11, 15, 19, 54, 52});
    EXPECT_EQ(S().TimeText(), "11/15/2026 19:54:52");
}

TEST_F(TimeText, StampsEachEntryWithItsOwnTime) {
    Start();
    session::LogTimed(S(), " first");
    machine.clock.Advance(8);
    session::LogTimed(S(), " second");
    session::LogTimed(S(), "");
    machine.clock.Advance(-8);
    session::LogTimed(S(), " third");
    const std::string log = LogText();
    for (const char* entry : {"11/15/2026 19:54:52 first\r\n-------------------------\r\n",
                              "11/15/2026 19:55:00 second\r\n--------------------------\r\n",
                              "11/15/2026 19:55:00\r\n-------------------\r\n",
                              "11/15/2026 19:54:52 third\r\n-------------------------\r\n"}) {
        EXPECT_NE(log.find(entry), std::string::npos) << entry;
    }
}

} // namespace
} // namespace tarvix::testing
