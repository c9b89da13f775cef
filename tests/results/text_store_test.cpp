#include "results/text_store.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tarvix::results {

namespace {

TEST(TextStoreTest, KeepsCopiesThatStay) {
    TextStore store;
    std::vector<std::string_view> kept;
    for (int i = 0; i < 50'000; ++i)
        kept.push_back(store.Keep(std::to_string(i)));
    for (int i = 0; i < 50'000; ++i)
        ASSERT_EQ(kept[static_cast<std::size_t>(i)], std::to_string(i));
}

TEST(TextStoreTest, KeepsATextThatIsLongerThanABlock) {
    TextStore store;
    const std::string_view before = store.Keep("before");
    const std::string long_text(1'000'000, 'x');
    EXPECT_EQ(store.Keep(long_text), long_text);
    EXPECT_EQ(store.Keep("after"), "after");
    EXPECT_EQ(before, "before");
}

TEST(TextStoreTest, AnEmptyTextNeedsNoRoom) {
    TextStore store;
    EXPECT_EQ(store.Keep(""), "");
}

TEST(TextStoreTest, UsesItsRoomAgainWhenStartedAnew) {
    TextStore store;
    store.Restart(200'000);
    const char* const first = store.Keep("first").data();
    store.Restart(190'000);
    const std::string_view second = store.Keep("second");
    EXPECT_EQ(static_cast<const void*>(second.data()), static_cast<const void*>(first));
    EXPECT_EQ(second, "second");
}

TEST(TextStoreTest, StartedAnewItTakesMoreThanBefore) {
    TextStore store;
    store.Restart(10);
    (void)store.Keep(std::string(100'000, 'a'));
    store.Restart(300'000);
    const std::string_view kept = store.Keep(std::string(299'999, 'b'));
    EXPECT_EQ(store.Keep("c"), "c");
    EXPECT_EQ(kept, std::string(299'999, 'b'));
}

TEST(TextStoreTest, KeepsPiecesAsOneText) {
    TextStore store;
    const std::string longest(70'000, 'x');
    const std::string_view first = store.Keep({"C:\\a", "\\", "b.txt"});
    const std::string_view second = store.Keep({longest, "", "y"});
    EXPECT_EQ(store.Keep({"", ""}), "");
    EXPECT_EQ(first, "C:\\a\\b.txt");
    EXPECT_EQ(second, longest + "y");
}

TEST(TextStoreTest, GivenAwayItsTextsStay) {
    TextStore store;
    const std::string_view kept = store.Keep("kept");
    const TextStore other = std::move(store);
    EXPECT_EQ(kept, "kept");
}

} // namespace

} // namespace tarvix::results
