#include "platform/read_ahead.h"

#include "platform/file_system.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace tarvix::platform {

namespace {

constexpr std::size_t kMostUntaken = 256; // folders read and not yet taken
constexpr std::size_t kAtOnce = 16; // folders that a thread takes up, or drops, under one lock
constexpr std::size_t kSmall = 512; // names; what takes no more time than waiting may

enum class Stage { kWaiting, kInWork, kDone };

struct Job {
    std::string folder;
    bool wantsFacts = false;
    FolderListing names; // asked for, or the result
    std::vector<std::optional<ObjectFacts>> facts;
    bool isRead = false;
    std::atomic<Stage> stage = Stage::kWaiting;
};

void ReadFacts(OpenFolder& folder, Job& job) {
    for (std::size_t i = 0; i < job.names.Size(); ++i) {
        if (auto facts = folder.Facts(job.names[i].name)) job.facts[i] = *facts;
    }
}

void Do(FileSystem& files, Job& job) {
    job.facts.resize(job.wantsFacts ? job.names.Size() : 0);
    if (job.wantsFacts && job.names.Size() == 0) return;
    auto folder = files.Open(job.folder);
    if (!folder) return;
    if (job.wantsFacts) {
        ReadFacts(**folder, job);
    } else {
        job.isRead = (*folder)->List(job.names).has_value();
    }
}

} // namespace

// Only the owner adds and drops jobs; the worker takes them up in their order. What both touch is
// under the lock, except a job's stage, so that a result that is there costs the owner nothing.
struct ReadAhead::State {
    explicit State(FileSystem& fileSystem) : files(fileSystem) {}

    void Add(std::string folder, bool wantsFacts, FolderListing names);
    Job& Front(); // the oldest job not taken, done
    void Drop();
    void Work(const std::stop_token& stop);
    bool HasWork() const { return next < jobs.size() && next < kMostUntaken; }
    Job* TakeUpFor(const Job& job);
    void AwaitDone(Job& job);

    FileSystem& files;
    std::mutex mutex;
    std::condition_variable_any changed;
    std::deque<Job> jobs;  // adding and dropping leaves the others where they are
    std::size_t next = 0;  // the first that nobody has taken up
    std::size_t taken = 0; // in front of the oldest that the owner still wants
    bool workerWaits = false;
    std::atomic<bool> ownerWaits = false;
    std::jthread worker;
};

void ReadAhead::State::Add(std::string folder, bool wantsFacts, FolderListing names) {
    const std::scoped_lock lock(mutex);
    Job& job = jobs.emplace_back();
    job.folder = std::move(folder);
    job.wantsFacts = wantsFacts;
    job.names = std::move(names);
    if (files.AllowsReadingThreads() && !worker.joinable()) {
        worker = std::jthread([this](const std::stop_token& stop) { Work(stop); });
    }
    if (workerWaits && HasWork()) changed.notify_all();
}

void ReadAhead::State::Work(const std::stop_token& stop) {
    std::vector<Job*> mine;
    while (!stop.stop_requested()) {
        {
            std::unique_lock lock(mutex);
            workerWaits = true;
            if (!changed.wait(lock, stop, [this] { return HasWork(); })) return;
            workerWaits = false;
            std::size_t names = 0;
            for (mine.clear(); HasWork() && mine.size() < kAtOnce && names < kSmall; ++next) {
                jobs[next].stage = Stage::kInWork;
                names += jobs[next].names.Size();
                mine.push_back(&jobs[next]);
            }
        }
        for (Job* job : mine) {
            if (stop.stop_requested()) return;
            Do(files, *job);
            job->stage = Stage::kDone;
            if (!ownerWaits) continue;
            const std::scoped_lock lock(mutex);
            changed.notify_all();
        }
    }
}

Job& ReadAhead::State::Front() {
    Job& job = jobs[taken];
    if (job.stage == Stage::kDone) return job;
    while (job.stage != Stage::kDone) {
        if (Job* const free = TakeUpFor(job)) {
            Do(files, *free);
            free->stage = Stage::kDone;
        } else {
            AwaitDone(job);
        }
    }
    return job;
}

// What the owner does while it has to wait for a job: that one, or a small one that comes next.
Job* ReadAhead::State::TakeUpFor(const Job& job) {
    const std::scoped_lock lock(mutex);
    if (!HasWork()) return nullptr;
    Job& first = jobs[next];
    const bool isSmall = first.wantsFacts && first.names.Size() <= kSmall;
    if (&first != &job && (!isSmall || job.stage == Stage::kDone)) return nullptr;
    first.stage = Stage::kInWork;
    ++next;
    return &first;
}

void ReadAhead::State::AwaitDone(Job& job) {
    std::unique_lock lock(mutex);
    ownerWaits = true;
    changed.wait(lock, [&] { return job.stage == Stage::kDone; });
    ownerWaits = false;
}

void ReadAhead::State::Drop() {
    ++taken;
    if (taken < kAtOnce) return;
    const std::scoped_lock lock(mutex);
    next -= taken;
    for (; taken > 0; --taken) {
        jobs.pop_front();
    }
    if (workerWaits && HasWork()) changed.notify_all();
}

ReadAhead::ReadAhead(FileSystem& files) : state_(std::make_unique<State>(files)) {}

ReadAhead::~ReadAhead() = default;

void ReadAhead::OrderListing(std::string folder) {
    state_->Add(std::move(folder), false, {});
}

bool ReadAhead::TakeListing(FolderListing& listing) {
    Job& job = state_->Front();
    std::swap(listing, job.names);
    const bool isRead = job.isRead;
    state_->Drop();
    return isRead;
}

void ReadAhead::OrderFacts(std::string folder, FolderListing names) {
    state_->Add(std::move(folder), true, std::move(names));
}

void ReadAhead::TakeFacts(std::vector<std::optional<ObjectFacts>>& facts) {
    std::swap(facts, state_->Front().facts);
    state_->Drop();
}

} // namespace tarvix::platform
