#include "actions/place/action_run.h"
#include "actions/place/recycle.h"
#include "tests/actions/bare_session.h"

#include <gmock/gmock.h>

namespace tarvix::actions {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Recycle : public BareSession {
  protected:
    Recycle() { AddRecycleEvents(session.events); }

    void Queue(const std::string& path) { queue.push_back({path, path}); }
    RecycleOutcome Run(bool blnNoPrompt = false, const RecycleObserver& observer = {}) {
        outcome = RecycleObjects(session, queue, blnNoPrompt, observer);
        return outcome;
    }
    void ExpectOutcome(std::size_t gone, std::size_t failed, bool partial, bool stopped = false) {
        EXPECT_EQ(outcome.gone, gone);
        EXPECT_EQ(outcome.failed, failed);
        EXPECT_EQ(outcome.blnPartial, partial);
        EXPECT_EQ(outcome.blnStopped, stopped);
    }
    void Answer(std::initializer_list<const char*> answers) {
        for (const char* answer : answers) {
            prompts.Queue(answer);
        }
    }
    // Three files; the middle one can't be recycled.
    void QueueThreeWithABadOne() {
        for (const char* path : {"C:\\t\\a", "C:\\t\\b", "C:\\t\\c"}) {
            Disk().AddFile(path);
            Queue(path);
        }
        machine.bin.Refuse("C:\\t\\b", 70);
    }
    std::vector<std::string> AskedAbout() {
        std::vector<std::string> asked;
        for (const auto& record : prompts.Records()) {
            asked.push_back(record.text.substr(0, record.text.find("\r\n")));
        }
        return asked;
    }
    std::string ErrorLog() { return Disk().Content("C:\\data\\error.log").value_or(""); }

    std::vector<RecycleEntry> queue;
    RecycleOutcome outcome;
};

TEST_F(Recycle, AnEmptyQueueIsDone) {
    EXPECT_TRUE(Run().Succeeded());
    ExpectOutcome(0, 0, false);
}

TEST_F(Recycle, AnObjectThatCannotGoHasItsReasonKept) {
    QueueThreeWithABadOne();
    machine.bin.Refuse("C:\\t\\b", platform::kDiskFull);
    Answer({"cmdNo"});
    Run();
    ExpectOutcome(2, 1, true);
    ASSERT_EQ(outcome.errors.size(), 1U);
    EXPECT_NE(outcome.errors.front().find("C:\\t\\b"), std::string::npos);
}

TEST_F(Recycle, TheWholeQueueGoesToTheBinAndCanComeBack) {
    Disk().AddFile("C:\\t\\a", "1");
    Disk().AddFile("C:\\t\\d\\e\\f", "2");
    Queue("C:\\t\\a");
    Queue("C:\\t\\d");
    EXPECT_TRUE(Run().Succeeded());
    ExpectOutcome(2, 0, false);
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\a", "C:\\t\\d"));
    ASSERT_TRUE(machine.bin.Restore("C:\\t\\d"));
    EXPECT_EQ(Disk().Content("C:\\t\\d\\e\\f"), "2");
}

TEST_F(Recycle, AFailureInTheMiddleCostsOnePromptAndTheRestIsSentAgain) {
    QueueThreeWithABadOne();
    Answer({"cmdNo"});
    Run();
    ExpectOutcome(2, 1, true);
    EXPECT_THAT(AskedAbout(), ElementsAre("C:\\t\\b"));
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\a", "C:\\t\\c"));
    EXPECT_TRUE(Disk().Exists("C:\\t\\b"));
}

TEST_F(Recycle, ThePromptTellsWhichAndItsCaptionsAreTold) {
    QueueThreeWithABadOne();
    Answer({"cmdNo"});
    Run();
    const auto& form = session.forms.frmOverrideRecycleFail;
    EXPECT_EQ(form.Caption, "Override Recycle Failure?");
    EXPECT_EQ(
        form.lblMain.Caption.Get(),
        "C:\\t\\b\r\n\r\n failed to be recycled. \r\nWould you like to delete anyway, without "
        "going to the recycle bin?");
    EXPECT_EQ(form.Focus, &form.cmdNo);
    EXPECT_EQ(form.cmdNo.Caption.Get(), "&No");
    EXPECT_EQ(form.cmdYes.Caption.Get(), "&Yes");
    EXPECT_EQ(form.cmdNoToAll.Caption.Get(), "N&o to all");
    EXPECT_EQ(form.cmdYesToAll.Caption.Get(), "Y&esToAll");
    EXPECT_EQ(form.cmdCancel.Caption.Get(), "&Cancel");
}

struct Answered {
    const char* button;
    int answer;
    const char* line;
    bool isDeleted;
};

constexpr Answered kAnswers[] = {
    {"cmdNo", 0, " User selected do not override recycle failure to: C:\\t\\b", false},
    {"cmdYes", 1, " User selected override recycle failure to: C:\\t\\b", true},
    {"cmdNoToAll", 2, " User selected do not override recycle failure to all at: C:\\t\\b", false},
    {"cmdYesToAll", 3, " User selected override recycle failure to all at: C:\\t\\b", true},
    {"cmdCancel", 4, " User selected cancel to all in override recycle failure form at: C:\\t\\b",
     false},
};

TEST_F(Recycle, EachAnswerIsLoggedAndDone) {
    for (const Answered& answered : kAnswers) {
        SCOPED_TRACE(answered.button);
        queue.clear();
        session.forms.frmOverrideRecycleFail.Answer = kOverrideNo;
        QueueThreeWithABadOne();
        Answer({answered.button});
        Run();
        EXPECT_EQ(session.forms.frmOverrideRecycleFail.Answer, answered.answer);
        EXPECT_TRUE(HasEntry(answered.line));
        EXPECT_EQ(Disk().Exists("C:\\t\\b"), !answered.isDeleted);
        EXPECT_EQ(Disk().Exists("C:\\t\\c"), answered.answer == 4) << "cancel leaves the rest";
    }
}

TEST_F(Recycle, WhatIsDeletedSinceRecycleFailedIsLogged) {
    QueueThreeWithABadOne();
    Answer({"cmdYes"});
    Run();
    ExpectOutcome(3, 0, true);
    EXPECT_EQ(outcome.deleted, 1U);
    EXPECT_TRUE(HasEntry(" Deleted C:\\t\\b since recycle failed."));
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\a", "C:\\t\\c"));
}

TEST_F(Recycle, ThreeFailuresInARowAreAskedAboutOneByOne) {
    for (const char* path : {"C:\\t\\a", "C:\\t\\b", "C:\\t\\c", "C:\\t\\d"}) {
        Disk().AddFile(path);
        Queue(path);
        if (path != std::string("C:\\t\\d")) machine.bin.Refuse(path, 70);
    }
    Answer({"cmdNo", "cmdYes", "cmdNo"});
    Run();
    ExpectOutcome(2, 2, true);
    EXPECT_THAT(AskedAbout(), ElementsAre("C:\\t\\a", "C:\\t\\b", "C:\\t\\c"));
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\d"));
}

TEST_F(Recycle, NoToAllStandsForTheRestAndAsksNoMore) {
    Disk().AddDrive("E:");
    machine.bin.SetHasTrash("E:", false);
    for (const char* path : {"E:\\a", "E:\\b", "E:\\c"}) {
        Disk().AddFile(path);
        Queue(path);
    }
    Answer({"cmdNoToAll"});
    Run();
    ExpectOutcome(0, 3, true);
    EXPECT_THAT(AskedAbout(), ElementsAre("E:\\a"));
    EXPECT_TRUE(Disk().Exists("E:\\c"));
}

TEST_F(Recycle, YesToAllDeletesTheRestUnasked) {
    Disk().AddDrive("E:");
    machine.bin.SetHasTrash("E:", false);
    for (const char* path : {"E:\\a", "E:\\b", "E:\\c"}) {
        Disk().AddFile(path);
        Queue(path);
    }
    Answer({"cmdNo", "cmdYesToAll"});
    Run();
    ExpectOutcome(2, 1, true);
    EXPECT_THAT(AskedAbout(), ElementsAre("E:\\a", "E:\\b"));
    EXPECT_TRUE(HasEntry(" Deleted E:\\c since recycle failed."));
    EXPECT_TRUE(Disk().Exists("E:\\a"));
}

TEST_F(Recycle, OneObjectThatFailsIsNoPartialFailure) {
    Disk().AddFile("C:\\t\\a");
    Queue("C:\\t\\a");
    machine.bin.Refuse("C:\\t\\a", 75);
    Answer({"cmdNo"});
    Run();
    ExpectOutcome(0, 1, false);
    EXPECT_THAT(AskedAbout(), ElementsAre("C:\\t\\a"));
}

TEST_F(Recycle, TheLastOfAQueueThatFailsIsStillAPartialFailure) {
    Disk().AddFile("C:\\t\\a");
    Disk().AddFile("C:\\t\\b");
    Queue("C:\\t\\a");
    Queue("C:\\t\\b");
    machine.bin.Refuse("C:\\t\\b", 75);
    Answer({"cmdNo"});
    Run();
    ExpectOutcome(1, 1, true);
}

TEST_F(Recycle, WithoutPromptsAFailureStandsAndTheRestGoesOn) {
    QueueThreeWithABadOne();
    Run(true);
    ExpectOutcome(2, 1, true);
    EXPECT_THAT(prompts.Records(), IsEmpty());
    EXPECT_EQ(Log().find("override"), std::string::npos);
}

TEST_F(Recycle, OneObjectWithoutPrompts) {
    Disk().AddFile("C:\\t\\a");
    Disk().AddFile("C:\\t\\b");
    machine.bin.Refuse("C:\\t\\b", 70);
    EXPECT_TRUE(RecycleOne(session, "C:\\t\\A")) << "as the file system finds it";
    EXPECT_FALSE(RecycleOne(session, "C:\\t\\B")) << "it is still there";
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\a"));
    EXPECT_THAT(prompts.Records(), IsEmpty());
}

TEST_F(Recycle, AFolderThatIsNotEmptyCannotBeDeletedForGoodAndIsRecordedAsAnError) {
    Disk().AddFile("C:\\t\\d\\f", "content");
    Queue("C:\\t\\d");
    machine.bin.Refuse("C:\\t\\d", 70);
    Answer({"cmdYes"});
    Run();
    ExpectOutcome(0, 1, false);
    EXPECT_EQ(Disk().Content("C:\\t\\d\\f"), "content");
    EXPECT_TRUE(ErrorLog().contains("Error Number = 75\r\n"));
    EXPECT_TRUE(ErrorLog().contains(" Object = C:\\t\\d\r\n Object Type =  folder \r\n"));
    EXPECT_TRUE(ErrorLog().contains(" Routine : OverrideRecycleFailure\r\n Module Module1\r\n"
                                    " Recovery : 4\r\n"));
    EXPECT_FALSE(Log().contains("Deleted"));
}

TEST_F(Recycle, AnEntryOfASplitQueueIsRecordedUnderItsOwnRoutine) {
    Disk().AddFile("C:\\t\\d\\f");
    Disk().AddFile("C:\\t\\z");
    Queue("C:\\t\\d");
    Queue("C:\\t\\z");
    machine.bin.Refuse("C:\\t\\d", 70);
    Answer({"cmdYes"});
    Run();
    EXPECT_TRUE(ErrorLog().contains(" Routine : OverrideRecycleFailureEntry\r\n"));
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\z")) << "the rest goes on";
}

TEST_F(Recycle, AnEmptyFolderIsDeletedForGoodWhenTheUserSaysSo) {
    Disk().AddFolder("C:\\t\\d").attributes = platform::kReadOnly;
    Queue("C:\\t\\d");
    machine.bin.Refuse("C:\\t\\d", 70);
    Answer({"cmdYes"});
    Run();
    ExpectOutcome(1, 0, false);
    EXPECT_FALSE(Disk().Exists("C:\\t\\d"));
}

TEST_F(Recycle, ADeletionDeniedIsTriedAgainWhenTheUserSaysSo) {
    Disk().AddFile("C:\\t\\a");
    Queue("C:\\t\\a");
    machine.bin.Refuse("C:\\t\\a", 70);
    machine.faults.FailCall("DeleteFile", 1, 70);
    Answer({"cmdYes", "Retry"});
    Run();
    ExpectOutcome(1, 0, false);
    EXPECT_EQ(prompts.Records().back().title, "Permission denied");
    EXPECT_FALSE(Disk().Exists("C:\\t\\a"));
}

TEST_F(Recycle, AReadOnlyFileIsRecycledAndDeletedForGoodAlike) {
    Disk().AddFile("C:\\t\\a").attributes = platform::kReadOnly;
    Disk().AddFile("C:\\t\\b").attributes = platform::kReadOnly;
    Queue("C:\\t\\a");
    Queue("C:\\t\\b");
    machine.bin.Refuse("C:\\t\\b", 70);
    Answer({"cmdYes"});
    Run();
    ExpectOutcome(2, 0, true);
    EXPECT_EQ(machine.bin.Items()[0].node->attributes & platform::kReadOnly, platform::kReadOnly);
}

TEST_F(Recycle, OfALinkToAFolderOnlyTheLinkIsDeletedForGood) {
    Disk().AddFile("C:\\d\\f", "content");
    Disk().AddLink("C:\\t\\link", "C:\\d");
    Queue("C:\\t\\link");
    machine.bin.Refuse("C:\\t\\link", 75);
    Answer({"cmdYes"});
    Run();
    ExpectOutcome(1, 0, false);
    EXPECT_FALSE(Disk().Exists("C:\\t\\link"));
    EXPECT_EQ(Disk().Content("C:\\d\\f"), "content");
}

TEST_F(Recycle, WhatWentWithItsFolderIsNoFailure) {
    Disk().AddFile("C:\\t\\d\\a");
    Disk().AddFile("C:\\t\\d\\e\\b");
    Disk().AddFile("C:\\t\\z");
    for (const char* path :
         {"C:\\t\\d", "C:\\t\\d\\a", "C:\\t\\d\\e", "C:\\t\\d\\e\\b", "C:\\t\\z"}) {
        Queue(path);
    }
    EXPECT_TRUE(Run().Succeeded());
    ExpectOutcome(5, 0, false);
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\d", "C:\\t\\z"));
    EXPECT_THAT(prompts.Records(), IsEmpty());
}

TEST_F(Recycle, WhatLiesInAFolderThatStaysIsRecycledItself) {
    Disk().AddFile("C:\\t\\d\\a");
    Disk().AddFile("C:\\t\\d\\b");
    for (const char* path : {"C:\\t\\d", "C:\\t\\d\\a", "C:\\t\\d\\b"}) {
        Queue(path);
    }
    machine.bin.Refuse("C:\\t\\d", 70);
    Answer({"cmdNo"});
    Run();
    ExpectOutcome(2, 1, true);
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\d\\a", "C:\\t\\d\\b"));
}

TEST_F(Recycle, AFileBeforeItsFolderGoesAlone) {
    Disk().AddFile("C:\\t\\d\\a");
    Queue("C:\\t\\d\\a");
    Queue("C:\\t\\d");
    EXPECT_TRUE(Run().Succeeded());
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\d\\a", "C:\\t\\d"));
}

TEST_F(Recycle, TheNeighbourOfAFolderThatWentIsLeftAlone) {
    Disk().AddFile("C:\\t\\d\\a");
    Disk().AddFile("C:\\t\\D\\a", "neighbour");
    Queue("C:\\t\\d");
    Queue("C:\\t\\d\\a");
    EXPECT_TRUE(Run().Succeeded());
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\d"));
    EXPECT_EQ(Disk().Content("C:\\t\\D\\a"), "neighbour");
}

TEST_F(Recycle, TheNeighbourOfAFileThatWentIsNeitherAskedAboutNorDeleted) {
    for (const char* path : {"C:\\t\\a", "C:\\t\\A", "C:\\t\\b"}) {
        Disk().AddFile(path, path);
    }
    Queue("C:\\t\\a");
    Queue("C:\\t\\b");
    machine.bin.Refuse("C:\\t\\b", 70);
    Answer({"cmdYesToAll"});
    Run();
    ExpectOutcome(2, 0, true);
    EXPECT_THAT(AskedAbout(), ElementsAre("C:\\t\\b"));
    EXPECT_EQ(Disk().Content("C:\\t\\A"), "C:\\t\\A");
}

TEST_F(Recycle, TheNeighbourOfAFileThatWentDuringThePromptIsNotDeleted) {
    Disk().AddFile("C:\\t\\a");
    Disk().AddFile("C:\\t\\A", "neighbour");
    Queue("C:\\t\\a");
    machine.faults.FailCall("Recycle", 1, 70);
    prompts.SetModalRunner([this](session::Session& shown, fields::Form& form) {
        if (!form.IsShown()) return false;
        Disk().Node("C:\\t\\a")->Detach();
        shown.events.Raise(shown, "frmOverrideRecycleFail.cmdYes_Click");
        return true;
    });
    Run();
    EXPECT_EQ(Disk().Content("C:\\t\\A"), "neighbour");
    EXPECT_TRUE(ErrorLog().contains("Error Number = 53\r\n"));
}

TEST_F(Recycle, TheNeighbourOfAFileThatWasGoneBeforeIsLeftAlone) {
    Disk().AddFile("C:\\t\\A", "neighbour");
    Queue("C:\\t\\a");
    EXPECT_TRUE(Run().Succeeded());
    EXPECT_EQ(Disk().Content("C:\\t\\A"), "neighbour");
}

TEST_F(Recycle, WhatIsGoneAlreadyIsNoFailureAndTheRestGoesOn) {
    Disk().AddFile("C:\\t\\z");
    Queue("C:\\t\\gone");
    Queue("C:\\t\\z");
    EXPECT_TRUE(Run().Succeeded());
    EXPECT_THAT(prompts.Records(), IsEmpty());
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\z"));
}

TEST_F(Recycle, AnObjectWhoseTypeCannotBeReadIsLoggedAndKept) {
    Disk().AddFile("C:\\t\\a");
    Disk().AddFile("C:\\t\\b");
    Queue("C:\\t\\a");
    Queue("C:\\t\\b");
    machine.bin.Refuse("C:\\t\\a", 70);
    machine.faults.FailPath("C:\\t\\a", 57, "Facts");
    Run();
    ExpectOutcome(1, 1, true);
    EXPECT_TRUE(HasEntry(" Was unable to determine the object type of: C:\\t\\a."));
    EXPECT_THAT(prompts.Records(), IsEmpty());
    EXPECT_TRUE(Disk().Exists("C:\\t\\a"));
}

TEST_F(Recycle, AnObjectThatCannotBeLookedUpIsNotTakenForGone) {
    QueueThreeWithABadOne();
    machine.faults.FailPath("C:\\t\\b", 70);
    Run();
    ExpectOutcome(2, 1, true);
    EXPECT_TRUE(HasEntry(" Was unable to determine the object type of: C:\\t\\b."));
}

TEST_F(Recycle, AStopEndsItBeforeTheNextObject) {
    QueueThreeWithABadOne();
    machine.bin.Refuse("C:\\t\\b", 0);
    Run(false, [](std::size_t done) { return done < 2; });
    ExpectOutcome(2, 0, false, true);
    EXPECT_TRUE(Disk().Exists("C:\\t\\c"));
    EXPECT_THAT(prompts.Records(), IsEmpty());
}

TEST_F(Recycle, TheObserverIsToldHowManyAreBehindItAcrossRetries) {
    QueueThreeWithABadOne();
    Answer({"cmdNo"});
    std::vector<std::size_t> told;
    Run(false, [&told](std::size_t done) {
        told.push_back(done);
        return true;
    });
    EXPECT_THAT(told, ElementsAre(0, 1, 2));
}

TEST_F(Recycle, AnInterruptedCallIsAFailureAndNoStop) {
    QueueThreeWithABadOne();
    machine.bin.Refuse("C:\\t\\b", 18);
    Answer({"cmdNo"});
    Run();
    ExpectOutcome(2, 1, true);
    EXPECT_THAT(AskedAbout(), ElementsAre("C:\\t\\b"));
}

TEST_F(Recycle, ManyObjectsAreSentAtOnce) {
    for (int i = 0; i < 1000; ++i) {
        const std::string path = "C:\\t\\f" + std::to_string(i);
        Disk().AddFile(path);
        Queue(path);
    }
    machine.faults.ResetCounts();
    EXPECT_TRUE(Run().Succeeded());
    EXPECT_EQ(machine.faults.Count("Recycle"), 1000U);
    EXPECT_EQ(machine.faults.Count(), 2000U) << "each is looked up once, and nothing besides";
}

} // namespace
} // namespace tarvix::actions
