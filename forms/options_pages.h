#pragma once

#include <QList>

class QTreeWidget;
class QWidget;

namespace tarvix::fields {
class Control;
class FrmOptions;
} // namespace tarvix::fields

namespace tarvix::forms {

// The pages of the options window in their order; each scrolls where it is too high.
QList<QWidget*> MakeOptionPages(const fields::FrmOptions& form);

// The name of the button that resets the option of that control.
QString ResetNameOf(const fields::Control& control);

} // namespace tarvix::forms
