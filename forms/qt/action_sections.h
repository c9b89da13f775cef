#pragma once

#include "forms/fields/frm_dialog.h"

class QWidget;

namespace tarvix::qt {

// The parts of the action window, each a title with its choices beside it. What is hidden takes no
// room.
QWidget* MakeWhereSection(const forms::FrmDialog& form);
// Each structure with an example behind it, a label named "lblExample(0)" and so on.
QWidget* MakeStructureSection(const forms::FrmDialog& form);
QWidget* MakeDuplicatesSection(const forms::FrmDialog& form);
QWidget* MakeRenameSection(const forms::FrmDialog& form);
QWidget* MakeFileSection(const forms::FrmDialog& form);

} // namespace tarvix::qt
