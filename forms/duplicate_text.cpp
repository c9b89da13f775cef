#include "forms/duplicate_text.h"

#include "fields/duplicate_question.h"
#include "forms/field_widgets.h"
#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <fmt/core.h>

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

// One line that is cut where it doesn't fit, so that a question is as high as the one before it.
ElidedLabel* Line(const QString& name, const std::string& text) {
    auto* label = new ElidedLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setText(Shown(text));
    return label;
}

void MakeBold(QLabel& label) {
    QFont font = label.font();
    font.setBold(true);
    label.setFont(font);
}

// A fact, and how it differs from that of the other object.
QWidget* Fact(const QString& name, const std::string& text, const std::string& note) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* fact = new QLabel(Shown(text));
    fact->setObjectName(name);
    fact->setTextFormat(Qt::PlainText);
    auto* word = new QLabel(Shown(note));
    word->setObjectName(name + "Note");
    MakeBold(*word);
    layout->addWidget(fact);
    layout->addWidget(word);
    layout->addStretch(1);
    return row;
}

std::string SizeOf(const fields::AskedObject& object) {
    if (!object.isFile) return "Folder";
    return object.size.empty() ? std::string("File") : fmt::format("{} bytes", object.size);
}

std::string ProgramOf(const fields::AskedObject& object) {
    if (object.version.empty()) return {};
    return fmt::format("Version {}{}{}", object.version, object.os.empty() ? "" : " for ",
                       object.os);
}

void AddSide(QGridLayout& grid, int column, const char* title, const QString& name,
             const fields::AskedObject& object) {
    grid.addWidget(Bold(title), 1, column);
    grid.addWidget(Line(name + "Folder", object.folder), 2, column);
    grid.addWidget(Line(name + "Name", object.name), 3, column);
    grid.addWidget(Fact(name + "Size", SizeOf(object), object.sizeNote), 4, column);
    grid.addWidget(Fact(name + "Date", object.date, object.dateNote), 5, column);
    grid.addWidget(Line(name + "Program", ProgramOf(object)), 6, column);
    grid.setColumnStretch(column, 1);
    grid.setColumnMinimumWidth(column, 100);
}

std::string RenameText(const fields::DuplicateQuestion& parts) {
    return parts.newName.empty() ? parts.rule
                                 : fmt::format("Renamed, this one would be {}", parts.newName);
}

// Both sides in step, the differences in words, always of the same height.
QWidget* MakeComparison(const fields::DuplicateQuestion& parts) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(24);
    auto* head = new QHBoxLayout;
    ElidedLabel* headline = Line("lblHeadline", parts.headline);
    MakeBold(*headline);
    auto* position = new QLabel(Shown(parts.position));
    position->setObjectName("lblPosition");
    head->addWidget(headline, 1);
    head->addWidget(position);
    grid->addLayout(head, 0, 0, 1, 2);
    AddSide(*grid, 0, "There", "lblThere", parts.existing);
    AddSide(*grid, 1, "This one", "lblHere", parts.thisOne);
    grid->addWidget(Line("lblContent", parts.content), 7, 0, 1, 2);
    grid->addWidget(Line("lblNewName", RenameText(parts)), 8, 0, 1, 2);
    grid->addWidget(Line("lblRest", parts.rest), 9, 0, 1, 2);
    grid->setRowStretch(10, 1);
    return panel;
}

} // namespace

QWidget* MakeDuplicateText(const fields::DuplicateQuestion& parts) {
    if (!parts.headline.empty()) return MakeComparison(parts);
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
