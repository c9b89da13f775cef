#pragma once

#include "platform/folder_listing.h"
#include "platform/linux/drive_table.h"
#include "platform/object_facts.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <unordered_map>

namespace tarvix::platform {

// Real time in nanoseconds, as folders are dated.
std::int64_t RealNow();
// Nanoseconds after which a change of a folder that bears that date can bear it no more.
std::int64_t DateStep(FileTime date);

// The names that folders had when they were read, by device and inode, kept while several searches
// go over the same ones. A folder's names are believed as long as its dates and the table of drives
// stand, if the folder hadn't changed for a step of its dates when it was read, so that no later
// change can bear the same one; and only on disks of this machine. Folders with links aren't kept,
// since what a link leads to changes without them. Safe to use from several threads.
class ListingStore {
  public:
    explicit ListingStore(std::function<std::int64_t()> now = RealNow) : now_(std::move(now)) {}

    // Keeps nothing unless somebody wants it; what is kept goes when nobody does any more.
    void Want(bool isWanted);
    bool IsWanted() const { return wanted_ > 0; }

    // The names of a folder, if they are known and stand; `facts` are of now. Null else.
    std::shared_ptr<const FolderListing> Find(const struct statx& facts, const DriveTable* drives);
    // The same for who asks for nothing but the names, of large folders that are still in use, too.
    std::shared_ptr<const FolderListing> FindNames(const struct statx& facts);
    // Keeps what was read of an open folder, whose facts were `before` when that began.
    void Keep(int folder, const struct statx& before, std::shared_ptr<const DriveTable> drives,
              std::shared_ptr<const FolderListing> listing);
    // Knows what was read of an open folder since that time, by Now, as long as somebody else has
    // it, whether wanted or not; nothing is done for small ones.
    void NoteInUse(int folder, std::int64_t begunAt,
                   const std::shared_ptr<const FolderListing>& listing);
    std::int64_t Now() const { return now_(); }

    // How many listings were given out of the store.
    std::uint64_t Given() const;

  private:
    struct Stamp {
        FileTime changed = 0;
        FileTime modified = 0;
        bool operator==(const Stamp&) const = default;
    };
    struct Kept {
        Stamp stamp;
        std::shared_ptr<const DriveTable> drives;
        std::shared_ptr<const FolderListing> listing;
    };
    struct Large {
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        Stamp stamp;
        std::weak_ptr<const FolderListing> listing;
    };
    struct Key {
        std::uint64_t device;
        std::uint64_t inode;
        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& key) const {
            return key.inode * 0x9E3779B97F4A7C15ULL ^ key.device;
        }
    };

    static constexpr std::size_t kLarge = 1000; // names
    static constexpr std::size_t kMostLarge = 16;

    static Stamp StampOf(const struct statx& facts);
    const Kept* Standing(const struct statx& facts) const;
    std::shared_ptr<const FolderListing> InUse(const struct statx& facts) const;
    bool IsLocal(int folder, std::uint64_t device);

    const std::function<std::int64_t()> now_;
    mutable std::mutex mutex_;
    std::atomic<int> wanted_ = 0; // changed under the lock
    std::unordered_map<Key, Kept, KeyHash> kept_;
    std::array<Large, kMostLarge> large_; // the last ones, in a ring
    std::size_t nextLarge_ = 0;
    std::map<std::uint64_t, bool> isLocal_; // by device
    std::size_t bytes_ = 0;
    std::uint64_t given_ = 0;
};

} // namespace tarvix::platform
