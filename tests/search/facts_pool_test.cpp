#include "search/facts_pool.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace tarvix::search {
namespace {

using platform::BriefFacts;

std::vector<BriefFacts> Facts(std::uint64_t firstSize, std::size_t count) {
    std::vector<BriefFacts> facts(count);
    for (std::size_t i = 0; i < count; ++i)
        facts[i].size = firstSize + i;
    return facts;
}

TEST(FactsPool, FactsStandOneBehindTheOtherWhateverComesTogether) {
    FactsPool pool;
    std::size_t added = 0;
    for (const std::size_t count : {0, 1, 12, 4083, 1, 9000, 0, 5}) {
        EXPECT_EQ(pool.Add(Facts(added, count)), added);
        added += count;
    }
    for (std::size_t i = 0; i < added; ++i)
        ASSERT_EQ(pool.At(i).size, i);
}

TEST(FactsPool, WhatIsStillWantedStaysWhenThoseInFrontGo) {
    FactsPool pool;
    pool.Add(Facts(0, 10000));
    for (std::size_t i = 0; i < 10000; ++i) {
        ASSERT_EQ(pool.At(i).size, i);
        pool.DropBefore(i + 1);
    }
    EXPECT_EQ(pool.Add(Facts(10000, 5000)), 10000U);
    EXPECT_EQ(pool.At(14999).size, 14999U);
}

TEST(FactsPool, BeginsAnewWhenCleared) {
    FactsPool pool;
    pool.Add(Facts(0, 5000));
    pool.DropBefore(4500);
    pool.Clear();
    EXPECT_EQ(pool.Add(Facts(7, 1)), 0U);
    EXPECT_EQ(pool.At(0).size, 7U);
}

} // namespace
} // namespace tarvix::search
