#include "forms/legend_window.h"

#include "forms/list_colors.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvix::forms {

namespace {

void Paint(QLabel& label, const QColor& color) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, color);
    label.setPalette(palette);
    label.setForegroundRole(QPalette::WindowText);
}

QLabel* MakeSign(const LegendEntry& entry, const QColor& color, int size) {
    auto* sign = new QLabel;
    const SignLook look = LookOf(entry.sign);
    if (!look.icon.isNull()) {
        sign->setPixmap(look.icon.pixmap(size, size));
    } else {
        sign->setText(entry.pattern > 0 ? QString::number(entry.pattern) : look.character);
    }
    Paint(*sign, color);
    sign->setAlignment(Qt::AlignCenter);
    return sign;
}

// A text as a row of the list shows it, on the ground of the list.
QLabel* MakeSample(const LegendEntry& entry, QColor color) {
    auto* sample = new QLabel(entry.sample);
    const bool isBack =
        entry.sign == results::RowSign::kGone || entry.sign == results::RowSign::kCut;
    if (isBack) color = StandingBack(sample->palette());
    QFont font = sample->font();
    font.setStrikeOut(entry.sign == results::RowSign::kGone);
    sample->setFont(font);
    sample->setObjectName("lblSample");
    Paint(*sample, color);
    return sample;
}

QWidget* MakeRows() {
    auto* list = new QFrame;
    list->setFrameShape(QFrame::StyledPanel);
    list->setBackgroundRole(QPalette::Base);
    list->setAutoFillBackground(true);
    auto* grid = new QGridLayout(list);
    grid->setContentsMargins(12, 10, 16, 10);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(3);
    int row = 0;
    for (const LegendEntry& entry : LegendOfList()) {
        const QColor color = ListTint(entry.color, list->palette());
        auto* meaning = new QLabel(entry.meaning);
        meaning->setForegroundRole(QPalette::Text);
        grid->addWidget(MakeSign(entry, color, list->fontMetrics().height()), row, 0);
        grid->addWidget(MakeSample(entry, color), row, 1);
        grid->addWidget(meaning, row, 2);
        ++row;
    }
    grid->setColumnStretch(2, 1);
    return list;
}

} // namespace

LegendWindow::LegendWindow(QWidget* parent) : QDialog(parent) {
    setObjectName("frmLegend");
    setWindowTitle("Colours and Signs in the List");
    setAttribute(Qt::WA_DeleteOnClose);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(12);
    column->addWidget(MakeRows(), 1);
    auto* close = new QPushButton("&Close");
    close->setObjectName("cmdCloseLegend");
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    column->addWidget(close, 0, Qt::AlignRight);
    close->setFocus();
}

} // namespace tarvix::forms
