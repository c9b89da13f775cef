#include "session/old_logs.h"
#include "session/unattended_prompts.h"
#include "tests/support/program_fixture.h"
#include "text/characters.h"
#include "text/format.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

// The clock of the machine stands at 2026-11-15 19:54:52.
class OldLogs : public ProgramFixture {
  protected:
    std::string Folder() { return machine.environment.programFolder; }
    std::string PathOf(std::string_view stamp) {
        return text::Concat({Folder(), "\\TXAction ", stamp, ".log"});
    }
    void AddLog(std::string_view stamp) { Disk().AddFile(PathOf(stamp), "Opened"); }
    void Setting(std::string_view line) {
        Disk().AddFile(Folder() + "\\TXPlatform.txt", text::Concat({line, "\r\n*EOF"}));
    }
    // The stamps of the logs that stand, newest first.
    std::vector<std::string> Stamps() {
        std::vector<std::string> stamps;
        for (const auto& log : session::ListRunLogs(S()))
            stamps.push_back(log.path.substr(Folder().size() + 10, 17));
        return stamps;
    }
};

TEST(StartOfRun, IsReadFromTheNameAlone) {
    using text::DateTime;
    EXPECT_EQ(session::StartOfRun("TXAction 11.15.26 19.54.52.log"),
              (DateTime{2026, 11, 15, 19, 54, 52}));
    for (const char* name :
         {"TXAction 11.15.26 19.54.52.log2", "TXAction 13.15.26 19.54.52.log",
          "TXAction 02.30.26 19.54.52.log", "TXAction 11.15.26 25.54.52.log",
          "TXAction 11.15.26.log", "TXAction notes.log", "My TXAction 11.15.26 19.54.52.log", ""}) {
        EXPECT_EQ(session::StartOfRun(name), std::nullopt) << name;
    }
}

TEST_F(OldLogs, TheOldestBeyondTheNumberGo) {
    Setting("LogsKept = 3");
    for (const char* stamp :
         {"12.31.25 23.59.59", "01.01.26 00.00.00", "11.15.26 19.54.51", "02.01.26 10.00.00"})
        AddLog(stamp);
    Start();
    EXPECT_THAT(Stamps(),
                ElementsAre("11.15.26 19.54.52", "11.15.26 19.54.51", "02.01.26 10.00.00"));
    EXPECT_TRUE(HasEntry(LogText(), " Deleted 2 action logs of earlier runs, as LogsKept says."));
}

TEST_F(OldLogs, TwoHundredAreKeptUnlessSet) {
    for (int day = 0; day < 205; ++day) {
        const auto date = text::FromSeconds(text::ToSeconds({2026, 1, 1, 8, 0, 0}) + day * 86'400);
        AddLog(text::FormatDate(date, "mm.dd.yy hh.nn.ss"));
    }
    Start();
    const auto stamps = Stamps();
    ASSERT_EQ(stamps.size(), 200U);
    EXPECT_EQ(stamps.back(), "01.07.26 08.00.00");
}

TEST_F(OldLogs, ByAgeThoseOfTheLastDaysStay) {
    Setting("LogsKept = 30 days");
    for (const char* stamp : {"10.16.26 19.54.52", "10.16.26 19.54.51", "11.01.26 00.00.00"})
        AddLog(stamp);
    Start();
    EXPECT_THAT(Stamps(),
                ElementsAre("11.15.26 19.54.52", "11.01.26 00.00.00", "10.16.26 19.54.52"));
}

TEST_F(OldLogs, AllStayWhereAllAreKeptAndNothingIsSaidWhereNothingGoes) {
    Setting("LogsKept = all");
    AddLog("01.01.01 00.00.00");
    Start();
    EXPECT_THAT(Stamps(), ElementsAre("11.15.26 19.54.52", "01.01.01 00.00.00"));
    EXPECT_THAT(LogText(), Not(HasSubstr("Deleted")));
}

TEST_F(OldLogs, OtherFilesProtectedLogsAndThoseThatAreWrittenStay) {
    Setting("LogsKept = 1");
    const std::vector<std::string> others{Folder() + "\\TXAction kept by me.log",
                                          Folder() + "\\TXAction 01.01.26 00.00.00.log.bak",
                                          Folder() + "\\TXProgramError.log"};
    for (const auto& path : others)
        Disk().AddFile(path, "mine");
    AddLog("01.01.26 00.00.00");
    AddLog("01.02.26 00.00.00");
    Disk().AddFile(PathOf("01.03.26 00.00.00"), "").attributes |= platform::kReadOnly;
    machine.faults.FailPath(PathOf("01.02.26 00.00.00"), platform::kPermissionDenied,
                            "OpenAsTextStream");
    Start();
    EXPECT_THAT(Stamps(),
                ElementsAre("11.15.26 19.54.52", "01.03.26 00.00.00", "01.02.26 00.00.00"));
    for (const auto& path : others)
        EXPECT_TRUE(Disk().Facts(path)) << path;
}

TEST_F(OldLogs, ALogOfTheFutureIsOneOfTheNewest) {
    Setting("LogsKept = 1");
    AddLog("01.01.27 00.00.00");
    AddLog("01.01.26 00.00.00");
    Start();
    EXPECT_THAT(Stamps(), ElementsAre("01.01.27 00.00.00", "11.15.26 19.54.52"));
}

// ---- the window that lists them ----

class Runs : public OldLogs {
  protected:
    fields::FrmRuns& Window() { return S().forms.frmRuns; }
    // Opens the window, acts in it, and closes it.
    void InWindow(const std::function<void()>& act) {
        opened = false;
        S().standIn = &shown;
        shown.act = [&] {
            opened = true;
            act();
        };
        Click(Form().mnuToolViewRuns);
        S().standIn = nullptr;
        EXPECT_TRUE(opened);
    }

    struct Shown : session::UnattendedPrompts {
        std::function<void()> act;
        void ShowModal(session::Session&, fields::Form& form, const session::Prompt&) override {
            form.Show();
            act();
            form.Hide();
        }
    } shown;
    bool opened = false;
};

TEST_F(Runs, ListsEachWithItsSizeTheNewestFirst) {
    AddLog("11.14.26 08.00.00");
    Start();
    InWindow([&] {
        ASSERT_EQ(Window().lstRuns.Items().size(), 2U);
        EXPECT_THAT(Window().lstRuns.Items()[0], EndsWith("    this run"));
        EXPECT_EQ(Window().lstRuns.Items()[1], "2026-11-14 08:00:00    6 bytes");
        EXPECT_EQ(Window().lblMain.Caption.Get(),
                  "2 runs with an action log in C:\\home\\ann\\tarvix. The last 200 are kept, as "
                  "LogsKept in the options says.");
        EXPECT_TRUE(Window().cmdView.Enabled);
        EXPECT_FALSE(Window().cmdRecycle.Enabled) << "the log of this run is written";
    });
}

TEST_F(Runs, TheChosenOneIsShownAndMovedToTheTrash) {
    AddLog("11.14.26 08.00.00");
    AddLog("11.13.26 08.00.00");
    Start();
    InWindow([&] {
        Set(Window().lstRuns, "2026-11-13 08:00:00    6 bytes");
        Click(Window().cmdView);
        EXPECT_THAT(machine.launcher.opened, ElementsAre(PathOf("11.13.26 08.00.00")));
        ASSERT_TRUE(Window().cmdRecycle.Enabled);
        Click(Window().cmdRecycle);
        EXPECT_EQ(Window().lstRuns.Items().size(), 2U);
        EXPECT_FALSE(Window().cmdRecycle.Enabled) << "nothing is chosen";
    });
    EXPECT_FALSE(Disk().Facts(PathOf("11.13.26 08.00.00")));
    EXPECT_EQ(machine.bin.Items().size(), 1U);
}

TEST_F(Runs, ADoubleClickShowsItsLine) {
    AddLog("11.14.26 08.00.00");
    Start();
    InWindow([&] {
        S().events.Raise(S(), "frmRuns.lstRuns_DblClick", {.index = 1});
        EXPECT_THAT(machine.launcher.opened, ElementsAre(PathOf("11.14.26 08.00.00")));
    });
}

} // namespace
} // namespace tarvix::testing
