#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvix::actions {

// The actions that write one file.
constexpr std::array<std::string_view, 6> kTextGroup{
    "Path and Names",   "Names Only", "Target Paths", "CreateHTML", "Create MPL From Combo Box",
    "Numeric Increment"};

constexpr bool IsTextGroup(std::string_view action) {
    return std::ranges::find(kTextGroup, action) != kTextGroup.end();
}

constexpr std::string_view kRenameFromList = "RenameFromTextFile";
constexpr std::string_view kRenameFromLinks = "RenameFromHTMLSearch";
constexpr std::string_view kRenameByPrefix = "RenameFromSelfSearch";
constexpr std::string_view kRenameAsTitle = "RenameAsTitle";
constexpr std::string_view kCopyAsFolderName = "CopyRenameAsFolderName";

// The renames whose names come from files.
constexpr bool IsRenameFromSource(std::string_view action) {
    return action == kRenameFromList || action == kRenameFromLinks || action == kRenameByPrefix ||
           action == kRenameAsTitle;
}

constexpr bool IsMove(std::string_view action) {
    return action == "Move" || action == "Automated Move";
}

constexpr bool IsCopyOrMove(std::string_view action) {
    return action == "Copy" || action == "Move";
}

} // namespace tarvix::actions
