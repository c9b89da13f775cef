#include "cli/script.h"

#include <gtest/gtest.h>

#include <array>

namespace tarvix::cli {
namespace {

std::vector<Statement> Parse(std::string_view text) {
    auto statements = ParseScript(text);
    EXPECT_TRUE(statements) << (statements ? "" : statements.error().sentence);
    return statements.value_or(std::vector<Statement>{});
}

Statement One(std::string_view line) {
    const auto statements = Parse(line);
    EXPECT_EQ(statements.size(), 1U) << line;
    return statements.empty() ? Statement{} : statements.front();
}

TEST(ScriptTest, CommentsAndEmptyLinesCountAsLines) {
    const auto statements = Parse("\xEF\xBB\xBF# head\r\n\r\n  click cmdSearch\r\n# end");
    ASSERT_EQ(statements.size(), 1U);
    EXPECT_EQ(statements[0].line, 3);
    EXPECT_EQ(statements[0].target, "cmdSearch");
}

TEST(ScriptTest, AValueIsTheRestOfTheLineLessOneBlank) {
    struct Case {
        std::string_view line, target, value;
    };
    for (const auto& [line, target, value] : std::array<Case, 8>{{
             {"set a = b", "a", "b"},
             {"set a=b", "a", "b"},
             {"SET a =  b ", "a", " b "},
             {"set frmDialog.cmbDir = C:\\x = y", "frmDialog.cmbDir", "C:\\x = y"},
             {"set optTo(1) = 1", "optTo(1)", "1"},
             {"set a = \" b \"", "a", " b "},
             {"set a = \"b\" c", "a", "\"b\" c"},
             {"set a =", "a", ""},
         }}) {
        const Statement statement = One(line);
        EXPECT_EQ(statement.kind, StatementKind::kSet) << line;
        EXPECT_EQ(statement.target, target) << line;
        EXPECT_EQ(statement.value, value) << line;
    }
}

TEST(ScriptTest, EachStatementOfTheTableIsKnown) {
    EXPECT_EQ(One("column sizesubitem").columns.at(0), results::kSize);
    EXPECT_EQ(One("select 1 3  7").numbers, (std::vector<std::uint64_t>{1, 3, 7}));
    EXPECT_EQ(One("select 2-4 9").numbers, (std::vector<std::uint64_t>{2, 3, 4, 9}));
    EXPECT_EQ(One("leave txtSize1").target, "txtSize1");
    EXPECT_EQ(One("select like *.mp3 x").value, "*.mp3 x");
    EXPECT_EQ(One("select none").kind, StatementKind::kSelectNone);
    EXPECT_EQ(One("doubleclick 4").numbers.at(0), 4U);
    EXPECT_EQ(One("answer Yes").value, "Yes");
    EXPECT_EQ(One("answer").value, "");
    const Statement after = One("after 12 yields click frmDialog.cmdStop");
    EXPECT_EQ(after.kind, StatementKind::kAfter);
    EXPECT_EQ(after.numbers.at(0), 12U);
    EXPECT_EQ(after.target, "frmDialog.cmdStop");
}

TEST(ScriptTest, DumpTellsListControlsAndFilesApart) {
    EXPECT_EQ(One("dump lstMain").kind, StatementKind::kDumpList);
    EXPECT_EQ(One("dump LSTMAIN Name PathLevels").columns,
              (std::vector<results::Column>{results::kName, results::kPathLevels}));
    EXPECT_EQ(One("dump lblStatus").kind, StatementKind::kDumpControl);
    EXPECT_EQ(One("dump prompts").kind, StatementKind::kDumpPrompts);
    EXPECT_EQ(One("dump log").kind, StatementKind::kDumpLog);
    EXPECT_EQ(One("dump errorlog").kind, StatementKind::kDumpErrorLog);
}

TEST(ScriptTest, ErrorsNameTheLineAndWhatIsWrong) {
    struct Case {
        std::string_view line, sentence;
    };
    for (const auto& [line, sentence] : std::array<Case, 15>{{
             {"clik x", "There is no statement \"clik\". Did you mean \"click\"?"},
             {"frobnicate", "There is no statement \"frobnicate\"."},
             {"set cmbDir", "Write \"set CONTROL = VALUE\"."},
             {"set = x", "Write \"set CONTROL = VALUE\"."},
             {"click", "Write \"click CONTROL\"."},
             {"column Nam", "There is no column \"Nam\". Did you mean \"Name\"?"},
             {"select 0", "\"0\" is no row: rows are counted from 1."},
             {"select -1", "\"-1\" is no row: rows are counted from 1."},
             {"select 4-2", "\"4-2\" is no row: rows are counted from 1."},
             {"leave", "Write \"leave CONTROL\"."},
             {"select like", "Write \"select N ...\", \"select like PATTERN\" or \"select none\"."},
             {"doubleclick 1 2", "Write \"doubleclick N\"."},
             {"after yields click x", "Write \"after N yields click CONTROL\", with N from 1."},
             {"dump prompts x", "Only \"dump lstMain\" takes more words behind it."},
             {"dump lstMain PathLevel",
              "There is no column \"PathLevel\". Did you mean \"PathLevels\"?"},
         }}) {
        const auto statements = ParseScript("# one\n" + std::string(line) + "\n");
        ASSERT_FALSE(statements) << line;
        EXPECT_EQ(statements.error().line, 2) << line;
        EXPECT_EQ(statements.error().sentence, sentence) << line;
    }
}

TEST(ScriptTest, ForeignBytesAreAnErrorAndNothingWorse) {
    EXPECT_FALSE(ParseScript(std::string_view("\xFF\xFE\0click x", 10)));
    EXPECT_TRUE(ParseScript(""));
    EXPECT_TRUE(ParseScript("\r\n\r"));
}

} // namespace
} // namespace tarvix::cli
