#include "session/attempt.h"
#include "session/errors.h"
#include "session/unattended_prompts.h"
#include "tests/session/log_session.h"

#include <optional>
#include <ostream>
#include <string_view>

namespace tarvix::testing {
namespace {

using session::ObjectType;

constexpr int kNetworkDenied = -2147024831;
constexpr std::string_view kUnread = "Dir function not performed yet";

constexpr std::string_view kNotFound =
    "Find has failed.\r\n\r\nFile or Folder is most likely already open\r\n"
    "Or has special attributes or security lock.\r\n\r\n"
    "Search folder or destination = C:\\s\\to\r\nPath = C:\\s\r\nFile = a.txt\r\n\r\n"
    "Would you like to retry?";
constexpr std::string_view kBadNameInSearch =
    "Find has failed.\r\n\r\nLikely you need to put in a CD or make network connection.\r\n\r\n"
    "Search folder = C:\\s\\to\r\nPath = C:\\s\r\n File = a.txt\r\n\r\n"
    "Or you do not have security access to this folder or file and it is in a FAT or other "
    "filesystem.\r\n"
    "If it's a network location a net device or pc may be turned off.\r\n"
    "also possible another program may have moved, deleted or renamed it.\r\n\r\n"
    "Would you like to retry?";
constexpr std::string_view kBadNameInDialog =
    "Find has failed.\r\n\r\nYou may not have selected an existing folder or file.\r\n"
    "Or you may be attempting to create a file that has the same name \r\n"
    "as an existant share that is a drive.\r\n\r\n"
    "Destination = C:\\s\\to\r\nPath = C:\\s\r\n File = a.txt\r\n\r\n"
    "Likely you need to put in a CD or make network connection.\r\n"
    "If it's a network location a net device or pc may be turned off.";
constexpr std::string_view kDenied =
    "Find has failed.\r\n\r\nPermission denied on a.txt or C:\\s\\to action not performed.\r\n\r\n"
    "If action was copy folder\\\\file most likely open.\r\n"
    "Also write to device/folder may not be allowed.\r\n"
    "ex. CD/DVD device or full or write protected.";
constexpr std::string_view kNoPath =
    "Find has failed.\r\n\r\nFolder or drive: C:\\s\r\nor  file a.txt\r\n is not valid.\r\n"
    "Or its a folder that contains objects whose path length exceed 259 characters.";
constexpr std::string_view kNetwork =
    "Find has failed.\r\n\r\n"
    "I have seen this error when attempting to write to a CD on a network.\r\n\r\n"
    "Search folder = C:\\s\\to\r\nPath = C:\\s\r\n File = a.txt\r\n\r\n"
    "If it's a network location a net device or pc may be turned off.";
constexpr std::string_view kUnexpected =
    "Find has failed.\r\n\r\n\r\n\r\nERROR CODE:  11\r\nERROR DESC:  why\r\n"
    "Time: 11/15/2026 7:54:52 PM\r\n\r\nLOCATION:  frmSearch - Find\r\n\r\n"
    "Object : a.txt\r\nPath : C:\\s\r\nSearch Folder or Destination: C:\\s\\to\r\n"
    "Type:  file \r\n\r\nOK returns you to the active form.";
constexpr std::string_view kPastEnd =
    "*EOF missing from end of text file: \r\n\r\na.txt\r\n\r\n, system files will be corrected "
    "upon proper program exit.";

// One error of one module, how it is answered, and what must come of it.
struct Case {
    const char* name;
    int number;
    std::string_view module;
    const char* answer; // null: nobody is asked
    int recovery;
    std::string_view title = "";
    int style = 0;
    std::string_view text = "";
    bool isAutomatic = false;
    std::string_view object = "a.txt";
    bool isRecorded = true;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

const Case kCases[] = {
    {"53 Yes", 53, "frmSearch", "Yes", 2, "File not found", 308, kNotFound},
    {"53 No", 53, "frmDialog", "No", 4, "File not found", 308, kNotFound},
    {"53 automatic", 53, "Module1", nullptr, 4, "", 0, "", true},
    {"52 search Yes", 52, "frmSearch", "Yes", 2, "Bad File or Folder Name", 308, kBadNameInSearch},
    {"52 search No", 52, "frmSearch", "No", 4, "Bad File or Folder Name", 308, kBadNameInSearch},
    {"52 search automatic", 52, "frmSearch", nullptr, 4, "", 0, "", true},
    {"52 search unread automatic", 52, "frmSearch", nullptr, 5, "", 0, "", true, kUnread},
    {"52 dialog", 52, "frmDialog", "OK", 1, "Bad File or Folder Name", 48, kBadNameInDialog},
    {"52 dialog automatic", 52, "frmDialog", nullptr, 1, "", 0, "", true},
    {"70 Cancel", 70, "frmDialog", "Cancel", 4, "Permission denied", 53, kDenied},
    {"70 automatic", 70, "frmSearch", nullptr, 4, "", 0, "", true},
    {"70 Retry", 70, "Module1", "Retry", 2, "Permission denied", 53, kDenied, false, "a.txt",
     false},
    {"75", 75, "frmDialog", nullptr, 4},
    {"76 dialog", 76, "frmDialog", "OK", 4, "Path not found", 48, kNoPath},
    {"76 dialog automatic", 76, "frmDialog", nullptr, 4, "", 0, "", true},
    {"76 elsewhere", 76, "frmSearch", nullptr, 4},
    {"network", kNetworkDenied, "Module1", "OK", 4, "Automation error - Network access is denied",
     48, kNetwork},
    {"network automatic", kNetworkDenied, "Module1", nullptr, 4, "", 0, "", true},
    {"62 HTML", 62, "RenameFromHTMLSearch", nullptr, 4},
    {"62 options", 62, "OpenOptionFile", nullptr, 4},
    {"62 elsewhere", 62, "frmDialog", "OK", 1, "Tarvix", 0, kPastEnd},
    {"62 automatic", 62, "frmDialog", nullptr, 1, "", 0, "", true},
    {"other", 11, "frmSearch", "OK", 1, "Client Error Message", 16, kUnexpected},
    {"other automatic", 11, "frmSearch", nullptr, 1, "", 0, "", true},
};

class ErrorTable : public LogSession, public ::testing::WithParamInterface<Case> {};

TEST_P(ErrorTable, AnswersAsksAndRecords) {
    const Case& c = GetParam();
    State().options.blnAutoMode = c.isAutomatic;
    State().lngErrNumber = c.number;
    State().strErrDesc = "why";
    State().strMessage = "Find has failed.";
    State().intRecovery = 99;
    if (c.answer) prompts.Queue(c.answer);
    HandleError(session, {.routine = "Find",
                          .moduleName = c.module,
                          .object = c.object,
                          .path = "C:\\s",
                          .searchOrDestination = "C:\\s\\to",
                          .objectType = ObjectType::kFile});
    EXPECT_EQ(State().intRecovery, c.recovery);
    ASSERT_EQ(Prompts().size(), c.answer ? 1U : 0U);
    if (c.answer) {
        EXPECT_EQ(Prompts()[0].title, c.title);
        EXPECT_EQ(Prompts()[0].style, c.style);
        EXPECT_EQ(Prompts()[0].text, c.text);
    }
    const std::string record = ErrorLog();
    EXPECT_EQ(record.starts_with("Error Number = " + std::to_string(c.number) + "\r\n"),
              c.isRecorded);
    if (!c.isRecorded) return;
    EXPECT_NE(record.find("\r\n Routine : Find\r\n"), record.npos);
    EXPECT_NE(record.find(" Recovery : " + std::to_string(c.recovery) + "\r\n"), record.npos);
    EXPECT_EQ(State().strMessage, "");
}

INSTANTIATE_TEST_SUITE_P(All, ErrorTable, ::testing::ValuesIn(kCases));

class Errors : public LogSession {
  protected:
    void Handle(int number, std::string_view module, std::string_view object = "a.txt",
                std::string_view routine = "Find") {
        State().lngErrNumber = number;
        State().strErrDesc = "why";
        State().strMessage = std::string(routine) + " has failed.";
        HandleError(session, {.routine = routine,
                              .moduleName = module,
                              .object = object,
                              .path = "C:\\s",
                              .searchOrDestination = "C:\\s\\to",
                              .objectType = ObjectType::kFile});
    }
    std::size_t Files() { return Disk().AllFiles().size(); }
};

TEST_F(Errors, ARecordHoldsItsLinesInOrder) {
    session::ReportError(session, {53, "not there"},
                         {.routine = "Find",
                          .moduleName = "frmSearch",
                          .object = "a.txt",
                          .path = "C:\\s",
                          .searchOrDestination = "C:\\s\\to",
                          .objectType = ObjectType::kFolder},
                         4, "Find has failed.");
    EXPECT_EQ(ErrorLog(), "Error Number = 53\r\n"
                          "Error Desc: not there\r\n"
                          " Time: 11/15/2026 7:54:52 PM\r\n"
                          " Search or Desination = C:\\s\\to\r\n"
                          " Object = a.txt\r\n"
                          " Object Type =  folder \r\n"
                          " Path = C:\\s\r\n"
                          " Routine : Find\r\n"
                          " Module frmSearch\r\n"
                          " Recovery : 4\r\n"
                          " Message : Find has failed.\r\n"
                          "\r\n");
}

TEST_F(Errors, ARecordTellsTheFourTypes) {
    const std::pair<ObjectType, const char*> types[] = {{ObjectType::kFolder, " folder "},
                                                        {ObjectType::kFile, " file "},
                                                        {ObjectType::kNoType, " no type"},
                                                        {ObjectType::kUnknown, " unknown"}};
    std::string before;
    for (const auto& [type, text] : types) {
        session::ReportError(session, {.number = 5}, {.objectType = type}, 0, "");
        const std::string added = ErrorLog().substr(before.size());
        EXPECT_NE(added.find("\r\n Object Type = " + std::string(text) + "\r\n"), added.npos);
        before += added;
    }
}

TEST_F(Errors, NothingIsRecordedUnlessTheErrorLogIsOn) {
    State().strErrorLogOn = "No";
    Handle(75, "frmDialog");
    EXPECT_EQ(ErrorLog(), "");
}

TEST_F(Errors, ARecordDoesNotAskForTheOptionOfTheErrorLog) {
    State().options.blnErrorLog = false;
    Handle(75, "frmDialog");
    EXPECT_NE(ErrorLog(), "");
}

TEST_F(Errors, BadNamesLeaveNoRecordAndNoPromptWhileSecurityWarningsAreSkipped) {
    State().options.blnSkipNTFS = true;
    Handle(52, "frmSearch");
    EXPECT_EQ(State().intRecovery, 4);
    Handle(52, "frmSearch", kUnread);
    EXPECT_EQ(State().intRecovery, 5);
    EXPECT_TRUE(Prompts().empty());
    EXPECT_EQ(ErrorLog(), "");
}

TEST_F(Errors, SkippingSecurityWarningsSilencesNoOtherModuleAndNoOtherError) {
    State().options.blnSkipNTFS = true;
    prompts.Queue("OK");
    Handle(52, "frmDialog");
    EXPECT_EQ(Prompts().size(), 1U);
    EXPECT_EQ(ErrorLog(), "") << "the record is left out all the same";
    prompts.Queue("No");
    Handle(53, "frmSearch");
    EXPECT_EQ(Prompts().size(), 2U);
    EXPECT_NE(ErrorLog(), "");
}

TEST_F(Errors, ABadNameWhileSearchFoldersAreParsedIsAlwaysAskedAbout) {
    State().options.blnSkipNTFS = State().options.blnAutoMode = true;
    prompts.Queue("No");
    Handle(52, "frmSearch", "a.txt", "ParseSearchFolder");
    EXPECT_EQ(Prompts().size(), 1U);
    EXPECT_EQ(State().intRecovery, 4);
}

TEST_F(Errors, NoToARetryOfAnObjectNotReadYetSkipsIt) {
    prompts.Queue("No");
    Handle(52, "frmSearch", kUnread);
    EXPECT_EQ(State().intRecovery, 5);
    prompts.Queue("Yes");
    Handle(52, "frmSearch", kUnread);
    EXPECT_EQ(State().intRecovery, 2);
}

TEST_F(Errors, ABadNameOnAnNtfsDriveSaysSo) {
    Disk().AddDrive("E:", platform::DriveType::kFixed, "ntfs3");
    prompts.Queue("No");
    State().lngErrNumber = 52;
    State().strMessage = "Find has failed.";
    HandleError(session, {.routine = "Find",
                          .moduleName = "frmSearch",
                          .object = "a.txt",
                          .path = "e:\\s",
                          .searchOrDestination = "E:\\",
                          .objectType = ObjectType::kFile});
    EXPECT_NE(Prompts()[0].text.find("to this folder or file and it is in a NTFS filesystem.\r\n"),
              std::string::npos);
}

TEST_F(Errors, ABadNameOnADriveThatIsNotThereSaysNothingOfItsFileSystem) {
    prompts.Queue("No");
    State().lngErrNumber = 52;
    State().strMessage = "Find has failed.";
    HandleError(session, {.routine = "Find",
                          .moduleName = "frmSearch",
                          .object = "a.txt",
                          .path = "Q:\\s",
                          .searchOrDestination = "Q:\\",
                          .objectType = ObjectType::kFile});
    EXPECT_NE(Prompts()[0].text.find("to this folder or file\r\n"), std::string::npos);
}

TEST_F(Errors, ABadNameInASharedRoutineGoesOnOnlyForTheDefaultSearchFolders) {
    State().intRecovery = 7;
    Handle(52, "Module1");
    EXPECT_EQ(State().intRecovery, 7) << "left as it was";
    Handle(52, "Module1", "a.txt", "ParseDefSearchFolder");
    EXPECT_EQ(State().intRecovery, 3);
    EXPECT_TRUE(Prompts().empty());
    EXPECT_NE(ErrorLog().find(" Recovery : 3\r\n"), std::string::npos);
}

TEST_F(Errors, TheMissingEndOfATextFileIsLogged) {
    State().options.blnAutoMode = true;
    Handle(62, "frmDialog", "C:\\list.txt");
    EXPECT_EQ(ActionLog().substr(0, ActionLog().find("\r\n")),
              "11/15/2026 19:54:52 *EOF missing from end of text file: C:\\list.txt, ended "
              "reading.");
    EXPECT_NE(ErrorLog().find(" Message : Find has failed.\r\n"), std::string::npos);
}

TEST_F(Errors, AReaderThatExpectsTheEndLogsNothing) {
    Handle(62, "OpenOptionFile");
    EXPECT_EQ(ActionLog(), "");
    EXPECT_NE(ErrorLog(), "");
}

TEST_F(Errors, ARetryAfterPermissionDeniedKeepsTheMessageAndLeavesNoRecord) {
    prompts.Queue("Retry");
    Handle(70, "frmDialog");
    EXPECT_EQ(State().strMessage, Prompts()[0].text);
    EXPECT_EQ(Prompts()[0].title, "Permission denied");
    EXPECT_EQ(ErrorLog(), "");
}

TEST_F(Errors, APathNotFoundElsewhereIsRecordedWithItsPlainMessage) {
    Handle(76, "frmSearch");
    EXPECT_NE(ErrorLog().find(" Message : Find has failed.\r\n"), std::string::npos);
}

TEST_F(Errors, TheRecordTakesTheRoutineFromTheContextAndNotFromTheMessage) {
    State().lngErrNumber = 75;
    State().strMessage = "Find";
    HandleError(session, {.moduleName = "frmDialog"});
    EXPECT_NE(ErrorLog().find("\r\n Routine : \r\n"), std::string::npos);
    EXPECT_NE(ErrorLog().find("\r\n Message : Find\r\n"), std::string::npos);
}

TEST_F(Errors, AnUnexpectedErrorKeepsACopyOfTheErrorLogUnderItsOddName) {
    State().options.blnAutoMode = true;
    Handle(11, "frmSearch");
    const auto copy =
        Disk().Content("C:\\data\\TXProgramError._unexpected_error_11.15.26_19.54.52.log");
    ASSERT_TRUE(copy);
    EXPECT_EQ(*copy, Disk().Content("C:\\data\\TXProgramError.log"));
    EXPECT_NE(copy->find("Error Number = 11\r\n"), std::string::npos);
}

TEST_F(Errors, AnExpectedErrorKeepsNoCopy) {
    State().options.blnAutoMode = true;
    const std::size_t before = Files();
    for (const int number : {52, 53, 62, 70, 75, 76, kNetworkDenied}) {
        Handle(number, "frmSearch");
    }
    EXPECT_EQ(Files(), before);
}

TEST_F(Errors, ACopyThatFailsIsToldAndTheRunGoesOn) {
    machine.faults.FailAll("CopyFile", 61);
    prompts.Queue("OK");
    prompts.Queue("OK");
    Handle(11, "frmSearch");
    EXPECT_EQ(Prompts().back().text, "error happened in HandleError****");
    EXPECT_EQ(State().intRecovery, 1);
    EXPECT_EQ(State().strMessage, "");
}

TEST_F(Errors, AnUnexpectedErrorIsRecordedWithAllThatWasTold) {
    State().options.blnAutoMode = true;
    Handle(11, "frmSearch");
    EXPECT_NE(ErrorLog().find(" Message : " + std::string(kUnexpected) + "\r\n"),
              std::string::npos);
}

TEST_F(Errors, TheLastLineOfAnUnexpectedErrorDependsOnWhereItHappened) {
    const auto lastLine = [this](std::string_view module, std::string_view routine) {
        State().options.blnAutoMode = true;
        std::string message;
        session::UIErrorMsg(session, {.number = 5}, {.routine = routine, .moduleName = module},
                            message);
        return message.substr(message.rfind('\n') + 1);
    };
    EXPECT_EQ(lastLine("frmDialog", "Find"), "OK returns you to the active form.");
    EXPECT_EQ(lastLine("basGlobal", "StartApp"), "OK returns you to the Windows Desktop.");
    EXPECT_EQ(lastLine("basGlobal", "Find"), "OK returns you to the active from.");
}

TEST_F(Errors, AnErrorThatMustNotStopTheRunIsToldAndRecordedForTheFile) {
    prompts.Queue("OK");
    session::TellUnexpected(session, {61, "the disk is full"}, "SaveOptionFile", "C:\\o.txt");
    EXPECT_EQ(Prompts()[0].text, "unexpected error 61 the disk is full");
    const std::string record = ErrorLog();
    EXPECT_NE(record.find(" Search or Desination = C:\\o.txt\r\n Object = \r\n"
                          " Object Type =  file \r\n Path = \r\n Routine : SaveOptionFile\r\n"
                          " Module Module1\r\n Recovery : 0\r\n"
                          " Message : unexpected error 61 the disk is full\r\n"),
              record.npos)
        << record;
}

TEST_F(Errors, AnErrorThatMustNotStopTheRunIsOnlyRecordedInAutomaticMode) {
    State().options.blnAutoMode = true;
    session::TellUnexpected(session, {61, "full"}, "SaveOptionFile", "C:\\o.txt");
    EXPECT_TRUE(Prompts().empty());
    EXPECT_NE(ErrorLog(), "");
}

// A window that gives an answer which the question doesn't offer.
class OddPrompts : public session::UnattendedPrompts {
  public:
    int MsgBox(const session::Prompt&) override { return session::kCancel; }
};

TEST(ErrorsOddAnswer, OnlyAMissingFileTellsItFromNo) {
    platform::MemoryPlatform machine;
    OddPrompts prompts;
    session::Session session{machine.platform, prompts};
    session.state.options.blnSkipNTFS = false;
    constexpr std::pair<int, int> kExpected[] = {{53, 6}, {52, 4}, {70, 4}, {11, 1}};
    for (const auto& [number, recovery] : kExpected) {
        const session::ErrorContext context{.routine = "Find", .moduleName = "frmSearch"};
        EXPECT_EQ(HandleError(session, {number, "why"}, context), recovery) << number;
    }
}

// Statements of a routine that run under its error rule.
class Attempts : public LogSession {
  protected:
    session::Attempted<int> Try(std::string_view module = "frmSearch") {
        return session::Attempt(
            session, {.routine = "Find", .moduleName = module, .object = "a.txt", .path = "C:\\s"},
            [this]() -> platform::Result<int> {
                if (++runs > static_cast<int>(errors.size())) return 42;
                const int error = errors[static_cast<std::size_t>(runs - 1)];
                return platform::Failure(error, "why");
            });
    }
    std::vector<int> errors; // of the first runs
    int runs = 0;
};

TEST_F(Attempts, ASuccessIsNeitherAskedAboutNorRecorded) {
    const auto attempted = Try();
    ASSERT_TRUE(attempted);
    EXPECT_EQ(*attempted.result, 42);
    EXPECT_EQ(attempted.recovery, 0);
    EXPECT_EQ(ErrorLog(), "");
}

TEST_F(Attempts, ARetryRunsTheStatementAgainUntilItSucceeds) {
    errors = {70, 53};
    prompts.Queue("Retry");
    prompts.Queue("Yes");
    EXPECT_TRUE(Try());
    EXPECT_EQ(runs, 3);
}

TEST_F(Attempts, ARefusedRetryComesBackAsItsRecovery) {
    errors = {70, 70};
    prompts.Queue("Retry");
    prompts.Queue("Cancel");
    const auto attempted = Try();
    EXPECT_FALSE(attempted);
    EXPECT_EQ(attempted.recovery, 4);
    EXPECT_EQ(attempted.ErrorNumber(), 70);
}

TEST_F(Attempts, TheMessageIsTheRoutineABlankAndItsSentence) {
    errors = {75};
    EXPECT_FALSE(Try());
    EXPECT_NE(ErrorLog().find(" Message : Find has not proceeded as expected.\r\n"),
              std::string::npos);
}

TEST_F(Attempts, ARuleThatDecidesNothingDoesNotRepeatAnOldRetry) {
    errors = {53};
    prompts.Queue("Yes");
    EXPECT_TRUE(Try());
    ASSERT_EQ(State().intRecovery, 2);
    errors = {52, 52, 52};
    runs = 0;
    const auto attempted = Try("Module1");
    EXPECT_FALSE(attempted);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(attempted.recovery, 0);
}

TEST_F(Attempts, ARuleOfTheRoutineItselfComesFirst) {
    errors.assign(3, 76);
    const auto attempted = session::Attempt(
        session, {.routine = "Find", .moduleName = "frmSearch"},
        [this]() -> platform::Result<int> {
            ++runs;
            return platform::Failure(76, "why");
        },
        [](const platform::PlatformError& error) {
            return error.number == 76 ? std::optional<int>(session::kRecoveryNext) : std::nullopt;
        });
    EXPECT_EQ(attempted.recovery, 3);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(ErrorLog(), "");
}

} // namespace
} // namespace tarvix::testing
