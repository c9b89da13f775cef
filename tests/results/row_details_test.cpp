#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

std::string TestFile(const std::string& name) {
    std::ifstream file(std::string(TARVIX_TEST_DATA) + "/pe/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class RowDetails : public ProgramFixture {};

TEST_F(RowDetails, TypeIsTheDesktopsNameElseTheExtensionElseUnknown) {
    machine.contentTypes.SetTypeName("mp3", "MP3 audio");
    for (const char* name : {"a.mp3", "b.xyz", "c", "d.toolong", "e.6chars"}) {
        Disk().AddFile("C:\\t\\" + std::string(name));
    }
    Start();
    Search("*", "C:\\t");
    EXPECT_THAT(Cells(results::kType),
                ElementsAre("MP3 audio", "XYZ File", "  Unknown", "", "6CHARS File"));
}

TEST_F(RowDetails, AHiddenColumnIsEmptyAndReadsNothing) {
    machine.contentTypes.SetTypeName("exe", "Program");
    Disk().AddFile("C:\\t\\a.exe", TestFile("exe64_console_ver.exe"));
    Start();
    S().blnListItems[results::kType] = false;
    S().blnListItems[results::kVersion] = false;
    Search("*", "C:\\t");
    Disk().ForgetCalls();
    EXPECT_THAT(Cells(results::kType), ElementsAre(""));
    EXPECT_THAT(Cells(results::kVersion), ElementsAre(""));
    EXPECT_TRUE(Disk().Calls().read.empty());
}

TEST_F(RowDetails, VersionSystemAndKindOfAProgramAreReadOnce) {
    Disk().AddFile("C:\\t\\a.exe", TestFile("exe64_console_ver.exe"));
    Disk().AddFile("C:\\t\\b.exe", TestFile("exe64_gui_nover.exe"));
    Disk().AddFile("C:\\t\\c.txt", "text");
    Start();
    Search("*", "C:\\t");
    EXPECT_THAT(Cells(results::kVersion), ElementsAre("1.2", "", ""));
    EXPECT_THAT(Cells(results::kOs), ElementsAre("NT_WINDOWS32", "", ""));
    EXPECT_THAT(Cells(results::kExeType), ElementsAre("Win32", "Win32, v5.02", ""));
    Disk().ForgetCalls();
    Cells(results::kVersion);
    EXPECT_TRUE(Disk().Calls().read.empty());
}

TEST_F(RowDetails, YearRankComesFromTheNameElseFromTheFolder) {
    Disk().AddFile("C:\\t\\Albums 1999\\1987-042 Song.mp3");
    Disk().AddFile("C:\\t\\Albums 1999\\Song.mp3");
    Start();
    Click(Form().chkIncludeSubFolders);
    Search("*", "C:\\t");
    EXPECT_THAT(Cells(results::kYearRank), ElementsAre("1987-042", "1999"));
}

TEST_F(RowDetails, VersionSortReadsTheVersionWhereItsColumnIsHidden) {
    Disk().AddFile("C:\\t\\1\\tool.exe", TestFile("exe64_console_ver.exe")); // 1.2
    Disk().AddFile("C:\\t\\2\\Tool.exe", TestFile("dll64_ver.dll"));         // 10.0
    Start();
    S().blnListItems[results::kVersion] = false;
    Click(Form().chkIncludeSubFolders);
    Search("*", "C:\\t");
    Click(Form().cmdDoVersionSort);
    EXPECT_THAT(Names(), ElementsAre("Tool.exe", "tool.exe"));
    EXPECT_GT(program.Rows().VersionKey(0), program.Rows().VersionKey(1));
}

TEST_F(RowDetails, VersionSortPutsTheHighestVersionOfEachNameFirst) {
    Disk().AddFile("C:\\t\\1\\tool.exe", TestFile("exe64_console_ver.exe"));  // 1.2
    Disk().AddFile("C:\\t\\2\\Tool.exe", TestFile("dll64_ver.dll"));          // 10.0
    Disk().AddFile("C:\\t\\3\\tool.exe", TestFile("exe64_gui_ver_zero.exe")); // 0.0
    Disk().AddFile("C:\\t\\3\\other.exe", "MZ");
    Start();
    Set(Form().chkFastSort, "0");
    Click(Form().chkIncludeSubFolders);
    Search("*", "C:\\t");
    Click(Form().cmdDoVersionSort);
    EXPECT_THAT(Cells(results::kVersion), ElementsAre("", "", "10.0", "1.2", "0.0"));
    EXPECT_THAT(Names(), ElementsAre("other.exe", "", "Tool.exe", "tool.exe", "tool.exe"));
}

TEST_F(RowDetails, ARowsTipIsItsPathWhenThatIsLongElseTheCell) {
    const std::string longName(80, 'n');
    Disk().AddFile("C:\\t\\" + longName);
    Disk().AddFile("C:\\t\\short");
    Start();
    EXPECT_EQ(Form().lstMain.Tip.Get(),
              "To adjust columns, click & drag just inside the right edge "
              "of the column head.");
    Search("*", "C:\\t");
    EXPECT_EQ(program.Rows().CellTip(0, results::kName), "C:\\t\\" + longName);
    EXPECT_EQ(program.Rows().CellTip(1, results::kName), "short");
}

TEST_F(RowDetails, FolderRowsHaveNone) {
    Disk().AddFolder("C:\\t\\Folder 1999");
    Start();
    Click(Form().chkIncludeSubFolders);
    Choose(Form().optFilesVsDirs, 3);
    Search("*", "C:\\t");
    EXPECT_THAT(Cells(results::kType), ElementsAre("  File Folder"));
    EXPECT_THAT(Cells(results::kVersion), ElementsAre(""));
    EXPECT_THAT(Cells(results::kYearRank), ElementsAre(""));
}

} // namespace
} // namespace tarvix::testing
