#include "forms/action_sections.h"

#include "forms/field_widgets.h"
#include "forms/flow_layout.h"
#include "forms/list_box.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {

// The widgets one behind the other, in more lines where there is no room.
QWidget* InFlow(const QList<QWidget*>& widgets) {
    auto* panel = new QWidget;
    auto* flow = new FlowLayout(14, 4);
    panel->setLayout(flow);
    for (QWidget* widget : widgets) {
        flow->addWidget(widget);
    }
    return panel;
}

QWidget* MakeOptions(const fields::OptionGroup& group) {
    QList<QWidget*> buttons;
    for (int i = 0; i < group.Count(); ++i) {
        buttons << Make(group[i]);
    }
    return InFlow(buttons);
}

QLabel* MakeTitle(const QString& text) {
    auto* title = new QLabel(text);
    title->setFixedWidth(title->fontMetrics().horizontalAdvance("Folder structure") + 12);
    title->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return title;
}

QWidget* MakeSection(QWidget* frame, const QString& title, const QList<QWidget*>& lines) {
    FillSection(*frame, title, lines);
    return frame;
}

// The box with a label in front that shows with it.
QWidget* Labelled(const QString& word, QWidget* box) {
    QLabel* label = LabelFor(word, box);
    FollowVisibility(*box, *label);
    return InRow({label, box});
}

QLineEdit* MakeEdit(const fields::TextBox& field, const QString& name, int characters) {
    QLineEdit* edit = Make(field);
    edit->setAccessibleName(name);
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * characters + 12);
    return edit;
}

QLineEdit* MakeNumber(const fields::TextBox& field, const QString& name, int digits) {
    QLineEdit* edit = MakeEdit(field, name, digits);
    edit->setMaximumWidth(edit->minimumWidth());
    return edit;
}

QWidget* MakeList(const fields::ListBox& field, const QString& head) {
    FieldListBox* list = Make(field);
    list->setAccessibleName(head);
    auto* label = LabelFor(head, list);
    label->setObjectName(ToQt(field.Name()) + "Head");
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    FollowVisibility(*list, *label);
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(label);
    column->addWidget(list);
    return panel;
}

QWidget* MakePathLists(const fields::FrmDialog& form) {
    auto* panel = new QWidget;
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(MakeList(form.filMultiPath, "Lists of locations (*.mpl)"), 1);
    row->addWidget(MakeList(form.lstMulti, "Locations"), 2);
    return panel;
}

QWidget* MakeLevels(const fields::FrmDialog& form) {
    QLabel* label = Make(form.lblFolderTree);
    QLineEdit* levels = MakeNumber(form.txtFolderTree, "Number of levels", 4);
    label->setBuddy(levels);
    return InFlow({label, levels, Make(form.chkFolderRename)});
}

} // namespace

void FillSection(QWidget& frame, const QString& title, const QList<QWidget*>& lines) {
    auto* row = new QHBoxLayout(&frame);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(MakeTitle(title), 0, Qt::AlignTop);
    auto* column = new QVBoxLayout;
    column->setSpacing(4);
    for (QWidget* line : lines) {
        column->addWidget(line);
    }
    row->addLayout(column, 1);
}

QWidget* MakeWhereSection(const fields::FrmDialog& form) {
    return MakeSection(new QWidget, "Where",
                       {MakeOptions(form.optTo), MakeLevels(form), MakePathLists(form)});
}

QWidget* MakeStructureSection(const fields::FrmDialog& form) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(1, 1);
    for (int i = 0; i < form.optStructure.Count(); ++i) {
        FieldRadioButton* button = Make(form.optStructure[i]);
        auto* example = new ElidedLabel;
        example->setObjectName(QString("lblExample(%1)").arg(i));
        example->setTextFormat(Qt::PlainText);
        example->setForegroundRole(QPalette::PlaceholderText);
        FollowVisibility(*button, *example);
        grid->addWidget(button, i, 0);
        grid->addWidget(example, i, 1);
    }
    return MakeSection(Make(form.fraStructure), PlainCaption(form.fraStructure.Caption.Get()),
                       {panel});
}

QWidget* MakeDuplicatesSection(const fields::FrmDialog& form) {
    QLabel* label = Make(form.lblRename);
    QLineEdit* edit = MakeEdit(form.txtRename, "Text that makes a duplicate's name unique", 8);
    edit->setMaximumWidth(edit->minimumWidth());
    label->setBuddy(edit);
    return MakeSection(Make(form.fraDuplicates), PlainCaption(form.fraDuplicates.Caption.Get()),
                       {InFlow({MakeChoice(form.chkAsk), MakeChoice(form.chkSkipAll),
                                MakeChoice(form.chkRename), MakeChoice(form.chkOverWrite)}),
                        InFlow({label, edit, MakeChoice(form.chkRenameBeg),
                                MakeChoice(form.chkRenameEnd), Make(form.chkPlus1)})});
}

QWidget* MakeRenameSection(const fields::FrmDialog& form) {
    auto* panel = new QWidget;
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(1, 1);
    grid->addWidget(MakeChoice(form.chkFindReplace), 0, 0);
    grid->addWidget(InRow({Labelled("Find", MakeEdit(form.txtFind, "Find", 12)),
                           Labelled("Replace with", MakeEdit(form.txtReplace, "Replace with", 12))},
                          14),
                    0, 1);
    grid->addWidget(MakeOptions(form.optOnceVsAll), 1, 1);
    grid->addWidget(MakeChoice(form.chkAdd), 2, 0);
    grid->addWidget(MakeEdit(form.txtAdd, "Text to insert", 12), 2, 1);
    grid->addWidget(InFlow({MakeChoice(form.chkAddBeg), MakeChoice(form.chkAddEnd),
                            Make(form.lblAddBeg), Make(form.lblAddEnd)}),
                    3, 1);
    grid->addWidget(new QLabel("Works on"), 4, 0, Qt::AlignTop);
    grid->addWidget(MakeOptions(form.optNamePortion), 4, 1);
    return MakeSection(Make(form.fraRenameOnly), PlainCaption(form.fraRenameOnly.Caption.Get()),
                       {panel});
}

QWidget* MakeFileSection(const fields::FrmDialog& form) {
    return MakeSection(new QWidget, "File",
                       {InFlow({Make(form.chkAddEOF), Make(form.chkComments),
                                Make(form.chkRelative), Make(form.chkFindSimilar),
                                Labelled("Size Deviation:",
                                         MakeNumber(form.txtDeviation, "Size Deviation", 12))})});
}

QWidget* MakeNamesSection(const fields::FrmDialog& form) {
    QPushButton* edit = Make(form.cmdEditNames);
    edit->setAutoDefault(true); // Enter presses it, not OK
    return MakeSection(new QWidget, "List", {InFlow({Make(form.chkWholeNames), edit})});
}

} // namespace tarvix::forms
