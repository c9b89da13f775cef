#include "forms/preview_model.h"
#include "session/prompt_id.h"
#include "tests/forms/window_fixture.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

namespace tarvix::forms {

namespace {

std::vector<fields::PreviewRow> SomeRows() {
    return {{"C:\\a\\zebra.mp3", "E:\\Bk\\zebra.mp3", "copy"},
            {"C:\\a\\Apple.mp3", "E:\\Bk\\Apple.mp3", "duplicate: skip"},
            {"C:\\a\\banana.mp3", "E:\\Bk\\banana.mp3", "copy"}};
}

std::string Objects(const QAbstractItemModel& model) {
    std::string all;
    for (int row = 0; row < model.rowCount(); ++row) {
        all += model.index(row, 0).data().toString().section('\\', -1).toStdString() + " ";
    }
    return all;
}

} // namespace

class PreviewWindowTest : public WindowFixture {
  protected:
    void Open(std::function<void(QWidget&)> act) {
        OnModal([act = std::move(act)](QWidget& modal) {
            EXPECT_EQ(modal.objectName(), "frmPreview");
            act(modal);
            QTest::mouseClick(modal.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
        });
        S().ShowModal(session::PromptId::kPreview);
    }
};

TEST_F(PreviewWindowTest, ShowsEachObjectItsNewPathAndItsVerdict) {
    S().forms.frmPreview.rows = SomeRows();
    S().forms.frmPreview.lblMain.Caption = "copy  2,   duplicate: skip  1";
    Open([](QWidget& modal) {
        EXPECT_EQ(modal.findChild<QLabel*>("lblMain")->text(), "copy  2,   duplicate: skip  1");
        const auto& model = *modal.findChild<QTableView*>("lstPreview")->model();
        ASSERT_EQ(model.rowCount(), 3);
        EXPECT_EQ(modal.findChild<QLabel*>("lblFrom")->text(), "C:\\a");
        EXPECT_EQ(modal.findChild<QLabel*>("lblTo")->text(), "E:\\Bk");
        EXPECT_EQ(model.index(1, 0).data().toString(), "Apple.mp3");
        EXPECT_EQ(model.index(1, 1).data().toString(), "Apple.mp3");
        EXPECT_EQ(model.index(1, 0).data(PreviewModel::kWholePath).toString(), "C:\\a\\Apple.mp3");
        EXPECT_EQ(model.index(1, 1).data(PreviewModel::kWholePath).toString(), "E:\\Bk\\Apple.mp3");
        EXPECT_EQ(model.index(1, 2).data().toString(), "duplicate: skip");
    });
    EXPECT_FALSE(S().forms.frmPreview.IsShown());
}

TEST_F(PreviewWindowTest, EscapeClosesIt) {
    OnModal([](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); });
    S().ShowModal(session::PromptId::kPreview);
    EXPECT_FALSE(S().forms.frmPreview.IsShown());
}

TEST_F(PreviewWindowTest, AVerdictShowsItsRowsOnly) {
    S().forms.frmPreview.rows = SomeRows();
    Open([](QWidget& modal) {
        auto* verdict = modal.findChild<QComboBox*>("cmbVerdict");
        ASSERT_EQ(verdict->count(), 3);
        EXPECT_EQ(verdict->itemText(0), "All (3)");
        EXPECT_EQ(verdict->itemText(1), "copy (2)");
        verdict->setCurrentIndex(2);
        EXPECT_EQ(Objects(*modal.findChild<QTableView*>("lstPreview")->model()), "Apple.mp3 ");
        verdict->setCurrentIndex(0);
        EXPECT_EQ(modal.findChild<QTableView*>("lstPreview")->model()->rowCount(), 3);
    });
}

TEST_F(PreviewWindowTest, APartOfAPathFindsItsRows) {
    S().forms.frmPreview.rows = SomeRows();
    Open([](QWidget& modal) {
        QTest::keyClicks(modal.findChild<QLineEdit*>("txtPart"), "bANana");
        const auto& model = *modal.findChild<QTableView*>("lstPreview")->model();
        EXPECT_TRUE(QTest::qWaitFor([&] { return model.rowCount() == 1; }));
        EXPECT_EQ(Objects(model), "banana.mp3 ");
    });
}

TEST_F(PreviewWindowTest, AColumnHeadSortsAndTheThirdClickGivesTheOrderOfTheAction) {
    S().forms.frmPreview.rows = SomeRows();
    Open([](QWidget& modal) {
        auto* table = modal.findChild<QTableView*>("lstPreview");
        QHeaderView* head = table->horizontalHeader();
        const auto click = [head] {
            QTest::mouseClick(head->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
        };
        EXPECT_EQ(Objects(*table->model()), "zebra.mp3 Apple.mp3 banana.mp3 ");
        click();
        EXPECT_EQ(Objects(*table->model()), "Apple.mp3 banana.mp3 zebra.mp3 ");
        click();
        EXPECT_EQ(Objects(*table->model()), "zebra.mp3 banana.mp3 Apple.mp3 ");
        click();
        EXPECT_EQ(Objects(*table->model()), "zebra.mp3 Apple.mp3 banana.mp3 ");
    });
}

namespace {

// The part of a cell's text that is marked.
QString Marked(const PreviewModel& model, int row, int column) {
    const QModelIndex cell = model.index(row, column);
    const QVariant mark = cell.data(PreviewModel::kChanged);
    const QPoint place = mark.toPoint();
    return mark.isValid() ? cell.data().toString().mid(place.x(), place.y()) : QString();
}

} // namespace

TEST(PreviewModelTest, PathsBeginAtTheFoldersThatAllShare) {
    const std::vector<fields::PreviewRow> rows{
        {"/home/ann/Music/Abba/one.mp3", "/media/backup/Abba/one.mp3", "copy"},
        {"/home/ann/Music/two.mp3", "/media/backup/two_.mp3", "duplicate: rename"},
        {"/home/ann/Music/three.mp3", "", "no right"}};
    const PreviewModel model(rows);
    EXPECT_EQ(model.From(), "/home/ann/Music");
    EXPECT_EQ(model.To(), "/media/backup");
    EXPECT_FALSE(model.Renames());
    EXPECT_EQ(model.index(0, 0).data().toString(), "Abba/one.mp3");
    EXPECT_EQ(model.index(0, 1).data().toString(), "Abba/one.mp3");
    EXPECT_EQ(model.index(2, 1).data().toString(), "");
    EXPECT_EQ(Marked(model, 0, PreviewModel::kNewPath), "");
    EXPECT_EQ(Marked(model, 1, PreviewModel::kNewPath), "_");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "New path");
}

TEST(PreviewModelTest, ARenameShowsBothNamesAndWhatChanged) {
    const std::vector<fields::PreviewRow> rows{
        {"/m/Abba/one - 1.mp3", "/m/Abba/one_1.mp3", "rename"},
        {"/m/two.mp3", "/m/two.mp3", "unchanged"}};
    const PreviewModel model(rows);
    EXPECT_TRUE(model.Renames());
    EXPECT_EQ(model.index(0, 0).data().toString(), "Abba/one - 1.mp3");
    EXPECT_EQ(model.index(0, 1).data().toString(), "→ one_1.mp3");
    EXPECT_EQ(Marked(model, 0, PreviewModel::kObject), " - ");
    EXPECT_EQ(Marked(model, 0, PreviewModel::kNewPath), "_");
    EXPECT_EQ(model.index(1, 1).data().toString(), ""); // it keeps its name
    EXPECT_EQ(Marked(model, 1, PreviewModel::kNewPath), "");
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), "Old name");
}

TEST(PreviewModelTest, WhatSharesNothingStandsWhole) {
    const std::vector<fields::PreviewRow> rows{{"/a/x", "/b/x", "copy"}, {"/c/y", "/d/y", "copy"}};
    const PreviewModel model(rows);
    EXPECT_EQ(model.From(), "");
    EXPECT_EQ(model.index(0, 0).data().toString(), "/a/x");
    EXPECT_EQ(model.index(1, 1).data().toString(), "/d/y");
}

TEST(PreviewModelTest, EqualRowsKeepTheirOrderInBothDirections) {
    const std::vector<fields::PreviewRow> rows{
        {"a", "x", "copy"}, {"b", "x", "skip"}, {"c", "x", "copy"}};
    PreviewModel model(rows);
    model.sort(PreviewModel::kVerdict, Qt::AscendingOrder);
    EXPECT_EQ(Objects(model), "a c b ");
    model.sort(PreviewModel::kVerdict, Qt::DescendingOrder);
    EXPECT_EQ(Objects(model), "b a c ");
}

TEST(PreviewModelTest, AQuarterOfAMillionRowsCanBeSortedAndFiltered) {
    std::vector<fields::PreviewRow> rows(250'000);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string name = "\\Music\\" + std::to_string(i * 7919 % rows.size()) + ".mp3";
        rows[i] = {"C:\\home\\ann" + name, "E:\\Bk" + name, i % 3 == 0 ? "copy" : "skip"};
    }
    PreviewModel model(rows);
    model.sort(PreviewModel::kObject, Qt::AscendingOrder);
    EXPECT_EQ(model.index(0, 0).data(PreviewModel::kWholePath).toString(),
              "C:\\home\\ann\\Music\\0.mp3");
    model.Filter("copy", "\\99999.");
    EXPECT_LE(model.rowCount(), 1);
    model.Filter("copy", "");
    EXPECT_EQ(model.rowCount(), 83'334);
}

} // namespace tarvix::forms
