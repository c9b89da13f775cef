#include "forms/duplicate_text.h"

#include "fields/duplicate_question.h"
#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"

#include <QGridLayout>

namespace tarvix::forms {

namespace {

QLabel* Bold(const QString& text) {
    auto* label = new QLabel(text);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}

WrappingLabel* Piece(const char* name, std::string_view text) {
    auto* label = new WrappingLabel(Shown(text).trimmed());
    label->setObjectName(name);
    return label;
}

} // namespace

QWidget* MakeDuplicateText(const fields::DuplicateQuestion& parts) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(18);
    grid->addWidget(Piece("lblQuestion", parts.question), 0, 0, 1, 2);
    grid->addWidget(Bold("Existing"), 1, 0);
    grid->addWidget(Bold("This one"), 1, 1);
    grid->addWidget(Piece("lblExisting", fields::TextOf(parts.existing)), 2, 0);
    grid->addWidget(Piece("lblThisOne", fields::TextOf(parts.thisOne)), 2, 1);
    grid->addWidget(Piece("lblRule", parts.rule), 3, 0, 1, 2);
    grid->setRowStretch(3, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    return panel;
}

} // namespace tarvix::forms
