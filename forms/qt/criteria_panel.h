#pragma once

#include "forms/fields/frm_search.h"

class QWidget;

namespace tarvix::qt {

// What to look for and where: the upper part of the main window.
QWidget* MakeCriteriaPanel(const forms::FrmSearch& form);

} // namespace tarvix::qt
