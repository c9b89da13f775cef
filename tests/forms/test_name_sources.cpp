#include "tests/forms/window_fixture.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>

namespace tarvix::forms {
namespace {

// The actions that take names from elsewhere, as a user comes to them.
class NameSourceWindows : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        machine.disk.AddFile("C:\\home\\ann\\Pages\\a.htm", "<title>First</title>");
        machine.disk.AddFile("C:\\home\\ann\\Pages\\b.htm", "<title>Second</title>");
        Search("*.htm", "C:\\home\\ann\\Pages");
        Press("cmdSelectAll");
    }
    QAction* Entry(const char* name) {
        QAction* entry = window->findChild<QAction*>(name);
        EXPECT_NE(entry, nullptr) << name;
        return entry;
    }
    static QStringList Cells(const QTableView& table, int row) {
        QStringList cells;
        for (int i = 0; i < table.model()->columnCount(); ++i)
            cells << table.model()->index(row, i).data().toString();
        return cells;
    }
    static void Answer(QWidget& box) {
        EXPECT_EQ(box.objectName(), "MsgBox");
        QTest::mouseClick(box.findChild<QPushButton*>("btnOK"), Qt::LeftButton);
    }
};

TEST_F(NameSourceWindows, AllFiveAreInTheMenus) {
    for (const char* name :
         {"mnuRenameSelFromFile", "mnuRenameSelFromHTMLSearch", "mnuRenameSelFromSelfSearch",
          "mnuRenameSelFromTitle", "mnuTools_FolderSummary"}) {
        EXPECT_TRUE(Entry(name)->isVisible()) << name;
        EXPECT_TRUE(Entry(name)->isEnabled()) << name;
    }
}

TEST_F(NameSourceWindows, PagesAreRenamedByTheirTitles) {
    OnModal(Answer);
    OnModal([this](QWidget& modal) {
        EXPECT_TRUE(modal.findChild<QPushButton*>("cmdPreview")->isVisible());
        EXPECT_FALSE(modal.findChild<QComboBox*>("cmbDir")->isVisible());
        auto* ok = modal.findChild<QPushButton*>("OKButton");
        EXPECT_EQ(ok->text(), "&Rename 2 objects");
        OnModal(Answer);
        QTest::mouseClick(ok, Qt::LeftButton);
    });
    Entry("mnuRenameSelFromTitle")->trigger();
    EXPECT_TRUE(AllModalsCame());
    EXPECT_TRUE(machine.disk.Exists("C:\\home\\ann\\Pages\\First a.htm"));
    EXPECT_TRUE(machine.disk.Exists("C:\\home\\ann\\Pages\\Second b.htm"));
}

TEST_F(NameSourceWindows, TheListOfNamesIsOfferedForEditing) {
    OnModal([this](QWidget& modal) {
        EXPECT_TRUE(modal.findChild<QCheckBox*>("chkWholeNames")->isVisible());
        QTest::mouseClick(modal.findChild<QPushButton*>("cmdEditNames"), Qt::LeftButton);
        const std::string list = S().frmDialog.cmbDir.Text;
        EXPECT_TRUE(list.ends_with("\\Rename List.txt")) << list;
        EXPECT_EQ(machine.disk.Content(list), "a\r\nb\r\n*EOF\r\n");
        modal.close();
    });
    Entry("mnuRenameSelFromFile")->trigger();
    EXPECT_TRUE(AllModalsCame());
}

TEST_F(NameSourceWindows, TheFirstNewNamesShowByThemselves) {
    machine.disk.AddFile("C:\\home\\ann\\Pages\\Second b.htm", "taken");
    OnModal(Answer);
    OnModal([this](QWidget& modal) {
        auto* table = modal.findChild<QTableView*>("lstNames");
        EXPECT_TRUE(table->isVisible());
        EXPECT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() == 2; }));
        EXPECT_EQ(Cells(*table, 0), (QStringList{"a.htm", "→ First a.htm", "rename"}));
        EXPECT_EQ(Cells(*table, 1), (QStringList{"b.htm", "→ Second b_.htm", "duplicate: rename"}));
        EXPECT_EQ(modal.findChild<QLabel*>("lblNamesNote")->text(), "");
        EXPECT_TRUE(machine.disk.Exists("C:\\home\\ann\\Pages\\a.htm"));
        modal.close();
    });
    Entry("mnuRenameSelFromTitle")->trigger();
    EXPECT_TRUE(AllModalsCame());
}

TEST_F(NameSourceWindows, AListOfACancelledRenameIsNoDestinationOfACopy) {
    machine.disk.AddFile("C:\\list.txt", "one\r\n*EOF\r\n");
    const auto boxOf = [](QWidget& modal) { return modal.findChild<QComboBox*>("cmbDir"); };
    OnModal([&](QWidget& modal) {
        QTest::keyClicks(boxOf(modal)->lineEdit(), "C:\\list.txt");
        modal.close();
    });
    Entry("mnuRenameSelFromFile")->trigger();
    OnModal([&](QWidget& modal) {
        EXPECT_EQ(boxOf(modal)->currentText(), "");
        QTest::keyClicks(boxOf(modal)->lineEdit(), "C:\\home\\ann\\Copies");
        modal.close();
    });
    Press("cmdCopySelected");
    OnModal([&](QWidget& modal) {
        EXPECT_EQ(boxOf(modal)->currentText(), "C:\\home\\ann\\Copies");
        modal.close();
    });
    Press("cmdMoveSelected");
    OnModal([&](QWidget& modal) {
        EXPECT_EQ(boxOf(modal)->currentText(), "");
        modal.close();
    });
    Entry("mnuRenameSelFromFile")->trigger();
    EXPECT_TRUE(AllModalsCame());
}

TEST_F(NameSourceWindows, TheNewNamesFollowTheList) {
    machine.disk.AddFile("C:\\list.txt", "one\r\n*EOF\r\n");
    OnModal([](QWidget& modal) {
        auto* table = modal.findChild<QTableView*>("lstNames");
        auto* note = modal.findChild<QLabel*>("lblNamesNote");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !note->text().isEmpty(); }));
        EXPECT_EQ(note->text(), "You did not select an existing file name.");
        EXPECT_EQ(table->model()->rowCount(), 0);
        QTest::keyClicks(modal.findChild<QComboBox*>("cmbDir")->lineEdit(), "C:\\list.txt");
        EXPECT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() == 2; }));
        EXPECT_EQ(Cells(*table, 0), (QStringList{"a.htm", "→ one.htm", "rename"}));
        EXPECT_EQ(Cells(*table, 1), (QStringList{"b.htm", "", "no new name"}));
        EXPECT_EQ(note->text(), "");
        modal.close();
    });
    Entry("mnuRenameSelFromFile")->trigger();
    EXPECT_TRUE(AllModalsCame());
}

TEST_F(NameSourceWindows, AListThatWasEditedElsewhereShowsWhenTheWindowIsInFrontAgain) {
    machine.disk.AddFile("C:\\list.txt", "one\r\ntwo\r\n*EOF\r\n");
    OnModal([this](QWidget& modal) {
        auto* table = modal.findChild<QTableView*>("lstNames");
        QTest::keyClicks(modal.findChild<QComboBox*>("cmbDir")->lineEdit(), "C:\\list.txt");
        EXPECT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() == 2; }));
        machine.disk.AddFile("C:\\list.txt", "three\r\ntwo\r\n*EOF\r\n");
        QEvent activated(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&modal, &activated);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return table->model()->index(0, 1).data().toString() == "→ three.htm"; }));
        modal.close();
    });
    Entry("mnuRenameSelFromFile")->trigger();
    EXPECT_TRUE(AllModalsCame());
}

TEST_F(NameSourceWindows, ActionsWithTypedNamesShowNoNewOnes) {
    OnModal([](QWidget& modal) {
        EXPECT_FALSE(modal.findChild<QTableView*>("lstNames")->isVisible());
        modal.close();
    });
    Press("cmdMoveSelected");
    EXPECT_TRUE(AllModalsCame());
}

TEST_F(NameSourceWindows, OtherActionsHaveNoListOfNames) {
    OnModal([](QWidget& modal) {
        EXPECT_FALSE(modal.findChild<QCheckBox*>("chkWholeNames")->isVisible());
        EXPECT_FALSE(modal.findChild<QPushButton*>("cmdEditNames")->isVisible());
        modal.close();
    });
    Press("cmdCopySelected");
    EXPECT_TRUE(AllModalsCame());
}

} // namespace
} // namespace tarvix::forms
