#include "results/result_list.h"
#include "tests/forms/window_fixture.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFont>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>

namespace tarvix::forms {
namespace {

class ContextMenuWindowTest : public WindowFixture {
  protected:
    void SetUp() override {
        machine.applications.SetType("mp3", "audio/mpeg");
        machine.applications.AddApplication("audio/mpeg", "play.desktop", "Player & Co");
        WindowFixture::SetUp();
        S().state.options.blnNoContextMenuWarning = true;
        Search("*.mp3", "C:\\home\\ann\\Music\\Abba|C:\\home\\ann\\Music\\Beatles");
    }

    void RightClick(int row) {
        auto& list = window->List();
        const QPoint at = PointAt(row);
        QTest::mousePress(list.viewport(), Qt::RightButton, {}, at);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, list.viewport()->mapToGlobal(at));
        QApplication::sendEvent(list.viewport(), &event);
        QTest::mouseRelease(list.viewport(), Qt::RightButton, {}, at);
    }

    void PressMenuKey() {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(window->List().viewport(), &event);
    }

    // Chooses the entry of that text in the menu that opens next; leaves the menu without one.
    void Choose(const QString& text) {
        OnPopup([this, text](QMenu& menu) {
            EXPECT_EQ(menu.objectName(), "mnuContext");
            for (QAction* action : menu.actions()) {
                offered << action->text();
                if (text.isEmpty() || action->text() != text) continue;
                menu.setActiveAction(action);
                QTest::keyClick(&menu, Qt::Key_Return);
                return;
            }
            menu.close();
        });
    }

    static QByteArray OnClipboard(const char* type) {
        return QGuiApplication::clipboard()->mimeData()->data(type);
    }

    int RowOf(std::string_view name) {
        for (std::size_t i = 0; i < S().rows->Count(); ++i) {
            if (S().rows->At(i).name == name) return static_cast<int>(i);
        }
        ADD_FAILURE() << name;
        return 0;
    }

    QStringList offered;
};

TEST_F(ContextMenuWindowTest, ARightClickSelectsTheRowAndOpensTheMenu) {
    Choose("");
    RightClick(RowOf("two.mp3"));
    EXPECT_EQ(SelectedNames(), (std::vector<std::string>{"two.mp3"}));
    EXPECT_TRUE(offered.contains("&Open"));
    EXPECT_TRUE(offered.contains("&Move to Trash"));
}

TEST_F(ContextMenuWindowTest, ARightClickOnTheSelectionKeepsIt) {
    ClickRow(RowOf("one.mp3"));
    ClickRow(RowOf("three.mp3"), Qt::ControlModifier);
    Choose("Cop&y to...");
    RightClick(RowOf("three.mp3"));
    EXPECT_EQ(SelectedNames().size(), 2U);
}

TEST_F(ContextMenuWindowTest, TheMenuKeyOpensItForTheSelection) {
    ClickRow(RowOf("one.mp3"));
    Choose("&Copy");
    PressMenuKey();
    EXPECT_EQ(OnClipboard("text/uri-list"), "file:///home/ann/Music/Abba/one.mp3\r\n");
}

TEST_F(ContextMenuWindowTest, CopyAndCutFillTheClipboardInEveryForm) {
    ClickRow(RowOf("one.mp3"));
    ClickRow(RowOf("three.mp3"), Qt::ControlModifier);
    Choose("Cu&t");
    RightClick(RowOf("one.mp3"));
    const QByteArray both = "file:///home/ann/Music/Abba/one.mp3\n"
                            "file:///home/ann/Music/Beatles/three.mp3";
    EXPECT_EQ(OnClipboard("x-special/gnome-copied-files"), "cut\n" + both);
    EXPECT_EQ(OnClipboard("x-special/mate-copied-files"), "cut\n" + both);
    EXPECT_EQ(OnClipboard("application/x-kde-cutselection"), "1");
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "/home/ann/Music/Abba/one.mp3\n/home/ann/Music/Beatles/three.mp3");
    EXPECT_TRUE(S().rows->At(static_cast<std::size_t>(RowOf("one.mp3"))).Has(results::kCut));
}

TEST_F(ContextMenuWindowTest, CutRowsStandBack) {
    const int row = RowOf("one.mp3");
    ClickRow(row);
    Choose("Cu&t");
    RightClick(row);
    const auto* model = window->List().model();
    EXPECT_EQ(model->data(model->index(row, 0), Qt::ForegroundRole).value<QColor>(),
              QColor(0x67, 0x69, 0x6d));
    EXPECT_TRUE(
        model->data(model->index(row, 0), Qt::AccessibleTextRole).toString().endsWith(", cut"));
}

TEST_F(ContextMenuWindowTest, ARowThatWentToTheTrashIsStruckThrough) {
    const int row = RowOf("one.mp3");
    ClickRow(row);
    Choose("&Move to Trash");
    OnModal([](QWidget& box) {
        for (auto* button : box.findChildren<QPushButton*>()) {
            if (button->text().remove('&') == "Yes") return button->click();
        }
        box.close();
    });
    RightClick(row);
    EXPECT_FALSE(machine.disk.Exists("C:\\home\\ann\\Music\\Abba\\one.mp3"));
    const auto* model = window->List().model();
    EXPECT_TRUE(model->data(model->index(row, 0), Qt::FontRole).value<QFont>().strikeOut());
}

TEST_F(ContextMenuWindowTest, AnApplicationIsFoundByItsName) {
    ClickRow(RowOf("one.mp3"));
    OnPopup([](QMenu& menu) {
        for (QAction* with : menu.actions()) {
            if (with->text() != "Open Wit&h") continue;
            ASSERT_NE(with->menu(), nullptr);
            ASSERT_EQ(with->menu()->actions().first()->text(), "Player && Co");
            with->menu()->actions().last()->trigger();
        }
        menu.close();
    });
    OnModal([](QWidget& chooser) {
        EXPECT_EQ(chooser.objectName(), "frmOpenWith");
        QTest::keyClicks(chooser.findChild<QLineEdit*>("txtFind"), "play");
        QTest::mouseClick(chooser.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    RightClick(RowOf("one.mp3"));
    ASSERT_EQ(machine.applications.started.size(), 1U);
}

TEST_F(ContextMenuWindowTest, ALeftMenuDoesNothing) {
    ClickRow(RowOf("one.mp3"));
    QGuiApplication::clipboard()->setText("before");
    Choose("");
    RightClick(RowOf("one.mp3"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "before");
    EXPECT_TRUE(machine.applications.started.empty());
}

} // namespace
} // namespace tarvix::forms
