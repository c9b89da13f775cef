#include "session/errors.h"

#include "platform/file_system.h"
#include "platform/names.h"
#include "session/action_log.h"
#include "session/error_rules.h"
#include "session/message_style.h"
#include "session/plain_text.h"
#include "session/prompt_id.h"
#include "session/prompt_table.h"
#include "session/session.h"
#include "session/tell.h"
#include "session/wordings.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/dates.h"
#include "text/format.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <array>

namespace tarvix::session {

namespace {

// The type texts go into records and prompts with their blanks.
std::string_view TypeText(ObjectType type) {
    constexpr std::array<std::string_view, 4> kTexts{" folder ", " file ", " no type", " unknown"};
    return kTexts[static_cast<std::size_t>(type)];
}

std::string FileSystemClause(Session& session, std::string_view path) {
    const std::string root(text::Left(path, 3));
    for (const platform::DriveInfo& drive : session.files().Drives()) {
        if (!text::EqualNoCase(fmt::format("{}\\", drive.path), root)) continue;
        return text::Upper(drive.fileSystem).starts_with("NTFS")
                   ? " and it is in a NTFS filesystem."
                   : " and it is in a FAT or other filesystem.";
    }
    return {};
}

std::string ValueOf(Session& session, ErrorValue value, const ErrorContext& context) {
    switch (value) {
    case ErrorValue::kReason:
        return session.state.strErrDesc;
    case ErrorValue::kObject:
        return session.Shown(context.object);
    case ErrorValue::kPath:
        return session.Shown(context.path);
    case ErrorValue::kSearchOrDestination:
        return session.Shown(context.searchOrDestination);
    case ErrorValue::kFileSystem:
        return FileSystemClause(session, context.path);
    case ErrorValue::kDestFolder:
        return session.Shown(text::ParentFolder(context.searchOrDestination));
    case ErrorValue::kTypedObject:
        return fmt::format("{}{}", TypeText(context.objectType), session.Shown(context.object));
    case ErrorValue::kNone:
        break;
    }
    return {};
}

bool IsQuiet(const Session& session, const ErrorContext& context) {
    return session.state.options.blnAutoMode && !context.asksAlways;
}

bool Asks(const Session& session, const ErrorRule& rule, const ErrorContext& context) {
    const bool isQuiet = IsQuiet(session, context);
    switch (rule.asks) {
    case ErrorPrompt::kNever:
        return false;
    case ErrorPrompt::kUnlessAuto:
        return !isQuiet;
    case ErrorPrompt::kUnlessSkipped:
        return (!isQuiet && !session.state.options.blnSkipNTFS) ||
               context.routine == "ParseSearchFolder";
    }
    return false;
}

int Decide(const ErrorRule& rule, int answer, std::string_view object) {
    if (answer == kYes || answer == kRetry) return rule.affirmed ? rule.affirmed : rule.recovery;
    if (rule.dismissed != 0 && answer != kNo && answer != 0) return rule.dismissed;
    return rule.unread != 0 && object == kUnreadObject ? rule.unread : rule.recovery;
}

// What a window leads with; Yes and No need a question, Retry and Cancel are one.
std::string PlainQuestion(const Session& session, const ErrorRule& rule,
                          const ErrorContext& context) {
    std::string plain = PlainText(session, context, session.state.strErrDesc);
    if (ButtonsOf(FactsOf(rule.prompt).style).front() == kYes) {
        plain += "\r\n\r\nWould you like to try again?";
    }
    return plain;
}

void ApplyRule(Session& session, const ErrorRule& rule, const ErrorContext& context) {
    auto& state = session.state;
    for (const ErrorLine& line : LinesOf(rule, session.platform.traits.hasNativePaths)) {
        state.strMessage.append(line.text).append(ValueOf(session, line.value, context));
        state.strMessage.append(line.end);
    }
    const int answer =
        Asks(session, rule, context)
            ? session.MsgBox(rule.prompt, state.strMessage, PlainQuestion(session, rule, context))
            : 0;
    state.intRecovery = Decide(rule, answer, context.object);
}

// The end of a text file that lacks its mark.
void ApplyInputPastEnd(Session& session, const ErrorContext& context) {
    auto& state = session.state;
    if (context.moduleName == "RenameFromHTMLSearch" || context.moduleName == "OpenOptionFile") {
        state.intRecovery = kRecoverySkip;
        return;
    }
    TellUnlessAuto(session, PromptId::kEndMarkMissing,
                   fmt::format("*EOF missing from end of text file: \r\n\r\n{}\r\n\r\n, system "
                               "files will be corrected upon proper program exit.",
                               session.Shown(context.object)));
    LogTimed(session, fmt::format(" *EOF missing from end of text file: {}, ended reading.",
                                  session.Shown(context.object)));
    state.intRecovery = kRecoveryLeave;
}

// Error 52 while a shared routine runs is never asked about.
void ApplyBadNameInModule(Session& session, std::string_view routine) {
    if (routine == "ParseDefSearchFolder") session.state.intRecovery = kRecoveryNext;
}

// The records of this run would be gone at the next start.
void KeepErrorLog(Session& session, const ErrorContext& context) {
    auto& state = session.state;
    const std::string& log = state.strErrorLogFile;
    if (!session.errorLog.IsOpen() || log.size() < 3) return;
    const std::string copy =
        fmt::format("{}_unexpected_error_{}.log", std::string_view(log).substr(0, log.size() - 3),
                    text::FormatDate(session.Now(), "mm.dd.yy_hh.nn.ss"));
    if (session.files().CopyFile(log, copy, true, {}) || IsQuiet(session, context)) return;
    session.MsgBox(PromptId::kErrorLogNotKept, "error happened in HandleError****",
                   "The records of this run's errors could not be kept in a file of their own.");
    state.strMessage.clear();
}

} // namespace

void ReportError(Session& session, const platform::PlatformError& error,
                 const ErrorContext& context, int recovery, std::string_view message) {
    const auto& state = session.state;
    if (error.number == platform::kBadFileName && state.options.blnSkipNTFS) return;
    if (state.strErrorLogOn != "Yes") return;
    std::string record =
        fmt::format("Error Number = {}\r\nError Desc: {}\r\n Time: {}\r\n"
                    " Search or Desination = {}\r\n Object = {}\r\n Object Type = {}\r\n",
                    error.number, session.Shown(error), text::DefaultDateText(session.Now()),
                    session.Shown(context.searchOrDestination), session.Shown(context.object),
                    TypeText(context.objectType));
    record += fmt::format(" Path = {}\r\n Routine : {}\r\n Module {}\r\n Recovery : {}\r\n"
                          " Message : {}\r\n\r\n",
                          session.Shown(context.path), context.routine, context.moduleName,
                          recovery, message);
    const auto written = session.errorLog.WriteRaw(platform::ForDisplay(record));
    if (!written) session.NoteLogTrouble(written.error());
}

void HandleError(Session& session, const ErrorContext& context) {
    auto& state = session.state;
    const platform::PlatformError error{state.lngErrNumber, state.strErrDesc};
    const ErrorRule* rule = FindErrorRule(error.number, context.moduleName);
    const bool isQuiet52 =
        error.number == platform::kBadFileName && context.moduleName == "Module1";
    const bool isUnexpected = !rule && !isQuiet52 && error.number != platform::kInputPastEnd;
    if (rule) {
        ApplyRule(session, *rule, context);
        if (error.number == platform::kPermissionDenied && state.intRecovery == kRecoveryRetry) {
            return;
        }
    } else if (isQuiet52) {
        ApplyBadNameInModule(session, context.routine);
    } else if (isUnexpected) {
        UIErrorMsg(session, error, context, state.strMessage);
        state.intRecovery = kRecoveryLeave;
    } else {
        ApplyInputPastEnd(session, context);
    }
    ReportError(session, error, context, state.intRecovery, state.strMessage);
    if (isUnexpected) KeepErrorLog(session, context);
    state.strMessage.clear();
}

int HandleError(Session& session, const platform::PlatformError& error,
                const ErrorContext& context) {
    auto& state = session.state;
    state.lngErrNumber = error.number;
    state.strErrDesc = session.Shown(error);
    state.intRecovery = 0; // a rule that leaves the code as it was must not repeat an old retry
    state.strMessage = fmt::format("{} {}", context.routine, context.sentence);
    HandleError(session, context);
    return state.intRecovery;
}

int HandleUnreadable(Session& session, const platform::PlatformError& error,
                     const ErrorContext& context) {
    auto& state = session.state;
    state.lngErrNumber = error.number;
    state.strErrDesc = session.Shown(error);
    state.strMessage = fmt::format("{} {}", context.routine, context.sentence);
    ApplyRule(session, *FindErrorRule(platform::kBadFileName, "frmSearch"), context);
    if (state.intRecovery != kRecoveryRetry) {
        ReportError(session, error, context, state.intRecovery, state.strMessage);
    }
    state.strMessage.clear();
    return state.intRecovery;
}

void UIErrorMsg(Session& session, const platform::PlatformError& error, const ErrorContext& context,
                std::string& message) {
    message += fmt::format("\r\n\r\n\r\n\r\nERROR CODE:  {}\r\nERROR DESC:  {}\r\nTime: {}\r\n\r\n"
                           "LOCATION:  {} - {}\r\n\r\n",
                           error.number, session.Shown(error), WordedDate(session, session.Now()),
                           context.moduleName, context.routine);
    message +=
        fmt::format("Object : {}\r\nPath : {}\r\nSearch Folder or Destination: {}\r\n"
                    "Type: {}\r\n\r\n",
                    session.Shown(context.object), session.Shown(context.path),
                    session.Shown(context.searchOrDestination), TypeText(context.objectType));
    if (context.moduleName != "basGlobal") {
        message += "OK returns you to the active form.";
    } else {
        message += context.routine == "StartApp" ? "OK returns you to the Windows Desktop."
                                                 : "OK returns you to the active from.";
    }
    if (IsQuiet(session, context)) return;
    session.MsgBox(PromptId::kUnexpectedError, message,
                   PlainText(session, context, session.Shown(error)));
}

void TellUnexpected(Session& session, const platform::PlatformError& error,
                    std::string_view routine, std::string_view path, std::string_view moduleName) {
    const std::string told =
        fmt::format("unexpected error {} {}", error.number, session.Shown(error));
    const ErrorContext context{.routine = routine,
                               .moduleName = moduleName,
                               .searchOrDestination = path,
                               .objectType = ObjectType::kFile};
    if (!session.state.options.blnAutoMode) {
        session.MsgBox(PromptId::kOutsideError, told,
                       PlainText(session, context, session.Shown(error)));
    }
    ReportError(session, error, context, 0, told);
}

} // namespace tarvix::session
