#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

class FirstRun : public ProgramFixture {
  protected:
    FirstRun() {
        Disk().Node(kHistory)->Detach();
        for (const char* help : {"Tarvix.rtf", "User Doc.txt", "Advanced Functions.txt"}) {
            Disk().AddFile("C:\\home\\ann\\tarvix\\" + std::string(help));
        }
    }
    static constexpr const char* kHistory = "C:\\home\\ann\\tarvix\\TXFSSearchHistoryFile.txt";
};

TEST_F(FirstRun, ShowsTheNoticeWordByWord) {
    Start();
    ASSERT_FALSE(prompts.Records().empty());
    const auto& notice = prompts.Records().front();
    EXPECT_EQ(notice.style, 16);
    EXPECT_EQ(
        notice.text,
        "WARNING - Using this program carelessly can make your computer not function if used "
        "improperly!!!\r\n\r\n"
        "It gives you the power to rearrange ALMOST ANY file on your pc including Windows system "
        "files.\r\n\r\n"
        "Be sure to read the section labeled 'Who is Tarvix for?' in help(F1).\r\n\r\n"
        "I recommend reading 'Advanced Functions List' in the help menu fully to begin to "
        "understand. That will explain all the changes I made during development and some the "
        "dangers.\r\n\r\n"
        "1. Do not turn on Expert Mode in Option until you have a strong understanding of "
        "Windows.\r\n"
        "2. Work with files in your Documents folder. (Default search folder).\r\n"
        "3. Backup everything until you have firm understanding of the use of Tarvix. In fact "
        "ALWAYS backup everything.\r\n"
        "I offer no guarantees, results are ENTIRELY based on your actions.\r\n\r\n"
        "The help file will now open.");
}

TEST_F(FirstRun, AsksForBothHelpTextsAndOpensThoseWanted) {
    prompts.Queue("OK");
    prompts.Queue("No");
    prompts.Queue("Yes");
    Start();
    ASSERT_EQ(prompts.Records().size(), 3U);
    EXPECT_EQ(prompts.Records()[1].text, "Would you like to see the General Information file?");
    EXPECT_EQ(prompts.Records()[2].text, "Would you like to see the Advanced Functions file?");
    EXPECT_EQ(machine.launcher.opened,
              (std::vector<std::string>{"C:\\home\\ann\\tarvix\\Tarvix.rtf",
                                        "C:\\home\\ann\\tarvix\\Advanced Functions.txt"}));
}

// A front that has windows.
class Windows : public session::ScriptedPrompts {
  public:
    bool PrefersForms() const override { return true; }
};

class Welcome : public FirstRun {
  protected:
    Welcome() {
        machine.platform.traits.hasNativePaths = true;
        Disk().AddFile("C:\\home\\ann\\tarvix\\guide.md");
    }
    // The first start, its one window answered by that button.
    void Answer(const std::string& button) {
        windows.Queue(button);
        app::Program first(machine.platform, windows);
        first.Start("");
        EXPECT_TRUE(first.Session().state.blnStarted);
    }
    Windows windows;
};

TEST_F(Welcome, IsOneWindowThatSpeaksOfThisMachine) {
    Answer("Start");
    ASSERT_EQ(windows.Records().size(), 1U);
    const auto& told = windows.Records().front();
    EXPECT_EQ(told.form, "frmWelcome");
    EXPECT_NE(told.text.find("Preview"), told.text.npos);
    EXPECT_NE(told.text.find("trash"), told.text.npos);
    EXPECT_EQ(told.text.find("Windows"), told.text.npos);
    EXPECT_TRUE(machine.launcher.opened.empty());
    EXPECT_EQ(Disk().Content(kHistory), "");
}

TEST_F(Welcome, StandsInFrontOfBoxesAndColumnsOfThisMachine) {
    std::string caption;
    std::vector<std::size_t> columns;
    windows.SetModalRunner([&](session::Session& session, fields::Form&) {
        caption = session.frmSearch.chk256.Caption.Get();
        for (std::size_t column = 0; column < session.blnListItems.size(); ++column) {
            if (session.blnListItems[column]) columns.push_back(column);
        }
        return false;
    });
    Answer("Start");
    EXPECT_EQ(caption, "Temporary (256)");
    EXPECT_EQ(columns, (std::vector<std::size_t>{0, 1, 2, 3, 4, 8}));
}

TEST_F(Welcome, TheFirstLocationIsAFolderThatStandsHere) {
    windows.Queue("Start");
    app::Program first(machine.platform, windows);
    first.Start("");
    EXPECT_EQ(first.Session().frmSearch.cmbDir.Text.Get(), "C:\\home\\ann\\Documents");
    Disk().Node("C:\\home\\ann\\Documents")->Detach();
    app::Program second(machine.platform, windows);
    second.Start("");
    EXPECT_EQ(second.Session().frmSearch.cmbDir.Text.Get(), "C:\\home\\ann");
}

TEST_F(Welcome, OpensTheGuideForWhoWantsToReadIt) {
    Answer("Read the guide");
    EXPECT_EQ(machine.launcher.opened,
              (std::vector<std::string>{"C:\\home\\ann\\tarvix\\guide.md"}));
}

TEST_F(FirstRun, WithoutWindowsTheBoxesAreAsTold) {
    machine.platform.traits.hasNativePaths = true;
    for (const char* answer : {"OK", "No", "No"})
        prompts.Queue(answer);
    app::Program first(machine.platform, prompts);
    first.Start("");
    ASSERT_EQ(prompts.Records().size(), 3U);
    EXPECT_TRUE(prompts.Records()[0].text.starts_with("WARNING - Using this program carelessly"));
}

TEST_F(FirstRun, MakesTheHistoryFileSoThatTheNextRunIsNone) {
    Start();
    EXPECT_EQ(Disk().Content(kHistory), "");
    const std::size_t told = prompts.Records().size();
    app::Program second(machine.platform, prompts);
    second.Start("");
    EXPECT_EQ(prompts.Records().size(), told);
}

TEST_F(FirstRun, AMissingHelpTextDoesNotEndTheStart) {
    Disk().Node("C:\\home\\ann\\tarvix\\Tarvix.rtf")->Detach();
    Start();
    EXPECT_TRUE(State().blnStarted);
}

TEST_F(FirstRun, AHistoryFileThatCannotBeSeenIsNotEmptied) {
    Disk().AddFile(kHistory, "*.mp3\r\n11/15/2026 7:54:52 PM\r\n*EOF");
    machine.faults.FailPath(kHistory, platform::kPermissionDenied, "Facts");
    Start();
    EXPECT_EQ(Disk().Content(kHistory), "*.mp3\r\n11/15/2026 7:54:52 PM\r\n*EOF");
}

} // namespace
} // namespace tarvix::testing
