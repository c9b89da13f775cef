#pragma once

#include "fields/frm_dialog.h"

#include <QList>
#include <QString>

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
// Makes a widget such a part, of its title and these lines.
void FillSection(QWidget& frame, const QString& title, const QList<QWidget*>& lines);

} // namespace tarvix::forms
