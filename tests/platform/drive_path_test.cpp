#include "platform/drive_path.h"

#include <gtest/gtest.h>

namespace tarvix::platform {

TEST(DrivePath, PiecesOfAPath) {
    using Names = std::vector<std::string_view>;
    const struct {
        const char* path;
        const char* root;
        Names names;
    } table[] = {
        {"C:", "C:", {}},
        {"c:\\", "c:", {}},
        {"C:\\a", "C:", {"a"}},
        {"C:\\a\\b.c\\", "C:", {"a", "b.c"}},
        {"C:\\\\a\\\\b", "C:", {"a", "b"}},
        {"C:\\.\\a\\.\\b", "C:", {"a", "b"}},
        {"C:\\a\\..\\b", "C:", {"b"}},
        {"C:\\..\\..\\a", "C:", {"a"}},
        {"C:\\ a \\...", "C:", {" a ", "..."}},
        {"\\\\server\\share", "\\\\server\\share", {}},
        {"\\\\server\\share\\", "\\\\server\\share", {}},
        {"\\\\server\\share\\a\\..\\..\\b", "\\\\server\\share", {"b"}},
    };
    for (const auto& row : table) {
        const auto parsed = ParseDrivePath(row.path);
        ASSERT_TRUE(parsed) << row.path;
        EXPECT_EQ(parsed->root, row.root) << row.path;
        EXPECT_EQ(parsed->names, row.names) << row.path;
    }
}

TEST(DrivePath, WhatIsNoDrivePathGives52) {
    for (const char* path : {"", "a", "a\\b", "\\a", "C", "C:a", "1:\\a", ":\\a", "/a", "\\\\",
                             "\\\\server", "\\\\server\\", "\\\\\\share", "C:\\a:b", "C:\\a*",
                             "C:\\a?b\\c", "C:\\a/b", "C:\\a|b", "C:\\caf\xE9"}) {
        const auto parsed = ParseDrivePath(path);
        ASSERT_FALSE(parsed) << path;
        EXPECT_EQ(parsed.error().number, kBadFileName) << path;
    }
}

} // namespace tarvix::platform
