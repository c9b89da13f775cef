#include "text/first_eight.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

namespace tarvix::text {
namespace {

TEST(FirstEight, OrdersLikeTheBytes) {
    constexpr std::array<std::string_view, 8> kRising{"",   "\x01", "A",        "AA",
                                                      "AB", "B",    "BAAAAAAA", "\xC3\x84"};
    for (std::size_t i = 1; i < kRising.size(); ++i)
        EXPECT_LT(FirstEight(kRising[i - 1]), FirstEight(kRising[i])) << i;
}

TEST(FirstEight, TakesNoMoreThanEight) {
    EXPECT_EQ(FirstEight("abcdefgh"), 0x6162636465666768U);
    EXPECT_EQ(FirstEight("abcdefghz"), FirstEight("abcdefgha"));
    EXPECT_EQ(FirstEight("abc"), 0x6162630000000000U);
}

} // namespace
} // namespace tarvix::text
