#pragma once

#include "forms/fields/controls.h"

namespace tarvix::forms {

// The action window: one request for the whole selection.
class FrmDialog : public Form {
  public:
    FrmDialog() : Form("frmDialog") { Caption = "Action Form"; }

    Label lblMain{*this, "lblMain"};
    ComboBox cmbDir{*this, "cmbDir"};
    CommandButton cmdBrowse{*this, "cmdBrowse", "&Browse..."};
    OptionGroup optTo{*this, "optTo", {"One &Location"}};
    OptionGroup optStructure{*this, "optStructure", {"&None"}};
    CheckBox chkSkipAll{*this, "chkSkipAll", "&Skip duplicates", 1};
    Label lblStatus{*this, "lblStatus"};
    Label lblBusy{*this, "lblBusy", "Busy"};
    ProgressBar prgBytes{*this, "prgBytes"};
    CommandButton cmdStop{*this, "cmdStop", "Sto&p", false};
    CommandButton OKButton{*this, "OKButton", "&OK"};
    CommandButton CancelButton{*this, "CancelButton", "&Cancel"};
};

} // namespace tarvix::forms
