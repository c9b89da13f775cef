#include "forms/outline_style.h"
#include "forms/theme.h"
#include "tests/forms/every_window.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextEdit>
#include <QToolButton>

#include <cmath>
#include <map>
#include <set>

namespace tarvix::forms {

namespace {

constexpr double kText = 4.5;    // contrast of texts
constexpr double kOutline = 3.0; // and of the lines around what can be used

std::string NameOf(const QWidget& widget) {
    const QString name = widget.objectName();
    const QString text = widget.property("text").toString().left(40);
    return std::string(widget.metaObject()->className()) + " " + name.toStdString() + " \"" +
           text.toStdString() + "\"";
}

// A part that Qt made for itself.
bool IsInner(const QWidget& widget) {
    for (const QWidget* part = widget.parentWidget(); part != nullptr && !part->isWindow();
         part = part->parentWidget()) {
        const bool isWhole = qobject_cast<const QComboBox*>(part) != nullptr ||
                             qobject_cast<const QAbstractSpinBox*>(part) != nullptr ||
                             qobject_cast<const QLineEdit*>(part) != nullptr ||
                             qobject_cast<const QCalendarWidget*>(part) != nullptr ||
                             qobject_cast<const QMenuBar*>(part) != nullptr ||
                             qobject_cast<const QScrollBar*>(part) != nullptr;
        if (isWhole) return true;
    }
    return widget.objectName().startsWith("qt_");
}

bool IsLabel(const QWidget& widget) {
    return qobject_cast<const QLabel*>(&widget) != nullptr;
}

bool IsInput(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr ||
           qobject_cast<const QLineEdit*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr;
}

std::vector<QWidget*> PartsOf(const QWidget& window) {
    std::vector<QWidget*> parts;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisibleTo(&window) && !IsInner(*widget) && widget->window() == &window) {
            parts.push_back(widget);
        }
    }
    return parts;
}

bool LiesInScrollArea(const QWidget& widget) {
    for (const QWidget* part = widget.parentWidget(); part != nullptr;
         part = part->parentWidget()) {
        if (qobject_cast<const QScrollArea*>(part) != nullptr) return true;
    }
    return false;
}

void ExpectNothingClipped(const QWidget& window, const std::string& name) {
    for (const QWidget* widget : PartsOf(window)) {
        if (!IsLabel(*widget) && !IsInput(*widget)) continue;
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        if (!LiesInScrollArea(*widget)) {
            EXPECT_TRUE(window.rect().contains(place)) << name << ": " << NameOf(*widget);
        }
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
            << name << ": " << NameOf(*widget);
        EXPECT_GE(widget->height(), widget->minimumSizeHint().height())
            << name << ": " << NameOf(*widget);
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()))
            << name << ": " << NameOf(*widget);
    }
}

void ExpectNothingOverlaps(const QWidget& window, const std::string& name) {
    std::vector<QWidget*> solid;
    for (QWidget* widget : PartsOf(window)) {
        if (IsLabel(*widget) || IsInput(*widget)) solid.push_back(widget);
    }
    for (std::size_t i = 0; i < solid.size(); ++i) {
        for (std::size_t j = i + 1; j < solid.size(); ++j) {
            if (solid[i]->parentWidget() != solid[j]->parentWidget()) continue;
            EXPECT_FALSE(solid[i]->geometry().intersects(solid[j]->geometry()))
                << name << ": " << NameOf(*solid[i]) << " and " << NameOf(*solid[j]);
        }
    }
}

// The colour behind a text: that of the nearest part which fills its ground.
QColor GroundOf(const QWidget& widget) {
    if (qobject_cast<const QLineEdit*>(&widget) != nullptr ||
        qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
        qobject_cast<const QTextEdit*>(&widget) != nullptr ||
        qobject_cast<const QAbstractItemView*>(&widget) != nullptr) {
        return widget.palette().color(QPalette::Base);
    }
    if (qobject_cast<const QPushButton*>(&widget) != nullptr ||
        qobject_cast<const QComboBox*>(&widget) != nullptr) {
        return widget.palette().color(QPalette::Button);
    }
    for (const QWidget* part = &widget; part != nullptr; part = part->parentWidget()) {
        if (part->isWindow() || part->autoFillBackground()) {
            return part->palette().color(part->backgroundRole());
        }
        const auto* list = qobject_cast<const QAbstractItemView*>(part->parentWidget());
        if (list != nullptr && list->viewport() == part)
            return list->palette().color(QPalette::Base);
    }
    return {};
}

void ExpectContrast(const QWidget& window, const std::string& name) {
    for (const QWidget* widget : PartsOf(window)) {
        if (!widget->isEnabled() || (!IsLabel(*widget) && !IsInput(*widget))) continue;
        const QColor text = widget->palette().color(widget->foregroundRole());
        const QColor ground = GroundOf(*widget);
        EXPECT_GE(Contrast(text, ground), kText)
            << name << ": " << NameOf(*widget) << " " << text.name().toStdString() << " on "
            << ground.name().toStdString();
    }
    const QColor line = OutlineOf(window.palette());
    EXPECT_GE(Contrast(line, window.palette().color(QPalette::Window)), kOutline);
    EXPECT_GE(Contrast(line, window.palette().color(QPalette::Base)), kOutline);
}

bool IsStop(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.isEnabled() &&
           widget.focusProxy() == nullptr;
}

std::vector<QWidget*> StopsOf(const QWidget& window) {
    std::vector<QWidget*> stops;
    for (QWidget* part : PartsOf(window)) {
        if (IsStop(*part)) stops.push_back(part);
    }
    return stops;
}

bool HasName(const QWidget& window, const QWidget& widget) {
    if (!widget.accessibleName().isEmpty()) return true;
    if (!widget.property("text").toString().isEmpty() &&
        qobject_cast<const QLineEdit*>(&widget) == nullptr) {
        return true;
    }
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (label->buddy() == &widget) return true;
    }
    return qobject_cast<const QScrollArea*>(&widget) != nullptr;
}

void ExpectNames(const QWidget& window, const std::string& name) {
    for (const QWidget* stop : StopsOf(window)) {
        EXPECT_TRUE(HasName(window, *stop)) << name << ": " << NameOf(*stop) << " has no name";
    }
}

// Tab comes to everything that can be used, once, and within one group goes as people read.
void ExpectTabOrder(QWidget& window, const std::string& name) {
    std::vector<QWidget*> chain;
    for (QWidget* next = window.nextInFocusChain(); next != &window;
         next = next->nextInFocusChain()) {
        const bool isSeen = next->isVisibleTo(&window) && next->window() == &window;
        if (isSeen && !IsInner(*next) && IsStop(*next)) chain.push_back(next);
        ASSERT_LT(chain.size(), 1000U) << name;
    }
    const auto stops = StopsOf(window);
    EXPECT_EQ(std::set<QWidget*>(chain.begin(), chain.end()).size(), chain.size()) << name;
    EXPECT_EQ(chain.size(), stops.size()) << name;
    for (std::size_t i = 1; i < chain.size(); ++i) {
        const QWidget& last = *chain[i - 1];
        const QWidget& next = *chain[i];
        if (last.parentWidget() != next.parentWidget()) continue;
        const bool isBelow = next.geometry().top() >= last.geometry().bottom() - 2;
        const bool isBehind = next.geometry().left() >= last.geometry().right() - 2;
        EXPECT_TRUE(isBelow || isBehind)
            << name << ": " << NameOf(next) << " comes behind " << NameOf(last);
    }
}

void ExpectLettersOnce(const QWidget& window, const std::string& name) {
    std::map<QChar, std::string> seen;
    const auto note = [&](const QString& caption, const std::string& whose) {
        const qsizetype at = caption.indexOf(u'&');
        if (at < 0 || at + 1 >= caption.size() || caption[at + 1] == u'&') return;
        const auto [found, isNew] = seen.emplace(caption[at + 1].toLower(), whose);
        EXPECT_TRUE(isNew) << name << ": " << whose << " and " << found->second;
    };
    for (const QWidget* part : PartsOf(window)) {
        const auto* button = qobject_cast<const QAbstractButton*>(part);
        const auto* label = qobject_cast<const QLabel*>(part);
        if (button != nullptr) note(button->text(), NameOf(*button));
        if (label != nullptr && label->buddy() != nullptr) note(label->text(), NameOf(*label));
    }
    const auto* bar = window.findChild<QMenuBar*>();
    if (bar == nullptr) return;
    for (const QAction* menu : bar->actions()) {
        if (menu->isVisible()) note(menu->text(), menu->text().toStdString());
    }
}

// What can be pressed in a window of its own answers to a letter, but for Cancel, which Esc presses
// too; a page of options has more than there are letters.
void ExpectLetters(const QWidget& window, const std::string& name) {
    for (const QWidget* part : PartsOf(window)) {
        const auto* button = qobject_cast<const QAbstractButton*>(part);
        const bool isAny = button != nullptr && !button->text().isEmpty();
        if (!isAny || button->text() == "Cancel") continue;
        EXPECT_TRUE(QString(button->text()).replace("&&", "  ").contains(u'&'))
            << name << ": " << NameOf(*button) << " has no letter";
    }
}

// Each entry is to be seen whole where the screen has room for all, else the menu scrolls; and
// answers to a letter of its own.
void ExpectEntries(const QMenu& menu, const std::string& name) {
    std::map<QChar, std::string> seen;
    const QSize room = menu.screen()->availableSize();
    const bool isWhole = menu.sizeHint().boundedTo(room) == menu.sizeHint();
    for (QAction* entry : menu.actions()) {
        if (!entry->isVisible() || entry->isSeparator()) continue;
        const std::string text = name + ": " + entry->text().toStdString();
        const QRect place = menu.actionGeometry(entry);
        EXPECT_TRUE(!isWhole || menu.rect().contains(place)) << text;
        const int needs = menu.fontMetrics().horizontalAdvance(entry->text().section(u'\t', 0, 0));
        EXPECT_GT(place.width(), needs) << text;
        const qsizetype at = QString(entry->text()).replace("&&", "  ").indexOf(u'&');
        ASSERT_GE(at, 0) << text << " has no letter";
        const auto [found, isNew] = seen.emplace(entry->text()[at + 1].toLower(), text);
        EXPECT_TRUE(isNew) << text << " and " << found->second;
    }
    EXPECT_FALSE(seen.empty()) << name;
    const QPalette& colors = menu.palette();
    EXPECT_GE(Contrast(colors.color(menu.foregroundRole()), colors.color(menu.backgroundRole())),
              kText)
        << name;
}

} // namespace

class LooksTest : public EveryWindow, public ::testing::WithParamInterface<bool> {
  protected:
    bool IsDarkShade() const override { return GetParam(); }
};

// All at once, since opening every window is what takes time.
TEST_P(LooksTest, EveryWindowCanBeReadAndUsed) {
    int seen = 0;
    Each([&seen](QWidget& any, const std::string& name) {
        ExpectNothingClipped(any, name);
        ExpectNothingOverlaps(any, name);
        ExpectContrast(any, name);
        ExpectNames(any, name);
        ExpectTabOrder(any, name);
        ExpectLettersOnce(any, name);
        if (const auto* menu = qobject_cast<const QMenu*>(&any)) ExpectEntries(*menu, name);
        const bool isOptions = name.starts_with("options");
        if (qobject_cast<QDialog*>(&any) != nullptr && !isOptions) ExpectLetters(any, name);
        ++seen;
    });
    EXPECT_GE(seen, 56);
}

INSTANTIATE_TEST_SUITE_P(InLightAndDark, LooksTest, ::testing::Bool(),
                         [](const auto& shade) { return shade.param ? "Dark" : "Light"; });

// Writes a picture of each window where TARVIX_PICTURES names a folder.
class PicturesTest : public LooksTest {};

TEST_P(PicturesTest, OfEachWindow) {
    const QString folder = qEnvironmentVariable("TARVIX_PICTURES");
    if (folder.isEmpty()) GTEST_SKIP() << "TARVIX_PICTURES names no folder";
    ASSERT_TRUE(QDir().mkpath(folder));
    const double scale = QApplication::primaryScreen() ? qApp->devicePixelRatio() : 1;
    const QString kind =
        QString("%1%2").arg(GetParam() ? "dark" : "light", scale > 1 ? "-double" : "");
    Each([&](QWidget& any, const std::string& name) {
        const QString file =
            QString("%1/%2-%3.png").arg(folder, QString::fromStdString(name).toLower(), kind);
        EXPECT_TRUE(any.grab().save(file)) << file.toStdString();
    });
}

INSTANTIATE_TEST_SUITE_P(InLightAndDark, PicturesTest, ::testing::Bool(),
                         [](const auto& shade) { return shade.param ? "Dark" : "Light"; });

// What is no fault of any window: the shades themselves.
TEST(ShadeTest, TextsAndTintsStandOut) {
    for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
        for (const auto& [ink, ground] : {std::pair{QPalette::WindowText, QPalette::Window},
                                          {QPalette::Text, QPalette::Base},
                                          {QPalette::Text, QPalette::AlternateBase},
                                          {QPalette::ButtonText, QPalette::Button},
                                          {QPalette::PlaceholderText, QPalette::Base},
                                          {QPalette::HighlightedText, QPalette::Highlight},
                                          {QPalette::ToolTipText, QPalette::ToolTipBase}}) {
            EXPECT_GE(Contrast(palette.color(ink), palette.color(ground)), kText)
                << static_cast<int>(ink) << " on " << static_cast<int>(ground);
        }
        for (const fields::Color color : {fields::kBlue, fields::kRed, fields::kGreen}) {
            EXPECT_GE(Contrast(Tint(color, palette), palette.color(QPalette::Base)), kText)
                << color;
            EXPECT_GE(Contrast(Tint(color, palette), palette.color(QPalette::Window)), kText)
                << color;
        }
    }
}

} // namespace tarvix::forms
