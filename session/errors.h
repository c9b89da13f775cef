#pragma once

#include "platform/error.h"

#include <string>
#include <string_view>

namespace tarvix::session {

struct Session;

enum class ObjectType { kFolder, kFile, kNoType, kUnknown };

// How a routine goes on after an error, as `HandleError` decides it in `intRecovery`.
enum Recovery : int {
    kRecoveryLeave = 1,      // through the exit
    kRecoveryRetry = 2,      // the statement again
    kRecoveryNext = 3,       // the next statement
    kRecoverySkip = 4,       // the routine's skip label; without one, leave
    kRecoverySkipUnread = 5, // the same, for an object that had not been read yet
};

// The object of a context while no name of it was read.
constexpr std::string_view kUnreadObject = "Dir function not performed yet";

// What a routine was at when a statement of it failed. The texts belong to the caller.
struct ErrorContext {
    std::string_view routine;
    std::string_view moduleName; // "frmSearch", "frmDialog", "Module1", ...
    std::string_view object;
    std::string_view path;
    std::string_view searchOrDestination;
    ObjectType objectType = ObjectType::kNoType;
    std::string_view sentence = "has not proceeded as expected.";
    bool asksAlways = false; // in automatic mode, too
};

// One record to the error log; none for error 52 while `blnSkipNTFS` is on.
void ReportError(Session& session, const platform::PlatformError& error,
                 const ErrorContext& context, int recovery, std::string_view message);

// Decides about the error in `lngErrNumber`, `strErrDesc` and `strMessage`: asks where its rule
// says so, records it, sets `intRecovery`, and clears `strMessage`.
void HandleError(Session& session, const ErrorContext& context);
// The same, with the three fields set from the error and its context. Gives `intRecovery`.
int HandleError(Session& session, const platform::PlatformError& error,
                const ErrorContext& context);

// Decides about an object that a search can't read: asks whether to retry where error 52 would be
// asked about, and records what isn't retried, under its own number. Gives `intRecovery`.
int HandleUnreadable(Session& session, const platform::PlatformError& error,
                     const ErrorContext& context);

// The prompt for an error without a rule of its own: appends all that is known of it to `message`,
// and shows that unless `blnAutoMode`, or in any mode where the context always asks.
void UIErrorMsg(Session& session, const platform::PlatformError& error, const ErrorContext& context,
                std::string& message);

// An error that must not stop the run: told unless `blnAutoMode`, and recorded for `path`.
void TellUnexpected(Session& session, const platform::PlatformError& error,
                    std::string_view routine, std::string_view path,
                    std::string_view moduleName = "Module1");

} // namespace tarvix::session
