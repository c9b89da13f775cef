#include "platform/linux/listing_store.h"

#include "platform/linux/system_calls.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <sys/vfs.h>

namespace tarvix::platform {

namespace {

constexpr std::int64_t kNanoseconds = 1'000'000'000;
constexpr std::int64_t kSettled = 2 * kNanoseconds; // longer than the coarsest dates of a disk
constexpr std::size_t kMostBytes = std::size_t{64} << 20;

// Disks whose folders are dated by the clock of this machine: ext, xfs, btrfs, f2fs, tmpfs,
// overlay.
constexpr std::array<std::uint32_t, 6> kLocal{0xEF53,     0x58465342, 0x9123683E,
                                              0xF2F52010, 0x01021994, 0x794C7630};

bool HasLink(const FolderListing& listing) {
    for (std::size_t i = 0; i < listing.Size(); ++i) {
        if (listing[i].isLink) return true;
    }
    return false;
}

} // namespace

std::int64_t RealNow() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec * kNanoseconds + now.tv_nsec;
}

void ListingStore::Want(bool isWanted) {
    const std::scoped_lock lock(mutex_);
    wanted_ += isWanted ? 1 : -1;
    if (wanted_ > 0) return;
    kept_.clear();
    isLocal_.clear();
    bytes_ = 0;
}

ListingStore::Stamp ListingStore::StampOf(const struct statx& facts) {
    return {TimeOf(facts.stx_ctime), TimeOf(facts.stx_mtime)};
}

std::shared_ptr<const FolderListing> ListingStore::Find(const struct statx& facts,
                                                        const DriveTable* drives) {
    const std::scoped_lock lock(mutex_);
    const auto found = kept_.find({DeviceOf(facts), facts.stx_ino});
    if (found == kept_.end()) return nullptr;
    const Kept& kept = found->second;
    if (kept.stamp != StampOf(facts) || kept.drives.get() != drives) return nullptr;
    ++given_;
    return kept.listing;
}

bool ListingStore::IsLocal(int folder, std::uint64_t device) {
    const auto known = isLocal_.find(device);
    if (known != isLocal_.end()) return known->second;
    struct statfs disk {};
    const bool isLocal =
        ::fstatfs(folder, &disk) == 0 &&
        std::ranges::find(kLocal, static_cast<std::uint32_t>(disk.f_type)) != kLocal.end();
    return isLocal_[device] = isLocal;
}

void ListingStore::Keep(int folder, const struct statx& before,
                        std::shared_ptr<const DriveTable> drives,
                        std::shared_ptr<const FolderListing> listing) {
    const auto after = StatOf(folder);
    const Stamp stamp = StampOf(before);
    if (!after || StampOf(*after) != stamp || HasLink(*listing)) return;
    if (now_() - std::max(stamp.changed, stamp.modified) < kSettled) return;
    const std::scoped_lock lock(mutex_);
    const Key key{DeviceOf(before), before.stx_ino};
    if (wanted_ <= 0 || !IsLocal(folder, key.device)) return;
    const auto former = kept_.find(key);
    if (former != kept_.end()) {
        bytes_ -= former->second.listing->Bytes();
        kept_.erase(former);
    }
    if (bytes_ + listing->Bytes() > kMostBytes) return;
    bytes_ += listing->Bytes();
    kept_.emplace(key, Kept{stamp, std::move(drives), std::move(listing)});
}

std::uint64_t ListingStore::Given() const {
    const std::scoped_lock lock(mutex_);
    return given_;
}

} // namespace tarvix::platform
