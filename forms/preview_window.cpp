#include "forms/preview_window.h"

#include "forms/change_delegate.h"
#include "forms/field_widgets.h"
#include "forms/panel_parts.h"
#include "forms/preview_model.h"
#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"
#include "session/session.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScreen>
#include <QTableView>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {

constexpr int kPause = 150; // milliseconds
constexpr int kCharacters = 160;
constexpr int kVerdictCharacters = 26;

} // namespace

PreviewWindow::PreviewWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmPreview, parent),
      model_(new PreviewModel(session.forms.frmPreview.rows, this)) {
    const auto& form = session.forms.frmPreview;
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    connect(&pause_, &QTimer::timeout, this, [this] { ApplyFilters(); });
    auto* counts = new WrappingLabel;
    counts->setObjectName(ToQt(form.lblMain.Name()));
    QPushButton* close = Make(form.cmdOK);
    close->setAutoDefault(true);
    auto* column = new QVBoxLayout(this);
    column->addWidget(counts);
    column->addWidget(MakeFolders());
    column->addWidget(MakeFilters());
    column->addWidget(MakeTable(), 1);
    column->addWidget(close, 0, Qt::AlignRight);
    BindFields();
    TakeSize(kCharacters);
    resize(width(), screen()->availableSize().height() * 3 / 4);
    close->setFocus();
}

// The folders that all objects and all new paths share stand once, above the rest of the paths.
QWidget* PreviewWindow::MakeFolders() {
    auto* folders = new QWidget;
    auto* grid = new QGridLayout(folders);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    const auto add = [grid](const char* word, const char* name, const std::string& folder) {
        if (folder.empty()) return;
        auto* path = new WrappingLabel(Shown(folder));
        path->setObjectName(name);
        path->setAccessibleName(QString("%1 folder").arg(word));
        const int row = grid->rowCount();
        grid->addWidget(new QLabel(word), row, 0, Qt::AlignTop);
        grid->addWidget(path, row, 1);
    };
    add(model_->Renames() ? "In" : "From", "lblFrom", model_->From());
    if (!model_->Renames()) add("To", "lblTo", model_->To());
    folders->setHidden(model_->From().empty() && model_->To().empty());
    return folders;
}

QWidget* PreviewWindow::MakeFilters() {
    verdict_ = new QComboBox;
    verdict_->setObjectName("cmbVerdict");
    verdict_->setAccessibleName("What would happen");
    const auto count = static_cast<qlonglong>(session_.forms.frmPreview.rows.size());
    const auto add = [this](const QString& verdict, qlonglong number, const std::string& exact) {
        const QString shown = WithThousands(QString::number(number));
        verdict_->addItem(QString("%1 (%2)").arg(verdict, shown), ToQt(exact));
    };
    add("All", count, "");
    for (const auto& [verdict, number] : model_->Verdicts()) {
        add(Shown(verdict), number, verdict);
    }
    connect(verdict_, &QComboBox::currentIndexChanged, this, [this] { ApplyFilters(); });
    part_ = new QLineEdit;
    part_->setObjectName("txtPart");
    part_->setClearButtonEnabled(true);
    part_->setPlaceholderText("Part of a path");
    part_->setAccessibleName("Part of a path");
    connect(part_, &QLineEdit::textChanged, &pause_, qOverload<>(&QTimer::start));
    QWidget* row = InRow({LabelFor("&Show", verdict_), verdict_, LabelFor("&With", part_), part_});
    static_cast<QHBoxLayout*>(row->layout())->setStretch(3, 1);
    return row;
}

QTableView* PreviewWindow::MakeTable() {
    auto* table = new QTableView;
    table->setObjectName(ToQt(session_.forms.frmPreview.lstPreview.Name()));
    table->setAccessibleName("What would happen to each object");
    table->setModel(model_);
    table->setItemDelegate(new ChangeDelegate(table));
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->setTextElideMode(Qt::ElideMiddle);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 5);
    QHeaderView& head = *table->horizontalHeader();
    head.setHighlightSections(false);
    head.setSortIndicatorClearable(true);
    head.setSortIndicator(-1, Qt::AscendingOrder);
    head.setSectionResizeMode(QHeaderView::Stretch);
    head.setSectionResizeMode(PreviewModel::kVerdict, QHeaderView::Interactive);
    head.resizeSection(PreviewModel::kVerdict,
                       fontMetrics().averageCharWidth() * kVerdictCharacters);
    table->setSortingEnabled(true);
    return table;
}

void PreviewWindow::ApplyFilters() {
    model_->Filter(ToUtf8(verdict_->currentData().toString()), ToUtf8(part_->text()));
}

} // namespace tarvix::forms
