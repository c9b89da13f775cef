#pragma once

#include "fields/frm_dialog.h"

class QWidget;

namespace tarvix::forms {

// The parts of the action window, each a title with its choices beside it. What is hidden takes no
// room.
QWidget* MakeWhereSection(const fields::FrmDialog& form);
// Each structure with an example behind it, a label named "lblExample(0)" and so on.
QWidget* MakeStructureSection(const fields::FrmDialog& form);
QWidget* MakeDuplicatesSection(const fields::FrmDialog& form);
QWidget* MakeRenameSection(const fields::FrmDialog& form);
QWidget* MakeFileSection(const fields::FrmDialog& form);
QWidget* MakeNamesSection(const fields::FrmDialog& form);
// Around the widget that shows the first lines that would be written, and what they leave out.
QWidget* MakeLinesSection(QWidget& lines, QWidget& note);

} // namespace tarvix::forms
