#pragma once

#include "fields/controls.h"

#include <array>
#include <string_view>

namespace tarvix::fields {

// The captions of `mnuSearch_DateType`.
inline constexpr std::array<std::string_view, 3> kDateTypes{
    "Date = Modified Date", "Date = Created Date", "Date = Last Accessed Date"};

// The criteria, the result list's head, the counters and the status of the one main window.
class FrmSearch : public Form {
  public:
    FrmSearch();

    // Criteria.
    ComboBox cmbSearchFor{*this, "cmbSearchFor"};
    ComboBox cmbDir{*this, "cmbDir"};
    Label lblTargetPath{*this, "lblTargetPath", "Target Path"};
    ComboBox cboTargetPath{*this, "cboTargetPath"};
    CheckBox chkNot{*this, "chkNot", "&NOT"};
    CheckBox chkIncludeSubFolders{*this, "chkIncludeSubFolders", "Include su&bfolders"};
    CheckBox chkOneEach{*this, "chkOneEach", "One File from Each Folder"};
    CheckBox chkRepeatSearch{*this, "chkRepeatSearch", "Repeat search"};
    CheckBox chkFastSort{*this, "chkFastSort", "Fast Sort (no &grouping)"};
    OptionGroup optFilesVsDirs{
        *this,
        "optFilesVsDirs",
        {"F&iles", "Empty files", "All Objects", "F&olders", "Empty folders"}};
    CheckBox chkSize{*this, "chkSize", "Si&ze"};
    ComboBox cboSize{*this, "cboSize", false};
    TextBox txtSize1{*this, "txtSize1"};
    TextBox txtSize2{*this, "txtSize2"};
    CheckBox chkDate{*this, "chkDate", "&Date"};
    ComboBox cboDate{*this, "cboDate", false};
    DateLabel lblDate1{*this, "lblDate1"};
    Label lbldDateThru{*this, "lbldDateThru", "thru"};
    DateLabel lblDate2{*this, "lblDate2"};
    TextBox txtDate1{*this, "txtDate1"}; // a date or words for one; the labels have what they mean
    TextBox txtDate2{*this, "txtDate2"};
    Label lblDateType{*this, "lblDateType", std::string(kDateTypes[0])};

    // Attributes: 0 must not have, 1 must have, 2 doesn't matter.
    CheckBox chkReadOnly{*this, "chkReadOnly", "Read Only", 0, true};
    CheckBox chkHidden{*this, "chkHidden", "Hidden", 0, true};
    CheckBox chkSystem{*this, "chkSystem", "System", 0, true};
    CheckBox chkArchive{*this, "chkArchive", "Archived", 2, true};
    CheckBox chkAlias{*this, "chkAlias", "Alias", 0, true};
    CheckBox chkCompressed{*this, "chkCompressed", "Compress", 0, true};
    CheckBox chk256{*this, "chk256", "256", 0, true};
    CheckBox chk512{*this, "chk512", "512", 0, true};
    CheckBox chk64{*this, "chk64", "64", 0, true};
    CheckBox chk128{*this, "chk128", "128", 0, true};

    // Search and browse.
    CommandButton cmdSearch{*this, "cmdSearch", "&Search"};
    CommandButton cmdStop{*this, "cmdStop", "Stop", false};
    CommandButton cmdNext{*this, "cmdNext", "Ne&xt", false};
    CommandButton cmdBrowse{*this, "cmdBrowse", "Browse"};
    CommandButton cmdClearFolders{*this, "cmdClearFolders", "Clear"};
    OptionGroup optBrowse{*this, "optBrowse", {"&Path", "Add Path&+", "MPL", "Add MPL&*"}};

    // The list, selection and actions.
    ListView lstMain{*this, "lstMain"};
    Frame fraSelection{*this, "fraSelection", "Select", false};
    CommandButton cmdSelectAll{*this, "cmdSelectAll", "All"};
    CommandButton cmdSelectAllFiles{*this, "cmdSelectAllFiles", "Files"};
    CommandButton cmdSelectAllDirs{*this, "cmdSelectAllDirs", "Folders"};
    CommandButton cmdSelectNone{*this, "cmdSelectNone", "None"};
    CommandButton cmdSelectReverse{*this, "cmdSelectReverse", "Reverse"};
    Frame fraStandardAction{*this, "fraStandardAction", "Actions", false};
    CommandButton cmdCopySelected{*this, "cmdCopySelected", "&Copy..."};
    CommandButton cmdMoveSelected{*this, "cmdMoveSelected", "&Move..."};
    CommandButton cmdRenameSelected{*this, "cmdRenameSelected", "Rename...", false};
    CommandButton cmdDeleteSelected{*this, "cmdDeleteSelected", "Rec&ycle", false};
    CommandButton cmdEditTargets{*this, "cmdEditTargets", "Edi&t Links (shortcuts)", false};
    CommandButton cmdDoVersionSort{*this, "cmdDoVersionSort", "Version sort", false};

    // The banner of a loaded playlist: what it holds, what is marked, and what acts on it.
    Frame fraPlayList{*this, "fraPlayList", "", false};
    Label lblPlayList{*this, "lblPlayList"};
    CommandButton cmdPreviewPlayList{*this, "cmdPreviewPlayList", "Preview...", false};
    CommandButton cmdEditPlayList{*this, "cmdEditPlayList", "Delete and Rename Files in Playlist",
                                  false};

    // Counters and status.
    Label lblNumOfFilesAttrib{*this, "lblNumOfFilesAttrib", "0"};
    Label lblNumOfDirsAttrib{*this, "lblNumOfDirsAttrib", "0"};
    Label lblNumOfFilesFound{*this, "lblNumOfFilesFound", "0"};
    Label lblNumOfDirsFound{*this, "lblNumOfDirsFound", "0"};
    Label lblNumOfFilesSelected{*this, "lblNumOfFilesSelected", "0"};
    Label lblNumOfDirsSelected{*this, "lblNumOfDirsSelected", "0"};
    Label lblTotalSize{*this, "lblTotalSize", "0"};
    Label lblGroups{*this, "lblGroups", "1"};
    Label lblStatus{*this, "lblStatus"};
    Label lblDetailedStatus{*this, "lblDetailedStatus"};
    Label lblBatch{*this, "lblBatch"}; // the line of a batch that is under work
    Label lblCurrentFolder{*this, "lblCurrentFolder"};
    Label lblSearchFor{*this, "lblSearchFor"};
    CommandButton cmdUnread{*this, "cmdUnread", "", false};   // opens the list of what was not read
    CommandButton cmdLeftOut{*this, "cmdLeftOut", "", false}; // finds what the boxes left out, too
    CommandButton cmdOutcome{*this, "cmdOutcome", "", false}; // opens what the last action has done

    // Menu entries that a search or its end switches.
    MenuEntry mnuRun{*this, "mnuRun", "R&un"};
    MenuEntry mnuActions{*this, "mnuActions", "&Actions"};
    MenuEntry mnuTools{*this, "mnuTools", "Too&ls"};
    MenuEntry mnuBrowse{*this, "mnuBrowse", "Bro&wse"};
    MenuEntry mnuOptions{*this, "mnuOptions", "O&ptions"};
    MenuEntry mnuBrowse_ClearNow{*this, "mnuBrowse_ClearNow", "Clear 'Search Location(s)' Now"};
    std::array<MenuEntry, 4> mnuBrowse_Behave{
        MenuEntry{*this, "mnuBrowse_Behave", "Clear 'Search Location(s)' and Add Path", 0},
        MenuEntry{*this, "mnuBrowse_Behave", "Add Path Only", 1},
        MenuEntry{*this, "mnuBrowse_Behave", "Clear 'Search Location(s)' and Add MPL", 2},
        MenuEntry{*this, "mnuBrowse_Behave", "Add Multiple Path List (MPL) Only", 3}};
    MenuEntry mnuNamesTxt{*this, "mnuNamesTxt", "as an Object Names Only Text File"};
    MenuEntry mnuPathNamesTxt{*this, "mnuPathNamesTxt", "as a Full Path Text File"};
    MenuEntry mnuPathNamesMPL{*this, "mnuPathNamesMPL",
                              "as an MPL - Multiple Path List (Folder List)"};
    MenuEntry mnuNamesM3u{*this, "mnuNamesM3u", "as a Local Audio/Video Playlist"};
    MenuEntry mnuPathNamesM3u{*this, "mnuPathNamesM3u", "as a Full Path Audio/Video Playlist"};
    MenuEntry mnuTools_TargetPaths{*this, "mnuTools_TargetPaths",
                                   "as a Shortcut (link) Target Paths List "};
    MenuEntry mnuTools_CreateHtml{*this, "mnuTools_CreateHtml", "as a Simple HTML Web Page"};
    MenuEntry mnuTools_CreateMPLfromCombo{
        *this, "mnuTools_CreateMPLfromCombo",
        "Create Multiple Path List from 'Search Location(s)' Box"};
    MenuEntry mnuTools_MakeFolders{*this, "mnuTools_MakeFolders", "Create Folders"};
    MenuEntry mnuTools_NumericIncrement{*this, "mnuTools_NumericIncrement",
                                        "Create Numeric Incremented Text File"};
    MenuEntry mnuTools_DeleteFolderContentsOnly{*this, "mnuTools_DeleteFolderContentsOnly",
                                                "Delete Folder Contents Only"};
    MenuEntry mnuTools_FolderSummary{*this, "mnuTools_FolderSummary", "Summarize Objects"};
    MenuEntry mnuRenameSelFromFile{*this, "mnuRenameSelFromFile", "Rename Objects based on list"};
    MenuEntry mnuRenameSelFromHTMLSearch{*this, "mnuRenameSelFromHTMLSearch",
                                         "Rename Objects based on Html link"};
    MenuEntry mnuRenameSelFromSelfSearch{*this, "mnuRenameSelFromSelfSearch",
                                         "Rename by adding prefix"};
    MenuEntry mnuRenameSelFromTitle{*this, "mnuRenameSelFromTitle",
                                    "Rename Objects based on Html <title>"};
    MenuEntry mnuTools_NameVersionSort{
        *this, "mnuTools_NameVersionSort",
        "Group by name (ascending) and version number (descending)."};
    MenuEntry mnuTools_RemoveUnAndMove{*this, "mnuTools_RemoveUnAndMove",
                                       "Remove Unselected and Move"};
    MenuEntry mnuTools_AutomatedMove{*this, "mnuTools_AutomatedMove",
                                     "Automated Object Move (Sort)"};
    MenuEntry mnuTools_LoadPlayList{*this, "mnuTools_LoadPlayList",
                                    "Load PlayList to Delete and Rename Duplicates"};
    MenuEntry mnuPlayListWarning{*this, "mnuPlayListWarning", "Cancel PlayList Delete Dup Mode"};
    MenuEntry mnuTools_AutomatedPlayListGen{
        *this, "mnuTools_AutomatedPlayListGen",
        "Automated PlayList Generator - Local (one in each folder)"};
    MenuEntry mnuTools_AutomatedPlayListGen_Full{
        *this, "mnuTools_AutomatedPlayListGen_Full",
        "Automated PlayList Generator - Full Path (all in one folder)"};
    MenuEntry mnuTools_BrowserUseText{
        *this, "mnuTools_BrowserUseText",
        "Open Browser Repeatedly Based on a Text File (address list)"};
    MenuEntry mnuTools_BypassMPL{*this, "mnuTools_BypassMPL",
                                 "Copy Paths Directly into 'Search Location(s)' Box"};
    MenuEntry mnuTools_NewSearchFor{*this, "mnuTools_NewSearchFor",
                                    "Copy Object Names Directly into 'Search For' Box"};
    MenuEntry mnuToolViewActionLog{*this, "mnuToolViewActionLog", "View Action Log"};
    MenuEntry mnuToolViewAnyActionLog{*this, "mnuToolViewAnyActionLog", "View Any Action Log"};
    MenuEntry mnuToolViewRuns{*this, "mnuToolViewRuns", "Logs of Runs..."};
    MenuEntry mnuShortcutsWarning{*this, "mnuShortcutsWarning",
                                  "**** - Edit Shortcuts Mode - **** Click Here to Cancel"};
    MenuEntry mnuTargetPath{*this, "mnuTargetPath", "Target Path"};

    // What opens and runs the selected objects.
    MenuEntry mnuRun_Mp3{*this, "mnuRun_Mp3", "Play Audio/Video/picture File(s)"};
    MenuEntry mnuRun_EnqueueMp3{*this, "mnuRun_EnqueueMp3", "Enqueue Audio/Video/picture File(s)"};
    MenuEntry mnuRun_ForceEnqueueMp3{*this, "mnuRun_ForceEnqueueMp3", "Force VLC to enqueue"};
    MenuEntry mnuRun_View{*this, "mnuRun_View", "View as File Text"};
    MenuEntry mnuRun_HexEdit{*this, "mnuRun_HexEdit", "Hex Edit a File"};
    MenuEntry mnuRun_Run{*this, "mnuRun_Run", "Run a Program"};
    MenuEntry mnuRun_OpenParent{*this, "mnuRun_OpenParent", "Open Parent Folder"};

    // Scripts of what a user does.
    MenuEntry mnuFile_RecordScript{*this, "mnuFile_RecordScript", "&Record a Script..."};
    MenuEntry mnuFile_RunScript{*this, "mnuFile_RunScript", "R&un a Script..."};

    Timer Timer1{*this, "Timer1"}; // of a show of pages

    // Which date of an object is tested and shown: the one that is checked.
    std::array<MenuEntry, 3> mnuSearch_DateType{
        MenuEntry{*this, "mnuSearch_DateType", std::string(kDateTypes[0]), 0},
        MenuEntry{*this, "mnuSearch_DateType", std::string(kDateTypes[1]), 1},
        MenuEntry{*this, "mnuSearch_DateType", std::string(kDateTypes[2]), 2}};

    // The window of all options, and those that are at hand.
    MenuEntry mnuOptions_Open{*this, "mnuOptions_Open", "All &Options..."};
    MenuEntry mnuOptions_AllowUserSelectSubfolders{*this, "mnuOptions_AllowUserSelectSubfolders",
                                                   "&Allow 'Include subfolders' to be selected"};
    MenuEntry mnuOptions_DefaultToIncludeSubfolders{*this, "mnuOptions_DefaultToIncludeSubfolders",
                                                    "&Include subfolders at the start"};

    // The texts beside the program.
    MenuEntry mnuHelp_Help{*this, "mnuHelp_Help", "&Help"};
    MenuEntry mnuHelp_GenInfo{*this, "mnuHelp_GenInfo", "&General Information"};
    MenuEntry mnuHelp_Advanced{*this, "mnuHelp_Advanced", "&Advanced Functions List"};
    MenuEntry mnuHelp_HotKey{*this, "mnuHelp_HotKey", "&Internet Shortcut HotKey Codes"};
    MenuEntry mnuHelp_Ver{*this, "mnuHelp_Ver", "&Version Changes"};
    MenuEntry mnuHelp_SysInfo{*this, "mnuHelp_SysInfo", "&System Information"};

    // The ten attribute boxes in the order of their bits' table.
    const std::array<CheckBox*, 10> attributeBoxes{
        &chkReadOnly,   &chkHidden, &chkSystem, &chkArchive, &chkAlias,
        &chkCompressed, &chk256,    &chk512,    &chk64,      &chk128};
};

} // namespace tarvix::fields
