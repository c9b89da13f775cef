#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

constexpr const char* kStore = "C:\\home\\ann\\.local\\share\\tarvix\\VirtualStore";

class DataFolder : public ProgramFixture {};

class ProtectedProgram : public ProgramFixture {
  protected:
    ProtectedProgram() { machine.environment.programFolder = "C:\\opt\\tarvix"; }
};

TEST_F(DataFolder, IsTheProgramsOwnFolder) {
    Start();
    EXPECT_EQ(State().strDataFolder, "C:\\home\\ann\\tarvix");
    EXPECT_FALSE(State().blnDataInVirtualStore);
}

TEST_F(DataFolder, HoldsEveryFileOfTheProgram) {
    Start();
    const auto& state = State();
    EXPECT_EQ(state.strFDHistoryFile, "C:\\home\\ann\\tarvix\\TXFDFolderHistoryFile.txt");
    EXPECT_EQ(state.strFSSearchHistoryFile, "C:\\home\\ann\\tarvix\\TXFSSearchHistoryFile.txt");
    EXPECT_EQ(state.strFSFolderHistoryFile, "C:\\home\\ann\\tarvix\\TXFSFolderHistoryFile.txt");
    EXPECT_EQ(state.strErrorLogFile, "C:\\home\\ann\\tarvix\\TXProgramError.log");
    EXPECT_EQ(state.strOptionFile, "C:\\home\\ann\\tarvix\\TXOptionFile.txt");
    EXPECT_EQ(state.strOptionBackupFile, "C:\\home\\ann\\tarvix\\TXOptionFile.bak");
}

TEST_F(DataFolder, ThatTheUserAskedForIsMadeAndTaken) {
    machine.environment.dataFolder = "C:\\tmp\\data\\tarvix\\";
    Start();
    EXPECT_EQ(State().strDataFolder, "C:\\tmp\\data\\tarvix");
    EXPECT_TRUE(Disk().Exists("C:\\tmp\\data\\tarvix\\TXAction 11.15.26 19.54.52.log"));
}

TEST_F(DataFolder, OfAProgramBesideAProtectedFolderIsNotRedirected) {
    machine.environment.programFolder = "C:\\optional\\tarvix";
    Disk().AddFolder("C:\\optional\\tarvix");
    Start();
    EXPECT_EQ(State().strDataFolder, "C:\\optional\\tarvix");
}

TEST_F(ProtectedProgram, KeepsItsDataUnderTheVirtualStore) {
    Start();
    EXPECT_TRUE(State().blnDataInVirtualStore);
    EXPECT_EQ(State().strDataFolder, std::string(kStore) + "\\opt\\tarvix");
    EXPECT_EQ(State().strActionLogFile,
              std::string(kStore) + "\\opt\\tarvix\\TXAction 11.15.26 19.54.52.log");
    EXPECT_TRUE(Disk().Exists(State().strActionLogFile));
}

TEST_F(ProtectedProgram, MakesTheTreeOnTheFirstStartAndLogsEachLevel) {
    Start();
    const std::string log = LogText();
    std::string level = "C:\\home\\ann\\.local\\share\\tarvix";
    for (const char* next : {"", "\\VirtualStore", "\\opt", "\\tarvix"}) {
        level += next;
        EXPECT_TRUE(HasEntry(log, " Created " + level)) << level;
    }
}

TEST_F(ProtectedProgram, MakesNothingWhenTheTreeStands) {
    Disk().AddFolder(std::string(kStore) + "\\opt\\tarvix");
    Start();
    EXPECT_EQ(LogText().find(" Created "), std::string::npos);
}

} // namespace
} // namespace tarvix::testing
