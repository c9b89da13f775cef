#pragma once

#include "session/settings/options.h"

#include <array>
#include <string_view>
#include <variant>

namespace tarvix::session {

// The two keys that take several lines each.
struct FolderLines {};
struct ColumnLines {};

using OptionField = std::variant<bool Options::*, int Options::*, float Options::*,
                                 std::string Options::*, FolderLines, ColumnLines>;

// One key of the options file.
struct OptionKey {
    std::string_view key;
    OptionField field;
    std::string_view missing = ""; // the value when the file has no such line; "" keeps the field
    int most = 255;                // of a byte
    std::string_view box = "";     // the attribute box of frmSearch that shows it
    // The field that takes `missing`.
    OptionField missingField = field;
};

// In the order of the file. The options dialog and the command line use the same table.
inline constexpr std::array<OptionKey, 33> kOptionKeys{{
    {"blnAllowAll", &Options::blnAllowAll},
    {"blnAllowUserSelectSubfolders", &Options::blnAllowUserSelectSubfolders},
    {"blnDefaultToIncludeSubfolders", &Options::blnDefaultToIncludeSubfolders},
    {"blnAutoOptions", &Options::blnAutoOptions, "True"},
    {"blnSkipNTFS", &Options::blnSkipNTFS, "True"},
    {"bytFilesVsDirs", &Options::bytFilesVsDirs, "", 4},
    {"bytReadOnly", &Options::bytReadOnly, "0", 2, "chkReadOnly"},
    {"bytSystem", &Options::bytSystem, "0", 2, "chkSystem"},
    {"bytHidden", &Options::bytHidden, "0", 2, "chkHidden"},
    {"bytArchive", &Options::bytArchive, "2", 2, "chkArchive"},
    // Kept as it always was: a missing byt64 clears byt512.
    {"byt64", &Options::byt64, "0", 2, "chk64", &Options::byt512},
    {"byt128", &Options::byt128, "0", 2, "chk128"},
    {"byt256", &Options::byt256, "0", 2, "chk256"},
    {"byt512", &Options::byt512, "0", 2, "chk512"},
    {"bytAlias", &Options::bytAlias, "0", 2, "chkAlias"},
    {"bytCompressed", &Options::bytCompressed, "0", 2, "chkCompressed"},
    {"strDefSearchFolder", FolderLines{}},
    {"blnListItems", ColumnLines{}},
    {"blnLockColumnWidths", &Options::blnLockColumnWidths},
    {"bytSortBy", &Options::bytSortBy, "", 26},
    {"blnSort", &Options::blnSort},
    {"blnListDupsWhenSearchStringsNotExclusive",
     &Options::blnListDupsWhenSearchStringsNotExclusive},
    {"blnNoContextMenuWarning", &Options::blnNoContextMenuWarning},
    {"blnNoColumnWarning", &Options::blnNoColumnWarning},
    {"blnErrorLog", &Options::blnErrorLog, "True"},
    {"blnFileLog", &Options::blnFileLog, "True"},
    {"blnAutoMode", &Options::blnAutoMode},
    {"sngDefWebSeconds", &Options::sngDefWebSeconds, "8"},
    {"strDefWebSize", &Options::strDefWebSize, "R"},
    {"blnAskWebTime", &Options::blnAskWebTime},
    {"blnAskWebSize", &Options::blnAskWebSize},
    {"blnAutoEnvVar", &Options::blnAutoEnvVar},
    {"blnRemoveEnvVar", &Options::blnRemoveEnvVar},
}};

// By exact spelling; `kOptionKeys.size()` when there is none.
std::size_t FindOptionKey(std::string_view key);

// The names of the columns in the file, by column index; none for the list's own text.
inline constexpr std::array<std::string_view, kVisibilityCount> kColumnNames{
    "",
    "SizeSubItem",
    "DateSubItem",
    "TypeSubItem",
    "ExtSubItem",
    "VersionSubItem",
    "ExeTypeSubItem",
    "OSSubItem",
    "PathSubItem",
    "PathNameSubItem",
    "AttributesSubItem",
    "PathNameNoSrchSubItem",
    "TargetPathOfLinkSubItem",
    "TargetArgumentsOfLink",
    "WorkingDirOfLinkSubItem",
    "HotKeyOfLink",
    "WindowStyleOfLink",
    "DescriptionOfLink",
    "IconPathNameOfLinkSubItem",
    "PathNameLengthSubItem",
    "FilesInFolder",
    "FoldersInFolder",
    "PathLevels",
    "YRYearRank",
    "SearchForEntry",
    "ShortPathSubItem",
    "SearchFolderIndexSubItem",
};

// Column indexes in the order of the file, which has the attributes before the path.
inline constexpr std::array<std::size_t, 24> kColumnFileOrder{
    1, 2, 3, 4, 5, 6, 7, 10, 8, 9, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24};

} // namespace tarvix::session
