#include "shortcuts/formats/bytes.h"
#include "shortcuts/formats/values.h"
#include "tests/shortcuts/shortcut_files.h"

#include <gmock/gmock.h>

namespace tarvix::shortcuts {
namespace {

using testing::ExpectedTable;
using testing::ShortcutBytes;
using testing::TableLine;

// As the table writes line breaks.
std::string InOneLine(const std::string& value) {
    std::string line;
    for (const char c : value) {
        line += c == '\r' ? "{CR}" : c == '\n' ? "{LF}" : c == '\t' ? "{TAB}" : std::string(1, c);
    }
    return line;
}

std::string StyleText(const std::string& number) {
    static const std::map<std::string, std::string> kTexts{
        {"0", ""}, {"1", "Normal"}, {"3", "Maximized"}, {"7", "Minimized"}};
    return kTexts.at(number);
}

TEST(ForeignLinks, HaveTheValuesThatOtherReadersTell) {
    const auto table = ExpectedTable("lnk/expected.tsv");
    ASSERT_GE(table.size(), 40U);
    for (TableLine line : table) {
        const std::string& file = line["file"];
        const std::string bytes = ShortcutBytes("lnk/" + file);
        const Values values = Read(Kind::kLnk, bytes);
        // A final backslash that the ID list doesn't have.
        const bool isCut = file == "wine/03_folder_trailing_slash.lnk";
        EXPECT_EQ(values[kTarget], isCut ? "C:\\windows\\system32" : line["TargetPath"]) << file;
        EXPECT_EQ(values[kArguments], line["Arguments"]) << file;
        EXPECT_EQ(InOneLine(values[kDescription]), line["Description"]) << file;
        EXPECT_EQ(values[kStartIn], line["WorkingDirectory"]) << file;
        EXPECT_EQ(values[kIcon], line["IconLocation"]) << file;
        EXPECT_EQ(values[kHotKey], line["HotKey"]) << file;
        EXPECT_EQ(values[kWindowStyle], StyleText(line["ShowHeader"])) << file;
    }
}

TEST(ForeignLinks, ThatAreBrokenHaveNoTarget) {
    for (TableLine line : ExpectedTable("lnk/malformed/expected.tsv")) {
        const Values values = Read(Kind::kLnk, ShortcutBytes("lnk/malformed/" + line["file"]));
        EXPECT_EQ(values[kHotKey], "") << line["file"];
        EXPECT_EQ(values[kArguments], "") << line["file"];
    }
}

TEST(ForeignLinks, ThatAreBrokenAreLeftAlone) {
    Edits edits;
    edits[kDescription] = "x";
    for (const std::string name :
         {"m01_empty", "m03_header_only_flags_set", "m05_wrong_header_size",
          "m07_linkinfo_past_eof", "m09_linkinfo_size_zero", "m11_string_past_eof",
          "m13_block_size_5", "m15_text_file", "m19_ff_fill"}) {
        EXPECT_FALSE(Edit(Kind::kLnk, ShortcutBytes("lnk/malformed/" + name + ".lnk"), edits))
            << name;
    }
}

// Written wrong by another program: a target that is a stray buffer, a variable that was left out,
// a text that no flag tells of.
TEST(ForeignLinks, ThatNobodyTrustsAreReadAndEditedWithoutHarm) {
    const std::map<std::string, std::string> targets{
        {"10_long_path_300", "?\u00C9"},
        {"12_envvar_expsz", "C:\\windows\\notepad.exe"},
        {"71_relpath", "C:\\proj\\bin\\tool.exe"}};
    Edits edits;
    edits[kDescription] = "x";
    for (const auto& [name, target] : targets) {
        const std::string bytes = ShortcutBytes("lnk/distrust/" + name + ".lnk");
        EXPECT_EQ(Read(Kind::kLnk, bytes)[kTarget], target) << name;
        EXPECT_EQ(Edit(Kind::kLnk, bytes, {}), bytes) << name;
        const Edited edited = Edit(Kind::kLnk, bytes, edits);
        if (edited) {
            EXPECT_EQ(Read(Kind::kLnk, *edited)[kTarget], target) << name;
            EXPECT_EQ(Read(Kind::kLnk, *edited)[kDescription], "x") << name;
        }
        for (std::size_t length = 0; length < bytes.size(); ++length) {
            EXPECT_LE(Read(Kind::kLnk, std::string_view(bytes).substr(0, length))[kTarget].size(),
                      target.size())
                << name << " " << length;
        }
    }
}

TEST(ForeignLinks, CutAnywhereAreReadWithoutHarm) {
    const std::string whole = ShortcutBytes("lnk/wine/72_everything.lnk");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const Values values = Read(Kind::kLnk, std::string_view(whole).substr(0, length));
        EXPECT_TRUE(values[kTarget].empty() || values[kTarget] == "C:\\Program Files\\App\\app.exe")
            << length;
    }
}

TEST(ForeignAddresses, HaveTheValuesThatOtherReadersTell) {
    const auto table = ExpectedTable("url/expected.tsv");
    ASSERT_GE(table.size(), 18U);
    for (TableLine line : table) {
        const std::string& file = line["file"];
        if (file == "handmade/h09_cp1251.url") continue; // which code page it is nobody tells
        const Values values = Read(Kind::kUrl, ShortcutBytes("url/" + file));
        EXPECT_EQ(values[kTarget], line["URL"]) << file;
        if (file == "handmade/h21_hotkey_bad.url") continue;
        const bool hasIcon = !line["IconFile"].empty();
        EXPECT_EQ(values[kIcon], hasIcon ? line["IconFile"] + "," + line["IconIndex"] : "") << file;
    }
}

TEST(ForeignShortcuts, WithoutEditsKeepEveryByte) {
    for (const auto& [folder, kind] :
         {std::pair("lnk/", Kind::kLnk), std::pair("url/", Kind::kUrl)}) {
        for (TableLine line : ExpectedTable(std::string(folder) + "expected.tsv")) {
            const std::string bytes = ShortcutBytes(folder + line["file"]);
            EXPECT_EQ(Edit(kind, bytes, {}), bytes) << line["file"];
        }
    }
}

// Setting a value to what it is builds the file anew from its parts.
TEST(ForeignLinks, TakenApartAndPutTogetherKeepEveryByte) {
    for (TableLine line : ExpectedTable("lnk/expected.tsv")) {
        const std::string bytes = ShortcutBytes("lnk/" + line["file"]);
        Edits edits;
        edits[kIcon] = Read(Kind::kLnk, bytes)[kIcon];
        EXPECT_EQ(Edit(Kind::kLnk, bytes, edits), bytes) << line["file"];
    }
}

TEST(ForeignAddresses, SetToWhatTheyAreKeepTheirLines) {
    const std::string bytes = ShortcutBytes("url/handmade/h01_full.url");
    Edits edits;
    edits[kTarget] = "http://example.com/x";
    edits[kHotKey] = "1652";
    edits[kIcon] = "C:\\windows\\system32\\shell32.dll,4";
    EXPECT_EQ(Edit(Kind::kUrl, bytes, edits), bytes);
}

// Each value of each whole link set alone is read back, and no other has changed.
TEST(ForeignLinks, TakeEachValueAlone) {
    const Values wanted{"D:\\neu \u00E4\\\u540D\\prog.exe",
                        "-a \"b c\"",
                        "D:\\work",
                        "CTRL+SHIFT+F7",
                        "Maximized",
                        "W\u00F6rter \u540D",
                        "D:\\i,c.dll,-12"};
    for (TableLine line : ExpectedTable("lnk/expected.tsv")) {
        const std::string bytes = ShortcutBytes("lnk/" + line["file"]);
        const Values old = Read(Kind::kLnk, bytes);
        for (std::size_t field = 0; field < kFieldCount; ++field) {
            Edits edits;
            edits[field] = wanted[field];
            const Edited edited = Edit(Kind::kLnk, bytes, edits);
            ASSERT_TRUE(edited) << line["file"] << " " << edited.error();
            Values expected = old;
            expected[field] = wanted[field];
            EXPECT_EQ(Read(Kind::kLnk, *edited), expected) << line["file"] << " " << field;
            edits[field] = old[field];
            if (old[field].empty() || field == kTarget) continue;
            EXPECT_EQ(Read(Kind::kLnk, *Edit(Kind::kLnk, *edited, edits)), old) << line["file"];
        }
    }
}

} // namespace
} // namespace tarvix::shortcuts
