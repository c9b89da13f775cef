#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// Places the object in hand beside the duplicate of it, under its name with `txtRename` added, as
// many times as it takes to find a free name. Nothing without a text to add.
void RenameObjForDuplicate(session::Session& session);

// The same rule for an object that is renamed in place: moves `source` to a free name made from
// that of `destination`, in its folder.
void RenameObjForDuplicateLocal(session::Session& session, const std::string& source,
                                const std::string& actual, const std::string& destination,
                                bool blnIsFile);

// A destination that could not be shortened enough to look at. Logs so; in automatic mode
// `bytPathChoice` then cancels what is left of the action, otherwise the user is told and it skips
// the object in hand.
void RefuseUnconverted(session::Session& session, std::string_view path);

} // namespace tarvix::actions
