#include "platform/names.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace tarvix::platform {

TEST(Names, PlainNamesStayAsTheyAre) {
    for (const char* name :
         {"", "a.txt", "Żółć", "日本語", "🎵.mp3", "a b.c", "[x]#1~", "..a", ".a"}) {
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
        {"\x1F", "\uF01F"},    {"ä:ö", "ä\uF03Aö"},        {" a b ", "\uF020a b\uF020"},
        {"a.", "a\uF02E"},     {"a..", "a.\uF02E"},        {"...", "..\uF02E"},
        {" ", "\uF020"},       {"  ", "\uF020\uF020"},     {"Żółć ", "Żółć\uF020"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(NameToDrive(row.native), row.drive) << row.native;
        EXPECT_EQ(NameToNative(row.drive), row.native) << row.native;
        EXPECT_EQ(NameToNative(NameToDrive(row.native)), row.native) << row.native;
    }
}

TEST(Names, BytesThatAreNotUtf8AreCarriedOneByOne) {
    const struct {
        const char* native;
        const char* drive;
    } table[] = {
        {"caf\xE9.txt", "caf\uF0E9.txt"},
        {"\xFF\xFE", "\uF0FF\uF0FE"},
        {"\x80", "\uF080"},
        {"\xC0\xAF", "\uF0C0\uF0AF"},
        {"\xED\xA0\x80", "\uF0ED\uF0A0\uF080"},
        {"a\xE2\x82", "a\uF0E2\uF082"},
        {"\xF4\x90\x80\x80", "\uF0F4\uF090\uF080\uF080"},
        {"\xE9:ä", "\uF0E9\uF03Aä"},
        {"\xEF", "\uF0EF"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(NameToDrive(row.native), row.drive);
        EXPECT_EQ(NameToNative(row.drive), row.native);
    }
}

TEST(Names, CharactersWhereCarriedOnesGoAreCarriedByteByByte) {
    EXPECT_EQ(NameToDrive("a\uF03Ab"), "a\uF0EF\uF080\uF0BAb");
    EXPECT_EQ(NameToDrive("\uF000"), "\uF0EF\uF080\uF080");
    EXPECT_EQ(NameToDrive("\uF0FF"), "\uF0EF\uF083\uF0BF");
    EXPECT_EQ(NameToNative("a\uF0EF\uF080\uF0BAb"), "a\uF03Ab");
}

TEST(Names, CharactersBeyondAsciiKeepTheRulesOfEnds) {
    EXPECT_EQ(NameToDrive("Año v5.txt"), "Año v5.txt");
    EXPECT_EQ(NameToDrive("東京 "), "東京\uF020");
    EXPECT_EQ(NameToDrive(" 東京"), "\uF020東京");
    EXPECT_EQ(NameToDrive("東京."), "東京\uF02E");
    EXPECT_EQ(NameToDrive("東:京"), "東\uF03A京");
    EXPECT_EQ(NameToDrive("東\xE6"), "東\uF0E6");
    EXPECT_EQ(NameToDrive("東\uF0EF"), "東\uF0EF\uF083\uF0AF");
}

TEST(Names, OtherPrivateCharactersAreThemselves) {
    for (const char* name : {"\uEFFF", "\uF100", "\uF8FF", "\uE000"}) {
        EXPECT_EQ(NameToDrive(name), name);
        EXPECT_EQ(NameToNative(name), name);
    }
}

// Any bytes but "/" and NUL.
std::string RandomName(std::mt19937_64& random) {
    std::string name;
    const std::size_t length = 1 + random() % 40;
    while (name.size() < length) {
        constexpr std::string_view kOften = " .\\:*?\"<>|\n\r\t\xEF\x80\x81\x83\xBF\xE9~#[]";
        const bool isOften = random() % 2 == 0;
        const char c = isOften ? kOften[random() % kOften.size()] : static_cast<char>(random());
        if (c != '/' && c != '\0') name += c;
    }
    return name;
}

TEST(Names, AnyBytesComeBackAndMakeAName) {
    std::mt19937_64 random(7);
    const int count = std::getenv("TARVIX_NIGHTLY") != nullptr ? 1'000'000 : 20'000;
    for (int i = 0; i < count; ++i) {
        const std::string name = RandomName(random);
        const std::string drive = NameToDrive(name);
        ASSERT_EQ(NameToNative(drive), name);
        ASSERT_TRUE(name == "." || name == ".." || CanBeName(drive)) << drive;
        ASSERT_EQ(ForDisplay(drive), NativeForDisplay(name));
        ASSERT_FALSE(drive.starts_with(' ') || drive.ends_with(' ')) << drive;
    }
}

TEST(Names, APieceKeepsTheBlanksAtItsEnds) {
    EXPECT_EQ(PieceToDrive(" a:b. "), " a\uF03Ab. ");
    EXPECT_EQ(PieceToDrive("\xE9"), "\uF0E9");
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
    EXPECT_EQ(ForDisplay("bad \uF0E9\uF03A"), "bad \\xE9:");
    EXPECT_EQ(ForDisplay("\uF020a\uF02E"), " a.");
    EXPECT_EQ(ForDisplay("a\uF0EF\uF080\uF0BAb"), "a\uF03Ab");
    EXPECT_EQ(NativeForDisplay("a\n\x7F\xFFä\uF03A"), "a\u240A\x7F\\xFFä\uF03A");
    EXPECT_EQ(NativeForDisplay(""), "");
}

TEST(Names, WhatCanBeAName) {
    for (const char* name : {"a", "a.txt", ".hidden", "...", " ", "a ", "Żółć", "a\uF03Ab", "~",
                             "..\uF02E", "\uF02Ea", "\uF020"}) {
        EXPECT_TRUE(CanBeName(name)) << name;
    }
    for (const char* name : {"", ".", "..", "\uF02E", ".\uF02E", "\uF02E.", "\uF02E\uF02E", "a\\b",
                             "a/b", "a:b", "a*", "a?", "\"", "<", ">", "|", "\n", "caf\xE9"}) {
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
    EXPECT_EQ(NameToNative("a\uF080"), "a\x80");
    EXPECT_EQ(NameToNative("a\uF0FF"), "a\xFF");
    EXPECT_EQ(NameToNative("a\uF100"), "a\uF100");
}

TEST(Names, AByteThatStartsCarriedCharactersAloneOrInFrontOfOne) {
    EXPECT_EQ(NameToNative("a\xEF"), "a\xEF");
    EXPECT_EQ(NameToNative("\xEF"), "\xEF");
    EXPECT_EQ(NameToNative("a\xEF\x80"), "a\xEF\x80");
    EXPECT_EQ(NameToNative("a\uF03A\xEF"), "a:\xEF");
    EXPECT_EQ(NameToNative("\xEF\uF03A"), "\xEF:");
    EXPECT_EQ(NameToNative("\uFB01\uF03A"), "\uFB01:"); // EF AC 81 first
}

} // namespace tarvix::platform
