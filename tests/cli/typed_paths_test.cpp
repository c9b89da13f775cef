#include "cli/typed_paths.h"
#include "tests/machine/memory_platform.h"

#include <gtest/gtest.h>

#include <array>

namespace tarvix::cli {
namespace {

struct TypedPathsTest : ::testing::Test {
    platform::MemoryPlatform machine;
    TypedPaths paths{machine.platform, "/home/ann"};
};

TEST_F(TypedPathsTest, EveryFormBecomesADrivePath) {
    struct Case {
        std::string_view typed, drive;
    };
    for (const auto& [typed, drive] : std::array<Case, 13>{{
             {"/home/ann/Music", "C:\\home\\ann\\Music"},
             {"/", "C:\\"},
             {"~", "C:\\home\\ann"},
             {"~/Music", "C:\\home\\ann\\Music"},
             {"file:///home/ann/Music", "C:\\home\\ann\\Music"},
             {"C:\\tmp", "C:\\tmp"},
             {"c:", "c:"},
             {"\\\\server\\share", "\\\\server\\share"},
             {"Music", "C:\\home\\ann\\Music"},
             {"./Music/", "C:\\home\\ann\\Music"},
             {"../ann/./Music", "C:\\home\\ann\\Music"},
             {"../../..", "C:\\"},
             {"/tmp/../home//ann", "C:\\home\\ann"},
         }}) {
        EXPECT_EQ(paths.ToDrive(typed), drive) << typed;
    }
}

TEST_F(TypedPathsTest, VariablesAreExpanded) {
    EXPECT_EQ(paths.ToDrive("%UserProfile%\\Music"), "C:\\home\\ann\\Music");
    EXPECT_EQ(paths.ToDrive("%NoSuchThing%"), "C:\\home\\ann\\%NoSuchThing%");
}

TEST_F(TypedPathsTest, ANameThatLooksLikeADriveIsARelativePath) {
    EXPECT_EQ(paths.ToDrive("a:b"), "C:\\home\\ann\\a\uF03Ab");
}

TEST_F(TypedPathsTest, LocationsAreSplitAtBarsUnlessSuchAFolderExists) {
    machine.disk.AddFolder("C:\\home\\ann\\a\uF07Cb");
    const auto both = paths.Locations({"Music|/tmp", "a|b"});
    ASSERT_TRUE(both) << both.error();
    EXPECT_EQ(*both, (std::vector<std::string>{"C:\\home\\ann\\Music", "C:\\tmp",
                                               "C:\\home\\ann\\a\uF07Cb"}));
}

TEST_F(TypedPathsTest, LocationsMustBeFoldersThatExist) {
    machine.disk.AddFile("C:\\home\\ann\\file.txt");
    EXPECT_EQ(paths.Locations({"/nope"}).error(),
              "There is no folder \"/nope\" to search: give --in folders that exist.");
    EXPECT_EQ(paths.Locations({"Music|file.txt"}).error(),
              "\"file.txt\" is a file: give --in the folders to search.");
    EXPECT_EQ(paths.Locations({"Music|"}).error(), "--in holds an empty location: leave it out.");
}

} // namespace
} // namespace tarvix::cli
