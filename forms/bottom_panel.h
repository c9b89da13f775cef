#pragma once

#include "fields/frm_search.h"

class QWidget;

namespace tarvix::forms {

class ElidedLabel;

// Selection and actions on it: the row below the list.
QWidget* MakeActionBar(const fields::FrmSearch& form);

// What a loaded playlist holds and what acts on it; shown only with one.
QWidget* MakePlayListBanner(const fields::FrmSearch& form);

// "Found 1,204 of 240,113 files ... selected ... groups".
QWidget* MakeCounterBar(const fields::FrmSearch& form);

// What goes on, and in which folder. Holds "barBusy", shown by the window while something runs, and
// "lblNativePath", the current row's path for other programs.
QWidget* MakeStatusBar(const fields::FrmSearch& form);

} // namespace tarvix::forms
