#pragma once

#include "platform/folder_listing.h"
#include "platform/object_facts.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

class FileSystem;

constexpr std::int64_t kNoSeconds = std::numeric_limits<std::int64_t>::min();

// Facts as a search keeps them until it lists the object: its times in seconds since 1970 UTC, as
// they are shown, its time of change in steps of kListedTimeStep. 64 bytes in place of 112.
struct BriefFacts {
    std::uint64_t size = 0;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t changed = kNoSeconds;
    std::int64_t modified = kNoSeconds;
    std::int64_t created = kNoSeconds;
    std::int64_t accessed = kNoSeconds;
    std::uint32_t attributes = 0;
    bool isKnown = false; // else the object is gone, can't be looked at or wasn't asked for
};

BriefFacts Brief(const ObjectFacts& facts);
// The facts again, with full seconds and steps.
ObjectFacts Whole(const BriefFacts& facts);

// What a search wants of each folder besides its names.
struct VisitWish {
    // Whether a file of that name, in drive form, is wanted. Called by several threads at once;
    // null wants none.
    std::function<bool(std::string_view name)> wants;
    bool facts = false;       // of the files that are wanted
    bool folderFacts = false; // of the folder itself
};

// What one visit to a folder brought.
struct FolderVisit {
    std::shared_ptr<const FolderListing> names; // null where the folder couldn't be read
    std::vector<std::uint32_t> wanted;          // the files that are, by their index in `names`
    std::vector<BriefFacts> facts;              // one for each of these, where they were asked for
    BriefFacts folder;
};

// A folder held open for several threads, which outlives its file system if it must.
class PartedFolder {
  public:
    using More = std::function<void(const FolderListing& soFar)>;

    virtual ~PartedFolder() = default;
    // Its names, in `Dir` order; null where they can't be read. `more` is told now and then what
    // was read so far, in the disk's order; later names come behind it. By one thread.
    virtual std::shared_ptr<const FolderListing> NamesInParts(const More& more) = 0;
    // The facts of one of its names, in drive form. By any thread, and while names are read.
    virtual BriefFacts FactsOf(std::string_view name) const = 0;
};

// Visits folders one after the other, for one thread; each is opened once for all that is wanted of
// it.
class FolderVisitor {
  public:
    virtual ~FolderVisitor() = default;
    // `folder` is a drive path. Ends early, with whatever it has by then, once `isDropped`.
    virtual void Visit(const std::string& folder, const VisitWish& wish,
                       const std::atomic<bool>& isDropped, FolderVisit& visit) = 0;
    // Between runs of visits: what is held open of the last ones is given back. Gives whether the
    // disk made it wait for most of them.
    virtual bool EndRun() { return false; }
    // Null where it can't be opened, or only a visit can read it.
    virtual std::unique_ptr<PartedFolder> OpenInParts(const std::string&) { return nullptr; }
};

// A file system that has a quicker way to visit a folder than to open it by its path.
class VisitedFiles {
  public:
    virtual ~VisitedFiles() = default;
    // It may outlive the file system, and be used by any one thread at a time.
    virtual std::unique_ptr<FolderVisitor> NewVisitor() = 0;
};

// The file system's own visitor, or else one that opens, lists and looks; that one must not outlive
// `files`.
std::unique_ptr<FolderVisitor> VisitorOf(FileSystem& files);

// Fills in which files of `names` are wanted.
void FindWanted(const VisitWish& wish, FolderVisit& visit);

} // namespace tarvix::platform
