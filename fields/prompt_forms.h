#pragma once

#include "fields/controls.h"
#include "fields/duplicate_question.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tarvix::fields {

// A modal notice: a text and one button that hides it.
class NoticeForm : public Form {
  public:
    explicit NoticeForm(std::string name) : Form(std::move(name)) {}
    Label lblMain{*this, "lblMain"};
    CommandButton cmdOK{*this, "cmdOK", "&OK"};
};

// A name with a character that can't be shown.
class FrmForChar : public NoticeForm {
  public:
    FrmForChar() : NoticeForm("frmForChar") {}
};

// A name that ends in a blank.
class FrmTrailingSp : public NoticeForm {
  public:
    FrmTrailingSp() : NoticeForm("frmTrailingSp") {}
};

// A folder that only stands in for another one.
class FrmAllUsers : public NoticeForm {
  public:
    FrmAllUsers() : NoticeForm("frmAllUsers") {}
};

// How far a long rearrangement of the list is; shown beside the main window, not over it.
class FrmProgress : public Form {
  public:
    FrmProgress() : Form("frmProgress") {}
    Label lblMain{*this, "lblMain"};
    ProgressBar prgMain{*this, "prgMain"};
};

// One moment, or two for a range. The end pickers show only for a range.
class FrmSelectDate : public Form {
  public:
    FrmSelectDate() : Form("frmSelectDate") { Caption = "Select Date"; }
    Label lblMain{*this, "lblMain"};
    DatePicker dtpStartDate{*this, "dtpStartDate", false};
    DatePicker dtpStartTime{*this, "dtpStartTime", true};
    DatePicker dtpEndDate{*this, "dtpEndDate", false};
    DatePicker dtpEndTime{*this, "dtpEndTime", true};
    CommandButton cmdOK{*this, "cmdOK", "&OK"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
};

// What to do with an object whose new place is taken.
class FrmAsk : public Form {
  public:
    FrmAsk() : Form("frmAsk") { Caption = "Skip, Replace or  Rename Duplicates?"; }
    std::uint8_t Answer = 0; // of the button that was pressed last
    Label lblMain{*this, "lblMain"};
    CommandButton cmdSkip{*this, "cmdSkip", "&Skip this duplicate only."};
    CommandButton cmdOverwrite{*this, "cmdOverwrite", "&OverWrite this duplicate only."};
    CommandButton cmdRename{*this, "cmdRename", "&Rename this duplicate only."};
    CommandButton cmdSkipAll{*this, "cmdSkipAll", "S&kip all duplicates."};
    CommandButton cmdOverwriteAll{*this, "cmdOverwriteAll", "O&verWrite all duplicates."};
    CommandButton cmdRenameAll{*this, "cmdRenameAll", "R&ename all duplicates."};
    CommandButton cmdCancel{*this, "cmdCancel",
                            "&Cancel   (the action for objects not yet processed)."};
    CommandButton cmdDeleteReplace{*this, "cmdDeleteReplace",
                                   "Rec&ycle this duplicate folder and contents, then replace."};
    CommandButton cmdDeleteReplaceAll{*this, "cmdDeleteReplaceAll",
                                      "Recyc&le all duplicate folders and contents, then replace."};
    DuplicateQuestion parts; // of lblMain; changed only while the form is hidden
};

// What to do with an object whose path has grown too long.
class FrmAsk259 : public Form {
  public:
    FrmAsk259() : Form("frmAsk259") {
        Caption = "Skip or Continue with objects exceeding 259 characters in their path.";
    }
    Label lblMain{*this, "lblMain"};
    Label lblNote{*this, "lblNote",
                  "Some applications may not be able to work with files so deep in the folder "
                  "structure."};
    CommandButton cmdSkip{*this, "cmdSkip", "&Skip this object only."};
    CommandButton cmdContinue{*this, "cmdContinue", "C&ontinue with this object only."};
    CommandButton cmdSkipAll{*this, "cmdSkipAll",
                             "S&kip all object paths exceeding 259 characters."};
    CommandButton cmdContinueAll{*this, "cmdContinueAll",
                                 "Co&ntinue all object paths exceeding 259 characters."};
    CommandButton cmdCancel{*this, "cmdCancel",
                            "&Cancel   (the action for objects not yet processed)."};
};

// No and yes, each for one object or for all that follow, and a way out.
class OverrideForm : public Form {
  public:
    OverrideForm(std::string name, std::string title) : Form(std::move(name)) {
        Caption = std::move(title);
    }
    std::uint8_t Answer = 0; // of the button that was pressed last
    Label lblMain{*this, "lblMain"};
    CommandButton cmdNo{*this, "cmdNo", "&No"};
    CommandButton cmdYes{*this, "cmdYes", "&Yes"};
    CommandButton cmdNoToAll{*this, "cmdNoToAll", "N&o to all"};
    CommandButton cmdYesToAll{*this, "cmdYesToAll", "Y&esToAll"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
};

// A system or hidden object is about to be overwritten or deleted.
class FrmOverrideDialog : public OverrideForm {
  public:
    FrmOverrideDialog() : OverrideForm("frmOverrideDialog", "Override System/Hidden Exclusion?") {}
};

// An object would not go to the recycle bin.
class FrmOverrideRecycleFail : public OverrideForm {
  public:
    FrmOverrideRecycleFail()
        : OverrideForm("frmOverrideRecycleFail", "Override Recycle Failure?") {}
};

// What a search could not read, a line each.
class FrmUnread : public Form {
  public:
    FrmUnread() : Form("frmUnread") { Caption = "Not Read"; }
    Label lblMain{*this, "lblMain"};
    ListBox lstUnread{*this, "lstUnread"};
    CommandButton cmdOK{*this, "cmdOK", "&Close"};
};

// The action logs of the runs, the newest first.
class FrmRuns : public Form {
  public:
    FrmRuns() : Form("frmRuns") { Caption = "Logs of Runs"; }
    Label lblMain{*this, "lblMain"};
    ListBox lstRuns{*this, "lstRuns"};
    CommandButton cmdView{*this, "cmdView", "&View"};
    CommandButton cmdRecycle{*this, "cmdRecycle", "Move to &Trash"};
    CommandButton cmdOK{*this, "cmdOK", "&Close"};
};

// What a first start tells, in one window.
class FrmWelcome : public Form {
  public:
    FrmWelcome() : Form("frmWelcome") { Caption = "Welcome to Tarvix"; }
    bool ReadsGuide = false; // the button that was pressed last
    Label lblMain{*this, "lblMain"};
    CommandButton cmdGuide{*this, "cmdGuide", "&Read the guide"};
    CommandButton cmdOK{*this, "cmdOK", "&Start"};
};

// One line of a batch: what it looks for, where that goes, and what it finds or has done.
struct BatchRow {
    std::string search;
    std::string destination;
    std::string folder; // whether it stands there
    std::int64_t matches = 0;
    std::string result;
};

// A batch line by line: before it starts, with `cmdOK` to start it, or after it has ended.
class FrmBatch : public Form {
  public:
    FrmBatch() : Form("frmBatch") {}
    bool isDone = false; // else it is about to start
    bool starts = false; // the answer
    Label lblMain{*this, "lblMain"};
    ListView lstBatch{*this, "lstBatch"};
    CommandButton cmdOK{*this, "cmdOK", "&Start"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
    std::vector<BatchRow> rows; // changed only while the form is hidden
};

// One object of a preview: where it is, where it would be, and what would happen to it.
struct PreviewRow {
    std::string object;
    std::string newPath;
    std::string verdict;
};

// What the action would do, object by object.
class FrmPreview : public Form {
  public:
    FrmPreview() : Form("frmPreview") { Caption = "Preview"; }
    Label lblMain{*this, "lblMain"}; // the counts by verdict
    ListView lstPreview{*this, "lstPreview"};
    CommandButton cmdOK{*this, "cmdOK", "&Close"};
    std::vector<PreviewRow> rows; // changed only while the form is hidden
};

// The lines of a numeric increment, in one window in place of a question for each part.
class FrmNumbers : public Form {
  public:
    FrmNumbers() : Form("frmNumbers") { Caption = "Numeric Increment"; }
    bool Accepted = false; // closed by OK
    TextBox txtStart{*this, "txtStart", "1"};
    TextBox txtEnd{*this, "txtEnd", "100"};
    CheckBox chkSameLength{*this, "chkSameLength", "Numbers of the same &length", 1};
    TextBox txtFormat{*this, "txtFormat", "000#"};
    TextBox txtLine{*this, "txtLine"};
    Label lblMain{*this, "lblMain"}; // how many lines there will be, or what is wrong
    ListBox lstFirstLines{*this, "lstFirstLines"};
    CommandButton cmdOK{*this, "cmdOK", "&OK"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
};

// What editing shortcuts in bulk means, before it begins.
class FrmShortcutWarning : public Form {
  public:
    FrmShortcutWarning() : Form("frmShortcutWarning") {
        Caption = "Edit Links (shortcuts) in Bulk";
    }
    std::uint8_t Answer = 0; // of the button that was pressed last
    Label lblTop{*this, "lblTop"};
    Label lblBottom{*this, "lblBottom"};
    CommandButton cmdOk{*this, "cmdOk", "&OK"};
    CommandButton cmdTable{*this, "cmdTable", "Edit in a &Table"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
};

// What a save would change in shortcuts, a line for each value.
class FrmLinkChanges : public Form {
  public:
    FrmLinkChanges() : Form("frmLinkChanges") { Caption = "Save Targets"; }
    bool isConfirmed = false;
    Label lblMain{*this, "lblMain"};
    ListBox lstChanges{*this, "lstChanges"};
    CommandButton cmdOK{*this, "cmdOK", "&Save"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
};

// The values of shortcuts in a table. A row has those of one shortcut; what its kind lacks is not
// to be edited.
struct LinkRow {
    std::string name;
    std::vector<std::string> values; // in the order of their columns
    std::vector<bool> isEditable;    // the same
};

class FrmLinkTable : public Form {
  public:
    FrmLinkTable() : Form("frmLinkTable") { Caption = "Edit Links (shortcuts)"; }
    bool isConfirmed = false;
    Label lblMain{*this, "lblMain"};
    ListView lstLinks{*this, "lstLinks"};
    CommandButton cmdOK{*this, "cmdOK", "Save &Targets"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
    std::vector<LinkRow> rows;
    std::vector<LinkRow> first; // as they were before anything was edited
};

} // namespace tarvix::fields
