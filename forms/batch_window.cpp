#include "forms/batch_window.h"

#include "forms/batch_model.h"
#include "forms/field_widgets.h"
#include "forms/panel_parts.h"
#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"
#include "session/session.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QScreen>
#include <QTableView>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {
constexpr int kCharacters = 130;
}

BatchWindow::BatchWindow(session::Session& session, EventGate& gate, QWidget* parent)
    : ModalWindow(session, gate, session.forms.frmBatch, parent) {
    const auto& form = session.forms.frmBatch;
    auto* told = new WrappingLabel;
    told->setObjectName(ToQt(form.lblMain.Name()));
    QPushButton* start = Make(form.cmdOK);
    QPushButton* cancel = Make(form.cmdCancel);
    start->setAutoDefault(true);
    cancel->setAutoDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(start);
    buttons->addWidget(cancel);
    auto* column = new QVBoxLayout(this);
    column->addWidget(told);
    column->addWidget(MakeTable(), 1);
    column->addLayout(buttons);
    BindFields();
    TakeSize(kCharacters);
    resize(width(), screen()->availableSize().height() * 2 / 3);
    // A careless Enter moves nothing.
    (form.isDone ? start : cancel)->setFocus();
}

QTableView* BatchWindow::MakeTable() {
    auto* table = new QTableView;
    table->setObjectName(ToQt(session_.forms.frmBatch.lstBatch.Name()));
    table->setAccessibleName("The batch line by line");
    table->setModel(new BatchModel(session_.forms.frmBatch, this));
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->setTextElideMode(Qt::ElideMiddle);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 5);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    return table;
}

} // namespace tarvix::forms
