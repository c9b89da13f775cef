#include "tests/forms/window_fixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <gmock/gmock.h>

namespace tarvix::forms {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using ResultViewTest = WindowFixture;

TEST_F(ResultViewTest, ClicksSelectAndCount) {
    Find<QCheckBox>("chkFastSort")->click();
    Search("*.*", "C:\\home\\ann\\Music\\Abba|C:\\home\\ann\\Music\\Beatles");
    ASSERT_EQ(S().rows->Count(), 4U);
    ClickRow(0);
    EXPECT_THAT(SelectedNames(), SizeIs(1));
    EXPECT_EQ(TextOf("lblNumOfFilesSelected"), "1");
    EXPECT_EQ(TextOf("lblTotalSize"), QString::number(S().rows->At(0).size));
    ClickRow(2, Qt::ControlModifier);
    EXPECT_EQ(TextOf("lblNumOfFilesSelected"), "2");
    ClickRow(2, Qt::ControlModifier);
    EXPECT_EQ(TextOf("lblNumOfFilesSelected"), "1");
    ClickRow(1);
    ClickRow(3, Qt::ShiftModifier);
    EXPECT_EQ(TextOf("lblNumOfFilesSelected"), "3");
    EXPECT_FALSE(S().rows->At(0).selected);
}

TEST_F(ResultViewTest, KeysSelectAndMove) {
    Find<QCheckBox>("chkFastSort")->click();
    Search("*.*", "C:\\home\\ann\\Music\\Abba|C:\\home\\ann\\Music\\Beatles");
    auto& list = window->List();
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_TRUE(S().rows->At(0).selected);
    QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(SelectedNames(), SizeIs(2));
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_THAT(SelectedNames(), SizeIs(1));
    QTest::keyClick(&list, Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(&list, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(S().rows->At(2).selected);
    EXPECT_TRUE(S().rows->At(3).selected);
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_THAT(SelectedNames(), SizeIs(4));
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_THAT(SelectedNames(), IsEmpty());
}

TEST_F(ResultViewTest, TypedLettersFindAName) {
    Search("*.*", "C:\\home\\ann\\Music\\Abba|C:\\home\\ann\\Music\\Beatles");
    auto& list = window->List();
    list.setFocus();
    QTest::keyClicks(&list, "Thr");
    EXPECT_THAT(SelectedNames(), ElementsAre("three.mp3"));
}

TEST_F(ResultViewTest, SpacersCanNeitherBeClickedNorSelected) {
    results::ResultList& rows = program.Rows();
    rows.Clear();
    const auto* folder = rows.AddFolder({.longPath = "C:\\x"});
    for (const char* name : {"a", "", "b"}) {
        rows.Add({.name = name, .folder = folder}, "01");
    }
    gate.Flush();
    ClickRow(0);
    ClickRow(1);
    EXPECT_THAT(SelectedNames(), ElementsAre("a"));
    ClickRow(2, Qt::ShiftModifier);
    EXPECT_THAT(SelectedNames(), ElementsAre("a", "b"));
    QTest::keyClick(&window->List(), Qt::Key_Up);
    EXPECT_THAT(SelectedNames(), ElementsAre("a"));
}

TEST_F(ResultViewTest, SelectCommandsShowInTheList) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba|C:\\home\\ann\\Music\\Beatles");
    Press("cmdSelectAll");
    EXPECT_EQ(TextOf("lblNumOfFilesSelected"), "3");
    Press("cmdSelectNone");
    EXPECT_EQ(TextOf("lblNumOfFilesSelected"), "0");
    EXPECT_EQ(TextOf("lblTotalSize"), "0");
    Press("cmdSelectReverse");
    EXPECT_EQ(TextOf("lblNumOfFilesSelected"), "3");
}

TEST_F(ResultViewTest, TheNativePathOfTheCurrentRowIsShownAndCopied) {
    Find<QCheckBox>("chkFastSort")->click();
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    ClickRow(0);
    EXPECT_EQ(TextOf("lblNativePath"), "/home/ann/Music/Abba/one.mp3");
    ClickRow(1, Qt::ShiftModifier);
    QTest::keyClick(&window->List(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "/home/ann/Music/Abba/one.mp3\n/home/ann/Music/Abba/two.mp3");
}

TEST_F(ResultViewTest, TheHeadIsAsHighAsItsHighestTitle) {
    auto& head = *window->List().horizontalHeader();
    for (const int sorted : {-1, int{results::kName}, int{results::kPath}}) {
        head.setSortIndicator(sorted, Qt::AscendingOrder);
        head.setSortIndicatorShown(sorted >= 0);
        EXPECT_EQ(head.sizeHint().height(), head.QHeaderView::sizeHint().height()) << sorted;
    }
    EXPECT_GE(head.height(), head.fontMetrics().height());
}

TEST_F(ResultViewTest, ColumnsAreChosenAtTheHead) {
    EXPECT_FALSE(window->List().isColumnHidden(results::kAttributes));
    EXPECT_TRUE(window->List().isColumnHidden(results::kShortPath));
    QMenu menu;
    window->List().Head().FillMenu(menu);
    EXPECT_EQ(menu.findChildren<QAction*>(QRegularExpression("^col")).size(), 24);
    menu.findChild<QAction*>("colAttributesSubItem")->trigger();
    EXPECT_TRUE(window->List().isColumnHidden(results::kAttributes));
    EXPECT_FALSE(S().blnListItems[results::kAttributes]);
    gate.Run(nullptr, [&] { S().blnListItems[results::kAttributes] = true; });
    EXPECT_FALSE(window->List().isColumnHidden(results::kAttributes));
}

TEST_F(ResultViewTest, ThePathStandsAmongTheFirstColumns) {
    const auto* head = window->List().horizontalHeader();
    EXPECT_EQ(head->visualIndex(results::kName), 0);
    EXPECT_EQ(head->visualIndex(results::kPath), 4);
    EXPECT_EQ(head->visualIndex(results::kType), 5);
}

TEST_F(ResultViewTest, WidthsAndOrderOfColumnsAreKeptForTheNextRun) {
    auto& settings = S().state.platformSettings;
    settings.columnWidths[results::kExt] = 77;
    S().blnListItems[results::kExt] = false;
    gate.Flush();
    window->List().setColumnWidth(results::kSize, 123);
    window->List().horizontalHeader()->moveSection(0, 1);
    window->close();
    EXPECT_EQ(settings.columnWidths[results::kSize], 123);
    EXPECT_EQ(settings.columnWidths[results::kDate], 0);
    EXPECT_EQ(settings.columnWidths[results::kExt], 77);
    ASSERT_EQ(settings.columnOrder.size(), 27U);
    EXPECT_EQ(settings.columnOrder[0], results::kSize);
    EXPECT_EQ(settings.columnOrder[1], results::kName);
}

TEST_F(ResultViewTest, AnOrderThatLacksAColumnIsTheUsualOne) {
    auto& list = window->List();
    ColumnHead::Layout layout;
    layout.order = {results::kPath, results::kName};
    layout.widths[results::kName] = 333;
    list.Head().Take(layout);
    EXPECT_EQ(list.horizontalHeader()->visualIndex(results::kName), 0);
    EXPECT_EQ(list.columnWidth(results::kName), 333);
    EXPECT_TRUE(list.Head().LayoutNow({}).order.empty());
}

TEST_F(ResultViewTest, LockedWidthsCannotBeDragged) {
    const auto* head = window->List().horizontalHeader();
    EXPECT_EQ(head->sectionResizeMode(results::kName), QHeaderView::Interactive);
    gate.Run(nullptr, [&] { S().state.options.blnLockColumnWidths = true; });
    EXPECT_EQ(head->sectionResizeMode(results::kName), QHeaderView::Fixed);
}

TEST_F(ResultViewTest, AClickOnAHeadRaisesItsEventOnlyWhenThereIsOne) {
    int clicked = -1;
    S().events.On("frmSearch.lstMain_ColumnClick",
                  [&](session::Session&, const session::EventArgs& args) { clicked = args.index; });
    auto* head = window->List().horizontalHeader();
    const int x = head->sectionViewportPosition(results::kSize) + 10;
    QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, QPoint(x, head->height() / 2));
    EXPECT_EQ(clicked, results::kSize);
}

TEST_F(ResultViewTest, ARowIsReadFromItsName) {
    Find<QCheckBox>("chkFastSort")->click();
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    const auto text = window->List().model()->index(0, 0).data(Qt::AccessibleTextRole).toString();
    EXPECT_TRUE(text.startsWith("one.mp3, ")) << text.toStdString();
    EXPECT_FALSE(window->List().accessibleName().isEmpty());
}

TEST_F(ResultViewTest, AListOf250000RowsSelectsAllAndScrollsToItsEnd) {
    results::ResultList& rows = program.Rows();
    rows.Clear();
    const auto* folder = rows.AddFolder({.longPath = "C:\\many"});
    for (int i = 0; i < 250'000; ++i) {
        const std::string name = "file " + std::to_string(i) + ".txt";
        rows.Add({.name = name, .folder = folder, .size = 2}, "01");
    }
    gate.Run(nullptr, [&] {
        Form().fraSelection.Visible = true;
        Form().cmdSelectAll.Visible = true;
    });
    ASSERT_EQ(window->List().model()->rowCount(), 250'000);
    Press("cmdSelectAll");
    EXPECT_EQ(TextOf("lblNumOfFilesSelected"), "250,000");
    EXPECT_EQ(TextOf("lblTotalSize"), "500,000");
    auto& list = window->List();
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(list.CurrentRow(), 249'999U);
    EXPECT_TRUE(list.viewport()->rect().intersects(list.visualRect(list.currentIndex())));
    EXPECT_EQ(TextOf("lblNumOfFilesSelected"), "1");
}

TEST_F(ResultViewTest, AListClearedInTheMiddleOfARoutineCanBePainted) {
    Search("*.mp3", "C:\\home\\ann\\Music\\Abba");
    gate.Run(nullptr, [&] {
        program.Rows().Clear();
        window->List().viewport()->repaint();
        EXPECT_EQ(window->List().model()->index(0, 0).data().toString(), "");
    });
    EXPECT_EQ(window->List().model()->rowCount(), 0);
}

} // namespace tarvix::forms
