#include "tests/forms/window_fixture.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>

#include <string>
#include <vector>

namespace tarvix::forms {

class RunMenuTest : public WindowFixture {
  protected:
    void SetUp() override {
        for (const char* name : {"1.mp3", "2.mp3", "3.txt"})
            machine.disk.AddFile(std::string("C:\\m\\").append(name), "x");
        machine.applications.SetType("mp3", "audio/mpeg");
        machine.applications.AddApplication("audio/mpeg", "tunes.desktop", "Tunes");
        machine.applications.AddProgram("vlc");
        WindowFixture::SetUp();
        S().state.options.strDefSearchFolder.front() = "C:\\home\\ann\\Documents";
        Search("*", "C:\\m");
    }
    QMenu* RunMenu() {
        for (const QAction* top : window->menuBar()->actions()) {
            if (top->text().remove(u'&') == "Run") return top->menu();
        }
        return nullptr;
    }
    QAction* Entry(const char* name) {
        for (QAction* entry : RunMenu()->actions()) {
            if (entry->objectName() == QLatin1String(name)) return entry;
        }
        return nullptr;
    }
    const std::vector<std::string>& Started() { return machine.applications.started; }
};

TEST_F(RunMenuTest, HoldsAllThatOpensAndRuns) {
    ASSERT_NE(RunMenu(), nullptr);
    std::vector<std::string> captions;
    for (const QAction* entry : RunMenu()->actions()) {
        if (entry->isVisible()) captions.push_back(entry->text().remove(u'&').toStdString());
    }
    EXPECT_EQ(captions,
              (std::vector<std::string>{"Play Audio/Video/picture File(s)",
                                        "Enqueue Audio/Video/picture File(s)",
                                        "Force VLC to enqueue", "View as File Text",
                                        "Hex Edit a File", "Run a Program", "Open Parent Folder"}));
}

TEST_F(RunMenuTest, EnterAndADoubleClickOpenARow) {
    ClickRow(0);
    auto* list = Find<QTableView>("lstMain");
    QTest::keyClick(list, Qt::Key_Return);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, PointAt(1));
    EXPECT_EQ(Started(),
              (std::vector<std::string>{"C:\\home\\ann\\Documents> tunes C:\\m\\1.mp3",
                                        "C:\\home\\ann\\Documents> tunes C:\\m\\2.mp3"}));
}

TEST_F(RunMenuTest, PlaysTheSelectionAndTellsWhatWasSkipped) {
    Press("cmdSelectAll");
    OnModal([](QWidget& box) {
        EXPECT_TRUE(box.findChild<QLabel*>("lblText")->text().contains("3.txt"));
        box.findChild<QPushButton*>("btnOK")->click();
    });
    Entry("mnuRun_Mp3")->trigger();
    EXPECT_TRUE(AllModalsCame());
    EXPECT_EQ(Started(),
              (std::vector<std::string>{"C:\\home\\ann\\Documents> vlc --playlist-enqueue "
                                        "C:\\m\\1.mp3 C:\\m\\2.mp3"}));
}

} // namespace tarvix::forms
