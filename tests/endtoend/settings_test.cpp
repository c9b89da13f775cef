// What this machine does by itself, and what it does with the settings that take that back.
#include "tests/endtoend/trees.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvix::endtoend {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class SettingsTest : public Trees {
  protected:
    void Option(const std::string& key, const std::string& value) {
        const Outcome outcome = Run({"options", "set", key, value});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    }
    std::string Found(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "search");
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
        return Shown(outcome.out);
    }
    void Date(const fs::path& relative, std::time_t seconds) {
        const fs::path file = AddFile(relative);
        const std::array<timespec, 2> times{{{seconds, 0}, {seconds, 999'999'999}}};
        ASSERT_EQ(utimensat(AT_FDCWD, file.c_str(), times.data(), 0), 0);
    }
    std::string ActionLogs() const {
        std::string all;
        for (const auto& entry : fs::directory_iterator(DataFolder())) {
            if (entry.path().filename().string().starts_with("TXAction")) {
                all += ReadAll(entry.path());
            }
        }
        return all;
    }
};

// ---- LatestFileYear ----

constexpr std::time_t kIn2026 = 1'795'341'600; // 2026-11-22 10:00:00 UTC

TEST_F(SettingsTest, AFileOfThisYearHasItsOwnDate) {
    Date("d/old.tmp", 1'577'836'799); // 2019-12-31 23:59:59
    Date("d/new.tmp", kIn2026);
    EXPECT_EQ(Found({"*.tmp", "--in", "d", "--before", "2020-01-01"}), "ROOT/d/old.tmp\n");
    EXPECT_EQ(Found({"*.tmp", "--in", "d", "--since", "2020-01-01"}), "ROOT/d/new.tmp\n");
    EXPECT_EQ(Found({"*.tmp", "--in", "d", "--between", "2026-11-22..2026-11-22", "--columns",
                     "Name,DateSubItem"}),
              "new.tmp\t2026/11/22 10:00:00\n");
    EXPECT_THAT(ActionLogs(), Not(HasSubstr("bad Date")));
}

TEST_F(SettingsTest, DeleteBeforeADateLeavesAFileOfThisYear) {
    Date("d/new.tmp", kIn2026);
    const Outcome outcome =
        Run({"delete", "*.tmp", "--in", "d", "--before", "2020-01-01", "--yes"});
    EXPECT_TRUE(fs::exists(Root() / "d/new.tmp")) << outcome.out << outcome.err;
}

TEST_F(SettingsTest, TheFirstAndTheLastDateOfADiskAreListedAndSorted) {
    Date("d/first", -2'147'483'648);
    Date("d/last", 15'032'385'535);
    struct stat st {};
    ASSERT_EQ(stat((Root() / "d/last").c_str(), &st), 0);
    if (st.st_mtim.tv_sec != 15'032'385'535) GTEST_SKIP() << "the disk's dates end sooner";
    EXPECT_EQ(
        Found({"*", "--in", "d", "--sort", "DateSubItem:desc", "--columns", "Name,DateSubItem"}),
        "last\t2446/05/10 22:38:55\nfirst\t1901/12/13 20:45:52\n");
}

TEST_F(SettingsTest, WithALatestFileYearLaterDatesTakeTheFilters) {
    Date("d/new.tmp", kIn2026);
    Option("LatestFileYear", "2025");
    EXPECT_EQ(Found({"*.tmp", "--in", "d", "--columns", "Name,DateSubItem"}),
              "new.tmp\t1980/01/01 00:00:00\n");
    EXPECT_EQ(Found({"*.tmp", "--in", "d", "--before", "2020-01-01"}), "ROOT/d/new.tmp\n");
    EXPECT_THAT(ActionLogs(), HasSubstr("bad Date = Modified Date. The object is "));
}

// ---- LongestPath ----

// A folder in a folder, and so on, a file in each tenth; by names alone, since the whole path is
// longer than the system takes.
void MakeChain(const fs::path& top, int levels, const std::string& name) {
    fs::create_directories(top);
    int folder = open(top.c_str(), O_RDONLY | O_DIRECTORY);
    for (int level = 1; level <= levels; ++level) {
        ASSERT_EQ(mkdirat(folder, name.c_str(), 0755), 0);
        const int inner = openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY);
        ASSERT_GE(inner, 0);
        close(folder);
        folder = inner;
        if (level % 10 == 0) close(openat(folder, "file.txt", O_WRONLY | O_CREAT, 0644));
    }
    close(folder);
}

std::ptrdiff_t LinesIn(const std::string& text) {
    return std::ranges::count(text, '\n');
}

TEST_F(SettingsTest, ATreeOf300LevelsIsSearchedCopiedAndRecycledWhole) {
    setenv("HOME", Root().c_str(), 1);
    setenv("XDG_DATA_HOME", (Root() / ".local/share").c_str(), 1);
    MakeChain(Root() / "deep/top", 300, "a folder of 24 character");
    EXPECT_EQ(LinesIn(Found({"file.txt", "--in", "deep"})), 30);
    const std::vector<std::string> top{"--kind", "folders", "--no-subfolders", "--yes"};
    std::vector<std::string> copy{"copy", "top", "--in", "deep", "--to", "copied"};
    copy.insert(copy.end(), top.begin(), top.end());
    const Outcome copied = Run(copy);
    EXPECT_EQ(copied.exitCode, 0) << copied.err << copied.out;
    EXPECT_EQ(LinesIn(Found({"file.txt", "--in", "copied"})), 30);
    std::vector<std::string> recycle{"delete", "top", "--in", "copied"};
    recycle.insert(recycle.end(), top.begin(), top.end());
    const Outcome recycled = Run(recycle);
    EXPECT_EQ(recycled.exitCode, 0) << recycled.err << recycled.out;
    EXPECT_FALSE(fs::exists(Root() / "copied/top"));
    EXPECT_EQ(LinesIn(Found({"file.txt", "--in", ".local/share/Trash/files"})), 30);
}

TEST_F(SettingsTest, AWholeTreeOfLongPathsIsCopiedFileByFileWithoutAQuestion) {
    MakeChain(Root() / "deep", 60, "a folder with a rather long name");
    const Outcome copied = Run(
        {"copy", "file.txt", "--in", "deep", "--to", "copied", "--structure", "folder", "--yes"});
    EXPECT_EQ(copied.exitCode, 0) << copied.err << copied.out;
    EXPECT_EQ(copied.err, "");
    EXPECT_EQ(LinesIn(Found({"file.txt", "--in", "copied"})), 6);
}

TEST_F(SettingsTest, With259CharactersAFolderThatIsTooDeepIsPassedOverAndTold) {
    MakeDeep();
    AddFile("deep/zz/after.txt");
    Option("LongestPath", "259");
    // The short forms of the folders are short enough for long.
    const Outcome short8 = Run({"search", "*.txt", "--in", "deep"});
    EXPECT_EQ(LinesIn(short8.out), 13) << short8.err;
    MakeChain(Root() / "deeper", 60, "abcdefgh");
    AddFile("deeper/zz/after.txt");
    const Outcome outcome = Run({"search", "*.txt", "--in", "deeper"});
    EXPECT_THAT(outcome.out, HasSubstr("/deeper/zz/after.txt\n"));
    EXPECT_THAT(outcome.out, HasSubstr("/abcdefgh/file.txt\n"));
    EXPECT_LT(LinesIn(outcome.out), 7);
    EXPECT_THAT(outcome.err, HasSubstr("A folder is too deep to be searched and was left out"));
    EXPECT_THAT(ActionLogs(), HasSubstr("That search string is to long to used."));
}

TEST_F(SettingsTest, With259CharactersALongNewPathIsAskedAbout) {
    AddFile("from/" + std::string(200, 'n') + ".txt");
    const std::string to = "to/" + std::string(40, 'a') + "/" + std::string(40, 'b');
    Option("LongestPath", "259");
    const Outcome asked = Run({"copy", "*", "--in", "from", "--to", to, "--yes"});
    EXPECT_EQ(asked.exitCode, 3) << asked.out;
    Option("LongestPath", "native");
    const Outcome done = Run({"copy", "*", "--in", "from", "--to", to, "--yes"});
    EXPECT_EQ(done.exitCode, 0) << done.err;
}

// ---- PathForm ----

constexpr std::string_view kLookAround = R"(
set cmbSearchFor = *.txt
set cmbDir = ROOT/basic/sub|ROOT/no such folder
set chkIncludeSubFolders = 1
answer OK
click cmdSearch
dump cmbDir
dump lblCurrentFolder
dump lstMain PathNameSubItem PathSubItem PathNameNoSrchSubItem
dump prompts
dump log
dump errorlog
)";

TEST_F(SettingsTest, WhatPeopleReadHasNativePaths) {
    MakeBasic();
    std::string script(kLookAround);
    for (std::size_t at = script.find("ROOT"); at != script.npos; at = script.find("ROOT"))
        script.replace(at, 4, Root().string());
    const Outcome outcome = RunScript(script);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    const std::string out = Shown(outcome.out);
    EXPECT_THAT(out, HasSubstr("ROOT/basic/sub|ROOT/no such folder\n"));
    EXPECT_THAT(out, HasSubstr("ROOT/basic/sub/below/e.txt\tROOT/basic/sub/below\tbelow/e.txt\n"));
    EXPECT_THAT(out, HasSubstr("\\nROOT/no such folder\\n"));
    EXPECT_THAT(out, HasSubstr(" in ROOT/basic/sub|ROOT/no such folder\n"));
    EXPECT_THAT(out, Not(HasSubstr("C:\\")));
    const std::string histories = ReadAll(DataFolder() / "TXFSFolderHistoryFile.txt");
    EXPECT_THAT(histories, HasSubstr("C:\\"));
}

TEST_F(SettingsTest, AQuestionSpeaksOfTheTrashOrAsTold) {
    AddFile("d/a.tmp");
    const Outcome here = Run({"delete", "*.tmp", "--in", "d"});
    EXPECT_EQ(here.exitCode, 3);
    EXPECT_THAT(here.err, HasSubstr("send all selected objects to the trash?"));
    EXPECT_THAT(here.err, Not(HasSubstr("recycle bin")));
    Option("PathForm", "drive");
    const Outcome told = Run({"delete", "*.tmp", "--in", "d"});
    EXPECT_EQ(told.exitCode, 3);
    EXPECT_THAT(told.err, HasSubstr("Are you sure you want delete all selected objects?"));
    EXPECT_THAT(told.err, HasSubstr("they will NOT be placed in the recycle bin"));
    EXPECT_TRUE(fs::exists(Root() / "d/a.tmp"));
}

TEST_F(SettingsTest, WhatTheBoxesLeftOutIsCountedAndTold) {
    AddFile("d/a.txt");
    AddFile("d/.b.txt");
    AddFile("d/.c.txt");
    fs::create_symlink("a.txt", Root() / "d/l.txt");
    const Outcome some = Run({"search", "*.txt", "--in", "d"});
    EXPECT_EQ(some.exitCode, 0);
    EXPECT_EQ(Shown(some.out), "ROOT/d/a.txt\n");
    EXPECT_EQ(some.err,
              "tarvix-cli: Left out: 2 hidden, 1 link. --any-attribute finds them too.\n");
    const Outcome all = Run({"search", "*.txt", "--in", "d", "--any-attribute"});
    EXPECT_EQ(all.err, "");
    EXPECT_EQ(std::ranges::count(all.out, '\n'), 4);
}

TEST_F(SettingsTest, InDriveFormPeopleReadDrivePaths) {
    MakeBasic();
    Option("PathForm", "drive");
    std::string script(kLookAround);
    for (std::size_t at = script.find("ROOT"); at != script.npos; at = script.find("ROOT"))
        script.replace(at, 4, Root().string());
    const Outcome outcome = RunScript(script);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    std::string drive = "C:" + Root().string();
    std::ranges::replace(drive, '/', '\\');
    EXPECT_THAT(outcome.out, HasSubstr(drive + "\\basic\\sub|" + drive + "\\no such folder\n"));
    EXPECT_THAT(outcome.out, HasSubstr(drive + "\\basic\\sub\\below\\e.txt\t"));
    EXPECT_THAT(outcome.out, HasSubstr("\tbelow\\e.txt\n"));
}

TEST_F(SettingsTest, APreviewFollowsTheRulesOfThisMachine) {
    AddFile("from/a.txt");
    AddFolder("stick");
    const Outcome outcome =
        Run({"--drive", "X=stick", "copy", "*", "--in", "from", "--to", "X:\\", "--dry-run"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_FALSE(fs::exists(Root() / "stick/a.txt"));
}

TEST_F(SettingsTest, AFailureNamesItsReasonTheObjectAndTheDestinationOnce) {
    AddFile("from/a.txt");
    AddFile("to", "a file");
    const Outcome outcome = Run({"copy", "*", "--in", "from", "--to", "to/x", "--yes"});
    EXPECT_THAT(Shown(outcome.err), HasSubstr("Object: ROOT/from/a.txt\n"));
    EXPECT_THAT(Shown(outcome.err), HasSubstr("Destination: ROOT/to/x/a.txt\n"));
    EXPECT_THAT(outcome.err, Not(HasSubstr("259")));
}

TEST_F(SettingsTest, AFailureSpeaksOfNativePaths) {
    AddFile("from/a.txt");
    AddFile("to", "a file");
    const Outcome outcome = Run({"copy", "*", "--in", "from", "--to", "to/x", "--yes"});
    EXPECT_NE(outcome.exitCode, 0);
    EXPECT_THAT(Shown(outcome.err), HasSubstr("ROOT/to"));
    EXPECT_THAT(outcome.err, Not(HasSubstr("C:\\")));
    EXPECT_THAT(ActionLogs(), Not(HasSubstr("C:\\")));
}

// ---- a new options file, and the one that is told otherwise ----

TEST_F(SettingsTest, ANewOptionsFileLooksThroughSubfoldersAndShowsSixColumns) {
    MakeBasic();
    const Outcome outcome =
        RunScript("set cmbSearchFor = *.mp3\nset cmbDir = " + (Root() / "basic").string() +
                  "\nclick cmdSearch\n"
                  "dump lblNumOfFilesFound\ndump chkIncludeSubFolders\n"
                  "dump chk512\ndump chkHidden\n");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "3\n1\n2\n0\n");
    const std::string options = ReadAll(DataFolder() / "TXOptionFile.txt");
    for (const char* line :
         {"blnAllowUserSelectSubfolders = True", "blnDefaultToIncludeSubfolders = True",
          "byt512 = 2", "byt128 = 2", "bytCompressed = 2", "bytHidden = 0",
          "blnListItems (SizeSubItem) = True", "blnListItems (PathSubItem) = True",
          "blnListItems (VersionSubItem) = False", "blnListItems (PathNameSubItem) = False"})
        EXPECT_THAT(options, HasSubstr(std::string(line) + "\r\n"));
}

TEST_F(SettingsTest, AnOptionsFileThatSaysOtherwiseCounts) {
    MakeBasic();
    Option("blnDefaultToIncludeSubfolders", "False");
    Option("byt512", "0");
    const Outcome outcome = RunScript("dump chkIncludeSubFolders\ndump chk512\n");
    EXPECT_EQ(outcome.out, "0\n0\n") << outcome.err;
}

TEST_F(SettingsTest, PrintedColumnsAreFilledThoughTheOptionsHideThem) {
    MakeBasic();
    EXPECT_EQ(Found({"a.mp3", "--in", "basic", "--columns", "Name,PathLevels"}).substr(0, 6),
              "a.mp3\t");
    EXPECT_THAT(Found({"a.mp3", "--in", "basic", "--json", "--columns", "all"}),
                HasSubstr("\"SearchForEntry\":\"01\""));
    EXPECT_THAT(ReadAll(DataFolder() / "TXOptionFile.txt"),
                HasSubstr("blnListItems (VersionSubItem) = False\r\n"));
}

TEST_F(SettingsTest, SparseFilesAreFoundAndTheSettingLeavesThemOut) {
    const fs::path sparse = AddFile("s/holes.bin", "x");
    ASSERT_EQ(truncate(sparse.c_str(), 10'000'000), 0);
    EXPECT_EQ(Found({"*", "--in", "s"}), "ROOT/s/holes.bin\n");
    Option("byt512", "0");
    if (Found({"*", "--in", "s", "--512", "yes"}).empty()) GTEST_SKIP() << "no holes on this disk";
    EXPECT_EQ(Found({"*", "--in", "s"}), "");
}

// ---- roots ----

TEST_F(SettingsTest, ADriveIsADestination) {
    AddFile("from/a.txt");
    AddFolder("stick");
    const Outcome outcome =
        Run({"--drive", "X=stick", "copy", "*", "--in", "from", "--to", "X:\\", "--yes"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_TRUE(fs::exists(Root() / "stick/a.txt"));
    AddFile("from/b.txt");
    const Outcome native =
        Run({"--drive", "X=stick", "copy", "b*", "--in", "from", "--to", "stick", "--yes"});
    EXPECT_EQ(native.exitCode, 0) << native.err;
    EXPECT_TRUE(fs::exists(Root() / "stick/b.txt"));
}

// ---- names ----

TEST_F(SettingsTest, ANameWithoutExtensionGetsNoDotAtItsEnd) {
    AddFile("r/plain");
    AddFile("r/with.txt");
    const Outcome outcome =
        Run({"rename", "*", "--in", "r", "--insert", "x", "--at", "end", "--yes"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_EQ(Found({"*", "--in", "r"}), "ROOT/r/plainx\nROOT/r/withx.txt\n");
}

} // namespace
} // namespace tarvix::endtoend
