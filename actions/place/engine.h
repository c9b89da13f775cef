#pragma once

#include "actions/place/object.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;
struct Outcome;

enum class Verb : std::uint8_t { kCopy, kMove, kRename };

// One object, and the place that it is to go to.
struct Job {
    const Object& object;
    // A full new path, brought into its final form first.
    platform::FreePlace place;
    Verb verb = Verb::kCopy;
    bool overwrites = false; // what stands there goes to the recycle bin before
    // Where something else is to be taken away there: does that once the copy lies ready, and gives
    // whether the place is free.
    std::function<bool()> makeWay = {};
    // It was found free: that it is taken after all is then no error but told by `isTaken`.
    bool wasFree = false;
    std::optional<platform::Look> look =
        std::nullopt; // at the object, where one was taken just now
};

// Places one object, and gives what became of it. Without `overwrites` nothing is ever replaced. A
// read-only, hidden or system object can be copied, and the new one bears its attributes, combined
// with those of what it overwrote. Where the system refuses a move, but no rename, the object is
// copied and the original recycled; an original that can't go makes it "copied". What is to be
// replaced stays until the copy is whole, and comes back if that gets no name. What was done goes
// to the action log; an error ends in `HandleError` and leaves the source as it was and nothing new
// under the new name.
Outcome PlaceObject(session::Session& session, ActionRun& run, Job job);

// The outcome of an object that could not be looked at, which has been told.
Outcome Unread(const session::Session& session, const platform::PlatformError& error);

// Puts the object at `destination` in place of what stands there; nothing when the two paths are
// the same.
Outcome OverWriteDuplicate(session::Session& session, ActionRun& run, const Object& object,
                           const std::string& destination);

// Puts a copy in place of what stands at `destination`, which `makeWay` takes away.
Outcome ReplaceDuplicate(session::Session& session, ActionRun& run, const Object& object,
                         const std::string& destination, std::function<bool()> makeWay);

// Puts the object at a place where nothing stands: by a move if that is the action, but a system or
// hidden object is always copied.
Outcome PerformMoveOrCopy(session::Session& session, ActionRun& run, const Object& object,
                          platform::FreePlace place);

// A new path as it will be used: a blank next to a separator is never kept, since no folder can be
// made so, but a name of blanks alone is. A rename keeps the folder, however it is spelt.
std::string CleanedDestination(std::string path, bool isRename = false);
// Whether it is that already.
bool IsCleanDestination(std::string_view path, bool isRename);

// The attributes that are carried: read-only, hidden, system and archive.
std::uint32_t CombineAttributes(std::uint32_t a, std::uint32_t b);

} // namespace tarvix::actions
