#include "results/columns.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using results::Column;
using ::testing::ElementsAre;

class RowCells : public ProgramFixture {
  protected:
    std::string OnlyCell(Column column) {
        const auto cells = Cells(column);
        EXPECT_EQ(cells.size(), 1U);
        return cells.empty() ? "" : cells.front();
    }
    void FindOne(std::string_view path) {
        Disk().AddFile(path);
        Start();
        WithSubfolders();
        LookForAllAttributes();
        Search("*", "C:\\t");
    }
    fields::Color Color(std::size_t row, Column column) {
        return program.Rows().CellColor(row, column);
    }
};

TEST(Columns, BearTheirKeysAndHeaders) {
    const std::pair<const char*, const char*> kExpected[] = {
        {"Name", "Name"},
        {"SizeSubItem", "Size"},
        {"DateSubItem", "Date"},
        {"TypeSubItem", "Type"},
        {"ExtSubItem", "Ext"},
        {"VersionSubItem", "Version"},
        {"ExeTypeSubItem", "Exe Type"},
        {"OSSubItem", "OS"},
        {"PathSubItem", "Path"},
        {"PathNameSubItem", "Path\\Name"},
        {"AttributesSubItem", "Attributes"},
        {"PathNameNoSrchSubItem", "Path\\Name without Search Folder"},
        {"TargetPathOfLinkSubItem", "Target's Path and Name of Link"},
        {"TargetArgumentsOfLink", "Target Arguments of Link"},
        {"WorkingDirOfLinkSubItem", "Working Folder of Link (Start In)"},
        {"HotKeyOfLink", "Hot Key of Link (Shortcut Key)"},
        {"WindowStyleOfLink", "Window Style of Link (Run)"},
        {"DescriptionOfLink", "Descripton of Link (Comment)"},
        {"IconPathNameOfLinkSubItem", "Icon Path\\Name of Link"},
        {"PathNameLengthSubItem", "Path\\Name Length"},
        {"FilesInFolder", "Files in this Folder"},
        {"FoldersInFolder", "Folders in this Folder"},
        {"PathLevels", "Path Levels"},
        {"YRYearRank", "Year-Rank or Copyright"},
        {"SearchForEntry", "Search For Entry"},
        {"ShortPathSubItem", "Short Path"},
        {"SearchFolderIndexSubItem", "Search Folder Index"}};
    ASSERT_EQ(results::kColumns.size(), std::size(kExpected));
    for (std::size_t i = 0; i < std::size(kExpected); ++i) {
        EXPECT_EQ(results::kColumns[i].key, kExpected[i].first);
        EXPECT_EQ(results::kColumns[i].header, kExpected[i].second);
        EXPECT_EQ(results::FindColumn(kExpected[i].first), static_cast<Column>(i));
    }
    EXPECT_EQ(results::FindColumn("sizesubitem"), results::kSize);
    EXPECT_FALSE(results::FindColumn("Nonsense"));
}

TEST_F(RowCells, AZeroByteFilesSizeIsTwelveZeros) {
    FindOne("C:\\t\\zero.txt");
    EXPECT_EQ(OnlyCell(results::kSize), "000,000,000,000");
    EXPECT_EQ(Color(0, results::kSize), 0xFF0000U);
}

TEST_F(RowCells, SizesArePaddedForTextSorting) {
    Disk().AddFileOfSize("C:\\t\\a", 1'234'567);
    Disk().AddFileOfSize("C:\\t\\b", 999'999'999'999);
    Start();
    Search("*", "C:\\t");
    EXPECT_THAT(Cells(results::kSize), ElementsAre("000,001,234,567", "999,999,999,999"));
    EXPECT_EQ(Color(1, results::kSize), 0xFF0000U);
}

TEST_F(RowCells, AFileOf1000000000000BytesHasARedSize) {
    Disk().AddFileOfSize("C:\\t\\big", 1'000'000'000'000);
    Start();
    Search("*", "C:\\t");
    EXPECT_EQ(OnlyCell(results::kSize), "1,000,000,000,000");
    EXPECT_EQ(Color(0, results::kSize), 255U);
    EXPECT_EQ(Color(0, results::kName), 0xFF0000U);
}

TEST_F(RowCells, TheDateRunsFromYearToSecond) {
    Disk().AddFile("C:\\t\\a").modified = machine.clock.FromLocal({2025, 3, 4, 5, 6, 7});
    Start();
    Search("*", "C:\\t");
    EXPECT_EQ(OnlyCell(results::kDate), "2025/03/04 05:06:07");
}

TEST_F(RowCells, TheExtensionIsLowerCaseIfItHasFewerThanSixCharacters) {
    for (const auto& [name, extension] :
         {std::pair{"A.MP3", "mp3"}, std::pair{"noextension", ""}, std::pair{"x.12345", "12345"},
          std::pair{"x.123456", ""}, std::pair{"two.tar.GZ", "gz"}, std::pair{"dot.", ""},
          std::pair{".profile", ""}, std::pair{".git", "git"}}) {
        app::Program other(machine.platform, prompts);
        Disk().AddFile("C:\\one\\" + std::string(name));
        other.Start("");
        auto& form = other.Session().frmSearch;
        form.chkHidden.Value = 2;
        form.cmbDir.Text = "C:\\one";
        other.Session().Raise(form.cmdSearch, "Click");
        ASSERT_EQ(other.Rows().Count(), 1U);
        EXPECT_EQ(other.Rows().Cell(0, results::kExt), extension) << name;
        Disk().Node("C:\\one\\" + std::string(name))->Detach();
    }
}

TEST_F(RowCells, PathsOfAFile) {
    FindOne("C:\\t\\sub\\a.txt");
    EXPECT_EQ(OnlyCell(results::kName), "a.txt");
    EXPECT_EQ(OnlyCell(results::kPath), "C:\\t\\sub");
    EXPECT_EQ(OnlyCell(results::kPathName), "C:\\t\\sub\\a.txt");
    EXPECT_EQ(OnlyCell(results::kPathNameNoSrch), "sub\\a.txt");
    EXPECT_EQ(OnlyCell(results::kPathNameLength), "014");
    EXPECT_EQ(OnlyCell(results::kPathLevels), "03");
    EXPECT_EQ(OnlyCell(results::kSearchForEntry), "01");
    EXPECT_EQ(OnlyCell(results::kSearchFolderIndex), "1");
    EXPECT_EQ(OnlyCell(results::kFilesInFolder), "");
    EXPECT_EQ(OnlyCell(results::kFoldersInFolder), "");
}

TEST_F(RowCells, PathsOfAFolder) {
    Disk().AddFile("C:\\t\\sub\\deep\\a.txt");
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 3);
    Search("deep*", "C:\\t");
    EXPECT_EQ(OnlyCell(results::kName), "deep");
    EXPECT_EQ(OnlyCell(results::kPath), "C:\\t\\sub\\deep");
    EXPECT_EQ(OnlyCell(results::kPathName), "C:\\t\\sub\\deep");
    EXPECT_EQ(OnlyCell(results::kPathNameNoSrch), "sub\\deep");
    EXPECT_EQ(OnlyCell(results::kType), "  File Folder");
    EXPECT_EQ(OnlyCell(results::kSize), "");
    EXPECT_EQ(OnlyCell(results::kExt), "");
    EXPECT_EQ(OnlyCell(results::kYearRank), "");
}

TEST_F(RowCells, ADrivesRootAsLocation) {
    Disk().AddFile("C:\\rootfile.txt");
    Start();
    Search("rootfile.txt", "C:\\");
    EXPECT_EQ(OnlyCell(results::kPathName), "C:\\rootfile.txt");
    EXPECT_EQ(OnlyCell(results::kPathNameNoSrch), "rootfile.txt");
    EXPECT_EQ(OnlyCell(results::kPathLevels), "01");
}

TEST_F(RowCells, AShareAsLocation) {
    Disk().AddDrive("\\\\server\\share", platform::DriveType::kNetwork, "cifs");
    Disk().AddFile("\\\\server\\share\\sub\\a.txt");
    Start();
    WithSubfolders();
    Search("*.txt", "\\\\server\\share");
    ASSERT_EQ(program.Rows().Count(), 1U);
    EXPECT_TRUE(program.Rows().FullPath(0).ends_with("\\sub\\a.txt"));
    EXPECT_EQ(OnlyCell(results::kPathNameNoSrch), "sub\\a.txt");
}

TEST_F(RowCells, AttributeLettersInTheirOrder) {
    EXPECT_EQ(results::BuildAttributeString(0), "");
    EXPECT_EQ(results::BuildAttributeString(1 | 2 | 4 | 32 | 64 | 128 | 256 | 512 | 1024 | 2048),
              "rhsa6125AC");
    EXPECT_EQ(results::BuildAttributeString(8 | 16 | 4096 | 16384), "");
    const std::pair<std::uint32_t, const char*> kLetters[] = {
        {1, "r"},   {2, "h"},   {4, "s"},   {32, "a"},   {64, "6"},
        {128, "1"}, {256, "2"}, {512, "5"}, {1024, "A"}, {2048, "C"}};
    for (const auto& [bit, letter] : kLetters) {
        EXPECT_EQ(results::BuildAttributeString(bit), letter);
    }
}

TEST_F(RowCells, FileRowsAreBlueAndFolderRowsRedInEveryCell) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFolder("C:\\t\\b");
    Start();
    Choose(Form().optFilesVsDirs, 2);
    Search("*", "C:\\t");
    ASSERT_EQ(program.Rows().Count(), 2U);
    for (int column = 0; column < 27; ++column) {
        EXPECT_EQ(Color(0, static_cast<Column>(column)), 0xFF0000U) << column;
        EXPECT_EQ(Color(1, static_cast<Column>(column)), 255U) << column;
    }
}

TEST_F(RowCells, LaterSearchStringsColourNameAndEntry) {
    const fields::Color kColors[] = {0xFF0000, 0x000040, 0x404040, 0x00FF00, 0x7F00FF, 0xFFFF00,
                                     0x000000, 0x7F003F, 0x007F00, 0x003F7F, 0xFF0000};
    std::string strings;
    for (int i = 1; i <= 11; ++i) {
        Disk().AddFile("C:\\t\\a." + std::to_string(i));
        strings += "*." + std::to_string(i) + "|";
    }
    Start();
    Search(strings, "C:\\t");
    ASSERT_EQ(program.Rows().Count(), 11U);
    for (std::size_t i = 0; i < 11; ++i) {
        EXPECT_EQ(Color(i, results::kName), kColors[i]) << i + 1;
        EXPECT_EQ(Color(i, results::kSearchForEntry), kColors[i]) << i + 1;
        EXPECT_EQ(Color(i, results::kSize), 0xFF0000U) << i + 1;
    }
    EXPECT_EQ(Cells(results::kSearchForEntry).back(), "11");
}

TEST_F(RowCells, AnObjectReachedThroughAShortNameIsMarkedAtItsLength) {
    const std::string folder = "C:\\t\\" + std::string(119, 'd') + "~"; // 125 characters
    ASSERT_EQ(folder.size(), 125U);
    FindOne(folder + "\\abcdef~1.txt");
    EXPECT_EQ(OnlyCell(results::kPathNameLength), "138++?");
    EXPECT_EQ(Color(0, results::kPathNameLength), 255U);
}

TEST_F(RowCells, AShortNameInAShorterFolderIsNotMarked) {
    FindOne("C:\\t\\" + std::string(118, 'd') + "~\\abcdef~1.txt");
    EXPECT_EQ(OnlyCell(results::kPathNameLength), "137");
    EXPECT_EQ(Color(0, results::kPathNameLength), 0xFF0000U);
}

TEST_F(RowCells, AShortNameAtTheEndOfALongPathIsMarked) {
    const std::string folder = "C:\\t\\" + std::string(115, 'd') + "\\" + std::string(113, 'e');
    FindOne(folder + "\\abcdef~1.txt"); // 247 characters
    EXPECT_EQ(OnlyCell(results::kPathNameLength), "247++?");
}

TEST_F(RowCells, LengthsCountCharacters) {
    FindOne("C:\\t\\äöü.txt");
    EXPECT_EQ(OnlyCell(results::kPathNameLength), "012");
}

} // namespace
} // namespace tarvix::testing
