#include "tests/launch/launch_fixture.h"

#include <algorithm>

namespace tarvix::testing {
namespace {

using platform::ProgramKind;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr std::string_view kMediaCount =
    "Can not enqueue more than 200 files at once files.! Or less than 1 file.";
constexpr std::string_view kViewCount =
    "You must select a file in search results window. \r\nCan not view more than 5 files at once.!";
constexpr std::string_view kOnlyVlc =
    "I am only supporting VLC for Mp3, m3u, Wav, \r\nmp4, avi, flv, mov, wmv, 3gp, mpeg, mpg, "
    "rmvb, ts, vob, jpg, jpeg, and png files.\r\nUse 'Force VLC to enqueue' menu option if you are "
    "sure you want to try.\r\nYou may have to force VLC to close with the task manager using that "
    "option.";

class RunMenu : public LaunchFixture {
  protected:
    void AddFiles(int count, const std::string& ending) {
        for (int i = 0; i < count; ++i)
            Disk().AddFile("C:\\many\\" + std::to_string(1000 + i) + ending, "x");
        LookForAllAttributes();
        Search("*", "C:\\many");
    }
};

// ---- playing ----

TEST_F(RunMenu, PlaysWhatThePlayerTakesAndTellsTheRest) {
    List();
    SelectFirst(7);
    Click(Form().mnuRun_Mp3);
    EXPECT_THAT(Started(),
                ElementsAre("C:\\home\\ann\\Documents> vlc --playlist-enqueue C:\\data\\a.mp3 "
                            "C:\\data\\c.m3u C:\\data\\d.wav C:\\data\\e.jpg C:\\data\\f.mp4"));
    EXPECT_THAT(Told(),
                ElementsAre("C:\\data\\b.txt\r\nC:\\data\\g.ogg\r\n" + std::string(kOnlyVlc)));
}

TEST_F(RunMenu, EnqueuesBehindWhatPlaysButNoPictures) {
    List();
    Select({"a.mp3", "e.jpg", "f.mp4"});
    Click(Form().mnuRun_EnqueueMp3);
    EXPECT_THAT(Started(),
                ElementsAre("C:\\home\\ann\\Documents> vlc --one-instance --playlist-enqueue "
                            "C:\\data\\a.mp3 C:\\data\\f.mp4"));
    EXPECT_THAT(Told(), ElementsAre("C:\\data\\e.jpg\r\n" + std::string(kOnlyVlc)));
}

TEST_F(RunMenu, ForcesAnyFileOnThePlayer) {
    List();
    Select({"b.txt", "g.ogg"});
    Click(Form().mnuRun_ForceEnqueueMp3);
    EXPECT_THAT(Started(),
                ElementsAre("C:\\home\\ann\\Documents> vlc --one-instance --playlist-enqueue "
                            "C:\\data\\b.txt C:\\data\\g.ogg"));
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(RunMenu, ForcingNeedsThePlayer) {
    State().platformSettings.player = "gone";
    List();
    Select({"a.mp3"});
    Click(Form().mnuRun_ForceEnqueueMp3);
    EXPECT_THAT(Started(), IsEmpty());
    EXPECT_THAT(Told(), ElementsAre("You must have loaded VLC player to use this menu option."));
}

TEST_F(RunMenu, AnM3uWithBothPlayersGoesToVlcOnly) {
    State().platformSettings.secondPlayer = "second --add";
    desk.AddProgram("second");
    List();
    Select({"c.m3u"});
    Click(Form().mnuRun_EnqueueMp3);
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> vlc --one-instance "
                                       "--playlist-enqueue C:\\data\\c.m3u"));
}

TEST_F(RunMenu, APlayerWhoseProgramIsGoneIsToldOnceAndNothingElseStarts) {
    State().platformSettings.player = "gone --loop";
    State().platformSettings.secondPlayer = "second --add";
    desk.AddProgram("second");
    List();
    Select({"a.mp3", "f.mp4"});
    Click(Form().mnuRun_Mp3);
    EXPECT_THAT(Started(), IsEmpty());
    EXPECT_THAT(Told(), ElementsAre("VLC is not in expected location."));
    BeNative();
    State().platformSettings.showsNative = true;
    Click(Form().mnuRun_EnqueueMp3);
    EXPECT_EQ(
        Told().back(),
        "The program that Player names isn't there: gone --loop\r\nSet another in the options "
        "of this machine, or empty the box for one that is installed.");
}

TEST_F(RunMenu, SoIsASecondPlayerThatIsGone) {
    State().platformSettings.player = "";
    desk.RemoveProgram("vlc");
    State().platformSettings.secondPlayer = "gone";
    List();
    Select({"a.mp3"});
    Click(Form().mnuRun_Mp3);
    EXPECT_THAT(Started(), IsEmpty());
    EXPECT_THAT(Told(), ElementsAre("WinAmp is not in expected location."));
}

TEST_F(RunMenu, VlcThatRunsPlaysTheFilesItself) {
    desk.hasPlayer = true;
    List();
    Select({"a.mp3", "d.wav"});
    Click(Form().mnuRun_Mp3);
    EXPECT_THAT(desk.played, ElementsAre("vlc: C:\\data\\a.mp3", "vlc: C:\\data\\d.wav"));
    EXPECT_THAT(Started(), IsEmpty());
}

TEST_F(RunMenu, TheSecondPlayerGetsItsThreeKindsWithoutTheFirst) {
    State().platformSettings.player = "";
    desk.RemoveProgram("vlc");
    State().platformSettings.secondPlayer = "second --add";
    desk.AddProgram("second");
    List();
    Select({"a.mp3", "c.m3u", "d.wav", "f.mp4"});
    Click(Form().mnuRun_Mp3);
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> second --add C:\\data\\a.mp3 "
                                       "C:\\data\\c.m3u C:\\data\\d.wav"));
    EXPECT_THAT(Told(), ElementsAre("C:\\data\\f.mp4\r\nI am only supporting WinAmp for .Mp3, .m3u "
                                    "or .Wav files...skipped.\r\nOr you have not loaded either VLC "
                                    "or WinAmp players."));
}

TEST_F(RunMenu, WithoutPlayersAllIsSkipped) {
    State().platformSettings.player = "";
    desk.RemoveProgram("vlc");
    List();
    Select({"a.mp3"});
    Click(Form().mnuRun_Mp3);
    EXPECT_THAT(Started(), IsEmpty());
    EXPECT_THAT(Told(), ElementsAre(StartsWith("C:\\data\\a.mp3\r\nI am only supporting WinAmp")));
}

TEST_F(RunMenu, OtherPlayersGetNoSwitchesOfVlc) {
    State().platformSettings.player = "mpv --loop";
    desk.AddProgram("mpv");
    List();
    Select({"a.mp3", "g.ogg"});
    Click(Form().mnuRun_EnqueueMp3);
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> mpv --loop C:\\data\\a.mp3"));
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("I am only supporting mpv for Mp3")));
}

TEST_F(RunMenu, APlayerOnTheBusTakesEnqueuedFiles) {
    State().platformSettings.player = "mpv --loop";
    desk.AddProgram("mpv");
    desk.hasPlayer = true;
    List();
    Select({"a.mp3", "d.wav"});
    Click(Form().mnuRun_EnqueueMp3);
    EXPECT_THAT(desk.enqueued,
                ElementsAre("mpv --loop: C:\\data\\a.mp3", "mpv --loop: C:\\data\\d.wav"));
    EXPECT_THAT(Started(), IsEmpty());
    Click(Form().mnuRun_Mp3);
    EXPECT_EQ(Started().size(), 1U);
}

TEST_F(RunMenu, WithoutASettingTheDesktopsPlayerPlays) {
    State().platformSettings.player = "";
    desk.RemoveProgram("vlc");
    desk.AddApplication("audio/mpeg", "tunes.desktop", "Tunes");
    List();
    Select({"a.mp3"});
    Click(Form().mnuRun_Mp3);
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> tunes C:\\data\\a.mp3"));
}

TEST_F(RunMenu, FoldersAreToldAmongTheSkipped) {
    Disk().AddFolder("C:\\data\\album.mp3x");
    List();
    Select({"a.mp3", "album.mp3x"});
    Click(Form().mnuRun_Mp3);
    EXPECT_THAT(Told(), ElementsAre(StartsWith("C:\\data\\album.mp3x\r\nI am only")));
    EXPECT_EQ(Started().size(), 1U);
}

TEST_F(RunMenu, APlayerThatCannotStartIsTold) {
    desk.refusing.insert("vlc");
    List();
    Select({"a.mp3"});
    Click(Form().mnuRun_Mp3);
    EXPECT_THAT(Told(), ElementsAre("vlc can't be started."));
}

TEST_F(RunMenu, TwoHundredFilesGoAndOneMoreIsRefusedAsAWhole) {
    AddFiles(201, ".mp3");
    SelectFirst(200);
    Click(Form().mnuRun_Mp3);
    ASSERT_EQ(Started().size(), 1U);
    EXPECT_EQ(std::ranges::count(Started().front(), ':'), 201); // and the folder's
    SelectFirst(201);
    for (auto* entry :
         {&Form().mnuRun_Mp3, &Form().mnuRun_EnqueueMp3, &Form().mnuRun_ForceEnqueueMp3})
        Click(*entry);
    EXPECT_EQ(Started().size(), 1U);
    EXPECT_THAT(Told(), ElementsAre(kMediaCount, kMediaCount, kMediaCount));
}

TEST_F(RunMenu, NothingSelectedIsRefused) {
    List();
    SelectFirst(0);
    for (auto* entry : {&Form().mnuRun_Mp3, &Form().mnuRun_View, &Form().mnuRun_HexEdit,
                        &Form().mnuRun_Run, &Form().mnuRun_OpenParent})
        Click(*entry);
    EXPECT_THAT(Started(), IsEmpty());
    EXPECT_THAT(Told(),
                ElementsAre(kMediaCount, kViewCount, kViewCount,
                            "You must select one and only one file from search results!",
                            "There must only be one object selected in order to open the parent "
                            "folder in File Explorer."));
}

// ---- viewing ----

TEST_F(RunMenu, ViewsUpToFiveFilesEachInTheEditor) {
    List();
    SelectFirst(5);
    Click(Form().mnuRun_View);
    ASSERT_EQ(Started().size(), 5U);
    EXPECT_EQ(Started()[0], "C:\\home\\ann\\Documents> ed C:\\data\\a.mp3");
    EXPECT_EQ(Started()[4], "C:\\home\\ann\\Documents> ed C:\\data\\e.jpg");
    SelectFirst(6);
    Click(Form().mnuRun_View);
    EXPECT_EQ(Started().size(), 5U);
    EXPECT_THAT(Told(), ElementsAre(kViewCount));
}

TEST_F(RunMenu, AnEditorThatIsNotThereIsToldOnce) {
    State().platformSettings.editor = "gone";
    List();
    SelectFirst(3);
    Click(Form().mnuRun_View);
    EXPECT_THAT(Told(), ElementsAre("gone is no program here."));
}

TEST_F(RunMenu, OnlyFoldersAreNoFileToView) {
    Disk().AddFolder("C:\\data\\folder");
    List();
    Select({"folder"});
    Click(Form().mnuRun_View);
    EXPECT_THAT(Told(), ElementsAre(kViewCount));
}

TEST_F(RunMenu, WithoutAHexEditorItSaysWhichIsWanted) {
    List();
    Select({"a.mp3"});
    Click(Form().mnuRun_HexEdit);
    EXPECT_THAT(Told(), ElementsAre("You must have this file of the 'Free Hex Editor 1.0.154' to "
                                    "work: \r\n%FrHed%\\FRHED.EXE"));
}

TEST_F(RunMenu, TheHexEditorIsThatOfTheSettings) {
    State().platformSettings.hexEditor = "hex -r";
    desk.AddProgram("hex");
    List();
    Select({"a.mp3", "b.txt"});
    Click(Form().mnuRun_HexEdit);
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> hex -r C:\\data\\a.mp3",
                                       "C:\\home\\ann\\Documents> hex -r C:\\data\\b.txt"));
}

TEST_F(RunMenu, OrTheOneThatItsVariableNames) {
    machine.environment.Set("FrHed", "C:\\hex");
    Disk().AddFile("C:\\hex\\FRHED.EXE", "MZ");
    const std::string command = "\"" + machine.platform.paths.ToNative("C:\\hex\\FRHED.EXE") + "\"";
    desk.AddProgram(command);
    List();
    Select({"a.mp3"});
    Click(Form().mnuRun_HexEdit);
    EXPECT_THAT(Started(),
                ElementsAre("C:\\home\\ann\\Documents> " + command + " C:\\data\\a.mp3"));
}

// ---- running ----

TEST_F(RunMenu, RunsOneProgramOnly) {
    for (const char* path : {"C:\\data\\x.exe", "C:\\data\\y.exe"}) {
        Disk().AddFile(path, "MZ");
        desk.SetKind(path, ProgramKind::kNative);
    }
    List();
    Select({"x.exe", "y.exe"});
    Click(Form().mnuRun_Run);
    Select({"x.exe"});
    Click(Form().mnuRun_Run);
    Select({"a.mp3"});
    Click(Form().mnuRun_Run);
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> C:\\data\\x.exe"));
    EXPECT_THAT(Told(), ElementsAre("You must select one and only one file from search results!",
                                    "Must be an .exe file"));
}

TEST_F(RunMenu, RunsAnyExecutableOfThisMachine) {
    BeNative();
    Disk().AddFile("C:\\data\\tool", "\x7F"
                                     "ELF");
    Disk().AddFile("C:\\data\\locked", "#!/bin/sh");
    desk.SetKind("C:\\data\\tool", ProgramKind::kNative);
    desk.SetKind("C:\\data\\locked", ProgramKind::kNoRight);
    List();
    Select({"tool"});
    Click(Form().mnuRun_Run);
    Select({"locked"});
    Click(Form().mnuRun_Run);
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> C:\\data\\tool"));
    EXPECT_THAT(Told(), ElementsAre(HasSubstr("can't be run.")));
}

TEST_F(RunMenu, AsksBeforeAForeignProgramIsStarted) {
    BeNative();
    desk.SetType("exe", "application/x-dosexec");
    desk.AddApplication("application/x-dosexec", "wine.desktop", "Wine");
    Disk().AddFile("C:\\data\\x.exe", "MZ");
    desk.SetKind("C:\\data\\x.exe", ProgramKind::kForeign);
    List();
    Select({"x.exe"});
    prompts.Queue("No");
    Click(Form().mnuRun_Run);
    EXPECT_THAT(Started(), IsEmpty());
    prompts.Queue("Yes");
    Click(Form().mnuRun_Run);
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> wine C:\\data\\x.exe"));
    EXPECT_THAT(prompts.Records().back().text, HasSubstr("Shall Wine start it?"));
}

TEST_F(RunMenu, WithoutWineAForeignProgramIsRefused) {
    BeNative();
    desk.SetType("exe", "application/x-dosexec");
    Disk().AddFile("C:\\data\\x.exe", "MZ");
    desk.SetKind("C:\\data\\x.exe", ProgramKind::kForeign);
    List();
    Select({"x.exe"});
    Click(Form().mnuRun_Run);
    EXPECT_THAT(Told(), ElementsAre("No program is set here that runs .exe files, as Wine does."));
}

// ---- the parent folder ----

TEST_F(RunMenu, OpensTheParentFolder) {
    desk.AddApplication("inode/directory", "files.desktop", "Files");
    List();
    Select({"a.mp3"});
    Click(Form().mnuRun_OpenParent);
    EXPECT_THAT(Started(), ElementsAre("C:\\home\\ann\\Documents> files C:\\data"));
    SelectFirst(2);
    Click(Form().mnuRun_OpenParent);
    EXPECT_EQ(Started().size(), 1U);
    EXPECT_EQ(Told().size(), 1U);
}

TEST_F(RunMenu, AParentThatCannotBeOpenedIsTold) {
    List();
    Select({"a.mp3"});
    Click(Form().mnuRun_OpenParent);
    EXPECT_THAT(Told(),
                ElementsAre(" Unable to open. Either folder was deleted or it has a lock on "
                            "it or its on a removable device."));
}

// ---- the system ----

TEST_F(RunMenu, TheFactsOfTheSystemAreTold) {
    Click(Form().mnuHelp_SysInfo);
    EXPECT_THAT(Told(), ElementsAre("System Information Is Unavailable At This Time"));
    const auto& paths = machine.platform.paths;
    Disk().AddFile(paths.ToDrive("/etc/os-release"), "NAME=x\nPRETTY_NAME=\"Deb 12\"\n");
    Disk().AddFile(paths.ToDrive("/proc/meminfo"), "MemTotal:        6291456 kB\n");
    Disk().AddFile(paths.ToDrive("/proc/cpuinfo"), "processor\t: 0\nmodel name\t: Some CPU\n");
    Click(Form().mnuHelp_SysInfo);
    EXPECT_THAT(Told().back(), HasSubstr("System: Deb 12\r\n"));
    EXPECT_THAT(Told().back(), HasSubstr("Memory: 6.0 GiB\r\nProcessor: Some CPU\r\n"));
    EXPECT_THAT(Told().back(), HasSubstr("Player: VLC\r\n"));
    EXPECT_THAT(Told().back(), HasSubstr("HexEditor: none\r\n"));
}

} // namespace
} // namespace tarvix::testing
