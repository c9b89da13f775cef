#include "actions/place/engine.h"
#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarvix::testing {
namespace {

using platform::kHidden;
using platform::kReadOnly;
using platform::kSystem;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Engine : public ActionFixture {
  protected:
    Engine() {
        Disk().AddFile("C:\\t\\a.txt", "new");
        Disk().AddFolder("C:\\d");
    }
    std::uint32_t MarksOf(std::string_view path) {
        return Disk().Node(path)->attributes & (kReadOnly | kHidden | kSystem);
    }
};

// ---- attributes ----

TEST_F(Engine, AMovedReadOnlyFileStaysReadOnly) {
    Disk().Node("C:\\t\\a.txt")->attributes |= kReadOnly;
    Find();
    Move(To("C:\\d"));
    EXPECT_FALSE(Disk().Exists("C:\\t\\a.txt"));
    EXPECT_EQ(MarksOf("C:\\d\\a.txt"), std::uint32_t{kReadOnly});
    ExpectLog({" Move C:\\t\\a.txt -- to -- C:\\d\\a.txt."});
}

TEST_F(Engine, AFailedCopyRestoresTheMarksOfItsSource) {
    Disk().Node("C:\\t\\a.txt")->attributes |= kReadOnly;
    Find();
    machine.faults.FailAll("CopyFile", platform::kPathFileAccess);
    Copy(To("C:\\d"));
    EXPECT_EQ(MarksOf("C:\\t\\a.txt"), std::uint32_t{kReadOnly});
    ExpectTotals(0, 0, 1);
}

TEST_F(Engine, BlanksNextToSeparatorsAreCleanedButANameOfBlanksStays) {
    EXPECT_EQ(actions::CleanedDestination("C:\\d \\ sub\\ a "), "C:\\d\\sub\\a");
    EXPECT_EQ(actions::CleanedDestination("C:\\d\\ "), "C:\\d\\ ");
    EXPECT_EQ(actions::CleanedDestination("C:\\a"), "C:\\a");
    EXPECT_EQ(actions::CleanedDestination("C:\\ d\\ a", true), "C:\\ d\\a");
}

TEST_F(Engine, OnlyFourAttributesAreCombined) {
    EXPECT_EQ(actions::CombineAttributes(1, 2 | 2048), 3U);
    EXPECT_EQ(actions::CombineAttributes(4 | 16, 32 | 1024), 36U);
    EXPECT_EQ(actions::CombineAttributes(0, 0), 0U);
}

// ---- protected objects ----

TEST_F(Engine, AMoveOfAProtectedObjectIsACopyWithOneNotice) {
    Disk().Node("C:\\t\\a.txt")->attributes |= kSystem;
    Disk().AddFile("C:\\t\\b.txt", "b").attributes |= kHidden;
    Find();
    Move(To("C:\\d"));
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "new");
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "new");
    EXPECT_EQ(Disk().Content("C:\\d\\b.txt"), "b");
    EXPECT_EQ(TimesTold("system or hidden"), 1U);
    EXPECT_THAT(Told(), Contains("C:\\t\\a.txt\r\n\r\n has the attribute(s) system or hidden. "
                                 "\r\n\r\nFile C:\\t\\a.txt, and all others like it, will be "
                                 "copied and the original will still exist.\r\nAssuming there "
                                 "are no other errors.\r\n\r\nYou will not see this warning again "
                                 "this session."));
}

TEST_F(Engine, AnOverwriteByAProtectedObjectIsAskedAbout) {
    Disk().Node("C:\\t\\a.txt")->attributes |= kSystem;
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find();
    std::string question;
    onForm = [&](fields::Form&) { question = S().forms.frmOverrideDialog.lblMain.Caption.Get(); };
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(question, "C:\\t\\a.txt\r\n has the attribute(s) system or hidden. \r\nFile was not "
                        "overwritten. \r\n\r\nWould you like to overwrite anyway?");
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
    ExpectLog({" User selected do not override to: C:\\t\\a.txt",
               " User did not override in override form, of C:\\t\\a.txt to overwrite "
               "C:\\d\\a.txt"});
}

TEST_F(Engine, AnOverrideForAllStandsAndACancelEndsTheLoop) {
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        Disk().AddFile("C:\\t\\" + std::string(name), "new").attributes |= kSystem;
        Disk().AddFile("C:\\d\\" + std::string(name), "old");
    }
    Find();
    Copy(To("C:\\d", "chkOverWrite"), {"OK", "cmdNo", "cmdYesToAll"});
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
    EXPECT_EQ(Disk().Content("C:\\d\\b.txt"), "new");
    EXPECT_EQ(Disk().Content("C:\\d\\c.txt"), "new");
    Disk().AddFile("C:\\d\\c.txt", "old again");
    Find();
    Copy(To("C:\\d", "chkOverWrite"), {"OK", "cmdCancel"});
    EXPECT_EQ(Disk().Content("C:\\d\\c.txt"), "old again");
    ExpectLog({" User selected override to all at: C:\\t\\b.txt",
               " User selected cancel to all in override form at: C:\\t\\a.txt",
               " User canceled delete of rest of files"});
}

// ---- permission denied ----

TEST_F(Engine, AMoveThatIsRefusedBecomesCopyAndRecycle) {
    Find();
    machine.faults.FailCall("MoveFile", 1, platform::kPermissionDenied);
    Move(To("C:\\d"));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "new");
    EXPECT_FALSE(Disk().Exists("C:\\t\\a.txt"));
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\a.txt"));
    ExpectTotals(1, 0, 0);
    ExpectLog({" Move C:\\t\\a.txt -- to -- C:\\d\\a.txt forcedby copying and deleting."});
}

TEST_F(Engine, AForcedMoveWhoseCopyIsPartialKeepsItsSource) {
    Disk().AddFile("C:\\t\\sub\\1.txt", "1");
    Disk().AddFile("C:\\t\\sub\\2.txt", "2").isUnreadable = true;
    Find(3);
    machine.faults.FailCall("MoveFolder", 1, platform::kPermissionDenied);
    Move(To("C:\\d"));
    EXPECT_EQ(Disk().Content("C:\\t\\sub\\1.txt"), "1");
    EXPECT_EQ(Disk().Content("C:\\t\\sub\\2.txt"), "2");
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
    ExpectTotals(0, 0, 1);
}

TEST_F(Engine, AForcedMoveWhoseSourceCannotGoSaysSo) {
    Find();
    machine.faults.FailCall("MoveFile", 1, platform::kPermissionDenied);
    machine.bin.Refuse("C:\\t\\a.txt", platform::kPermissionDenied);
    Move(To("C:\\d"));
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "new");
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "new");
    ExpectLog({" Was unable to delete C:\\t\\a.txt to recycle bin (file already copied)."});
}

TEST_F(Engine, AFolderMovesToAnotherDriveByCopyAndRecycle) {
    Disk().AddDrive("E:");
    Disk().AddFile("C:\\t\\sub\\1.txt", "1");
    Find(3);
    Move(To("E:\\d"));
    EXPECT_EQ(Disk().Content("E:\\d\\sub\\1.txt"), "1");
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\sub"));
}

TEST_F(Engine, AFileMovesToAnotherDriveAndLeavesNothingBehind) {
    Disk().AddDrive("E:");
    Find();
    Move(To("E:\\d"));
    EXPECT_EQ(Disk().Content("E:\\d\\a.txt"), "new");
    EXPECT_FALSE(Disk().Exists("C:\\t\\a.txt"));
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
}

TEST_F(Engine, AnOverwriteThatIsRefusedIsForcedAndReported) {
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find();
    machine.faults.FailCall("CopyFile", 1, platform::kPermissionDenied);
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "new");
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\d\\a.txt"));
    EXPECT_TRUE(State().blnErrorOccurred);
    ExpectLog({" Copy C:\\t\\a.txt -- to -- C:\\d\\a.txt forced."});
}

TEST_F(Engine, ARefusedCopyIsTriedAgainAsOftenAsTheUserSays) {
    Find();
    machine.faults.FailCall("CopyFile", 1, platform::kPermissionDenied);
    machine.faults.FailCall("CopyFile", 2, platform::kPermissionDenied);
    Copy(To("C:\\d"), {"OK", "Retry", "Retry"});
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "new");
    EXPECT_EQ(TimesTold("Permission denied on C:\\t\\a.txt or C:\\d\\a.txt action not performed."),
              2U);
    ExpectTotals(1, 0, 0);
}

TEST_F(Engine, AFolderCopiedInPartIsCopiedAnewOnRetry) {
    Disk().AddFile("C:\\t\\sub\\1.txt", "1");
    auto& locked = Disk().AddFile("C:\\t\\sub\\2.txt", "2");
    locked.isUnreadable = true;
    Find(3);
    machine.faults.BeforeCall("CopyFolder", 2, [&] { locked.isUnreadable = false; });
    Copy(To("C:\\d"), {"OK", "Retry"});
    EXPECT_EQ(Disk().Content("C:\\d\\sub\\1.txt"), "1");
    EXPECT_EQ(Disk().Content("C:\\d\\sub\\2.txt"), "2");
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
    ExpectTotals(1, 0, 0);
}

// ---- path not found ----

TEST_F(Engine, AFolderTooDeepIsTakenBackWhenItWasOurs) {
    Disk().AddFile("C:\\t\\sub\\1.txt", "1");
    Find(3);
    machine.faults.FailCall("CopyFolder", 1, platform::kPathNotFound);
    Copy(To("C:\\d"));
    EXPECT_TRUE(WasTold(" Folder: C:\\t\\sub\r\n\r\ncontains objects whose path exceed 259 "
                        "characters, skipped."));
    EXPECT_FALSE(Disk().Exists("C:\\d\\sub"));
}

TEST_F(Engine, AFolderThatIsGoneMeanwhileIsTold) {
    Disk().AddFile("C:\\t\\sub\\1.txt", "1");
    Find(3);
    machine.faults.BeforeCall("CopyFolder", 1, [this] { Disk().Node("C:\\t\\sub")->Detach(); });
    Copy(To("C:\\d"));
    EXPECT_TRUE(WasTold(" Folder: C:\\t\\sub\r\n\r\nor Folder: C:\\d\\sub\r\n\r\n has already been "
                        "removed, skipped."));
}

TEST_F(Engine, AFolderThatAppearsMeanwhileIsNeverFilledNorTakenAway) {
    Disk().AddFile("C:\\t\\sub\\1.txt", "1");
    Find(3);
    machine.faults.ResetCounts();
    // Right after the test for a duplicate.
    const auto appear = [this] {
        const auto& calls = machine.faults.Calls();
        const bool wasTested = std::any_of(calls.begin(), calls.end() - 1, [](const auto& call) {
            return call.operation == "KnownFree" && call.path == "C:\\d\\sub";
        });
        if (wasTested) Disk().AddFile("C:\\d\\sub\\mine", "mine");
    };
    for (std::size_t call = 1; call <= 30; ++call) {
        machine.faults.BeforeCall("Facts", call, appear);
    }
    Copy(To("C:\\d"));
    EXPECT_EQ(Disk().Content("C:\\d\\sub\\mine"), "mine");
    EXPECT_FALSE(Disk().Exists("C:\\d\\sub\\1.txt"));
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
    ExpectTotals(0, 1, 0);
}

TEST_F(Engine, AFileThatAppearsMeanwhileIsADuplicateAsAnyOther) {
    Disk().AddFile("C:\\t\\1.txt", "1");
    Find();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("CopyFile", 1, [this] { Disk().AddFile("C:\\d\\1.txt", "theirs"); });
    Copy(To("C:\\d"));
    EXPECT_EQ(Disk().Content("C:\\d\\1.txt"), "theirs");
    ExpectTotals(1, 1, 0);
}

TEST_F(Engine, AFileThatAppearsMeanwhileIsNotMovedOver) {
    Disk().AddFile("C:\\t\\1.txt", "1");
    Find();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("MoveFile", 1, [this] { Disk().AddFile("C:\\d\\1.txt", "theirs"); });
    Move(To("C:\\d"));
    EXPECT_EQ(Disk().Content("C:\\d\\1.txt"), "theirs");
    EXPECT_EQ(Disk().Content("C:\\t\\1.txt"), "1");
    ExpectTotals(1, 1, 0);
}

TEST_F(Engine, ANewNameThatIsTakenMeanwhileGivesWayToTheNext) {
    Disk().AddFile("C:\\t\\1.txt", "1");
    Disk().AddFile("C:\\d\\1.txt", "there");
    Find();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("CopyFile", 1, [this] { Disk().AddFile("C:\\d\\1_.txt", "theirs"); });
    Copy([this](fields::FrmDialog& form) {
        To("C:\\d", "chkRename")(form);
        Set(form.txtRename, "_");
    });
    EXPECT_EQ(Disk().Content("C:\\d\\1.txt"), "there");
    EXPECT_EQ(Disk().Content("C:\\d\\1_.txt"), "theirs");
    EXPECT_EQ(Disk().Content("C:\\d\\1__.txt"), "1");
    ExpectTotals(2, 0, 0);
}

// ---- long paths ----

class LongPath : public Engine {
  protected:
    // C:\d\yyy...\a.txt of `length` characters.
    std::string Folder(std::size_t length) {
        return "C:\\d\\" + std::string(100, 'x') + "\\" + std::string(length - 6 - 106, 'y');
    }
};

TEST_F(LongPath, APathOf254CharactersIsNotAskedAbout) {
    Find();
    int asked = 0;
    onForm = [&](fields::Form&) { ++asked; };
    Copy(To(Folder(254)));
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(Disk().Content(Folder(254) + "\\a.txt"), "new");
}

TEST_F(LongPath, OneOf255IsSkippedByTheSafeAnswer) {
    Find();
    std::string question;
    onForm = [&](fields::Form&) { question = S().forms.frmAsk259.lblMain.Caption.Get(); };
    Copy(To(Folder(255)));
    EXPECT_TRUE(
        question.starts_with("Routine - CopyObject is attempting to copy\\move\\rename this "
                             "object: \r\n\r\nC:\\t\r\n\r\nto: \r\n\r\n"))
        << question;
    EXPECT_FALSE(Disk().Exists(Folder(255) + "\\a.txt"));
    ExpectTotals(0, 1, 0);
}

TEST_F(LongPath, OneOf255IsCopiedOnContinue) {
    Disk().AddFolder(Folder(255));
    Find();
    Copy(To(Folder(255)), {"OK", "cmdContinue"});
    EXPECT_EQ(Disk().Content(Folder(255) + "\\a.txt"), "new");
    ExpectTotals(1, 0, 0);
}

TEST_F(LongPath, ACancelEndsTheLoop) {
    Disk().AddFile("C:\\t\\b.txt", "b");
    Find();
    int asked = 0;
    onForm = [&](fields::Form&) { ++asked; };
    Copy(To(Folder(255)), {"OK", "cmdCancel"});
    EXPECT_EQ(asked, 0) << "the second object was not reached";
    EXPECT_EQ(State().bytPathChoice, session::kPathCancel);
}

TEST_F(LongPath, AutomaticModeSkipsThemAll) {
    Disk().AddFile("C:\\t\\b.txt", "b");
    Find();
    State().options.blnAutoMode = true;
    int asked = 0;
    onForm = [&](fields::Form&) { ++asked; };
    Copy(To(Folder(255)));
    EXPECT_EQ(asked, 0);
    ExpectTotals(0, 2, 0);
}

// ---- the disk ----

TEST_F(Engine, AFullDiskIsNotTheUsersStop) {
    Disk().AddDrive("E:");
    Disk().SetCapacity("E:", 1);
    Disk().AddFile("C:\\t\\b.txt", "b");
    Find();
    Copy(To("E:\\d"));
    ExpectLog({" The action ended, since the disk is full."});
}

} // namespace
} // namespace tarvix::testing
