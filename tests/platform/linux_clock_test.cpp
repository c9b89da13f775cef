#include "platform/linux/linux_clock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <random>

namespace tarvix::platform {

namespace {
constexpr std::int64_t kNanoseconds = 1'000'000'000;

// A time zone for the length of one test.
class Zone {
  public:
    explicit Zone(const char* name) {
        const char* const former = std::getenv("TZ");
        if (former != nullptr) former_ = former;
        ::setenv("TZ", name, 1);
        ::tzset();
    }
    ~Zone() {
        ::setenv("TZ", former_.c_str(), 1);
        ::tzset();
    }

  private:
    std::string former_ = "UTC";
};

text::DateTime BySystem(std::int64_t seconds) {
    const time_t time = seconds;
    tm local{};
    ::localtime_r(&time, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}
} // namespace

TEST(LinuxClockTest, LocalTimesAreThoseOfTheSystem) {
    for (const char* name : {"UTC", "CET-1CEST,M3.5.0,M10.5.0/3", "EST5EDT,M3.2.0,M11.1.0",
                             "<+0545>-5:45", "<-1130>11:30"}) {
        const Zone zone(name);
        LinuxClock clock;
        std::mt19937_64 random(5);
        for (int i = 0; i < 4000; ++i) {
            const auto seconds = static_cast<std::int64_t>(random() % 5'000'000'000) - 900'000'000;
            ASSERT_EQ(clock.ToLocal(seconds * kNanoseconds), BySystem(seconds))
                << name << " " << seconds;
        }
    }
}

TEST(LinuxClockTest, DaysOnWhichTheClocksChange) {
    const Zone zone("CET-1CEST,M3.5.0,M10.5.0/3");
    LinuxClock clock;
    const std::int64_t change = 1'711'846'800; // 2024-03-31 01:00 UTC
    EXPECT_EQ(clock.ToLocal((change - 1) * kNanoseconds), (text::DateTime{2024, 3, 31, 1, 59, 59}));
    EXPECT_EQ(clock.ToLocal(change * kNanoseconds), (text::DateTime{2024, 3, 31, 3, 0, 0}));
}

TEST(LinuxClockTest, PartsOfASecondAreCutOff) {
    const Zone zone("UTC");
    LinuxClock clock;
    EXPECT_EQ(clock.ToLocal(999'999'999), (text::DateTime{1970, 1, 1, 0, 0, 0}));
    EXPECT_EQ(clock.ToLocal(-1), (text::DateTime{1969, 12, 31, 23, 59, 59}));
}

TEST(LinuxClockTest, TheFirstAndTheLastDateOfADisk) {
    const Zone zone("UTC");
    LinuxClock clock;
    EXPECT_EQ(clock.ToLocal(FileTime{-2'147'483'648} * kNanoseconds),
              (text::DateTime{1901, 12, 13, 20, 45, 52}));
    EXPECT_EQ(clock.ToLocal(FileTime{15'032'385'535} * kNanoseconds + 999'999'999),
              (text::DateTime{2446, 5, 10, 22, 38, 55}));
}

TEST(LinuxClockTest, NoTimeIsNoDate) {
    LinuxClock clock;
    EXPECT_TRUE(clock.ToLocal(kNoTime).IsZero());
}

TEST(LinuxClockTest, AFixedClockStandsStill) {
    const text::DateTime fixed{2026, 11, 15, 19, 54, 52};
    LinuxClock clock(fixed);
    EXPECT_EQ(clock.Now(), fixed);
    EXPECT_EQ(clock.Now(), fixed);
}

TEST(LinuxClockTest, SteadyNeverGoesBack) {
    LinuxClock clock;
    std::int64_t last = clock.Steady();
    for (int i = 0; i < 1000; ++i) {
        const std::int64_t now = clock.Steady();
        ASSERT_GE(now, last);
        last = now;
    }
}

} // namespace tarvix::platform
