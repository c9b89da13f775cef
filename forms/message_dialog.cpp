#include "forms/message_dialog.h"

#include "forms/letters.h"
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

constexpr int kUsualLine = 90; // characters

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

// Of one object among many: try again or skip it. Empty for an answer that Stop stands for.
QString LoopCaption(int style, int answer) {
    const bool hasRetry = session::ButtonsOf(style).front() == session::kRetry;
    if (answer == session::kRetry || answer == session::kYes) return "&Try Again";
    if (answer == session::kCancel && !hasRetry) return {};
    return "&Skip";
}

QString ButtonCaption(const MessageText& text, int style, int answer) {
    if (text.isInLoop) return LoopCaption(style, answer);
    const QString usual = ToQt(session::CaptionOf(answer));
    if (!text.verb.isEmpty()) {
        return answer == session::kYes || answer == session::kOk ? text.verb : QString("Cancel");
    }
    const bool isPlain = answer == session::kOk || answer == session::kCancel;
    return isPlain ? usual : "&" + usual;
}

} // namespace

QWidget* MakeLongText(const QString& text, const QString& name, QWidget* parent) {
    auto* label = new WrappingLabel(text);
    label->setObjectName(name);
    const QFontMetrics metrics = label->fontMetrics();
    const QSize room = parent->screen()->availableSize();
    const int usual = metrics.averageCharWidth() * kUsualLine;
    const QSize wanted = label->SizeFor(label->WidthForLines(usual, room.width() * 8 / 10));
    auto* area = new QScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(label);
    area->setFocusPolicy(Qt::NoFocus);
    const int most = room.height() * 6 / 10;
    const int bar = area->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    area->setMinimumWidth(std::max(wanted.width(), metrics.averageCharWidth() * 40) + bar + 12);
    const int height = wanted.height() + metrics.height() / 2;
    area->setMinimumHeight(std::min(height, most));
    if (height <= most) area->setMaximumHeight(height);
    return area;
}

MessageDialog::MessageDialog(const MessageText& text, int style, const QString& title,
                             QWidget* parent)
    : QDialog(parent), answer_(session::SafeAnswer(style)) {
    setObjectName("MsgBox");
    setWindowTitle(title);
    auto* top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(MakeIcon(style), 0, Qt::AlignTop);
    const QString& lead = text.plain.isEmpty() ? text.text : text.plain;
    top->addWidget(MakeLongText(lead, "lblText", this), 1);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(14);
    column->addLayout(top, 1);
    QWidget* buttons = MakeButtons(text, style);
    column->addWidget(buttons);
    if (!text.plain.isEmpty()) AddDetails(*column, *buttons, text.text);
    setAccessibleDescription(lead);
    first_->setDefault(true);
    first_->setFocus();
    GiveLetters(*this);
}

QWidget* MessageDialog::MakeIcon(int style) {
    auto* icon = new QLabel;
    const int size = this->style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    icon->setPixmap(this->style()->standardIcon(PictureOf(style)).pixmap(size, size));
    icon->setVisible(session::IconOf(style) != 0);
    return icon;
}

QPushButton* MessageDialog::AddButton(QWidget& row, int answer, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName("btn" + ToQt(session::CaptionOf(answer)).remove(u' '));
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, [this, answer] {
        answer_ = answer;
        accept();
    });
    row.layout()->addWidget(button);
    return button;
}

QWidget* MessageDialog::MakeButtons(const MessageText& text, int style) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    if (!text.plain.isEmpty()) {
        auto* more = new QPushButton("&Details");
        more->setObjectName("btnDetails");
        more->setCheckable(true);
        more->setAutoDefault(true);
        layout->addWidget(more); // before the answers, so that Tab comes to it as people read
    }
    layout->addStretch(1);
    for (const int answer : session::ButtonsOf(style)) {
        const QString caption = ButtonCaption(text, style, answer);
        if (caption.isEmpty()) continue;
        QPushButton* button = AddButton(*row, answer, caption);
        if (answer == session::FocusedAnswer(style)) first_ = button;
    }
    if (!text.isInLoop) return row;
    AddButton(*row, session::kSkipAll, "Skip &All Like This")
        ->setToolTip("Skips this object, and all that follow with the same trouble, unasked");
    AddButton(*row, session::kStopAll, "S&top")
        ->setToolTip("Ends the action here; what is done stays done");
    return row;
}

// Where it all happened, for a report; hidden until it is asked for.
void MessageDialog::AddDetails(QLayout& column, QWidget& buttons, const QString& text) {
    QWidget* details = MakeLongText(text, "lblDetails", this);
    details->hide();
    column.addWidget(details);
    auto* more = buttons.findChild<QPushButton*>("btnDetails");
    connect(more, &QPushButton::toggled, this, [this, details](bool isShown) {
        details->setVisible(isShown);
        adjustSize();
    });
}

int MessageDialog::Ask() {
    exec();
    return answer_;
}

} // namespace tarvix::forms
