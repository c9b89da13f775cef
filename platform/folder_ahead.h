#pragma once

#include "platform/folder_visit.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvix::platform {

class FileSystem;

// One folder, which may be large, read in the background: its names first, then the facts of what
// is wanted of it, a part at a time. Two threads share the work, and begin with the facts while the
// names are still read. Only for file systems that allow reading threads.
class FolderAhead {
  public:
    // Reads the folder, a drive path, as `wish` has it but for its own facts. `files` must outlive
    // this.
    FolderAhead(FileSystem& files, std::string folder, VisitWish wish);
    // Takes the facts of those of its names alone.
    FolderAhead(FileSystem& files, std::string folder, std::shared_ptr<const FolderListing> names,
                std::vector<std::uint32_t> wanted);
    ~FolderAhead();
    FolderAhead(const FolderAhead&) = delete;
    FolderAhead& operator=(const FolderAhead&) = delete;

    // What is done every few milliseconds while the caller has to wait; false gives the waiting up.
    void WhileWaiting(std::function<bool()> act);

    // Gives what is known of the folder but for the facts; no names where it couldn't be read.
    // False when waiting was given up.
    bool TakeNames(FolderVisit& visit);
    // Those of the file that is the `place`-th of the wanted ones; unknown where it is gone, can't
    // be looked at, or waiting was given up.
    BriefFacts FactsAt(std::size_t place);

  private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace tarvix::platform
