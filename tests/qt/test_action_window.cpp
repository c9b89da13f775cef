#include "tests/qt/window_fixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tarvix::qt {

class ActionWindowTest : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        Find<QCheckBox>("chkFastSort")->click();
        Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
        Press("cmdSelectAll");
    }
};

TEST_F(ActionWindowTest, CopiesTheSelectionToATypedFolder) {
    OnModal([this](QWidget& modal) {
        EXPECT_EQ(modal.objectName(), "frmDialog");
        auto* destination = modal.findChild<QComboBox*>("cmbDir");
        destination->lineEdit()->selectAll();
        QTest::keyClicks(destination->lineEdit(), "/home/ann/Copies");
        auto* ok = modal.findChild<QPushButton*>("OKButton");
        EXPECT_EQ(ok->text(), "&Copy 2 objects");
        EXPECT_EQ(modal.findChild<QLabel*>("lblSentence")->text(),
                  "Copy 2 objects into /home/ann/Copies, side by side, without their folders. "
                  "What is there already is skipped.");
        OnModal([](QWidget& question) {
            EXPECT_EQ(question.objectName(), "MsgBox");
            QTest::mouseClick(question.findChild<QPushButton*>("btnOK"), Qt::LeftButton);
        });
        QTest::mouseClick(ok, Qt::LeftButton);
    });
    Press("cmdCopySelected");
    EXPECT_EQ(machine.disk.Content("C:\\home\\ann\\Copies\\one.mp3"), "abc");
    EXPECT_EQ(machine.disk.Content("C:\\home\\ann\\Copies\\two.mp3"), "abcd");
    EXPECT_EQ(machine.disk.Content("C:\\home\\ann\\Music\\Abba\\one.mp3"), "abc");
    EXPECT_FALSE(S().frmDialog.IsShown());
}

TEST_F(ActionWindowTest, EscapeCancels) {
    OnModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    Press("cmdCopySelected");
    EXPECT_TRUE(S().state.blnActionCancelled);
    EXPECT_FALSE(S().frmDialog.IsShown());
}

TEST_F(ActionWindowTest, TheCloseButtonCancels) {
    OnModal([](QWidget& modal) { modal.close(); });
    Press("cmdCopySelected");
    EXPECT_TRUE(S().state.blnActionCancelled);
}

TEST_F(ActionWindowTest, WhileItIsBusyOnlyItsStopActs) {
    bool looked = false;
    OnModal([&](QWidget& modal) {
        modal.findChild<QComboBox*>("cmbDir")->lineEdit()->clear();
        QTest::keyClicks(modal.findChild<QComboBox*>("cmbDir")->lineEdit(),
                         "C:\\home\\ann\\Copies");
        OnModal([&](QWidget& question) {
            S().yielder.After(1, [&] {
                gate.Flush();
                looked = true;
                EXPECT_FALSE(modal.findChild<QPushButton*>("OKButton")->isEnabled());
                EXPECT_TRUE(modal.findChild<QPushButton*>("cmdStop")->isVisible());
                EXPECT_TRUE(modal.findChild<QLabel*>("lblBusy")->isVisible());
                modal.close();
                EXPECT_TRUE(modal.isVisible());
            });
            QTest::mouseClick(question.findChild<QPushButton*>("btnOK"), Qt::LeftButton);
        });
        QTest::mouseClick(modal.findChild<QPushButton*>("OKButton"), Qt::LeftButton);
    });
    Press("cmdCopySelected");
    EXPECT_TRUE(looked);
    EXPECT_TRUE(S().state.blnStopAction);
}

TEST_F(ActionWindowTest, NothingSelectedIsToldInsteadOfOpening) {
    Press("cmdSelectNone");
    OnModal([](QWidget& modal) {
        EXPECT_EQ(modal.objectName(), "MsgBox");
        EXPECT_EQ(modal.findChild<QLabel*>("lblText")->text(), "Nothing is selected.");
        QTest::keyClick(&modal, Qt::Key_Return);
    });
    Press("cmdCopySelected");
}

} // namespace tarvix::qt
