#pragma once

#include "actions/sources/new_names.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvix::actions {

struct ActionRun;

struct RenameOrder {
    std::string_view routine;                           // for the question about a long path
    bool filesFirst = false;                            // and then folders; else as selected
    std::size_t reached = static_cast<std::size_t>(-1); // objects from here on aren't come to
};

struct RenamedEach {
    SourceEnd end = SourceEnd::kRan;
    std::string lastPath; // of the object that got a new name last, as it was listed; may be empty
    std::string lastName; // what it is called
    bool metLongPaths = false; // a folder was left alone for what lies in it
};

// Gives each object its new name in its folder. One that is taken goes to the rule for duplicates:
// the object gets a free one made from it. An object that has its name already is unchanged. What
// became of each goes to the run's sink and is counted in `lastAction`. `blnStopAction` takes
// effect at the next object.
RenamedEach RenameEach(session::Session& session, ActionRun& run, const NewNames& names,
                       const RenameOrder& order);

// The outcome of an object that the source has no name for.
Outcome WithoutName(std::size_t index, const NewName& name);

} // namespace tarvix::actions
