#include "forms/link_table_window.h"

#include "forms/field_widgets.h"
#include "forms/link_table_model.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"
#include "session/session.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QScreen>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {

constexpr int kCharacters = 170;
constexpr int kCellCharacters = 28;

QPushButton* Button(const QString& text, const QString& name, const QString& tip) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

QLineEdit* Box(const QString& name, const QString& hint) {
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setClearButtonEnabled(true);
    box->setPlaceholderText(hint);
    box->setAccessibleName(hint);
    return box;
}

} // namespace

LinkTableWindow::LinkTableWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmLinkTable, parent),
      model_(new LinkTableModel(session.forms.frmLinkTable.rows, session.forms.frmLinkTable.first,
                                this)) {
    auto* column = new QVBoxLayout(this);
    auto* head = new WrappingLabel;
    head->setObjectName(ToQt(session.forms.frmLinkTable.lblMain.Name()));
    table_ = MakeTable();
    column->addWidget(head);
    column->addWidget(MakeReplaceRow());
    column->addWidget(table_, 1);
    column->addWidget(MakeButtons());
    BindFields();
    TakeSize(kCharacters);
    resize(width(), screen()->availableSize().height() * 3 / 4);
    ShowCount({});
    table_->setFocus();
}

QWidget* LinkTableWindow::MakeReplaceRow() {
    find_ = Box("txtFind", "Find");
    with_ = Box("txtReplace", "Replace with");
    pattern_ = new QCheckBox("&Pattern");
    pattern_->setObjectName("chkPattern");
    pattern_->setToolTip("The whole value must fit: * is any run, ? one character.\n"
                         "The runs stand in the replacement in their order.");
    case_ = new QCheckBox("&Match case");
    case_->setObjectName("chkMatchCase");
    auto* replace = Button("&Replace All", "cmdReplace",
                           "In the selected cells, or in all where no more than one is selected.");
    connect(replace, &QPushButton::clicked, this, [this] { ReplaceAll(); });
    connect(with_, &QLineEdit::returnPressed, this, [this] { ReplaceAll(); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, find_,
            [this] { find_->setFocus(Qt::ShortcutFocusReason); });
    QWidget* row = InRow({LabelFor("&Find", find_), find_, LabelFor("Replace &with", with_), with_,
                          pattern_, case_, replace});
    auto* layout = static_cast<QHBoxLayout*>(row->layout());
    layout->setStretch(1, 1);
    layout->setStretch(3, 1);
    return row;
}

QTableView* LinkTableWindow::MakeTable() {
    auto* table = new QTableView;
    table->setObjectName(ToQt(session_.forms.frmLinkTable.lstLinks.Name()));
    table->setAccessibleName("Values of the shortcuts");
    table->setModel(model_);
    table->setAlternatingRowColors(true);
    table->setWordWrap(false);
    table->setTextElideMode(Qt::ElideMiddle);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 5);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setDefaultSectionSize(fontMetrics().averageCharWidth() *
                                                     kCellCharacters);
    connect(model_, &QAbstractItemModel::dataChanged, this, [this] { ShowCount({}); });
    return table;
}

QWidget* LinkTableWindow::MakeButtons() {
    const auto& form = session_.forms.frmLinkTable;
    auto* fill = Button("Fill &Down", "cmdFillDown",
                        "Gives the selected cells of a column the value of the upper one.");
    fill->setShortcut(QKeySequence("Ctrl+D"));
    auto* restore = Button("R&estore", "cmdRestore", "Gives the selected cells their old values.");
    connect(fill, &QPushButton::clicked, this,
            [this] { model_->FillDown(table_->selectionModel()->selectedIndexes()); });
    connect(restore, &QPushButton::clicked, this,
            [this] { model_->Restore(table_->selectionModel()->selectedIndexes()); });
    count_ = new QLabel;
    count_->setObjectName("lblCount");
    QPushButton* save = Make(form.cmdOK);
    QPushButton* cancel = Make(form.cmdCancel);
    save->setAutoDefault(false);
    cancel->setAutoDefault(false);
    QWidget* row = InRow({fill, restore, count_, save, cancel});
    static_cast<QHBoxLayout*>(row->layout())->setStretch(2, 1);
    return row;
}

QModelIndexList LinkTableWindow::ChosenCells() const {
    QModelIndexList cells = table_->selectionModel()->selectedIndexes();
    if (cells.size() > 1) return cells;
    cells.clear();
    for (int row = 0; row < model_->rowCount(); ++row) {
        for (int column = 0; column < model_->columnCount(); ++column) {
            cells << model_->index(row, column);
        }
    }
    return cells;
}

void LinkTableWindow::ReplaceAll() {
    const shortcuts::Replacement replacement{.find = ToUtf8(find_->text()),
                                             .with = ToUtf8(with_->text()),
                                             .isPattern = pattern_->isChecked(),
                                             .matchesCase = case_->isChecked()};
    const int count = model_->Replace(ChosenCells(), replacement);
    ShowCount(count == 0 ? QString("Nothing was found.")
                         : QString("%1 values replaced.").arg(count));
}

void LinkTableWindow::ShowCount(const QString& done) {
    const int changed = model_->ChangedCells();
    const QString differ = changed == 0   ? QString("Nothing is changed.")
                           : changed == 1 ? QString("1 value is changed.")
                                          : QString("%1 values are changed.").arg(changed);
    if (count_ != nullptr) count_->setText(done.isEmpty() ? differ : done + " " + differ);
}

} // namespace tarvix::forms
