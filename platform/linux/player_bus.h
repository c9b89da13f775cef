#pragma once

#include "platform/linux/session_bus.h"

#include <string>

namespace tarvix::platform {

// A media player that runs and that the session bus reaches (MPRIS).
class PlayerBus {
  public:
    // `program` is the last part of its path; a player of that name is looked for.
    explicit PlayerBus(const std::string& program);

    // Whether there is one that lets others change its list.
    bool TakesFiles() const { return !name_.empty(); }
    // Puts an address at the end of its list, and plays it if asked.
    Result<void> Append(const std::string& address, bool plays) const;

  private:
    BusMethod On(const char* method) const;

    SessionBus bus_;
    std::string name_; // on the bus
};

} // namespace tarvix::platform
