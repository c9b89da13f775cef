#include "forms/empty_panel.h"

#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"

#include <QEvent>
#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {
constexpr int kMargin = 24;
constexpr double kTitleSize = 1.15; // of the usual letters
} // namespace

EmptyPanel::EmptyPanel(QWidget& list)
    : QWidget(&list), list_(list), title_(new WrappingLabel), column_(new QVBoxLayout(this)) {
    setObjectName("emptyList");
    setAccessibleName("Why nothing was found");
    QFont font = title_->font();
    font.setPointSizeF(font.pointSizeF() * kTitleSize);
    font.setBold(true);
    title_->setFont(font);
    title_->setObjectName("lblEmptyTitle");
    column_->setContentsMargins(kMargin, 8, kMargin, 8);
    column_->setSpacing(12);
    column_->addStretch(1);
    column_->addWidget(title_, 0, Qt::AlignHCenter);
    column_->addStretch(2);
    list.installEventFilter(this);
    hide();
}

void EmptyPanel::AddReason(const search::EmptyReason& reason, int number) {
    auto* grid = static_cast<QGridLayout*>(rows_->layout());
    auto* why = new WrappingLabel(ToQt(reason.why));
    why->setObjectName(QString("lblWhy%1").arg(number));
    grid->addWidget(why, number, 0, Qt::AlignVCenter);
    if (reason.way == search::WayOut::kNone) return;
    auto* button = new QPushButton(ToQt(reason.button));
    button->setObjectName(QString("wayOut%1").arg(number));
    button->setAutoDefault(false);
    button->setAccessibleDescription(ToQt(reason.why));
    connect(button, &QPushButton::clicked, this, [this, way = reason.way] {
        if (onWayOut) onWayOut(way);
    });
    grid->addWidget(button, number, 1);
}

void EmptyPanel::Tell(const std::string& title, const std::vector<search::EmptyReason>& reasons) {
    if (title == shownTitle_ && reasons == shown_) return;
    shownTitle_ = title;
    shown_ = reasons;
    if (rows_ != nullptr) rows_->deleteLater();
    rows_ = new QWidget;
    auto* grid = new QGridLayout(rows_);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(6);
    for (const search::EmptyReason& reason : reasons) {
        AddReason(reason, grid->count() == 0 ? 1 : grid->rowCount());
    }
    title_->setText(Shown(title));
    column_->insertWidget(2, rows_, 0, Qt::AlignHCenter);
    setVisible(!title.empty());
    FillOut();
    raise();
}

void EmptyPanel::FillOut() {
    setGeometry(list_.rect());
}

bool EmptyPanel::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize) FillOut();
    return false;
}

} // namespace tarvix::forms
