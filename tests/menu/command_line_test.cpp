#include "launch/custom/command_line.h"

#include <gtest/gtest.h>

namespace tarvix::custom {
namespace {

using Words = std::vector<std::string>;

// %f is one path, %F two of them, %e nothing.
std::optional<Words> Two(char code) {
    if (code == 'f') return Words{"/a b/$(x)"};
    if (code == 'F') return Words{"/a b", "/c'd"};
    if (code == 'e') return Words{};
    return std::nullopt;
}

Words Filled(std::string_view line) {
    const auto process = FillWords(line, Two);
    return process ? process->arguments : Words{"none"};
}

TEST(CommandLine, WordsAreWhatAShellMakesOfThem) {
    EXPECT_EQ(SplitWords("a  'b c' \"d e\" f\\ g"), (Words{"a", "b c", "d e", "f g"}));
    EXPECT_EQ(SplitWords("a\"b\"'c'"), (Words{"abc"}));
    EXPECT_EQ(SplitWords("\"a\\\"b\\x\""), (Words{"a\"b\\x"}));
    EXPECT_EQ(SplitWords("'a\\'"), (Words{"a\\"}));
    EXPECT_EQ(SplitWords("a ''"), (Words{"a", ""}));
}

TEST(CommandLine, AnOpenQuoteAndAnEmptyLineAreNoCommand) {
    EXPECT_FALSE(SplitWords("a 'b"));
    EXPECT_FALSE(SplitWords("a \"b"));
    EXPECT_FALSE(SplitWords(""));
    EXPECT_FALSE(SplitWords("  \t"));
}

TEST(CommandLine, AValueIsOneArgumentWhateverItHolds) {
    EXPECT_EQ(Filled("p %f"), (Words{"p", "/a b/$(x)"}));
    EXPECT_EQ(Filled("p '%f'"), (Words{"p", "/a b/$(x)"}));
    EXPECT_EQ(Filled("p --in=%f.out"), (Words{"p", "--in=/a b/$(x).out"}));
}

TEST(CommandLine, AListAloneBecomesSeveralArguments) {
    EXPECT_EQ(Filled("p %F end"), (Words{"p", "/a b", "/c'd", "end"}));
    EXPECT_EQ(Filled("p x%F"), (Words{"p", "x/a b /c'd"}));
    EXPECT_EQ(Filled("p %e end"), (Words{"p", "end"}));
}

TEST(CommandLine, PercentSignsAndUnknownCodesStay) {
    EXPECT_EQ(Filled("p 100%% %z %"), (Words{"p", "100%", "%z", "%"}));
}

TEST(CommandLine, AShellsProgramReadsValuesFromVariables) {
    const auto process = FillWords("sh -c 'cat \"%f\" > %f' x", Two);
    ASSERT_TRUE(process);
    EXPECT_EQ(process->arguments,
              (Words{"sh", "-c", "cat \"${TARVIX_1}\" > \"${TARVIX_1}\"", "x"}));
    ASSERT_EQ(process->variables.size(), 1U);
    EXPECT_EQ(process->variables[0].first, "TARVIX_1");
    EXPECT_EQ(process->variables[0].second, "/a b/$(x)");
}

TEST(CommandLine, AShellIsSeenBehindOtherWordsAndOptions) {
    EXPECT_EQ(Filled("env A=1 /bin/bash -e -c 'x %f'"),
              (Words{"env", "A=1", "/bin/bash", "-e", "-c", "x \"${TARVIX_1}\""}));
    EXPECT_EQ(Filled("bash script.sh -c %f"), (Words{"bash", "script.sh", "-c", "/a b/$(x)"}));
    EXPECT_EQ(Filled("tar -c %f"), (Words{"tar", "-c", "/a b/$(x)"}));
}

TEST(CommandLine, AShellLineQuotesByWhereAValueStands) {
    const auto line = [](std::string_view text) { return FillShellLine(text, Two).arguments; };
    EXPECT_EQ(line("x %F"), (Words{"/bin/sh", "-c", "x \"${TARVIX_1}\" \"${TARVIX_2}\""}));
    EXPECT_EQ(line("x \"%f\""), (Words{"/bin/sh", "-c", "x \"${TARVIX_1}\""}));
    EXPECT_EQ(line("x '%f'"), (Words{"/bin/sh", "-c", "x ''\"${TARVIX_1}\"''"}));
    EXPECT_EQ(line("x \\%f"), (Words{"/bin/sh", "-c", "x \\%f"}));
}

TEST(CommandLine, AProgramInAProgramReadsTheVariableItself) {
    const auto line = [](std::string_view text) { return FillShellLine(text, Two).arguments[2]; };
    EXPECT_EQ(line("sh -c 'x %f'"), "sh -c 'x \"${TARVIX_1}\"'");
    EXPECT_EQ(line("sh -c \"x %f\""), "sh -c \"x \\\"\\${TARVIX_1}\\\"\"");
    EXPECT_EQ(line("tar -czf \"%f.tgz\""), "tar -czf \"${TARVIX_1}.tgz\"");
}

TEST(CommandLine, OnlyWhatAShellReadsNeedsOne) {
    EXPECT_FALSE(NeedsShell("convert %f 'a|b' -x"));
    EXPECT_FALSE(NeedsShell("p --size=5"));
    EXPECT_TRUE(NeedsShell("a %f && b"));
    EXPECT_TRUE(NeedsShell("a | b"));
    EXPECT_TRUE(NeedsShell("A=1 b"));
    EXPECT_TRUE(NeedsShell("a \"$HOME\""));
    EXPECT_FALSE(NeedsShell("a '$HOME'"));
}

} // namespace
} // namespace tarvix::custom
