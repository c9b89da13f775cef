#include "launch/custom/key_file.h"

#include <gtest/gtest.h>

#include <utility>

namespace tarvix::custom {
namespace {

// So short that a string would hold them in itself.
TEST(KeyFileTest, AShortOneStaysReadableWhereItIsMoved) {
    KeyFile first("[g]\nk=v");
    const KeyFile moved = std::move(first);
    first = KeyFile("[x]\ny=z");
    EXPECT_TRUE(moved.HasGroup("g"));
    EXPECT_EQ(moved.Text("g", "k"), "v");
    EXPECT_EQ(first.Text("x", "y"), "z");
}

TEST(KeyFileTest, ACopyOutlivesWhatItWasCopiedFrom) {
    KeyFile first("[g]\nk=v");
    const KeyFile copy = first;
    first = KeyFile("[x]\ny=z");
    EXPECT_EQ(copy.Text("g", "k"), "v");
}

} // namespace
} // namespace tarvix::custom
