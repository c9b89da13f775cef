#include "results/columns.h"

#include "text/case.h"

namespace tarvix::results {

const std::array<ColumnInfo, kColumnCount> kColumns{{
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
    {"SearchForEntry", "Search For Entry", 110, true},
    {"ShortPathSubItem", "Short Path", 300, false},
    {"SearchFolderIndexSubItem", "Search Folder Index", 120, true},
}};

std::optional<Column> FindColumn(std::string_view key) {
    for (int i = 0; i < kColumnCount; ++i) {
        if (text::EqualNoCase(kColumns[static_cast<std::size_t>(i)].key, key)) {
            return static_cast<Column>(i);
        }
    }
    return std::nullopt;
}

} // namespace tarvix::results
