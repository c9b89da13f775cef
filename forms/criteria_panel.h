#pragma once

#include "fields/frm_search.h"

class QWidget;

namespace tarvix::forms {

// What to look for and where: the upper part of the main window.
QWidget* MakeCriteriaPanel(const fields::FrmSearch& form);

} // namespace tarvix::forms
