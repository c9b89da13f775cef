#include "session/lifecycle/data_folder.h"
#include "session/remembered/platform_file.h"
#include "tests/support/program_fixture.h"
#include "text/characters.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using session::PlatformSettings;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;

const std::string kFile = "C:\\home\\ann\\tarvix\\TXPlatform.txt";

// ---- the text ----

TEST(PlatformSettingsText, HasACommentForEachKey) {
    PlatformSettings settings;
    settings.drives = {{'E', "/srv/collection"}};
    settings.showsNative = true;
    settings.listsAreNative = false;
    settings.showsUnits = true;
    settings.longestPath = session::kAnyLength;
    settings.editor = "gedit --wait";
    settings.player = "vlc";
    settings.hexEditor = "ghex";
    settings.terminal = "xterm -e";
    settings.latestYear = 2026;
    settings.sortsFast = true;
    settings.searchWindow = {-10, 20, 1120, 720, true};
    settings.columnWidths[0] = 300;
    settings.columnWidths[8] = 99;
    settings.columnOrder = {0, 8, 1};
    settings.unknownLines = {"Later = yes"};
    EXPECT_EQ(
        session::PlatformSettingsText(settings),
        "# What is particular to this machine. Tarvix writes this file when it closes: edit it "
        "only then.\r\n"
        "# Letters from D to Z for folders and mounts, as \"Drive E: = /srv/collection\".\r\n"
        "Drive E: = /srv/collection\r\n"
        "# Paths in windows, messages and logs: native or drive.\r\n"
        "PathForm = native\r\n"
        "# Paths in lists that are written: native or drive.\r\n"
        "ListPathForm = drive\r\n"
        "# Sizes in the list of the window: bytes, or units for kB, MB and GB.\r\n"
        "SizeForm = units\r\n"
        "# The longest path: native for what the disk takes, or 259 characters.\r\n"
        "LongestPath = native\r\n"
        "# The command that opens text files; empty for the desktop's own.\r\n"
        "Editor = gedit --wait\r\n"
        "# The command of the media player; empty for VLC where it is, else the desktop's own.\r\n"
        "Player = vlc\r\n"
        "# The command of a second media player, with its own switch for adding to its list; empty "
        "for one that is installed.\r\n"
        "SecondPlayer =\r\n"
        "# The command of the hex editor; empty for one that is installed.\r\n"
        "HexEditor = ghex\r\n"
        "# The command of the terminal that text programs run in, such as xterm -e; empty for the "
        "first that is found.\r\n"
        "Terminal = xterm -e\r\n"
        "# The last year that is plausible for the date of a file; any for all years.\r\n"
        "LatestFileYear = 2026\r\n"
        "# How many action logs stay, each of one run: a number, an age such as 30 days, or "
        "all.\r\n"
        "LogsKept = 200\r\n"
        "# Whether the window was left with Fast Sort on; empty for as at first.\r\n"
        "FastSort = on\r\n"
        "# The same of Include subfolders, where the options let it be chosen.\r\n"
        "Subfolders =\r\n"
        "# Left, top, width and height of the main window, and maximized if it was.\r\n"
        "SearchWindow = -10,20,1120,720,maximized\r\n"
        "# The same of the action window.\r\n"
        "ActionWindow =\r\n"
        "# Widths of columns that were changed, as \"Name:260\".\r\n"
        "ColumnWidths = Name:300,PathSubItem:99\r\n"
        "# The columns from left to right; empty for the usual order.\r\n"
        "ColumnOrder = Name,PathSubItem,SizeSubItem\r\n"
        "Later = yes\r\n"
        "*EOF");
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    const std::string plain = text::Replace(text, "\r\n", "\n");
    for (const auto line : text::Split(plain, '\n'))
        lines.emplace_back(line);
    return lines;
}

TEST(PlatformSettingsText, IsReadAsItWasWritten) {
    PlatformSettings settings;
    settings.drives = {{'D', "/media/ann/STICK"}, {'Z', "/srv/a = b"}};
    settings.secondPlayer = "audacious --enqueue";
    settings.dialogWindow = {0, 0, 800, 549, false};
    settings.columnWidths[26] = 1;
    settings.columnOrder = {26, 0};
    settings.unknownLines = {"??"};
    EXPECT_EQ(session::ParsePlatformSettings(LinesOf(session::PlatformSettingsText(settings))),
              settings);
}

TEST(PlatformSettingsText, LogsAreKeptByNumberOrAge) {
    const std::vector<std::pair<const char*, session::LogsKept>> cases{
        {"LogsKept = 7", {.most = 7, .inDays = false}},
        {"logskept = 30 Days", {.most = 30, .inDays = true}},
        {"LogsKept = 1 day", {.most = 1, .inDays = true}},
        {"LogsKept = ALL", {.most = 0, .inDays = false}}};
    for (const auto& [line, kept] : cases) {
        const auto settings = session::ParsePlatformSettings({line});
        EXPECT_EQ(settings.logsKept, kept) << line;
        EXPECT_EQ(session::ParsePlatformSettings(LinesOf(session::PlatformSettingsText(settings))),
                  settings);
    }
    EXPECT_EQ(PlatformSettings{}.logsKept, (session::LogsKept{.most = 200, .inDays = false}));
}

TEST(PlatformSettingsText, KeysCountInAnyCaseAndBlanksAreNothing) {
    const auto settings = session::ParsePlatformSettings(
        {"  LISTPATHFORM=Drive ", "drive e:= /x", "Drive f = /y", "", "# editor = no"});
    EXPECT_FALSE(settings.listsAreNative);
    EXPECT_THAT(settings.drives, ElementsAre(Pair('E', "/x"), Pair('F', "/y")));
    EXPECT_EQ(settings.editor, "");
    EXPECT_THAT(settings.unknownLines, IsEmpty());
}

TEST(PlatformSettingsText, ALetterThatIsLetGoBeforeItIsGivenStays) {
    const PlatformSettings settings =
        session::ParsePlatformSettings({"Drive E: =", "Drive E: = /e"}, {});
    EXPECT_THAT(settings.drives, ElementsAre(Pair('E', "/e")));
    EXPECT_THAT(settings.unknownLines, IsEmpty());
    const auto gone = session::ParsePlatformSettings({"Drive E: = /e", "drive e ="}, {});
    EXPECT_THAT(gone.drives, IsEmpty());
    EXPECT_THAT(gone.unknownLines, IsEmpty());
}

TEST(PlatformSettingsText, WhatIsNotUnderstoodIsKeptAndChangesNothing) {
    const std::vector<std::string> bad{"ListPathForm = nativ",
                                       "Drive C: = /x",
                                       "Drive EE: = /x",
                                       "Drive E: = relative",
                                       "LatestFileYear = soon",
                                       "LatestFileYear = 1979",
                                       "LatestFileYear = 0",
                                       "PathForm = natively",
                                       "LogsKept = 0",
                                       "LogsKept = -5",
                                       "LogsKept =",
                                       "LogsKept = 5 weeks",
                                       "LogsKept = days",
                                       "LogsKept = 99999999999",
                                       "SizeForm = kB",
                                       "LongestPath = 260",
                                       "LongestPath = 0",
                                       "SearchWindow = 1,2,3",
                                       "SearchWindow = 1,2,0,4",
                                       "SearchWindow = 1,2,3,4,full",
                                       "ColumnWidths = Name",
                                       "ColumnWidths = Name:0",
                                       "ColumnWidths = NoSuchColumn:5",
                                       "ColumnWidths = Name:99999999999",
                                       "ColumnOrder = Name,Name",
                                       "ColumnOrder = x",
                                       "nonsense",
                                       "= 5"};
    PlatformSettings expected;
    expected.unknownLines = bad;
    EXPECT_EQ(session::ParsePlatformSettings(bad), expected);
}

TEST(PlatformSettingsText, TheLastOfTwoLinesCountsAndNothingBehindTheEndMark) {
    const auto settings =
        session::ParsePlatformSettings({"Editor = a", "Editor = b", "*EOF", "Editor = c"});
    EXPECT_EQ(settings.editor, "b");
}

TEST(PlatformSettingsText, AnyYearIsWrittenAndReadAsAWord) {
    PlatformSettings settings;
    EXPECT_TRUE(session::SetSetting(settings, "LatestFileYear", "Any"));
    EXPECT_EQ(settings.latestYear, session::kAnyYear);
    EXPECT_THAT(session::PlatformSettingsText(settings), HasSubstr("\r\nLatestFileYear = any\r\n"));
}

TEST(PlatformSettingsText, WhatTheFileLacksIsAsUsualOnTheMachine) {
    const auto usual = session::UsualSettings(
        {.keepsEveryDate = true, .hasNativePaths = true, .takesLongPaths = true});
    EXPECT_EQ(usual.longestPath, session::kAnyLength);
    EXPECT_EQ(usual.latestYear, session::kAnyYear);
    EXPECT_TRUE(usual.showsNative);
    EXPECT_EQ(session::UsualSettings({}), PlatformSettings{});
    const auto read = session::ParsePlatformSettings({"PathForm = drive"}, usual);
    EXPECT_EQ(read.latestYear, session::kAnyYear);
    EXPECT_FALSE(read.showsNative);
}

TEST(PlatformSettingsText, AnEmptyValueTakesASettingBack) {
    PlatformSettings settings;
    settings.drives = {{'E', "/x"}};
    EXPECT_TRUE(session::SetSetting(settings, "Drive E:", ""));
    EXPECT_THAT(settings.drives, IsEmpty());
    EXPECT_FALSE(session::SetSetting(settings, "Editor", "a\nb"));
}

// ---- the file ----

class PlatformFile : public ProgramFixture {
  protected:
    std::string Saved() {
        program.Stop();
        return Disk().Content(kFile).value_or("");
    }
};

TEST_F(PlatformFile, IsMadeAtTheFirstCloseWithItsDefaults) {
    Start();
    EXPECT_EQ(Saved(), session::PlatformSettingsText({}));
}

TEST_F(PlatformFile, IsNotWrittenAgainWhileNothingChanges) {
    const std::string mine = "# my own order\nEditor = vi\n*EOF";
    Disk().AddFile(kFile, mine);
    Start();
    EXPECT_EQ(Saved(), mine);
}

TEST_F(PlatformFile, GivesTheLatestPlausibleYear) {
    Disk().AddFile(kFile, "LatestFileYear = 2030\r\n*EOF");
    Start();
    EXPECT_EQ(State().options.intLatestYear, 2030);
}

TEST_F(PlatformFile, TheLatestPlausibleYearIs2025UnlessSet) {
    Start();
    EXPECT_EQ(State().options.intLatestYear, 2025);
}

TEST_F(PlatformFile, KeepsTheYearWhateverTheOptionsFileSays) {
    Disk().AddFile(kFile, "LatestFileYear = 2030\r\n*EOF");
    Disk().AddFile("C:\\home\\ann\\tarvix\\TXOptionFile.txt", "");
    Start();
    EXPECT_EQ(State().options.intLatestYear, 2030);
}

TEST_F(PlatformFile, RemembersTheLetterOfAMountAndNotOfAnotherFolder) {
    Disk().AddDrive("F:", platform::DriveType::kRemovable, "vfat", "/media/ann/STICK");
    Disk().AddDrive("G:", platform::DriveType::kFixed, "ext4", "/srv/for this run");
    Start();
    EXPECT_THAT(Saved(), HasSubstr("Drive F: = /media/ann/STICK\r\n# Paths"));
}

TEST_F(PlatformFile, ALetterStaysWithAMountThatIsGone) {
    Disk().AddFile(kFile, "Drive K: = /media/ann/OTHER\r\nEditor = x\r\n*EOF");
    Start();
    State().platformSettings.editor = "y";
    EXPECT_THAT(Saved(), HasSubstr("Drive K: = /media/ann/OTHER\r\n"));
}

TEST_F(PlatformFile, LogsALineThatIsNotUnderstoodAndKeepsIt) {
    Disk().AddFile(kFile, "ListPathForm = nativ\r\n*EOF");
    Start();
    State().platformSettings.editor = "y";
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, " " + kFile +
                                  " has a line that is not understood: "
                                  "ListPathForm = nativ"));
    EXPECT_THAT(*Disk().Content(kFile), HasSubstr("\r\nListPathForm = nativ\r\n*EOF"));
}

TEST_F(PlatformFile, ASaveThatFailsIsToldAndLeavesTheOldFile) {
    Disk().AddFile(kFile, "Editor = x\r\n*EOF");
    Start();
    State().platformSettings.editor = "y";
    machine.faults.FailPath(kFile + ".tmp", platform::kDiskFull);
    EXPECT_EQ(Saved(), "Editor = x\r\n*EOF");
    EXPECT_TRUE(WasTold("unexpected error 61 "));
}

TEST_F(PlatformFile, AFileThatCannotBeReadIsNotWrittenOver) {
    Disk().AddFile(kFile, "Editor = x\r\n*EOF");
    machine.faults.FailPath(kFile, platform::kPermissionDenied, "OpenAsTextStream");
    Start();
    EXPECT_EQ(State().platformSettings.editor, "");
    EXPECT_EQ(Saved(), "Editor = x\r\n*EOF");
    EXPECT_TRUE(WasTold("unexpected error 70 "));
}

TEST_F(PlatformFile, SavedDrivesAreReadWithoutASession) {
    Disk().AddFile(kFile, "Drive E: = /srv/collection\r\n*EOF");
    EXPECT_THAT(lifecycle::SavedDrives(machine.platform),
                ElementsAre(Pair('E', "/srv/collection")));
}

TEST_F(PlatformFile, WithoutAFileThereAreNoSavedDrives) {
    EXPECT_THAT(lifecycle::SavedDrives(machine.platform), IsEmpty());
}

TEST_F(PlatformFile, SavedDrivesAreFoundInTheVirtualStore) {
    machine.environment.programFolder = "C:\\usr\\bin";
    Disk().AddFile("C:\\home\\ann\\.local\\share\\tarvix\\VirtualStore\\usr\\bin\\TXPlatform.txt",
                   "Drive E: = /x\n*EOF");
    EXPECT_THAT(lifecycle::SavedDrives(machine.platform), ElementsAre(Pair('E', "/x")));
}

TEST_F(PlatformFile, EveryYearCountsOnAMachineThatKeepsEveryDate) {
    S().platform.traits.keepsEveryDate = true;
    Start();
    EXPECT_EQ(State().options.intLatestYear, session::kAnyYear);
    EXPECT_THAT(Saved(), HasSubstr("\r\nLatestFileYear = any\r\n"));
}

TEST_F(PlatformFile, ASavedYearCountsOnAMachineThatKeepsEveryDate) {
    Disk().AddFile(kFile, "LatestFileYear = 2025\r\n*EOF");
    S().platform.traits.keepsEveryDate = true;
    Start();
    EXPECT_EQ(State().options.intLatestYear, 2025);
}

TEST_F(PlatformFile, PathsAreShownInTheFormThatIsSet) {
    Start();
    EXPECT_EQ(S().Shown("C:\\home\\ann\\a\uF03Ab"), "C:\\home\\ann\\a:b");
    State().platformSettings.showsNative = true;
    EXPECT_EQ(S().Shown("C:\\home\\ann\\a\uF03Ab"), "/home/ann/a:b");
    EXPECT_EQ(S().Shown("C:\\"), "/");
    EXPECT_EQ(S().Shown("Q:\\nowhere"), "Q:\\nowhere");
    EXPECT_EQ(S().Shown("no path"), "no path");
}

TEST_F(PlatformFile, ListsHaveNativePathsUnlessTold) {
    Start();
    EXPECT_EQ(session::PathForList(S(), "C:\\home\\ann"), "/home/ann");
    EXPECT_EQ(session::PathForList(S(), "Q:\\nowhere"), "Q:\\nowhere");
    State().platformSettings.listsAreNative = false;
    EXPECT_EQ(session::PathForList(S(), "C:\\home\\ann"), "C:\\home\\ann");
}

} // namespace
} // namespace tarvix::testing
