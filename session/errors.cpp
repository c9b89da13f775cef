#include "session/errors.h"

#include "platform/file_system.h"
#include "session/action_log.h"
#include "session/error_rules.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/dates.h"
#include "text/format.h"
#include "text/paths.h"

#include <algorithm>
#include <array>

namespace tarvix::session {

namespace {

// The type texts go into records and prompts with their blanks.
std::string_view TypeText(ObjectType type) {
    constexpr std::array<std::string_view, 4> kTexts{" folder ", " file ", " no type", " unknown"};
    return kTexts[static_cast<std::size_t>(type)];
}

// What one call of HandleError is about.
struct Failing {
    std::string_view moduleName;
    std::string_view object;
    std::string_view path;
    std::string_view searchOrDestination;
    ObjectType objectType;
};

std::string FileSystemClause(Session& session, std::string_view path) {
    const std::string root(text::Left(path, 3));
    for (const platform::DriveInfo& drive : session.files().Drives()) {
        if (!text::EqualNoCase(drive.path + "\\", root)) continue;
        return text::Upper(drive.fileSystem).starts_with("NTFS")
                   ? " and it is in a NTFS filesystem."
                   : " and it is in a FAT or other filesystem.";
    }
    return {};
}

std::string ValueOf(Session& session, ErrorValue value, const Failing& failing) {
    switch (value) {
    case ErrorValue::kObject:
        return std::string(failing.object);
    case ErrorValue::kPath:
        return std::string(failing.path);
    case ErrorValue::kSearchOrDestination:
        return std::string(failing.searchOrDestination);
    case ErrorValue::kFileSystem:
        return FileSystemClause(session, failing.path);
    case ErrorValue::kDestFolder:
        return text::ParentFolder(failing.searchOrDestination);
    case ErrorValue::kTypedObject:
        return std::string(TypeText(failing.objectType)).append(failing.object);
    case ErrorValue::kNone:
        break;
    }
    return {};
}

bool Asks(const Session& session, const ErrorRule& rule) {
    const auto& state = session.state;
    switch (rule.prompt) {
    case ErrorPrompt::kNever:
        return false;
    case ErrorPrompt::kUnlessAuto:
        return !state.options.blnAutoMode;
    case ErrorPrompt::kUnlessSkipped:
        return (!state.options.blnAutoMode && !state.options.blnSkipNTFS) ||
               state.strMessage.starts_with("ParseSearchFolder");
    }
    return false;
}

int Decide(const ErrorRule& rule, int answer, std::string_view object) {
    if (answer == kYes || answer == kRetry) return rule.affirmed ? rule.affirmed : rule.recovery;
    if (rule.dismissed != 0 && answer != kNo && answer != 0) return rule.dismissed;
    return rule.unread != 0 && object == kUnreadObject ? rule.unread : rule.recovery;
}

void ApplyRule(Session& session, const ErrorRule& rule, const Failing& failing) {
    auto& state = session.state;
    state.strTitle = rule.title;
    state.intStyle = rule.style;
    state.intAnswer = 0;
    for (const ErrorLine& line : rule.lines) {
        state.strMessage.append(line.text).append(ValueOf(session, line.value, failing));
        state.strMessage.append(line.end);
    }
    if (Asks(session, rule)) {
        state.intAnswer = session.MsgBox(state.strMessage, state.intStyle, state.strTitle);
    }
    state.intRecovery = Decide(rule, state.intAnswer, failing.object);
}

// The end of a text file that lacks its mark.
void ApplyInputPastEnd(Session& session, const Failing& failing) {
    auto& state = session.state;
    if (failing.moduleName == "RenameFromHTMLSearch" || failing.moduleName == "OpenOptionFile") {
        state.intRecovery = kRecoverySkip;
        return;
    }
    const std::string object(failing.object);
    if (!state.options.blnAutoMode) {
        session.MsgBox("*EOF missing from end of text file: \r\n\r\n" + object +
                       "\r\n\r\n, system files will be corrected upon proper program exit.");
    }
    LogTimed(session, " *EOF missing from end of text file: " + object + ", ended reading.");
    state.intRecovery = kRecoveryLeave;
}

// Error 52 while a shared routine runs is never asked about.
void ApplyBadNameInModule(Session& session) {
    if (session.state.strMessage.starts_with("ParseDefSearchFolder")) {
        session.state.intRecovery = kRecoveryNext;
    }
}

void ApplyUnexpected(Session& session, const Failing& failing, std::string_view routine) {
    auto& state = session.state;
    state.strTitle = "Client Error Message";
    state.intStyle = kCritical;
    UIErrorMsg(session, state.lngErrNumber, state.strErrDesc, state.strMessage, failing.moduleName,
               routine, failing.object, failing.path, failing.searchOrDestination,
               failing.objectType);
    state.intRecovery = kRecoveryLeave;
}

// The records of this run would be gone at the next start.
void KeepErrorLog(Session& session) {
    auto& state = session.state;
    const std::string& log = state.strErrorLogFile;
    if (!session.errorLog.IsOpen() || log.size() < 3) return;
    const std::string copy = log.substr(0, log.size() - 3) + "_unexpected_error_" +
                             text::FormatDate(session.Now(), "mm.dd.yy_hh.nn.ss") + ".log";
    if (session.files().CopyFile(log, copy, true, {}) || state.options.blnAutoMode) return;
    session.MsgBox("error happened in HandleError****");
    state.strMessage.clear();
}

std::string RoutineIn(std::string_view message) {
    const std::size_t blank = message.find(' ');
    return std::string(blank == message.npos ? std::string_view() : message.substr(0, blank));
}

} // namespace

void ReportError(Session& session, int errNumber, std::string_view errDesc,
                 std::string_view routine, std::string_view moduleName, std::string_view object,
                 std::string_view path, int recovery, std::string_view message,
                 std::string_view searchOrDestination, ObjectType objectType) {
    const auto& state = session.state;
    if (errNumber == platform::kBadFileName && state.options.blnSkipNTFS) return;
    if (state.strErrorLogOn != "Yes") return;
    const std::string number = std::to_string(errNumber);
    const std::string code = std::to_string(recovery);
    const std::string time = text::DefaultDateText(session.Now());
    const std::pair<std::string_view, std::string_view> lines[] = {
        {"Error Number = ", number}, {"Error Desc: ", errDesc},
        {" Time: ", time},           {" Search or Desination = ", searchOrDestination},
        {" Object = ", object},      {" Object Type = ", TypeText(objectType)},
        {" Path = ", path},          {" Routine : ", routine},
        {" Module ", moduleName},    {" Recovery : ", code},
        {" Message : ", message},    {"", ""},
    };
    std::string record;
    for (const auto& [label, value] : lines) {
        record.append(label).append(value).append("\r\n");
    }
    session.errorLog.WriteRaw(record);
}

void HandleError(Session& session, std::string_view moduleName, std::string_view object,
                 std::string_view path, std::string_view searchOrDestination,
                 ObjectType objectType) {
    auto& state = session.state;
    const Failing failing{moduleName, object, path, searchOrDestination, objectType};
    const int number = state.lngErrNumber;
    const ErrorRule* rule = FindErrorRule(number, moduleName);
    const bool isQuiet52 = number == platform::kBadFileName && moduleName == "Module1";
    const bool isUnexpected = !rule && !isQuiet52 && number != platform::kInputPastEnd;
    if (rule) {
        ApplyRule(session, *rule, failing);
        if (number == platform::kPermissionDenied && state.intRecovery == kRecoveryRetry) return;
    } else if (isQuiet52) {
        ApplyBadNameInModule(session);
    } else if (isUnexpected) {
        ApplyUnexpected(session, failing, RoutineIn(state.strMessage));
    } else {
        ApplyInputPastEnd(session, failing);
    }
    ReportError(session, number, state.strErrDesc, RoutineIn(state.strMessage), moduleName, object,
                path, state.intRecovery, state.strMessage, searchOrDestination, objectType);
    if (isUnexpected) KeepErrorLog(session);
    state.strTitle.clear();
    state.strMessage.clear();
    state.intStyle = 0;
}

int HandleError(Session& session, const platform::PlatformError& error,
                const ErrorContext& context) {
    auto& state = session.state;
    state.lngErrNumber = error.number;
    state.strErrDesc = error.description;
    state.intRecovery = 0; // a rule that leaves the code as it was must not repeat an old retry
    state.strMessage = std::string(context.routine).append(" ").append(context.sentence);
    HandleError(session, context.moduleName, context.object, context.path,
                context.searchOrDestination, context.objectType);
    return state.intRecovery;
}

void UIErrorMsg(Session& session, int errNumber, std::string_view errDesc, std::string& message,
                std::string_view moduleName, std::string_view routine, std::string_view object,
                std::string_view path, std::string_view searchOrDestination,
                ObjectType objectType) {
    const auto add = [&message](std::initializer_list<std::string_view> parts) {
        for (const std::string_view part : parts) {
            message.append(part);
        }
    };
    add({"\r\n\r\n\r\n\r\nERROR CODE:  ", std::to_string(errNumber), "\r\n"});
    add({"ERROR DESC:  ", errDesc, "\r\n"});
    add({"Time: ", text::DefaultDateText(session.Now()), "\r\n\r\n"});
    add({"LOCATION:  ", moduleName, " - ", routine, "\r\n\r\n"});
    add({"Object : ", object, "\r\nPath : ", path, "\r\n"});
    add({"Search Folder or Destination: ", searchOrDestination, "\r\n"});
    add({"Type: ", TypeText(objectType), "\r\n\r\n"});
    if (moduleName != "basGlobal") {
        message += "OK returns you to the active form.";
    } else {
        message += routine == "StartApp" ? "OK returns you to the Windows Desktop."
                                         : "OK returns you to the active from.";
    }
    if (session.state.options.blnAutoMode) return;
    session.MsgBox(message, kCritical, "Client Error Message");
}

void TellUnexpected(Session& session, const platform::PlatformError& error,
                    std::string_view routine, std::string_view path) {
    auto& state = session.state;
    state.strMessage = "unexpected error " + std::to_string(error.number) + " " + error.description;
    if (!state.options.blnAutoMode) session.MsgBox(state.strMessage);
    ReportError(session, error.number, error.description, routine, "Module1", "", "", 0,
                state.strMessage, path, ObjectType::kFile);
    state.strMessage.clear();
}

} // namespace tarvix::session
