#include "tests/machine/memory_clock.h"

namespace tarvix::platform {

namespace {
constexpr std::int64_t kNanoseconds = 1'000'000'000;

std::int64_t WholeSeconds(FileTime time) {
    return static_cast<std::int64_t>(time / kNanoseconds - (time % kNanoseconds < 0 ? 1 : 0));
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
    return FileTime{text::ToSeconds(local) - zone_} * kNanoseconds;
}

} // namespace tarvix::platform
