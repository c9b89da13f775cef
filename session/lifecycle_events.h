#pragma once

#include <string_view>

namespace tarvix::lifecycle {

// What start and stop ask of the subsystems, by event: they stand above this folder.
constexpr std::string_view kClearList = "frmSearch.ClearList";
constexpr std::string_view kSearch = "frmSearch.cmdSearch_Click";
constexpr std::string_view kBrowseNormally = "frmSearch.BrowseNormally";
constexpr std::string_view kPaintAttributeBoxes = "frmSearch.PaintAttributeBoxes";
constexpr std::string_view kListDefaultFolders = "frmSearch.ListDefaultFolders";
constexpr std::string_view kActivateDialog = "frmDialog.Form_Activate";
// Opens the action window for the action in force, and sees to what follows.
constexpr std::string_view kOpenDialog = "frmDialog.Open";
// Parses the box of the search locations into `strSearchFolder`.
constexpr std::string_view kParseLocations = "frmSearch.ParseLocations";
constexpr std::string_view kRecycleActionLog = "frmSearch.RecycleActionLog";

} // namespace tarvix::lifecycle
