#include "text/format.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

using namespace tarvix::text;

namespace {

struct WholeCase {
    const char* name;
    std::int64_t value;
    const char* picture;
    const char* text;
};

class FormatsWhole : public testing::TestWithParam<WholeCase> {};

TEST_P(FormatsWhole, AsPictured) {
    EXPECT_EQ(Format(GetParam().value, GetParam().picture), GetParam().text);
}

constexpr WholeCase kWholeRows[] = {
    {"size_of_nothing", 0, "000,000,000,000", "000,000,000,000"},
    {"size", 1234567, "000,000,000,000", "000,001,234,567"},
    {"size_beyond_places", 1234567890123, "000,000,000,000", "1,234,567,890,123"},
    {"size_in_playlists", 5, "0,000,000,000", "0,000,000,005"},
    {"count_of_nothing", 0, "00,00#", "00,000"},
    {"count", 7, "00,00#", "00,007"},
    {"count_of_thousands", 4321, "00,00#", "04,321"},
    {"count_beyond_places", 123456, "00,00#", "123,456"},
    {"levels", 4, "0#", "04"},
    {"levels_beyond_places", 123, "0#", "123"},
    {"length", 57, "00#", "057"},
    {"length_of_one", 1, "00#", "001"},
    {"index", 3, "00", "03"},
    {"increment", 12, "000#", "0012"},
    {"optional_digit", 7, "#", "7"},
    {"optional_digit_of_zero", 0, "#", ""},
    {"total", 1234567, "#,###,###,###,##0", "1,234,567"},
    {"total_of_zero", 0, "#,###,###,###,##0", "0"},
    {"total_of_three_digits", 999, "##,###,###,##0", "999"},
    {"total_of_four_digits", 1000, "##,###,###,##0", "1,000"},
    {"all_optional_of_zero", 0, "#,###", ""},
    {"year", 2026, "00000", "02026"},
    {"beyond_places_without_comma", 1234567, "00", "1234567"},
    {"zero_then_optional", 5, "0##0", "0005"},
    {"optional_then_zero", 5, "##00", "05"},
    {"negative", -5, "00", "-05"},
    {"negative_with_thousands", -1234567, "#,##0", "-1,234,567"},
    {"least", std::numeric_limits<std::int64_t>::min(), "0", "-9223372036854775808"},
    {"literals_around", 7, "No 00 x", "No 07 x"},
    {"literals_between", 1234, "00-00", "12-34"},
    {"more_digits_before_a_literal", 12345, "0-0", "1234-5"},
    {"literals_alone", 5, "abc", "abc"},
    {"wide_literals", 5, "№0", "№5"},
    {"comma_in_front_is_nothing", 1234, ",0", "1234"},
    {"comma_at_the_end_is_nothing", 1234, "0,", "1234"},
    {"decimals_of_a_whole", 5, "0.00", "5.00"},
    {"empty_picture", -1234, "", "-1234"},
};

INSTANTIATE_TEST_SUITE_P(Rows, FormatsWhole, testing::ValuesIn(kWholeRows),
                         [](const auto& row) { return row.param.name; });

struct RealCase {
    const char* name;
    double value;
    const char* picture;
    const char* text;
};

class FormatsReal : public testing::TestWithParam<RealCase> {};

TEST_P(FormatsReal, AsPictured) {
    EXPECT_EQ(Format(GetParam().value, GetParam().picture), GetParam().text);
}

constexpr RealCase kRealRows[] = {
    {"half_goes_up", 0.5, "0", "1"},
    {"half_goes_up_again", 2.5, "0", "3"},
    {"negative_half_goes_down", -2.5, "0", "-3"},
    {"below_half", 2.49, "0", "2"},
    {"carry_through_nines", 999.5, "#,##0", "1,000"},
    {"half_as_written", 2.675, "0.00", "2.68"},
    {"carry_over_the_point", 9.995, "0.00", "10.00"},
    {"forced_decimals", 1.5, "0.00", "1.50"},
    {"optional_decimals", 1.5, "0.##", "1.5"},
    {"optional_decimals_of_a_whole", 2.0, "0.##", "2."},
    {"no_whole_place", 12.5, ".00", "12.50"},
    {"no_whole_digit", 0.25, "#.00", ".25"},
    {"negative_that_rounds_to_nothing", -0.001, "0.00", "0.00"},
    {"negative_zero", -0.0, "0", "0"},
    {"big_size", 1e15, "#,###,###,###,##0", "1,000,000,000,000,000"},
    {"smallest", 5e-324, "0.0", "0.0"},
    {"empty_picture", 2.5, "", "2.5"},
};

INSTANTIATE_TEST_SUITE_P(Rows, FormatsReal, testing::ValuesIn(kRealRows),
                         [](const auto& row) { return row.param.name; });

TEST(Format, TakesEveryWholeType) {
    EXPECT_EQ(Format(7, "00"), "07");
    EXPECT_EQ(Format(std::size_t{7}, "00"), "07");
    EXPECT_EQ(Format(std::int16_t{7}, "00"), "07");
    EXPECT_EQ(Format(std::uint32_t{4000000000U}, "#,##0"), "4,000,000,000");
}

TEST(Format, LargestNumberPrintsAllItsDigits) {
    const std::string text = Format(std::numeric_limits<double>::max(), "0");
    EXPECT_EQ(text.size(), 309U);
    EXPECT_EQ(text.substr(0, 5), "17976");
}

struct DateCase {
    const char* name;
    DateTime value;
    const char* picture;
    const char* text;
};

class FormatsDate : public testing::TestWithParam<DateCase> {};

TEST_P(FormatsDate, AsPictured) {
    EXPECT_EQ(FormatDate(GetParam().value, GetParam().picture), GetParam().text);
}

constexpr DateTime kEvening{2026, 11, 15, 19, 54, 52};
constexpr DateTime kEarly{2005, 3, 9, 0, 7, 4};

constexpr DateCase kDateRows[] = {
    {"log_line", kEvening, "mm/dd/yyyy hh:mm:ss", "11/15/2026 19:54:52"},
    {"log_line_with_blank", kEarly, "mm/dd/yyyy hh:mm:ss ", "03/09/2005 00:07:04 "},
    {"log_name", kEvening, "mm.dd.yy hh.nn.ss", "11.15.26 19.54.52"},
    {"error_log_name", kEarly, "mm.dd.yy_hh.nn.ss", "03.09.05_00.07.04"},
    {"row", kEarly, "yyyy/mm/dd hh:mm:ss", "2005/03/09 00:07:04"},
    {"single_letters", kEarly, "m/d/yy h:n:s", "3/9/05 0:7:4"},
    {"single_m_behind_h_is_minutes", kEarly, "h:m", "0:7"},
    {"m_behind_minutes_is_month", kEarly, "hh:mm mm", "00:07 03"},
    {"m_behind_seconds_is_month", kEarly, "hh ss mm", "00 04 03"},
    {"nn_without_hours", kEarly, "nn", "07"},
    {"half_day", kEvening, "h:mm:ss AM/PM", "7:54:52 PM"},
    {"half_day_midnight", kEarly, "hh:mm am/pm", "12:07 AM"},
    {"half_day_noon", {2026, 1, 1, 12, 0, 0}, "h AM/PM", "12 PM"},
    {"capitals", kEvening, "YYYY-MM-DD", "2026-11-15"},
    {"literals", kEvening, "[yyyy] €", "[2026] €"},
    {"small_year", {7, 1, 2, 0, 0, 0}, "yyyy", "0007"},
    {"empty_picture", kEvening, "", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, FormatsDate, testing::ValuesIn(kDateRows),
                         [](const auto& row) { return row.param.name; });

} // namespace
