#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

enum class DeleteVerdict : std::uint8_t {
    kTrash,
    kForGood,      // since the trash can't take it, as was chosen
    kProtectedAsk, // a hidden or system object, which would be asked about
    kProtected,    // one that was chosen to stay
    kIsTrash,      // a trash itself is left alone
    kNoTrash,      // for what can't go there
    kChanged,
    kFailed,
};

// "trash", "protected: ask" ...
std::string_view VerdictText(DeleteVerdict verdict);

// What was chosen ahead; without a choice it would be asked.
struct DeleteChoices {
    std::optional<bool> takesProtected; // hidden and system objects
    std::optional<bool> deletesForGood; // what the trash can't take
};

struct DeletePreview {
    std::size_t index = 0; // in the selection
    DeleteVerdict verdict = DeleteVerdict::kTrash;
};

// What deleting the selection would do, worked out by its own routines on a file system that only
// records. Nothing is changed, logged or asked. Yields; a stop ends it early.
std::vector<DeletePreview> PreviewDelete(session::Session& session, const DeleteChoices& choices);

} // namespace tarvix::actions
