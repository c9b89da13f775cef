#include "forms/outcome_page.h"

#include "forms/binder.h"
#include "forms/event_gate.h"
#include "forms/field_widgets.h"
#include "forms/icon_ink.h"
#include "forms/outcome_model.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"
#include "session/session.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tarvix::forms {

namespace {

struct ButtonLook {
    fields::CommandButton fields::FrmOutcome::*field;
    const char* icon;
    const char* tip;
};
constexpr std::array<ButtonLook, 6> kLooks{
    {{&fields::FrmOutcome::cmdShowThere, "folder-open",
      "Shows the chosen objects in the file manager where they are now"},
     {&fields::FrmOutcome::cmdPutBack, "edit-undo", ""},
     {&fields::FrmOutcome::cmdOpenTrash, "user-trash", "Shows the trash in the file manager"},
     {&fields::FrmOutcome::cmdSelectFailed, "edit-select-all",
      "Selects in the list what failed or was not reached; searches again where the list is empty"},
     {&fields::FrmOutcome::cmdSearchAgain, "view-refresh", "Makes the same search again (F5)"},
     {&fields::FrmOutcome::cmdClose, "window-close", "Back to the list (Esc)"}}};

// A sign on a selected row has the colour of its text.
class OutcomeDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const bool isSelected = (option->state & QStyle::State_Selected) != 0;
        if (!isSelected || option->icon.isNull()) return;
        const bool isActive = (option->state & QStyle::State_Active) != 0;
        const QColor ink = option->palette.color(isActive ? QPalette::Active : QPalette::Inactive,
                                                 QPalette::HighlightedText);
        option->icon = InOneColor(option->icon, option->decorationSize.height(), ink);
    }
};

} // namespace

OutcomePage::OutcomePage(session::Session& session, EventGate& gate)
    : session_(session), gate_(gate), model_(new OutcomeModel(session, this)) {
    setObjectName("frmOutcome");
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(MakeHead());
    column->addWidget(MakeTable(), 1);
    column->addWidget(MakeButtons());
    binder_ = std::make_unique<Binder>(session, gate, session.forms.frmOutcome, *this);
}

OutcomePage::~OutcomePage() = default;

QWidget* OutcomePage::MakeHead() {
    auto* counts = new WrappingLabel;
    counts->setObjectName(ToQt(session_.forms.frmOutcome.lblMain.Name()));
    QFont bold = counts->font();
    bold.setBold(true);
    counts->setFont(bold);
    groups_ = new QComboBox;
    groups_->setObjectName("cmbGroup");
    groups_->setAccessibleName("What became of the objects that are shown");
    groups_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    groups_->setMinimumContentsLength(28);
    connect(groups_, &QComboBox::currentIndexChanged, this, [this](int at) {
        model_->ShowGroup(at <= 0 ? std::nullopt : std::optional(static_cast<std::size_t>(at) - 1));
    });
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(counts, 1);
    layout->addWidget(LabelFor("Show", groups_));
    layout->addWidget(groups_);
    return row;
}

QWidget* OutcomePage::MakeTable() {
    table_ = new QTableView;
    table_->setObjectName(ToQt(session_.forms.frmOutcome.lstOutcome.Name()));
    table_->setAccessibleName("What became of each object");
    table_->setModel(model_);
    table_->setItemDelegate(new OutcomeDelegate(table_));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setAlternatingRowColors(true);
    table_->setShowGrid(false);
    table_->setWordWrap(false);
    table_->setTextElideMode(Qt::ElideMiddle);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 5);
    QHeaderView& head = *table_->horizontalHeader();
    head.setHighlightSections(false);
    head.setSectionResizeMode(QHeaderView::Interactive);
    const int character = fontMetrics().averageCharWidth();
    head.resizeSection(OutcomeModel::kMark, character * 38);
    head.resizeSection(OutcomeModel::kName, character * 32);
    head.setSectionResizeMode(OutcomeModel::kNow, QHeaderView::Stretch);
    head.resizeSection(OutcomeModel::kWas, character * 30);
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { Choose(); });
    // Nothing is selected then, of which no word comes.
    connect(model_, &QAbstractItemModel::modelReset, this, [this] { Choose(); });
    connect(table_, &QTableView::doubleClicked, this,
            [this] { binder_->Click(session_.forms.frmOutcome.cmdShowThere); });
    return table_;
}

QWidget* OutcomePage::MakeButtons() {
    auto& form = session_.forms.frmOutcome;
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const ButtonLook& look : kLooks) {
        QPushButton* button = Make(form.*look.field);
        button->setIcon(QIcon::fromTheme(look.icon));
        button->setToolTip(look.tip);
        if (look.field == &fields::FrmOutcome::cmdClose) layout->addStretch(1);
        layout->addWidget(button);
    }
    return row;
}

void OutcomePage::Choose() {
    auto& form = session_.forms.frmOutcome;
    form.chosen.clear();
    for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            form.chosen.push_back(model_->ObjectAt(row));
    }
    gate_.Run(&form.lstOutcome,
              [this] { session_.events.Raise(session_, "frmOutcome.lstOutcome_Click"); });
}

void OutcomePage::FillGroups() {
    const QSignalBlocker quiet(groups_);
    groups_->clear();
    const auto add = [this](const QString& what, qlonglong count) {
        groups_->addItem(QString("%1 (%2)").arg(what, WithThousands(QString::number(count))));
    };
    add("All", static_cast<qlonglong>(session_.outcomes->Count()));
    for (const results::OutcomeGroup& group : model_->Groups())
        add(Shown(group.text), static_cast<qlonglong>(group.count));
    groups_->setEnabled(model_->Groups().size() > 1);
}

void OutcomePage::Refresh() {
    binder_->Flush();
    if (!session_.forms.frmOutcome.IsShown() || !model_->Sync()) return;
    FillGroups();
}

void OutcomePage::TakeFocus() {
    if (model_->rowCount() > 0 && !table_->currentIndex().isValid()) {
        table_->selectionModel()->setCurrentIndex(model_->index(0, 0),
                                                  QItemSelectionModel::NoUpdate);
    }
    table_->scrollToTop();
    table_->setFocus();
}

void OutcomePage::keyPressEvent(QKeyEvent* event) {
    auto& form = session_.forms.frmOutcome;
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        binder_->Click(form.cmdClose);
    } else if (isEnter && window()->focusWidget() == table_) {
        binder_->Click(form.cmdShowThere);
    } else {
        QWidget::keyPressEvent(event);
    }
}

ListPlace::ListPlace(session::Session& session, EventGate& gate, QWidget& list)
    : session_(session), list_(list), page_(new OutcomePage(session, gate)) {
    addWidget(&list);
    addWidget(page_);
}

// The keyboard goes with what is seen.
void ListPlace::Refresh() {
    page_->Refresh();
    const bool isPage = session_.forms.frmOutcome.IsShown();
    QWidget* const wanted = isPage ? static_cast<QWidget*>(page_) : &list_;
    if (currentWidget() == wanted) return;
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    setCurrentWidget(wanted);
    if (isPage) {
        page_->TakeFocus();
    } else if (hadFocus) {
        list_.setFocus();
    }
}

} // namespace tarvix::forms
