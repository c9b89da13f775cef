#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace tarvix::session {

constexpr std::size_t kConfiguredFolders = 19;
constexpr std::size_t kDefaultFolderLimit = 42;
constexpr std::size_t kEnvVariableLimit = 101;
constexpr std::size_t kVisibilityCount = 27; // by column index, 0 the name
constexpr int kAnyYear = 0;

// A variable that stands for a folder, and whether paths are folded into it.
struct EnvVariable {
    bool blnEnvVarInclude = false;
    std::string strEnvVarName; // without "%"
    std::string strEnvVarPath;
    bool operator==(const EnvVariable&) const = default;
};

constexpr std::array<bool, kVisibilityCount> kAllColumns = [] {
    std::array<bool, kVisibilityCount> columns{};
    for (std::size_t i = 0; i + 2 < columns.size(); ++i) {
        columns[i] = true; // the last two are never shown
    }
    return columns;
}();

// The settings that outlive a run, by their keys. A new record holds what counts while no options
// file exists.
struct Options {
    bool blnAllowAll = false; // Expert Mode
    bool blnAllowUserSelectSubfolders = false;
    bool blnDefaultToIncludeSubfolders = false;
    bool blnAutoOptions = true;
    bool blnSkipNTFS = true;
    int bytFilesVsDirs = 0;
    // The attribute boxes at start: 0 empty, 1 checked, 2 grey.
    int bytReadOnly = 0;
    int bytSystem = 0;
    int bytHidden = 0;
    int bytArchive = 2;
    int byt64 = 0;
    int byt128 = 0;
    int byt256 = 0;
    int byt512 = 0;
    int bytAlias = 0;
    int bytCompressed = 0;
    // The first 19 are configured and saved, variables unexpanded; the predefined ones follow.
    // Several folders stand with "|" between. One without a title isn't offered.
    std::array<std::string, kDefaultFolderLimit> strDefSearchFolder;
    std::array<std::string, kDefaultFolderLimit> strDefSearchFolderTitle;
    std::array<bool, kVisibilityCount> blnListItems = kAllColumns;
    bool blnLockColumnWidths = false;
    int bytSortBy = 0;
    bool blnSort = false; // descending
    bool blnListDupsWhenSearchStringsNotExclusive = false;
    bool blnNoContextMenuWarning = false;
    bool blnNoColumnWarning = false;
    bool blnErrorLog = true;
    bool blnFileLog = true;
    bool blnAutoMode = false; // no prompts; every decision falls to its safe default
    float sngDefWebSeconds = 8;
    std::string strDefWebSize = "R - Normal";
    bool blnAskWebTime = true;
    bool blnAskWebSize = true;
    bool blnAutoEnvVar = false;
    bool blnRemoveEnvVar = false;
    std::vector<EnvVariable> envVariables; // at most 101; an unused place has no name

    // Kept in the platform file.
    // The last year that counts as plausible for a file's date; kAnyYear when all do.
    int intLatestYear = 2025;
};

} // namespace tarvix::session
