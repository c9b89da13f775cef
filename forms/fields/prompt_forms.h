#pragma once

#include "forms/fields/controls.h"

namespace tarvix::forms {

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

} // namespace tarvix::forms
