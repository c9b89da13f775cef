#pragma once

#include "platform/linux/errno_failure.h"
#include "platform/linux/system_calls.h"
#include "platform/linux/unique_fd.h"

#include <memory>
#include <string>
#include <vector>

namespace tarvix::platform {

// The folders from where a walk began to where it is, the innermost open. However deep it goes,
// only so many descriptors are held; a folder is opened again, and known again, on the way back.
class FolderStack {
  public:
    Sys<void> Begin(UniqueFd fd);
    // Goes into a folder of the innermost one; a symbolic link is not followed (ELOOP, ENOTDIR).
    Sys<void> Enter(const char* name);
    // Goes back out. ENOENT when the outer folder can't be found again.
    Sys<void> Leave();

    int Top() const { return levels_.back().fd->Get(); }
    // The innermost one, for who needs it longer.
    std::shared_ptr<const UniqueFd> Share() const { return levels_.back().fd; }
    const struct statx& TopFacts() const { return levels_.back().st; }
    // The folder around the innermost one.
    const struct statx& OuterFacts() const { return levels_[levels_.size() - 2].st; }
    std::size_t Depth() const { return levels_.size(); }

  private:
    struct Level {
        std::shared_ptr<const UniqueFd> fd;
        struct statx st;
    };
    std::vector<Level> levels_;
};

// The names of one folder in the order of their bytes, read at once so that its descriptor isn't
// needed between.
class FolderNames {
  public:
    struct Item {
        const char* name;
        unsigned char type; // DT_REG ..., never DT_UNKNOWN
    };

    static Sys<FolderNames> Read(int fd);
    // The next name, or a null one at the end.
    Item Next();
    std::size_t Size() const { return records_.size(); }
    std::size_t NextIndex() const { return next_; }
    Item operator[](std::size_t index) const;

  private:
    struct Record {
        std::size_t offset;
        unsigned char type;
    };
    std::string names_; // each ends in NUL
    std::vector<Record> records_;
    std::size_t next_ = 0;
};

} // namespace tarvix::platform
