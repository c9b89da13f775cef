#pragma once

#include "fields/controls.h"
#include "fields/menu_items.h"

#include <vector>

namespace tarvix::fields {

// The menu of the selected objects. Who draws it goes by `items`; `lstMenu` has the same entries as
// lines, "Open With/Image Viewer", those that can't be chosen left out.
class FrmContextMenu : public Form {
  public:
    FrmContextMenu() : Form("frmContextMenu") { Caption = "Menu"; }
    int chosen = -1; // the id of the entry; -1 when the menu was left
    ListBox lstMenu{*this, "lstMenu"};
    CommandButton cmdOK{*this, "cmdOK", "&OK"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
    std::vector<MenuItem> items;  // changed only while the form is hidden
    std::vector<int> listedItems; // the ids behind the lines
};

// All applications, to open the selected objects with one of them.
class FrmOpenWith : public Form {
  public:
    FrmOpenWith() : Form("frmOpenWith") { Caption = "Open With"; }
    bool isChosen = false; // closed by Open
    Label lblMain{*this, "lblMain"};
    TextBox txtFind{*this, "txtFind"}; // narrows the list
    ListBox lstApplications{*this, "lstApplications"};
    CommandButton cmdOK{*this, "cmdOK", "&Open"};
    CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
};

} // namespace tarvix::fields
