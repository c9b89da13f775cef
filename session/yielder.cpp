#include "session/yielder.h"

#include "platform/clock.h"

#include <algorithm>

namespace tarvix::session {

namespace {
constexpr std::int64_t kPumpEvery = 15'000'000; // nanoseconds
}

void Yielder::After(std::uint64_t n, std::function<void()> act) {
    planned_.emplace_back(count_ + n, std::move(act));
    std::ranges::stable_sort(planned_, std::greater{},
                             &std::pair<std::uint64_t, std::function<void()>>::first);
    due_ = planned_.back().first;
}

void Yielder::Yield() {
    if (++count_ >= due_) RunDue();
    if (!pump_) return;
    if (clock_.Steady() >= nextPump_) PumpNow();
}

void Yielder::PumpNow() {
    if (!pump_) return;
    pump_();
    nextPump_ = clock_.Steady() + kPumpEvery;
}

void Yielder::RunDue() {
    while (!planned_.empty() && planned_.back().first <= count_) {
        const auto act = std::move(planned_.back().second);
        planned_.pop_back();
        due_ = planned_.empty() ? UINT64_MAX : planned_.back().first;
        act();
    }
}

} // namespace tarvix::session
