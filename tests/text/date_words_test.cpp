#include "text/date_words.h"

#include <gtest/gtest.h>

namespace tarvix::text {
namespace {

constexpr DateTime kNow{2026, 11, 18, 19, 54, 52}; // a Wednesday

struct Span {
    const char* typed;
    DateTime first;
    DateTime last;
};

void Expect(const Span& span) {
    const auto read = ParseDateWords(span.typed, kNow);
    ASSERT_TRUE(read) << span.typed;
    EXPECT_EQ(DefaultDateText(read->first), DefaultDateText(span.first)) << span.typed;
    EXPECT_EQ(DefaultDateText(read->last), DefaultDateText(span.last)) << span.typed;
}

TEST(ParseDateWords, ADateAloneIsItsWholeDay) {
    Expect({"2024-03-09", {2024, 3, 9}, {2024, 3, 9, 23, 59, 59}});
    Expect({" 2024/03/09 ", {2024, 3, 9}, {2024, 3, 9, 23, 59, 59}});
    Expect({"3/9/2024", {2024, 3, 9}, {2024, 3, 9, 23, 59, 59}});
    Expect({"2024/03/09 12:30:00", {2024, 3, 9, 12, 30}, {2024, 3, 9, 12, 30}});
    Expect({"2024/03/09 00:00:00", {2024, 3, 9}, {2024, 3, 9}});
}

TEST(ParseDateWords, AYearOrAMonthIsAllOfIt) {
    Expect({"2024", {2024, 1, 1}, {2024, 12, 31, 23, 59, 59}});
    Expect({"2024-02", {2024, 2, 1}, {2024, 2, 29, 23, 59, 59}});
    Expect({"2023/12", {2023, 12, 1}, {2023, 12, 31, 23, 59, 59}});
}

TEST(ParseDateWords, DaysHaveNames) {
    Expect({"now", kNow, kNow});
    Expect({"Today", {2026, 11, 18}, {2026, 11, 18, 23, 59, 59}});
    Expect({"YESTERDAY", {2026, 11, 17}, {2026, 11, 17, 23, 59, 59}});
    Expect({"monday", {2026, 11, 16}, {2026, 11, 16, 23, 59, 59}});
    Expect({"wednesday", {2026, 11, 18}, {2026, 11, 18, 23, 59, 59}});
    Expect({"Thursday", {2026, 11, 12}, {2026, 11, 12, 23, 59, 59}});
}

TEST(ParseDateWords, ThisAndLastAreWholeStretches) {
    Expect({"this week", {2026, 11, 16}, {2026, 11, 22, 23, 59, 59}});
    Expect({"last week", {2026, 11, 9}, {2026, 11, 15, 23, 59, 59}});
    Expect({"this month", {2026, 11, 1}, {2026, 11, 30, 23, 59, 59}});
    Expect({"last  month", {2026, 10, 1}, {2026, 10, 31, 23, 59, 59}});
    Expect({"this year", {2026, 1, 1}, {2026, 12, 31, 23, 59, 59}});
    Expect({"last year", {2025, 1, 1}, {2025, 12, 31, 23, 59, 59}});
}

TEST(ParseDateWords, LastDaysEndToday) {
    Expect({"last 7 days", {2026, 11, 12}, {2026, 11, 18, 23, 59, 59}});
    Expect({"past 1 day", {2026, 11, 18}, {2026, 11, 18, 23, 59, 59}});
    Expect({"last 2 weeks", {2026, 11, 5}, {2026, 11, 18, 23, 59, 59}});
    Expect({"last 3 months", {2026, 8, 19}, {2026, 11, 18, 23, 59, 59}});
    Expect({"last 2 years", {2024, 11, 19}, {2026, 11, 18, 23, 59, 59}});
    Expect({"last 24 hours", {2026, 11, 17, 19, 54, 52}, kNow});
}

TEST(ParseDateWords, AgoIsOneDay) {
    Expect({"3 days ago", {2026, 11, 15}, {2026, 11, 15, 23, 59, 59}});
    Expect({"2 weeks ago", {2026, 11, 4}, {2026, 11, 4, 23, 59, 59}});
    Expect({"9 months ago", {2026, 2, 18}, {2026, 2, 18, 23, 59, 59}});
    Expect({"1 year ago", {2025, 11, 18}, {2025, 11, 18, 23, 59, 59}});
    Expect({"2 hours ago", {2026, 11, 18, 17, 54, 52}, {2026, 11, 18, 17, 54, 52}});
}

TEST(ParseDateWords, AShorterMonthGivesItsLastDay) {
    const auto read = ParseDateWords("1 month ago", {2026, 3, 31, 8, 0, 0});
    ASSERT_TRUE(read);
    EXPECT_EQ(read->first, (DateTime{2026, 2, 28}));
}

TEST(ParseDateWords, RefusesWhatIsNoTime) {
    for (const char* typed : {"",
                              " ",
                              "soon",
                              "last",
                              "this",
                              "last days",
                              "this days",
                              "last 0 days",
                              "last -1 days",
                              "last 7",
                              "7 days",
                              "7 days behind",
                              "last 7 fortnights",
                              "last 99999 days",
                              "days ago",
                              "12:30",
                              "0999",
                              "2024-13",
                              "2024-02-30",
                              "2024-",
                              "20244",
                              "last seven days",
                              "this 7 days",
                              "last 7 days ago"}) {
        EXPECT_FALSE(ParseDateWords(typed, kNow)) << typed;
    }
}

} // namespace
} // namespace tarvix::text
