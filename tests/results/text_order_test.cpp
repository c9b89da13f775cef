#include "results/text_order.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::results {
namespace {

using fields::SortDirection;
using ::testing::ElementsAre;

using Texts = std::vector<std::string>;

using Views = std::vector<std::string_view>;
using Numbers = std::vector<std::uint32_t>;

RowOrder Sorted(const Texts& upper, const Texts* exact, SortDirection direction) {
    CellTexts uppers(upper.size());
    for (const std::string& text : upper)
        uppers.Add(text);
    return OrderByTexts(uppers, exact != nullptr ? Views(exact->begin(), exact->end()) : Views(),
                        direction);
}

Numbers Order(const Texts& upper, const Texts* exact, SortDirection direction) {
    return Sorted(upper, exact, direction).order;
}

// Texts that share beginnings, some of them in two cases.
Texts RandomTexts(std::mt19937& random, std::size_t count, std::size_t longest) {
    Texts texts;
    for (std::size_t i = 0; i < count; ++i) {
        std::string text(random() % longest, 'A');
        for (char& c : text)
            c = "AAAAaBb\x80"[random() % 8];
        texts.push_back(text);
    }
    return texts;
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

// The order of whole texts, compared one by one.
Numbers OfWholeTexts(const Texts& upper, const Texts& exact, SortDirection direction) {
    const bool down = direction == SortDirection::kDescending;
    Numbers order(upper.size());
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::stable_sort(order, [&](std::uint32_t a, std::uint32_t b) {
        if (upper[a] != upper[b]) return (upper[a] < upper[b]) != down;
        return exact[a] != exact[b] && (exact[a] < exact[b]) != down;
    });
    return order;
}

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
            ASSERT_EQ(Order(upper, &exact, direction), OfWholeTexts(upper, exact, direction));
        }
    }
}

TEST(TextOrder, ManyRowsAreThoseOfWholeTexts) {
    std::mt19937 random(4);
    const Texts exact = RandomTexts(random, 9000, 24);
    Texts upper;
    for (const std::string& text : exact)
        upper.push_back(text::Upper(text));
    for (const auto direction : {SortDirection::kAscending, SortDirection::kDescending}) {
        ASSERT_EQ(Order(upper, &exact, direction), OfWholeTexts(upper, exact, direction));
    }
}

TEST(TextOrder, GroupsBeginWhereTheTextChangesBesidesItsCase) {
    const Texts exact{"b", "a", "B", "", "A"};
    const RowOrder sorted = Sorted({"B", "A", "B", "", "A"}, &exact, SortDirection::kAscending);
    EXPECT_THAT(sorted.order, ElementsAre(3, 4, 1, 2, 0));
    EXPECT_THAT(sorted.groups, ElementsAre(1, 3));
}

TEST(TextOrder, DifferentTextsAreNumberedAsTheyCome) {
    Views texts;
    Numbers classes;
    EXPECT_TRUE(FindDifferentTexts(Views{"b", "a", "b", "", "a"}, 3, texts, classes));
    EXPECT_THAT(texts, ElementsAre("b", "a", ""));
    EXPECT_THAT(classes, ElementsAre(0, 1, 0, 2, 1));
}

TEST(TextOrder, TooManyDifferentTextsAreNotNumbered) {
    Views texts;
    Numbers classes;
    EXPECT_FALSE(FindDifferentTexts(Views{"b", "a", "c"}, 2, texts, classes));
}

TEST(TextOrder, ATextThatStandsTwiceOrHasNoRowsCountsOnce) {
    const RowOrder sorted = OrderByClasses(Views{"x", "B", "b", "a", "B"}, Numbers{4, 3, 1, 2, 4},
                                           SortDirection::kAscending);
    EXPECT_THAT(sorted.order, ElementsAre(1, 0, 2, 4, 3));
    EXPECT_THAT(sorted.groups, ElementsAre(1));
}

// However many texts there are: by their classes and one by one they stand the same.
TEST(TextOrder, ClassesStandAsTheirRowsDoOneByOne) {
    std::mt19937 random(5);
    for (int round = 0; round < 100; ++round) {
        const Texts exact = RandomTexts(random, random() % 500, 1 + random() % 12);
        const Views all(exact.begin(), exact.end());
        Texts upper;
        for (const std::string& text : exact)
            upper.push_back(text::Upper(text));
        Views texts;
        Numbers classes;
        ASSERT_TRUE(FindDifferentTexts(all, all.size(), texts, classes));
        for (const auto direction : {SortDirection::kAscending, SortDirection::kDescending}) {
            const RowOrder expected = Sorted(upper, &exact, direction);
            Numbers changes;
            for (std::uint32_t i = 1; i < exact.size(); ++i) {
                if (upper[expected.order[i]] != upper[expected.order[i - 1]]) changes.push_back(i);
            }
            ASSERT_EQ(expected.groups, changes);
            const RowOrder sorted = OrderByClasses(texts, classes, direction);
            ASSERT_EQ(sorted.order, expected.order);
            ASSERT_EQ(sorted.groups, expected.groups);
        }
    }
}

} // namespace
} // namespace tarvix::results
