#include "session/tools.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using session::FindTool;
using session::ToolKind;
using ::testing::ElementsAre;

class Tools : public ProgramFixture {
  protected:
    Tools() { Start(); }
    platform::MemoryApplications& desk = machine.applications;
};

TEST_F(Tools, ASettingCountsWhetherItsProgramIsThereOrNot) {
    State().platformSettings.hexEditor = "myhex -r";
    auto tool = FindTool(S(), ToolKind::kHexEditor);
    EXPECT_EQ(tool.key, "HexEditor");
    EXPECT_EQ(tool.name, "myhex");
    EXPECT_FALSE(tool.isFound);
    desk.AddProgram("myhex");
    EXPECT_TRUE(FindTool(S(), ToolKind::kHexEditor).isFound);
}

TEST_F(Tools, WithoutSettingsNothingIsFoundOnABareMachine) {
    for (const ToolKind kind : session::kTools) {
        const auto tool = FindTool(S(), kind);
        EXPECT_FALSE(tool.isFound) << tool.key;
        EXPECT_EQ(tool.name, "") << tool.key;
        EXPECT_FALSE(session::TryTool(S(), kind)) << tool.key;
    }
}

TEST_F(Tools, VlcComesBeforeTheDesktopsPlayer) {
    desk.AddApplication("audio/mpeg", "tunes.desktop", "Tunes");
    auto tool = FindTool(S(), ToolKind::kPlayer);
    EXPECT_EQ(tool.application, "tunes.desktop");
    EXPECT_EQ(tool.name, "Tunes");
    EXPECT_FALSE(tool.IsVlc());
    desk.AddProgram("vlc");
    tool = FindTool(S(), ToolKind::kPlayer);
    EXPECT_EQ(tool.command, "vlc");
    EXPECT_EQ(tool.name, "VLC");
    EXPECT_TRUE(tool.IsVlc());
}

TEST_F(Tools, TheSecondPlayerIsAnotherOne) {
    desk.AddProgram("vlc");
    EXPECT_FALSE(FindTool(S(), ToolKind::kSecondPlayer).isFound);
    desk.AddProgram("audacious");
    EXPECT_EQ(FindTool(S(), ToolKind::kSecondPlayer).command, "audacious -e");
    State().platformSettings.player = "audacious";
    EXPECT_EQ(FindTool(S(), ToolKind::kSecondPlayer).command, "vlc");
}

TEST_F(Tools, TheEditorIsTheDesktopsOwn) {
    desk.AddProgram("gedit");
    EXPECT_EQ(FindTool(S(), ToolKind::kEditor).command, "gedit");
    desk.AddApplication("text/plain", "write.desktop", "Write");
    EXPECT_EQ(FindTool(S(), ToolKind::kEditor).application, "write.desktop");
}

TEST_F(Tools, AreTriedWithNothingToOpen) {
    State().platformSettings.editor = "ed --new";
    desk.AddProgram("ed");
    EXPECT_TRUE(session::TryTool(S(), ToolKind::kEditor));
    EXPECT_THAT(desk.started, ElementsAre("C:\\home\\ann> ed --new"));
}

TEST_F(Tools, TheTerminalOfTheSettingsIsUsed) {
    State().platformSettings.terminal = "xterm";
    desk.AddProgram("xterm");
    EXPECT_TRUE(FindTool(S(), ToolKind::kTerminal).isFound);
    EXPECT_EQ(desk.terminal, "xterm");
    EXPECT_TRUE(session::TryTool(S(), ToolKind::kTerminal));
    ASSERT_EQ(desk.started.size(), 1U);
}

} // namespace
} // namespace tarvix::testing
