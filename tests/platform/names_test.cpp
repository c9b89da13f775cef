#include "platform/names.h"

#include <gtest/gtest.h>

namespace tarvix::platform {

TEST(Names, PlainNamesStayAsTheyAre) {
    for (const char* name : {"", "a.txt", "Żółć", "日本語", "🎵.mp3", " a ", "[x]#1~", "\x7F"}) {
        EXPECT_EQ(NameToDrive(name), name);
        EXPECT_EQ(NameToNative(name), name);
        EXPECT_EQ(ForDisplay(name), name);
    }
}

TEST(Names, ReservedCharactersAreCarriedThereAndBack) {
    const struct {
        const char* native;
        const char* drive;
    } table[] = {
        {"a\\b", "a\uF05Cb"},  {"a:b", "a\uF03Ab"},        {"*", "\uF02A"},
        {"why?", "why\uF03F"}, {"\"q\"", "\uF022q\uF022"}, {"<a>", "\uF03Ca\uF03E"},
        {"a|b", "a\uF07Cb"},   {"a\nb", "a\uF00Ab"},       {"\x01", "\uF001"},
        {"\x1F", "\uF01F"},    {"ä:ö", "ä\uF03Aö"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(NameToDrive(row.native), row.drive) << row.native;
        EXPECT_EQ(NameToNative(row.drive), row.native) << row.native;
        EXPECT_EQ(NameToNative(NameToDrive(row.native)), row.native) << row.native;
    }
}

TEST(Names, BytesThatAreNotUtf8BecomeQuestionMarks) {
    const struct {
        const char* native;
        const char* drive;
    } table[] = {
        {"caf\xE9.txt", "caf?.txt"},  {"\xFF\xFE", "??"},      {"\x80", "?"},
        {"\xC0\xAF", "??"},           {"\xED\xA0\x80", "???"}, {"a\xE2\x82", "a??"},
        {"\xF4\x90\x80\x80", "????"}, {"\xE9:ä", "?\uF03Aä"},
    };
    for (const auto& row : table)
        EXPECT_EQ(NameToDrive(row.native), row.drive);
}

TEST(Names, CharactersWhereCarriedOnesGoBecomeQuestionMarks) {
    EXPECT_EQ(NameToDrive("a\uF03Ab"), "a?b");
    EXPECT_EQ(NameToDrive("\uF001"), "?");
}

TEST(Names, OtherPrivateCharactersAreThemselves) {
    for (const char* name : {"\uF000", "\uF041", "\uF02F", "\uF07F", "\uF8FF", "\uE000"}) {
        EXPECT_EQ(NameToDrive(name), name);
        EXPECT_EQ(NameToNative(name), name);
    }
}

TEST(Names, AppendAddsToWhatIsThere) {
    std::string out = "C:\\";
    AppendNameToDrive(out, "a:b");
    AppendNameToDrive(out, "c");
    EXPECT_EQ(out, "C:\\a\uF03Abc");
}

TEST(Names, PeopleAreShownTheCharactersThemselves) {
    EXPECT_EQ(ForDisplay("C:\\AC\uF05CDC\\why\uF03F"), "C:\\AC\\DC\\why?");
    EXPECT_EQ(ForDisplay("a\uF00Ab\uF001"), "a\u240Ab\u2401");
    EXPECT_EQ(ForDisplay("bad \xE9\uF03A"), "bad \xE9:");
}

TEST(Names, WhatCanBeAName) {
    for (const char* name : {"a", "a.txt", ".hidden", "...", " ", "a ", "Żółć", "a\uF03Ab", "~"}) {
        EXPECT_TRUE(CanBeName(name)) << name;
    }
    for (const char* name :
         {"", ".", "..", "a\\b", "a/b", "a:b", "a*", "a?", "\"", "<", ">", "|", "\n", "caf\xE9"}) {
        EXPECT_FALSE(CanBeName(name)) << name;
    }
    EXPECT_FALSE(CanBeName(std::string_view("a\0b", 3)));
}

TEST(Names, EachSingleByteThatCanBeAName) {
    constexpr std::string_view kReserved = "\\/:*?\"<>|";
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const bool isFree = byte >= 32 && byte < 128 && kReserved.find(c) == kReserved.npos;
        EXPECT_EQ(CanBeName(std::string(1, c)), isFree && c != '.') << byte;
        EXPECT_EQ(CanBeName(std::string("a") + c + "b"), isFree) << byte;
        EXPECT_EQ(CanBeName(std::string("A longer name ") + c), isFree) << byte;
    }
}

TEST(Names, AReservedCharacterAndOthersBeyondAsciiInOneName) {
    EXPECT_TRUE(CanBeName("\u00E9t\u00E9"));
    EXPECT_FALSE(CanBeName("\u00E9:"));
    EXPECT_FALSE(CanBeName(":\u00E9"));
    EXPECT_FALSE(CanBeName("\u00E9\xE9"));
    EXPECT_FALSE(CanBeName("\u00E9\x80"));
    EXPECT_FALSE(CanBeName("a\xEF"));
}

TEST(Names, AppendNameToNativeAddsToWhatIsThere) {
    std::string out = "/home";
    AppendNameToNative(out, "/plain");
    AppendNameToNative(out, "");
    AppendNameToNative(out, "a\uF03Ab");
    AppendNameToNative(out, "\uF05C");
    EXPECT_EQ(out, "/home/plaina:b\\");
}

TEST(Names, TheEndsOfTheRangeOfCarriedCharacters) {
    EXPECT_EQ(NameToNative("a\uEFFF"), "a\uEFFF");
    EXPECT_EQ(NameToNative("a\uF000"), "a\uF000");
    EXPECT_EQ(NameToNative("a\uF001"), "a\x01");
    EXPECT_EQ(NameToNative("a\uF03E"), "a>");
    EXPECT_EQ(NameToNative("a\uF07C"), "a|");
    EXPECT_EQ(NameToNative("a\uF07F"), "a\uF07F");
    EXPECT_EQ(NameToNative("a\uF080"), "a\uF080");
    EXPECT_EQ(NameToDrive("a\uEFFF"), "a\uEFFF");
    EXPECT_EQ(NameToDrive("a\uF07C"), "a?");
}

TEST(Names, AByteThatStartsCarriedCharactersAloneOrInFrontOfOne) {
    EXPECT_EQ(NameToNative("a\xEF"), "a\xEF");
    EXPECT_EQ(NameToNative("\xEF"), "\xEF");
    EXPECT_EQ(NameToNative("a\xEF\x80"), "a\xEF\x80");
    EXPECT_EQ(NameToNative("a\uF03A\xEF"), "a:\xEF");
    EXPECT_EQ(NameToNative("\xEF\uF03A"), "\xEF:");
    EXPECT_EQ(NameToNative("\uFB01\uF03A"), "\uFB01:"); // EF AC 81 first
    EXPECT_EQ(NameToDrive("a\xEF"), "a?");
    EXPECT_EQ(NameToDrive("\xEF\uF03A"), "??");
}

} // namespace tarvix::platform
