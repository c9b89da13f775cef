#pragma once

#include "platform/linux/errno_failure.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarvix::platform {

// Finds names in folders by their short form or without regard to case, so that not each miss reads
// a whole folder. A folder's names are kept while its date stands; our own changes are told to it.
// What others do is seen at once in small folders, and shortly after in large ones and in those
// that we are changing ourselves. Safe to use from several threads.
class NameCache {
  public:
    // The disk name that `name` (drive form) stands for: by made short form when just one has it,
    // else the first in `Dir` order that is equal but for case. `folder` is an absolute native
    // path. Errnos when the folder is missing or can't be read.
    Sys<std::optional<std::string>> Find(std::string_view folder, std::string_view name);

    // Whether a folder whose names are kept has none like a disk name: by no form and in no case.
    // An exact name that others put there while we are changing the folder may be missed.
    bool IsKnownFree(std::string_view folder, std::string_view nativeName);

    // Whether a disk name in the folder is equal to `nativeName` but for case and is not `except`.
    bool HasOther(std::string_view folder, std::string_view nativeName, std::string_view except);

    // What this process did in a folder. Names are disk names.
    void NoteAdded(std::string_view folder, std::string_view nativeName);
    void NoteRemoved(std::string_view folder, std::string_view nativeName);
    void NoteRenamed(std::string_view folder, std::string_view from, std::string_view to);
    // Forgets what is kept of a folder and of those below it.
    void Forget(std::string_view folder);

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const {
            return std::hash<std::string_view>()(s);
        }
    };
    template <class Value>
    using Map = std::unordered_map<std::string, Value, Hash, std::equal_to<>>;

    struct Folder {
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        std::int64_t modified = 0;
        bool isFresh = false; // changed so shortly before it was read that more may be hidden
        bool hasOwnChange = false;
        bool isCurrent = true; // nobody changed it since it was read
        std::int64_t readAt = 0;
        std::int64_t readCost = 0;
        std::int64_t usedAt = 0;
        std::int64_t checkedAt = 0;        // when the folder itself was last looked at
        Map<std::string> byUpper;          // disk names by their upper-case form
        std::vector<std::string> clashing; // disk names behind those in byUpper, but for case equal
        std::optional<Map<std::string>> byShort; // "" where two names share a form
    };

    static bool WasReadJustNow(const Folder& folder);
    static bool IsDue(const Folder& folder, std::int64_t modified, std::int64_t now);
    Sys<Folder*> Valid(std::string_view path);
    Sys<Folder*> Checked(const std::string& path);
    Sys<Folder*> Read(const std::string& path, std::int64_t modified);
    const std::string& UpperOf(std::string_view nativeName);
    static void Add(Folder& folder, std::string_view nativeName);
    static void AddShort(Folder& folder, std::string_view nativeName);
    static const std::string* FindShort(Folder& folder, std::string_view name);
    void MakeRoom();

    std::mutex mutex_;
    Map<Folder> folders_;
    std::string lastName_;
    std::string lastUpper_; // of the last name that was looked for
    std::size_t names_ = 0; // about as many as are kept; those of folders read again count twice
};

} // namespace tarvix::platform
