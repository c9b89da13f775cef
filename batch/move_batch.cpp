#include "batch/move_batch.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <utility>

namespace tarvix::batch {

bool BatchStep::IsDone() const {
    const std::int64_t undone = failed + copiedOnly + notReached + unread + skipped - duplicates;
    return wrong.empty() && undone == 0;
}

bool BatchOutcome::HasErrors() const {
    return error || stillThere > 0 || !std::ranges::all_of(steps, &BatchStep::IsDone);
}

std::string ResultText(const BatchStep& step, std::string_view done) {
    std::string text = fmt::format("{} {}", step.done - step.copiedOnly, done);
    const std::array<std::pair<std::int64_t, std::string_view>, 6> others{
        {{step.duplicates, step.duplicates == 1 ? "skipped as it exists" : "skipped as they exist"},
         {step.skipped - step.duplicates, "skipped"},
         {step.copiedOnly, "copied only, the originals still stand"},
         {step.notReached, "not reached"},
         {step.failed, "failed"},
         {step.unread, "could not be read"}}};
    for (const auto& [count, what] : others) {
        if (count > 0) text += fmt::format(", {} {}", count, what);
    }
    if (step.isSkipped) text += ", skipped by the user";
    if (!step.wrong.empty()) text += fmt::format(", left out: {}", step.wrong);
    return text;
}

} // namespace tarvix::batch
