#include "tests/forms/window_fixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>

#include <set>

namespace tarvix::forms {

using SearchWindowTest = WindowFixture;

TEST_F(SearchWindowTest, ASearchFillsTheListAndTheCounters) {
    S().state.options.blnAllowUserSelectSubfolders = true;
    Search("*.mp3", "C:\\home\\ann\\Music");
    EXPECT_EQ(S().rows->Count(), 0U);
    Find<QCheckBox>("chkIncludeSubFolders")->click();
    Press("cmdSearch");
    EXPECT_EQ(TextOf("lblNumOfFilesFound"), "3");
    EXPECT_EQ(TextOf("lblNumOfFilesAttrib"), "4");
    const int rows = window->List().model()->rowCount();
    EXPECT_EQ(rows, static_cast<int>(S().rows->Count()));
    EXPECT_GE(rows, 3);
}

TEST_F(SearchWindowTest, EnterInABoxSearches) {
    Type("cmbDir", "C:\\home\\ann\\Music\\Abba");
    Type("cmbSearchFor", "*.mp3");
    QTest::keyClick(Find<QComboBox>("cmbSearchFor"), Qt::Key_Return);
    EXPECT_EQ(TextOf("lblNumOfFilesFound"), "2");
}

TEST_F(SearchWindowTest, F5SearchesAgain) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    machine.disk.AddFile("C:\\home\\ann\\Music\\Abba\\new.mp3", "x");
    QTest::keyClick(window.get(), Qt::Key_F5);
    EXPECT_EQ(TextOf("lblNumOfFilesFound"), "3");
}

TEST_F(SearchWindowTest, NativePathsBecomeDrivePaths) {
    Search("*.mp3", "/home/ann/Music/Abba|~/Music/Beatles");
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\home\\ann\\Music\\Abba|C:\\home\\ann\\Music\\Beatles");
    EXPECT_EQ(Find<QComboBox>("cmbDir")->currentText(),
              "C:\\home\\ann\\Music\\Abba|C:\\home\\ann\\Music\\Beatles");
    EXPECT_EQ(TextOf("lblNumOfFilesFound"), "3");
}

TEST_F(SearchWindowTest, ANativePathIsTranslatedWhenTheBoxIsLeft) {
    Type("cmbDir", "/home/ann/Music");
    EXPECT_EQ(Form().cmbDir.Text.Get(), "/home/ann/Music");
    QTest::keyClick(Find<QComboBox>("cmbDir"), Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\home\\ann\\Music");
}

TEST_F(SearchWindowTest, DroppedFoldersAreAppendedToTheLocations) {
    Type("cmbDir", "C:\\tmp");
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile("/home/ann/Music"),
                  QUrl::fromLocalFile("/home/ann/Music/Abba/one.mp3"),
                  QUrl("https://example.org/x")});
    QLineEdit* edit = Find<QComboBox>("cmbDir")->lineEdit();
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(edit, &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(edit, &drop);
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\tmp|C:\\home\\ann\\Music|C:\\home\\ann\\Music\\Abba");
}

TEST_F(SearchWindowTest, TypingWhileARoutineRunsIsKept) {
    gate.Run(nullptr, [&] {
        Type("cmbSearchFor", "*.jpg");
        EXPECT_EQ(Form().cmbSearchFor.Text.Get(), "");
        gate.Flush();
    });
    EXPECT_EQ(Form().cmbSearchFor.Text.Get(), "*.jpg");
    EXPECT_EQ(Find<QComboBox>("cmbSearchFor")->currentText(), "*.jpg");
}

TEST_F(SearchWindowTest, DuringASearchOnlyStopActs) {
    bool looked = false;
    S().yielder.After(3, [&] {
        gate.Flush();
        looked = true;
        EXPECT_FALSE(Find<QPushButton>("cmdSearch")->isEnabled());
        EXPECT_FALSE(Find<QComboBox>("cmbDir")->isEnabled());
        EXPECT_FALSE(Find<QCheckBox>("chkDate")->isEnabled());
        EXPECT_TRUE(Find<QPushButton>("cmdStop")->isEnabled());
        EXPECT_TRUE(Find<QProgressBar>("barBusy")->isVisible());
        const int before = Form().chkFastSort.Value;
        Find<QCheckBox>("chkFastSort")->click();
        EXPECT_EQ(Form().chkFastSort.Value.Get(), before);
    });
    Find<QCheckBox>("chkIncludeSubFolders")->click();
    Search("*.mp3", "C:\\home\\ann\\Music");
    EXPECT_TRUE(looked);
    EXPECT_TRUE(Find<QPushButton>("cmdSearch")->isEnabled());
    EXPECT_FALSE(Find<QPushButton>("cmdStop")->isEnabled());
    EXPECT_FALSE(Find<QProgressBar>("barBusy")->isVisible());
}

TEST_F(SearchWindowTest, StopEndsASearch) {
    S().yielder.After(3, [&] {
        gate.Flush();
        Press("cmdStop");
    });
    Find<QCheckBox>("chkIncludeSubFolders")->click();
    Search("*.mp3", "C:\\home\\ann\\Music");
    EXPECT_TRUE(S().state.blnStopClicked);
    EXPECT_FALSE(Find<QPushButton>("cmdStop")->isEnabled());
}

TEST_F(SearchWindowTest, EscapeStopsASearch) {
    S().yielder.After(3, [&] {
        gate.Pump();
        QTest::keyClick(window.get(), Qt::Key_Escape);
    });
    Find<QCheckBox>("chkIncludeSubFolders")->click();
    Search("*.mp3", "C:\\home\\ann\\Music");
    EXPECT_TRUE(S().state.blnStopClicked);
    EXPECT_FALSE(Find<QPushButton>("cmdStop")->isEnabled());
}

TEST_F(SearchWindowTest, ClosingDuringASearchStopsItAndClosesAfterIt) {
    S().yielder.After(3, [&] {
        EXPECT_FALSE(window->close());
        EXPECT_TRUE(window->isVisible());
    });
    Find<QCheckBox>("chkIncludeSubFolders")->click();
    Search("*.mp3", "C:\\home\\ann\\Music");
    EXPECT_TRUE(S().state.blnStopClicked);
    EXPECT_FALSE(Find<QPushButton>("cmdStop")->isEnabled());
    QCoreApplication::processEvents();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(SearchWindowTest, AnAttributeBoxStepsFromNoneToAnyToOnly) {
    auto* box = Find<QCheckBox>("chkHidden");
    EXPECT_EQ(box->checkState(), Qt::Unchecked);
    EXPECT_EQ(box->accessibleDescription(), "Hidden objects are not found");
    box->click();
    EXPECT_EQ(box->checkState(), Qt::PartiallyChecked);
    EXPECT_EQ(Form().chkHidden.Value.Get(), 2);
    EXPECT_EQ(box->accessibleDescription(), "Hidden objects are found, too");
    box->click();
    EXPECT_EQ(box->checkState(), Qt::Checked);
    EXPECT_EQ(Form().chkHidden.Value.Get(), 1);
    EXPECT_EQ(box->accessibleDescription(), "Hidden objects alone are found");
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(5, box->height() / 2));
    EXPECT_EQ(box->checkState(), Qt::Unchecked);
    EXPECT_TRUE(box->toolTip().startsWith("Hidden objects are not found."));
}

TEST_F(SearchWindowTest, TheSizeBoxesCanBeUsedWhenSizeIsChecked) {
    EXPECT_TRUE(Find<QLineEdit>("txtSize1")->isVisible());
    EXPECT_FALSE(Find<QLineEdit>("txtSize1")->isEnabled());
    Find<QCheckBox>("chkSize")->click();
    EXPECT_TRUE(Find<QLineEdit>("txtSize1")->isEnabled());
    EXPECT_TRUE(Find<QLineEdit>("txtSize1")->hasFocus());
    EXPECT_FALSE(Find<QLineEdit>("txtSize2")->isEnabled());
    auto* how = Find<QComboBox>("cboSize");
    how->setFocus();
    QTest::keyClicks(how, "R");
    EXPECT_EQ(Form().cboSize.Text.Get(), "Range");
    EXPECT_TRUE(Find<QLineEdit>("txtSize2")->isEnabled());
    Find<QCheckBox>("chkSize")->click();
    EXPECT_FALSE(Find<QLineEdit>("txtSize1")->isEnabled());
    EXPECT_FALSE(how->isEnabled());
}

TEST_F(SearchWindowTest, ChoosingADateTestAsksForTheDate) {
    Find<QCheckBox>("chkDate")->click();
    auto* how = Find<QComboBox>("cboDate");
    EXPECT_TRUE(how->isEnabled());
    OnModal([](QWidget& modal) {
        EXPECT_EQ(modal.objectName(), "frmSelectDate");
        EXPECT_FALSE(modal.findChild<QWidget*>("dtpEndDate")->isVisible());
        auto* day = modal.findChild<QDateTimeEdit*>("dtpStartDate");
        day->setDate(QDate(2024, 3, 9));
        QTest::mouseClick(modal.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    how->setFocus();
    QTest::keyClicks(how, "S");
    EXPECT_EQ(Form().lblDate1.Caption.Get(), "2024/03/09 00:00:00");
    EXPECT_EQ(Find<QLineEdit>("txtDate1")->text(), "2024/03/09");
    EXPECT_FALSE(Find<QLineEdit>("txtDate2")->isEnabled());
}

TEST_F(SearchWindowTest, ARangeOfDatesShowsTheEndPickersAndClosingCancels) {
    Find<QCheckBox>("chkDate")->click();
    OnModal([](QWidget& modal) {
        EXPECT_TRUE(modal.findChild<QWidget*>("dtpEndDate")->isVisible());
        EXPECT_TRUE(modal.findChild<QWidget*>("dtpEndTime")->isVisible());
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    auto* how = Find<QComboBox>("cboDate");
    how->setFocus();
    QTest::keyClicks(how, "R");
    EXPECT_EQ(Form().lblDate1.Caption.Get(), "");
}

TEST_F(SearchWindowTest, WhatHasNoRoutineDoesNotShow) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    EXPECT_TRUE(Find<QPushButton>("cmdCopySelected")->isVisible());
    for (const char* name : {"cmdBrowse", "cmdDoVersionSort", "cmdEditTargets"}) {
        const fields::Control* field = Form().Find(name);
        const std::string event = std::string("frmSearch.") + name + "_Click";
        EXPECT_EQ(Find<QPushButton>(name)->isVisible(), S().events.Has(event) && field->Visible)
            << name;
    }
    for (const QAction* menu : window->menuBar()->actions()) {
        if (!menu->isVisible()) continue;
        const auto entries = menu->menu()->actions();
        EXPECT_TRUE(std::ranges::any_of(entries, &QAction::isVisible))
            << menu->text().toStdString();
    }
}

TEST_F(SearchWindowTest, CtrlFGoesToTheSearchBox) {
    window->List().setFocus();
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(Find<QComboBox>("cmbSearchFor")->hasFocus());
}

TEST_F(SearchWindowTest, ScrollingPastABoxDoesNotChangeIt) {
    Form().cmbSearchFor.AddItem("*.flac");
    Type("cmbSearchFor", "*.mp3");
    auto* box = Find<QComboBox>("cmbSearchFor");
    QWheelEvent wheel(QPointF(5, 5), box->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(box, &wheel);
    EXPECT_EQ(Form().cmbSearchFor.Text.Get(), "*.mp3");
}

TEST_F(SearchWindowTest, ACounterThatGrowsHasItsRoomAtOnce) {
    gate.Run(nullptr, [&] {
        Form().lblNumOfFilesAttrib.Caption = "250000";
        gate.Flush();
        const auto* label = Find<QLabel>("lblNumOfFilesAttrib");
        EXPECT_EQ(label->text(), "250,000");
        EXPECT_GE(label->width(), label->sizeHint().width());
    });
}

// Every visible part of the window lies whole within what holds it.
void ExpectNothingClipped(const QWidget& window) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool reads = qobject_cast<const QLabel*>(widget) != nullptr ||
                           qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                           qobject_cast<const QComboBox*>(widget) != nullptr;
        if (!reads || !widget->isVisible() || widget->objectName().isEmpty()) continue;
        if (widget->objectName().startsWith("qt_")) continue;
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        EXPECT_TRUE(window.rect().contains(place)) << widget->objectName().toStdString();
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
            << widget->objectName().toStdString();
        EXPECT_GE(widget->height(), widget->minimumSizeHint().height())
            << widget->objectName().toStdString();
        const QRect within = widget->parentWidget()->rect();
        EXPECT_TRUE(within.contains(widget->geometry())) << widget->objectName().toStdString();
    }
}

TEST_F(SearchWindowTest, NothingIsClippedInTheSmallestWindow) {
    OnModal([](QWidget& modal) {
        QTest::mouseClick(modal.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    Search("*.*", "C:\\home\\ann\\Music\\Abba");
    Find<QCheckBox>("chkSize")->click();
    Find<QCheckBox>("chkDate")->click();
    auto* how = Find<QComboBox>("cboDate");
    how->setFocus();
    QTest::keyClicks(how, "R");
    Form().cboSize.Text = "Range";
    Form().txtSize2.Visible = true;
    for (auto* label : {&Form().lblNumOfFilesFound, &Form().lblNumOfFilesAttrib,
                        &Form().lblNumOfFilesSelected, &Form().lblNumOfDirsSelected}) {
        label->Caption = "250000";
    }
    Form().lblTotalSize.Caption = "999,999,999,999";
    gate.Flush();
    window->resize(800, 497);
    QTest::qWait(500);
    EXPECT_EQ(window->size(), QSize(800, 497));
    ExpectNothingClipped(*window);
    EXPECT_GE(window->List().height(), 100);
}

TEST_F(SearchWindowTest, TheStandardKeysAct) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    window->List().setFocus();
    QTest::keyClick(&window->List(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(SelectedNames().size(), 2U);
    OnModal([this](QWidget& modal) {
        EXPECT_EQ(modal.objectName(), "frmDialog");
        EXPECT_EQ(S().state.strAction, "Rename");
        modal.close();
    });
    QTest::keyClick(&window->List(), Qt::Key_F2);
    Activate(*window);
    OnModal([](QWidget& modal) {
        EXPECT_TRUE(modal.findChild<QLabel*>("lblText")->text().contains(
            "Are you sure you want delete all selected objects?"));
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    QTest::keyClick(&window->List(), Qt::Key_Delete);
    Activate(*window);
    EXPECT_EQ(machine.disk.Content("C:\\home\\ann\\Music\\Abba\\one.mp3"), "abc");
    QTest::keyClick(&window->List(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "/home/ann/Music/Abba/one.mp3\n/home/ann/Music/Abba/two.mp3");
    QTest::keyClick(&window->List(), Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(SelectedNames().size(), 0U);
    window->List().setFocus();
    QTest::keyClick(&window->List(), Qt::Key_F6);
    EXPECT_EQ(window->focusWidget()->objectName(), "cmbSearchFor");
    QTest::keyClick(window.get(), Qt::Key_F6);
    EXPECT_EQ(window->focusWidget()->objectName(), "lstMain");
}

TEST_F(SearchWindowTest, ARowWhoseObjectWentToTheTrashIsNotPaintedAsSelected) {
    Search("*.mp3", "/home/ann/Music/Abba");
    ClickRow(0);
    const QModelIndex current = window->List().currentIndex();
    EXPECT_TRUE(window->List().selectionModel()->isSelected(current));
    OnModal([](QWidget& modal) { modal.findChild<QPushButton*>("btnYes")->click(); });
    Press("cmdDeleteSelected");
    EXPECT_EQ(SelectedNames().size(), 0U);
    EXPECT_EQ(window->List().currentIndex(), current);
    EXPECT_FALSE(window->List().selectionModel()->isSelected(current));
}

TEST_F(SearchWindowTest, TheQuestionBeforeTheTrashLeadsWithWhatGoesThere) {
    S().platform.traits.hasNativePaths = true;
    S().state.platformSettings.showsNative = true;
    Search("*.mp3", "/home/ann/Music/Abba");
    Press("cmdSelectAll");
    OnModal([](QWidget& modal) {
        EXPECT_EQ(modal.findChild<QLabel*>("lblText")->text(),
                  "Move 2 files (7 bytes) to the trash?");
        EXPECT_TRUE(modal.findChild<QLabel*>("lblDetails")->text().contains("Read-only objects"));
        EXPECT_EQ(modal.findChild<QPushButton*>("btnYes")->text().remove(u'&'), "Move to Trash");
        EXPECT_EQ(modal.focusWidget()->objectName(), "btnNo");
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    Press("cmdDeleteSelected");
    EXPECT_EQ(machine.disk.Content("C:\\home\\ann\\Music\\Abba\\one.mp3"), "abc");
}

TEST_F(SearchWindowTest, DeleteInABoxDeletesACharacter) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    Press("cmdSelectAll");
    QLineEdit* edit = Find<QComboBox>("cmbSearchFor")->lineEdit();
    edit->setFocus();
    edit->setCursorPosition(0);
    QTest::keyClick(edit, Qt::Key_Delete);
    EXPECT_EQ(edit->text(), ".mp3");
}

TEST_F(SearchWindowTest, LongWorkShowsHowFarItIsBesideTheWindow) {
    auto& progress = S().forms.frmProgress;
    gate.Run(nullptr, [&] {
        progress.lblMain.Caption = "Recycling 25 of 100 objects";
        progress.prgMain.Max = 100;
        progress.prgMain.Value = 25;
        progress.Show();
        gate.Flush();
        EXPECT_TRUE(Find<QProgressBar>("barBusy")->isVisible());
        EXPECT_EQ(Find<QProgressBar>("barBusy")->value(), 25);
        EXPECT_EQ(Find<QProgressBar>("barBusy")->maximum(), 100);
        EXPECT_EQ(TextOf("lblProgressText"), "Recycling 25 of 100 objects");
        EXPECT_TRUE(window->isEnabled());
        progress.Hide();
    });
    EXPECT_FALSE(Find<QProgressBar>("barBusy")->isVisible());
    EXPECT_FALSE(Find<QLabel>("lblProgressText")->isVisible());
}

TEST_F(SearchWindowTest, StopEndsARecycling) {
    for (int i = 0; i < 400; ++i) {
        machine.disk.AddFile("C:\\home\\ann\\Many\\" + std::to_string(i) + ".tmp", "x");
    }
    Search("*.tmp", "C:\\home\\ann\\Many");
    Press("cmdSelectAll");
    bool looked = false;
    OnModal([&](QWidget& question) {
        S().yielder.After(600, [&] {
            gate.Flush();
            looked = true;
            EXPECT_TRUE(S().state.blnRecycling);
            EXPECT_TRUE(Find<QPushButton>("cmdStop")->isEnabled());
            Press("cmdStop");
        });
        QTest::mouseClick(question.findChild<QPushButton*>("btnYes"), Qt::LeftButton);
    });
    Press("cmdDeleteSelected");
    EXPECT_TRUE(looked);
    EXPECT_GT(S().state.lastAction.done, 0);
    EXPECT_GT(S().state.lastAction.skipped, 0);
    EXPECT_EQ(S().state.lastAction.done + S().state.lastAction.skipped, 400);
    EXPECT_FALSE(Find<QPushButton>("cmdStop")->isEnabled());
}

TEST_F(SearchWindowTest, NoLetterStandsForTwoControlsInSight) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    std::set<QChar> seen;
    const auto note = [&seen](const QString& caption) {
        const qsizetype at = caption.indexOf(u'&');
        if (at < 0) return;
        EXPECT_TRUE(seen.insert(caption[at + 1].toLower()).second) << caption.toStdString();
    };
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
        if (button->isVisible()) note(button->text());
    }
    for (const QAction* menu : window->menuBar()->actions()) {
        if (menu->isVisible()) note(menu->text());
    }
    EXPECT_GE(seen.size(), 15U);
}

} // namespace tarvix::forms
