#pragma once

#include "platform/linux/unique_fd.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvix::platform {

// Folders that a thread holds open while it works on them call after call, so that not each call
// walks a long path. What others do to the folders themselves is seen a few milliseconds later.
class HeldFolders {
  public:
    static HeldFolders& OfThread();

    // Holds folders between the first Begin and the last End, and none at other times.
    void Begin() { ++depth_; }
    void End();
    bool IsOn() const { return depth_ > 0; }
    // To be called when a folder was moved, removed or put in the place of another.
    void LetGo();
    // To be called when an object was made at `path`, where others may have taken a folder away.
    void LetGoAt(std::string_view path);

    // A descriptor of a folder given by its absolute native path without a final "/"; none when it
    // isn't held. A folder that is asked for again and again becomes held.
    std::shared_ptr<const UniqueFd> Find(std::string_view folder);

  private:
    struct Held {
        std::string path;
        std::shared_ptr<const UniqueFd> fd;
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        std::int64_t checkedAt = 0;
        std::uint64_t usedAt = 0; // by count of calls
        int asked = 0;
    };

    static void Open(Held& held);
    static bool IsStillThere(Held& held);

    std::array<Held, 4> held_;
    std::uint64_t calls_ = 0;
    int depth_ = 0;
};

} // namespace tarvix::platform
