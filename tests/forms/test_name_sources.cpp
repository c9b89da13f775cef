#include "tests/forms/window_fixture.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>

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
