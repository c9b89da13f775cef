#include "platform/read_ahead.h"

#include "platform/file_system.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace tarvix::platform {

namespace {

constexpr std::size_t kMostUntaken = 256; // folders read and not yet taken

enum class Progress { kWaiting, kInWork, kDone };

struct Job {
    std::string folder;
    bool wantsFacts = false;
    FolderListing names; // asked for, or the result
    std::vector<std::optional<ObjectFacts>> facts;
    bool isRead = false;
    Progress progress = Progress::kWaiting;
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

struct ReadAhead::State {
    explicit State(FileSystem& fileSystem) : files(fileSystem) {}

    Job& Add(std::string folder, bool wantsFacts, FolderListing names);
    // The oldest job, done; it stays in front until Drop.
    Job& Front();
    void Drop();
    void Work(const std::stop_token& stop);

    FileSystem& files;
    std::mutex mutex;
    std::condition_variable_any changed;
    std::deque<Job> jobs; // pushing and popping leaves the others where they are
    std::size_t next = 0; // the first that nobody has taken up
    std::jthread worker;
};

Job& ReadAhead::State::Add(std::string folder, bool wantsFacts, FolderListing names) {
    const std::scoped_lock lock(mutex);
    Job& job = jobs.emplace_back();
    job.folder = std::move(folder);
    job.wantsFacts = wantsFacts;
    job.names = std::move(names);
    if (files.AllowsReadingThreads() && !worker.joinable()) {
        worker = std::jthread([this](const std::stop_token& stop) { Work(stop); });
    }
    changed.notify_all();
    return job;
}

void ReadAhead::State::Work(const std::stop_token& stop) {
    std::unique_lock lock(mutex);
    while (changed.wait(lock, stop, [&] { return next < jobs.size() && next < kMostUntaken; })) {
        Job& job = jobs[next++];
        job.progress = Progress::kInWork;
        lock.unlock();
        Do(files, job);
        lock.lock();
        job.progress = Progress::kDone;
        if (&job == &jobs.front()) changed.notify_all();
        if (stop.stop_requested()) return;
    }
}

Job& ReadAhead::State::Front() {
    std::unique_lock lock(mutex);
    Job& job = jobs.front();
    if (job.progress == Progress::kWaiting) {
        // Nobody has taken it up, so the caller does it itself.
        job.progress = Progress::kInWork;
        ++next;
        lock.unlock();
        Do(files, job);
        return job;
    }
    changed.wait(lock, [&] { return job.progress == Progress::kDone; });
    return job;
}

void ReadAhead::State::Drop() {
    const std::scoped_lock lock(mutex);
    jobs.pop_front();
    --next;
    changed.notify_all();
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
