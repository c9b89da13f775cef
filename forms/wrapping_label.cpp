#include "forms/wrapping_label.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace tarvix::forms {

namespace {

constexpr int kComfortable = 66;     // characters in a line where there is room
constexpr int kUnbroken = 1'000'000; // pixels

QSize Lay(QTextLayout& layout, int width) {
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    double high = 0;
    double wide = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, high});
        high += line.height();
        wide = std::max(wide, line.naturalTextWidth());
    }
    layout.endLayout();
    return {static_cast<int>(std::ceil(wide)), static_cast<int>(std::ceil(high))};
}

// A path is best broken behind a separator, but not behind its drive.
QString InLines(QString text) {
    text.replace(u'\\', QString("\\") + QChar(0x200B)).replace(":\\", QString(":\u2060\\"));
    return text.replace(u'\n', QChar::LineSeparator);
}

// Of one line that is not broken.
QSize SizeOf(const QString& line, const QFont& font) {
    QTextLayout layout(InLines(line), font);
    return Lay(layout, kUnbroken);
}

} // namespace

WrappingLabel::WrappingLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setWordWrap(true);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* copy = new QAction("Copy Text", this);
    connect(copy, &QAction::triggered, this,
            [this] { QGuiApplication::clipboard()->setText(QLabel::text()); });
    addAction(copy);
}

QSize WrappingLabel::SizeFor(int width) const {
    QTextLayout layout(InLines(text()), font());
    return Lay(layout, width);
}

// What is wider than there is room, such as a long path, is broken anyhow.
int WrappingLabel::WidthForLines(int usual, int most) const {
    const QStringList lines = text().split(u'\n');
    int width = usual;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const bool isBelow = i > 0 && !lines[i - 1].isEmpty();
        const bool isAbove = i + 1 < lines.size() && !lines[i + 1].isEmpty();
        if (lines[i].isEmpty() || (!isBelow && !isAbove)) continue;
        const int wanted = SizeOf(lines[i], font()).width();
        if (wanted <= most) width = std::max(width, wanted);
    }
    return std::min(width, most);
}

QSize WrappingLabel::sizeHint() const {
    return SizeFor(fontMetrics().averageCharWidth() * kComfortable);
}

QSize WrappingLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 8, fontMetrics().height()};
}

void WrappingLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QTextLayout layout(InLines(text()), font());
    Lay(layout, width());
    painter.setPen(palette().color(foregroundRole()));
    layout.draw(&painter, {0, 0});
}

} // namespace tarvix::forms
