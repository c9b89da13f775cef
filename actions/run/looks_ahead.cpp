#include "actions/run/looks_ahead.h"

#include "actions/place/action_run.h"
#include "actions/place/object.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "results/selection.h"
#include "session/session.h"

#include <algorithm>
#include <utility>

namespace tarvix::actions {

namespace {
constexpr std::int64_t kBelieved = 3'000'000; // nanoseconds, with some left
constexpr std::size_t kFewest = 16;
constexpr std::size_t kMost = 128;
} // namespace

LooksAhead::~LooksAhead() {
    session_.files().LookSoon({});
}

std::size_t LooksAhead::InTime(std::size_t index) {
    const std::int64_t now = session_.platform.clock.Steady();
    const auto settled = static_cast<std::int64_t>(index - std::exchange(plannedAt_, index));
    const std::int64_t took = std::max<std::int64_t>(1, now - std::exchange(plannedTime_, now));
    const auto fitting = static_cast<std::size_t>(settled * kBelieved / took);
    return std::clamp(fitting, kFewest, kMost);
}

// Few plans of many objects: each wakes who looks ahead.
void LooksAhead::At(std::size_t index) {
    const auto& tables = *session_.selection;
    if (planned_ > index + ahead_ / 4) return;
    ahead_ = InTime(index);
    next_.clear();
    const std::size_t end = std::min(index + ahead_, tables.strSelPath.size());
    for (planned_ = std::max(planned_, index + 1); planned_ < end; ++planned_) {
        const Object object = ObjectAt(tables, planned_);
        if (object.isFile && object.sighting.IsKnown()) next_.push_back(object.Seen(run_.same));
    }
    if (!next_.empty()) session_.files().LookSoon(next_);
}

} // namespace tarvix::actions
