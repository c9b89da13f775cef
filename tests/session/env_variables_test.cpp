#include "session/paths/env_variables.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

class Variables : public ProgramFixture {
  protected:
    Variables() { machine.environment.Set("Here", "C:\\here"); }
    std::string Restored(std::string_view path) {
        return session::RemoveEnvVarAndRestorePath(S(), path);
    }
};

TEST_F(Variables, AreReplacedByTheirValuesInAnyCase) {
    EXPECT_EQ(Restored("%userprofile%\\Music"), "C:\\home\\ann\\Music");
    EXPECT_EQ(Restored("%HERE%"), "C:\\here");
}

TEST_F(Variables, SeveralAreReplacedOneAfterTheOther) {
    machine.environment.Set("Sub", "deep");
    EXPECT_EQ(Restored("%Here%\\%Sub%\\x"), "C:\\here\\deep\\x");
}

TEST_F(Variables, AValueThatHoldsAVariableIsReplacedToo) {
    machine.environment.Set("Outer", "%Here%\\more");
    EXPECT_EQ(Restored("%Outer%"), "C:\\here\\more");
}

TEST_F(Variables, ThatNameEachOtherInACircleGiveTheText) {
    machine.environment.Set("A", "%B%");
    machine.environment.Set("B", "%A%");
    EXPECT_EQ(Restored("%A%\\x"), "%A%\\x");
}

TEST_F(Variables, AnUnknownOneGivesTheText) {
    EXPECT_EQ(Restored("%Here%\\%NoSuchThing%\\x"), "%Here%\\%NoSuchThing%\\x");
}

TEST_F(Variables, AnUnknownOneBeforeWinampKeepsWhatWasReplaced) {
    EXPECT_EQ(Restored("%NoSuchThing%\\WinAmp.exe"), "%NoSuchThing%\\WinAmp.exe");
    EXPECT_EQ(Restored("%Here%\\%NoSuchThing%\\winamp.exe"), "C:\\here\\%NoSuchThing%\\winamp.exe");
}

TEST_F(Variables, OneSignAloneIsPassedOver) {
    EXPECT_EQ(Restored("C:\\100% done\\\\x"), "C:\\100% done\\x");
}

TEST_F(Variables, DoubledSlashesBehindTheFirstCharacterBecomeSingle) {
    EXPECT_EQ(Restored("\\\\server\\share\\\\\\x"), "\\\\server\\share\\x");
    EXPECT_EQ(Restored("C:\\\\a"), "C:\\a");
}

TEST_F(Variables, AListOfFoldersIsNotUnfolded) {
    EXPECT_EQ(Restored("%Here%;%Temp%"), "%Here%;%Temp%");
}

TEST_F(Variables, ARealObjectOfThatNameStaysAndIsLogged) {
    Disk().AddFolder("C:\\a\\%Here%");
    Start();
    EXPECT_EQ(Restored("C:\\a\\%Here%"), "C:\\a\\%Here%");
    EXPECT_TRUE(HasEntry(LogText(), " RemoveEnvVarAndRestorePath determined C:\\a\\%Here% already "
                                    "exists as a valid path. The environment variable was not "
                                    "converted."));
}

TEST_F(Variables, AValueOverItsBufferIsUnknown) {
    machine.environment.Set("Long", "C:\\" + std::string(497, 'x'));
    EXPECT_EQ(Restored("%Long%\\y"), "%Long%\\y");
}

TEST_F(Variables, OnASystemOfTwoWidthsProgramFilesMeansTheWideOne) {
    machine.environment.Set("ProgramW6432", "C:\\wide");
    machine.environment.Set("CommonProgramW6432", "C:\\wide\\common");
    EXPECT_EQ(Restored("%ProgramFiles%\\x"), "C:\\wide\\x");
    EXPECT_EQ(Restored("%COMMONPROGRAMFILES%\\x"), "C:\\wide\\common\\x");
    EXPECT_EQ(Restored("%ProgramFiles(x86)%\\x"), "C:\\usr\\local\\x");
}

TEST_F(Variables, OnASystemOfOneWidthProgramFilesIsItself) {
    EXPECT_EQ(Restored("%ProgramFiles%\\x"), "C:\\opt\\x");
}

// ---- the table ----

class VariableTable : public Variables {
  protected:
    VariableTable() {
        for (const auto& [name, value] : machine.environment.All())
            machine.environment.Unset(name);
        Disk().AddFolder("C:\\here");
    }
    const std::vector<session::EnvVariable>& Table() { return State().options.envVariables; }
    void Rebuild() { session::RebuildEnvVarTable(S()); }
};

TEST_F(VariableTable, TakesOnlyVariablesThatAreOneFolder) {
    machine.environment.Set("AFolder", "c:\\HERE\\");
    machine.environment.Set("Gone", "C:\\gone");
    machine.environment.Set("List", "C:\\here;C:\\here");
    machine.environment.Set("Word", "here");
    machine.environment.Set("=C:", "C:\\here");
    Rebuild();
    ASSERT_EQ(Table().size(), 1U);
    EXPECT_EQ(Table()[0], (session::EnvVariable{false, "AFolder", "C:\\here"}));
}

TEST_F(VariableTable, KnownOnesKeepTheirPlaceAndFlagAndNewOnesFollow) {
    for (const char* name : {"A", "B", "C"}) {
        machine.environment.Set(name, "C:\\here");
    }
    State().options.envVariables = {{true, "c", ""}, {true, "Gone", ""}, {false, "A", ""}};
    Rebuild();
    EXPECT_EQ(Table(),
              (std::vector<session::EnvVariable>{
                  {true, "C", "C:\\here"}, {false, "A", "C:\\here"}, {false, "B", "C:\\here"}}));
}

TEST_F(VariableTable, MoreThanItHoldsEndsTheMergeWithAMessage) {
    for (int i = 0; i < 105; ++i) {
        machine.environment.Set("V" + std::to_string(i), "C:\\here");
    }
    Rebuild();
    EXPECT_EQ(Table().size(), 101U);
    EXPECT_TRUE(WasTold("ERROR CODE:  9"));
}

} // namespace
} // namespace tarvix::testing
