#include "forms/attribute_box.h"

#include "forms/field_showers.h"
#include "forms/outline_style.h"
#include "forms/text_conversion.h"

#include <utility>

namespace tarvix::forms {

AttributeBox::AttributeBox(const fields::CheckBox& field, QString meaning)
    : meaning_(std::move(meaning)) {
    setObjectName(ToQt(field.Name()));
    setTristate(true);
    setProperty(kSignsProperty, true);
    setProperty(kOwnTipProperty, true);
    connect(this, &QCheckBox::stateChanged, this, [this] { TellState(); });
    TellState();
}

QString AttributeBox::Next() const {
    switch (checkState()) {
    case Qt::Unchecked:
        return "2";
    case Qt::PartiallyChecked:
        return "1";
    case Qt::Checked:
        break;
    }
    return "0";
}

void AttributeBox::TellState() {
    const QString state = checkState() == Qt::Unchecked ? "are not found"
                          : checkState() == Qt::Checked ? "alone are found"
                                                        : "are found, too";
    setAccessibleDescription(QString("%1 %2").arg(meaning_, state));
    setToolTip(
        QString("%1 %2.\nCross: none of them. Dash: any. Tick: only they.").arg(meaning_, state));
}

} // namespace tarvix::forms
