#include "platform/linux/character_sets.h"

#include <gtest/gtest.h>

namespace tarvix::platform {
namespace {

TEST(CharacterSets, AreFoundByTheNamesThatDocumentsHave) {
    EXPECT_EQ(DecodeFrom("windows-1251", "\xCF\xF0\xE8\xE2\xE5\xF2"), "Привет");
    EXPECT_EQ(DecodeFrom("KOI8-R", "\xF0\xD2\xC9\xD7\xC5\xD4"), "Привет");
    EXPECT_EQ(DecodeFrom("iso-8859-2", "\xE8"), "č");
    EXPECT_EQ(DecodeFrom("Shift_JIS", "\x93\xFA\x96{"), "日本");
    EXPECT_EQ(DecodeFrom("x-sjis", "\x87\x40"), "①") << "as it is really written";
    EXPECT_EQ(DecodeFrom("EUC-JP", "\xC6\xFC\xCB\xDC"), "日本");
    EXPECT_EQ(DecodeFrom("iso-2022-jp", "\x1B$BF|K\\\x1B(B!"), "日本!");
    EXPECT_EQ(DecodeFrom("gb2312", "\xD6\xD0\xCE\xC4"), "中文");
    EXPECT_EQ(DecodeFrom("big5", "\xA4\xA4\xA4\xE5"), "中文");
    EXPECT_EQ(DecodeFrom("ks_c_5601-1987", "\xC7\xD1"), "한");
    EXPECT_EQ(DecodeFrom("iso-8859-9", "\xFD"), "ı");
    EXPECT_EQ(DecodeFrom("utf-8", ""), "");
}

TEST(CharacterSets, WhatIsNoCharacterBecomesAMark) {
    EXPECT_EQ(DecodeFrom("Shift_JIS", "a\x93"), "a\uFFFD");
    EXPECT_EQ(DecodeFrom("EUC-JP", "a\xFF"
                                   "b"),
              "a\uFFFD"
              "b");
}

TEST(CharacterSets, ANameThatIsNoneIsUnknown) {
    for (const char* name : {"", "nonsense", "utf-8//IGNORE", "../x", "a b", "\xFF"})
        EXPECT_FALSE(DecodeFrom(name, "x")) << name;
    EXPECT_FALSE(DecodeFrom(std::string(100, 'x'), "x"));
}

TEST(CharacterSets, LongTextsAreWhole) {
    std::string bytes;
    std::string text;
    for (int i = 0; i < 10'000; ++i) {
        bytes += "\xE8";
        text += "č";
    }
    EXPECT_EQ(DecodeFrom("iso-8859-2", bytes), text);
}

} // namespace
} // namespace tarvix::platform
