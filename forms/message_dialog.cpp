#include "forms/message_dialog.h"

#include "forms/text_conversion.h"
#include "forms/wrapping_label.h"
#include "session/message_style.h"
#include "session/prompt_service.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvix::forms {

namespace {

QStyle::StandardPixmap PictureOf(int style) {
    switch (session::IconOf(style)) {
    case session::kCritical:
        return QStyle::SP_MessageBoxCritical;
    case session::kQuestion:
        return QStyle::SP_MessageBoxQuestion;
    case session::kExclamation:
        return QStyle::SP_MessageBoxWarning;
    default:
        return QStyle::SP_MessageBoxInformation;
    }
}

} // namespace

QWidget* MakeLongText(const QString& text, const QString& name, QWidget* parent) {
    auto* label = new WrappingLabel(text);
    label->setObjectName(name);
    const QFontMetrics metrics = label->fontMetrics();
    const QSize wanted = label->SizeFor(metrics.averageCharWidth() * 90);
    auto* area = new QScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(label);
    area->setFocusPolicy(Qt::NoFocus);
    const int most = parent->screen()->availableSize().height() * 6 / 10;
    const int bar = area->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    area->setMinimumWidth(std::max(wanted.width(), metrics.averageCharWidth() * 40) + bar + 12);
    const int height = wanted.height() + metrics.height() / 2;
    area->setMinimumHeight(std::min(height, most));
    if (height <= most) area->setMaximumHeight(height);
    return area;
}

MessageDialog::MessageDialog(const QString& text, int style, const QString& title, QWidget* parent)
    : QDialog(parent), answer_(session::SafeAnswer(style)) {
    setObjectName("MsgBox");
    setWindowTitle(title);
    auto* top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(MakeIcon(style), 0, Qt::AlignTop);
    top->addWidget(MakeLongText(text, "lblText", this), 1);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(14);
    column->addLayout(top, 1);
    column->addWidget(MakeButtons(style));
    setAccessibleDescription(text);
    first_->setDefault(true);
    first_->setFocus();
}

QWidget* MessageDialog::MakeIcon(int style) {
    auto* icon = new QLabel;
    const int size = this->style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    icon->setPixmap(this->style()->standardIcon(PictureOf(style)).pixmap(size, size));
    icon->setVisible(session::IconOf(style) != 0);
    return icon;
}

QWidget* MessageDialog::MakeButtons(int style) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch(1);
    for (const int answer : session::ButtonsOf(style)) {
        const QString caption = ToQt(session::CaptionOf(answer));
        const bool plain = answer == session::kOk || answer == session::kCancel;
        auto* button = new QPushButton(plain ? caption : "&" + caption);
        button->setObjectName("btn" + caption);
        connect(button, &QPushButton::clicked, this, [this, answer] {
            answer_ = answer;
            accept();
        });
        layout->addWidget(button);
        button->setAutoDefault(true);
        if (answer == session::FocusedAnswer(style)) first_ = button;
    }
    return row;
}

int MessageDialog::Ask() {
    exec();
    return answer_;
}

} // namespace tarvix::forms
