#pragma once

#include "fields/controls.h"

namespace tarvix::fields {

// The action window: one request for the whole selection. Which fields show depends on the action.
class FrmDialog : public Form {
  public:
    FrmDialog();

    Label lblMain{*this, "lblMain"};
    Label lblNumOfFilesSelected{*this, "lblNumOfFilesSelected", "0"};
    Label lblNumOfDirsSelected{*this, "lblNumOfDirsSelected", "0"};
    ComboBox cmbDir{*this, "cmbDir"};
    CommandButton cmdBrowse{*this, "cmdBrowse", "&Browse..."};

    // Where to.
    OptionGroup optTo{*this,
                      "optTo",
                      {"One &Location", "&Multiple Locations", "&Up Folder Tree", "S&pecial Rule"}};
    Label lblFolderTree{*this, "lblFolderTree", "Number of levels to move object up folder tree"};
    TextBox txtFolderTree{*this, "txtFolderTree"}; // digits only
    CheckBox chkFolderRename{*this, "chkFolderRename", "Rename with the &folders passed"};
    ListBox filMultiPath{*this, "filMultiPath", true}; // the MPL files of the data folder
    ListBox lstMulti{*this, "lstMulti"};               // the paths that the chosen ones hold

    // Folder structure.
    Frame fraStructure{*this, "fraStructure", "Folder structure"};
    OptionGroup optStructure{
        *this, "optStructure", {"&None", "&Drive Mirror", "Folder &to Folder", "Bac&kup"}};

    // Duplicates: at most one of the four is set.
    Frame fraDuplicates{*this, "fraDuplicates", "Duplicates"};
    CheckBox chkAsk{*this, "chkAsk", "&Ask", 1};
    CheckBox chkSkipAll{*this, "chkSkipAll", "&Skip all duplicates"};
    CheckBox chkRename{*this, "chkRename", "&Rename all duplicates"};
    CheckBox chkOverWrite{*this, "chkOverWrite", "O&verwrite all duplicates"};
    Label lblRename{*this, "lblRename", "Text that makes a duplicate's name unique"};
    TextBox txtRename{*this, "txtRename", "_"};
    CheckBox chkRenameBeg{*this, "chkRenameBeg", "At the be&ginning"};
    CheckBox chkRenameEnd{*this, "chkRenameEnd", "At the &end", 1};
    CheckBox chkPlus1{*this, "chkPlus1", "+1"};

    // Rename Only.
    Frame fraRenameOnly{*this, "fraRenameOnly", "Rename", false};
    CheckBox chkFindReplace{*this, "chkFindReplace", "&Find and Replace"};
    CheckBox chkAdd{*this, "chkAdd", "&Insert Text", 1};
    TextBox txtFind{*this, "txtFind"};
    TextBox txtReplace{*this, "txtReplace"};
    OptionGroup optOnceVsAll{
        *this, "optOnceVsAll", {"First Occurrence in name", "All Occurrences"}};
    OptionGroup optNamePortion{
        *this,
        "optNamePortion",
        {"Prefix or     folder", "E&xtension    or folder", "En&tire Name     not path"}};
    TextBox txtAdd{*this, "txtAdd"};
    CheckBox chkAddBeg{*this, "chkAddBeg", "At the be&ginning"};
    CheckBox chkAddEnd{*this, "chkAddEnd", "At the &end", 1};
    Label lblAddBeg{*this, "lblAddBeg", "Text, then name"};
    Label lblAddEnd{*this, "lblAddEnd", "Name, then text"};

    // Names of a list.
    CheckBox chkWholeNames{*this, "chkWholeNames", "Whole &names, which may change places"};
    CommandButton cmdEditNames{*this, "cmdEditNames", "&Edit the Current Names..."};

    // Written files.
    CheckBox chkAddEOF{*this, "chkAddEOF", "Add &EOF", 1};
    CheckBox chkComments{*this, "chkComments", "Add pla&ylist comments.", 1};
    CheckBox chkRelative{*this, "chkRelative", "Paths relati&ve to the playlist"};
    CheckBox chkFindSimilar{*this, "chkFindSimilar", "&Get similar file names."};
    TextBox txtDeviation{*this, "txtDeviation", "400000"};

    Label lblStatus{*this, "lblStatus"};
    Label lblBusy{*this, "lblBusy", "Busy"};
    Label lblProgress{*this, "lblProgress"}; // objects, bytes, speed, time left
    ProgressBar prgBytes{*this, "prgBytes"};
    CommandButton cmdStop{*this, "cmdStop", "Stop", false};
    CommandButton cmdPreview{*this, "cmdPreview", "Previe&w..."};
    CommandButton OKButton{*this, "OKButton", "&OK"};
    CommandButton CancelButton{*this, "CancelButton", "Cancel"};
};

} // namespace tarvix::fields
