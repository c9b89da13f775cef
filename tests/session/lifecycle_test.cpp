#include "session/product.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

const std::string kFolder = "C:\\home\\ann\\tarvix\\";

class Lifecycle : public ProgramFixture {
  protected:
    // The place of the first call of an operation on that file, among all calls.
    std::size_t FirstCall(std::string_view operation, const std::string& name) {
        const auto& calls = machine.faults.Calls();
        for (std::size_t i = 0; i < calls.size(); ++i) {
            const bool isOn = calls[i].path == kFolder + name || calls[i].target == kFolder + name;
            if (calls[i].operation == operation && isOn) return i;
        }
        ADD_FAILURE() << operation << " of " << name << " was not called";
        return 0;
    }
    static std::string Options() {
        return "x\r\n" + std::string(session::ProductVersion()) + "\r\n*EOF";
    }
};

TEST_F(Lifecycle, TheStartReadsItsFilesInOrder) {
    Disk().AddFile(kFolder + "TXOptionFile.txt", Options());
    for (const char* name :
         {"TXFSSearchHistoryFile.txt", "TXFSFolderHistoryFile.txt", "TXFDFolderHistoryFile.txt"}) {
        Disk().AddFile(kFolder + name, "C:\\x\r\n1/2/2026\r\n*EOF");
    }
    Start();
    const std::vector<std::size_t> order{
        FirstCall("OpenAsTextStream", "TXPlatform.txt"),
        FirstCall("OpenAsTextStream", "TXOptionFile.txt"),
        FirstCall("CopyFile", "TXOptionFile.bak"),
        FirstCall("CreateTextFile", "TXAction 11.15.26 19.54.52.log"),
        FirstCall("CreateTextFile", "TXProgramError.log"),
        FirstCall("OpenAsTextStream", "TXFSSearchHistoryFile.txt"),
        FirstCall("OpenAsTextStream", "TXFSFolderHistoryFile.txt"),
        FirstCall("OpenAsTextStream", "TXFDFolderHistoryFile.txt"),
    };
    EXPECT_TRUE(std::ranges::is_sorted(order)) << ::testing::PrintToString(order);
}

TEST_F(Lifecycle, TheStopWritesItsFilesInOrderAndTheErrorLogLast) {
    Start();
    Disk().AddFile(kFolder + "TXFSSearchHistoryFile.txt", "");
    machine.faults.ResetCounts();
    program.Stop();
    const std::vector<std::size_t> order{
        FirstCall("CreateTextFile", "TXFSSearchHistoryFile.txt.tmp"),
        FirstCall("CreateTextFile", "TXFSFolderHistoryFile.txt.tmp"),
        FirstCall("CreateTextFile", "TXFDFolderHistoryFile.txt.tmp"),
        FirstCall("CreateTextFile", "TXOptionFile.txt.tmp"),
        FirstCall("CreateTextFile", "TXPlatform.txt.tmp"),
    };
    EXPECT_TRUE(std::ranges::is_sorted(order)) << ::testing::PrintToString(order);
    EXPECT_THAT(*Disk().Content(kFolder + "TXProgramError.log"), HasSubstr("Closed Error Log at "));
}

TEST_F(Lifecycle, FilesThatWouldStayTheSameAreNotWritten) {
    Start();
    program.Stop();
    app::Program second(machine.platform, prompts);
    second.Start("");
    second.Stop();
    app::Program third(machine.platform, prompts);
    machine.faults.ResetCounts();
    third.Start("");
    third.Stop();
    for (const auto& call : machine.faults.Calls()) {
        const bool writes = call.operation == "CopyFile" || call.operation == "ReplaceContent";
        EXPECT_FALSE(writes) << call.operation << ' ' << call.path;
    }
    EXPECT_TRUE(Disk().Content(kFolder + "TXOptionFile.bak"));
}

TEST_F(Lifecycle, NothingIsLeftBesideTheFiles) {
    Start();
    program.Stop();
    for (const std::string& file : Disk().AllFiles()) {
        EXPECT_EQ(file.find(".tmp"), std::string::npos) << file;
        EXPECT_EQ(file.find("WriteTest"), std::string::npos) << file;
    }
}

TEST_F(Lifecycle, AFullDiskIsToldOnceAndEveryFileStands) {
    Start();
    program.Stop();
    app::Program next(machine.platform, prompts);
    next.Start("");
    next.Session().state.options.blnSort = true;
    const std::string before = *Disk().Content(kFolder + "TXOptionFile.txt");
    machine.faults.FailAll("Write", platform::kDiskFull);
    next.Stop();
    EXPECT_EQ(Disk().Content(kFolder + "TXOptionFile.txt"), before);
    EXPECT_EQ(TimesTold("The data folder can't be written: C:\\home\\ann\\tarvix\r\n\r\n"), 1U);
    EXPECT_FALSE(WasTold("SaveOptionFile")) << "not file by file";
}

TEST_F(Lifecycle, ADataFolderThatTakesNothingIsToldOnceAtTheEnd) {
    Start();
    machine.faults.FailAll("CreateTextFile", platform::kPermissionDenied);
    program.Stop();
    EXPECT_EQ(TimesTold("The data folder can't be written: "), 1U);
    EXPECT_EQ(prompts.Records().size(), 1U);
    EXPECT_TRUE(State().blnEnded);
}

TEST_F(Lifecycle, ADataFolderThatTakesNothingIsToldOnceAtTheStartAndASearchGoesOn) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile(kFolder + "TXFSSearchHistoryFile.txt", "*EOF");
    machine.faults.FailAll("CreateTextFile", platform::kPermissionDenied);
    Start();
    Search("*", "C:\\t");
    program.Stop();
    EXPECT_EQ(Names(), std::vector<std::string>{"a.txt"});
    EXPECT_EQ(TimesTold("The data folder can't be written: "), 1U);
    EXPECT_EQ(prompts.Records().size(), 1U);
}

TEST_F(Lifecycle, WhatAKilledRunWasSavingIsTakenAwayAndLogged) {
    for (const char* name : {"TXOptionFile.txt.tmp", "TXPlatform.txt.tmp3", "notes.tmp"}) {
        Disk().AddFile(kFolder + name, "half");
    }
    Disk().UseClock([this] { return machine.clock.NowAsFileTime(); });
    Disk().AddFile(kFolder + "TXFSSearchHistoryFile.txt.tmp", "another copy saves");
    Start();
    EXPECT_FALSE(Disk().Exists(kFolder + "TXOptionFile.txt.tmp"));
    EXPECT_FALSE(Disk().Exists(kFolder + "TXPlatform.txt.tmp3"));
    EXPECT_TRUE(Disk().Exists(kFolder + "notes.tmp"));
    EXPECT_TRUE(Disk().Exists(kFolder + "TXFSSearchHistoryFile.txt.tmp"));
    EXPECT_TRUE(HasEntry(LogText(), " Removed " + kFolder +
                                        "TXOptionFile.txt.tmp, which a run that ended while it "
                                        "saved had left."));
}

TEST_F(Lifecycle, AStartThatNeverCameToItsEndSavesNothing) {
    Disk().AddFile(kFolder + "TXOptionFile.txt", "mine");
    program.Stop();
    EXPECT_EQ(Disk().Content(kFolder + "TXOptionFile.txt"), "mine");
    EXPECT_TRUE(State().blnEnded);
}

TEST_F(Lifecycle, AWindowTooSmallStillWritesTheOptions) {
    Start();
    Form().Width = 11999;
    Form().State = fields::WindowState::kMaximized;
    S().events.Raise(S(), "frmSearch.Form_Resize");
    EXPECT_TRUE(State().blnEnded);
    EXPECT_TRUE(Disk().Exists(kFolder + "TXOptionFile.txt"));
}

} // namespace
} // namespace tarvix::testing
