#include "forms/window_place.h"
#include "tests/forms/window_fixture.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

namespace tarvix::forms {

using MemoryTest = WindowFixture;

TEST_F(MemoryTest, WhatWasSearchedForStandsInTheListOfTheBox) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    EXPECT_GE(Find<QComboBox>("cmbSearchFor")->findText("*.mp3"), 0);
    EXPECT_GE(Find<QComboBox>("cmbDir")->findText("C:\\home\\ann\\Music\\Abba"), 0);
}

TEST_F(MemoryTest, EntriesThatHoldWhatIsTypedAreOffered) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    Type("cmbDir", "aBBa");
    const auto* completer = Find<QComboBox>("cmbDir")->findChild<QCompleter*>();
    ASSERT_EQ(completer->completionCount(), 1);
    EXPECT_TRUE(completer->popup()->isVisible());
    QTest::keyClick(completer->popup(), Qt::Key_Down);
    QTest::keyClick(completer->popup(), Qt::Key_Return);
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\home\\ann\\Music\\Abba");
}

TEST_F(MemoryTest, EnterSearchesForWhatIsTypedWhateverIsOffered) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    Type("cmbSearchFor", "*.mp");
    auto* popup = Find<QComboBox>("cmbSearchFor")->completer()->popup();
    ASSERT_TRUE(popup->isVisible());
    QTest::keyClick(popup, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_FALSE(popup->isVisible());
    EXPECT_EQ(Form().cmbSearchFor.Text.Get(), "*.mp");
    EXPECT_EQ(TextOf("lblNumOfFilesFound"), "0");
}

TEST_F(MemoryTest, KeysOfTheWindowActWhileEntriesAreOffered) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    Type("cmbSearchFor", "*.mp");
    auto* popup = Find<QComboBox>("cmbSearchFor")->completer()->popup();
    ASSERT_TRUE(popup->isVisible());
    QTest::keyClick(popup, Qt::Key_L, Qt::ControlModifier);
    EXPECT_FALSE(popup->isVisible());
    EXPECT_EQ(window->focusWidget()->objectName(), "cmbDir");
    Type("cmbSearchFor", "*.mp3");
    ASSERT_TRUE(popup->isVisible());
    machine.disk.AddFile("C:\\home\\ann\\Music\\Abba\\new.mp3", "x");
    QTest::keyClick(popup, Qt::Key_F5);
    EXPECT_EQ(TextOf("lblNumOfFilesFound"), "3");
}

TEST_F(MemoryTest, AClickBesideWhatIsOfferedActsAtOnce) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    Type("cmbSearchFor", "*");
    auto* popup = Find<QComboBox>("cmbSearchFor")->completer()->popup();
    ASSERT_TRUE(popup->isVisible());
    auto* clear = Find<QPushButton>("cmdClearFolders");
    const QPoint at = clear->mapToGlobal(clear->rect().center());
    QTest::mousePress(popup, Qt::LeftButton, {}, popup->mapFromGlobal(at));
    QCoreApplication::processEvents();
    EXPECT_FALSE(popup->isVisible());
    EXPECT_TRUE(clear->isDown());
    QTest::mouseRelease(clear, Qt::LeftButton);
    EXPECT_EQ(Form().cmbDir.Text.Get(), "");
}

TEST_F(MemoryTest, ThePlaceOfTheWindowIsKeptWhenItCloses) {
    window->move(31, 42);
    window->resize(820, 560);
    QTest::qWait(20);
    window->close();
    const auto& place = S().state.platformSettings.searchWindow;
    EXPECT_EQ(place.width, 820);
    EXPECT_EQ(place.height, 560);
    EXPECT_FALSE(place.isMaximized);
}

class BoxMemoryTest : public WindowFixture {
  protected:
    void SetUp() override {
        machine.disk.AddFile(machine.environment.programFolder + "\\TXPlatform.txt",
                             "FastSort = on\r\nSubfolders = on\r\n*EOF");
        WindowFixture::SetUp();
    }
};

TEST_F(BoxMemoryTest, FastSortAndSubfoldersStandAsTheWindowWasLeft) {
    EXPECT_EQ(Form().chkFastSort.Value, 1);
    EXPECT_EQ(Form().chkIncludeSubFolders.Value, 1);
    Find<QCheckBox>("chkFastSort")->click();
    window->close();
    const auto& settings = S().state.platformSettings;
    EXPECT_EQ(settings.sortsFast, false);
    EXPECT_EQ(settings.searchesSubfolders, true);
}

TEST_F(MemoryTest, BoxesThatWereNeverLeftStandAsAtFirst) {
    EXPECT_EQ(Form().chkFastSort.Value, 0);
    EXPECT_FALSE(S().state.platformSettings.sortsFast);
}

TEST_F(MemoryTest, TheActionWindowOpensAsWideAsItWas) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    Press("cmdSelectAll");
    OnModal([](QWidget& modal) {
        modal.resize(790, modal.height());
        modal.close();
    });
    Press("cmdCopySelected");
    OnModal([](QWidget& modal) {
        EXPECT_EQ(modal.width(), 790);
        modal.close();
    });
    Press("cmdCopySelected");
}

TEST_F(MemoryTest, AStructureComesBackWithTheDestinationThatItWasUsedWith) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    Press("cmdSelectAll");
    OnModal([this](QWidget& modal) {
        auto* edit = modal.findChild<QComboBox*>("cmbDir")->lineEdit();
        edit->selectAll();
        QTest::keyClicks(edit, "C:\\home\\ann\\Copies");
        modal.findChild<QAbstractButton*>("optStructure(3)")->click();
        OnModal([](QWidget& question) { question.findChild<QPushButton*>("btnOK")->click(); });
        modal.findChild<QPushButton*>("OKButton")->click();
    });
    Press("cmdCopySelected");
    EXPECT_TRUE(machine.disk.Content("C:\\home\\ann\\Copies\\C\\home\\ann\\Music\\Abba\\one.mp3"));
    OnModal([](QWidget& modal) {
        EXPECT_EQ(modal.findChild<QComboBox*>("cmbDir")->currentText(), "C:\\home\\ann\\Copies");
        EXPECT_TRUE(modal.findChild<QAbstractButton*>("optStructure(3)")->isChecked());
        modal.findChild<QAbstractButton*>("optStructure(0)")->click();
        modal.close();
    });
    Press("cmdCopySelected");
}

TEST(WindowPlaceTest, AWindowTakesThePlaceThatItHad) {
    QWidget window;
    window.resize(300, 200);
    TakePlace(window, {});
    EXPECT_EQ(window.size(), QSize(300, 200));
    TakePlace(window, {15, 25, 400, 350, false});
    EXPECT_EQ(window.size(), QSize(400, 350));
    EXPECT_EQ(window.pos(), QPoint(15, 25));
    EXPECT_EQ(PlaceOf(window), (session::WindowPlace{15, 25, 400, 350, false}));
}

TEST(WindowPlaceTest, APlaceOnAScreenThatIsGoneGivesItsSizeOnly) {
    QWidget window;
    const QPoint before = window.pos();
    TakePlace(window, {90'000, -90'000, 100'000, 350, false});
    EXPECT_EQ(window.pos(), before);
    EXPECT_LE(window.width(), window.screen()->availableSize().width());
    EXPECT_EQ(window.height(), 350);
}

} // namespace tarvix::forms
