#include "forms/list_box.h"
#include "tests/forms/window_fixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>

namespace tarvix::forms {

namespace {

void PressIn(QWidget& modal, const char* button) {
    auto* found = modal.findChild<QPushButton*>(button);
    ASSERT_NE(found, nullptr) << button;
    QTest::mouseClick(found, Qt::LeftButton);
}

} // namespace

// Three shortcuts that are found and selected.
class LinkWindows : public WindowFixture {
  protected:
    void SetUp() override {
        machine.disk.AddFile("C:\\l\\a.desktop", "[Desktop Entry]\nExec=/opt/old/a %U\n");
        machine.disk.AddFile("C:\\l\\b.desktop", "[Desktop Entry]\nExec=/opt/old/b\nComment=b\n");
        machine.disk.AddFile("C:\\l\\c.url", "[InternetShortcut]\r\nURL=http://old/\r\n");
        WindowFixture::SetUp();
        Search("*", "C:\\l");
        Press("cmdSelectAll");
    }
    // Chooses the table, acts in it, and answers the list of changes if there is to be one.
    void InTable(std::function<void(QWidget&)> act, std::function<void(QWidget&)> changes = {}) {
        OnModal([](QWidget& modal) {
            EXPECT_EQ(modal.objectName(), "frmShortcutWarning");
            PressIn(modal, "cmdTable");
        });
        OnModal(std::move(act));
        if (changes) OnModal(std::move(changes));
        Press("cmdEditTargets");
        EXPECT_TRUE(AllModalsCame());
    }
    static QTableView& TableIn(QWidget& modal) { return *modal.findChild<QTableView*>("lstLinks"); }
    static QString Cell(QWidget& modal, int row, int column) {
        return TableIn(modal).model()->index(row, column).data().toString();
    }
    std::string Content(const char* path) { return machine.disk.Content(path).value_or(""); }
};

TEST_F(LinkWindows, ReplaceInTheTableIsListedAndSaved) {
    InTable(
        [](QWidget& modal) {
            EXPECT_EQ(modal.objectName(), "frmLinkTable");
            EXPECT_EQ(Cell(modal, 0, 1), "/opt/old/a");
            modal.findChild<QLineEdit*>("txtFind")->setText("old");
            modal.findChild<QLineEdit*>("txtReplace")->setText("new");
            PressIn(modal, "cmdReplace");
            EXPECT_EQ(Cell(modal, 0, 1), "/opt/new/a");
            EXPECT_EQ(modal.findChild<QLabel*>("lblCount")->text(),
                      "3 values replaced. 3 values are changed.");
            PressIn(modal, "cmdOK");
        },
        [](QWidget& modal) {
            EXPECT_EQ(modal.objectName(), "frmLinkChanges");
            const auto& lines = *modal.findChild<QListView*>("lstChanges")->model();
            ASSERT_EQ(lines.rowCount(), 3);
            EXPECT_EQ(lines.index(0, 0).data().toString(),
                      "a.desktop: Target: /opt/old/a -> /opt/new/a");
            PressIn(modal, "cmdOK");
        });
    EXPECT_EQ(Content("C:\\l\\a.desktop"), "[Desktop Entry]\nExec=/opt/new/a %U\n");
    EXPECT_EQ(Content("C:\\l\\c.url"), "[InternetShortcut]\r\nURL=http://new/\r\n");
    EXPECT_TRUE(Form().cmdSearch.Enabled);
    EXPECT_EQ(Form().cmdEditTargets.Caption.Get(), "Edi&t Links (shortcuts)");
}

TEST_F(LinkWindows, FillDownAndRestoreActOnTheSelectedCells) {
    InTable([](QWidget& modal) {
        QTableView& table = TableIn(modal);
        const QModelIndex first = table.model()->index(0, 1);
        table.selectionModel()->select(QItemSelection(first, table.model()->index(2, 1)),
                                       QItemSelectionModel::ClearAndSelect);
        PressIn(modal, "cmdFillDown");
        EXPECT_EQ(Cell(modal, 1, 1), "/opt/old/a");
        EXPECT_EQ(Cell(modal, 2, 1), "/opt/old/a");
        EXPECT_EQ(Cell(modal, 1, 6), "b");
        PressIn(modal, "cmdRestore");
        EXPECT_EQ(Cell(modal, 1, 1), "/opt/old/b");
        EXPECT_EQ(modal.findChild<QLabel*>("lblCount")->text(), "Nothing is changed.");
        PressIn(modal, "cmdCancel");
    });
    EXPECT_EQ(Content("C:\\l\\b.desktop"), "[Desktop Entry]\nExec=/opt/old/b\nComment=b\n");
    EXPECT_TRUE(Form().cmdSearch.Enabled);
}

TEST_F(LinkWindows, WhatAnAddressLacksCannotBeEdited) {
    InTable([](QWidget& modal) {
        const auto& model = *TableIn(modal).model();
        EXPECT_FALSE(model.flags(model.index(2, 2)) & Qt::ItemIsEditable);
        EXPECT_TRUE(model.flags(model.index(2, 1)) & Qt::ItemIsEditable);
        EXPECT_TRUE(model.flags(model.index(0, 2)) & Qt::ItemIsEditable);
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
}

TEST_F(LinkWindows, ChangesThatAreNotWantedLeadBackToTheTable) {
    OnModal([](QWidget& modal) { PressIn(modal, "cmdTable"); });
    OnModal([](QWidget& modal) {
        QTableView& table = TableIn(modal);
        EXPECT_TRUE(table.model()->setData(table.model()->index(0, 0), "n.desktop"));
        PressIn(modal, "cmdOK");
    });
    OnModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    OnModal([](QWidget& modal) {
        EXPECT_EQ(modal.objectName(), "frmLinkTable");
        EXPECT_EQ(Cell(modal, 0, 0), "n.desktop");
        EXPECT_EQ(modal.findChild<QLabel*>("lblCount")->text(), "1 value is changed.");
        PressIn(modal, "cmdCancel");
    });
    Press("cmdEditTargets");
    EXPECT_TRUE(AllModalsCame());
    EXPECT_EQ(Content("C:\\l\\n.desktop"), "");
    EXPECT_TRUE(Form().cmdSearch.Enabled);
}

TEST_F(LinkWindows, AnEntryOfTheMenuBarLeavesTheMode) {
    OnModal([](QWidget& modal) { PressIn(modal, "cmdOk"); });
    Press("cmdEditTargets");
    EXPECT_FALSE(Form().cmdSearch.Enabled);
    const auto entries = window->menuBar()->actions();
    EXPECT_TRUE(entries.last()->isVisible());
    EXPECT_EQ(entries.last()->text(), "**** - Edit Shortcuts Mode - **** Click Here to Cancel");
    entries.last()->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Form().cmdSearch.Enabled.Get(); }));
    EXPECT_FALSE(entries.last()->isVisible());
}

TEST_F(LinkWindows, TheWarningCanBeCancelled) {
    OnModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    Press("cmdEditTargets");
    EXPECT_TRUE(Form().cmdSearch.Enabled);
}

} // namespace tarvix::forms
