#pragma once

#include <string_view>

namespace tarvix::lifecycle {

// What start and stop ask of the subsystems, by event: they stand above this folder.
constexpr std::string_view kClearList = "frmSearch.ClearList";
constexpr std::string_view kSearch = "frmSearch.cmdSearch_Click";
constexpr std::string_view kBrowseNormally = "frmSearch.BrowseNormally";
constexpr std::string_view kPaintAttributeBoxes = "frmSearch.PaintAttributeBoxes";
constexpr std::string_view kListDefaultFolders = "frmSearch.ListDefaultFolders";
// Writes the folders of the default search folder whose title is the path of its arguments to a
// Multiple Path List.
constexpr std::string_view kWriteDefaultFolder = "frmSearch.WriteDefaultFolder";
// Sorts and groups the rows by the list's column, as the end of a search does; or groups them
// alone.
constexpr std::string_view kArrangeRows = "frmSearch.ArrangeRows";
constexpr std::string_view kGroupRows = "frmSearch.GroupRows";
constexpr std::string_view kActivateDialog = "frmDialog.Form_Activate";
// Opens the action window for the action in force, and sees to what follows.
constexpr std::string_view kOpenDialog = "frmDialog.Open";
// Parses the box of the search locations into `strSearchFolder`.
constexpr std::string_view kParseLocations = "frmSearch.ParseLocations";
// Sends the selected object at the index of its arguments to the recycle bin, which was confirmed
// before; what protects or refuses it is asked about, and `lastAction` counts what became of it.
constexpr std::string_view kRecycleSelected = "frmSearch.RecycleSelected";
// Leaves the mode in which a playlist is edited.
constexpr std::string_view kLeavePlayList = "frmSearch.mnuPlayListWarning_Click";
// The selection was counted anew while a playlist is edited.
constexpr std::string_view kPlayListSelection = "frmSearch.PlayListSelection";
// Marks the row of its arguments in a playlist that is edited, or takes its mark away.
constexpr std::string_view kMarkPlayListRow = "frmSearch.MarkPlayListRow";
constexpr std::string_view kRecycleActionLog = "frmSearch.RecycleActionLog";

} // namespace tarvix::lifecycle
