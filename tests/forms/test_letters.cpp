#include "forms/letters.h"
#include "tests/forms/window_fixture.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QToolButton>
#include <gmock/gmock.h>

#include <map>

namespace tarvix::forms {

using ::testing::ElementsAre;

namespace {

std::vector<std::string> TextsOf(const QMenu& menu) {
    std::vector<std::string> texts;
    for (const QAction* entry : menu.actions())
        texts.push_back(entry->text().toStdString());
    return texts;
}

QChar LetterOf(const QString& caption) {
    const qsizetype at = caption.indexOf(u'&');
    return at < 0 || at + 1 >= caption.size() ? QChar() : caption[at + 1].toLower();
}

} // namespace

TEST(LettersTest, EntriesWithoutOneGetTheFirstFreeLetter) {
    QMenu menu;
    for (const char* text : {"&Name", "Size", "Names again", "N", "Name\tascending", "A && B"})
        menu.addAction(text);
    menu.addSeparator();
    menu.addAction("Zoo")->setVisible(false);
    GiveLetters(menu);
    EXPECT_THAT(TextsOf(menu), ElementsAre("&Name", "&Size", "Names &again", "N",
                                           "Na&me\tascending", "A && &B", "", "Zoo"));
}

TEST(LettersTest, OfDoublesTheLaterOneGetsAnother) {
    QMenu menu;
    menu.addAction("&Copy");
    menu.addAction("&Clear");
    GiveLetters(menu);
    EXPECT_THAT(TextsOf(menu), ElementsAre("&Copy", "C&lear"));
}

TEST(LettersTest, WhereLettersRunOutDigitsStandInFront) {
    QMenu menu;
    for (const char* text : {"A", "B1", "A", "1", "2\tascending", "&3", "BA"})
        menu.addAction(text);
    GiveLettersAndDigits(menu);
    EXPECT_THAT(TextsOf(menu),
                ElementsAre("&A", "&B1", "&4  A", "&1", "&2\tascending", "&3", "&5  BA"));
}

TEST(LettersTest, OfTwoMarksInOneCaptionTheFirstFreeOneStays) {
    QMenu menu;
    menu.addAction("&Open");
    menu.addAction("L&oad Pla&ylist");
    menu.addAction("S&ave as &Text");
    GiveLetters(menu);
    EXPECT_THAT(TextsOf(menu), ElementsAre("&Open", "Load Pla&ylist", "S&ave as Text"));
}

TEST(LettersTest, AMenuGetsThemAnewEachTimeThatItOpens) {
    QMenu menu;
    GiveLettersWhenOpened(menu);
    QAction* entry = menu.addAction("Open");
    emit menu.aboutToShow();
    EXPECT_EQ(entry->text(), "&Open");
    entry->setText("Put");
    emit menu.aboutToShow();
    EXPECT_EQ(entry->text(), "&Put");
}

TEST(LettersTest, PushButtonsKeepTheirsBeforeBoxesAndLabels) {
    QWidget window;
    auto* box = new QCheckBox("&Save it", &window);
    auto* button = new QPushButton("&Save", &window);
    auto* edit = new QLineEdit(&window);
    auto* label = new QLabel("Song", &window);
    label->setBuddy(edit);
    auto* marked = new QLabel("&Same", &window);
    marked->setBuddy(edit);
    auto* words = new QLabel("Only words", &window);
    GiveLetters(window);
    EXPECT_EQ(button->text(), "&Save");
    EXPECT_EQ(box->text(), "Save &it");
    EXPECT_EQ(label->text(), "Song");
    EXPECT_EQ(marked->text(), "Same");
    EXPECT_EQ(words->text(), "Only words");
}

class WindowLettersTest : public WindowFixture {
  protected:
    // Each entry that shows has a letter, and none is there twice; gives how many there are.
    int ExpectLetters(QMenu& menu) {
        emit menu.aboutToShow();
        std::map<QChar, std::string> seen;
        int count = 0;
        for (QAction* entry : menu.actions()) {
            if (entry->isSeparator() || !entry->isVisible() || entry->text().isEmpty()) continue;
            const std::string text = entry->text().toStdString();
            const QChar letter = LetterOf(entry->text());
            EXPECT_FALSE(letter.isNull()) << menu.title().toStdString() << ": " << text;
            const auto [found, isNew] = seen.emplace(letter, text);
            EXPECT_TRUE(isNew) << text << " and " << found->second;
            ++count;
            if (entry->menu() != nullptr) count += ExpectLetters(*entry->menu());
        }
        return count;
    }
};

TEST_F(WindowLettersTest, EveryMenuOfTheBarHasItsOwn) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    std::map<std::string, char> letters;
    for (const QAction* top : window->menuBar()->actions()) {
        if (!top->isVisible()) continue;
        const QChar letter = LetterOf(top->text());
        letters[top->text().remove(u'&').toStdString()] = letter.toLatin1();
    }
    EXPECT_THAT(letters,
                ElementsAre(::testing::Pair("Actions", 'a'), ::testing::Pair("Browse", 'w'),
                            ::testing::Pair("File", 'f'), ::testing::Pair("Help", 'h'),
                            ::testing::Pair("Options", 'p'), ::testing::Pair("Run", 'u'),
                            ::testing::Pair("Search", 'r'), ::testing::Pair("Select", 'e'),
                            ::testing::Pair("Tools", 'l'), ::testing::Pair("View", 'v')));
}

TEST_F(WindowLettersTest, EveryEntryOfEveryMenuHasItsOwn) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    window->List().Head().ShowUsual();
    gate.Flush();
    int count = 0;
    for (const QAction* top : window->menuBar()->actions()) {
        if (top->isVisible() && top->menu() != nullptr) count += ExpectLetters(*top->menu());
    }
    EXPECT_GE(count, 100);
    for (const char* name : {"btnBrowseModes", "btnDateTypes"}) {
        auto* menu = Find<QToolButton>(name)->findChild<QMenu*>();
        ASSERT_NE(menu, nullptr) << name;
        EXPECT_GE(ExpectLetters(*menu), 3) << name;
    }
}

TEST_F(WindowLettersTest, BoxesWithoutALetterOfTheirOwnAreInTheSearchMenu) {
    auto* entry = Find<QAction>("chkRepeatSearch");
    EXPECT_TRUE(entry->isVisible());
    EXPECT_FALSE(entry->isChecked());
    entry->trigger();
    EXPECT_EQ(Form().chkRepeatSearch.Value, 1);
    EXPECT_TRUE(entry->isChecked());
    EXPECT_TRUE(Find<QCheckBox>("chkRepeatSearch")->isChecked());
    Find<QCheckBox>("chkRepeatSearch")->click();
    EXPECT_FALSE(entry->isChecked());
    EXPECT_TRUE(Find<QAction>("chkOneEach")->isVisible());
    EXPECT_TRUE(Find<QAction>("cmdBrowse")->isVisible());
}

TEST_F(WindowLettersTest, SelectButtonsAnswerToDigitsWhereverTheFocusIs) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    auto* box = Find<QComboBox>("cmbSearchFor");
    box->setFocus();
    QTest::keyClick(box, Qt::Key_1, Qt::AltModifier);
    EXPECT_EQ(SelectedNames(), (std::vector<std::string>{"one.mp3", "two.mp3"}));
    QTest::keyClick(box, Qt::Key_4, Qt::AltModifier);
    EXPECT_TRUE(SelectedNames().empty());
    ClickRow(0);
    QTest::keyClick(box, Qt::Key_5, Qt::AltModifier);
    EXPECT_EQ(SelectedNames(), std::vector<std::string>{"two.mp3"});
    QTest::keyClick(box, Qt::Key_2, Qt::AltModifier);
    EXPECT_EQ(SelectedNames(), (std::vector<std::string>{"one.mp3", "two.mp3"}));
    QTest::keyClick(box, Qt::Key_3, Qt::AltModifier);
    EXPECT_TRUE(SelectedNames().empty());
    EXPECT_EQ(Find<QPushButton>("cmdSelectAll")->toolTip(), "Ctrl+A, Alt+1");
    EXPECT_EQ(Find<QPushButton>("cmdSelectReverse")->toolTip(), "Alt+5");
}

TEST_F(WindowLettersTest, AMessageHasOneForEachAnswer) {
    OnModal([](QWidget& modal) {
        for (const char* name : {"btnYes", "btnNo", "btnCancel"}) {
            const auto* button = modal.findChild<QPushButton*>(name);
            ASSERT_NE(button, nullptr) << name;
            EXPECT_FALSE(LetterOf(button->text()).isNull()) << name;
        }
        QTest::keyClick(&modal, Qt::Key_N, Qt::AltModifier);
    });
    EXPECT_EQ(prompts.MsgBox({.style = session::kYesNoCancel, .text = "Shall it be saved?"}),
              session::kNo);
}

} // namespace tarvix::forms
