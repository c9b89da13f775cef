#include "platform/folder_ahead.h"

#include "platform/file_system.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <iterator>
#include <mutex>
#include <thread>
#include <utility>

namespace tarvix::platform {

namespace {

constexpr std::size_t kPart = 256;       // files
constexpr std::size_t kMostUntaken = 4;  // parts, while names are read
constexpr std::size_t kWorthEarly = 512; // names
constexpr std::size_t kReaders = 2;
constexpr std::chrono::milliseconds kOwnerWaits{10};
constexpr std::chrono::milliseconds kEndWaits{40};

// Some files, whose facts one thread takes.
struct Part {
    FolderListing copied;              // of names that are still read
    std::vector<std::uint32_t> places; // else among the wanted ones
    std::vector<BriefFacts> facts;
    std::atomic<bool> isDone = false;
};

// Where the facts of a file are.
struct Slot {
    std::uint32_t part = 0;
    std::uint32_t index = 0;
};

// The files of the first parts by where their names lie in the listing's text, which sorting leaves
// as it is.
struct EarlyFile {
    std::size_t offset = 0;
    Slot slot;
};

// Where the listing's text begins.
const char* BeginOf(const FolderListing& names) {
    const char* begin = nullptr;
    for (std::size_t i = 0; i < names.Size(); ++i) {
        const char* const at = names[i].name.data();
        if (begin == nullptr || std::less<>()(at, begin)) begin = at;
    }
    return begin;
}

} // namespace

// One reader lists the folder, and calls for another as soon as there is work for two; parts are
// taken up in their order. Readers that the disk holds up may outlive the owner.
struct FolderAhead::State {
    State(FileSystem& files, std::string path, VisitWish visitWish)
        : folder(std::move(path)), wish(std::move(visitWish)),
          mayOutlive(dynamic_cast<VisitedFiles*>(&files) != nullptr) {}

    // ---- the owner's ----
    void Start(FileSystem& files);
    bool WaitFor(const std::atomic<bool>& isThere);
    void End();

    // ---- the readers' ----
    void Read(FolderVisitor& by);
    void ReadNames();
    void TakeEarly(const FolderListing& soFar);
    std::unique_ptr<Part> EarlyPart(const FolderListing& soFar);
    void ShareOut();
    void DropUntaken();
    void AddParts(std::vector<std::unique_ptr<Part>> more);
    void DoParts();
    Part* TakeUp();
    void Do(Part& part) const;
    void Tell(std::atomic<bool>& flag);
    void StartReader(std::function<void()> act); // under the lock

    const std::string folder;
    const VisitWish wish;
    const bool mayOutlive;
    std::function<bool()> whileWaiting;
    std::weak_ptr<State> self;

    // The listing reader's, until `isNamed`; then they stand.
    std::unique_ptr<PartedFolder> opened; // stands as soon as there is a part
    FolderVisit visit;
    std::vector<Slot> slots; // one for each wanted file
    std::size_t seen = 0;    // names
    std::vector<EarlyFile> early;
    std::atomic<bool> isNamed = false; // no part is added any more

    std::mutex mutex; // for all below
    std::condition_variable changed;
    std::vector<std::unique_ptr<Part>> parts;
    std::size_t next = 0; // the first that nobody has taken up
    bool areAll = false;
    std::vector<std::thread> readers;
    std::size_t running = 0;
    std::atomic<bool> ownerWaits = false;
    std::atomic<bool> isDropped = false;
};

void FolderAhead::State::Start(FileSystem& files) {
    const std::scoped_lock lock(mutex);
    StartReader([this, by = std::shared_ptr(VisitorOf(files))] {
        Read(*by);
        DoParts();
    });
}

// Where no thread can be had the owner comes to know nothing.
void FolderAhead::State::StartReader(std::function<void()> act) {
    try {
        readers.emplace_back([state = self.lock(), act = std::move(act)] {
            act();
            const std::scoped_lock lock(state->mutex);
            --state->running;
            state->changed.notify_all();
        });
        ++running;
    } catch (const std::exception&) {
        return;
    }
}

void FolderAhead::State::Read(FolderVisitor& by) {
    opened = by.OpenInParts(folder);
    if (visit.names) {
        ShareOut();
    } else if (opened) {
        ReadNames();
    } else {
        by.Visit(folder, {.wants = wish.wants}, isDropped, visit);
    }
    AddParts({});
    Tell(isNamed);
}

void FolderAhead::State::ReadNames() {
    PartedFolder::More more;
    if (wish.facts) more = [this](const FolderListing& soFar) { TakeEarly(soFar); };
    visit.names = opened->NamesInParts(more);
    if (!visit.names) return;
    FindWanted(wish, visit);
    if (wish.facts) ShareOut();
}

// What isn't taken up soon comes in the order of the names later.
void FolderAhead::State::TakeEarly(const FolderListing& soFar) {
    if (soFar.Size() < kWorthEarly || isDropped) return;
    while (seen < soFar.Size()) {
        {
            const std::scoped_lock lock(mutex);
            if (parts.size() - next >= kMostUntaken) break;
        }
        std::vector<std::unique_ptr<Part>> more;
        more.push_back(EarlyPart(soFar));
        AddParts(std::move(more));
    }
    seen = soFar.Size();
}

std::unique_ptr<Part> FolderAhead::State::EarlyPart(const FolderListing& soFar) {
    auto part = std::make_unique<Part>();
    const char* const begin = soFar[0].name.data();
    const auto number = static_cast<std::uint32_t>(parts.size());
    for (; seen < soFar.Size() && part->copied.Size() < kPart; ++seen) {
        const FolderEntry entry = soFar[seen];
        if (entry.isFolder || !wish.wants || !wish.wants(entry.name)) continue;
        const auto index = static_cast<std::uint32_t>(part->copied.Size());
        early.push_back({static_cast<std::size_t>(entry.name.data() - begin), {number, index}});
        part->copied.Add(entry);
    }
    part->facts.resize(part->copied.Size());
    return part;
}

void FolderAhead::State::DropUntaken() {
    {
        const std::scoped_lock lock(mutex);
        parts.resize(next);
    }
    while (!early.empty() && early.back().slot.part >= parts.size())
        early.pop_back();
}

// The files that nobody has begun with, in the order in which they are asked for.
void FolderAhead::State::ShareOut() {
    DropUntaken();
    const FolderListing& names = *visit.names;
    const char* const begin = early.empty() ? nullptr : BeginOf(names);
    std::vector<std::unique_ptr<Part>> more;
    slots.reserve(visit.wanted.size());
    for (std::uint32_t place = 0; place < visit.wanted.size(); ++place) {
        const char* const at = names[visit.wanted[place]].name.data();
        const auto offset = static_cast<std::size_t>(begin == nullptr ? 0 : at - begin);
        const auto found = std::ranges::lower_bound(early, offset, {}, &EarlyFile::offset);
        if (found != early.end() && found->offset == offset) {
            slots.push_back(found->slot);
            continue;
        }
        if (more.empty() || more.back()->places.size() == kPart)
            more.push_back(std::make_unique<Part>());
        auto& places = more.back()->places;
        slots.push_back({static_cast<std::uint32_t>(parts.size() + more.size() - 1),
                         static_cast<std::uint32_t>(places.size())});
        places.push_back(place);
    }
    for (const auto& part : more)
        part->facts.resize(part->places.size());
    AddParts(std::move(more));
}

// None are the last.
void FolderAhead::State::AddParts(std::vector<std::unique_ptr<Part>> more) {
    const std::scoped_lock lock(mutex);
    areAll = more.empty();
    std::ranges::move(more, std::back_inserter(parts));
    const bool isWorth = parts.size() - next > 1 || (!areAll && !visit.names);
    if (isWorth && readers.size() < kReaders && !isDropped) StartReader([this] { DoParts(); });
    changed.notify_all();
}

void FolderAhead::State::DoParts() {
    while (Part* const part = TakeUp()) {
        Do(*part);
        Tell(part->isDone);
    }
}

Part* FolderAhead::State::TakeUp() {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return isDropped || areAll || next < parts.size(); });
    return isDropped || next == parts.size() ? nullptr : parts[next++].get();
}

void FolderAhead::State::Do(Part& part) const {
    if (!opened) return;
    for (std::size_t i = 0; i < part.facts.size() && !isDropped; ++i) {
        const bool isEarly = part.places.empty();
        const FolderEntry entry =
            isEarly ? part.copied[i] : (*visit.names)[visit.wanted[part.places[i]]];
        part.facts[i] = opened->FactsOf(entry.name);
    }
}

void FolderAhead::State::Tell(std::atomic<bool>& flag) {
    flag = true;
    if (!ownerWaits) return;
    const std::scoped_lock lock(mutex);
    changed.notify_all();
}

bool FolderAhead::State::WaitFor(const std::atomic<bool>& isThere) {
    if (isThere) return true;
    std::unique_lock lock(mutex);
    ownerWaits = true;
    const auto isOver = [&] { return isThere.load() || running == 0; };
    while (!changed.wait_for(lock, kOwnerWaits, isOver)) {
        lock.unlock();
        const bool goesOn = !whileWaiting || whileWaiting();
        lock.lock();
        if (!goesOn) break;
    }
    ownerWaits = false;
    return isThere;
}

// As ReadAhead ends.
void FolderAhead::State::End() {
    std::unique_lock lock(mutex);
    isDropped = true;
    changed.notify_all();
    const auto areGone = [this] { return running == 0; };
    if (mayOutlive) {
        changed.wait_for(lock, kEndWaits, areGone);
    } else {
        changed.wait(lock, areGone);
    }
    const bool areEnding = areGone();
    std::vector<std::thread> ending = std::exchange(readers, {});
    lock.unlock();
    for (std::thread& reader : ending)
        areEnding ? reader.join() : reader.detach();
}

FolderAhead::FolderAhead(FileSystem& files, std::string folder, VisitWish wish)
    : state_(std::make_shared<State>(files, std::move(folder), std::move(wish))) {
    state_->self = state_;
    state_->Start(files);
}

FolderAhead::FolderAhead(FileSystem& files, std::string folder,
                         std::shared_ptr<const FolderListing> names,
                         std::vector<std::uint32_t> wanted)
    : state_(std::make_shared<State>(files, std::move(folder), VisitWish())) {
    state_->self = state_;
    state_->visit.names = std::move(names);
    state_->visit.wanted = std::move(wanted);
    state_->Start(files);
}

FolderAhead::~FolderAhead() {
    state_->End();
}

void FolderAhead::WhileWaiting(std::function<bool()> act) {
    state_->whileWaiting = std::move(act);
}

bool FolderAhead::TakeNames(FolderVisit& visit) {
    if (!state_->WaitFor(state_->isNamed)) return false;
    visit.names = state_->visit.names;
    visit.wanted = state_->visit.wanted;
    return true;
}

BriefFacts FolderAhead::FactsAt(std::size_t place) {
    if (!state_->WaitFor(state_->isNamed) || place >= state_->slots.size()) return {};
    const Slot slot = state_->slots[place];
    const Part& part = *state_->parts[slot.part];
    return state_->WaitFor(part.isDone) ? part.facts[slot.index] : BriefFacts();
}

} // namespace tarvix::platform
