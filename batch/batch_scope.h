#pragma once

#include "platform/file_system.h"

#include <cstdint>
#include <string_view>

namespace tarvix::session {
struct Session;
struct SessionState;
} // namespace tarvix::session

namespace tarvix::batch {

// A batch that runs: as long as it lives that flag is set and the options are locked; at its end
// the window is free again.
class BatchScope {
  public:
    BatchScope(session::Session& session, bool session::SessionState::*flag);
    ~BatchScope();
    BatchScope(const BatchScope&) = delete;
    BatchScope& operator=(const BatchScope&) = delete;

  private:
    session::Session& session_;
    platform::KeptListings listings_;
    bool session::SessionState::*flag_;
};

// Shows "Line 3 of 200" and what is done there; `verb` is "Moving" or the like, a destination is
// as the list has it.
void ShowStep(session::Session& session, std::string_view verb, std::int64_t line,
              std::int64_t lines, std::string_view search, std::string_view destination);

void HideStep(session::Session& session);

// Whether a stop was asked for, in a search or in what follows it.
bool IsStopped(const session::SessionState& state);

} // namespace tarvix::batch
