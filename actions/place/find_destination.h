#pragma once

#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;
struct Object;

struct FoundDestination {
    std::string path;       // empty when the object has no place to go to
    bool hasFailed = false; // for an error, which was handled
};

// ComputeDestination with all that it has for the user and the disk: looks for the folder of a
// Search Set, counts and logs what became of a rule, and hands a path without a root to
// `HandleError`. A search that is too long is asked about and sets `blnPathLimitHit`. `isAgain`: a
// second time for the same object, which is neither counted nor logged.
FoundDestination FindDestination(session::Session& session, ActionRun& run, const Object& object,
                                 int place, bool isAgain = false);

} // namespace tarvix::actions
