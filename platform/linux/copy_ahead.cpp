#include "platform/linux/copy_ahead.h"

#include "platform/linux/copy_content.h"
#include "platform/start_thread.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <fcntl.h>

namespace tarvix::platform {

namespace {
constexpr std::size_t kMostLookedAt = 128;
constexpr std::size_t kLead = 4;
constexpr std::size_t kMostReady = 32; // taken within the time that a folder is believed
constexpr std::size_t kFewReady = kMostReady / 2;
constexpr std::uint64_t kMostBytes = 8 << 20;
constexpr std::chrono::seconds kMostIdle{2};

FileTime WallNow() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return FileTime{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

// A file that changed just now could change again without another date to tell of it.
bool IsSettled(const struct statx& st, std::int64_t age) {
    const FileTime now = WallNow();
    return now - TimeOf(st.stx_ctime) >= age && now - TimeOf(st.stx_mtime) >= age;
}

bool IsSame(const struct statx& before, const struct statx& now) {
    return IsSameObject(before, now) && before.stx_size == now.stx_size &&
           before.stx_mode == now.stx_mode && TimeOf(before.stx_mtime) == TimeOf(now.stx_mtime) &&
           TimeOf(before.stx_ctime) == TimeOf(now.stx_ctime);
}
} // namespace

CopyAhead::~CopyAhead() {
    {
        const std::scoped_lock lock(mutex_);
        isEnding_ = true;
        entries_.clear();
    }
    more_.notify_one();
    if (thread_.joinable()) thread_.join();
}

// Where no thread can be had nothing becomes ready.
void CopyAhead::Start() {
    (void)StartThread(thread_, [this] { Work(); });
    if (isResting_) more_.notify_one();
}

void CopyAhead::Replace(std::vector<AheadItem> items) {
    lookedAt_.reset();
    const std::scoped_lock lock(mutex_);
    Entries kept = std::exchange(entries_, {});
    items.resize(std::min(items.size(), kMostLookedAt));
    for (AheadItem& item : items) {
        const auto known = std::ranges::find_if(
            kept, [&](const auto& entry) { return entry->item.key == item.key; });
        if (known != kept.end()) {
            entries_.push_back(std::move(*known));
            kept.erase(known);
        } else {
            entries_.push_back(std::make_shared<Entry>());
            entries_.back()->item = std::move(item);
        }
    }
    if (!entries_.empty()) Start();
}

void CopyAhead::Push(std::vector<AheadItem> items, std::size_t behind) {
    if (items.empty()) return;
    const std::scoped_lock lock(mutex_);
    Entries pushed;
    for (AheadItem& item : items) {
        pushed.push_back(std::make_shared<Entry>());
        pushed.back()->item = std::move(item);
        pushed.back()->isPushed = true;
    }
    const auto at = static_cast<std::ptrdiff_t>(std::min(behind, entries_.size()));
    entries_.insert(entries_.begin() + at, pushed.begin(), pushed.end());
    Start();
}

void CopyAhead::DropPushed() {
    const std::scoped_lock lock(mutex_);
    std::erase_if(entries_, [](const auto& entry) { return entry->isPushed; });
}

bool CopyAhead::HasManyReady() const {
    std::size_t ready = 0;
    for (const auto& entry : entries_) {
        if (entry->state == State::kReady && ++ready > kFewReady) return true;
    }
    return false;
}

CopyAhead::Entries::iterator CopyAhead::Find(std::string_view key) {
    const auto end =
        entries_.begin() + static_cast<std::ptrdiff_t>(std::min(entries_.size(), kMostLookedAt));
    const auto found = std::find_if(entries_.begin(), end,
                                    [&](const auto& entry) { return entry->item.key == key; });
    return found == end ? entries_.end() : found;
}

// Who is woken finds the lock free.
void CopyAhead::WakeIfFew(std::unique_lock<std::mutex>& lock) {
    const bool isWanted = isResting_ && !HasManyReady();
    if (isWanted) isResting_ = false; // once is enough
    lock.unlock();
    if (isWanted) more_.notify_one();
}

std::optional<AheadSource> CopyAhead::LookAt(std::string_view key) {
    if (lookedAt_ == nullptr || lookedAt_->item.key != key) {
        std::unique_lock lock(mutex_);
        const auto found = Find(key);
        if (found == entries_.end() || (*found)->state != State::kReady) return std::nullopt;
        lookedAt_ = std::move(*found);
        entries_.erase(entries_.begin(), found + 1);
        WakeIfFew(lock);
    }
    return AheadSource{lookedAt_->st, lookedAt_->item.location, lookedAt_->item.found};
}

std::optional<PartFile> CopyAhead::Take(std::string_view key, const struct statx& st) {
    std::shared_ptr<Entry> entry = std::exchange(lookedAt_, nullptr);
    if (entry == nullptr || entry->item.key != key) {
        std::unique_lock lock(mutex_);
        const auto found = Find(key);
        if (found == entries_.end()) return std::nullopt;
        entry = *found;
        entries_.erase(entries_.begin(), found + 1);
        done_.wait(lock, [&entry] { return entry->state != State::kWorking; });
        WakeIfFew(lock);
    }
    // Taken off the plan, an entry that still waits is never worked on.
    if (entry->state != State::kReady || !IsSame(entry->st, st)) return std::nullopt;
    return std::move(entry->part);
}

bool CopyAhead::Drop() {
    const bool wasLookedAt = std::exchange(lookedAt_, nullptr) != nullptr;
    std::unique_lock lock(mutex_);
    const bool hadAny = wasLookedAt || !entries_.empty();
    const Entries dropped = std::exchange(entries_, {});
    for (const auto& entry : dropped)
        done_.wait(lock, [&entry] { return entry->state != State::kWorking; });
    return hadAny;
}

// The first that waits, but none of the very next to be asked for as long as there are others:
// those are sooner done by the one who asks than waited for.
std::shared_ptr<CopyAhead::Entry> CopyAhead::NextToDo() const {
    std::size_t ready = 0;
    std::uint64_t bytes = 0;
    std::shared_ptr<Entry> next;
    std::size_t passed = 0;
    for (const auto& entry : entries_) {
        if (entry->state == State::kReady) {
            ++ready;
            bytes += entry->st.stx_size;
        } else if (entry->state == State::kWaiting) {
            next = entry;
            if (passed >= kLead) break;
        }
        if (++passed == kMostLookedAt) break;
    }
    return ready < kMostReady && bytes < kMostBytes ? next : nullptr;
}

void CopyAhead::Rest(std::unique_lock<std::mutex>& lock) {
    isResting_ = true;
    if (entries_.empty()) {
        more_.wait(lock);
    } else if (more_.wait_for(lock, kMostIdle) == std::cv_status::timeout) {
        entries_.clear();
    }
    isResting_ = false;
}

void CopyAhead::Work() {
    std::unique_lock lock(mutex_);
    while (!isEnding_) {
        std::shared_ptr<Entry> entry = NextToDo();
        if (entry == nullptr) {
            Rest(lock);
            continue;
        }
        entry->state = State::kWorking;
        lock.unlock();
        const bool isReady = Prepare(*entry);
        lock.lock();
        entry->state = isReady ? State::kReady : State::kFailed;
        done_.notify_one();
    }
}

bool CopyAhead::Prepare(Entry& entry) {
    AheadItem& item = entry.item;
    if (item.source.empty() && !(findSource_ && findSource_(item))) return false;
    const auto in = item.sourceFolder == nullptr
                        ? OpenForCopy({AT_FDCWD, item.source.c_str()})
                        : OpenForCopyBelow({item.sourceFolder->Get(), item.source.c_str()});
    if (!in) return false;
    const auto st = StatOf(in->Get());
    const bool isFit = st && S_ISREG(st->stx_mode) && st->stx_size <= kMostInOneGo &&
                       IsSettled(*st, roads_.aheadAge);
    if (!isFit) return false;
    auto part = PartFile::CreateUnnamed(item.targetFolder->Get(), st->stx_mode & kPlainPermissions);
    if (!part) return false;
    const CopyObserver nobody;
    CopyRun run(nobody, roads_, false);
    if (!CopyContent(in->Get(), part->Fd(), *st, run)) return false;
    // A group that couldn't be kept is that of the folder, which may be another in the end.
    if (!CopyMetadata(in->Get(), part->Fd(), *st)) return false;
    // What changed while it was read is read again by who asks for it.
    const auto now = StatOf(in->Get());
    if (!now || !IsSame(*st, *now)) return false;
    entry.st = *st;
    entry.part.emplace(std::move(*part));
    return true;
}

} // namespace tarvix::platform
