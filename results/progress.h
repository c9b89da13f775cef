#pragma once

#include <cstdint>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// From so many rows on, rearranging the list shows its progress.
constexpr std::int64_t kProgressFromRows = 2000;

// "Show": the progress is shown with its bar at 0 and the main window takes no input; "Hide": the
// other way round.
void ShowProgress(session::Session& session, std::string_view word);
// What is being done, how far of how much. Shown at once.
void StepProgress(session::Session& session, std::string_view what, std::int64_t done,
                  std::int64_t total);

} // namespace tarvix::results
