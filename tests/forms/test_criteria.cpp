#include "forms/folder_lister.h"
#include "forms/window_place.h"
#include "tests/forms/window_fixture.h"
#include "tests/machine/no_threads.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSemaphore>
#include <QToolButton>

#include <map>

namespace tarvix::forms {

class CriteriaTest : public WindowFixture {
  protected:
    // Where each named part of the window stands.
    std::map<QString, QRect> Places() {
        std::map<QString, QRect> places;
        for (const QWidget* widget : window->findChildren<QWidget*>()) {
            const bool isOurs = !widget->objectName().isEmpty() &&
                                !widget->objectName().startsWith("qt_") && widget->isVisible();
            if (!isOurs) continue;
            places[widget->objectName()] =
                QRect(widget->mapTo(window.get(), QPoint()), widget->size());
        }
        return places;
    }

    void ExpectNothingMoves(const char* box) {
        const auto before = Places();
        Find<QAbstractButton>(box)->click();
        QCoreApplication::processEvents();
        for (const auto& [name, place] : Places()) {
            const auto found = before.find(name);
            ASSERT_NE(found, before.end()) << name.toStdString() << " came with " << box;
            EXPECT_EQ(place, found->second) << name.toStdString() << " moved with " << box;
        }
    }

    std::string OfferedBelow(const char* box) {
        QStringList texts;
        const auto* completer = Find<QComboBox>(box)->findChild<QCompleter*>();
        for (int i = 0; i < completer->model()->rowCount(); ++i) {
            texts << completer->model()->index(i, 0).data().toString();
        }
        return texts.join(", ").toStdString();
    }

    void ExpectOffer(const std::string& texts) {
        (void)QTest::qWaitFor([&] { return OfferedBelow("cmbDir") == texts; }, 3000);
        EXPECT_EQ(OfferedBelow("cmbDir"), texts);
    }
};

TEST_F(CriteriaTest, NothingMovesWhenSomethingIsChosen) {
    for (const QSize size :
         {QSize(800, 497), QSize(1120, 720), QSize(1900, 1000), QSize(801, 500)}) {
        window->resize(size);
        for (int round = 0; round < 20; ++round) {
            QTest::qWait(10);
        }
        for (const char* box : {"chkSize", "chkSize", "chkDate", "chkDate", "chkNot", "chkOneEach",
                                "chkRepeatSearch", "chkIncludeSubFolders", "optFilesVsDirs(2)",
                                "optFilesVsDirs(4)", "chkHidden", "chkHidden", "chkHidden"}) {
            ExpectNothingMoves(box);
        }
    }
}

TEST_F(CriteriaTest, OneButtonSetsAllAttributesToAny) {
    Find<QAbstractButton>("btnAnyAttribute")->click();
    for (const fields::CheckBox* box : Form().attributeBoxes) {
        EXPECT_EQ(box->Value.Get(), 2) << box->Name();
    }
}

TEST_F(CriteriaTest, WordsInADateBoxAreADate) {
    Find<QCheckBox>("chkDate")->click();
    Type("txtDate1", "last 7 days");
    EXPECT_EQ(Find<QComboBox>("cboDate")->currentText(), "Since");
    const auto today = S().Now();
    EXPECT_TRUE(Form().lblDate1.Date());
    EXPECT_LT(*Form().lblDate1.Date(), today);
}

TEST_F(CriteriaTest, TheMenuOfADateBoxHasACalendarAndWords) {
    Find<QCheckBox>("chkDate")->click();
    auto* box = Find<QLineEdit>("txtDate1");
    box->setFocus();
    OnPopup([](QMenu& menu) {
        EXPECT_NE(menu.findChild<QCalendarWidget*>(), nullptr);
        for (QAction* action : menu.actions()) {
            if (action->text() == "yesterday") action->trigger();
        }
        menu.close();
    });
    QTest::keyClick(box, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(box->text(), "yesterday");
    EXPECT_EQ(Form().txtDate1.Text.Get(), "yesterday");
    EXPECT_TRUE(Form().lblDate1.Date());
}

TEST_F(CriteriaTest, TheDateWindowTakesWordsAndItsCalendar) {
    Find<QCheckBox>("chkDate")->click();
    OnModal([](QWidget& modal) {
        modal.findChild<QPushButton*>("btnLastyear")->click();
        EXPECT_EQ(modal.findChild<QDateTimeEdit*>("dtpStartDate")->date().month(), 1);
        EXPECT_EQ(modal.findChild<QDateTimeEdit*>("dtpEndTime")->time(), QTime(23, 59, 59));
        modal.findChild<QCalendarWidget*>("calStart")->setSelectedDate(QDate(2020, 2, 29));
        QTest::mouseClick(modal.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    auto* how = Find<QComboBox>("cboDate");
    how->setFocus();
    QTest::keyClicks(how, "R");
    EXPECT_EQ(Form().lblDate1.Caption.Get(), "2020/02/29 00:00:00");
    EXPECT_EQ(Find<QLineEdit>("txtDate1")->text(), "2020/02/29");
    EXPECT_TRUE(Find<QLineEdit>("txtDate2")->isEnabled());
}

TEST_F(CriteriaTest, ADateTypedOnTheCalendarIsTakenAsItIsTyped) {
    Find<QCheckBox>("chkDate")->click();
    OnModal([](QWidget& modal) {
        EXPECT_TRUE(
            modal.findChild<QCalendarWidget*>("calStart")->isAncestorOf(modal.focusWidget()));
        for (const char c : std::string("2025/01/03")) {
            QTest::keyClick(modal.focusWidget(), c);
        }
        EXPECT_EQ(modal.findChild<QDateTimeEdit*>("dtpStartDate")->date(), QDate(2025, 1, 3));
        EXPECT_EQ(modal.findChild<QCalendarWidget*>("calStart")->selectedDate(), QDate(2025, 1, 3));
        QTest::keyClick(modal.focusWidget(), Qt::Key_Return);
    });
    auto* how = Find<QComboBox>("cboDate");
    how->setFocus();
    QTest::keyClicks(how, "S");
    EXPECT_EQ(Form().lblDate1.Caption.Get(), "2025/01/03 00:00:00");
}

TEST_F(CriteriaTest, ARefusalFocusesTheBoxThatItIsAbout) {
    Find<QCheckBox>("chkSize")->click();
    Type("txtSize1", "big");
    OnModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    Search("*.mp3", "C:\\home\\ann\\Music");
    Activate(*window);
    EXPECT_EQ(window->focusWidget()->objectName(), "txtSize1");
    EXPECT_EQ(Find<QLineEdit>("txtSize1")->selectedText(), "big");
}

TEST_F(CriteriaTest, AnEmptyListSaysWhyAndOffersTheWayOut) {
    S().state.options.blnAllowUserSelectSubfolders = true;
    Search("*.mp3", "C:\\home\\ann\\Music");
    auto* panel = Find<QWidget>("emptyList");
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(TextOf("lblEmptyTitle"), "No object matches *.mp3 in C:\\home\\ann\\Music");
    EXPECT_EQ(TextOf("lblWhy1"), "2 subfolders were not searched.");
    EXPECT_TRUE(window->List().rect().contains(panel->geometry()));
    QTest::mouseClick(Find<QPushButton>("wayOut1"), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(TextOf("lblNumOfFilesFound"), "3");
    EXPECT_FALSE(panel->isVisible());
    EXPECT_TRUE(Find<QCheckBox>("chkIncludeSubFolders")->isChecked());
}

TEST_F(CriteriaTest, TheTitleSaysTheSearch) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    EXPECT_EQ(window->windowTitle(), "*.mp3 in C:\\home\\ann\\Music\\Abba - Tarvix");
}

TEST_F(CriteriaTest, TheDropDownShowsTheMostRecentFirst) {
    Search("zebra", "C:\\home\\ann\\Music\\Abba");
    machine.clock.SetNow({2030, 1, 1, 0, 0, 0});
    Search("apple", "C:\\home\\ann\\Music\\Beatles");
    auto* box = Find<QComboBox>("cmbSearchFor");
    EXPECT_EQ(box->itemText(0), "apple");
    EXPECT_EQ(box->itemText(1), "zebra");
    EXPECT_EQ(Find<QComboBox>("cmbDir")->itemText(0), "C:\\home\\ann\\Music\\Beatles");
}

TEST_F(CriteriaTest, FoldersOfTheDiskAreOfferedWhileTyping) {
    Type("cmbDir", "/home/ann/Music/a");
    ExpectOffer("C:\\home\\ann\\Music\\Abba");
    Type("cmbDir", "/tmp|/home/ann/mus");
    ExpectOffer("/tmp|C:\\home\\ann\\Music");
    Type("cmbDir", "/home/ann/Music/");
    ExpectOffer("C:\\home\\ann\\Music\\Abba, C:\\home\\ann\\Music\\Beatles");
}

TEST_F(CriteriaTest, AnOfferedFolderIsTaken) {
    Type("cmbDir", "/home/ann/Music/be");
    ExpectOffer("C:\\home\\ann\\Music\\Beatles");
    auto* completer = Find<QComboBox>("cmbDir")->findChild<QCompleter*>();
    ASSERT_TRUE(completer->popup()->isVisible());
    QTest::keyClick(completer->popup(), Qt::Key_Down);
    QTest::keyClick(completer->popup(), Qt::Key_Return);
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\home\\ann\\Music\\Beatles");
    EXPECT_EQ(Find<QComboBox>("cmbDir")->currentText(), "C:\\home\\ann\\Music\\Beatles");
}

TEST_F(CriteriaTest, TheEntriesOfBrowseAreItsModes) {
    auto* adds = Find<QAction>("optBrowse(1)");
    EXPECT_FALSE(adds->isChecked());
    adds->trigger();
    EXPECT_EQ(Form().optBrowse.Chosen(), 1);
    EXPECT_TRUE(adds->isChecked());
    EXPECT_FALSE(Find<QAction>("optBrowse(0)")->isChecked());
}

TEST(FolderListerTest, ADiskThatDoesNotAnswerHoldsUpNobody) {
    QSemaphore answers;
    int told = 0;
    {
        FolderLister lister(
            [&answers](const std::string&) {
                answers.acquire();
                return FolderLister::Names{"late"};
            },
            true);
        lister.Ask("C:\\slow", [&told](const FolderLister::Names&) { ++told; });
        QTest::qWait(20);
        EXPECT_EQ(told, 0);
    }
    answers.release();
    QTest::qWait(20);
    EXPECT_EQ(told, 0);
}

TEST(FolderListerTest, WithoutAThreadTheAnswerComesAtOnce) {
    const platform::NoThreads none;
    FolderLister lister([](const std::string& folder) { return FolderLister::Names{folder}; },
                        true);
    FolderLister::Names told;
    lister.Ask("a", [&told](const FolderLister::Names& names) { told = names; });
    EXPECT_EQ(told, FolderLister::Names{"a"});
}

TEST(FolderListerTest, OnlyTheNewestQuestionIsAnswered) {
    QSemaphore answers;
    std::vector<std::string> told;
    FolderLister lister(
        [&answers](const std::string& folder) {
            answers.acquire();
            return FolderLister::Names{folder};
        },
        true);
    for (const char* folder : {"a", "b", "c"}) {
        lister.Ask(folder, [&told](const FolderLister::Names& names) {
            told.insert(told.end(), names.begin(), names.end());
        });
    }
    answers.release(3);
    QTRY_COMPARE(told, std::vector<std::string>{"c"});
    QTest::qWait(20);
    EXPECT_EQ(told, std::vector<std::string>{"c"});
}

TEST(PlaceWithin, KeepsAWindowWithItsFrameOnTheScreen) {
    const QRect room(0, 30, 1280, 770);
    const QSize frame(8, 32);
    const QSize least(800, 497);
    const auto fit = [&](const QRect& wanted) { return PlaceWithin(wanted, least, frame, room); };
    EXPECT_EQ(fit({100, 100, 900, 600}), QRect(100, 100, 900, 600));
    EXPECT_EQ(fit({1000, 600, 900, 600}), QRect(372, 168, 900, 600));
    EXPECT_EQ(fit({-50, -50, 900, 600}), QRect(0, 30, 900, 600));
    EXPECT_EQ(fit({0, 0, 3000, 2000}), QRect(0, 30, 1272, 738));
    EXPECT_EQ(PlaceWithin({10, 10, 900, 600}, least, frame, {0, 0, 640, 480}),
              QRect(0, 0, 800, 497));
}

} // namespace tarvix::forms
