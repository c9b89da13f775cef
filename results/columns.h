#pragma once

#include <array>
#include <optional>
#include <string_view>

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
extern const std::array<ColumnInfo, kColumnCount> kColumns;

// By key ("Name" for column 0) without regard to case.
std::optional<Column> FindColumn(std::string_view key);

} // namespace tarvix::results
