#include "tests/cli/cli_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::cli {
namespace {

using platform::ProgramKind;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kStarted = "C:\\home\\ann\\Documents> ";

class OpenCommandTest : public CliFixture {
  protected:
    OpenCommandTest() {
        for (const char* name : {"a.mp3", "b c.mp3", "d.txt"})
            Disk().AddFile(std::string("C:\\music\\").append(name), "x");
        desk.SetType("mp3", "audio/mpeg");
        desk.AddApplication("audio/mpeg", "tunes.desktop", "Tunes");
        desk.AddProgram("ed");
    }
    std::string Started(const std::string& rest) { return kStarted + rest; }

    platform::MemoryApplications& desk = machine.applications;
};

TEST_F(OpenCommandTest, OpensEachPathWithItsApplication) {
    EXPECT_EQ(Run({"open", "/music/a.mp3", "/music/b c.mp3"}), kDone) << Err();
    EXPECT_THAT(desk.started, ElementsAre(Started("tunes C:\\music\\a.mp3"),
                                          Started("tunes C:\\music\\b c.mp3")));
    EXPECT_EQ(Out(), "Opened 2 objects.\n");
}

TEST_F(OpenCommandTest, OpensWhatASearchFinds) {
    EXPECT_EQ(Run({"open", "*.mp3", "--in", "/music"}), kDone) << Err();
    EXPECT_EQ(desk.started.size(), 2U);
}

TEST_F(OpenCommandTest, OpensAllWithOneThatIsNamed) {
    EXPECT_EQ(Run({"open", "/music/a.mp3", "/music/d.txt", "--with", "tunes"}), kDone) << Err();
    EXPECT_EQ(Run({"open", "/music/d.txt", "--with", "ed --new"}), kDone) << Err();
    EXPECT_THAT(desk.started, ElementsAre(Started("tunes C:\\music\\a.mp3 C:\\music\\d.txt"),
                                          Started("ed --new C:\\music\\d.txt")));
    EXPECT_EQ(Run({"open", "/music/d.txt", "--with", "nobody"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("\"nobody\" is no application of this desktop, and no command."));
}

TEST_F(OpenCommandTest, ADryRunTellsTheCommandsAndStartsNothing) {
    EXPECT_EQ(Run({"open", "/music/b c.mp3", "--dry-run"}), kDone) << Err();
    EXPECT_THAT(desk.started, IsEmpty());
    EXPECT_EQ(Out(), "cd 'C:\\home\\ann\\Documents' && tunes 'C:\\music\\b c.mp3'\n");
    EXPECT_EQ(Run({"open", "/music/a.mp3", "-n", "--json"}), kDone) << Err();
    EXPECT_EQ(Out(), "{\"Application\":\"Tunes\",\"Processes\":[{\"Folder\":"
                     "\"C:\\\\home\\\\ann\\\\Documents\",\"Arguments\":[\"tunes\","
                     "\"C:\\\\music\\\\a.mp3\"]}]}\n");
}

TEST_F(OpenCommandTest, WhatCannotBeOpenedGivesOneAndIsNamed) {
    EXPECT_EQ(Run({"open", "/music/a.mp3", "/music/gone.mp3"}), kSomeFailed);
    EXPECT_THAT(Err(), HasSubstr("gone.mp3 is not there."));
    EXPECT_EQ(Out(), "Opened 1 of 2 objects.\n");
}

TEST_F(OpenCommandTest, ManyNeedAWordOfConfirmation) {
    for (int i = 0; i < 201; ++i)
        Disk().AddFile("C:\\many\\" + std::to_string(i) + ".mp3", "x");
    EXPECT_EQ(Run({"open", "*.mp3", "--in", "/many"}), kUnanswered);
    EXPECT_THAT(Err(), HasSubstr("That would open 201 objects at once"));
    EXPECT_THAT(desk.started, IsEmpty());
    EXPECT_EQ(Run({"open", "*.mp3", "--in", "/many", "--yes"}), kDone) << Err();
    EXPECT_EQ(desk.started.size(), 201U);
}

TEST_F(OpenCommandTest, NothingToOpenIsRefused) {
    EXPECT_EQ(Run({"open"}), kBadRequest);
    EXPECT_THAT(Err(), HasSubstr("Say what to open"));
}

TEST_F(OpenCommandTest, RunsAProgram) {
    Disk().AddFile("C:\\bin\\tool", "x");
    desk.SetKind("C:\\bin\\tool", ProgramKind::kNative);
    EXPECT_EQ(Run({"run-program", "/bin/tool", "--dry-run"}), kDone) << Err();
    EXPECT_THAT(desk.started, IsEmpty());
    EXPECT_EQ(Run({"run-program", "/bin/tool"}), kDone) << Err();
    EXPECT_THAT(desk.started, ElementsAre(Started("C:\\bin\\tool")));
    EXPECT_EQ(Out(), "Started tool.\n");
}

TEST_F(OpenCommandTest, RunsNoOtherFile) {
    EXPECT_EQ(Run({"run-program", "/music/a.mp3"}), kBadRequest);
    EXPECT_EQ(Run({"run-program", "/bin/gone"}), kSomeFailed);
    Disk().AddFile("C:\\bin\\locked", "x");
    desk.SetKind("C:\\bin\\locked", ProgramKind::kNoRight);
    EXPECT_EQ(Run({"run-program", "/bin/locked"}), kSomeFailed);
    EXPECT_THAT(desk.started, IsEmpty());
}

TEST_F(OpenCommandTest, AForeignProgramNeedsAConfirmation) {
    Disk().AddFile("C:\\bin\\setup.exe", "MZ");
    desk.SetType("exe", "application/x-dosexec");
    desk.SetKind("C:\\bin\\setup.exe", ProgramKind::kForeign);
    EXPECT_EQ(Run({"run-program", "/bin/setup.exe", "--yes"}), kSomeFailed);
    EXPECT_THAT(Err(), HasSubstr("No program is set here that runs .exe files"));
    desk.AddApplication("application/x-dosexec", "wine.desktop", "Wine");
    EXPECT_EQ(Run({"run-program", "/bin/setup.exe"}), kUnanswered);
    EXPECT_THAT(Err(), HasSubstr("which Wine would start"));
    EXPECT_THAT(desk.started, IsEmpty());
    EXPECT_EQ(Run({"run-program", "/bin/setup.exe", "--yes"}), kDone) << Err();
    EXPECT_THAT(desk.started, ElementsAre(Started("wine C:\\bin\\setup.exe")));
}

} // namespace
} // namespace tarvix::cli
