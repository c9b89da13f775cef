#include "forms/help_window.h"
#include "tests/forms/window_fixture.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTextBrowser>

namespace tarvix::forms {

class HelpWindowTest : public ::testing::Test {
  protected:
    HelpWindowTest() {
        Write("guide.md", "# Guide\n\nSee the [rule](special-rule.md). *Trash* is here.\n");
        Write("special-rule.md", "# Special Rule\n\nPositions are counted.\n");
        help.ShowPage(folder.filePath("guide.md"));
    }
    void Write(const char* name, const char* text) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QString Text() { return help.findChild<QTextBrowser*>("txtHelp")->toPlainText(); }
    QTextBrowser* Page() { return help.findChild<QTextBrowser*>("txtHelp"); }
    void Find(const char* words) {
        auto* find = help.findChild<QLineEdit*>("txtFindHelp");
        find->clear();
        QTest::keyClicks(find, words);
    }

    QTemporaryDir folder;
    HelpWindow help;
};

TEST_F(HelpWindowTest, ShowsAPageAndListsThoseThatAreThere) {
    auto* pages = help.findChild<QListWidget*>("lstPages");
    ASSERT_EQ(pages->count(), 2);
    EXPECT_EQ(pages->item(1)->text(), "Special Rule");
    EXPECT_TRUE(Text().startsWith("Guide\nSee the rule. Trash is here."));
    pages->setCurrentRow(1);
    EXPECT_TRUE(Text().contains("Positions are counted."));
}

TEST_F(HelpWindowTest, SearchesAllPages) {
    Find("counted");
    EXPECT_TRUE(Text().startsWith("Special Rule"));
    EXPECT_EQ(Page()->textCursor().selectedText(), "counted");
    Find("trash");
    EXPECT_TRUE(Text().startsWith("Guide"));
    EXPECT_EQ(Page()->textCursor().selectedText(), "Trash");
    Find("nowhere");
    bool isTold = false;
    for (const QLabel* label : help.findChildren<QLabel*>())
        isTold = isTold || label->text() == "Not found";
    EXPECT_TRUE(isTold);
}

TEST_F(HelpWindowTest, FollowsItsLinks) {
    emit Page()->anchorClicked(QUrl("special-rule.md"));
    EXPECT_TRUE(Text().startsWith("Special Rule"));
}

TEST(HelpPages, OfThisProgramAreAllThere) {
    HelpWindow help;
    help.ShowPage(QString(TARVIX_HELP) + "/guide.md");
    EXPECT_EQ(help.findChild<QListWidget*>("lstPages")->count(), 6);
}

} // namespace tarvix::forms
