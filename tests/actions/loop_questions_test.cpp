#include "results/outcome_list.h"
#include "session/object_loop.h"
#include "session/prompt_id.h"
#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarvix::testing {
namespace {

using session::PromptId;

class LoopQuestions : public ActionFixture {
  protected:
    void AddFiles(int count) {
        for (int i = 0; i < count; ++i)
            Disk().AddFile("C:\\t\\" + std::to_string(i), "x");
    }
    std::size_t Asked(PromptId id) {
        return static_cast<std::size_t>(
            std::ranges::count(prompts.Records(), id, &session::PromptRecord::id));
    }
};

TEST_F(LoopQuestions, SkipAllLikeThisIsAskedOnceForEqualFailures) {
    AddFiles(5);
    machine.faults.FailAll("CopyFile", platform::kPermissionDenied);
    Find();
    Copy(To("C:\\d"), {"OK", "Skip All Like This"});
    EXPECT_EQ(Asked(PromptId::kPermissionDenied), 1U);
    ExpectTotals(0, 0, 5);
    EXPECT_EQ(program.Outcomes().CountOf(results::OutcomeMark::kFailed), 5);
    ExpectLog({" User selected to skip all objects with the same trouble."});
}

TEST_F(LoopQuestions, AnotherTroubleIsAskedAbout) {
    AddFiles(3);
    machine.faults.FailPath("C:\\t\\0", platform::kPermissionDenied, "CopyFile");
    machine.faults.FailPath("C:\\t\\1", platform::kFileNotFound, "CopyFile");
    machine.faults.FailPath("C:\\t\\2", platform::kPermissionDenied, "CopyFile");
    Find();
    Copy(To("C:\\d"), {"OK", "Skip All Like This", "No"});
    EXPECT_EQ(Asked(PromptId::kPermissionDenied), 1U);
    EXPECT_EQ(Asked(PromptId::kFileNotFound), 1U);
    ExpectTotals(0, 0, 3);
}

TEST_F(LoopQuestions, UnexpectedErrorsAreToldApartByTheirNumbers) {
    AddFiles(3);
    machine.faults.FailPath("C:\\t\\0", platform::kDeviceError, "CopyFile");
    machine.faults.FailPath("C:\\t\\1", platform::kTooManyFiles, "CopyFile");
    machine.faults.FailPath("C:\\t\\2", platform::kDeviceError, "CopyFile");
    Find();
    Copy(To("C:\\d"), {"OK", "Skip All Like This", "OK"});
    EXPECT_EQ(Asked(PromptId::kUnexpectedError), 2U);
}

TEST_F(LoopQuestions, StopEndsTheActionAndTheRestIsNotReached) {
    AddFiles(4);
    machine.faults.FailPath("C:\\t\\1", platform::kPermissionDenied, "CopyFile");
    Find();
    Copy(To("C:\\d"), {"OK", "Stop"});
    ExpectTotals(1, 0, 1);
    EXPECT_EQ(program.Outcomes().CountOf(results::OutcomeMark::kNotReached), 2);
    EXPECT_FALSE(Disk().Content("C:\\d\\2").has_value());
}

TEST_F(LoopQuestions, TheNextActionAsksAgain) {
    AddFiles(2);
    machine.faults.FailAll("CopyFile", platform::kPermissionDenied);
    Find();
    Copy(To("C:\\d"), {"OK", "Skip All Like This"});
    Copy(To("C:\\d"), {"OK", "Skip All Like This"});
    EXPECT_EQ(Asked(PromptId::kPermissionDenied), 2U);
}

TEST_F(LoopQuestions, OneObjectIsNoLoop) {
    AddFiles(1);
    machine.faults.FailAll("CopyFile", platform::kPermissionDenied);
    Find();
    Copy(To("C:\\d"), {"OK", "Cancel"});
    ASSERT_EQ(Asked(PromptId::kPermissionDenied), 1U);
    EXPECT_FALSE(prompts.Records().back().isInLoop);
}

TEST_F(LoopQuestions, NamesThatAreTakenCanBeSkippedAtOnceAndTheWindowCloses) {
    for (const char* name : {"a1", "a2", "a3"}) {
        Disk().AddFile(std::string("C:\\t\\") + name + ".txt", "x");
        Disk().AddFile(std::string("C:\\t\\b") + (name + 1) + ".txt", "stood there");
    }
    Find(0, "C:\\t", "a*");
    Do(Form().cmdRenameSelected,
       [this](fields::FrmDialog& form) {
           Set(form.chkFindReplace, "1");
           Set(form.txtFind, "a");
           Set(form.txtReplace, "b");
       },
       {"OK", "Skip All Like This"});
    EXPECT_EQ(Asked(PromptId::kRenameTakenGoOn), 1U);
    EXPECT_FALSE(stayedOpen);
    ExpectTotals(0, 3, 0);
}

// ---- a stop in the middle of a copy ----

TEST_F(LoopQuestions, ASecondStopEndsTheCopyInHandAndLeavesNothingOfIt) {
    Disk().AddFile("C:\\t\\a", "first");
    Disk().AddFileOfSize("C:\\t\\b", 64U * 1024 * 1024);
    Disk().AddFile("C:\\t\\c", "third");
    Find();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("CopyFile", 3, [this] {
        Click(Dialog().cmdStop);
        EXPECT_EQ(Dialog().cmdStop.Caption.Get(), "Stop Now");
        Click(Dialog().cmdStop);
    });
    Copy(To("C:\\d"));
    EXPECT_EQ(Disk().Content("C:\\d\\a"), "first");
    EXPECT_THAT(Disk().AllFiles(), ::testing::Not(::testing::Contains("C:\\d\\b")));
    ExpectTotals(1, 0, 0);
    EXPECT_EQ(program.Outcomes().CountOf(results::OutcomeMark::kNotReached), 2);
    EXPECT_EQ(Asked(PromptId::kUnexpectedError), 0U);
}

TEST(ObjectLoop, KnowsNothingOutsideOfItsLife) {
    session::ObjectLoop loop;
    EXPECT_FALSE(loop.Covers(PromptId::kPermissionDenied));
    loop.Begin(2);
    EXPECT_TRUE(loop.Covers(PromptId::kPermissionDenied));
    EXPECT_FALSE(loop.Covers(PromptId::kConfirmCopyOrMove));
    loop.SkipAll(PromptId::kPermissionDenied, 0);
    EXPECT_TRUE(loop.IsSkipped(PromptId::kPermissionDenied, 0));
    loop.End();
    loop.Begin(2);
    EXPECT_FALSE(loop.IsSkipped(PromptId::kPermissionDenied, 0));
}

} // namespace
} // namespace tarvix::testing
