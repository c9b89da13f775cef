#include "session/error_log.h"
#include "session/errors.h"
#include "tests/session/log_session.h"

namespace tarvix::testing {
namespace {

// The error log while it is not open yet.
class ErrorLogFile : public ::testing::Test {
  protected:
    ErrorLogFile() {
        machine.disk.AddFolder("C:\\data");
        State().strErrorLogFile = kName;
        prompts.SetFallback(session::ScriptedPrompts::Fallback::kSafe);
    }
    session::SessionState& State() { return session.state; }
    std::string Content(std::string_view path) { return machine.disk.Content(path).value_or("-"); }
    // Something else that writes the file of that name.
    void Occupy(std::string_view path) {
        machine.disk.AddFile(path, "theirs");
        machine.faults.FailPath(path, platform::kPermissionDenied, "OpenAsTextStream");
    }

    static constexpr const char* kName = "C:\\data\\TXProgramError.log";
    platform::MemoryPlatform machine;
    session::ScriptedPrompts prompts;
    session::Session session{machine.platform, prompts};
};

TEST_F(ErrorLogFile, OpensAndClosesWithItsLines) {
    session.errorLog.Open(session);
    EXPECT_TRUE(session.errorLog.IsOpen());
    EXPECT_EQ(Content(kName), "Opened Error Log at 11/15/2026 7:54:52 PM\r\n\r\n");
    machine.clock.SetNow({2026, 11, 16, 8, 0, 1});
    session.errorLog.Close(session);
    EXPECT_EQ(Content(kName), "Opened Error Log at 11/15/2026 7:54:52 PM\r\n\r\n"
                              "\r\nClosed Error Log at 11/16/2026 8:00:01 AM\r\n");
    EXPECT_FALSE(session.errorLog.IsOpen());
}

TEST_F(ErrorLogFile, IsRewrittenFromTheStartInEveryRun) {
    machine.disk.AddFile(kName, std::string(1000, 'x'));
    session.errorLog.Open(session);
    EXPECT_EQ(Content(kName), "Opened Error Log at 11/15/2026 7:54:52 PM\r\n\r\n");
    EXPECT_EQ(machine.faults.Count("CreateTextFile"), 0U);
}

TEST_F(ErrorLogFile, IsWrittenAtOnceSoThatNothingIsLostByACrash) {
    session.errorLog.Open(session);
    session.errorLog.WriteRaw("record");
    EXPECT_TRUE(Content(kName).ends_with("\r\n\r\nrecord"));
}

TEST_F(ErrorLogFile, TakesAnotherNameWhileASecondCopyOfTheProgramHasIt) {
    Occupy(kName);
    session.errorLog.Open(session);
    EXPECT_EQ(State().strErrorLogFile, "C:\\data\\TXProgramError_1.log");
    EXPECT_TRUE(Content("C:\\data\\TXProgramError_1.log").starts_with("Opened Error Log at "));
    EXPECT_EQ(Content(kName), "theirs");
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(ErrorLogFile, AThirdCopyAddsTheMarkAgain) {
    Occupy(kName);
    Occupy("C:\\data\\TXProgramError_1.log");
    session.errorLog.Open(session);
    EXPECT_EQ(State().strErrorLogFile, "C:\\data\\TXProgramError_1_1.log");
    EXPECT_TRUE(session.errorLog.IsOpen());
}

TEST_F(ErrorLogFile, AFolderThatCannotBeWrittenIsToldOnceAndTheRunGoesOn) {
    machine.faults.FailAll("CreateTextFile", platform::kPermissionDenied);
    session.errorLog.Open(session);
    EXPECT_FALSE(session.errorLog.IsOpen());
    ASSERT_EQ(prompts.Records().size(), 1U);
    EXPECT_TRUE(prompts.Records()[0].text.starts_with("unexpected error 70 "));
    session.errorLog.Close(session);
    EXPECT_EQ(prompts.Records().size(), 1U);
}

TEST_F(ErrorLogFile, AnyOtherErrorIsNotToldInAutomaticMode) {
    State().options.blnAutoMode = true;
    machine.faults.FailAll("CreateTextFile", platform::kDiskFull);
    session.errorLog.Open(session);
    EXPECT_TRUE(prompts.Records().empty());
    EXPECT_EQ(State().strErrorLogFile, kName);
}

TEST_F(ErrorLogFile, RecordsFromBeforeItOpensFollowItsOpeningLine) {
    session::ReportError(session, {.number = 75}, {.routine = "Early"}, 0, "");
    session.errorLog.Open(session);
    EXPECT_TRUE(Content(kName).starts_with(
        "Opened Error Log at 11/15/2026 7:54:52 PM\r\n\r\nError Number = 75\r\n"));
}

TEST_F(ErrorLogFile, AnErrorBeforeItOpensKeepsNoCopyOfIt) {
    State().lngErrNumber = 11;
    State().strMessage = "Early has failed.";
    HandleError(session, {.routine = "Early", .moduleName = "frmSearch"});
    ASSERT_EQ(prompts.Records().size(), 1U) << "the error alone, none about the copy";
    EXPECT_TRUE(machine.disk.AllFiles().empty());
}

TEST_F(ErrorLogFile, AFailedWriteEndsOnlyThatRecord) {
    session.errorLog.Open(session);
    machine.faults.FailCall("Write", machine.faults.Count("Write") + 1, platform::kDiskFull);
    session.errorLog.WriteRaw("lost");
    session.errorLog.WriteRaw("kept");
    EXPECT_TRUE(Content(kName).ends_with("\r\n\r\nkept"));
}

TEST_F(ErrorLogFile, AFailedCloseIsToldAndTheRunGoesOn) {
    session.errorLog.Open(session);
    machine.faults.FailAll("Close", platform::kDiskFull);
    session.errorLog.Close(session);
    ASSERT_EQ(prompts.Records().size(), 1U);
    EXPECT_TRUE(prompts.Records()[0].text.starts_with("unexpected error 61 "));
}

class ActionLogClose : public LogSession {};

TEST_F(ActionLogClose, AFailureIsRecordedUnderItsNameAndTheRunGoesOn) {
    State().options.blnAutoMode = true;
    machine.faults.FailAll("Close", platform::kDiskFull);
    session.log.Close(session);
    EXPECT_NE(ErrorLog().find("\r\n Routine : CloseActionLog\r\n Module Module1\r\n"),
              std::string::npos);
    EXPECT_FALSE(session.log.IsOpen());
}

} // namespace
} // namespace tarvix::testing
