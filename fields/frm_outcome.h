#pragma once

#include "fields/controls.h"

#include <cstdint>
#include <vector>

namespace tarvix::fields {

// What an action has done, object by object, in the main window in place of the list. Whoever shows
// the objects keeps them.
class FrmOutcome : public Form {
  public:
    FrmOutcome() : Form("frmOutcome") { Caption = "What Was Done"; }
    Label lblMain{*this, "lblMain"}; // the counts
    ListView lstOutcome{*this, "lstOutcome"};
    CommandButton cmdShowThere{*this, "cmdShowThere", "Show There"};
    CommandButton cmdPutBack{*this, "cmdPutBack", "Put Back"};
    CommandButton cmdOpenTrash{*this, "cmdOpenTrash", "Open Trash"};
    CommandButton cmdSearchAgain{*this, "cmdSearchAgain", "Search Again"};
    CommandButton cmdSelectFailed{*this, "cmdSelectFailed", "Select the Failed"};
    CommandButton cmdClose{*this, "cmdClose", "Close"};
    // The objects that the user chose, by their numbers; with none the buttons stand for all that
    // they fit, and for the first that was placed.
    std::vector<std::uint32_t> chosen;
};

} // namespace tarvix::fields
