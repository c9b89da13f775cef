#include "text/dates.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace tarvix::text;

namespace tarvix::text {

void PrintTo(const DateTime& value, std::ostream* out) {
    *out << value.year << '-' << value.month << '-' << value.day << ' ' << value.hour << ':'
         << value.minute << ':' << value.second;
}

} // namespace tarvix::text

namespace {

struct GoodDate {
    const char* name;
    const char* text;
    DateTime value;
};

class ParsesDate : public testing::TestWithParam<GoodDate> {};

TEST_P(ParsesDate, ToItsParts) {
    EXPECT_EQ(ParseDate(GetParam().text), GetParam().value);
    EXPECT_TRUE(IsDate(GetParam().text));
}

constexpr GoodDate kGoodDates[] = {
    {"default_text", "11/15/2026 7:54:52 PM", {2026, 11, 15, 19, 54, 52}},
    {"date_alone", "11/15/2026", {2026, 11, 15, 0, 0, 0}},
    {"year_first", "2026-11-15", {2026, 11, 15, 0, 0, 0}},
    {"year_first_time", "2026-11-15 19:54:52", {2026, 11, 15, 19, 54, 52}},
    {"row_form", "2026/11/15 19:54:52", {2026, 11, 15, 19, 54, 52}},
    {"month_first_dashes", "11-15-2026", {2026, 11, 15, 0, 0, 0}},
    {"leading_zeros", "01/02/2003 04:05:06", {2003, 1, 2, 4, 5, 6}},
    {"two_digit_year", "1/2/26", {2026, 1, 2, 0, 0, 0}},
    {"last_of_this_century", "1/2/29", {2029, 1, 2, 0, 0, 0}},
    {"first_of_last_century", "1/2/30", {1930, 1, 2, 0, 0, 0}},
    {"year_zero_zero", "1/2/00", {2000, 1, 2, 0, 0, 0}},
    {"leap_day", "2/29/2024", {2024, 2, 29, 0, 0, 0}},
    {"leap_day_of_a_century", "2/29/2000", {2000, 2, 29, 0, 0, 0}},
    {"time_alone", "7:54:52 PM", {0, 0, 0, 19, 54, 52}},
    {"time_without_seconds", "19:54", {0, 0, 0, 19, 54, 0}},
    {"zero_date", "12:00:00 AM", {}},
    {"noon", "12:00 PM", {0, 0, 0, 12, 0, 0}},
    {"half_in_small_letters", "1:02 pm", {0, 0, 0, 13, 2, 0}},
    {"half_without_blank", "1:02PM", {0, 0, 0, 13, 2, 0}},
    {"blanks_around", "  1/2/2003  4:05  ", {2003, 1, 2, 4, 5, 0}},
};

INSTANTIATE_TEST_SUITE_P(Rows, ParsesDate, testing::ValuesIn(kGoodDates),
                         [](const auto& row) { return row.param.name; });

TEST(ParseDate, RefusesWhatIsNoDate) {
    for (const char* text : {"",
                             " ",
                             "abc",
                             "13/1/2026",
                             "0/1/2026",
                             "1/0/2026",
                             "2/30/2026",
                             "2/29/2023",
                             "2/29/1900",
                             "4/31/2026",
                             "2026/13/1",
                             "2026-02-30",
                             "1/2",
                             "1/2/",
                             "1/2/20266",
                             "1/2/026",
                             "1//2026",
                             "/1/2026",
                             "1/2-2026",
                             "2026-1-2026",
                             "11/15/2026x",
                             "11/15/2026 x",
                             "11/15/20267:54",
                             "24:00",
                             "1:60",
                             "1:00:60",
                             "13:00 PM",
                             "0:30 AM",
                             "7",
                             "7 PM",
                             "7:54:",
                             "7:54 P",
                             "7:54 PMx",
                             "7:5 4",
                             "-1/2/2026",
                             "1/-2/2026",
                             "1/2/2026 7:54 PM x",
                             "99999999999/1/1",
                             "\xFF/1/2026",
                             "٣/1/2026"}) {
        EXPECT_FALSE(ParseDate(text).has_value()) << text;
    }
}

TEST(DefaultDateText, LeavesOutWhatIsZero) {
    EXPECT_EQ(DefaultDateText({2026, 11, 15, 19, 54, 52}), "11/15/2026 7:54:52 PM");
    EXPECT_EQ(DefaultDateText({2026, 1, 5, 0, 0, 0}), "1/5/2026");
    EXPECT_EQ(DefaultDateText({0, 0, 0, 19, 54, 52}), "7:54:52 PM");
    EXPECT_EQ(DefaultDateText({}), "12:00:00 AM");
}

TEST(DefaultDateText, NoonAndMidnightAreTwelve) {
    EXPECT_EQ(DefaultDateText({2026, 1, 5, 12, 0, 0}), "1/5/2026 12:00:00 PM");
    EXPECT_EQ(DefaultDateText({2026, 1, 5, 0, 0, 1}), "1/5/2026 12:00:01 AM");
    EXPECT_EQ(DefaultDateText({2026, 1, 5, 11, 59, 59}), "1/5/2026 11:59:59 AM");
}

TEST(DefaultDateText, ReadsBackAsTheSameDate) {
    for (const DateTime& value :
         {DateTime{}, DateTime{1999, 12, 31, 23, 59, 59}, DateTime{1930, 1, 1, 0, 0, 0},
          DateTime{2026, 7, 4, 12, 30, 0}, DateTime{0, 0, 0, 1, 2, 3}}) {
        EXPECT_EQ(ParseDate(DefaultDateText(value)), value);
    }
}

TEST(DateTime, OrdersFromYearToSecond) {
    EXPECT_LT((DateTime{2025, 12, 31, 23, 59, 59}), (DateTime{2026, 1, 1, 0, 0, 0}));
    EXPECT_LT((DateTime{2026, 1, 1, 0, 0, 0}), (DateTime{2026, 1, 1, 0, 0, 1}));
    EXPECT_TRUE(DateTime{}.IsZero());
    EXPECT_FALSE((DateTime{0, 0, 0, 0, 0, 1}).IsZero());
    EXPECT_FALSE((DateTime{2026, 1, 1, 0, 0, 0}).IsZero());
}

struct SecondsCase {
    DateTime value;
    std::int64_t seconds;
};

constexpr SecondsCase kSeconds[] = {
    {{1970, 1, 1, 0, 0, 0}, 0},
    {{1969, 12, 31, 23, 59, 59}, -1},
    {{2001, 9, 9, 1, 46, 40}, 1000000000},
    {{2024, 2, 29, 12, 0, 0}, 1709208000},
    {{2038, 1, 19, 3, 14, 8}, 2147483648},
    {{1899, 12, 30, 0, 0, 0}, -2209161600},
    {{1601, 1, 1, 0, 0, 0}, -11644473600},
    {{9999, 12, 31, 23, 59, 59}, 253402300799},
};

TEST(Seconds, BothWays) {
    for (const SecondsCase& row : kSeconds) {
        EXPECT_EQ(ToSeconds(row.value), row.seconds);
        EXPECT_EQ(FromSeconds(row.seconds), row.value);
    }
}

TEST(Seconds, NoDateIsDayZero) {
    EXPECT_EQ(ToSeconds({}), -2209161600);
    EXPECT_EQ(ToSeconds({0, 0, 0, 1, 0, 0}), -2209161600 + 3600);
}

TEST(Seconds, FieldsCarryOver) {
    EXPECT_EQ(ToSeconds({2026, 13, 1, 0, 0, 0}), ToSeconds({2027, 1, 1, 0, 0, 0}));
    EXPECT_EQ(ToSeconds({2026, 3, 0, 0, 0, 0}), ToSeconds({2026, 2, 28, 0, 0, 0}));
    EXPECT_EQ(ToSeconds({2026, 0, 1, 0, 0, 0}), ToSeconds({2025, 12, 1, 0, 0, 0}));
}

} // namespace
