#include "forms/frozen_head.h"
#include "forms/list_colors.h"
#include "forms/row_delegate.h"
#include "forms/staying_menu.h"
#include "forms/theme.h"
#include "tests/forms/window_fixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <set>

namespace tarvix::forms {

using ::testing::ElementsAre;

class ListLooksTest : public WindowFixture {
  protected:
    void SearchBoth(const QString& patterns = "*.*") {
        Search(patterns, "C:\\home\\ann\\Music\\Abba|C:\\home\\ann\\Music\\Beatles");
    }
    // A list of these names, spacers where empty.
    void Fill(std::initializer_list<const char*> names) {
        results::ResultList& rows = program.Rows();
        rows.Clear();
        const auto* folder = rows.AddFolder({.longPath = "C:\\x"});
        for (const char* name : names) {
            rows.Add({.name = name, .folder = folder, .size = 1'234'567}, "01");
        }
        gate.Flush();
    }
    ResultView& List() { return window->List(); }
    FrozenHead& Head() { return List().Head().Header(); }
    QModelIndex Cell(int row, int column) { return List().model()->index(row, column); }
    void ScrollSideways() {
        auto* bar = List().horizontalScrollBar();
        ASSERT_GT(bar->maximum(), 300);
        bar->setValue(300);
    }
    void ClickHead(int x) {
        QTest::mouseClick(Head().viewport(), Qt::LeftButton, {}, QPoint(x, Head().height() / 2));
    }
    QAction* Entry(const char* name) {
        auto* found = window->findChild<QAction*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
};

// ---- groups ----

TEST_F(ListLooksTest, AGroupOfTwoIsSetApartByARuleAndOthersByNothing) {
    Fill({"a", "", "b", "c", "", "d", "", "e"});
    EXPECT_EQ(List().rowHeight(1), 4);
    EXPECT_EQ(List().rowHeight(4), 4);
    EXPECT_EQ(List().rowHeight(6), 0);
    EXPECT_GT(List().rowHeight(0), 10);
    EXPECT_TRUE(List().HasGroups());
    EXPECT_EQ(List().model()->rowCount(), 8);
}

TEST_F(ListLooksTest, RowsThatChangePlacesHaveTheirOwnHeights) {
    Fill({"a", "", "b", "", "c"});
    const int height = List().rowHeight(0);
    Fill({"a", "b", "", "c", "d"});
    EXPECT_EQ(List().rowHeight(1), height);
    EXPECT_EQ(List().rowHeight(2), 4);
    EXPECT_EQ(List().rowHeight(3), height);
}

TEST_F(ListLooksTest, GroupsAreCountedOnlyWhereOneHasTwo) {
    SearchBoth();
    EXPECT_EQ(TextOf("lblGroups"), "4");
    EXPECT_FALSE(Find<QWidget>("rowGroups")->isVisible());
    ClickHead(Head().sectionViewportPosition(results::kExt) + 5);
    EXPECT_EQ(TextOf("lblGroups"), "2");
    EXPECT_TRUE(Find<QWidget>("rowGroups")->isVisible());
}

TEST_F(ListLooksTest, TheRuleIsALineAcrossTheList) {
    Fill({"a", "b", "", "c"});
    const QImage shot = List().viewport()->grab().toImage();
    const int y = List().rowViewportPosition(2) + 1;
    const QColor base = List().palette().color(QPalette::Base);
    const auto colorAt = [&shot](int x, int line) {
        const double scale = shot.devicePixelRatio();
        return shot.pixelColor(static_cast<int>(x * scale), static_cast<int>(line * scale));
    };
    EXPECT_NE(colorAt(2, y), base);
    EXPECT_EQ(colorAt(2, y), colorAt(List().columnWidth(0) + 40, y));
    EXPECT_EQ(colorAt(2, y - 1), base);
}

TEST_F(ListLooksTest, KeysAndClicksPassOverRules) {
    Fill({"a", "b", "", "c", "d"});
    ClickRow(1);
    List().setFocus();
    QTest::keyClick(&List(), Qt::Key_Down);
    EXPECT_THAT(SelectedNames(), ElementsAre("c"));
    const int y = List().rowViewportPosition(2) + 1;
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, QPoint(10, y));
    EXPECT_THAT(SelectedNames(), ElementsAre("c"));
    QTest::keyClick(&List(), Qt::Key_Up);
    EXPECT_THAT(SelectedNames(), ElementsAre("b"));
}

TEST_F(ListLooksTest, APageIsWhatTheViewShows) {
    results::ResultList& rows = program.Rows();
    rows.Clear();
    const auto* folder = rows.AddFolder({.longPath = "C:\\x"});
    for (int i = 0; i < 400; ++i) {
        const std::string name = i % 2 == 0 ? "f" + std::to_string(i) : std::string();
        rows.Add({.name = name, .folder = folder}, "01");
    }
    gate.Flush();
    ClickRow(0);
    List().setFocus();
    const int shown = List().viewport()->height() / List().rowHeight(0);
    QTest::keyClick(&List(), Qt::Key_PageDown);
    EXPECT_NEAR(static_cast<int>(List().CurrentRow().value_or(0)) / 2, shown - 1, 1);
    QTest::keyClick(&List(), Qt::Key_PageUp);
    EXPECT_EQ(List().CurrentRow(), 0U);
    QTest::keyClick(&List(), Qt::Key_End);
    QTest::keyClick(&List(), Qt::Key_PageDown);
    EXPECT_EQ(List().CurrentRow(), 398U);
}

TEST_F(ListLooksTest, UngroupedRowsAreStripedOneByOne) {
    Fill({"a", "", "b", "", "c"});
    EXPECT_FALSE(List().IsStriped(0));
    EXPECT_TRUE(List().IsStriped(2));
    EXPECT_FALSE(List().IsStriped(4));
    Fill({"a", "b", "c"});
    EXPECT_TRUE(List().IsStriped(1));
    Fill({"a", "b", "", "c"});
    EXPECT_FALSE(List().IsStriped(1));
}

// ---- columns ----

TEST_F(ListLooksTest, TheNameStaysInViewWhenScrolledSideways) {
    SearchBoth();
    const QRect before = List().visualRect(Cell(0, results::kName));
    EXPECT_EQ(Head().FrozenWidth(), 0);
    ScrollSideways();
    EXPECT_EQ(Head().FrozenWidth(), List().columnWidth(results::kName));
    EXPECT_EQ(List().visualRect(Cell(0, results::kName)), before);
    EXPECT_EQ(List().indexAt(before.center()).column(), results::kName);
    EXPECT_EQ(Head().ColumnAt(10), results::kName);
    EXPECT_NE(Head().ColumnAt(Head().FrozenWidth() + 10), results::kName);
}

TEST_F(ListLooksTest, TheNameThatStaysIsPaintedAsItIs) {
    SearchBoth();
    const QRect name = List().visualRect(Cell(0, results::kName));
    const QRect part(name.left(), name.top(), 100, name.height());
    const QImage before = List().viewport()->grab(part).toImage();
    ScrollSideways();
    EXPECT_EQ(List().viewport()->grab(part).toImage(), before);
}

TEST_F(ListLooksTest, AClickOnTheHeadOfTheNameThatStaysSortsByIt) {
    SearchBoth();
    ClickHead(Head().sectionViewportPosition(results::kSize) + 10);
    ASSERT_EQ(Form().lstMain.SortKey, results::kSize);
    ScrollSideways();
    ClickHead(20);
    EXPECT_EQ(Form().lstMain.SortKey, results::kName);
}

TEST_F(ListLooksTest, KeysDoNotScrollSideways) {
    SearchBoth();
    ScrollSideways();
    ClickRow(0);
    QTest::keyClick(&List(), Qt::Key_Down);
    EXPECT_EQ(List().horizontalScrollBar()->value(), 300);
}

TEST_F(ListLooksTest, ANewSearchScrollsHomeAndASortDoesNot) {
    SearchBoth();
    ScrollSideways();
    ClickHead(20);
    EXPECT_EQ(List().horizontalScrollBar()->value(), 300);
    Press("cmdSearch");
    EXPECT_EQ(List().horizontalScrollBar()->value(), 0);
}

TEST_F(ListLooksTest, TheLastWideColumnTakesTheSpareWidth) {
    List().Head().ShowUsual();
    window->resize(1300, 700);
    QTest::qWait(20);
    const auto sum = [this] {
        int all = 0;
        for (int column = 0; column < results::kColumnCount; ++column) {
            if (!List().isColumnHidden(column)) all += List().columnWidth(column);
        }
        return all;
    };
    EXPECT_EQ(sum(), List().viewport()->width());
    EXPECT_GT(List().columnWidth(results::kPath), 320);
    const int date = List().columnWidth(results::kDate);
    window->resize(window->width() + 100, window->height());
    QTest::qWait(20);
    EXPECT_EQ(sum(), List().viewport()->width());
    EXPECT_EQ(List().columnWidth(results::kDate), date);
    gate.Run(nullptr, [this] { S().blnListItems[results::kPath] = false; });
    EXPECT_EQ(sum(), List().viewport()->width());
    EXPECT_GT(List().columnWidth(results::kName), 260);
}

TEST_F(ListLooksTest, WhatWasToSpareIsNoWidthThatIsKept) {
    List().Head().ShowUsual();
    EXPECT_EQ(List().Head().LayoutNow({}).widths[results::kPath], 0);
    window->resize(1300, 700);
    QTest::qWait(20);
    gate.Run(nullptr, [this] { S().blnListItems[results::kPath] = false; });
    gate.Run(nullptr, [this] { S().blnListItems[results::kPath] = true; });
    EXPECT_EQ(List().Head().LayoutNow({}).widths[results::kPath], 0);
}

TEST_F(ListLooksTest, NoColumnIsNarrowerThanItsTitle) {
    for (int column = 0; column < results::kColumnCount; ++column) {
        if (List().isColumnHidden(column)) continue;
        EXPECT_GE(List().columnWidth(column), Head().TitleWidth(column)) << column;
        const QString title = List().model()->headerData(column, Qt::Horizontal).toString();
        EXPECT_GT(Head().TitleWidth(column), Head().fontMetrics().horizontalAdvance(title));
    }
    List().setColumnWidth(results::kHotKey, 20);
    EXPECT_EQ(List().columnWidth(results::kHotKey), Head().TitleWidth(results::kHotKey));
}

TEST_F(ListLooksTest, TheMenuOfColumnsStaysOpenWhileChoosing) {
    StayingMenu menu;
    List().Head().FillMenu(menu, results::kDate);
    menu.popup(window->mapToGlobal(QPoint(50, 50)));
    auto* size = menu.findChild<QAction*>("colSizeSubItem");
    auto* ext = menu.findChild<QAction*>("colExtSubItem");
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(size).center());
    EXPECT_TRUE(List().isColumnHidden(results::kSize));
    EXPECT_TRUE(menu.isVisible());
    menu.setActiveAction(ext);
    QTest::keyClick(&menu, Qt::Key_Space);
    EXPECT_TRUE(List().isColumnHidden(results::kExt));
    EXPECT_FALSE(ext->isChecked());
    EXPECT_TRUE(menu.isVisible());
    QTest::mouseClick(&menu, Qt::LeftButton, {},
                      menu.actionGeometry(menu.findChild<QAction*>("actHideColumn")).center());
    EXPECT_TRUE(List().isColumnHidden(results::kDate));
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(ListLooksTest, TheMenuOfColumnsIsInGroups) {
    QMenu menu;
    List().Head().FillMenu(menu);
    std::vector<std::string> below;
    for (const QAction* entry : menu.actions()) {
        if (entry->menu() != nullptr) below.push_back(entry->text().toStdString());
    }
    EXPECT_THAT(below, ElementsAre("Paths", "Programs", "Links", "Other"));
    EXPECT_EQ(menu.findChild<QAction*>("actHideColumn"), nullptr); // the name always shows
    EXPECT_EQ(menu.findChild<QAction*>("colHotKeyOfLink")->parent(), menu.actions()[8]->menu());
}

TEST_F(ListLooksTest, UsualColumnsAreShownAgainInTheirOrder) {
    List().horizontalHeader()->moveSection(0, 3);
    QMenu menu;
    List().Head().FillMenu(menu);
    menu.findChild<QAction*>("actUsualColumns")->trigger();
    std::vector<int> shown;
    for (int place = 0; place < results::kColumnCount; ++place) {
        const int column = Head().logicalIndex(place);
        if (!List().isColumnHidden(column)) shown.push_back(column);
    }
    EXPECT_THAT(shown, ElementsAre(results::kName, results::kSize, results::kDate, results::kExt,
                                   results::kPath, results::kType));
    EXPECT_FALSE(S().blnListItems[results::kAttributes]);
    EXPECT_TRUE(S().blnListItems[results::kType]);
}

TEST_F(ListLooksTest, FittedColumnsShowAllOfWhatIsInView) {
    Fill({"a name that is longer than any column of names is at first, and so is cut in it", "b"});
    QMenu menu;
    List().Head().FillMenu(menu);
    menu.findChild<QAction*>("actFitWidths")->trigger();
    const QString name = Cell(0, results::kName).data().toString();
    EXPECT_GE(List().columnWidth(results::kName),
              List().fontMetrics().horizontalAdvance(name) + List().fontMetrics().height());
    EXPECT_LT(List().columnWidth(results::kSize), 120);
}

// ---- sizes ----

TEST_F(ListLooksTest, SizesAreWrittenInUnitsWhereThatIsChosen) {
    Fill({"a"});
    EXPECT_EQ(RowDelegate::WholeText(Cell(0, results::kSize)), "1,234,567");
    EXPECT_FALSE(Cell(0, results::kSize).data(ResultModel::kFullText).isValid());
    Entry("actSizesInUnits")->trigger();
    EXPECT_EQ(RowDelegate::WholeText(Cell(0, results::kSize)), "1.2 MB");
    EXPECT_EQ(Cell(0, results::kSize).data(ResultModel::kFullText).toString(), "1,234,567 bytes");
    EXPECT_EQ(S().rows->Cell(0, results::kSize), "000,001,234,567");
    EXPECT_TRUE(S().state.platformSettings.showsUnits);
    Entry("actSizesInBytes")->trigger();
    EXPECT_EQ(RowDelegate::WholeText(Cell(0, results::kSize)), "1,234,567");
}

TEST_F(ListLooksTest, ASizeOfNothingIsShown) {
    program.Rows().Clear();
    const auto* folder = program.Rows().AddFolder({.longPath = "C:\\x"});
    program.Rows().Add({.name = "a", .folder = folder}, "01");
    program.Rows().Add({.name = "b", .folder = folder, .size = 1'000'000'000'000}, "01");
    gate.Flush();
    EXPECT_EQ(RowDelegate::WholeText(Cell(0, results::kSize)), "0");
    EXPECT_EQ(RowDelegate::WholeText(Cell(1, results::kSize)), "1,000,000,000,000 !");
    Entry("actSizesInUnits")->trigger();
    EXPECT_EQ(RowDelegate::WholeText(Cell(0, results::kSize)), "0 bytes");
}

// ---- paths ----

TEST_F(ListLooksTest, PathsBeginBelowTheSearchLocation) {
    Find<QCheckBox>("chkIncludeSubFolders")->click();
    Find<QCheckBox>("chkFastSort")->click();
    Search("*.jpg", "C:\\home\\ann\\Music");
    EXPECT_EQ(Cell(0, results::kPath).data().toString(), "Beatles");
    EXPECT_EQ(Cell(0, results::kPath).data(ResultModel::kFullText).toString(),
              "C:\\home\\ann\\Music\\Beatles");
    EXPECT_EQ(S().rows->Cell(0, results::kPath), "C:\\home\\ann\\Music\\Beatles");
    EXPECT_TRUE(List()
                    .model()
                    ->headerData(results::kPath, Qt::Horizontal, Qt::ToolTipRole)
                    .toString()
                    .contains("Below C:\\home\\ann\\Music"));
    Search("*.jpg", "C:\\home\\ann\\Music\\Beatles");
    EXPECT_EQ(Cell(0, results::kPath).data().toString(), ".");
}

TEST_F(ListLooksTest, ATypeStandsWithoutTheBlanksThatOrderIt) {
    program.Rows().Clear();
    const auto* folder = program.Rows().AddFolder({.longPath = "C:\\x"});
    program.Rows().Add({.name = "a", .folder = folder, .isFolder = true}, "01");
    gate.Flush();
    EXPECT_EQ(RowDelegate::WholeText(Cell(0, results::kType)), "File Folder");
}

TEST_F(ListLooksTest, PathsOfSeveralLocationsBeginWhereTheyPart) {
    Find<QCheckBox>("chkFastSort")->click();
    SearchBoth("*.mp3");
    std::set<QString> paths;
    for (int row = 0; row < 3; ++row) {
        paths.insert(Cell(row, results::kPath).data().toString());
    }
    EXPECT_THAT(paths, ElementsAre("Abba", "Beatles"));
}

// ---- colours and signs ----

namespace {

double ListLuminance(const QColor& color) {
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double ListContrast(const QColor& a, const QColor& b) {
    const double one = ListLuminance(a) + 0.05;
    const double other = ListLuminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

} // namespace

TEST_F(ListLooksTest, EveryColourOfTheListIsReadableAndItsOwn) {
    for (const QPalette& palette : {QApplication::style()->standardPalette(), DarkPalette()}) {
        std::set<QRgb> seen;
        for (int pattern = 1; pattern <= 10; ++pattern) {
            const QColor color = ListTint(results::PatternColor(pattern), palette);
            EXPECT_TRUE(seen.insert(color.rgb()).second) << pattern;
            for (const auto ground : {QPalette::Base, QPalette::AlternateBase}) {
                EXPECT_GE(ListContrast(color, palette.color(ground)), 4.5) << pattern;
            }
        }
        EXPECT_GE(ListContrast(StandingBack(palette), palette.color(QPalette::AlternateBase)), 4.5);
        const QColor folder = ListTint(fields::kRed, palette);
        EXPECT_GE(ListContrast(folder, palette.color(QPalette::AlternateBase)), 4.5);
        const QColor second = ListTint(results::PatternColor(2), palette);
        EXPECT_GE(std::abs(second.hslHue() - folder.hslHue()), 25);
    }
}

TEST_F(ListLooksTest, WhatASecondSearchStringFoundBearsItsNumber) {
    Find<QCheckBox>("chkFastSort")->click();
    SearchBoth("*.mp3");
    EXPECT_FALSE(List().HasLaterPatterns());
    SearchBoth("*.mp3|*.jpg");
    EXPECT_TRUE(List().HasLaterPatterns());
    int row = 0;
    while (S().rows->At(static_cast<std::size_t>(row)).name != "cover.jpg") {
        ++row;
    }
    EXPECT_TRUE(
        Cell(row, 0).data(Qt::AccessibleTextRole).toString().endsWith("found by search string 2"));
}

TEST_F(ListLooksTest, AFolderHasASignInFrontOfItsName) {
    program.Rows().Clear();
    const auto* folder = program.Rows().AddFolder({.longPath = "C:\\x"});
    program.Rows().Add({.name = "a", .folder = folder}, "01");
    program.Rows().Add({.name = "a", .folder = folder, .isFolder = true}, "01");
    gate.Flush();
    const auto sign = [this](int row) {
        const QRect name = List().visualRect(Cell(row, results::kName));
        const QRect part(4, name.top() + 1, List().fontMetrics().height(), name.height() - 2);
        const QImage shot = List().viewport()->grab(part).toImage();
        std::set<QRgb> colors;
        for (int y = 0; y < shot.height(); ++y) {
            for (int x = 0; x < shot.width(); ++x) {
                colors.insert(shot.pixel(x, y));
            }
        }
        return colors.size();
    };
    EXPECT_EQ(sign(0), 1U);
    EXPECT_GT(sign(1), 1U);
}

TEST_F(ListLooksTest, WhatTheLastActionDidIsASignAndIsSpoken) {
    Fill({"a", "b", "c", "d"});
    program.Rows().At(1).SetFate(results::RowFate::kFailed);
    program.Rows().At(2).SetFate(results::RowFate::kMoved);
    program.Rows().At(3).SetFate(results::RowFate::kRenamed);
    const QString plain = Cell(0, 0).data(Qt::AccessibleTextRole).toString();
    EXPECT_FALSE(plain.contains("action"));
    const std::array<const char*, 4> spoken{"", "failed in the last action", "moved", "renamed"};
    std::set<QByteArray> looks;
    for (int row = 0; row < 4; ++row) {
        const auto words = Cell(row, 0).data(Qt::AccessibleTextRole).toString().toStdString();
        EXPECT_THAT(words, ::testing::EndsWith(spoken[static_cast<std::size_t>(row)]));
        const QRect name = List().visualRect(Cell(row, results::kName));
        const QRect part(4, name.top() + 1, List().fontMetrics().height(), name.height() - 2);
        const QImage shot =
            List().viewport()->grab(part).toImage().convertToFormat(QImage::Format_Mono);
        looks.insert(QByteArray(reinterpret_cast<const char*>(shot.constBits()),
                                static_cast<int>(shot.sizeInBytes())));
    }
    EXPECT_EQ(looks.size(), 4U); // told apart without their colours
}

TEST_F(ListLooksTest, TheLegendTellsOfEveryColourAndSign) {
    Entry("actLegend")->trigger();
    auto* legend = window->findChild<QDialog*>("frmLegend");
    ASSERT_NE(legend, nullptr);
    EXPECT_TRUE(legend->isVisible());
    EXPECT_FALSE(legend->isModal());
    std::set<QString> texts;
    for (const QLabel* label : legend->findChildren<QLabel*>()) {
        texts.insert(label->text());
    }
    for (const char* meaning :
         {"A file", "A folder", "A link", "Found by search string 2", "Found by search string 10",
          "An entry of the playlist", "Moved to the trash since the search",
          "Failed in the last action", "Moved by the last action", "Renamed by the last action"}) {
        EXPECT_TRUE(texts.contains(meaning)) << meaning;
    }
    std::set<QRgb> colors;
    for (const QLabel* sample : legend->findChildren<QLabel*>("lblSample")) {
        colors.insert(sample->palette().color(sample->foregroundRole()).rgb());
    }
    EXPECT_EQ(colors.size(), 13U); // files, folders, nine search strings, green, what stands back
    Entry("actLegend")->trigger();
    EXPECT_EQ(window->findChildren<QDialog*>("frmLegend").size(), 1);
    QTest::mouseClick(legend->findChild<QPushButton*>("cmdCloseLegend"), Qt::LeftButton);
    EXPECT_FALSE(legend->isVisible());
}

TEST_F(ListLooksTest, TheViewMenuHasColumnsSizesAndTheLegend) {
    for (const char* name : {"actSizesInBytes", "actSizesInUnits", "actLegend"}) {
        EXPECT_TRUE(Entry(name)->isVisible()) << name;
    }
    auto* columns = Find<QMenu>("mnuColumns");
    for (int i = 0; i < 2; ++i) {
        emit columns->aboutToShow();
        EXPECT_EQ(columns->findChildren<QAction*>("colSizeSubItem").size(), 1);
        EXPECT_EQ(columns->findChildren<QAction*>("colHotKeyOfLink").size(), 1);
    }
}

// ---- what is taken out of the list ----

TEST_F(ListLooksTest, WhatIsCopiedCanBePastedAsFilesAndAsText) {
    SearchBoth("one.mp3");
    ClickRow(0);
    QTest::keyClick(&List(), Qt::Key_C, Qt::ControlModifier);
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(data->text(), "/home/ann/Music/Abba/one.mp3");
    EXPECT_EQ(data->data("text/uri-list"), "file:///home/ann/Music/Abba/one.mp3\r\n");
}

TEST_F(ListLooksTest, DraggingASelectedRowTakesItOut) {
    Fill({"a", "b"});
    int drags = 0;
    List().onDrag = [&drags] { ++drags; };
    ClickRow(0);
    const QPoint at = PointAt(0);
    QTest::mousePress(List().viewport(), Qt::LeftButton, {}, at);
    QTest::mouseMove(List().viewport(), at + QPoint(3, 0));
    QMouseEvent move(QEvent::MouseMove, QPointF(at + QPoint(60, 30)),
                     List().viewport()->mapToGlobal(QPointF(at + QPoint(60, 30))), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(List().viewport(), &move);
    EXPECT_EQ(drags, 1);
    QTest::mouseRelease(List().viewport(), Qt::LeftButton, {}, at);
    EXPECT_THAT(SelectedNames(), ElementsAre("a"));
}

} // namespace tarvix::forms
