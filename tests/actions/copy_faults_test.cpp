#include "tests/support/program_fixture.h"

#include <algorithm>
#include <map>

namespace tarvix::testing {
namespace {

// What lies on the disk of one machine before a search and a copy.
const std::map<std::string, std::string>& Sources() {
    static const std::map<std::string, std::string> sources{
        {"C:\\t\\a.txt", "content of a"},
        {"C:\\t\\b.txt", "content of b"},
        {"C:\\t\\sub\\c.txt", "content of c"},
        {"C:\\t\\sub\\deep\\d.txt", "content of d"}};
    return sources;
}

// One program on a disk of its own, for one run with one fault.
class FaultyRun : public ProgramFixture {
  public:
    void TestBody() override {}

    FaultyRun() {
        for (const auto& [path, content] : Sources()) {
            Disk().AddFile(path, content);
        }
        Disk().AddFile("C:\\d\\a.txt", "stood there before");
        Start();
        WithSubfolders();
        machine.faults.ResetCounts();
    }
    platform::FaultyFileSystem& Faults() { return machine.faults; }
    platform::MemoryFileSystem& TheDisk() { return Disk(); }

    void SearchAndCopy(int kind) {
        Choose(Form().optFilesVsDirs, kind);
        Search("*", "C:\\t");
        Click(Form().cmdSelectAll);
        if (program.Selection().lngSelTop < 0) return;
        if (kind == 2 && NeedsSecondThought()) prompts.Queue("OK");
        CopySelected("C:\\d\\new");
    }

    // Two folders, or a folder and a file, are asked about in the mode for all objects.
    bool NeedsSecondThought() {
        const auto& isFile = program.Selection().blnSelIsFile;
        const auto folders = std::ranges::count(isFile, false);
        return folders >= 2 || (folders == 1 && isFile.size() > 1);
    }

    void ExpectNothingLost(const std::string& when) {
        for (const auto& [path, content] : Sources()) {
            EXPECT_EQ(Disk().Content(path), content) << path << " " << when;
        }
        EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "stood there before") << when;
        for (const std::string& path : Disk().AllFiles()) {
            if (!path.starts_with("C:\\d\\new\\")) continue;
            const std::string content = Disk().Content(path).value_or("");
            const bool isWhole = std::ranges::any_of(
                Sources(), [&](const auto& source) { return source.second == content; });
            EXPECT_TRUE(isWhole) << path << " holds \"" << content << "\" " << when;
        }
        EXPECT_FALSE(State().blnSearching) << when;
        EXPECT_TRUE(Form().cmdSearch.Enabled) << when;
        EXPECT_FALSE(S().frmDialog.IsShown()) << when;
    }
};

std::size_t CallsOf(int kind) {
    FaultyRun run;
    run.SearchAndCopy(kind);
    return run.Faults().Count();
}

class FaultAtEveryCall : public ::testing::TestWithParam<int> {};

TEST_P(FaultAtEveryCall, LosesNothingWhateverFails) {
    for (const int kind : {0, 2, 3}) {
        const std::size_t calls = CallsOf(kind);
        ASSERT_GT(calls, 10U);
        for (std::size_t n = 1; n <= calls + 1; ++n) {
            FaultyRun run;
            run.Faults().FailCall(n, GetParam());
            run.SearchAndCopy(kind);
            run.ExpectNothingLost("when call " + std::to_string(n) + " of kind " +
                                  std::to_string(kind) + " fails");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Errors, FaultAtEveryCall,
                         ::testing::Values(platform::kInvalidCall, platform::kInterrupted,
                                           platform::kBadFileName, platform::kFileNotFound,
                                           platform::kAlreadyExists, platform::kDiskFull,
                                           platform::kPermissionDenied, platform::kDiskNotReady,
                                           platform::kPathFileAccess, platform::kPathNotFound));

TEST(FaultAtEveryOperation, EveryCallOfOneKindFailing) {
    for (const char* operation : {"Facts", "TruePath", "ShortPath", "Open", "List", "FolderFacts",
                                  "CopyFile", "CopyFolder", "CreateFolder", "Write"}) {
        for (const int kind : {0, 2, 3}) {
            FaultyRun run;
            run.Faults().FailAll(operation, platform::kPermissionDenied);
            run.SearchAndCopy(kind);
            run.ExpectNothingLost(std::string("when every ") + operation + " fails");
        }
    }
}

TEST(ChangesInBetween, ADuplicateThatAppearsBetweenTestAndCopyIsKept) {
    FaultyRun run;
    run.TheDisk().AddFolder("C:\\d\\new");
    run.Faults().BeforeCall(
        "CopyFile", 1, [&] { run.TheDisk().AddFile("C:\\d\\new\\a.txt", "appeared meanwhile"); });
    run.SearchAndCopy(0);
    EXPECT_EQ(run.TheDisk().Content("C:\\d\\new\\a.txt"), "appeared meanwhile");
    EXPECT_EQ(run.TheDisk().Content("C:\\d\\new\\b.txt"), "content of b");
}

TEST(ChangesInBetween, ADestinationThatVanishesIsMadeAgain) {
    FaultyRun run;
    run.TheDisk().AddFolder("C:\\d\\new");
    run.Faults().BeforeCall("CopyFile", 2, [&] { run.TheDisk().Node("C:\\d\\new")->Detach(); });
    run.SearchAndCopy(0);
    EXPECT_EQ(run.TheDisk().Content("C:\\d\\new\\b.txt"), "content of b");
}

TEST(ChangesInBetween, AnInterruptedCopyLeavesNoPartUnderItsName) {
    FaultyRun run;
    run.TheDisk().AddFolder("C:\\d\\new");
    run.Faults().FailCall("CopyFile", 2, platform::kInterrupted);
    run.SearchAndCopy(0);
    EXPECT_FALSE(run.TheDisk().Exists("C:\\d\\new\\b.txt"));
    EXPECT_EQ(run.TheDisk().Content("C:\\d\\new\\c.txt"), "content of c");
    run.ExpectNothingLost("after an interruption");
}

} // namespace
} // namespace tarvix::testing
