#include "tests/forms/window_fixture.h"

#include <QAction>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>

#include <algorithm>

namespace tarvix::forms {

class PlaylistModeTest : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        machine.disk.AddFileOfSize("C:\\m\\1987-042 Best Song.mp3", 1234567);
        machine.disk.AddFileOfSize("C:\\m\\Song.mp3", 1234000);
        machine.disk.AddFileOfSize("C:\\m\\Best Song.mp3", 1200000);
        machine.disk.AddFile(
            "C:\\m\\p.m3u",
            "/m/1987-042 Best Song.mp3\r\n"
            "# Possible Duplicate - /m/Song.mp3 - 0,001,234,000 ~ 0,001,234,567\r\n"
            "# Possible Duplicate - /m/Best Song.mp3 - 0,001,200,000 ~ 0,001,234,567\r\n");
        S().state.strPlaylistPath = "C:\\m\\p.m3u";
        S().state.strPlaylistName = "p.m3u";
    }
    // What the last step of loading does, behind its boxes and its file dialog.
    void Load() {
        gate.Run(nullptr, [this] { S().events.Raise(S(), "frmSearch.ReloadPlayList"); });
    }
    QAction* BarEntry() {
        const auto entries = window->menuBar()->actions();
        const auto found = std::ranges::find_if(entries, [](const QAction* entry) {
            return entry->objectName() == QLatin1String("mnuPlayListWarning");
        });
        return found == entries.end() ? nullptr : *found;
    }
    void DoubleClickRow(int row) {
        ClickRow(row);
        QTest::mouseDClick(Find<QTableView>("lstMain")->viewport(), Qt::LeftButton, {},
                           PointAt(row));
    }
};

TEST_F(PlaylistModeTest, TheBannerShowsOnlyWhileAPlaylistIsLoaded) {
    ASSERT_NE(BarEntry(), nullptr);
    EXPECT_FALSE(BarEntry()->isVisible());
    EXPECT_FALSE(Find<QWidget>("fraPlayList")->isVisible());
    Load();
    EXPECT_TRUE(BarEntry()->isVisible());
    EXPECT_TRUE(Find<QWidget>("fraPlayList")->isVisible());
    EXPECT_TRUE(Find<QPushButton>("cmdEditPlayList")->isVisible());
    EXPECT_FALSE(Find<QWidget>("fraSelection")->isVisible());
    EXPECT_FALSE(Find<QLabel>("lblNumOfFilesFound")->isVisible());
    EXPECT_TRUE(
        TextOf("lblPlayList")
            .startsWith(
                "p.m3u: 1 entry and 2 possible duplicates. Double-click a file that stays"));
    BarEntry()->trigger();
    EXPECT_FALSE(Find<QWidget>("fraPlayList")->isVisible());
    EXPECT_TRUE(Find<QLabel>("lblNumOfFilesFound")->isVisible());
    EXPECT_EQ(S().rows->Count(), 0U);
}

TEST_F(PlaylistModeTest, ClicksAndDoubleClicksAreCountedInTheBanner) {
    Load();
    DoubleClickRow(2);
    EXPECT_TRUE(TextOf("lblPlayList").endsWith("Marked now: 1 green, 0 to recycle."));
    ClickRow(3);
    EXPECT_TRUE(TextOf("lblPlayList").endsWith("Marked now: 1 green, 1 to recycle."));
    EXPECT_EQ(SelectedNames(), std::vector<std::string>{"Best Song.mp3"});
}

TEST_F(PlaylistModeTest, TheButtonRenamesAndDeletes) {
    Load();
    DoubleClickRow(2);
    ClickRow(3);
    OnModal([](QWidget& box) {
        EXPECT_EQ(box.windowTitle(), "Rebuild playlist");
        box.findChild<QPushButton*>()->click();
    });
    Press("cmdEditPlayList");
    EXPECT_TRUE(AllModalsCame());
    EXPECT_TRUE(machine.disk.Exists("C:\\m\\Song 1987-042.mp3"));
    EXPECT_EQ(machine.bin.Paths(), std::vector<std::string>{"C:\\m\\Best Song.mp3"});
    EXPECT_EQ(TextOf("lblStatus"), "Renamed 1 of 1 file, recycled 1 of 1 file.");
}

TEST_F(PlaylistModeTest, ThePreviewShowsWhatTheButtonWouldDo) {
    Load();
    DoubleClickRow(2);
    ClickRow(3);
    OnModal([](QWidget& preview) {
        EXPECT_EQ(preview.objectName(), "frmPreview");
        const auto* table = preview.findChild<QTableView*>("lstPreview");
        EXPECT_EQ(table->model()->rowCount(), 2);
        EXPECT_EQ(table->model()->index(0, 2).data().toString(), "rename");
        EXPECT_EQ(table->model()->index(1, 2).data().toString(), "recycle");
        preview.findChild<QPushButton*>("cmdOK")->click();
    });
    Press("cmdPreviewPlayList");
    EXPECT_TRUE(AllModalsCame());
    EXPECT_TRUE(machine.disk.Exists("C:\\m\\Song.mp3"));
}

TEST_F(PlaylistModeTest, GreenRowsAreGreenInBothThemes) {
    Load();
    DoubleClickRow(2);
    const auto* list = Find<QTableView>("lstMain");
    const auto tint = list->model()->index(2, 0).data(Qt::ForegroundRole).value<QColor>();
    EXPECT_GT(tint.green(), tint.red());
    EXPECT_GT(tint.green(), tint.blue());
}

} // namespace tarvix::forms
