#include "text/paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace tarvix::text;

namespace {

struct PieceCase {
    const char* path;
    const char* fileName;
    const char* parent;
};

constexpr PieceCase kPieces[] = {
    {R"(C:\a\b.txt)", "b.txt", R"(C:\a)"},
    {R"(C:\a\b\)", "b", R"(C:\a)"},
    {R"(C:\a)", "a", R"(C:\)"},
    {R"(C:\)", "", ""},
    {"C:", "", ""},
    {"C:a.txt", "a.txt", "C:"},
    {R"(C:\\a)", "a", R"(C:\)"},
    {R"(C:\a\\b)", "b", R"(C:\a)"},
    {R"(\\server\share)", "", ""},
    {R"(\\server\share\)", "", ""},
    {R"(\\server\share\x)", "x", R"(\\server\share)"},
    {R"(\\server\share\x\y)", "y", R"(\\server\share\x)"},
    {R"(\\server\share\x\)", "x", R"(\\server\share)"},
    {R"(\\server)", "", ""},
    {R"(a\b)", "b", "a"},
    {R"(\a)", "a", R"(\)"},
    {R"(\)", "", ""},
    {"name", "name", ""},
    {"", "", ""},
    {R"(C:\Müsli\Äpfel)", "Äpfel", R"(C:\Müsli)"},
};

TEST(PathPieces, FileNameOf) {
    for (const PieceCase& row : kPieces) {
        EXPECT_EQ(FileNameOf(row.path), row.fileName) << row.path;
    }
}

TEST(PathPieces, GetParentFolderName) {
    for (const PieceCase& row : kPieces) {
        EXPECT_EQ(GetParentFolderName(row.path), row.parent) << row.path;
    }
}

TEST(FolderOwnName, TextBehindTheLastSlash) {
    EXPECT_EQ(FolderOwnName(std::string_view()), "");
    EXPECT_EQ(FolderOwnName(R"(C:\a\b)"), "b");
    EXPECT_EQ(FolderOwnName(R"(C:\a\)"), "");
    EXPECT_EQ(FolderOwnName("C:"), "C:");
    EXPECT_EQ(FolderOwnName(R"(\\server\share)"), "share");
}

TEST(ParentFolder, PathItselfWithoutAParent) {
    EXPECT_EQ(ParentFolder(R"(C:\a\b)"), R"(C:\a)");
    EXPECT_EQ(ParentFolder(R"(C:\a\b\)"), R"(C:\a)");
    EXPECT_EQ(ParentFolder(R"(C:\a)"), R"(C:\)");
    EXPECT_EQ(ParentFolder(R"(C:\)"), R"(C:\)");
    EXPECT_EQ(ParentFolder("name"), "name");
    EXPECT_EQ(ParentFolder(R"(\\server\share)"), R"(\\server\share)");
}

TEST(ParentFolder, ClimbingStopsAtTheRoot) {
    std::string path = ParentFolderSlash(R"(C:\a\b\c.txt)");
    for (int level = 0; level < 9; ++level) {
        path = ParentFolder(path);
    }
    EXPECT_EQ(path, R"(C:\)");
}

TEST(ParentFolderSlash, EndsInOneSlash) {
    EXPECT_EQ(ParentFolderSlash(R"(C:\a\b)"), R"(C:\a\)");
    EXPECT_EQ(ParentFolderSlash(R"(C:\a)"), R"(C:\)");
    EXPECT_EQ(ParentFolderSlash(R"(\\server\share\x)"), R"(\\server\share\)");
    EXPECT_EQ(ParentFolderSlash("name"), "name");
}

TEST(GetExtension, TextBehindTheLastDot) {
    EXPECT_EQ(GetExtension("a.b.mp3"), "mp3");
    EXPECT_EQ(GetExtension("name"), "");
    EXPECT_EQ(GetExtension("name."), "");
    EXPECT_EQ(GetExtension(".hidden"), "hidden");
}

TEST(GetBaseName, NameWithoutItsExtension) {
    EXPECT_EQ(GetBaseName("a.b.mp3"), "a.b");
    EXPECT_EQ(GetBaseName("name"), "name");
    EXPECT_EQ(GetBaseName("name."), "name");
    EXPECT_EQ(GetBaseName(".hidden"), "");
    EXPECT_EQ(GetBaseName(R"(C:\a.b\name.txt)"), "name");
    EXPECT_EQ(GetBaseName(R"(C:\a.b\name)"), "name");
}

TEST(CountPathLevels, CountsSlashes) {
    EXPECT_EQ(CountPathLevels(R"(C:\a\b.txt)"), 2U);
    EXPECT_EQ(CountPathLevels(R"(\\server\share\x)"), 4U);
    EXPECT_EQ(CountPathLevels(""), 0U);
}

TEST(Strip, OneCharacterOnly) {
    EXPECT_EQ(StripTrailingSlash(R"(C:\a\\)"), R"(C:\a\)");
    EXPECT_EQ(StripTrailingSlash(R"(C:\a)"), R"(C:\a)");
    EXPECT_EQ(StripTrailingSlash(""), "");
    EXPECT_EQ(StripLeadingBar("||a|"), "|a|");
    EXPECT_EQ(StripLeadingBar("a|"), "a|");
    EXPECT_EQ(StripTrailingBar("|a||"), "|a|");
    EXPECT_EQ(StripTrailingBar(""), "");
}

struct CleanCase {
    const char* path;
    const char* plain;
    const char* strict;
};

TEST(CleanSpacesInPath, InItsOrder) {
    constexpr CleanCase rows[] = {
        {R"(  C:\a b\c  )", R"(C:\a b\c)", R"(C:\a b\c)"},
        {R"(C: \ a  \  b)", R"(C:\a\b)", R"(C:\a\b)"},
        {R"(C:\a | D:\b |  E:\c)", R"(C:\a|D:\b|E:\c)", R"(C:\a|D:\b|E:\c)"},
        {R"(C:\a\)", R"(C:\a\)", R"(C:\a)"},
        {R"(C:\a\ )", R"(C:\a\)", R"(C:\a)"},
        {R"(C:\a\\\b\\)", R"(C:\a\\\b\\)", R"(C:\a\b)"},
        {R"(C:\ \ a)", R"(C:\\a)", R"(C:\a)"},
        {R"(\\pc\d\\x)", R"(\\pc\d\\x)", R"(\\pc\d\x)"},
        {R"(  \\pc\d)", R"(\\pc\d)", R"(\\pc\d)"},
        {R"(\\\pc\d)", R"(\\\pc\d)", R"(\\\pc\d)"},
        {R"(\\\\pc)", R"(\\\\pc)", R"(\\\pc)"},
        {R"(é\\\x)", R"(é\\\x)", R"(é\\x)"},
        {R"(C:\)", R"(C:\)", "C:"},
        {R"( \a)", R"(\a)", R"(\a)"},
        {" | ", "|", "|"},
        {R"(| \ |)", R"(|\|)", R"(|\|)"},
        {"", "", ""},
        {"   ", "", ""},
        {R"(\)", R"(\)", ""},
    };
    for (const CleanCase& row : rows) {
        EXPECT_EQ(CleanSpacesInPath(row.path, false), row.plain) << row.path;
        EXPECT_EQ(CleanSpacesInPath(row.path, true), row.strict) << row.path;
    }
}

// Blanks go where they touch an end, "\\" or "|". Then, from the third character on, a "\\" goes
// that follows another of these, and at last one "\\" at the end.
std::string PlainlyCleaned(const std::string& path, bool strict) {
    const auto isEdge = [&](std::size_t at) {
        return at >= path.size() || path[at] == '\\' || path[at] == '|';
    };
    std::string out;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t end = std::min(path.find_first_not_of(' ', at), path.size());
        if (end > at && !(at == 0 || isEdge(at - 1) || isEdge(end))) out.append(path, at, end - at);
        if (end < path.size()) out += path[end];
        at = end + 1;
    }
    if (!strict) return out;
    std::size_t at = 3;
    while (at < out.size()) {
        if (out[at] == '\\' && out[at - 1] == '\\') {
            out.erase(at, 1);
        } else {
            ++at;
        }
    }
    if (out.ends_with('\\')) out.pop_back();
    return out;
}

TEST(CleanSpacesInPath, EveryShortTextIsCleanedAsTold) {
    constexpr std::string_view kAlphabet = "\\| a:";
    std::vector<std::string> texts{""};
    for (std::size_t next = 0; next < texts.size(); ++next) {
        const std::string text = texts[next];
        for (const bool strict : {false, true}) {
            const std::string cleaned = PlainlyCleaned(text, strict);
            ASSERT_EQ(CleanSpacesInPath(text, strict), cleaned) << '"' << text << '"' << strict;
            ASSERT_TRUE(!IsCleanPath(text, strict) || cleaned == text) << '"' << text << '"';
        }
        if (text.size() == 6) continue;
        for (const char c : kAlphabet)
            texts.push_back(text + c);
    }
}

TEST(IsCleanPath, OrdinaryPathsHaveNothingToClean) {
    for (const char* path : {R"(C:\a b\c)", R"(\\pc\d\x)", "name", R"(C:\Müsli\b c.txt)", "C:"}) {
        EXPECT_TRUE(IsCleanPath(path, true)) << path;
        EXPECT_TRUE(IsCleanPath(path, false)) << path;
    }
    EXPECT_TRUE(IsCleanPath(R"(C:\a\)", false));
    EXPECT_FALSE(IsCleanPath(R"(C:\a\)", true));
    EXPECT_FALSE(IsCleanPath(R"(C:\a\\b)", true));
    EXPECT_FALSE(IsCleanPath(R"(C:\a \b)", false));
    EXPECT_FALSE(IsCleanPath("a| b", false));
}

struct RootCase {
    const char* path;
    const char* root;
    const char* below;
    const char* folders;
};

TEST(PathRoot, DrivesAndShares) {
    constexpr RootCase rows[] = {
        {R"(C:\x.txt)", "C:", R"(\x.txt)", R"(\C)"},
        {R"(C:\Music\a\b.mp3)", "C:", R"(\Music\a\b.mp3)", R"(\C)"},
        {"C:", "C:", "", R"(\C)"},
        {R"(\\server\share\x)", R"(\\server\share)", R"(\x)", R"(\server\share)"},
        {R"(\\pc\d\Music\a\b.mp3)", R"(\\pc\d)", R"(\Music\a\b.mp3)", R"(\pc\d)"},
        {R"(\\server\share\)", R"(\\server\share)", R"(\)", R"(\server\share)"},
        {R"(\\server\share)", "", "", ""},
        {R"(\\server)", "", "", ""},
        {"name", "", "", ""},
        {"", "", "", ""},
    };
    for (const RootCase& row : rows) {
        EXPECT_EQ(PathRoot(row.path), row.root) << row.path;
        EXPECT_EQ(PathBelowRoot(row.path), row.below) << row.path;
        EXPECT_EQ(RootAsFolders(PathRoot(row.path)), row.folders) << row.path;
    }
}

TEST(PathBelowRoot, NeedsTwoSlashesInFront) {
    EXPECT_EQ(PathBelowRoot(R"(\a\b\c\d\e)"), "");
    EXPECT_EQ(PathBelowRoot(R"(a\b\c\d\e)"), "");
}

TEST(JoinPath, ExactlyOneSlashBetween) {
    EXPECT_EQ(JoinPath(R"(C:\a)", "b"), R"(C:\a\b)");
    EXPECT_EQ(JoinPath(R"(C:\)", "b"), R"(C:\b)");
    EXPECT_EQ(JoinPath("C:", "b"), R"(C:\b)");
    EXPECT_EQ(JoinPath(R"(C:\a\)", R"(\b\c)"), R"(C:\a\b\c)");
    EXPECT_EQ(JoinPath(R"(\\pc\d)", "b"), R"(\\pc\d\b)");
    EXPECT_EQ(JoinPath("", "b"), "b");
    EXPECT_EQ(JoinPath("C:", ""), R"(C:\)");
}

} // namespace
