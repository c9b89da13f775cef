#include "actions/place/name_parts.h"

#include <gtest/gtest.h>

namespace tarvix::actions {
namespace {

struct Case {
    const char* name;
    const char* prefix;
    const char* extension;
};

TEST(NameParts, ANameIsSplitAtItsLastDot) {
    for (const Case& c : {Case{"a.txt", "a", "txt"}, Case{"a.b.c", "a.b", "c"},
                          Case{".hidden", "", "hidden"}, Case{"ä ö.ü", "ä ö", "ü"}}) {
        const NameParts parts = SplitPrefixAndExtension(c.name);
        EXPECT_EQ(parts.strPrefix, c.prefix) << c.name;
        EXPECT_EQ(parts.strExtension, c.extension) << c.name;
    }
}

TEST(NameParts, NoExtensionAndAFinalDotBothGiveAnEmptyExtension) {
    for (const Case& c : {Case{"name", "name", ""}, Case{"name.", "name", ""}, Case{"", "", ""},
                          Case{".", "", ""}}) {
        const NameParts parts = SplitPrefixAndExtension(c.name);
        EXPECT_EQ(parts.strPrefix, c.prefix) << c.name;
        EXPECT_EQ(parts.strExtension, c.extension) << c.name;
    }
}

} // namespace
} // namespace tarvix::actions
