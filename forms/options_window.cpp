#include "forms/options_window.h"

#include "forms/field_widgets.h"
#include "forms/list_box.h"
#include "forms/options_pages.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "options/find_options.h"
#include "options/option_table.h"
#include "session/session.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {

constexpr QSize kSize(776, 504); // with its frame within 800 by 549
constexpr int kSidebar = 150;

} // namespace

OptionsWindow::OptionsWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmOptions, parent) {
    stack_ = new QStackedWidget;
    for (QWidget* page : MakeOptionPages(Form())) {
        stack_->addWidget(page);
    }
    FieldListBox* found = Make(Form().lstFound);
    found->setAccessibleName("Options that were found");
    found->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    stack_->addWidget(found);
    auto* right = new QVBoxLayout;
    right->addWidget(Make(Form().lblActive));
    right->addWidget(stack_, 1);
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(MakeSidebar());
    row->addLayout(right, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row, 1);
    column->addWidget(MakeButtons());
    variables_ = findChild<QTreeWidget*>(ToQt(Form().lstMain.Name()));
    OfferResets();
    BindFields();
    connect(variables_, &QTreeWidget::itemChanged, this,
            [this](QTreeWidgetItem* item) { binder_->Set(Form().lstMain, item->text(0)); });
    resize(kSize);
}

fields::FrmOptions& OptionsWindow::Form() const {
    return session_.forms.frmOptions;
}

QWidget* OptionsWindow::MakeSidebar() {
    QLineEdit* find = Make(Form().txtFind);
    find->setPlaceholderText("Search options");
    find->setAccessibleName("Search options");
    find->setClearButtonEnabled(true);
    find->installEventFilter(this);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [find] {
        find->setFocus(Qt::ShortcutFocusReason);
        find->selectAll();
    });
    FieldListBox* pages = Make(Form().tbsOptions);
    pages->setAccessibleName("Pages");
    pages->setSpacing(2);
    pages->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(pages, &QListWidget::currentRowChanged, this, [this, pages](int row) {
        if (row >= 0 && row != Form().Page() && pages->onChoose) pages->onChoose(row);
    });
    auto* bar = new QWidget;
    bar->setFixedWidth(std::max(kSidebar, fontMetrics().averageCharWidth() * 21));
    auto* column = new QVBoxLayout(bar);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(find);
    column->addWidget(pages, 1);
    return bar;
}

QWidget* OptionsWindow::MakeButtons() {
    QPushButton* ok = Make(Form().cmdOK);
    auto* row = InRow({Make(Form().lblChanged), Make(Form().cmdReset), ok, Make(Form().cmdApply),
                       Make(Form().cmdCancel)});
    static_cast<QHBoxLayout*>(row->layout())->setStretch(0, 1);
    ok->setDefault(true);
    return row;
}

void OptionsWindow::OfferResets() {
    for (fields::Control* control : Form().Controls()) {
        if (!options::IsOption(Form(), *control)) continue;
        auto* widget = findChild<QWidget*>(ToQt(control->Name()));
        if (widget != nullptr) OfferReset(*control, *widget);
    }
}

void OptionsWindow::OfferReset(fields::Control& control, QWidget& widget) {
    auto* reset = findChild<QToolButton*>(ResetNameOf(control));
    marked_ << Marked{&control, &widget, reset};
    if (reset != nullptr) {
        reset->setToolTip("Sets this option back to what it is at first.");
        reset->setAccessibleName("Reset " + ToQt(options::NameOf(Form(), control)));
        connect(reset, &QToolButton::clicked, this, [this, &control] { Reset(control); });
    }
    if (qobject_cast<QAbstractButton*>(&widget) == nullptr) return;
    widget.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&widget, &QWidget::customContextMenuRequested, this,
            [this, &control, &widget](const QPoint& at) { ShowMenu(control, widget, at); });
}

void OptionsWindow::ShowMenu(fields::Control& control, QWidget& widget, const QPoint& at) {
    QMenu menu(this);
    QAction* reset = menu.addAction("&Reset this option", this, [&] { Reset(control); });
    reset->setEnabled(options::IsChanged(Form(), control));
    const QString key = ToQt(options::KeyOf(Form(), control));
    if (!key.isEmpty()) {
        menu.addAction("&Copy its key: " + key, this,
                       [key] { QApplication::clipboard()->setText(key); });
    }
    menu.exec(widget.mapToGlobal(at));
}

void OptionsWindow::Reset(const fields::Control& control) {
    gate_.Run(nullptr, [&] {
        session_.events.Raise(session_, options::kResetOption, {.path = control.Name()});
    });
}

void OptionsWindow::Refresh() {
    if (!form_.IsShown()) return;
    ShowPage();
    ShowChanged();
    ShowVariables();
}

void OptionsWindow::ShowPage() {
    const bool isSought = !Form().txtFind.Text->empty();
    stack_->setCurrentIndex(isSought ? int{fields::kPageCount} : Form().Page());
    auto* pages = findChild<FieldListBox*>(ToQt(Form().tbsOptions.Name()));
    const QSignalBlocker quiet(pages);
    if (pages->currentRow() != Form().Page()) pages->setCurrentRow(Form().Page());
}

// A changed option is bold and has its button.
void OptionsWindow::ShowChanged() {
    for (const Marked& marked : marked_) {
        const bool isChanged = options::IsChanged(Form(), *marked.control);
        if (marked.reset != nullptr) marked.reset->setVisible(isChanged);
        if (marked.widget->font().bold() == isChanged) continue;
        QFont font = marked.widget->font();
        font.setBold(isChanged);
        marked.widget->setFont(font);
    }
    options::ShowChangedCount(session_);
    findChild<QLabel*>(ToQt(Form().lblChanged.Name()))
        ->setText(ToQt(Form().lblChanged.Caption.Get()));
}

void OptionsWindow::ShowVariables() {
    const auto& list = Form().lstMain;
    const QSignalBlocker quiet(variables_);
    const auto count = static_cast<int>(list.Items().size());
    while (variables_->topLevelItemCount() > count)
        delete variables_->takeTopLevelItem(count);
    while (variables_->topLevelItemCount() < count)
        new QTreeWidgetItem(variables_);
    for (int row = 0; row < count; ++row) {
        const auto place = static_cast<std::size_t>(row);
        QTreeWidgetItem* item = variables_->topLevelItem(row);
        item->setText(0, ToQt(list.Items()[place]));
        item->setText(1, Shown(session_.Shown(Form().variablePaths[place])));
        item->setCheckState(0, list.IsSelected(place) ? Qt::Checked : Qt::Unchecked);
    }
}

bool OptionsWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return ModalWindow::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    auto* found = findChild<FieldListBox*>(ToQt(Form().lstFound.Name()));
    const bool enters = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (enters && found->count() > 0 && found->onChoose) found->onChoose(0);
    if (key->key() == Qt::Key_Down && found->isVisible()) {
        found->setFocus();
        found->setCurrentRow(0);
    }
    const bool leaves = key->key() == Qt::Key_Escape && !Form().txtFind.Text->empty();
    if (leaves) binder_->Set(Form().txtFind, QString());
    return enters || leaves;
}

} // namespace tarvix::forms
