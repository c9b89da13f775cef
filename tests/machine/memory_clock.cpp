#include "tests/machine/memory_clock.h"

namespace tarvix::platform {

namespace {
constexpr std::int64_t kNanoseconds = 1'000'000'000;

std::int64_t WholeSeconds(FileTime time) {
    const std::int64_t seconds = time / kNanoseconds;
    return time % kNanoseconds < 0 ? seconds - 1 : seconds;
}
} // namespace

text::DateTime MemoryClock::ToLocal(FileTime time) {
    if (time == kNoTime) return {};
    return text::FromSeconds(WholeSeconds(time) + zone_);
}

void MemoryClock::Advance(std::int64_t seconds) {
    now_ = text::FromSeconds(text::ToSeconds(now_) + seconds);
}

FileTime MemoryClock::FromLocal(const text::DateTime& local) const {
    return (text::ToSeconds(local) - zone_) * kNanoseconds;
}

} // namespace tarvix::platform
