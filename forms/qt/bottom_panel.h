#pragma once

#include "forms/fields/frm_search.h"

class QWidget;

namespace tarvix::qt {

class ElidedLabel;

// Selection and actions on it: the row below the list.
QWidget* MakeActionBar(const forms::FrmSearch& form);

// "Found 1,204 of 240,113 files ... selected ... groups".
QWidget* MakeCounterBar(const forms::FrmSearch& form);

// What goes on, and in which folder. Holds "barBusy", shown by the window while something runs, and
// "lblNativePath", the current row's path for other programs.
QWidget* MakeStatusBar(const forms::FrmSearch& form);

} // namespace tarvix::qt
