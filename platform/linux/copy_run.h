#pragma once

#include "platform/file_system.h"

#include <cstdint>
#include <string_view>

namespace tarvix::platform {

// The roads that a copy or move may take; a test closes some to force the next one.
struct CopyRoads {
    bool unnamedParts = true;              // parts without a name until they are whole
    bool clones = true;                    // sharing blocks with the source
    bool kernelCopies = true;              // copying inside the kernel
    bool renameNoReplace = true;           // renaming that never replaces
    bool links = true;                     // hard links
    bool ahead = true;                     // copying on a second thread before it is asked for
    std::int64_t aheadAge = 2'500'000'000; // nanoseconds since a source's last change, at the least
    std::int64_t sizeAfter = 500'000'000;  // nanoseconds until a folder is looked through
};

class CopyAhead;
class TreeSize;

// One call of CopyFile, CopyFolder or MoveFile: what its parts share.
class CopyRun {
  public:
    CopyRun(const CopyObserver& observer, CopyRoads openRoads, bool mayOverwrite)
        : roads(openRoads), overwrite(mayOverwrite), observer_(observer) {}

    const CopyRoads roads;
    const bool overwrite;
    bool sync = false; // bring each file to the disk before it gets its name
    CopyAhead* ahead = nullptr;
    bool isInside = false;    // all goes into a folder that bears no name of its own yet
    TreeSize* size = nullptr; // tells the total once it is known

    bool IsObserved() const { return static_cast<bool>(observer_); }
    void SetTotal(std::uint64_t bytes) { total_ = bytes; }
    std::uint64_t Done() const { return done_; }
    // Goes back, untold, where something is done again.
    void SetDone(std::uint64_t bytes) { done_ = bytes; }

    // Each gives false when the observer wants no more. `path` must live until the next Begin.
    bool Begin(std::string_view path) {
        path_ = path;
        return Tell();
    }
    bool Add(std::uint64_t bytes) {
        done_ += bytes;
        return Tell();
    }

  private:
    bool Tell();

    const CopyObserver& observer_;
    std::string_view path_;
    std::uint64_t done_ = 0;
    std::uint64_t total_ = 0;
};

} // namespace tarvix::platform
