#pragma once

#include "fields/controls.h"

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::fields {

// Check boxes of one name, "chkList(3)". An index lies between First and Last.
class CheckArray {
  public:
    CheckArray(Form& form, const std::string& name, int first,
               const std::vector<std::string>& captions);
    CheckArray(const CheckArray&) = delete;
    CheckArray& operator=(const CheckArray&) = delete;
    CheckBox& operator[](int index) { return *boxes_[static_cast<std::size_t>(index - first_)]; }
    const CheckBox& operator[](int index) const {
        return *boxes_[static_cast<std::size_t>(index - first_)];
    }
    int First() const { return first_; }
    int Last() const { return first_ + static_cast<int>(boxes_.size()) - 1; }

  private:
    int first_;
    std::vector<std::unique_ptr<CheckBox>> boxes_;
};

// The pages of `tbsOptions`, in their order.
enum OptionPage : int {
    kGeneralPage,
    kDefaultsPage,
    kListPage,
    kSortPage,
    kSystemHiddenPage,
    kLoggingPage,
    kLinksPage,
    kWebPage,
    kMachinePage,
    kPageCount,
};

// A place that is offered to a search: one folder, or several with "|" between them.
struct OfferedFolder {
    std::string folder; // drive path, variables as they were typed
    std::string title;
    bool operator==(const OfferedFolder&) const = default;
};

// A setting of this machine by its key: "txtEditor", or "cmbPathForm" where its values are few.
struct MachineField {
    std::string key;
    std::unique_ptr<Control> control; // a TextBox or a ComboBox
};

// The editor of all options. What is entered counts from OK or Apply on.
class FrmOptions : public Form {
  public:
    FrmOptions();

    // The search over all options: the lines of those that fit, and the control of each.
    TextBox txtFind{*this, "txtFind"};
    ListBox lstFound{*this, "lstFound"};
    std::vector<Control*> found;
    ListBox tbsOptions{*this, "tbsOptions"};
    std::array<Frame, kPageCount> pages;
    Label lblActive{*this, "lblActive"}; // while a search runs
    int Page() const;                    // the chosen one

    // General.
    CheckBox chkAllowAll{*this, "chkAllowAll", "E&xpert Mode"};
    CheckBox chkAllowUserSelectSubfolders{*this, "chkAllowUserSelectSubfolders",
                                          "Allow 'Include subfolders' to be selected"};
    CheckBox chkDefaultToIncludeSubfolders{*this, "chkDefaultToIncludeSubfolders",
                                           "Include subfolders at the start"};
    CheckBox chkAutoOptions{*this, "chkAutoOptions", "Automatic options"};
    CheckBox chkSkipNTFS{*this, "chkSkipNTFS", "Skip security access warnings."};
    CheckBox chkSaveAtClose{*this, "chkSaveAtClose", "Save options at close", 1};
    CheckBox chkIncludeNameInCopyToTextFile{*this, "chkIncludeNameInCopyToTextFile",
                                            "Include names in lists of full paths", 1};

    // Defaults at open.
    OptionGroup optFilesVsDirs{*this,
                               "optFilesVsDirs",
                               {"Files", "Empty files", "All Objects", "Folders", "Empty folders"}};
    OptionGroup optDefSearchFolder;
    TextBox txtDefFolder{*this, "txtDefFolder"};
    TextBox txtDefFolderTitle{*this, "txtDefFolderTitle"};
    Label lblDefFolder{*this, "lblDefFolder",
                       "Type in name for the search folder, will be displayed in brackets in drop "
                       "down list. (Title required to use.)"};
    CommandButton cmdBrowse{*this, "cmdBrowse", "&Browse..."};
    Frame fraAttribDef{*this, "fraAttribDef", "Attributes"};
    OptionGroup optAttribDef{
        *this,
        "optAttribDef",
        {"Find all attributes.", "Read-Only and Archived", "Archived (safest)"},
        2};
    Frame fraAttribDefExpert{*this, "fraAttribDefExpert", "Attributes, one by one (Expert Mode)"};
    CheckBox chkReadOnly{*this, "chkReadOnly", "Read Only", 0, true};
    CheckBox chkArchive{*this, "chkArchive", "Archived", 2, true};
    CheckBox chkSystem{*this, "chkSystem", "System", 0, true};
    CheckBox chkHidden{*this, "chkHidden", "Hidden", 0, true};
    CheckBox chk64{*this, "chk64", "64", 0, true};
    CheckBox chk128{*this, "chk128", "128", 0, true};
    CheckBox chk256{*this, "chk256", "256", 0, true};
    CheckBox chk512{*this, "chk512", "512", 0, true};
    CheckBox chkAlias{*this, "chkAlias", "Alias", 0, true};
    CheckBox chkCompressed{*this, "chkCompressed", "Compress", 0, true};
    std::vector<OfferedFolder> folders; // one for each of optDefSearchFolder

    // List.
    CheckArray chkList; // by column index, from 1
    OptionGroup optQuickList;
    CheckBox chkLockColumnWidths{*this, "chkLockColumnWidths", "Lock column widths"};
    CheckBox chkNoColumnWarning{*this, "chkNoColumnWarning", "No warning about added columns"};
    CheckBox chkNoContextMenuWarning{*this, "chkNoContextMenuWarning",
                                     "No warning before the context menu"};
    CheckBox chkFastSearch{*this, "chkFastSearch",
                           "List an object once for each pattern that finds it (fast search)"};
    Label lblColumnNote{*this, "lblColumnNote"}; // what the columns now checked cost or lack

    // Sort, by column index.
    OptionGroup optSortBy;
    CheckBox chkDesc{*this, "chkDesc", "Descending"};

    // System and hidden objects, for this run alone.
    CheckBox chkAllowMove{*this, "chkAllowMove", "Move them too (else they are copied only)"};
    CheckBox chkAllowOverwrite{*this, "chkAllowOverwrite", "Overwrite them without asking"};
    CheckBox chkAllowDelete{*this, "chkAllowDelete", "Delete them without asking"};
    Label lblSystemHidden{*this, "lblSystemHidden",
                          "These options are NOT saved. Without them such objects are copied where "
                          "they would be moved, and you are asked before one is overwritten or "
                          "deleted."};

    // Logging and automatic mode.
    CheckBox chkErrorLog{*this, "chkErrorLog", "Error log", 1};
    CheckBox chkFileLog{*this, "chkFileLog", "Action log"};
    CheckBox chkAutoMode{*this, "chkAutoMode", "Automatic mode: no questions, the safe answer"};
    CheckBox chkAllowAutoModeSystemHidden{
        *this, "chkAllowAutoModeSystemHidden",
        "Let automatic mode answer for system and hidden objects"};
    CheckArray chkAutoPara;
    Label lblAutoPara{*this, "lblAutoPara",
                      "These options are NOT saved it will always default to 'None'.  It will stay "
                      "as you set it until you close the program."};

    // Variables that paths are folded into: a selected line is one that is used.
    ListBox lstMain{*this, "lstMain", true};
    std::vector<std::string> variablePaths; // of each line, drive paths
    CheckBox chkAutoEnvVar{*this, "chkAutoEnvVar", "Show paths of shortcuts with variables"};
    Label lblAutoEnvVar{*this, "lblAutoEnvVar",
                        "Will convert in display only still must be saved to change the actual "
                        "link file."};
    CheckBox chkRemoveEnvVar{*this, "chkRemoveEnvVar",
                             "Remove all environment variables from Working Dir and Icon Path"};
    CommandButton cmdRebuildEnvVar{*this, "cmdRebuildEnvVar", "Re&build"};

    // Pages in turn.
    TextBox txtDefTime{*this, "txtDefTime"};
    ComboBox cmbDefSize{*this, "cmbDefSize", false};
    CheckBox chkAskTime{*this, "chkAskTime", "Ask for the time at each start"};
    CheckBox chkAskSize{*this, "chkAskSize", "Ask for the size at each start"};

    // This machine. The fields of its settings are made when the form opens for the first time.
    std::vector<MachineField> machine;
    MachineField& AddMachineField(std::string_view key, std::string_view choices);
    ListBox lstDrives{*this, "lstDrives"};
    ComboBox cmbDriveLetter{*this, "cmbDriveLetter", false};
    TextBox txtDriveFolder{*this, "txtDriveFolder"};
    CommandButton cmdBrowseDrive{*this, "cmdBrowseDrive", "Bro&wse..."};
    Label lblDrives{*this, "lblDrives"};
    std::map<char, std::string> drives; // by letter, absolute native folders

    Label lblChanged{*this, "lblChanged"}; // how many options aren't as at first
    CommandButton cmdReset{*this, "cmdReset", "&Reset Page"};
    CommandButton cmdOK{*this, "cmdOK", "&OK"};
    CommandButton cmdApply{*this, "cmdApply", "&Apply"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};

    // The same form with every option as at first, while the form is open.
    std::unique_ptr<FrmOptions> usual;
};

} // namespace tarvix::fields
