#include "forms/first_names_panel.h"

#include "fields/prompt_forms.h"
#include "forms/action_sections.h"
#include "forms/change_delegate.h"
#include "forms/event_gate.h"
#include "forms/file_reader.h"
#include "forms/preview_model.h"
#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"
#include "platform/file_system.h"
#include "session/session.h"

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QTableView>

#include <algorithm>
#include <utility>

namespace tarvix::forms {

namespace {

constexpr int kNamesPause = 250; // milliseconds
constexpr int kReadPause = 20;   // the same, while files are read
constexpr int kNameRows = 8;     // without scrolling
constexpr int kLeastNameWidth = 18;

bool IsSameRow(const fields::PreviewRow& a, const fields::PreviewRow& b) {
    return a.object == b.object && a.newPath == b.newPath && a.verdict == b.verdict;
}

} // namespace

FirstNamesPanel::FirstNamesPanel(session::Session& session, EventGate& gate)
    : session_(session), gate_(gate), table_(new QTableView), note_(new WrappingLabel) {
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, [this] { Work(); });
    ReadApart();
    MakeTable();
    note_->setObjectName("lblNamesNote");
    note_->setMinimumHeight(fontMetrics().lineSpacing());
    FillSection(*this, "New names", {table_, note_});
}

FirstNamesPanel::~FirstNamesPanel() = default;

// What names come from is read on another thread, which a disk that doesn't answer may hold.
void FirstNamesPanel::ReadApart() {
    platform::FileSystem& files = session_.platform.files;
    if (!files.AllowsReadingThreads()) return;
    reader_ = std::make_unique<FileReader>(
        [&files](const actions::FilePart& part) {
            return files.ReadBytes(part.path, part.number * actions::kFilePart, actions::kFilePart);
        },
        [this](const actions::FilePart& part, FileReader::Bytes bytes) {
            known_.Take(part, std::move(bytes));
            shown_.clear();
            if (!pause_.isActive()) pause_.start(kReadPause);
        });
}

void FirstNamesPanel::MakeTable() {
    table_->setObjectName("lstNames");
    table_->setAccessibleName("The first new names");
    table_->setItemDelegate(new ChangeDelegate(table_));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setShowGrid(false);
    table_->setWordWrap(false);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    const int row = fontMetrics().height() + 5;
    table_->verticalHeader()->setDefaultSectionSize(row);
    QHeaderView& head = *table_->horizontalHeader();
    head.setHighlightSections(false);
    ShowModel();
    table_->setFixedHeight(head.sizeHint().height() + row * kNameRows + 2 * table_->frameWidth());
}

void FirstNamesPanel::ShowModel() {
    model_ = new PreviewModel(names_.rows, this);
    table_->setModel(model_);
    QHeaderView& head = *table_->horizontalHeader();
    head.setSectionResizeMode(QHeaderView::Interactive);
    head.setSectionResizeMode(PreviewModel::kNewPath, QHeaderView::Stretch);
    const int most = table_->viewport()->width() / 3;
    const int least = std::min(most, fontMetrics().averageCharWidth() * kLeastNameWidth);
    for (const int column : {PreviewModel::kObject, PreviewModel::kVerdict}) {
        table_->resizeColumnToContents(column);
        head.resizeSection(column, std::clamp(head.sectionSize(column), least, most));
    }
}

void FirstNamesPanel::Follow() {
    const std::string key = actions::FirstNamesKey(session_);
    setVisible(!key.empty());
    if (key.empty() || key == shown_) return;
    pause_.start(shown_.empty() ? 0 : kNamesPause);
}

// A list of names may have been edited elsewhere.
bool FirstNamesPanel::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        shown_.clear();
        known_.Clear();
        if (reader_) reader_->Forget();
        Follow();
    }
    return QWidget::event(event);
}

// What is asked for while something else goes on follows at its end.
void FirstNamesPanel::Work() {
    if (gate_.IsBusy() || QApplication::activeModalWidget() != window()) return;
    shown_ = actions::FirstNamesKey(session_);
    Show(actions::FirstNamesOf(session_, reader_ ? &known_ : nullptr));
    if (reader_) reader_->Ask(known_.TakeLacking());
}

void FirstNamesPanel::Show(actions::FirstNames names) {
    note_->setText(ToQt(names.note));
    if (std::ranges::equal(names.rows, names_.rows, IsSameRow)) return;
    table_->setModel(nullptr);
    delete model_;
    names_.rows = std::move(names.rows);
    ShowModel();
}

} // namespace tarvix::forms
