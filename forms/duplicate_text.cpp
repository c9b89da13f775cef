#include "forms/duplicate_text.h"

#include "forms/wrapping_label.h"

#include <QGridLayout>

namespace tarvix::forms {

namespace {

constexpr QStringView kReplace = u"Would you like to replace existing";
constexpr QStringView kWith = u"\n\nwith This One?\n\n";
constexpr QStringView kRule = u"\n\nRename rule:";

QLabel* Bold(const QString& text) {
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

WrappingLabel* Piece(const char* name, const QString& text) {
    auto* label = new WrappingLabel(text);
    label->setObjectName(name);
    return label;
}

} // namespace

std::optional<DuplicateText> CutDuplicateText(const QString& text) {
    const qsizetype replace = text.indexOf(kReplace);
    if (replace < 0) return std::nullopt;
    const qsizetype existing = replace + kReplace.size();
    const qsizetype with = text.indexOf(kWith, existing);
    const qsizetype rule = text.lastIndexOf(kRule);
    if (with < 0 || rule < with) return std::nullopt;
    const qsizetype thisOne = with + kWith.size();
    return DuplicateText{text.left(existing), text.mid(existing, with - existing).trimmed(),
                         text.mid(thisOne, rule - thisOne).trimmed(), text.mid(rule).trimmed()};
}

QWidget* MakeDuplicateText(const QString& text) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(18);
    const auto pieces = CutDuplicateText(text);
    if (!pieces) {
        grid->addWidget(Piece("lblText", text), 0, 0);
        return panel;
    }
    grid->addWidget(Piece("lblQuestion", pieces->question), 0, 0, 1, 2);
    grid->addWidget(Bold("Existing"), 1, 0);
    grid->addWidget(Bold("This one"), 1, 1);
    grid->addWidget(Piece("lblExisting", pieces->existing), 2, 0);
    grid->addWidget(Piece("lblThisOne", pieces->thisOne), 2, 1);
    grid->addWidget(Piece("lblRule", pieces->rule), 3, 0, 1, 2);
    grid->setRowStretch(3, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    return panel;
}

} // namespace tarvix::forms
