#include "tests/forms/window_fixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>

#include <set>

namespace tarvix::forms {

namespace {

constexpr QSize kSmallScreen(800, 549);

template <class T>
T* In(QWidget& window, const char* name) {
    T* found = window.findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
}

void Choose(QWidget& window, const char* button) {
    In<QAbstractButton>(window, button)->click();
}

void TypeDestination(QWidget& window, const char* text) {
    QLineEdit* edit = In<QComboBox>(window, "cmbDir")->lineEdit();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

std::string Example(QWidget& window, int structure) {
    const std::string name = "lblExample(" + std::to_string(structure) + ")";
    return In<QLabel>(window, name.c_str())->text().toStdString();
}

void ExpectNoLetterTwice(const QWidget& window, const std::string& when) {
    std::set<QChar> seen;
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        const qsizetype at = button->text().indexOf(u'&');
        if (!button->isVisible() || at < 0) continue;
        EXPECT_TRUE(seen.insert(button->text()[at + 1].toLower()).second)
            << button->text().toStdString() << ", " << when;
    }
    EXPECT_GE(seen.size(), 3U) << when;
}

void ExpectNothingIsCut(QWidget& window, const std::string& when) {
    QCoreApplication::processEvents();
    EXPECT_LE(window.width(), kSmallScreen.width()) << when;
    EXPECT_LE(window.height(), kSmallScreen.height()) << when;
    for (const auto* part : window.findChildren<QWidget*>()) {
        if (!part->isVisible() || part->layout() != nullptr) continue;
        if (qobject_cast<const QAbstractButton*>(part) != nullptr) {
            EXPECT_GE(part->width(), part->minimumSizeHint().width()) << when;
        }
        const QRect place(part->mapTo(&window, QPoint()), part->size());
        EXPECT_LE(place.right(), window.width()) << when << part->objectName().toStdString();
    }
}

} // namespace

class ActionWindowTest : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        Find<QCheckBox>("chkFastSort")->click();
        Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
        Press("cmdSelectAll");
    }
    // Opens the action window by its button, acts in it, and cancels.
    void InWindow(const char* start, std::function<void(QWidget&)> act) {
        OnModal([act = std::move(act)](QWidget& modal) {
            act(modal);
            modal.close();
        });
        Press(start);
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
                  "Copy 2 objects to /home/ann/Copies, without their folders. Each duplicate is "
                  "asked about.");
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
    gate.Run(nullptr, [this] { S().Raise(Form().cmdCopySelected, "Click"); });
}

TEST_F(ActionWindowTest, EachStructureShowsWhereTheFirstObjectWouldGo) {
    InWindow("cmdCopySelected", [this](QWidget& modal) {
        TypeDestination(modal, "/home/ann/Copies");
        EXPECT_EQ(Example(modal, 0), "C:\\home\\ann\\Copies\\one.mp3");
        EXPECT_EQ(Example(modal, 1), "C:\\home\\ann\\Music\\Abba\\one.mp3");
        EXPECT_EQ(Example(modal, 2), "C:\\home\\ann\\Copies\\one.mp3");
        EXPECT_EQ(Example(modal, 3), "C:\\home\\ann\\Copies\\C\\home\\ann\\Music\\Abba\\one.mp3");
        EXPECT_EQ(S().frmDialog.cmbDir.Text.Get(), "/home/ann/Copies");
        EXPECT_EQ(S().frmDialog.optStructure.Chosen(), 0);
    });
}

TEST_F(ActionWindowTest, APlaceThatIsHalfTypedHasNoExampleAndAsksNothing) {
    InWindow("cmdCopySelected", [](QWidget& modal) {
        for (const char* typed : {"C", "abc", "\\\\server", "\\"}) {
            TypeDestination(modal, typed);
            for (int i = 0; i < 4; ++i) {
                EXPECT_EQ(Example(modal, i), "") << typed;
            }
        }
    });
}

TEST_F(ActionWindowTest, UpTheFolderTreeShowsTheFolderAbove) {
    InWindow("cmdMoveSelected", [](QWidget& modal) {
        Choose(modal, "optTo(2)");
        EXPECT_FALSE(In<QComboBox>(modal, "cmbDir")->isVisible());
        EXPECT_TRUE(In<QLineEdit>(modal, "txtFolderTree")->isVisible());
        EXPECT_EQ(Example(modal, 0), "C:\\home\\ann\\Music\\one.mp3");
        Choose(modal, "chkFolderRename");
        EXPECT_EQ(Example(modal, 0), "C:\\home\\ann\\Music\\Abba one.mp3");
    });
}

TEST_F(ActionWindowTest, ListsOfLocationsAreChosenByAClickAndClearedByADoubleClick) {
    machine.disk.AddFile(S().state.strDataFolder + "\\disks.mpl",
                         "C:\\home\\ann\\Copies\r\nE:\\Bk\r\n*EOF");
    InWindow("cmdCopySelected", [](QWidget& modal) {
        Choose(modal, "optTo(1)");
        auto* lists = In<QListWidget>(modal, "filMultiPath");
        auto* paths = In<QListWidget>(modal, "lstMulti");
        EXPECT_EQ(In<QLabel>(modal, "lstMultiHead")->text(),
                  "Copy to File Locations.  (Double click to clear.)");
        EXPECT_FALSE(In<QPushButton>(modal, "OKButton")->isVisible());
        ASSERT_EQ(lists->count(), 1);
        const QPoint first = lists->visualItemRect(lists->item(0)).center();
        QTest::mouseClick(lists->viewport(), Qt::LeftButton, {}, first);
        EXPECT_TRUE(lists->item(0)->isSelected());
        ASSERT_EQ(paths->count(), 2);
        EXPECT_EQ(paths->item(1)->text(), "E:\\Bk");
        EXPECT_EQ(Example(modal, 0), "C:\\home\\ann\\Copies\\one.mp3");
        EXPECT_TRUE(In<QPushButton>(modal, "OKButton")->isVisible());
        QTest::mouseDClick(paths->viewport(), Qt::LeftButton, {}, QPoint(5, 5));
        EXPECT_FALSE(lists->item(0)->isSelected());
        EXPECT_EQ(paths->count(), 0);
    });
}

TEST_F(ActionWindowTest, TheSpaceBarTurnsALineAndEnterOpensTheList) {
    machine.disk.AddFile(S().state.strDataFolder + "\\disks.mpl", "E:\\Bk\r\n*EOF");
    InWindow("cmdCopySelected", [](QWidget& modal) {
        Choose(modal, "optTo(1)");
        auto* lists = In<QListWidget>(modal, "filMultiPath");
        auto* paths = In<QListWidget>(modal, "lstMulti");
        lists->setCurrentRow(0);
        QTest::keyClick(lists, Qt::Key_Space);
        EXPECT_TRUE(lists->item(0)->isSelected());
        ASSERT_EQ(paths->count(), 1);
        QTest::keyClick(paths, Qt::Key_Return);
        EXPECT_EQ(paths->count(), 0);
        EXPECT_TRUE(modal.isVisible());
    });
}

TEST_F(ActionWindowTest, AFrameHidesItsWholeSection) {
    InWindow("cmdRenameSelected", [](QWidget& modal) {
        for (const char* hidden : {"cmbDir", "optTo(0)", "optStructure(0)", "lblExample(0)",
                                   "chkAsk", "txtRename", "chkAddEOF", "txtFind"}) {
            EXPECT_FALSE(In<QWidget>(modal, hidden)->isVisible()) << hidden;
        }
        for (const char* shown : {"chkFindReplace", "chkAdd", "txtAdd", "optNamePortion(0)"}) {
            EXPECT_TRUE(In<QWidget>(modal, shown)->isVisible()) << shown;
        }
        Choose(modal, "chkFindReplace");
        EXPECT_TRUE(In<QLineEdit>(modal, "txtFind")->isVisible());
        EXPECT_FALSE(In<QLineEdit>(modal, "txtAdd")->isVisible());
    });
}

TEST_F(ActionWindowTest, NoLetterStandsForTwoControlsInSight) {
    for (const char* start : {"cmdCopySelected", "cmdMoveSelected", "cmdRenameSelected"}) {
        InWindow(start, [start](QWidget& modal) {
            ExpectNoLetterTwice(modal, start);
            for (const char* choice : {"optTo(1)", "optTo(2)", "optTo(3)", "chkFindReplace"}) {
                auto* button = In<QAbstractButton>(modal, choice);
                if (!button->isVisible()) continue;
                button->click();
                ExpectNoLetterTwice(modal, std::string(start) + " " + choice);
            }
        });
    }
}

TEST_F(ActionWindowTest, NothingIsCutOnASmallScreen) {
    for (const char* start : {"cmdCopySelected", "cmdMoveSelected", "cmdRenameSelected"}) {
        InWindow(start, [start](QWidget& modal) {
            ExpectNothingIsCut(modal, start);
            for (const char* choice : {"optTo(1)", "optTo(2)", "optTo(3)", "chkFindReplace"}) {
                auto* button = In<QAbstractButton>(modal, choice);
                if (!button->isVisible()) continue;
                button->click();
                ExpectNothingIsCut(modal, std::string(start) + " " + choice);
            }
        });
    }
}

TEST_F(ActionWindowTest, ARulerOfTheFirstPathWritesPositionsIntoARule) {
    InWindow("cmdCopySelected", [this](QWidget& modal) {
        auto* ruler = In<QWidget>(modal, "PathRuler");
        EXPECT_FALSE(ruler->isVisible());
        In<QAbstractButton>(modal, "optTo(3)")->click();
        EXPECT_TRUE(ruler->isVisible());
        EXPECT_LE(ruler->fontMetrics().height(), modal.fontMetrics().height());
        auto* edit = In<QComboBox>(modal, "cmbDir")->lineEdit();
        edit->clear();
        QTest::keyClicks(edit, "E:\\x\\");
        ruler->setFocus();
        for (int i = 0; i < 12; ++i)
            QTest::keyClick(ruler, Qt::Key_Right);
        QTest::keyClick(ruler, Qt::Key_Return);
        EXPECT_EQ(S().frmDialog.cmbDir.Text.Get(), "E:\\x\\*12*");
        EXPECT_EQ(ruler->accessibleDescription(), "12: \\");
        QTest::keyClick(ruler, Qt::Key_Home);
        QTest::keyClick(ruler, Qt::Key_Space);
        EXPECT_EQ(S().frmDialog.cmbDir.Text.Get(), "E:\\x\\*12**1*");
        In<QAbstractButton>(modal, "optTo(0)")->click();
        EXPECT_FALSE(ruler->isVisible());
    });
}

TEST_F(ActionWindowTest, TabGoesFromTheDestinationToTheButtons) {
    InWindow("cmdCopySelected", [this](QWidget& modal) {
        QStringList passed;
        auto* first = In<QWidget>(modal, "cmbDir");
        QWidget* at = first;
        do {
            if (at->isVisible() && S().frmDialog.Find(at->objectName().toStdString()) &&
                at->focusPolicy() != Qt::NoFocus) {
                passed << at->objectName();
            }
            at = at->nextInFocusChain();
        } while (at != first);
        EXPECT_EQ(passed.join(' ').toStdString(),
                  "cmbDir cmdBrowse optTo(0) optTo(1) optTo(3) optStructure(0) optStructure(1) "
                  "optStructure(2) optStructure(3) chkAsk chkSkipAll chkRename chkOverWrite "
                  "txtRename chkRenameBeg chkRenameEnd cmdPreview OKButton CancelButton");
    });
}

TEST_F(ActionWindowTest, EnterPressesTheButtonThatHasTheFocus) {
    OnModal([](QWidget& modal) {
        In<QPushButton>(modal, "CancelButton")->setFocus();
        QTest::keyClick(modal.focusWidget(), Qt::Key_Return);
    });
    Press("cmdCopySelected");
    EXPECT_TRUE(S().state.blnActionCancelled);
}

TEST_F(ActionWindowTest, ChoicesThatExcludeEachOtherAreRadioButtons) {
    InWindow("cmdCopySelected", [this](QWidget& modal) {
        for (const char* name : {"chkAsk", "chkSkipAll", "chkRename", "chkOverWrite",
                                 "chkRenameBeg", "chkRenameEnd"}) {
            EXPECT_NE(In<QRadioButton>(modal, name), nullptr) << name;
        }
        auto* ask = In<QRadioButton>(modal, "chkAsk");
        EXPECT_TRUE(ask->isChecked());
        ask->click();
        EXPECT_TRUE(ask->isChecked());
        EXPECT_EQ(S().frmDialog.chkAsk.Value.Get(), 1);
        In<QRadioButton>(modal, "chkSkipAll")->click();
        EXPECT_FALSE(ask->isChecked());
        EXPECT_EQ(S().frmDialog.chkSkipAll.Value.Get(), 1);
        EXPECT_EQ(S().frmDialog.chkAsk.Value.Get(), 0);
    });
}

TEST_F(ActionWindowTest, AChoiceGivesTheFocusToWhatItReveals) {
    InWindow("cmdMoveSelected", [](QWidget& modal) {
        Activate(modal);
        In<QAbstractButton>(modal, "optTo(2)")->click();
        EXPECT_EQ(modal.focusWidget()->objectName(), "txtFolderTree");
        In<QAbstractButton>(modal, "optTo(3)")->click();
        EXPECT_EQ(modal.focusWidget()->objectName(), "cmbDir");
        In<QAbstractButton>(modal, "chkRename")->click();
        EXPECT_EQ(modal.focusWidget()->objectName(), "txtRename");
    });
}

TEST_F(ActionWindowTest, ARefusalGivesTheFocusToTheBoxThatItIsAbout) {
    OnModal([this](QWidget& modal) {
        TypeDestination(modal, "Copies");
        In<QPushButton>(modal, "OKButton")->setFocus();
        OnModal([](QWidget& refusal) { refusal.findChild<QPushButton*>("btnOK")->click(); });
        In<QPushButton>(modal, "OKButton")->click();
        EXPECT_TRUE(modal.isVisible());
        EXPECT_EQ(modal.focusWidget()->objectName(), "cmbDir");
        EXPECT_EQ(In<QComboBox>(modal, "cmbDir")->lineEdit()->selectedText(), "Copies");
        modal.close();
    });
    Press("cmdCopySelected");
}

TEST_F(ActionWindowTest, ADestinationThatTakesNothingIsToldOnceBeforeTheFirstObject) {
    machine.faults.ForeseeNoNewIn("C:\\home\\ann\\Copies");
    OnModal([this](QWidget& modal) {
        TypeDestination(modal, "C:\\home\\ann\\Copies\\New");
        OnModal([](QWidget& refusal) {
            EXPECT_TRUE(refusal.findChild<QLabel*>("lblText")->text().startsWith(
                "Nothing can be put into C:\\home\\ann\\Copies\\New."));
            refusal.findChild<QPushButton*>("btnOK")->click();
        });
        In<QPushButton>(modal, "OKButton")->click();
        EXPECT_TRUE(modal.isVisible());
        EXPECT_EQ(modal.focusWidget()->objectName(), "cmbDir");
        modal.close();
    });
    Press("cmdCopySelected");
    EXPECT_FALSE(machine.disk.Content("C:\\home\\ann\\Copies\\New\\one.mp3").has_value());
}

TEST_F(ActionWindowTest, TypingGoesOnWhereACharacterWasNotTaken) {
    InWindow("cmdCopySelected", [this](QWidget& modal) {
        TypeDestination(modal, "C:\\home");
        QLineEdit* edit = In<QComboBox>(modal, "cmbDir")->lineEdit();
        edit->setCursorPosition(3);
        QTest::keyClicks(edit, "x?y");
        EXPECT_EQ(edit->text(), "C:\\xyhome");
        EXPECT_EQ(edit->cursorPosition(), 5);
        EXPECT_EQ(S().frmDialog.cmbDir.Text.Get(), "C:\\xyhome");
    });
}

} // namespace tarvix::forms
