#include "platform/linux/linux_clock.h"

#include "platform/linux/system_calls.h"

#include <ctime>

namespace tarvix::platform {

namespace {
constexpr std::int64_t kDay = 86'400;
constexpr std::int64_t kNanoseconds = 1'000'000'000;
constexpr std::uint64_t kIsKnown = std::uint64_t{1} << 63;

// Most times fit into 64 bits, which divide ten times as fast.
std::int64_t FloorDivide(FileTime value, std::int64_t by) {
    const auto small = static_cast<std::int64_t>(value);
    if (small == value) return small / by - (small % by < 0 ? 1 : 0);
    return static_cast<std::int64_t>(value / by - (value % by < 0 ? 1 : 0));
}

std::int64_t SystemOffset(std::int64_t seconds) {
    const time_t time = seconds;
    tm local{};
    return ::localtime_r(&time, &local) != nullptr ? local.tm_gmtoff : 0;
}

// Offsets are less than a day and a bit.
std::uint64_t Packed(std::int64_t day, std::int64_t offset) {
    return kIsKnown | (static_cast<std::uint64_t>(day) & 0xFFFFFFFF) << 24 |
           (static_cast<std::uint64_t>(offset + (1 << 23)) & 0xFFFFFF);
}

std::int64_t OffsetIn(std::uint64_t packed) {
    return static_cast<std::int64_t>(packed & 0xFFFFFF) - (1 << 23);
}
} // namespace

LinuxClock::LinuxClock(std::optional<text::DateTime> fixedNow) : fixedNow_(fixedNow) {
    ::tzset();
}

text::DateTime LinuxClock::Now() {
    if (fixedNow_) return *fixedNow_;
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return ToLocal(FileTime{now.tv_sec} * kNanoseconds + now.tv_nsec);
}

text::DateTime LinuxClock::ToLocal(FileTime time) {
    if (time == kNoTime) return {};
    const std::int64_t seconds = FloorDivide(time, kNanoseconds);
    return text::FromSeconds(seconds + OffsetAt(seconds));
}

std::int64_t LinuxClock::OffsetAt(std::int64_t seconds) {
    const std::int64_t day = FloorDivide(seconds, kDay);
    auto& slot = days_[static_cast<std::size_t>(day) % days_.size()];
    const std::uint64_t known = slot.load(std::memory_order_relaxed);
    if (known != 0 && Packed(day, OffsetIn(known)) == known) return OffsetIn(known);
    const std::int64_t first = SystemOffset(day * kDay);
    if (first != SystemOffset(day * kDay + kDay - 1)) return SystemOffset(seconds);
    slot.store(Packed(day, first), std::memory_order_relaxed);
    return first;
}

// Loops ask for it at each object, and pace by it what takes milliseconds.
std::int64_t LinuxClock::Steady() {
    return SteadyTick();
}

void LinuxClock::Sleep(std::int64_t milliseconds) {
    constexpr std::int64_t kThousand = 1000;
    timespec span{.tv_sec = milliseconds / kThousand,
                  .tv_nsec = milliseconds % kThousand * (kNanoseconds / kThousand)};
    ::nanosleep(&span, nullptr);
}

} // namespace tarvix::platform
