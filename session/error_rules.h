#pragma once

#include "session/prompt_id.h"

#include <span>
#include <string_view>

namespace tarvix::session {

// The value that a line of an error's prompt shows.
enum class ErrorValue {
    kNone,
    kReason, // the sentence of the error itself
    kObject,
    kPath,
    kSearchOrDestination,
    kFileSystem,  // of the drive that the path is on, as a clause
    kDestFolder,  // the folder part of the destination
    kTypedObject, // the type text and the object
};

// One piece of a prompt: a text, a value, and what ends it.
struct ErrorLine {
    std::string_view text;
    ErrorValue value = ErrorValue::kNone;
    std::string_view end = "\r\n";
};

enum class ErrorPrompt {
    kNever,
    kUnlessAuto,
    kUnlessSkipped, // nor while `blnSkipNTFS`; but always while search folders are parsed
};

// What `HandleError` does about one error number in one module (any, when it is empty).
struct ErrorRule {
    int number;
    std::string_view moduleName;
    ErrorPrompt asks = ErrorPrompt::kNever;
    PromptId prompt{}; // when it asks
    std::span<const ErrorLine> lines = {};
    int recovery;      // for every other answer, and without a prompt
    int affirmed = 0;  // after Yes or Retry
    int dismissed = 0; // after an answer that is no button of the prompt; 0: as `recovery`
    int unread = 0;    // instead of `recovery`, for an object that had not been read yet
};

// The rule of that error in that module; null for an error without one.
const ErrorRule* FindErrorRule(int number, std::string_view moduleName);

// What a rule's prompt says: its lines, or, on a machine with native paths, those that give the
// true reason and name the object and the destination once.
std::span<const ErrorLine> LinesOf(const ErrorRule& rule, bool hasNativePaths);

} // namespace tarvix::session
