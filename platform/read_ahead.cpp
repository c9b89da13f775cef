#include "platform/read_ahead.h"

#include "platform/file_system.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

namespace tarvix::platform {

namespace {

constexpr std::size_t kMostUntaken = 4096; // folders read and not yet taken
constexpr std::size_t kAtOnce = 32;        // folders that are handed over under one lock
constexpr std::size_t kWorthWaking = 4;    // folders, for a reader that has nothing to do
constexpr std::size_t kLeastAtOnce = 4;    // unless the disk makes readers wait
constexpr std::size_t kReaders = 2;
constexpr std::size_t kMostReaders = 16; // on a disk that makes them wait
constexpr std::chrono::milliseconds kToldAfter{1};
constexpr std::chrono::milliseconds kOwnerWaits{10};
constexpr std::chrono::milliseconds kEndWaits{40};

struct Order {
    std::string folder;
    bool isForNames = false;
};

struct Job {
    explicit Job(Order&& given) : order(std::move(given)) {}
    Order order;
    FolderVisit visit;
    std::atomic<bool> isDone = false;
};

} // namespace

// Only the owner adds and drops jobs; readers take them up in their order. What both touch is under
// the lock, except whether a job is done, so that a result that is there costs the owner nothing.
// Readers that the disk holds up may outlive the owner.
struct ReadAhead::State {
    State(FileSystem& fileSystem, VisitWish visitWish)
        : files(fileSystem), wish(std::move(visitWish)),
          mayOutlive(dynamic_cast<VisitedFiles*>(&fileSystem) != nullptr) {}

    // ---- the owner's ----
    void Add(Order order);
    void Flush();
    Job* Front(); // the oldest job not taken, done; null when waiting was given up
    void Drop();

    // ---- the readers' ----
    static void Read(const std::shared_ptr<State>& state,
                     const std::unique_ptr<FolderVisitor>& visitor);
    bool TakeUp(std::vector<Job*>& mine);
    void DoAll(FolderVisitor& visitor, const std::vector<Job*>& mine);
    void Do(FolderVisitor& visitor, Job& job);
    void Tell(std::vector<Job*>::const_iterator begin, std::vector<Job*>::const_iterator end);

    void StartReader(); // under the lock
    bool HasWork() const { return next < jobs.size() && next < kMostUntaken; }

    FileSystem& files;
    const VisitWish wish;
    const bool mayOutlive;
    std::function<bool()> whileWaiting;
    std::weak_ptr<State> self;

    std::vector<Order> pending; // the owner's alone, until they are handed over
    std::size_t taken = 0;      // in front of the oldest that the owner still wants; its alone
    std::unique_ptr<FolderVisitor> ownVisitor; // the owner's, where there are no readers

    std::mutex mutex;
    std::condition_variable work;
    std::condition_variable done;
    std::deque<Job> jobs; // adding and dropping leaves the others where they are
    std::size_t next = 0; // the first that nobody has taken up
    std::vector<std::thread> readers;
    std::size_t running = 0;
    std::atomic<std::size_t> idle = 0;
    std::atomic<bool> ownerWaits = false;
    std::atomic<bool> isDropped = false;
};

void ReadAhead::State::Add(Order order) {
    pending.push_back(std::move(order));
    const bool isAwaited = idle > 0 && pending.size() >= kWorthWaking;
    if (isAwaited || pending.size() >= kAtOnce) Flush();
}

void ReadAhead::State::Flush() {
    if (pending.empty()) return;
    const std::scoped_lock lock(mutex);
    for (Order& order : pending)
        jobs.emplace_back(std::move(order));
    pending.clear();
    if (!files.AllowsReadingThreads()) return;
    while (readers.size() < kReaders && readers.size() < jobs.size() - next) {
        const std::size_t before = readers.size();
        StartReader();
        if (readers.size() == before) break;
    }
    if (idle > 0 && HasWork()) work.notify_all();
}

// Where no thread can be had the owner does the work itself.
void ReadAhead::State::StartReader() {
    try {
        readers.emplace_back(&State::Read, self.lock(), VisitorOf(files));
        ++running;
    } catch (const std::exception&) {
        return;
    }
}

void ReadAhead::State::Read(const std::shared_ptr<State>& state,
                            const std::unique_ptr<FolderVisitor>& visitor) {
    std::vector<Job*> mine;
    while (state->TakeUp(mine)) {
        state->DoAll(*visitor, mine);
        if (!visitor->EndRun()) continue;
        const std::scoped_lock lock(state->mutex);
        const bool isWorth = state->HasWork() && state->idle == 0 && !state->isDropped;
        if (isWorth && state->readers.size() < kMostReaders) state->StartReader();
    }
    const std::scoped_lock lock(state->mutex);
    --state->running;
    state->done.notify_all();
}

// As much as leaves the other readers the same.
bool ReadAhead::State::TakeUp(std::vector<Job*>& mine) {
    mine.clear();
    std::unique_lock lock(mutex);
    ++idle;
    work.wait(lock, [this] { return isDropped || HasWork(); });
    --idle;
    if (isDropped) return false;
    const std::size_t share = (jobs.size() - next) / (2 * readers.size());
    const std::size_t least = readers.size() > kReaders ? 1 : kLeastAtOnce;
    const std::size_t most = std::clamp(share, least, kAtOnce);
    for (; mine.size() < most && HasWork(); ++next)
        mine.push_back(&jobs[next]);
    return true;
}

// Results are told many at once, but none is kept back for long.
void ReadAhead::State::DoAll(FolderVisitor& visitor, const std::vector<Job*>& mine) {
    using Clock = std::chrono::steady_clock;
    auto told = mine.begin();
    auto toldAt = Clock::now();
    for (auto job = mine.begin(); job != mine.end(); ++job) {
        if (isDropped) return;
        Do(visitor, **job);
        const auto now = Clock::now();
        if (now - toldAt < kToldAfter) continue;
        Tell(told, std::next(job));
        told = std::next(job);
        toldAt = now;
    }
    Tell(told, mine.end());
}

void ReadAhead::State::Do(FolderVisitor& visitor, Job& job) {
    static const VisitWish kNamesAlone;
    const VisitWish& wanted = job.order.isForNames ? kNamesAlone : wish;
    visitor.Visit(job.order.folder, wanted, isDropped, job.visit);
}

void ReadAhead::State::Tell(std::vector<Job*>::const_iterator begin,
                            std::vector<Job*>::const_iterator end) {
    if (begin == end) return;
    for (; begin != end; ++begin)
        (*begin)->isDone = true;
    if (!ownerWaits) return;
    const std::scoped_lock lock(mutex);
    done.notify_all();
}

Job* ReadAhead::State::Front() {
    Flush();
    Job& job = jobs[taken];
    if (job.isDone) return &job;
    std::unique_lock lock(mutex);
    if (readers.empty()) {
        lock.unlock();
        if (!ownVisitor) ownVisitor = VisitorOf(files);
        Do(*ownVisitor, job);
        job.isDone = true;
        ++next;
        return &job;
    }
    ownerWaits = true;
    while (!done.wait_for(lock, kOwnerWaits, [&job] { return job.isDone.load(); })) {
        lock.unlock();
        if (whileWaiting && !whileWaiting()) {
            ownerWaits = false;
            return nullptr;
        }
        lock.lock();
    }
    ownerWaits = false;
    return &job;
}

void ReadAhead::State::Drop() {
    ++taken;
    if (taken < kAtOnce) return;
    const std::scoped_lock lock(mutex);
    next -= taken;
    for (; taken > 0; --taken)
        jobs.pop_front();
    if (idle > 0 && HasWork()) work.notify_all();
}

ReadAhead::ReadAhead(FileSystem& files, VisitWish wish)
    : state_(std::make_shared<State>(files, std::move(wish))) {
    state_->self = state_;
}

// Readers end behind the object in hand; one that the disk holds up is left to end by itself.
ReadAhead::~ReadAhead() {
    std::unique_lock lock(state_->mutex);
    state_->isDropped = true;
    state_->work.notify_all();
    const auto areGone = [this] { return state_->running == 0; };
    if (state_->mayOutlive) {
        state_->done.wait_for(lock, kEndWaits, areGone);
    } else {
        state_->done.wait(lock, areGone);
    }
    const bool areEnding = areGone();
    lock.unlock();
    for (std::thread& reader : state_->readers) {
        areEnding ? reader.join() : reader.detach();
    }
    state_->readers.clear();
}

void ReadAhead::WhileWaiting(std::function<bool()> act) {
    state_->whileWaiting = std::move(act);
}

void ReadAhead::OrderVisit(std::string folder, bool isForNames) {
    state_->Add({.folder = std::move(folder), .isForNames = isForNames});
}

bool ReadAhead::TakeVisit(FolderVisit& visit) {
    Job* const job = state_->Front();
    visit = job != nullptr ? std::move(job->visit) : FolderVisit();
    if (job != nullptr) state_->Drop();
    return job != nullptr;
}

bool ReadAhead::TakeListing(FolderListing& listing) {
    FolderVisit visit;
    if (!TakeVisit(visit) || !visit.names) return false;
    listing = *visit.names;
    return true;
}

} // namespace tarvix::platform
