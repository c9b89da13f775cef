#include "platform/applications.h"
#include "results/result_list.h"
#include "session/session.h"
#include "tests/forms/window_fixture.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace tarvix::forms {
namespace {

using platform::ProgramKind;

constexpr std::array kEntries{"mnuRun_Mp3",       "mnuRun_EnqueueMp3", "mnuRun_ForceEnqueueMp3",
                              "mnuRun_View",      "mnuRun_HexEdit",    "mnuRun_Run",
                              "mnuRun_OpenParent"};
constexpr const char* kMediaCount =
    "Can not enqueue more than 200 files at once files.! Or less than 1 file.";
constexpr const char* kViewCount = "Can not view more than 5 files at once.!";
constexpr const char* kRunCount = "You must select one and only one file from search results!";
constexpr const char* kParentCount =
    "There must only be one object selected in order to open the parent folder in File Explorer.";

// The Run menu as it is used: objects selected in the list, entries pressed in the menu.
class RunMenuWindow : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        auto& settings = S().state.platformSettings;
        settings.editor = "ed";
        settings.hexEditor = "hexed";
        settings.player = "vlc";
        for (const char* tool : {"ed", "hexed", "vlc"})
            machine.applications.AddProgram(tool);
    }
    QMenu* RunMenu() {
        for (const QAction* top : window->menuBar()->actions()) {
            if (top->text().remove(u'&') == "Run") return top->menu();
        }
        ADD_FAILURE() << "no Run menu";
        return nullptr;
    }
    QAction* Entry(const char* name) {
        for (QAction* entry : RunMenu()->actions()) {
            if (entry->objectName() == QLatin1String(name)) return entry;
        }
        ADD_FAILURE() << name;
        return nullptr;
    }
    // Lists so many files of a kind and selects the first ones.
    void List(int count, const char* extension) {
        for (int i = 0; i < count; ++i) {
            machine.disk.AddFile(
                "C:\\home\\ann\\many\\" + std::to_string(1000 + i) + "." + extension, "x");
        }
        Search("*", "C:\\home\\ann\\many");
    }
    void SelectFirst(int count) {
        Press("cmdSelectNone");
        if (count == 0) return;
        ClickRow(0);
        if (count > 1) ClickRow(RowOf(count - 1), Qt::ShiftModifier);
    }
    // Of the object with that number, from 0.
    int RowOf(int object) {
        int row = 0;
        for (; row < static_cast<int>(S().rows->Count()); ++row) {
            if (!S().rows->At(static_cast<std::size_t>(row)).IsSpacer() && object-- == 0) break;
        }
        return row;
    }
    // What the box says that an entry raises.
    std::string Refused(const char* name) {
        std::string told;
        OnModal([&told](QWidget& box) {
            EXPECT_EQ(box.objectName(), "MsgBox");
            told = box.findChild<QLabel*>("lblText")->text().toStdString();
            QTest::mouseClick(box.findChild<QPushButton*>("btnOK"), Qt::LeftButton);
        });
        Entry(name)->trigger();
        EXPECT_TRUE(AllModalsCame()) << name;
        return told;
    }
    std::vector<std::string>& Started() { return machine.applications.started; }
};

TEST_F(RunMenuWindow, HoldsItsSevenEntriesInTheirOrder) {
    std::vector<std::string> names;
    for (const QAction* entry : RunMenu()->actions()) {
        if (entry->isSeparator() || !entry->isVisible()) continue;
        names.push_back(entry->objectName().toStdString());
    }
    EXPECT_EQ(names, std::vector<std::string>(kEntries.begin(), kEntries.end()));
}

TEST_F(RunMenuWindow, EntriesBearTheirCaptions) {
    const std::array captions{"Play Audio/Video/picture File(s)",
                              "Enqueue Audio/Video/picture File(s)",
                              "Force VLC to enqueue",
                              "View as File Text",
                              "Hex Edit a File",
                              "Run a Program",
                              "Open Parent Folder"};
    for (std::size_t i = 0; i < kEntries.size(); ++i) {
        EXPECT_EQ(Entry(kEntries[i])->text().remove(u'&'), captions[i]);
    }
}

TEST_F(RunMenuWindow, EntriesCanBePressedWithAndWithoutASelection) {
    List(2, "mp3");
    for (const int selected : {0, 1, 2}) {
        SelectFirst(selected);
        for (const char* name : kEntries) {
            EXPECT_TRUE(Entry(name)->isEnabled()) << name << " with " << selected;
        }
    }
}

TEST_F(RunMenuWindow, WithNothingSelectedEachEntryRefuses) {
    List(2, "mp3");
    SelectFirst(0);
    EXPECT_EQ(Refused("mnuRun_Mp3"), kMediaCount);
    EXPECT_EQ(Refused("mnuRun_EnqueueMp3"), kMediaCount);
    EXPECT_EQ(Refused("mnuRun_ForceEnqueueMp3"), kMediaCount);
    EXPECT_NE(Refused("mnuRun_View").find(kViewCount), std::string::npos);
    EXPECT_NE(Refused("mnuRun_HexEdit").find(kViewCount), std::string::npos);
    EXPECT_EQ(Refused("mnuRun_Run"), kRunCount);
    EXPECT_EQ(Refused("mnuRun_OpenParent"), kParentCount);
    EXPECT_TRUE(Started().empty());
    EXPECT_TRUE(machine.launcher.opened.empty());
}

TEST_F(RunMenuWindow, TwoHundredFilesPlayAndOneMoreIsRefused) {
    List(201, "mp3");
    SelectFirst(200);
    Entry("mnuRun_Mp3")->trigger();
    ASSERT_EQ(Started().size(), 1U);
    EXPECT_EQ(std::ranges::count(Started().front(), ':'), 201); // and the folder's
    SelectFirst(201);
    for (const char* name : {"mnuRun_Mp3", "mnuRun_EnqueueMp3", "mnuRun_ForceEnqueueMp3"}) {
        EXPECT_EQ(Refused(name), kMediaCount) << name;
    }
    EXPECT_EQ(Started().size(), 1U);
}

TEST_F(RunMenuWindow, FiveFilesAreViewedAndSixRefused) {
    List(6, "txt");
    SelectFirst(5);
    Entry("mnuRun_View")->trigger();
    EXPECT_EQ(Started().size(), 5U);
    Entry("mnuRun_HexEdit")->trigger();
    ASSERT_EQ(Started().size(), 10U);
    EXPECT_NE(Started()[0].find("ed C:\\home\\ann\\many\\1000.txt"), std::string::npos);
    EXPECT_NE(Started()[9].find("hexed C:\\home\\ann\\many\\1004.txt"), std::string::npos);
    SelectFirst(6);
    EXPECT_NE(Refused("mnuRun_View").find(kViewCount), std::string::npos);
    EXPECT_NE(Refused("mnuRun_HexEdit").find(kViewCount), std::string::npos);
    EXPECT_EQ(Started().size(), 10U);
}

TEST_F(RunMenuWindow, OneProgramRunsAndTwoAreRefused) {
    for (const char* name : {"1000", "1001"})
        machine.applications.SetKind(std::string("C:\\home\\ann\\many\\") + name + ".exe",
                                     ProgramKind::kNative);
    List(2, "exe");
    SelectFirst(2);
    EXPECT_EQ(Refused("mnuRun_Run"), kRunCount);
    SelectFirst(1);
    Entry("mnuRun_Run")->trigger();
    ASSERT_EQ(Started().size(), 1U);
    EXPECT_NE(Started().front().find("C:\\home\\ann\\many\\1000.exe"), std::string::npos);
}

TEST_F(RunMenuWindow, WhatIsNoProgramIsRefused) {
    List(1, "txt");
    SelectFirst(1);
    EXPECT_EQ(Refused("mnuRun_Run"), "Must be an .exe file");
}

TEST_F(RunMenuWindow, TheParentOfOneObjectOpensAndThatOfTwoIsRefused) {
    machine.applications.AddApplication("inode/directory", "files.desktop", "Files");
    List(2, "txt");
    SelectFirst(2);
    EXPECT_EQ(Refused("mnuRun_OpenParent"), kParentCount);
    EXPECT_TRUE(Started().empty());
    SelectFirst(1);
    Entry("mnuRun_OpenParent")->trigger();
    ASSERT_EQ(Started().size(), 1U);
    EXPECT_TRUE(Started().front().ends_with("> files C:\\home\\ann\\many"));
}

TEST_F(RunMenuWindow, WhatThePlayerDoesNotTakeIsListed) {
    List(1, "txt");
    SelectFirst(1);
    const std::string told = Refused("mnuRun_Mp3");
    EXPECT_NE(told.find("1000.txt"), std::string::npos) << told;
    EXPECT_NE(told.find("I am only supporting VLC"), std::string::npos) << told;
    EXPECT_TRUE(Started().empty());
}

TEST_F(RunMenuWindow, ForcingWithoutThePlayerIsRefused) {
    S().state.platformSettings.player = "gone";
    List(1, "txt");
    SelectFirst(1);
    EXPECT_EQ(Refused("mnuRun_ForceEnqueueMp3"),
              "You must have loaded VLC player to use this menu option.");
}

} // namespace
} // namespace tarvix::forms
