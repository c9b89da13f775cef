#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRequest;
struct ActionRun;
struct Clash;
struct Object;
struct Outcome;

// What this run has placed is never overwritten by it: the object in hand goes beside it under a
// new name, as where duplicates are renamed. Nothing where something else stands there.
std::optional<Outcome> KeepApart(session::Session& session, ActionRun& run, const Clash& clash);

// Places the object in hand beside the duplicate of it, under its name with the request's text
// added, as many times as it takes to find a free name. Nothing without a text to add.
Outcome RenameObjForDuplicate(session::Session& session, ActionRun& run, const Clash& clash);

// The name that it would get there; empty where that can't be told beforehand, or there is none.
std::string NameBeside(session::Session& session, const ActionRequest& request,
                       std::string_view destination, bool isFile);

// The same rule for an object that is renamed in place: gives it a free name made from that of
// `destination`, in its folder.
Outcome RenameObjForDuplicateLocal(session::Session& session, ActionRun& run, const Object& object,
                                   std::string_view destination);

} // namespace tarvix::actions
