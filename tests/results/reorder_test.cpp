#include "results/result_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <random>
#include <string>
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

} // namespace
} // namespace tarvix::results
