#include "platform/linux/listing_store.h"

#include "platform/linux/system_calls.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <sys/vfs.h>

namespace tarvix::platform {

namespace {

constexpr std::int64_t kNanoseconds = 1'000'000'000;
// Longer than the steps of a disk's dates; FAT's are of two whole seconds.
constexpr std::int64_t kDateStep = 20'000'000;
constexpr std::int64_t kWholeDateStep = 2 * kNanoseconds;
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

std::int64_t DateStep(FileTime date) {
    return date % kNanoseconds == 0 ? kWholeDateStep : kDateStep;
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

const ListingStore::Kept* ListingStore::Standing(const struct statx& facts) const {
    const auto found = kept_.find({DeviceOf(facts), facts.stx_ino});
    return found == kept_.end() || found->second.stamp != StampOf(facts) ? nullptr : &found->second;
}

std::shared_ptr<const FolderListing> ListingStore::Find(const struct statx& facts,
                                                        const DriveTable* drives) {
    const std::scoped_lock lock(mutex_);
    const Kept* const kept = Standing(facts);
    if (kept == nullptr || kept->drives.get() != drives) return nullptr;
    ++given_;
    return kept->listing;
}

std::shared_ptr<const FolderListing> ListingStore::InUse(const struct statx& facts) const {
    const auto found = std::ranges::find_if(large_, [&facts](const Large& large) {
        return large.inode == facts.stx_ino && large.device == DeviceOf(facts) &&
               large.stamp == StampOf(facts);
    });
    return found == large_.end() ? nullptr : found->listing.lock();
}

std::shared_ptr<const FolderListing> ListingStore::FindNames(const struct statx& facts) {
    const std::scoped_lock lock(mutex_);
    const Kept* const kept = Standing(facts);
    auto names = kept != nullptr ? kept->listing : InUse(facts);
    if (names) ++given_;
    return names;
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
    const FileTime newest = std::max(stamp.changed, stamp.modified);
    if (now_() - newest < DateStep(newest)) return;
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

// A folder whose last change lies before that time can't have changed while it was read.
void ListingStore::NoteInUse(int folder, std::int64_t begunAt,
                             const std::shared_ptr<const FolderListing>& listing) {
    if (listing->Size() < kLarge) return;
    const auto after = StatOf(folder);
    if (!after) return;
    const Stamp stamp = StampOf(*after);
    const FileTime newest = std::max(stamp.changed, stamp.modified);
    if (begunAt - newest < DateStep(newest)) return;
    const std::scoped_lock lock(mutex_);
    if (!IsLocal(folder, DeviceOf(*after))) return;
    large_[nextLarge_++ % kMostLarge] = {DeviceOf(*after), after->stx_ino, stamp, listing};
}

std::uint64_t ListingStore::Given() const {
    const std::scoped_lock lock(mutex_);
    return given_;
}

} // namespace tarvix::platform
