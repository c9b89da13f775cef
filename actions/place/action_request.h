#pragma once

#include "actions/place/special_rule.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What the action window asks for, as values. Read once from its fields, then only handed on.
namespace tarvix::actions {

constexpr std::size_t kMultiPathLimit = 1000;

enum class Way : std::uint8_t { kOneLocation, kMultipleLocations, kUpFolderTree, kSpecialRule };
enum class Structure : std::uint8_t { kNone, kDriveMirror, kFolderToFolder, kBackup };
enum class DuplicateChoice : std::uint8_t { kNone, kAsk, kSkip, kRename, kOverwrite };
enum class NamePortion : std::uint8_t { kPrefix, kExtension, kWholeName };

// The words for them in confirmations and in the log, by their number.
constexpr std::array<std::string_view, 4> kWayNames{"One Location", "Multiple Locations",
                                                    "Up Folder Tree", "Special Rule"};
constexpr std::array<std::string_view, 4> strStructureName{"None", "Drive Mirror",
                                                           "Folder to Folder", "Backup"};

// What "Rename" does with a name.
struct RenameRequest {
    bool inserts = true; // else it finds and replaces
    std::string find;
    std::string replace;
    bool onlyFirst = true;
    std::string add;
    bool addsAtEnd = true;
    NamePortion portion = NamePortion::kPrefix;
    std::string given; // the whole new name of one object, in place of all that
};

struct ActionRequest {
    std::string strAction; // the key of the action
    bool isMove = false;
    std::string heading; // of the window: "Copy Files or Folders to:"

    // Where to.
    Way way = Way::kOneLocation;
    Structure structure = Structure::kNone;
    std::string typed;                     // folder, file, part of a path, or rule; drive form
    std::vector<std::string> strMultiPath; // the locations of the chosen lists, no trailing "\"
    std::string levelsTyped;
    int levels = 0;
    bool prefixesFolders = false;    // the folders passed come in front of the name
    std::optional<SpecialRule> rule; // of a valid Special Rule

    DuplicateChoice duplicates = DuplicateChoice::kAsk;
    std::string renameText; // makes a duplicate's name unique
    bool renamesAtEnd = true;
    RenameRequest rename;
    bool wholeNames = false; // a list of names has them with extensions, and they may change places

    // How many destinations each object has.
    int Places() const {
        return way == Way::kMultipleLocations ? static_cast<int>(strMultiPath.size()) : 1;
    }
};

} // namespace tarvix::actions
