#include "results/text_order.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace tarvix::results {
namespace {

using fields::SortDirection;
using ::testing::ElementsAre;

using Texts = std::vector<std::string>;

std::vector<std::uint32_t> Order(const Texts& upper, const Texts* exact, SortDirection direction) {
    CellTexts uppers(upper.size());
    CellTexts exacts(upper.size());
    for (std::size_t i = 0; i < upper.size(); ++i) {
        uppers.Add(upper[i]);
        exacts.Add(exact != nullptr ? (*exact)[i] : upper[i]);
    }
    return OrderByTexts(uppers, exact != nullptr ? &exacts : nullptr, direction);
}

TEST(TextOrder, NoRowsHaveNoOrder) {
    EXPECT_TRUE(Order({}, nullptr, SortDirection::kAscending).empty());
}

TEST(TextOrder, AShorterTextComesFirst) {
    EXPECT_THAT(Order({"ABCDEFGHI", "ABCDEFGH", "ABCDEFG", ""}, nullptr, SortDirection::kAscending),
                ElementsAre(3, 2, 1, 0));
}

TEST(TextOrder, EqualTextsStayAsTheyStoodInBothDirections) {
    EXPECT_THAT(Order({"B", "A", "B", "A"}, nullptr, SortDirection::kAscending),
                ElementsAre(1, 3, 0, 2));
    EXPECT_THAT(Order({"B", "A", "B", "A"}, nullptr, SortDirection::kDescending),
                ElementsAre(0, 2, 1, 3));
}

TEST(TextOrder, EqualTextsGoByTheirExactForm) {
    const Texts exact{"a", "A", "a"};
    EXPECT_THAT(Order({"A", "A", "A"}, &exact, SortDirection::kAscending), ElementsAre(1, 0, 2));
    EXPECT_THAT(Order({"A", "A", "A"}, &exact, SortDirection::kDescending), ElementsAre(0, 2, 1));
}

TEST(TextOrder, AZeroByteIsALetterLikeOthers) {
    EXPECT_THAT(Order({std::string("A\0", 2), "A", std::string("A\0\0", 3)}, nullptr,
                      SortDirection::kAscending),
                ElementsAre(1, 0, 2));
}

// Against whole texts compared one by one.
TEST(TextOrder, IsThatOfWholeTexts) {
    std::mt19937 random(3);
    for (int round = 0; round < 60; ++round) {
        Texts upper;
        Texts exact;
        const std::size_t rows = random() % 400;
        const std::size_t longest = 1 + random() % 30;
        for (std::size_t i = 0; i < rows; ++i) {
            std::string text(random() % longest, 'A');
            for (char& c : text)
                c = "AAAAAB\x80"[random() % 7];
            upper.push_back(text);
            exact.push_back(random() % 2 == 0 ? text : "x" + text);
        }
        for (const auto direction : {SortDirection::kAscending, SortDirection::kDescending}) {
            const bool down = direction == SortDirection::kDescending;
            std::vector<std::uint32_t> expected(rows);
            std::iota(expected.begin(), expected.end(), 0U);
            std::ranges::stable_sort(expected, [&](std::uint32_t a, std::uint32_t b) {
                if (upper[a] != upper[b]) return (upper[a] < upper[b]) != down;
                return exact[a] != exact[b] && (exact[a] < exact[b]) != down;
            });
            ASSERT_EQ(Order(upper, &exact, direction), expected);
        }
    }
}

} // namespace
} // namespace tarvix::results
