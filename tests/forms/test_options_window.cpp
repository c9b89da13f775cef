#include "forms/list_box.h"
#include "tests/forms/window_fixture.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeWidget>

namespace tarvix::forms {

namespace {

constexpr QSize kSmallScreen(800, 549);
constexpr QSize kFrame(16, 40); // that a desktop puts around a window

class OptionsWindowTest : public WindowFixture {
  protected:
    // Opens the window from its menu, acts in it, and closes it by Cancel if it is still there.
    void Inside(std::function<void(QWidget&)> act) {
        OnModal([this, act = std::move(act)](QWidget& modal) {
            modal_ = &modal;
            act(modal);
            if (modal.isVisible()) Push("cmdCancel");
        });
        Find<QAction>("mnuOptions_Open")->trigger();
    }
    template <class T>
    T& In(const char* name) {
        auto* found = modal_->findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void Push(const char* button) { In<QPushButton>(button).click(); }
    void Choose(int page) {
        QTest::keyClick(&In<QListWidget>("tbsOptions"), Qt::Key_Home);
        for (int i = 0; i < page; ++i)
            QTest::keyClick(&In<QListWidget>("tbsOptions"), Qt::Key_Down);
    }
    QWidget* modal_ = nullptr;
};

TEST_F(OptionsWindowTest, FitsASmallScreenOnEachPage) {
    Inside([&](QWidget& modal) {
        const QSize room = kSmallScreen - kFrame;
        EXPECT_LE(modal.minimumSizeHint().width(), room.width());
        EXPECT_LE(modal.minimumSizeHint().height(), room.height());
        EXPECT_LE(modal.width(), room.width());
        EXPECT_LE(modal.height(), room.height());
        auto* stack = modal.findChild<QStackedWidget*>();
        for (int page = 0; page < fields::kPageCount; ++page) {
            Choose(page);
            QCoreApplication::processEvents();
            ASSERT_EQ(stack->currentIndex(), page);
            auto* area = qobject_cast<QScrollArea*>(stack->currentWidget());
            ASSERT_NE(area, nullptr);
            EXPECT_LE(area->widget()->width(), area->viewport()->width()) << page;
        }
    });
}

TEST_F(OptionsWindowTest, EveryOptionHasItsWidget) {
    Inside([&](QWidget& modal) {
        for (const fields::Control* control : S().forms.frmOptions.Controls()) {
            const bool isNoWidget = control->Kind() == fields::ControlKind::kFrame;
            if (isNoWidget) continue;
            EXPECT_NE(modal.findChild<QWidget*>(QString::fromStdString(control->Name())), nullptr)
                << control->Name();
        }
    });
}

TEST_F(OptionsWindowTest, ABoxThatIsClickedCountsFromApplyOn) {
    Inside([&](QWidget&) {
        auto& box = In<QCheckBox>("chkSkipNTFS");
        EXPECT_TRUE(box.isChecked());
        box.click();
        EXPECT_FALSE(box.isChecked());
        EXPECT_TRUE(S().state.options.blnSkipNTFS);
        Push("cmdApply");
        EXPECT_TRUE(modal_->isVisible());
        EXPECT_FALSE(S().state.options.blnSkipNTFS);
    });
}

TEST_F(OptionsWindowTest, AColumnShowsInTheListAtOnce) {
    Inside([&](QWidget&) {
        In<QCheckBox>("chkList(10)").click();
        Push("cmdApply");
        EXPECT_TRUE(window->List().horizontalHeader()->isSectionHidden(10));
        In<QCheckBox>("chkList(10)").click();
        Push("cmdApply");
        EXPECT_FALSE(window->List().horizontalHeader()->isSectionHidden(10));
    });
}

TEST_F(OptionsWindowTest, EscapeCancels) {
    Inside([&](QWidget& modal) {
        In<QCheckBox>("chkSkipNTFS").click();
        QTest::keyClick(&modal, Qt::Key_Escape);
        EXPECT_FALSE(modal.isVisible());
    });
    EXPECT_TRUE(S().state.options.blnSkipNTFS);
}

TEST_F(OptionsWindowTest, AChangedOptionIsBoldAndItsButtonSetsItBack) {
    Inside([&](QWidget&) {
        auto& box = In<QCheckBox>("chkSkipNTFS");
        auto& reset = In<QToolButton>("reset_chkSkipNTFS");
        EXPECT_FALSE(box.font().bold());
        EXPECT_FALSE(reset.isVisibleTo(modal_));
        box.click();
        EXPECT_TRUE(box.font().bold());
        EXPECT_TRUE(reset.isVisibleTo(modal_));
        EXPECT_EQ(In<QLabel>("lblChanged").text(), "1 option is not as at first.");
        reset.click();
        EXPECT_TRUE(box.isChecked());
        EXPECT_FALSE(box.font().bold());
        EXPECT_EQ(In<QLabel>("lblChanged").text(), "All options are as at first.");
    });
}

TEST_F(OptionsWindowTest, TheSearchBoxGoesToAnOption) {
    Inside([&](QWidget& modal) {
        auto& find = In<QLineEdit>("txtFind");
        QTest::keyClicks(&find, "sngDefWeb");
        auto* stack = modal.findChild<QStackedWidget*>();
        EXPECT_EQ(stack->currentIndex(), int{fields::kPageCount});
        EXPECT_EQ(In<QListWidget>("lstFound").count(), 1);
        QTest::keyClick(&find, Qt::Key_Return);
        EXPECT_TRUE(modal.isVisible()) << "Enter in the search box is no OK";
        EXPECT_EQ(stack->currentIndex(), int{fields::kWebPage});
        EXPECT_EQ(modal.focusWidget(), &In<QLineEdit>("txtDefTime"));
        QTest::keyClicks(&find, "no such thing");
        QTest::keyClick(&find, Qt::Key_Escape);
        EXPECT_TRUE(modal.isVisible());
        EXPECT_EQ(find.text(), "");
    });
}

TEST_F(OptionsWindowTest, AVariableIsMarkedInItsTable) {
    Inside([&](QWidget&) {
        auto& table = In<QTreeWidget>("lstMain");
        ASSERT_GT(table.topLevelItemCount(), 3);
        QTreeWidgetItem* item = table.topLevelItem(2);
        EXPECT_EQ(item->checkState(0), Qt::Unchecked);
        item->setCheckState(0, Qt::Checked);
        EXPECT_TRUE(S().forms.frmOptions.lstMain.IsSelected(2));
        item->setCheckState(0, Qt::Unchecked);
        EXPECT_FALSE(S().forms.frmOptions.lstMain.IsSelected(2));
        Push("cmdRebuildEnvVar");
        EXPECT_GT(table.topLevelItemCount(), 3);
    });
}

TEST_F(OptionsWindowTest, AWrongTimeLeadsToItsPage) {
    Inside([&](QWidget& modal) {
        auto& seconds = In<QLineEdit>("txtDefTime");
        seconds.selectAll();
        QTest::keyClicks(&seconds, "abc");
        OnModal([](QWidget& box) { box.close(); });
        Push("cmdOK");
        EXPECT_TRUE(modal.isVisible());
        EXPECT_EQ(modal.findChild<QStackedWidget*>()->currentIndex(), int{fields::kWebPage});
    });
}

TEST_F(OptionsWindowTest, ExpertModeOpensItsBoxes) {
    Inside([&](QWidget&) {
        EXPECT_FALSE(In<QCheckBox>("chkHidden").isEnabled());
        In<QCheckBox>("chkAllowAll").click();
        EXPECT_TRUE(In<QCheckBox>("chkHidden").isEnabled());
        EXPECT_FALSE(In<QRadioButton>("optAttribDef(0)").isEnabled());
        In<QCheckBox>("chkHidden").click();
        EXPECT_EQ(In<QCheckBox>("chkHidden").checkState(), Qt::PartiallyChecked);
        In<QCheckBox>("chkHidden").click();
        EXPECT_EQ(In<QCheckBox>("chkHidden").checkState(), Qt::Checked);
    });
}

TEST_F(OptionsWindowTest, ATipTellsTheKeyOnALineOfItsOwn) {
    Inside([&](QWidget&) {
        EXPECT_TRUE(In<QCheckBox>("chkSkipNTFS").toolTip().contains("<br>Key: blnSkipNTFS"));
    });
}

} // namespace

} // namespace tarvix::forms
