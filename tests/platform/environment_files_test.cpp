#include "platform/linux/environment_files.h"

#include <gtest/gtest.h>

namespace tarvix::platform {
namespace {

using Lines = std::vector<std::string>;

TEST(VariableFiles, HaveALineForEachVariable) {
    EXPECT_EQ(VariableLines("# comment\nA=/a\r\n\nB=\"/b c\"\nC='$x'\nno line\n=d\nE F=g\nG=h\\ i"),
              (Lines{"A=/a", "B=/b c", "C=$x", "G=h i"}));
    EXPECT_EQ(VariableLines(""), Lines{});
}

TEST(VariableFiles, OfTheUserNameThoseThatAreKnown) {
    EXPECT_EQ(ExpandedLines("A=${HOME}/a\nB=$A/b\nC=$NONE/c\nD=5$\nE=${", {"HOME=/home/ann"}),
              (Lines{"A=/home/ann/a", "B=/home/ann/a/b", "C=/c", "D=5$", "E="}));
}

} // namespace
} // namespace tarvix::platform
