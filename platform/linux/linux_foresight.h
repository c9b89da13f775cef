#pragma once

#include "platform/foresight.h"
#include "platform/linux/path_resolver.h"

namespace tarvix::platform {

// Asks the system for the rights of the program's user and for the room that such a user gets.
class LinuxForesight : public Foresight {
  public:
    // `resolver` must outlive it.
    explicit LinuxForesight(const PathResolver& resolver) : resolver_(resolver) {}

    Result<void> MayRead(std::string_view path) override;
    Result<void> MayAddTo(std::string_view folder) override;
    Result<void> MayTake(std::string_view path) override;
    std::optional<DiskRoom> RoomIn(std::string_view folder) override;

  private:
    const PathResolver& resolver_;
};

} // namespace tarvix::platform
