#pragma once

#include "platform/file_system.h"
#include "platform/linux/copy_run.h"
#include "platform/linux/part_file.h"
#include "platform/seen_object.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace tarvix::platform {

// A small file that will probably be copied soon.
struct AheadItem {
    std::string key;                              // its drive path, as its copy will be asked for
    std::shared_ptr<const UniqueFd> sourceFolder; // none where `source` is an absolute path
    std::string source; // empty where it is still to be found; below the folder no link is followed
    std::shared_ptr<const UniqueFd> targetFolder; // any folder of the file system that it goes to
    std::uint32_t location = kAnyRoad;            // of its path, where a search saw it
    std::shared_ptr<Known> found;                 // what FindSource keeps of it
};

// A source as it was looked at for its copy, which lies ready.
struct AheadSource {
    struct statx st;
    std::uint32_t location;
    std::shared_ptr<Known> found;
};

// Copies files on a second thread before they are asked for, a little ahead of the one that asks,
// into files that have no name. Whoever asks gives them their name, if the source is still the same
// by then. What is not asked for vanishes, after a short while at the latest.
class CopyAhead {
  public:
    // Finds the source of an item that has none yet, on the second thread; false for none.
    using FindSource = std::function<bool(AheadItem&)>;

    explicit CopyAhead(CopyRoads roads, FindSource findSource = {})
        : roads_(roads), findSource_(std::move(findSource)) {}
    ~CopyAhead();
    CopyAhead(const CopyAhead&) = delete;
    CopyAhead& operator=(const CopyAhead&) = delete;

    // The files that come next, in that order, instead of those of the last call. Only the first
    // few are looked at.
    void Replace(std::vector<AheadItem> items);
    // Files that come before all others but the first few that are known of.
    void Push(std::vector<AheadItem> items, std::size_t behind);
    // Forgets what was pushed.
    void DropPushed();
    // The source of a copy that lies ready, which then waits for its Take alone. Files that should
    // have come before it are taken off the plan.
    std::optional<AheadSource> LookAt(std::string_view key);
    // The copy of a file, whole but for its name, if it was made and `st` tells that the file is
    // still the same. Files that should have come before it are taken off the plan.
    std::optional<PartFile> Take(std::string_view key, const struct statx& st);
    // Forgets everything; false when there was nothing.
    bool Drop();

  private:
    enum class State { kWaiting, kWorking, kReady, kFailed };
    struct Entry {
        AheadItem item;
        bool isPushed = false;
        State state = State::kWaiting;
        struct statx st {}; // of the source before it was read
        std::optional<PartFile> part;
    };
    using Entries = std::deque<std::shared_ptr<Entry>>;

    void Start();
    void Work();
    void Rest(std::unique_lock<std::mutex>& lock);
    std::shared_ptr<Entry> NextToDo() const;
    Entries::iterator Find(std::string_view key);
    // To be called when some were taken; gives the lock back.
    void WakeIfFew(std::unique_lock<std::mutex>& lock);
    bool HasManyReady() const;
    bool Prepare(Entry& entry);

    const CopyRoads roads_;
    const FindSource findSource_;
    std::mutex mutex_;
    std::condition_variable more_; // there may be something to do
    std::condition_variable done_; // a file is ready or has failed
    Entries entries_;
    bool isResting_ = false;
    bool isEnding_ = false;
    std::shared_ptr<Entry> lookedAt_; // off the plan, for the one who asks alone
    std::thread thread_;
};

} // namespace tarvix::platform
