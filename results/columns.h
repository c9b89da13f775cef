#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvix::results {

// The columns of the list. 0 is the row's own text; the others are its sub-items.
enum Column : int {
    kName = 0,
    kSize = 1,
    kDate = 2,
    kType = 3,
    kExt = 4,
    kVersion = 5,
    kExeType = 6,
    kOs = 7,
    kPath = 8,
    kPathName = 9,
    kAttributes = 10,
    kPathNameNoSrch = 11,
    kTargetPath = 12,
    kTargetArguments = 13,
    kWorkingDir = 14,
    kHotKey = 15,
    kWindowStyle = 16,
    kDescription = 17,
    kIconPath = 18,
    kPathNameLength = 19,
    kFilesInFolder = 20,
    kFoldersInFolder = 21,
    kPathLevels = 22,
    kYearRank = 23,
    kSearchForEntry = 24,
    kShortPath = 25,
    kSearchFolderIndex = 26,
};
constexpr int kColumnCount = 27;

struct ColumnInfo {
    std::string_view key; // in the options file, on the command line and in JSON
    std::string_view header;
    int width;       // pixels at first
    bool rightAlign; // numbers
};

// By column index.
inline constexpr std::array<ColumnInfo, kColumnCount> kColumns{{
    {"Name", "Name", 260, false},
    {"SizeSubItem", "Size", 120, true},
    {"DateSubItem", "Date", 150, false},
    {"TypeSubItem", "Type", 130, false},
    {"ExtSubItem", "Ext", 50, false},
    {"VersionSubItem", "Version", 70, false},
    {"ExeTypeSubItem", "Exe Type", 80, false},
    {"OSSubItem", "OS", 100, false},
    {"PathSubItem", "Path", 320, false},
    {"PathNameSubItem", "Path\\Name", 380, false},
    {"AttributesSubItem", "Attributes", 80, false},
    {"PathNameNoSrchSubItem", "Path\\Name without Search Folder", 300, false},
    {"TargetPathOfLinkSubItem", "Target's Path and Name of Link", 300, false},
    {"TargetArgumentsOfLink", "Target Arguments of Link", 160, false},
    {"WorkingDirOfLinkSubItem", "Working Folder of Link (Start In)", 220, false},
    {"HotKeyOfLink", "Hot Key of Link (Shortcut Key)", 120, false},
    {"WindowStyleOfLink", "Window Style of Link (Run)", 120, false},
    {"DescriptionOfLink", "Descripton of Link (Comment)", 200, false},
    {"IconPathNameOfLinkSubItem", "Icon Path\\Name of Link", 220, false},
    {"PathNameLengthSubItem", "Path\\Name Length", 110, true},
    {"FilesInFolder", "Files in this Folder", 110, true},
    {"FoldersInFolder", "Folders in this Folder", 120, true},
    {"PathLevels", "Path Levels", 80, true},
    {"YRYearRank", "Year-Rank or Copyright", 140, false},
    {"SearchForEntry", "Search For Entry", 110, false},
    {"ShortPathSubItem", "Short Path", 300, false},
    {"SearchFolderIndexSubItem", "Search Folder Index", 120, true},
}};

// The columns from left to right, unless the user has moved them.
std::vector<int> UsualOrder();
// Whether each column stands in it once.
bool IsOrder(const std::vector<int>& order);
// Whether a user can show and hide the column: the name always shows, the last ones never do.
bool IsChoosable(int column);
// Whether its cells carry their header as a tip.
bool TellsItsHeader(int column);

// By key ("Name" for column 0) without regard to case.
std::optional<Column> FindColumn(std::string_view key);

} // namespace tarvix::results
