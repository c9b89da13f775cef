#include "shortcuts/formats/values.h"

#include <gtest/gtest.h>

namespace tarvix::shortcuts {
namespace {

TEST(ShortcutKind, IsToldByTheExtensionInAnyCase) {
    EXPECT_EQ(KindOf("a.lnk"), Kind::kLnk);
    EXPECT_EQ(KindOf("a b.c.LNK"), Kind::kLnk);
    EXPECT_EQ(KindOf("A.Url"), Kind::kUrl);
    EXPECT_EQ(KindOf("ü.desktop"), Kind::kDesktop);
    EXPECT_EQ(KindOf(".DeskTop"), Kind::kDesktop);
    EXPECT_EQ(KindOf("C:\\t\\a.uRL"), Kind::kUrl);
}

TEST(ShortcutKind, IsNoneForWhatOnlyLooksLikeIt) {
    for (const char* name : {"", "lnk", "a.lnk ", "a.lnkx", "a.xlnk", "alnk", "a.lnk.txt", "a.url.",
                             "desktop", "a.mp3", "a.\x8C\x8E\x8B", "a.LÑK"}) {
        EXPECT_EQ(KindOf(name), Kind::kNone) << name;
    }
}

} // namespace
} // namespace tarvix::shortcuts
