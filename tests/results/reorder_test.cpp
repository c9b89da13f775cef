#include "results/result_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tarvix::results {
namespace {

class ReorderTest : public ::testing::Test {
  protected:
    void Add(const std::string& name) { rows.Add({.name = name, .folder = folder}, "01"); }
    void AddNumbers(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            Add(std::to_string(i));
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < rows.Count(); ++i)
            names.emplace_back(rows.At(i).name);
        return names;
    }
    static std::vector<std::string> Wanted(const std::vector<std::uint32_t>& order) {
        std::vector<std::string> names;
        for (const std::uint32_t from : order)
            names.push_back(std::to_string(from));
        return names;
    }

    ResultList rows;
    const RowFolder* folder = rows.AddFolder({.longPath = "C:\\t"});
};

TEST_F(ReorderTest, RowsThatStayAndRowsInCirclesComeToTheirPlaces) {
    AddNumbers(7);
    const std::vector<std::uint32_t> order{2, 1, 0, 4, 5, 3, 6};
    rows.Reorder(order);
    EXPECT_EQ(Names(), Wanted(order));
}

TEST_F(ReorderTest, AnyOrderIsTaken) {
    std::mt19937 random(4711);
    for (std::size_t count = 0; count < 40; ++count) {
        rows.Clear();
        folder = rows.AddFolder({.longPath = "C:\\t"});
        AddNumbers(count);
        std::vector<std::uint32_t> order(count);
        std::iota(order.begin(), order.end(), 0U);
        std::ranges::shuffle(order, random);
        rows.Reorder(order);
        ASSERT_EQ(Names(), Wanted(order));
    }
}

TEST_F(ReorderTest, AnObjectIsFoundWhereItStandsNow) {
    AddNumbers(3);
    ASSERT_EQ(rows.Find("C:\\t", "2", false), 2U);
    const std::uint64_t before = rows.Generation();
    rows.Reorder({2, 0, 1});
    EXPECT_EQ(rows.Find("C:\\t", "2", false), 0U);
    EXPECT_NE(rows.Generation(), before);
}

TEST_F(ReorderTest, RoomForManyKeepsTheRowsAndTheirPlaces) {
    AddNumbers(3);
    rows.Reserve(1000);
    const ResultRow* const first = &rows.At(0);
    for (int i = 0; i < 1000; ++i)
        Add("x");
    EXPECT_EQ(&rows.At(0), first);
    EXPECT_EQ(rows.At(2).name, "2");
    EXPECT_EQ(rows.Count(), 1003U);
}

TEST_F(ReorderTest, ManyRowsKeepTheirPlaces) {
    AddNumbers(10'000);
    ASSERT_EQ(rows.Count(), 10'000U);
    const ResultRow* const last = &rows.At(9'999);
    Add("x");
    EXPECT_EQ(&rows.At(9'999), last);
    EXPECT_EQ(rows.Added().size(), 10'001U);
    std::size_t at = 0;
    for (const ResultRow& row : std::as_const(rows).Added()) {
        ASSERT_EQ(&row, &rows.At(at));
        ASSERT_EQ(rows.PlaceOf(at), at);
        ++at;
    }
    EXPECT_EQ(at, 10'001U);
    EXPECT_EQ(rows.At(4'500).name, "4500");
    EXPECT_EQ((*rows.Added().From(10'000).begin()).name, "x");
}

TEST_F(ReorderTest, RowsStandAsAddedUntilTheyChangePlaces) {
    AddNumbers(3);
    EXPECT_TRUE(rows.StandAsAdded());
    rows.InsertSpacers({1});
    EXPECT_FALSE(rows.StandAsAdded());
    rows.RemoveSpacers();
    EXPECT_TRUE(rows.StandAsAdded());
    rows.Reorder({1, 0, 2});
    EXPECT_FALSE(rows.StandAsAdded());
    EXPECT_EQ(rows.PlaceOf(0), 1U);
}

TEST_F(ReorderTest, AHeldNameIsNotCopied) {
    auto names = std::make_shared<const std::string>("held");
    const std::weak_ptr<const std::string> watched = names;
    rows.Hold(names);
    rows.Add({.name = *names, .folder = rows.AddFolder({.longPath = "C:\\t"})}, "01", true);
    EXPECT_EQ(rows.At(0).name.data(), names->data());
    names.reset();
    EXPECT_EQ(rows.At(0).name, "held");
    rows.Clear();
    EXPECT_TRUE(watched.expired());
}

} // namespace
} // namespace tarvix::results
