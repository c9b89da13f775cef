#include "forms/frozen_head.h"
#include "tests/forms/window_fixture.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>
#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace tarvix::forms {

using ::testing::ElementsAre;

// The View menu, opened and gone through by keys alone.
class ViewMenuTest : public WindowFixture {
  protected:
    QMenu& SortMenu() { return *Find<QMenu>("mnuSortBy"); }
    QAction* Sort(const char* key) {
        auto* entry = SortMenu().findChild<QAction*>(QString("sort") + key);
        EXPECT_NE(entry, nullptr) << key;
        return entry;
    }
    std::vector<std::string> Sorts() {
        emit SortMenu().aboutToShow();
        std::vector<std::string> texts;
        for (const QAction* entry : SortMenu().actions()) {
            const std::string text = entry->text().remove(u'&').toStdString();
            texts.push_back((entry->isChecked() ? "* " : "") + text);
        }
        return texts;
    }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < S().rows->Count(); ++i) {
            if (!S().rows->At(i).IsSpacer()) names.emplace_back(S().rows->At(i).name);
        }
        return names;
    }
    void SearchAbba() {
        window->List().Head().ShowUsual();
        gate.Flush();
        Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    }
    // The letters go to whatever menu stands open last.
    void Keys(const char* letters) {
        Activate(*window);
        window->List().setFocus();
        QTest::qWait(20);
        QTest::keyClick(window.get(), letters[0], Qt::AltModifier);
        for (const char* key = letters + 1; *key != '\0'; ++key) {
            auto* open = QApplication::activePopupWidget();
            ASSERT_NE(open, nullptr) << letters << " at " << *key;
            QTest::keyClick(open, *key);
        }
    }
};

TEST_F(ViewMenuTest, TellsOfTheLastActionByTwoKeys) {
    SearchAbba();
    auto* entry = Find<QAction>("actLastAction");
    emit qobject_cast<QMenu*>(entry->parent())->aboutToShow();
    EXPECT_FALSE(entry->isEnabled()) << "there was no action yet";
    Press("cmdSelectAll");
    OnModal([](QWidget& question) { question.findChild<QPushButton*>("btnYes")->click(); });
    Press("cmdDeleteSelected");
    ASSERT_FALSE(Find<QTableView>("lstOutcome")->isVisible());
    Keys("vl");
    EXPECT_TRUE(Find<QTableView>("lstOutcome")->isVisible());
}

TEST_F(ViewMenuTest, SortsByTheColumnsThatShowFromLeftToRight) {
    SearchAbba();
    EXPECT_THAT(Sorts(), ElementsAre("* Name\tascending", "Size", "Date", "Ext", "Path", "Type"));
    window->List().Head().Header().moveSection(1, 3);
    S().blnListItems[results::kExt] = false;
    S().blnListItems[results::kOs] = true;
    gate.Flush();
    const auto sorts = Sorts();
    EXPECT_THAT(sorts, ::testing::Contains("OS"));
    EXPECT_THAT(sorts, ::testing::Not(::testing::Contains("Ext")));
    EXPECT_EQ(sorts[1], "Date");
}

TEST_F(ViewMenuTest, AnEntryDoesWhatAClickOnTheHeadDoes) {
    SearchAbba();
    emit SortMenu().aboutToShow();
    Sort("SizeSubItem")->trigger();
    EXPECT_THAT(Names(), ElementsAre("one.mp3", "two.mp3"));
    EXPECT_EQ(S().frmSearch.lstMain.SortKey, results::kSize);
    EXPECT_THAT(Sorts(), ElementsAre("Name", "* Size\tascending", "Date", "Ext", "Path", "Type"));
    Sort("SizeSubItem")->trigger();
    EXPECT_THAT(Names(), ElementsAre("two.mp3", "one.mp3"));
    EXPECT_THAT(Sorts(), ElementsAre("Name", "* Size\tdescending", "Date", "Ext", "Path", "Type"));
    Sort("Name")->trigger();
    EXPECT_THAT(Names(), ElementsAre("one.mp3", "two.mp3"));
}

TEST_F(ViewMenuTest, ThreeKeysSortAndThreeHideAColumn) {
    SearchAbba();
    Keys("vss");
    EXPECT_EQ(S().frmSearch.lstMain.SortKey, results::kSize);
    Keys("vss");
    EXPECT_THAT(Names(), ElementsAre("two.mp3", "one.mp3"));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    ASSERT_TRUE(S().blnListItems[results::kSize]);
    Keys("vcs");
    EXPECT_FALSE(S().blnListItems[results::kSize]);
    EXPECT_TRUE(window->List().isColumnHidden(results::kSize));
    while (QWidget* open = QApplication::activePopupWidget())
        open->close();
    EXPECT_EQ(Sorts()[1], "Date");
}

TEST_F(ViewMenuTest, EachOfAllColumnsHasAKeyOfItsOwn) {
    SearchAbba();
    for (int i = 0; i < results::kColumnCount; ++i)
        S().blnListItems[static_cast<std::size_t>(i)] = true;
    gate.Flush();
    emit SortMenu().aboutToShow();
    const auto entries = SortMenu().actions();
    EXPECT_GE(entries.size(), 26);
    std::set<QChar> keys;
    for (const QAction* entry : entries) {
        const qsizetype at = entry->text().indexOf(u'&');
        ASSERT_GE(at, 0) << entry->text().toStdString();
        EXPECT_TRUE(keys.insert(entry->text()[at + 1].toLower()).second)
            << entry->text().toStdString();
    }
    const auto digit = std::ranges::find_if(
        entries, [](const QAction* entry) { return entry->text().startsWith("&1  "); });
    ASSERT_NE(digit, entries.end());
    const std::string key = (*digit)->objectName().mid(4).toStdString();
    const auto column = std::ranges::find(results::kColumns, key, &results::ColumnInfo::key);
    Keys("vs1");
    EXPECT_EQ(S().frmSearch.lstMain.SortKey, column - results::kColumns.begin());
}

TEST_F(ViewMenuTest, WhereAClickOnAHeadDoesNothingTheEntryIsDisabled) {
    SearchAbba();
    QMenu& view = *qobject_cast<QMenu*>(SortMenu().parent());
    emit view.aboutToShow();
    EXPECT_TRUE(SortMenu().isEnabled());
    S().state.blnPlayListMode = true;
    emit view.aboutToShow();
    EXPECT_FALSE(SortMenu().isEnabled());
    S().state.blnPlayListMode = false;
    S().frmSearch.lstMain.Enabled = false;
    emit view.aboutToShow();
    EXPECT_FALSE(SortMenu().isEnabled());
}

} // namespace tarvix::forms
