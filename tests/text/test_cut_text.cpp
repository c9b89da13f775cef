#include "text/characters.h"
#include "text/cut_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using namespace tarvix::text;

namespace {

Fits AtMost(std::size_t characters) {
    return [characters](std::string_view text) { return Length(text) <= characters; };
}

std::string Part(std::string_view text, Span span) {
    return std::string(text.substr(span.start, span.length));
}

struct ChangeCase {
    const char* before;
    const char* after;
    const char* gone;
    const char* added;
};

constexpr ChangeCase kChanges[] = {
    {"song - one.mp3", "song_one.mp3", " - ", "_"},
    {"one.mp3", "one.mp3", "", ""},
    {"one.mp3", "01 one.mp3", "", "01 "},
    {"a - b", "ab", " - ", ""},
    {"aa", "aaa", "", "a"},
    {"caf\u00e9.txt", "caf\u00e8.txt", "\u00e9", "\u00e8"},
    {"x\u00e9", "x\u0129", "\u00e9", "\u0129"}, // the same last byte
    {"", "new", "", "new"},
};

TEST(ChangedPart, IsWhatLiesBetweenTheCommonEnds) {
    for (const ChangeCase& sample : kChanges) {
        const Change change = ChangedPart(sample.before, sample.after);
        EXPECT_EQ(Part(sample.before, change.before), sample.gone) << sample.after;
        EXPECT_EQ(Part(sample.after, change.after), sample.added) << sample.after;
    }
}

TEST(CutAround, ATextThatFitsStaysWhole) {
    const CutText cut = CutAround("short", {1, 2}, AtMost(5));
    EXPECT_EQ(cut.text, "short");
    EXPECT_EQ(cut.span, (Span{1, 2}));
}

TEST(CutAround, TheFrontGoesFirstSoThatTheChangeStaysInSight) {
    const std::string text = "a long common beginning 1987.mp3";
    const CutText cut = CutAround(text, {24, 4}, AtMost(16));
    EXPECT_EQ(cut.text, "…inning 1987.mp3");
    EXPECT_EQ(Part(cut.text, cut.span), "1987");
}

TEST(CutAround, ThenTheEndGoes) {
    const CutText cut = CutAround("beginning X and a long end", {10, 1}, AtMost(12));
    EXPECT_EQ(cut.text, "…ing X and …");
    EXPECT_EQ(Part(cut.text, cut.span), "X");
}

TEST(CutAround, AChangeThatHasNoRoomIsCutItself) {
    const CutText cut = CutAround("ab0123456789", {2, 10}, AtMost(6));
    EXPECT_EQ(cut.text, "ab012…");
    EXPECT_EQ(Part(cut.text, cut.span), "012");
}

TEST(CutAround, NoRoomAtAllLeavesTheGap) {
    EXPECT_EQ(CutAround("abc", {0, 1}, AtMost(0)).text, "…");
}

TEST(FolderPart, IsWhatHoldsTheName) {
    EXPECT_EQ(FolderPart("/home/ann/a.txt"), "/home/ann");
    EXPECT_EQ(FolderPart("/a.txt"), "/");
    EXPECT_EQ(FolderPart("C:\\a\\b"), "C:\\a");
    EXPECT_EQ(FolderPart("C:\\a"), "C:\\");
    EXPECT_EQ(FolderPart("a.txt"), "");
    EXPECT_EQ(NamePart("/home/ann/a\\b.txt"), "a\\b.txt");
    EXPECT_EQ(NamePart("C:\\a\\b"), "b");
    EXPECT_EQ(NamePart("b"), "b");
}

TEST(CommonFolder, IsTheDeepestThatHoldsBoth) {
    EXPECT_EQ(CommonFolder("/home/ann/Music", "/home/ann/Music"), "/home/ann/Music");
    EXPECT_EQ(CommonFolder("/home/ann/Music/Abba", "/home/ann/Music/Beatles"), "/home/ann/Music");
    EXPECT_EQ(CommonFolder("/home/ann/Music", "/home/ann/Musical"), "/home/ann");
    EXPECT_EQ(CommonFolder("/home/ann/Music/Abba", "/home/ann/Music"), "/home/ann/Music");
    EXPECT_EQ(CommonFolder("/home", "/srv/x"), "/");
    EXPECT_EQ(CommonFolder("C:\\a\\b", "C:\\a\\c"), "C:\\a");
    EXPECT_EQ(CommonFolder("C:\\a", "E:\\a"), "");
}

TEST(PathBelow, LeavesTheFolderOut) {
    EXPECT_EQ(PathBelow("/home/ann/Music/Abba", "/home/ann/Music"), "Abba");
    EXPECT_EQ(PathBelow("/home/ann/Music", "/home/ann/Music"), ".");
    EXPECT_EQ(PathBelow("/home/ann/Musical", "/home/ann/Music"), "/home/ann/Musical");
    EXPECT_EQ(PathBelow("/home/ann", "/"), "/home/ann");
    EXPECT_EQ(PathBelow("/home/ann", ""), "/home/ann");
    EXPECT_EQ(PathBelow("C:\\a", "C:\\"), "C:\\a");
    EXPECT_EQ(PathBelow("C:\\a\\b", "C:\\a"), "b");
}

TEST(CutPath, LeavesWholeFoldersOutBehindTheFirst) {
    const std::string path = "Music/Abba/Live in Paris/1979";
    EXPECT_EQ(CutPath(path, AtMost(29)), path);
    EXPECT_EQ(CutPath(path, AtMost(28)), "Music/…/Live in Paris/1979");
    EXPECT_EQ(CutPath(path, AtMost(20)), "Music/…/1979");
    EXPECT_EQ(CutPath(path, AtMost(8)), "…/1979");
    EXPECT_EQ(CutPath(path, AtMost(2)), "…/1979");
    EXPECT_EQ(CutPath("/home/ann/Music", AtMost(14)), "/home/…/Music");
    EXPECT_EQ(CutPath("C:\\home\\ann\\Music", AtMost(14)), "C:\\…\\ann\\Music");
    EXPECT_EQ(CutPath("name alone", AtMost(3)), "name alone");
}

} // namespace
