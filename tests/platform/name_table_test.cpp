#include "platform/linux/name_table.h"
#include "text/case.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

using namespace tarvix;
using platform::NameTable;

namespace {

TEST(NameTable, FindsNamesInAnyCase) {
    NameTable names;
    EXPECT_TRUE(names.IsFree("a"));
    EXPECT_EQ(names.Find("a"), "");
    names.Add("Café.MP3");
    EXPECT_EQ(names.Size(), 1U);
    EXPECT_EQ(names.Find("cAFÉ.mp3"), "Café.MP3");
    EXPECT_FALSE(names.IsFree("CAFÉ.MP3"));
    EXPECT_TRUE(names.IsFree("Cafe.MP3"));
    EXPECT_FALSE(names.HasOther("café.mp3", "Café.MP3"));
    EXPECT_TRUE(names.HasOther("café.mp3", "café.mp3"));
}

TEST(NameTable, OfNamesThatDifferInCaseTheFirstIsFound) {
    NameTable names;
    names.Add("b");
    names.Add("A");
    names.Add("B");
    names.Add("b");
    EXPECT_EQ(names.Find("b"), "B");
    EXPECT_EQ(names.Size(), 2U);
    EXPECT_TRUE(names.HasOther("B", "B"));
    EXPECT_FALSE(names.HasOther("a", "A"));
    EXPECT_FALSE(names.Remove("b"));
    EXPECT_FALSE(names.Rename("A", "C"));
}

TEST(NameTable, FollowsRenames) {
    NameTable names;
    names.Add("one.txt");
    names.Add("two.txt");
    EXPECT_TRUE(names.Rename("one.txt", "ONE.txt"));
    EXPECT_EQ(names.Find("one.TXT"), "ONE.txt");
    EXPECT_TRUE(names.Rename("ONE.txt", "three.txt"));
    EXPECT_TRUE(names.IsFree("one.txt"));
    EXPECT_TRUE(names.Rename("unknown", "four.txt"));
    EXPECT_EQ(names.Find("Four.txt"), "four.txt");
    EXPECT_TRUE(names.Rename("two.txt", "FOUR.TXT"));
    EXPECT_TRUE(names.IsFree("two.txt"));
    EXPECT_TRUE(names.HasOther("four.txt", "four.txt"));
}

TEST(NameTable, RoomMadeAheadLosesNothing) {
    NameTable names;
    names.Add("one.txt");
    for (const std::size_t room : {0U, 1U, 1000U, 10U}) {
        names.Reserve(room);
        EXPECT_EQ(names.Find("ONE.txt"), "one.txt") << room;
        EXPECT_TRUE(names.IsFree("two.txt")) << room;
    }
    for (int i = 0; i < 3000; ++i)
        names.Add(std::to_string(i));
    EXPECT_EQ(names.Size(), 3001U);
    EXPECT_EQ(names.Find("2999"), "2999");
}

TEST(NameTable, FindsMadeShortForms) {
    NameTable names;
    names.Add("A rather long name.text");
    names.Add("x");
    const std::string made = "C2EN9U~T.TEX";
    EXPECT_EQ(names.Find(made), "A rather long name.text");
    EXPECT_TRUE(names.Rename("A rather long name.text", "short"));
    EXPECT_EQ(names.Find(made), "");
}

// Against a plain list, with so few letters that many names meet in one place.
TEST(NameTable, RandomChangesAreThoseOfAList) {
    std::mt19937 random(5);
    for (int round = 0; round < 20; ++round) {
        NameTable names;
        std::vector<std::string> list;
        const auto any = [&random, most = 1 + random() % 4] {
            std::string name;
            for (std::size_t i = 1 + random() % most; i > 0; --i)
                name += static_cast<char>('a' + random() % 12);
            return name + (random() % 3 == 0 ? "é" : "");
        };
        for (int step = 0; step < 1500; ++step) {
            const std::string name = any();
            const auto at = std::ranges::find(list, name);
            const unsigned what = random() % 4;
            ASSERT_EQ(names.IsFree(text::Upper(name)), at == list.end());
            ASSERT_EQ(names.Find(text::Upper(name)), at == list.end() ? "" : name);
            if (what == 0 || at == list.end()) {
                names.Add(name);
                if (at == list.end()) list.push_back(name);
            } else if (what == 1) {
                ASSERT_TRUE(names.Remove(name));
                list.erase(at);
            } else {
                const std::string to = any();
                ASSERT_TRUE(names.Rename(name, to));
                list.erase(std::ranges::find(list, name));
                if (std::ranges::find(list, to) == list.end()) list.push_back(to);
            }
            ASSERT_EQ(names.Size(), list.size());
        }
        for (const std::string& name : list)
            ASSERT_EQ(names.Find(name), name);
    }
}

// Names that come and go make it no larger.
TEST(NameTable, KeepsNamesThroughManyRenames) {
    NameTable names;
    for (int i = 0; i < 100; ++i)
        names.Add("name " + std::to_string(i));
    for (int round = 0; round < 200; ++round) {
        for (int i = 0; i < 100; ++i) {
            const std::string tail = " " + std::to_string(i);
            const std::string from = round == 0 ? "" : std::string(1 + (round - 1) % 50, 'x');
            const std::string to(1 + round % 50, 'x');
            ASSERT_TRUE(names.Rename(round == 0 ? "name" + tail : from + tail, to + tail));
        }
    }
    EXPECT_EQ(names.Size(), 100U);
    for (int i = 0; i < 100; ++i) {
        const std::string name = std::string(50, 'x') + " " + std::to_string(i);
        EXPECT_EQ(names.Find(text::Upper(name)), name);
    }
}

} // namespace
