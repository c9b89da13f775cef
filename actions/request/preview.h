#pragma once

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

class KnownBytes;

enum class Verdict : std::uint8_t {
    kCopy,
    kMove,
    kRename,
    kDuplicateRename,
    kDuplicateOverwrite,
    kDuplicateSkip,
    kDuplicateAsk,
    kSamePlace,
    kNoDestination,
    kLongPath,
    kProtectedCopy, // a hidden or system object, which is copied instead of moved
    kProtectedAsk,  // it would be asked about before it is overwritten
    kUnchanged,
    kFailed,
    kChanged,
    kCopyOnly, // of a move: the original can't be taken away
    kNoRight,
    kNoRoom,
    kLeftAlone,   // for a reason that would be told
    kNoTrash,     // for what it would overwrite
    kNameRefused, // the disk there takes no such name
    kReading,     // what its name comes from
};

// "copy", "duplicate: skip" ...
std::string_view VerdictText(Verdict verdict);

struct PreviewEntry {
    std::size_t index = 0; // in the selection
    std::string strNewPath;
    Verdict verdict = Verdict::kUnchanged;
    std::string why = {}; // of a refused name, or of what is left alone; may be empty
};

// The same with the reason behind it.
std::string VerdictText(const PreviewEntry& entry);

struct PreviewResult {
    std::vector<PreviewEntry>
        entries; // in the order of the action, each object at each destination
    // Why the action would not run at all; empty when it would.
    std::string refusal;
    bool blnStopped = false; // the user did not wait for the end
};

// What OK would do now, worked out by the routines of the action itself on a file system that only
// records. Nothing is changed, logged or asked; where something would be asked, the verdict says so
// and the object counts as left alone. Yields.
PreviewResult Preview(session::Session& session);

// The same for the first `objects` of the selection alone, as if no others were selected, and only
// as long as `goesOn`, which is asked again and again; the user's stop doesn't count. With `known`
// the content of files is taken from there alone, and what it lacks is Verdict::kReading.
PreviewResult PreviewFirst(session::Session& session, std::size_t objects,
                           const std::function<bool()>& goesOn, KnownBytes* known = nullptr);

// Shows that in frmPreview.
void cmdPreview_Click(session::Session& session);

// The preview button, and the buttons of frmPreview.
void AddPreviewEvents(session::EventTable& events);

} // namespace tarvix::actions
