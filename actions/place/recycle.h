#pragma once

#include "platform/error.h"
#include "platform/seen_object.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::actions {

struct Object;

// One object on its way to the recycle bin.
struct RecycleEntry {
    std::string strActualPath; // for file system calls, spelled as on the disk
    std::string strPath;       // as listed, for reports
    platform::Sighting sighting = {};
    platform::Same same = platform::Same::kName;

    platform::SeenObject Seen() const { return {strActualPath, sighting, same}; }
};

// Told how many objects of the queue are behind it; false stops before the next one.
using RecycleObserver = std::function<bool(std::size_t done)>;

// What became of one entry of the queue.
enum class RecycleEnd : std::uint8_t {
    kRecycled,
    kWasGone, // when it was its turn: with its folder, or by others
    kDeleted, // for good, because the user said so
    kFailed,
    kChanged, // not what was seen; it stays
};
struct SettledEntry {
    std::size_t place = 0; // in the queue
    RecycleEnd end = RecycleEnd::kRecycled;
    const platform::PlatformError* error = nullptr; // of a failure
    std::size_t number = 0;                         // in the trash, of what was recycled
};
// Told of each of them. Entries that were not come to are not told.
using RecycleSettled = std::function<void(const SettledEntry& entry)>;

struct RecycleOutcome {
    std::size_t gone = 0;    // recycled, or deleted because the user said so
    std::size_t deleted = 0; // of these, those that were deleted for good
    std::size_t failed = 0;  // still where they were
    // Places in the queue of those that aren't what was seen, and stay; they are none of the
    // others.
    std::vector<std::size_t> changed;
    std::vector<std::string> errors; // what kept the first hundred of the failed, a sentence each
    bool blnPartial = false;         // a queue of several objects failed somewhere
    bool blnStopped = false;         // by the observer or by Cancel; what was left is untouched

    bool Succeeded() const { return failed == 0 && changed.empty() && !blnStopped; }
};

// Sends the queue to the recycle bin, the one road there for every action. An object that can't go
// there is asked about by its own prompt, or with `blnNoPrompt` stays; the rest goes on. Objects
// that left with a folder of the same queue are no failure.
RecycleOutcome RecycleObjects(session::Session& session, const std::vector<RecycleEntry>& queue,
                              bool blnNoPrompt, const RecycleObserver& observer = {},
                              const RecycleSettled& settled = {});
// The same for one object that nobody is asked about; gives whether it is gone.
bool RecycleOne(session::Session& session, std::string_view path);
// The same for an object of the selection, as far as it must be the one that the search saw.
bool RecycleObject(session::Session& session, const Object& object, platform::Same same);

void AddRecycleEvents(session::EventTable& events);

} // namespace tarvix::actions
