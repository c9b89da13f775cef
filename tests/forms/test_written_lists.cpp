#include "tests/forms/window_fixture.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

namespace tarvix::forms {

namespace {

template <class T>
T* In(QWidget& window, const char* name) {
    T* found = window.findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
}

void TypeInto(QWidget& window, const char* name, const char* text) {
    auto* edit = In<QLineEdit>(window, name);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

// When what watches for modal windows is free for those that the click opens.
void ClickSoon(QPushButton* button) {
    QTimer::singleShot(0, button, &QPushButton::click);
}

QStringList Lines(QWidget& window) {
    QStringList lines;
    const auto* list = In<QListWidget>(window, "lstFirstLines");
    for (int i = 0; i < list->count(); ++i) {
        lines << list->item(i)->text();
    }
    return lines;
}

} // namespace

class WrittenListsTest : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        for (int i = 1; i <= 30; ++i) {
            machine.disk.AddFile("C:\\m\\" + std::to_string(1000 + i) + ".mp3");
        }
        S().state.platformSettings.listsAreNative = true;
    }
    void FindAll() {
        Search("*.mp3", "C:\\m");
        Press("cmdSelectAll");
    }
    void Choose(const char* entry) { window->findChild<QAction*>(entry)->trigger(); }
};

TEST_F(WrittenListsTest, TheActionWindowShowsTheFirstTwentyLines) {
    FindAll();
    OnModal([](QWidget& dialog) {
        const auto* lines = In<QPlainTextEdit>(dialog, "txtFirstLines");
        EXPECT_TRUE(lines->isVisible());
        EXPECT_EQ(lines->toPlainText().count('\n') + 1, 20);
        EXPECT_TRUE(lines->toPlainText().startsWith("1001.mp3\n1002.mp3\n"));
        In<QPushButton>(dialog, "CancelButton")->click();
    });
    Choose("mnuNamesTxt");
    OnModal([](QWidget& dialog) {
        EXPECT_TRUE(
            In<QPlainTextEdit>(dialog, "txtFirstLines")->toPlainText().startsWith("/m/1001.mp3\n"));
        In<QPushButton>(dialog, "CancelButton")->click();
    });
    Choose("mnuPathNamesTxt");
    EXPECT_TRUE(AllModalsCame());
}

TEST_F(WrittenListsTest, TheFirstLinesFollowTheChoices) {
    FindAll();
    OnModal([](QWidget& dialog) {
        const auto* lines = In<QPlainTextEdit>(dialog, "txtFirstLines");
        auto* box = In<QComboBox>(dialog, "cmbDir")->lineEdit();
        box->selectAll();
        QTest::keyClicks(box, "/m/sub/p.m3u");
        EXPECT_TRUE(lines->toPlainText().contains("\n/m/1001.mp3\n"));
        In<QCheckBox>(dialog, "chkRelative")->click();
        EXPECT_TRUE(lines->toPlainText().contains("\n../1001.mp3\n"))
            << lines->toPlainText().toStdString();
        In<QPushButton>(dialog, "CancelButton")->click();
    });
    Choose("mnuPathNamesM3u");
    EXPECT_TRUE(AllModalsCame());
}

TEST_F(WrittenListsTest, TheFirstLinesSayThatPossibleDuplicatesAreLookedForLater) {
    FindAll();
    OnModal([](QWidget& dialog) {
        const auto* note = In<QLabel>(dialog, "lblSimilarNote");
        EXPECT_FALSE(note->isVisible());
        In<QCheckBox>(dialog, "chkFindSimilar")->click();
        EXPECT_TRUE(note->isVisible());
        In<QCheckBox>(dialog, "chkFindSimilar")->click();
        EXPECT_FALSE(note->isVisible());
        In<QPushButton>(dialog, "CancelButton")->click();
    });
    Choose("mnuPathNamesM3u");
    EXPECT_TRUE(AllModalsCame());
}

TEST_F(WrittenListsTest, AnActionThatWritesNoListShowsNone) {
    FindAll();
    OnModal([](QWidget& dialog) {
        EXPECT_FALSE(In<QPlainTextEdit>(dialog, "txtFirstLines")->isVisible());
        In<QPushButton>(dialog, "CancelButton")->click();
    });
    Press("cmdCopySelected");
    EXPECT_TRUE(AllModalsCame());
}

class NumbersWindowTest : public WrittenListsTest {
  protected:
    // Passes the action window over, which is in front between two prompts.
    void OnPrompt(std::function<void(QWidget&)> act) {
        OnModal([this, act = std::move(act)](QWidget& shown) {
            if (shown.objectName() != "frmDialog") return act(shown);
            OnPrompt(act);
        });
    }
    // Goes on to the numbers, with C:\n.txt as the file.
    void ToNumbers(std::function<void(QWidget&)> act) {
        OnModal([](QWidget& dialog) {
            EXPECT_FALSE(In<QPlainTextEdit>(dialog, "txtFirstLines")->isVisible());
            auto* box = In<QComboBox>(dialog, "cmbDir")->lineEdit();
            box->selectAll();
            QTest::keyClicks(box, "C:\\n.txt");
            ClickSoon(In<QPushButton>(dialog, "OKButton"));
        });
        OnPrompt([](QWidget& question) {
            ClickSoon(question.findChildren<QPushButton*>().front()); // OK to writing it
        });
        OnPrompt(std::move(act));
        Choose("mnuTools_NumericIncrement");
        EXPECT_TRUE(AllModalsCame());
    }
};

TEST_F(NumbersWindowTest, AsksForAllInOneWindowAndShowsTheLines) {
    ToNumbers([](QWidget& numbers) {
        TypeInto(numbers, "txtStart", "9");
        TypeInto(numbers, "txtEnd", "11");
        TypeInto(numbers, "txtFormat", "00#");
        TypeInto(numbers, "txtLine", "a*b*c");
        EXPECT_EQ(Lines(numbers), (QStringList{"a009b*c", "a010b*c", "a011b*c", "*EOF"}));
        EXPECT_EQ(In<QLabel>(numbers, "lblMain")->text(), "3 lines will be written:");
        In<QCheckBox>(numbers, "chkSameLength")->click();
        EXPECT_EQ(Lines(numbers), (QStringList{"a9b*c", "a10b*c", "a11b*c", "*EOF"}));
        EXPECT_FALSE(In<QLineEdit>(numbers, "txtFormat")->isEnabled());
        In<QPushButton>(numbers, "cmdOK")->click();
    });
    EXPECT_EQ(machine.disk.Content("C:\\n.txt"), "a9b*c\r\na10b*c\r\na11b*c\r\n*EOF\r\n");
}

TEST_F(NumbersWindowTest, SaysWhatIsWrongAndTakesNoneOfIt) {
    ToNumbers([](QWidget& numbers) {
        auto* ok = In<QPushButton>(numbers, "cmdOK");
        const auto* told = In<QLabel>(numbers, "lblMain");
        TypeInto(numbers, "txtStart", "x");
        EXPECT_EQ(told->text(), "\"x\" is not numeric.");
        EXPECT_FALSE(ok->isEnabled());
        EXPECT_TRUE(Lines(numbers).isEmpty());
        TypeInto(numbers, "txtStart", "5");
        TypeInto(numbers, "txtFormat", "000");
        EXPECT_TRUE(told->text().startsWith("A # symbol is required"));
        EXPECT_FALSE(ok->isEnabled());
        TypeInto(numbers, "txtFormat", "#");
        TypeInto(numbers, "txtEnd", "4");
        EXPECT_EQ(told->text(), "No line: the first number is beyond the last one.");
        EXPECT_TRUE(ok->isEnabled());
        In<QPushButton>(numbers, "cmdOK")->click();
    });
    EXPECT_EQ(machine.disk.Content("C:\\n.txt"), "*EOF\r\n");
}

TEST_F(NumbersWindowTest, ACancelLeavesANewFileEmpty) {
    ToNumbers([this](QWidget& numbers) {
        OnPrompt([](QWidget& told) { told.findChild<QPushButton*>()->click(); });
        ClickSoon(In<QPushButton>(numbers, "cmdCancel"));
    });
    EXPECT_EQ(machine.disk.Content("C:\\n.txt"), "");
}

} // namespace tarvix::forms
