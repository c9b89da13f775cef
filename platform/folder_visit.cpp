#include "platform/folder_visit.h"

#include "platform/file_system.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace tarvix::platform {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::size_t kKeptWanted = 4096; // indexes

// Dates of disks mostly fit into 64 bits, which divide ten times as fast.
std::int64_t StepsOf(FileTime time, std::int64_t step) {
    if (time == kNoTime) return kNoSeconds;
    const auto small = static_cast<std::int64_t>(time);
    if (small == time) return small / step - (small % step < 0 ? 1 : 0);
    return static_cast<std::int64_t>(time / step - (time % step < 0 ? 1 : 0));
}

FileTime TimeOfSteps(std::int64_t steps, std::int64_t step) {
    return steps == kNoSeconds ? kNoTime : FileTime{steps} * step;
}

class PlainVisitor : public FolderVisitor {
  public:
    explicit PlainVisitor(FileSystem& files) : files_(files) {}

    void Visit(const std::string& folder, const VisitWish& wish, const std::atomic<bool>& isDropped,
               FolderVisit& visit) override {
        auto opened = files_.Open(folder);
        if (!opened) return;
        auto names = std::make_shared<FolderListing>();
        if (!(*opened)->List(*names)) return;
        visit.names = std::move(names);
        FindWanted(wish, visit);
        if (!wish.facts) return;
        visit.facts.resize(visit.wanted.size());
        for (std::size_t i = 0; i < visit.wanted.size() && !isDropped; ++i) {
            const auto facts = (*opened)->Facts((*visit.names)[visit.wanted[i]].name);
            if (facts) visit.facts[i] = Brief(*facts);
        }
    }

  private:
    FileSystem& files_;
};

} // namespace

BriefFacts Brief(const ObjectFacts& facts) {
    return {.size = facts.size,
            .device = facts.identity.device,
            .inode = facts.identity.inode,
            .changed = StepsOf(facts.identity.changed, static_cast<std::int64_t>(kListedTimeStep)),
            .modified = StepsOf(facts.modified, kSecond),
            .created = StepsOf(facts.created, kSecond),
            .accessed = StepsOf(facts.accessed, kSecond),
            .attributes = facts.attributes,
            .isKnown = true};
}

ObjectFacts Whole(const BriefFacts& facts) {
    return {.attributes = facts.attributes,
            .size = facts.size,
            .modified = TimeOfSteps(facts.modified, kSecond),
            .created = TimeOfSteps(facts.created, kSecond),
            .accessed = TimeOfSteps(facts.accessed, kSecond),
            .identity = {facts.device, facts.inode,
                         TimeOfSteps(facts.changed, static_cast<std::int64_t>(kListedTimeStep))}};
}

std::unique_ptr<FolderVisitor> VisitorOf(FileSystem& files) {
    auto* const own = dynamic_cast<VisitedFiles*>(&files);
    if (own != nullptr) return own->NewVisitor();
    return std::make_unique<PlainVisitor>(files);
}

void FindWanted(const VisitWish& wish, FolderVisit& visit) {
    if (!wish.wants) return;
    const FolderListing& names = *visit.names;
    static thread_local std::vector<std::uint32_t> wanted; // its room is kept for the next folder
    wanted.clear();
    for (std::size_t i = 0; i < names.Size(); ++i) {
        const FolderEntry entry = names[i];
        if (!entry.isFolder && wish.wants(entry.name)) {
            wanted.push_back(static_cast<std::uint32_t>(i));
        }
    }
    visit.wanted.assign(wanted.begin(), wanted.end());
    if (wanted.size() > kKeptWanted) wanted = {};
}

} // namespace tarvix::platform
