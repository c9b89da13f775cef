#pragma once

#include "platform/linux/drive_table.h"
#include "platform/linux/unique_fd.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <thread>

namespace tarvix::platform {

// How large a folder is that is being copied. What is copied in a moment is never looked through;
// a longer copy goes on while another thread does so.
class TreeSize {
  public:
    // `after` nanoseconds from now the folder is looked through.
    TreeSize(UniqueFd folder, std::shared_ptr<const DriveTable> drives, std::int64_t after);
    // Gives up what isn't finished.
    ~TreeSize();
    TreeSize(const TreeSize&) = delete;
    TreeSize& operator=(const TreeSize&) = delete;

    // The bytes of all files in it, as far as they can be seen; nothing while they aren't known. To
    // be asked now and then.
    std::optional<std::uint64_t> Now();

  private:
    std::uint64_t Sum();

    UniqueFd folder_;
    const std::shared_ptr<const DriveTable> drives_;
    const std::int64_t due_;
    std::uint64_t bytes_ = 0;
    std::atomic<bool> isKnown_ = false;
    std::atomic<bool> isEnding_ = false;
    std::thread thread_;
};

} // namespace tarvix::platform
