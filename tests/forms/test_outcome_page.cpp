#include "forms/icon_ink.h"
#include "forms/outcome_page.h"
#include "forms/text_conversion.h"
#include "results/outcome_list.h"
#include "results/result_list.h"
#include "tests/forms/window_fixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>

namespace tarvix::forms {

class OutcomePageTest : public WindowFixture {
  protected:
    // Moves all that is found to C:\home\ann\Copies.
    void MoveAll() {
        Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
        Press("cmdSelectAll");
        OnModal([this](QWidget& modal) {
            auto* edit = modal.findChild<QComboBox*>("cmbDir")->lineEdit();
            edit->selectAll();
            QTest::keyClicks(edit, "C:\\home\\ann\\Copies");
            OnModal([](QWidget& question) { question.findChild<QPushButton*>("btnOK")->click(); });
            modal.findChild<QPushButton*>("OKButton")->click();
        });
        Press("cmdMoveSelected");
    }
    // Moves all that is found to the trash and opens the page of it.
    void RecycleAll() {
        Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
        Press("cmdSelectAll");
        OnModal([](QWidget& question) { question.findChild<QPushButton*>("btnYes")->click(); });
        Press("cmdDeleteSelected");
        Press("cmdOutcome");
    }
    bool IsThere(const std::string& name) {
        return machine.disk.Exists("C:\\home\\ann\\Music\\Abba\\" + name);
    }
    QTableView& Table() { return *Find<QTableView>("lstOutcome"); }
    QString Cell(int row, int column) {
        return Table().model()->index(row, column).data().toString();
    }
};

TEST_F(OutcomePageTest, TakesThePlaceOfTheListAfterAMove) {
    MoveAll();
    EXPECT_TRUE(Table().isVisible());
    EXPECT_FALSE(window->List().isVisible());
    EXPECT_EQ(TextOf("lblMain"), "Moved 2 of 2 objects.");
    ASSERT_EQ(Table().model()->rowCount(), 2);
    EXPECT_EQ(Cell(0, 0), "Moved");
    EXPECT_EQ(Cell(0, 1), "one.mp3");
    EXPECT_EQ(Cell(0, 2), "C:\\home\\ann\\Copies\\one.mp3");
    EXPECT_EQ(Cell(0, 3), "C:\\home\\ann\\Music\\Abba");
    EXPECT_EQ(window->focusWidget()->objectName(), "lstOutcome");
    EXPECT_TRUE(Find<QPushButton>("cmdShowThere")->isVisible());
    EXPECT_FALSE(Find<QPushButton>("cmdOpenTrash")->isVisible());
    EXPECT_FALSE(Find<QPushButton>("cmdSelectFailed")->isVisible());
}

TEST_F(OutcomePageTest, FailuresComeFirstAndCanBeShownAlone) {
    machine.faults.FailPath("C:\\home\\ann\\Music\\Abba\\two.mp3", platform::kDeviceError,
                            "MoveFile");
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    Press("cmdSelectAll");
    OnModal([this](QWidget& modal) {
        auto* edit = modal.findChild<QComboBox*>("cmbDir")->lineEdit();
        edit->selectAll();
        QTest::keyClicks(edit, "C:\\home\\ann\\Copies");
        OnModal([this](QWidget& question) {
            OnModal([](QWidget& error) { error.findChild<QPushButton*>("btnOK")->click(); });
            question.findChild<QPushButton*>("btnOK")->click();
        });
        modal.findChild<QPushButton*>("OKButton")->click();
    });
    Press("cmdMoveSelected");
    ASSERT_EQ(Table().model()->rowCount(), 2);
    EXPECT_TRUE(Cell(0, 0).startsWith("Failed: ")) << Cell(0, 0).toStdString();
    EXPECT_EQ(Cell(0, 1), "two.mp3");
    EXPECT_EQ(Cell(0, 2), "C:\\home\\ann\\Music\\Abba\\two.mp3");
    auto* groups = Find<QComboBox>("cmbGroup");
    ASSERT_EQ(groups->count(), 3);
    EXPECT_EQ(groups->itemText(0), "All (2)");
    groups->setCurrentIndex(1);
    ASSERT_EQ(Table().model()->rowCount(), 1);
    EXPECT_EQ(Cell(0, 1), "two.mp3");
    Press("cmdSelectFailed");
    EXPECT_TRUE(window->List().isVisible());
    EXPECT_EQ(SelectedNames(), std::vector<std::string>{"two.mp3"});
}

TEST_F(OutcomePageTest, OpensFromTheStatusLineWhereTheListStaysAndGivesTheFocusBack) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    Press("cmdSelectAll");
    OnModal([](QWidget& question) { question.findChild<QPushButton*>("btnYes")->click(); });
    Press("cmdDeleteSelected");
    EXPECT_TRUE(window->List().isVisible());
    EXPECT_EQ(Find<QPushButton>("cmdOutcome")->text(), "Moved 2 of 2 objects to the trash.");
    EXPECT_TRUE(SelectedNames().empty());
    Press("cmdOutcome");
    EXPECT_TRUE(Table().isVisible());
    EXPECT_EQ(Cell(0, 0), "In the trash");
    Press("cmdOpenTrash");
    EXPECT_EQ(machine.applications.trashShown, 1);
    Table().setFocus();
    QTest::keyClick(&Table(), Qt::Key_Escape);
    EXPECT_TRUE(window->List().isVisible());
    EXPECT_EQ(window->focusWidget()->objectName(), "lstMain");
}

TEST_F(OutcomePageTest, EnterShowsWhatIsChosenWhereItIs) {
    MoveAll();
    Table().selectRow(1);
    QTest::keyClick(&Table(), Qt::Key_Return);
    EXPECT_EQ(machine.applications.shown,
              std::vector<std::string>{"C:\\home\\ann\\Copies\\two.mp3"});
    EXPECT_TRUE(Table().isVisible());
    Press("cmdSearchAgain");
    EXPECT_TRUE(window->List().isVisible());
}

// ---- putting back ----

TEST_F(OutcomePageTest, PutBackBringsAllBackAndShowsIt) {
    RecycleAll();
    ASSERT_FALSE(IsThere("one.mp3"));
    auto* button = Find<QPushButton>("cmdPutBack");
    ASSERT_TRUE(button->isVisible());
    EXPECT_TRUE(button->isEnabled());
    EXPECT_EQ(button->text(), "Put Bac&k");
    EXPECT_TRUE(button->toolTip().contains("all of it")) << button->toolTip().toStdString();
    Press("cmdPutBack");
    EXPECT_TRUE(IsThere("one.mp3"));
    EXPECT_TRUE(IsThere("two.mp3"));
    EXPECT_TRUE(Table().isVisible());
    EXPECT_EQ(TextOf("lblMain"), "Put back 2 of 2 objects.");
    ASSERT_EQ(Table().model()->rowCount(), 2);
    EXPECT_EQ(Cell(0, 0), "Put back");
    EXPECT_EQ(Cell(0, 2), "C:\\home\\ann\\Music\\Abba\\one.mp3");
    EXPECT_FALSE(button->isEnabled());
    EXPECT_TRUE(button->toolTip().contains("Nothing of this is in the trash any more"));
    EXPECT_EQ(Find<QPushButton>("cmdOutcome")->text(), "Put back 2 of 2 objects.");
}

TEST_F(OutcomePageTest, ItsKeyIsItsOwnInTheWholeWindow) {
    RecycleAll();
    int holders = 0;
    for (const QAbstractButton* button : window->findChildren<QAbstractButton*>())
        holders += button->isVisible() && button->text().toLower().contains("&k") ? 1 : 0;
    for (const QLabel* label : window->findChildren<QLabel*>())
        holders += label->isVisible() && label->text().toLower().contains("&k") ? 1 : 0;
    for (const QAction* menu : window->menuBar()->actions())
        holders += menu->text().toLower().contains("&k") ? 1 : 0;
    EXPECT_EQ(holders, 1);
    Activate(*window);
    QTest::keyClick(&Table(), Qt::Key_K, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return IsThere("one.mp3"); }, 2000));
    EXPECT_TRUE(IsThere("two.mp3"));
}

TEST_F(OutcomePageTest, OfAPartTheButtonTellsTheCount) {
    RecycleAll();
    auto* button = Find<QPushButton>("cmdPutBack");
    Table().selectRow(1);
    EXPECT_EQ(button->text(), "Put Bac&k 1");
    EXPECT_TRUE(button->toolTip().contains("what is selected"));
    Table().clearSelection();
    EXPECT_EQ(button->text(), "Put Bac&k");
    Table().selectRow(1);
    Press("cmdPutBack");
    EXPECT_FALSE(IsThere("one.mp3"));
    EXPECT_TRUE(IsThere("two.mp3"));
    EXPECT_EQ(TextOf("lblMain"), "Put back 1 of 1 object, 1 left in the trash.");
    EXPECT_EQ(Cell(0, 0), "In the trash");
    EXPECT_EQ(Cell(0, 2), "Trash");
    EXPECT_EQ(Cell(1, 0), "Put back");
    EXPECT_TRUE(button->isEnabled());
    EXPECT_EQ(button->text(), "Put Bac&k");
    Table().selectRow(1);
    EXPECT_FALSE(button->isEnabled());
    EXPECT_TRUE(button->toolTip().contains("Nothing of what is selected"));
}

TEST_F(OutcomePageTest, AGroupThatIsShownAloneHasNothingSelected) {
    machine.bin.Refuse("C:\\home\\ann\\Music\\Abba\\two.mp3", platform::kPermissionDenied);
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    Press("cmdSelectAll");
    OnModal([this](QWidget& question) {
        OnModal([](QWidget& refused) { refused.findChild<QPushButton*>("cmdNo")->click(); });
        question.findChild<QPushButton*>("btnYes")->click();
    });
    Press("cmdDeleteSelected");
    Press("cmdOutcome");
    auto* button = Find<QPushButton>("cmdPutBack");
    ASSERT_TRUE(Cell(0, 0).startsWith("Failed: ")) << Cell(0, 0).toStdString();
    Table().selectRow(0);
    EXPECT_FALSE(button->isEnabled());
    Find<QComboBox>("cmbGroup")->setCurrentIndex(2);
    EXPECT_EQ(Cell(0, 0), "In the trash");
    EXPECT_TRUE(button->isEnabled());
    EXPECT_EQ(button->text(), "Put Bac&k");
    Press("cmdPutBack");
    EXPECT_TRUE(IsThere("one.mp3"));
}

TEST_F(OutcomePageTest, NothingIsSelectedWhenItOpensAndSpaceSelects) {
    RecycleAll();
    EXPECT_TRUE(Table().selectionModel()->selectedRows().isEmpty());
    EXPECT_EQ(Table().currentIndex().row(), 0);
    QTest::keyClick(&Table(), Qt::Key_Space);
    EXPECT_EQ(Find<QPushButton>("cmdPutBack")->text(), "Put Bac&k 1");
}

TEST_F(OutcomePageTest, ASignOnASelectedRowHasTheColourOfItsText) {
    QPixmap picture(16, 16);
    picture.fill(Qt::black);
    const QIcon inked = InOneColor(QIcon(picture), 16, Qt::white);
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) {
        EXPECT_EQ(inked.pixmap(QSize(16, 16), 1.0, mode).toImage().pixelColor(8, 8),
                  QColor(Qt::white));
    }
    EXPECT_TRUE(InOneColor(QIcon(), 16, Qt::white).isNull());
}

// ---- one object renamed where it stands ----

TEST_F(OutcomePageTest, F2EditsTheNameOfOneObjectInTheList) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    ClickRow(0);
    window->List().setFocus();
    QTest::keyClick(&window->List(), Qt::Key_F2);
    auto* edit = Find<QLineEdit>("txtNewName");
    ASSERT_TRUE(edit->isVisible());
    EXPECT_EQ(edit->text(), "one.mp3");
    EXPECT_EQ(edit->selectedText(), "one");
    QTest::keyClicks(edit, "eins");
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(machine.disk.Content("C:\\home\\ann\\Music\\Abba\\eins.mp3"), "abc");
    EXPECT_EQ(window->focusWidget()->objectName(), "lstMain");
    EXPECT_EQ(SelectedNames(), std::vector<std::string>{"eins.mp3"});
}

TEST_F(OutcomePageTest, EscapeAndLeavingChangeNoName) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    ClickRow(0);
    for (const bool leaves : {false, true}) {
        window->List().setFocus();
        QTest::keyClick(&window->List(), Qt::Key_F2);
        auto* edit = Find<QLineEdit>("txtNewName");
        QTest::keyClicks(edit, "other");
        if (leaves) {
            Find<QComboBox>("cmbSearchFor")->setFocus();
        } else {
            QTest::keyClick(edit, Qt::Key_Escape);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_EQ(machine.disk.Content("C:\\home\\ann\\Music\\Abba\\one.mp3"), "abc");
}

// ---- actions without a selection ----

TEST_F(OutcomePageTest, ActionsAreOffAsLongAsNothingIsSelected) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    for (const char* name :
         {"cmdCopySelected", "cmdMoveSelected", "cmdRenameSelected", "cmdDeleteSelected"}) {
        EXPECT_FALSE(Find<QPushButton>(name)->isEnabled()) << name;
        EXPECT_EQ(Find<QPushButton>(name)->toolTip(), "Select objects in the list first") << name;
        EXPECT_FALSE(Find<QAction>(name)->isEnabled()) << name;
    }
    ClickRow(0);
    EXPECT_TRUE(Find<QPushButton>("cmdCopySelected")->isEnabled());
    EXPECT_TRUE(Find<QAction>("cmdDeleteSelected")->isEnabled());
    Press("cmdSelectNone");
    EXPECT_FALSE(Find<QPushButton>("cmdCopySelected")->isEnabled());
}

TEST_F(OutcomePageTest, ActionsAreOffOnceAllThatWasSelectedIsInTheTrash) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    Press("cmdSelectAll");
    EXPECT_EQ(Find<QPushButton>("cmdDeleteSelected")->toolTip(), "Del");
    OnModal([](QWidget& question) { question.findChild<QPushButton*>("btnYes")->click(); });
    Press("cmdDeleteSelected");
    for (const char* name :
         {"cmdCopySelected", "cmdMoveSelected", "cmdRenameSelected", "cmdDeleteSelected"}) {
        EXPECT_FALSE(Find<QPushButton>(name)->isEnabled()) << name;
        EXPECT_EQ(Find<QPushButton>(name)->toolTip(), "Select objects in the list first") << name;
        EXPECT_FALSE(Find<QAction>(name)->isEnabled()) << name;
    }
    Press("cmdSelectAll");
    EXPECT_TRUE(Find<QPushButton>("cmdDeleteSelected")->isEnabled());
    EXPECT_EQ(Find<QPushButton>("cmdDeleteSelected")->toolTip(), "Del");
}

TEST_F(OutcomePageTest, EntriesThatActOnTheSelectionAreOffWithoutOne) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    const std::vector<const char*> names{
        "mnuNamesTxt",           "mnuTools_CreateHtml",    "mnuRenameSelFromFile",
        "mnuRenameSelFromTitle", "mnuTools_FolderSummary", "mnuTools_BypassMPL",
        "actCopyPaths"};
    for (const char* name : names)
        EXPECT_FALSE(Find<QAction>(name)->isEnabled()) << name;
    EXPECT_EQ(Find<QAction>("mnuNamesTxt")->toolTip(), "Select objects in the list first");
    EXPECT_TRUE(Find<QAction>("mnuTools_NumericIncrement")->isEnabled());
    Press("cmdSelectAll");
    for (const char* name : names)
        EXPECT_TRUE(Find<QAction>(name)->isEnabled()) << name;
    Press("cmdSelectNone");
    for (const char* name : names)
        EXPECT_FALSE(Find<QAction>(name)->isEnabled()) << name;
}

} // namespace tarvix::forms
