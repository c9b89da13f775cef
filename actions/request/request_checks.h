#pragma once

#include "session/prompt_id.h"

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

// The checks that several actions share before they run.
namespace tarvix::actions {

struct ActionRequest;
struct ActionRun;

// Whether a file of that drive path exists; "." as its name counts too.
bool IsExistingFile(session::Session& session, const std::string& path);

// Tells a refusal and goes back to the window, to the box that it is about.
void Refuse(session::Session& session, session::PromptId id, std::string_view told);

// The same question in plain words, and the verb of the button that goes ahead.
struct PlainWords {
    std::string question;
    std::string verb;
};
// Asks "OK or Cancel", plainly where this machine's own words count; on Cancel goes back to the
// window.
bool Confirm(session::Session& session, session::PromptId id, std::string_view question,
             const PlainWords& plain = {});

// Whether something is selected; otherwise says so and goes back to the window.
bool HasSelection(session::Session& session);

// A warning for a text of five characters or more with a "."; empty without one.
std::string ExtensionWarning(const session::Session& session, std::string_view destination);

// A warning for a copy or move to the places that the objects come from; empty without one.
std::string SameLocationWarning(const session::Session& session, const ActionRequest& request);

// Whether duplicates could be renamed as chosen; otherwise says what is wrong and goes back.
bool HasRenameText(session::Session& session, const ActionRequest& request);

// Whether a text that was typed for a part of a name (drive form) can stand in one; otherwise says
// why not and goes back.
bool FitsName(session::Session& session, std::string_view part);
// Why it can't; empty when it can.
std::string WhyNoName(std::string_view part);

// Whether what is typed for a destination is a path, as far as its text tells; otherwise says why
// not and goes back.
bool IsPath(session::Session& session, const ActionRequest& request, std::string_view typed);

// Gives the focus to the levels, says that they are missing, and goes back to the window.
void RefuseLevels(session::Session& session, session::PromptId id, std::string_view told);

// Reports, then lifts the busy state; the window is hidden already or stays as it is.
void Report(session::Session& session, const ActionRun& run);

} // namespace tarvix::actions
