#include "text/last_found.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvix::text {
namespace {

TEST(LastFound, GivesTheEntryThatTheTableHas) {
    ByText<int> table{{"a", 1}, {"b", 2}, {"c", 3}};
    LastFound<int> last;
    EXPECT_EQ(last.In(table, "none"), nullptr);
    for (int round = 0; round < 3; ++round) {
        for (const auto& [key, value] : table) {
            const auto* const entry = last.In(table, key);
            ASSERT_NE(entry, nullptr);
            EXPECT_EQ(entry->first, key);
            EXPECT_EQ(entry->second, value);
        }
    }
}

TEST(LastFound, SeesWhatTheTableGets) {
    ByText<int> table{{"a", 1}};
    LastFound<int> last;
    ASSERT_NE(last.In(table, "a"), nullptr);
    EXPECT_EQ(last.In(table, "b"), nullptr);
    for (int i = 0; i < 1000; ++i)
        table.try_emplace(std::to_string(i), i);
    table.insert_or_assign("a", 7);
    table.insert_or_assign("b", 8);
    EXPECT_EQ(last.In(table, "a")->second, 7);
    EXPECT_EQ(last.In(table, "b")->second, 8);
}

TEST(LastFound, ForgetsWhatGoes) {
    ByText<int> table{{"a", 1}, {"b", 2}};
    LastFound<int> last;
    ASSERT_NE(last.In(table, "a"), nullptr);
    ASSERT_NE(last.In(table, "b"), nullptr);
    last.Forget();
    table.erase("a");
    EXPECT_EQ(last.In(table, "a"), nullptr);
    EXPECT_EQ(last.In(table, "b")->second, 2);
}

} // namespace
} // namespace tarvix::text
