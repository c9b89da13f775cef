#include "platform/short_names.h"
#include "tests/platform/conformance.h"

#include <set>

namespace tarvix::platform {

TEST(ShortNames, WhatIsAShortName) {
    for (const char* name : {"A", "a", "music", "AUTOEXEC.BAT", "12345678.123", "a.b", "x-y_z(1)",
                             "_", "$Data!", "{ab}.'`^"}) {
        EXPECT_TRUE(IsShortName(name)) << name;
    }
}

TEST(ShortNames, WhatIsNoShortName) {
    for (const char* name :
         {"",      ".",   "..", ".a",  ".hidden", "a.",           "123456789", "a.1234",
          "a.b.c", "a b", " a", "a ",  "a+b",     "a,b",          "a;b",       "a=b",
          "[a]",   "A~1", "ä",  "a.ä", "a~b.txt", "a\xEF\x80\xAF"}) {
        EXPECT_FALSE(IsShortName(name)) << name;
    }
}

TEST(ShortNames, AShortNameIsItsOwn) {
    EXPECT_EQ(ShortNameOf("Music"), "Music");
    EXPECT_EQ(ShortNameOf("a.mp3"), "a.mp3");
}

TEST(ShortNames, MadeFormsAreEightAndThree) {
    const struct {
        const char* name;
        const char* extension;
    } table[] = {
        {"A long name.flac", ".FLA"},
        {"A long name.mp3", ".MP3"},
        {"A long name", ""},
        {"two.dots.txt", ".TXT"},
        {".hidden", ""},
        {"name.", ""},
        {"name.a b", ".AB"},
        {"name.ä", ""},
        {"name.äxyz1", ".XYZ"},
        {"ZYXWVU~1.TXT", ".TXT"},
        {"Ärger.txt", ".TXT"},
    };
    for (const auto& row : table) {
        const std::string made = ShortNameOf(row.name);
        EXPECT_EQ(made.substr(std::min<std::size_t>(8, made.size())), row.extension) << row.name;
        EXPECT_EQ(made[6], '~') << row.name;
        EXPECT_TRUE(LooksLikeMadeShortName(made)) << row.name << " " << made;
        EXPECT_FALSE(IsShortName(made)) << made;
    }
}

TEST(ShortNames, FormsStayTheSameForEver) {
    EXPECT_EQ(ShortNameOf("Long name 325989.txt"), "C61BX8~S.TXT");
    EXPECT_EQ(ShortNameOf("Long name 710907.txt"), "Q909S4~L.TXT");
}

TEST(ShortNames, CaseMakesAnotherForm) {
    EXPECT_NE(ShortNameOf("A long name.txt"), ShortNameOf("a long name.txt"));
}

TEST(ShortNames, NamesOfOneFolderRarelyShareAForm) {
    std::set<std::string> forms;
    for (int i = 0; i < 20'000; ++i)
        forms.insert(ShortNameOf("Song number " + std::to_string(i)));
    EXPECT_EQ(forms.size(), 20'000u);
}

TEST(ShortNames, ThePairUsedInTestsSharesItsForm) {
    const auto [one, other] = NamesWithOneShortName();
    EXPECT_NE(one, other);
    EXPECT_EQ(ShortNameOf(one), ShortNameOf(other));
}

TEST(ShortNames, TheLookOfAMadeForm) {
    for (const char* name : {"ABCDEF~1", "abcdef~z.txt", "012345~6.A", "ABCDEF~1.A-B"}) {
        EXPECT_TRUE(LooksLikeMadeShortName(name)) << name;
    }
    for (const char* name : {"", "ABCDEF", "ABCDE~12", "ABCDEF~", "ABCDEF~12", "ABCDEF~1.",
                             "ABCDEF~1.ABCD", "AB DEF~1", "ABCDEF~1 ", "ABCDEF~-"}) {
        EXPECT_FALSE(LooksLikeMadeShortName(name)) << name;
    }
}

} // namespace tarvix::platform
