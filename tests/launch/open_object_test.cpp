#include "launch/open_object.h"
#include "tests/launch/launch_fixture.h"

namespace tarvix::testing {
namespace {

using platform::ProgramKind;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kNotOpened =
    "Unable to find any way to open that file, \r\nThere is most likely missing information in the "
    "registry file.\r\nYou can view this file with notepad, if you select 'view as text' in the "
    "'run' menu.";

class DoubleClicks : public LaunchFixture {
  protected:
    DoubleClicks() {
        desk.SetType("mp3", "audio/mpeg");
        desk.SetType("exe", "application/x-dosexec");
        desk.AddApplication("audio/mpeg", "music.desktop", "Music");
        List();
    }
};

TEST_F(DoubleClicks, OpenWithTheApplicationOfTheDesktop) {
    DoubleClick("a.mp3");
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> music C:\\data\\a.mp3"));
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(DoubleClicks, BeginInTheFirstSearchFolderWhateverIsOpened) {
    State().options.strDefSearchFolder.front() = "%UserProfile%\\Music\\";
    DoubleClick("a.mp3");
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Music> music C:\\data\\a.mp3"));
}

TEST_F(DoubleClicks, DoNothingWhileASearchRuns) {
    State().blnSearching = true;
    DoubleClick("a.mp3");
    EXPECT_THAT(Started(), IsEmpty());
    State().blnSearching = false;
}

TEST_F(DoubleClicks, OnSpacersAndPastTheEndDoNothing) {
    program.Rows().InsertSpacers({0});
    for (const int row : {0, 99, -1})
        S().events.Raise(S(), "frmSearch.lstMain_DblClick", {row});
    EXPECT_THAT(Started(), IsEmpty());
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(DoubleClicks, GoOnWithTheClassWhereTheApplicationCannotStart) {
    desk.refusing.insert("music");
    machine.registry.SetClassDefault(".mp3", "mp3file");
    machine.registry.SetClassDefault("mp3file\\shell\\open\\command", "ed --play \"%1\"");
    DoubleClick("a.mp3");
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> ed --play C:\\data\\a.mp3"));
}

TEST_F(DoubleClicks, OnAFileWithoutExtensionGoToTheTextViewer) {
    Disk().AddFile("C:\\data\\README", "x");
    List();
    DoubleClick("README");
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> ed C:\\data\\README"));
}

TEST_F(DoubleClicks, TellWhenThereIsNoWayLeft) {
    State().platformSettings.editor = "gone";
    DoubleClick("b.txt");
    EXPECT_THAT(Started(), IsEmpty());
    EXPECT_THAT(Told(), ElementsAre(kNotOpened));
}

TEST_F(DoubleClicks, OnAFolderRowUseTheClassFolder) {
    Disk().AddFolder("C:\\data\\sub.mp3");
    machine.registry.SetClassDefault("Folder\\shell\\open\\command", "ed --folder /idlist,%I");
    List();
    DoubleClick("sub.mp3");
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> ed --folder C:\\data\\sub.mp3"));
    desk.AddApplication("inode/directory", "files.desktop", "Files");
    DoubleClick("sub.mp3");
    EXPECT_EQ(Started().back(), "C:\\home\\ann\\Documents> files C:\\data\\sub.mp3");
}

TEST_F(DoubleClicks, ACommandThatIsItsArgumentStartsTheFileItself) {
    machine.registry.SetClassDefault(".bat", "batfile");
    machine.registry.SetClassDefault("batfile\\shell\\open\\command", "\"%1\" %*");
    Disk().AddFile("C:\\data\\go.bat", "x");
    desk.SetKind("C:\\data\\go.bat", ProgramKind::kNative);
    List();
    DoubleClick("go.bat");
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> C:\\data\\go.bat"));
}

TEST_F(DoubleClicks, OnAProgramStartItWhereThatIsTold) {
    Disk().AddFile("C:\\data\\run.exe", "MZ");
    desk.SetKind("C:\\data\\run.exe", ProgramKind::kNative);
    List();
    DoubleClick("run.exe");
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> C:\\data\\run.exe"));
}

TEST_F(DoubleClicks, NeverRunProgramsOfThisMachine) {
    BeNative();
    desk.AddApplication("application/x-dosexec", "wine.desktop", "Wine");
    for (const char* name : {"C:\\data\\run.exe", "C:\\data\\tool"})
        Disk().AddFile(name, "x");
    desk.SetKind("C:\\data\\run.exe", ProgramKind::kForeign);
    desk.SetKind("C:\\data\\tool", ProgramKind::kNative);
    List();
    DoubleClick("run.exe");
    DoubleClick("tool");
    EXPECT_THAT(Started(), IsEmpty());
    ASSERT_EQ(Told().size(), 2U);
    EXPECT_THAT(Told()[0], HasSubstr("run.exe is a program: 'Run a Program' in the Run menu"));
    EXPECT_THAT(Told()[1], HasSubstr("tool is a program: 'Run a Program' in the Run menu"));
}

TEST_F(DoubleClicks, OpenAScriptInTheEditorThatIsSetForIt) {
    BeNative();
    desk.SetType("sh", "text/x-shellscript");
    desk.AddApplication("text/x-shellscript", "code.desktop", "Code");
    Disk().AddFile("C:\\data\\go.sh", "#!/bin/sh");
    desk.SetKind("C:\\data\\go.sh", ProgramKind::kNative);
    List();
    DoubleClick("go.sh");
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> code C:\\data\\go.sh"));
}

TEST_F(DoubleClicks, OnWhatHasGoneTellThat) {
    Disk().Node("C:\\data\\a.mp3")->Detach();
    DoubleClick("a.mp3");
    EXPECT_THAT(Started(), IsEmpty());
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("a.mp3 is not there.")));
}

// ---- shortcuts ----

TEST_F(DoubleClicks, OnAnInternetShortcutShowItsPage) {
    Disk().AddFile("C:\\data\\page.url", "[InternetShortcut]\r\nURL=https://example.org/a%20b\r\n");
    List();
    DoubleClick("page.url");
    EXPECT_THAT(machine.launcher.pages, ElementsAre("https://example.org/a%20b"));
}

TEST_F(DoubleClicks, OnAShortcutOpenItsTarget) {
    Disk().AddFile("C:\\data\\song.url", "[InternetShortcut]\r\nURL=file:///data/a.mp3\r\n");
    List();
    DoubleClick("song.url");
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> music C:\\data\\a.mp3"));
}

TEST_F(DoubleClicks, OnADesktopEntryThatIsALinkOpenItsTarget) {
    Disk().AddFile("C:\\data\\page.desktop",
                   "[Desktop Entry]\nType=Link\nURL=https://example.org/\n");
    List();
    DoubleClick("page.desktop");
    EXPECT_THAT(machine.launcher.pages, ElementsAre("https://example.org/"));
}

// ---- plans and choices ----

TEST_F(DoubleClicks, APlanStartsNothing) {
    const auto opened = launch::OpenObject(S(), "C:\\data\\a.mp3", launch::Doing::kPlan);
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->application, "Music");
    EXPECT_THAT(opened->plan.processes.front().arguments, ElementsAre("music", "C:\\data\\a.mp3"));
    EXPECT_THAT(Started(), IsEmpty());
}

TEST_F(DoubleClicks, AChoiceIsAnIdANameOrACommand) {
    const std::vector<std::string> paths{"C:\\data\\b.txt", "C:\\data\\g.ogg"};
    for (const char* choice : {"music.desktop", "music", "MUSIC", "ed --new"})
        EXPECT_TRUE(launch::OpenWith(S(), choice, paths, launch::Doing::kStart)) << choice;
    EXPECT_THAT(Started(),
                ElementsAre("C:\\home\\ann\\Documents> music C:\\data\\b.txt C:\\data\\g.ogg",
                            "C:\\home\\ann\\Documents> music C:\\data\\b.txt C:\\data\\g.ogg",
                            "C:\\home\\ann\\Documents> music C:\\data\\b.txt C:\\data\\g.ogg",
                            "C:\\home\\ann\\Documents> ed --new C:\\data\\b.txt C:\\data\\g.ogg"));
    const auto refused = launch::OpenWith(S(), "nobody", paths, launch::Doing::kStart);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().number, platform::kInvalidCall);
}

} // namespace
} // namespace tarvix::testing
