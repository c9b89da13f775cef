#pragma once

#include "platform/linux/copy_run.h"
#include "platform/linux/errno_failure.h"
#include "platform/linux/system_calls.h"
#include "platform/linux/unique_fd.h"

#include <string>

namespace tarvix::platform {

// A new file without its name: written apart, then named in one step. Destroyed before that,
// nothing of it is left. Where the file system can't hold nameless files it bears a hidden
// temporary name.
class PartFile {
  public:
    // The part will be named in `folder`, which must stay open. `mode` is what it may have at once
    // where it has no name.
    static Sys<PartFile> Create(int folder, unsigned mode, const CopyRoads& roads);
    // A part that bears no name at all until it is named, in any folder of the same file system.
    // Fails where that can't be.
    static Sys<PartFile> CreateUnnamed(int folder, unsigned mode);

    // A part in a folder that is itself a part: it bears its name from the start. EEXIST.
    static Sys<PartFile> CreateInside(int folder, const char* name, unsigned mode);

    PartFile(PartFile&& other) noexcept;
    PartFile& operator=(PartFile&&) = delete;
    ~PartFile();

    int Fd() const { return fd_.Get(); }
    // Gives it its name and closes it. EEXIST when the name is taken and `overwrite` is false; then
    // it can be tried again.
    Sys<void> Commit(At to, bool overwrite);

  private:
    PartFile(int folder, UniqueFd fd, std::string temporary, const CopyRoads& roads)
        : folder_(folder), fd_(std::move(fd)), temporary_(std::move(temporary)), roads_(roads) {}
    Sys<void> NameUnnamed(At to, bool overwrite);

    int folder_;
    UniqueFd fd_;
    std::string temporary_; // empty while it has no name at all
    bool isInside_ = false; // that name is its own
    CopyRoads roads_;
};

// The plain call for a rename that never replaces, with its own errnos.
Sys<void> RenameInOneStep(At from, At to);

// Renames without ever replacing anything: EEXIST. Where the system can't do that in one step,
// files are linked and unlinked, or the name is looked for just before.
Sys<void> RenameWithoutReplacing(At from, At to, bool isFolder, const CopyRoads& roads);
// The same for an object that its own mode may keep from going, such as a read-only folder that
// goes into another: only once that was refused its owner may write to it for so long, and then its
// whole mode is as it was, wherever it is.
Sys<void> RenameReadOnly(At from, At to, bool isFolder, const CopyRoads& roads);

} // namespace tarvix::platform
