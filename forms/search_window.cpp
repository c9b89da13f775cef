#include "forms/search_window.h"

#include "forms/bottom_panel.h"
#include "forms/criteria_panel.h"
#include "forms/drop_filter.h"
#include "forms/empty_panel.h"
#include "forms/field_widgets.h"
#include "forms/name_editor.h"
#include "forms/outcome_page.h"
#include "forms/panel_parts.h"
#include "forms/selection_actions.h"
#include "forms/text_conversion.h"
#include "forms/view_menu.h"
#include "forms/window_place.h"
#include "launch/menu/clipboard_forms.h"
#include "platform/names.h"
#include "platform/native_paths.h"
#include "results/row_marks.h"
#include "search/browse.h"
#include "search/empty_list.h"
#include "session/session.h"
#include "session/user_input.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDrag>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {

constexpr int kTwips = 15;               // a pixel
constexpr QSize kSmallest(800, 497);     // 12000 by 7450 twips
constexpr QSize kComfortable(1120, 720); // where the screen has room for it
constexpr int kRowsEvery = 100;          // milliseconds between looks at the rows of a search

QSize FirstSize() {
    const QSize room = QGuiApplication::primaryScreen()->availableSize() - QSize(40, 80);
    return kComfortable.boundedTo(room).expandedTo(kSmallest);
}

} // namespace

SearchWindow::SearchWindow(session::Session& session, EventGate& gate)
    : session_(session), gate_(gate) {
    setObjectName("frmSearch");
    setWindowTitle("Tarvix");
    Build();
    menu_ = std::make_unique<MainMenu>(*this, session.frmSearch);
    binder_ = std::make_unique<Binder>(session, gate, session.frmSearch, *this);
    AddOwnEntries();
    binder_->UseWhyNot([this](const fields::Control& control) {
        return WhyNothingToActOn(session_.frmSearch, control.Name());
    });
    SetUpList();
    SetUpDrops();
    SetTabOrder();
    OfferAnyAttribute();
    ShareClipboard();
    connect(&timer_, &QTimer::timeout, this, [this] {
        gate_.Run(nullptr, [this] { session_.Raise(session_.frmSearch.Timer1, "Timer"); });
    });
    menu_->ClearMnemonics(*this, *binder_);
    setMinimumSize(kSmallest);
    resize(FirstSize());
    gate_.Add(*this);
    Flush();
}

SearchWindow::~SearchWindow() {
    session_.clipboard = nullptr;
    gate_.Remove(*this);
}

void SearchWindow::Build() {
    auto* central = new QWidget;
    auto* column = new QVBoxLayout(central);
    column->setContentsMargins(8, 6, 8, 6);
    column->setSpacing(6);
    model_ = new ResultModel(session_, this);
    model_->UseTip(session_.frmSearch.lstMain.Tip.Get());
    list_ = new ResultView(*session_.rows);
    list_->setObjectName("lstMain");
    list_->setAccessibleName("Found objects");
    list_->setModel(model_);
    column->addWidget(MakeCriteriaPanel(session_.frmSearch));
    column->addWidget(MakePlayListBanner(session_.frmSearch));
    place_ = new ListPlace(session_, gate_, *list_);
    column->addWidget(place_, 1);
    column->addWidget(MakeActionBar(session_.frmSearch));
    counters_ = MakeCounterBar(session_.frmSearch);
    column->addWidget(counters_);
    column->addWidget(MakeElided(session_.frmSearch.lblBatch));
    column->addWidget(MakeStatusBar(session_.frmSearch));
    setCentralWidget(central);
    nativePath_ = static_cast<ElidedLabel*>(findChild<QLabel*>("lblNativePath"));
    busy_ = findChild<QProgressBar*>("barBusy");
    progress_ = findChild<QLabel*>("lblProgressText");
}

void SearchWindow::AddOwnEntries() {
    QMenu* actions = menu_->Find("Actions");
    actions->addSeparator();
    QAction* copy = actions->addAction("Copy to Clipb&oard", this, [this] { CopyPaths(); });
    copy->setShortcut(QKeySequence::Copy);
    copy->setObjectName("actCopyPaths");
    copy->setEnabled(false);
    FillViewMenu(*menu_->Find("View"), *list_, session_);
    QAction* rename = actions->addAction("Rename &Here", this, [this] { RenameHere(); });
    rename->setShortcut(QKeySequence(Qt::Key_F2));
    rename->setObjectName("actRenameHere");
    QAction* exit = menu_->Find("File")->addAction("E&xit", this, [this] { close(); });
    exit->setShortcut(QKeySequence("Ctrl+Q"));
    const auto focusOn = [this](const char* key, const char* box) {
        connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, this,
                [this, box] { findChild<QComboBox*>(box)->setFocus(Qt::ShortcutFocusReason); });
    };
    focusOn("Ctrl+F", "cmbSearchFor");
    focusOn("Ctrl+L", "cmbDir");
    connect(new QShortcut(QKeySequence("F6"), this), &QShortcut::activated, this, [this] {
        if (focusWidget() != list_) return list_->setFocus(Qt::ShortcutFocusReason);
        findChild<QComboBox*>("cmbSearchFor")->setFocus(Qt::ShortcutFocusReason);
    });
}

void SearchWindow::SetUpList() {
    list_->maySelect = [this] { return !gate_.IsBusy() && session_.frmSearch.lstMain.Enabled; };
    list_->onSelect = [this](std::size_t row) { ActOnRow(session::UserSelect, row); };
    list_->onOpen = [this](std::size_t row) { ActOnRow(session::UserOpen, row); };
    list_->Head().onClick = [this](int column) { SortBy(column); };
    list_->onDrag = [this] { DragRows(); };
    list_->onMenu = [this] {
        gate_.Run(&session_.frmSearch.lstMain, [&] { session::UserMenu(session_); });
    };
    list_->Head().onChoose = [this](int column, bool shown) {
        gate_.Run(nullptr,
                  [&] { session_.blnListItems[static_cast<std::size_t>(column)] = shown; });
    };
    list_->emptyText = [this] {
        return empty_->isVisible() ? QString() : ToQt(search::EmptyListText(session_.state));
    };
    empty_ = new EmptyPanel(*list_->viewport());
    empty_->onWayOut = [this](search::WayOut way) {
        gate_.Run(nullptr, [&] { search::TakeWayOut(session_, way); });
    };
}

void SearchWindow::SetUpDrops() {
    auto* locations = findChild<QComboBox*>("cmbDir");
    AcceptDrops(*locations, [this](const QList<QUrl>& urls) {
        std::vector<std::string> paths;
        for (const QUrl& url : urls) {
            if (url.isLocalFile()) paths.push_back(ToUtf8(url.toLocalFile()));
        }
        gate_.Run(nullptr, [&] { search::DropLocations(session_, paths); });
    });
    locations->setToolTip("Folders separated by |. Folders can be dropped here.");
}

void SearchWindow::SetTabOrder() {
    QWidget* last = findChild<QWidget*>("cmbSearchFor");
    last->setFocus();
    for (const char* name : {"cmbDir", "chkNot", "cmdSearch", "cmdStop", "cmdBrowse",
                             "btnBrowseModes", "cmdClearFolders", "cmdNext"}) {
        auto* next = findChild<QWidget*>(name);
        setTabOrder(last, next);
        last = next;
    }
}

void SearchWindow::OfferAnyAttribute() {
    connect(findChild<QToolButton*>("btnAnyAttribute"), &QToolButton::clicked, this, [this] {
        for (fields::CheckBox* box : session_.frmSearch.attributeBoxes) {
            binder_->Set(*box, "2");
        }
    });
}

void SearchWindow::ActOnRow(bool (*act)(session::Session&, int), std::size_t row) {
    gate_.Run(&session_.frmSearch.lstMain, [&] { act(session_, static_cast<int>(row)); });
    ShowNativePath();
}

void SearchWindow::SortBy(int column) {
    if (!list_->maySelect()) return;
    gate_.Run(&session_.frmSearch.lstMain, [&] { session::UserSort(session_, column); });
}

std::vector<std::string> SearchWindow::SelectedNativePaths() const {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < session_.rows->Count(); ++i) {
        if (!list_->Selector().IsSelected(i)) continue;
        paths.push_back(session_.platform.paths.ToNative(session_.rows->FullPath(i)));
    }
    return paths;
}

void SearchWindow::CopyPaths() {
    const std::vector<std::string> paths = SelectedNativePaths();
    if (!paths.empty()) clipboard_.Put(menu::ObjectForms(paths, false));
}

void SearchWindow::DragRows() {
    const std::vector<std::string> paths = SelectedNativePaths();
    if (paths.empty()) return;
    auto* drag = new QDrag(list_);
    drag->setMimeData(MimeDataOf(menu::ObjectForms(paths, false)));
    drag->exec(Qt::CopyAction);
}

// One object gets its new name in the list, several of them in the action window.
void SearchWindow::RenameHere() {
    const auto row = list_->CurrentRow();
    bool hasOthers = session_.state.blnPlayListMode || !row || !CanEditName(session_, *row);
    for (std::size_t i = 0; i < session_.rows->Count() && !hasOthers; ++i)
        hasOthers = i != *row && list_->Selector().IsSelected(i);
    if (hasOthers) {
        const bool hasSelection = findChild<QPushButton*>("cmdRenameSelected")->isEnabled();
        if (hasSelection) binder_->Click(session_.frmSearch.cmdRenameSelected);
        return;
    }
    if (!list_->maySelect() || !list_->isVisible()) return;
    EditName(*list_, session_, *row, [this](std::size_t at, const std::string& name) {
        gate_.Run(&session_.frmSearch.lstMain, [&] {
            session_.events.Raise(session_, "frmSearch.RenameInPlace",
                                  {.index = static_cast<int>(at), .path = name});
        });
        list_->MoveTo(at, Qt::NoModifier);
    });
}

// What others put on the clipboard takes the place of what was cut here.
void SearchWindow::ShareClipboard() {
    session_.clipboard = &clipboard_;
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] {
        if (QGuiApplication::clipboard()->ownsClipboard()) return;
        results::ClearCut(session_);
        list_->viewport()->update();
    });
}

void SearchWindow::Flush() {
    binder_->Flush();
    SettleRows(*counters_);
    ShowActions();
    menu_->Refresh();
    ShowTitle();
    ShowProgress();
    ShowRows();
    ShowEmpty();
    place_->Refresh();
    ShowSort();
    TakeMemory();
    ShowColumns();
    ShowState();
    KeepTime();
}

// They can be used as long as something is selected.
void SearchWindow::ShowActions() {
    const bool hasSelection = HasSelection(session_.frmSearch);
    if (hasSelection == hadSelection_) return;
    hadSelection_ = hasSelection;
    binder_->ShowThose(SelectionActions());
    findChild<QAction*>("actCopyPaths")->setEnabled(hasSelection);
}

// What is being searched for, or was last. The boxes are locked meanwhile.
void SearchWindow::ShowTitle() {
    if (!session_.state.blnSearching) return;
    const QString title = ToQt(search::SearchTitle(session_)) + " - Tarvix";
    if (windowTitle() != title) setWindowTitle(title);
}

// Why there is nothing, and what can be done about it.
void SearchWindow::ShowEmpty() {
    empty_->Tell(search::EmptyListTitle(session_), search::EmptyListReasons(session_));
}

// Routines put the window out of the way and back.
void SearchWindow::ShowState() {
    const fields::WindowState state = session_.frmSearch.State;
    if (!isVisible()) return;
    if (state == fields::WindowState::kMinimized && !isMinimized()) showMinimized();
    if (state == fields::WindowState::kNormal && isMinimized()) showNormal();
}

void SearchWindow::KeepTime() {
    const auto& timer = session_.frmSearch.Timer1;
    if (!timer.Enabled) return timer_.stop();
    if (!timer_.isActive() || timer_.interval() != timer.Interval) timer_.start(timer.Interval);
}

void SearchWindow::ShowColumns() {
    list_->Head().Show(session_.blnListItems);
    list_->Head().LockWidths(session_.state.options.blnLockColumnWidths);
}

// The settings are read while the program starts.
void SearchWindow::TakeMemory() {
    if (remembered_ || !session_.state.blnStarted) return;
    remembered_ = true;
    const auto& settings = session_.state.platformSettings;
    TakePlace(*this, settings.searchWindow);
    auto& form = session_.frmSearch;
    if (settings.sortsFast) form.chkFastSort.Value = *settings.sortsFast ? 1 : 0;
    if (settings.searchesSubfolders && form.chkIncludeSubFolders.Enabled) {
        form.chkIncludeSubFolders.Value = *settings.searchesSubfolders ? 1 : 0;
    }
    list_->Head().Take({settings.columnWidths, settings.columnOrder});
}

void SearchWindow::KeepMemory() {
    if (!remembered_) return;
    auto& settings = session_.state.platformSettings;
    settings.searchWindow = PlaceOf(*this);
    settings.sortsFast = session_.frmSearch.chkFastSort.Value == 1;
    if (session_.frmSearch.chkIncludeSubFolders.Enabled) {
        settings.searchesSubfolders = session_.frmSearch.chkIncludeSubFolders.Value == 1;
    }
    const auto layout = list_->Head().LayoutNow({settings.columnWidths, settings.columnOrder});
    settings.columnWidths = layout.widths;
    settings.columnOrder = layout.order;
}

// A search can't tell how long it takes; rearranging the list, recycling, and what a batch does
// without its window, can.
void SearchWindow::ShowProgress() {
    const auto& progress = session_.forms.frmProgress;
    const bool acts = session_.state.IsBatch() && session_.frmDialog.IsShown();
    const auto& bar = acts ? session_.frmDialog.prgBytes : progress.prgMain;
    const bool isCounted = (acts || progress.IsShown()) && bar.Max > 0;
    const long long unit = bar.Max / 1'000'000 + 1; // bytes are more than an int holds
    busy_->setVisible(session_.state.blnSearching || progress.IsShown() || acts);
    busy_->setMaximum(isCounted ? static_cast<int>(bar.Max / unit) : 0);
    if (isCounted) busy_->setValue(static_cast<int>(bar.Value / unit));
    progress_->setVisible(progress.IsShown());
    progress_->setText(progress.IsShown() ? Shown(progress.lblMain.Caption.Get()) : QString());
}

void SearchWindow::ShowRows() {
    const bool later = gate_.IsBusy() && model_->IsCurrent() && sinceRows_.isValid() &&
                       sinceRows_.elapsed() < kRowsEvery;
    if (later) return;
    if (model_->Sync()) list_->ScrollHome();
    list_->TellCurrent();
    findChild<QWidget*>("rowGroups")->setVisible(list_->HasGroups());
    list_->viewport()->update();
    ShowNativePath();
    sinceRows_.start();
}

void SearchWindow::ShowNativePath() {
    const auto row = list_->CurrentRow();
    nativePath_->setText(row ? ToQt(platform::NativeForDisplay(
                                   session_.platform.paths.ToNative(session_.rows->FullPath(*row))))
                             : QString());
}

void SearchWindow::ShowSort() {
    const auto& head = session_.frmSearch.lstMain;
    const bool sorts = session_.events.Has("frmSearch.lstMain_ColumnClick");
    list_->horizontalHeader()->setSortIndicatorShown(sorts);
    if (!sorts) return;
    const auto order = head.SortOrder.Get() == fields::SortDirection::kAscending
                           ? Qt::AscendingOrder
                           : Qt::DescendingOrder;
    list_->horizontalHeader()->setSortIndicator(head.SortKey, order);
}

void SearchWindow::Idle() {
    binder_->ApplyPending();
    if (gate_.IsIdle() && (closing_ || session_.state.blnEnded)) {
        QMetaObject::invokeMethod(
            this, [this] { close(); }, Qt::QueuedConnection);
    }
}

void SearchWindow::closeEvent(QCloseEvent* event) {
    if (gate_.IsIdle()) {
        KeepMemory();
        event->accept();
        return;
    }
    event->ignore();
    closing_ = true;
    const auto& state = session_.state;
    if (state.blnSearching || state.IsBatch()) binder_->Click(session_.frmSearch.cmdStop);
}

void SearchWindow::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) {
        QMainWindow::keyPressEvent(event);
    } else if (auto* button = qobject_cast<QPushButton*>(focusWidget())) {
        button->click();
    } else {
        binder_->Click(session_.frmSearch.cmdSearch);
    }
}

void SearchWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && binder_) binder_->ShowAll();
    if (event->type() == QEvent::WindowStateChange) TellSize();
}

void SearchWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    TellSize();
}

void SearchWindow::TellSize() {
    auto& form = session_.frmSearch;
    form.Width = width() * kTwips;
    form.Height = height() * kTwips;
    form.State = isMinimized()   ? fields::WindowState::kMinimized
                 : isMaximized() ? fields::WindowState::kMaximized
                                 : fields::WindowState::kNormal;
    if (!session_.state.blnStarted) return;
    gate_.Run(nullptr, [&] { session_.events.Raise(session_, "frmSearch.Form_Resize"); });
    if (isMinimized() && form.State == fields::WindowState::kNormal) showNormal();
}

} // namespace tarvix::forms
