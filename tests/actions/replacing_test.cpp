#include "actions/place/action_request.h"
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

class Replacing : public ActionFixture {
  protected:
    Replacing() {
        Disk().AddFile("C:\\t\\a.txt", "new");
        Disk().AddFolder("C:\\d");
    }
    std::uint32_t MarksOf(std::string_view path) {
        return Disk().Node(path)->attributes & (kReadOnly | kHidden | kSystem);
    }
};

TEST_F(Replacing, ACopyNeverTouchesItsSource) {
    Disk().Node("C:\\t\\a.txt")->attributes |= kReadOnly | kHidden;
    Disk().AddFile("C:\\d\\a.txt", "old").attributes |= kReadOnly;
    Find();
    machine.faults.FailPath("C:\\t\\a.txt", platform::kPermissionDenied, "SetAttributes");
    Copy(To("C:\\d", "chkOverWrite"), {"OK", "cmdYes"});
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "new");
    EXPECT_EQ(machine.faults.Count("SetAttributes"), 0U);
    EXPECT_EQ(MarksOf("C:\\t\\a.txt"), kReadOnly | kHidden);
    ExpectTotals(1, 0, 0);
}

TEST_F(Replacing, AFolderThatCannotBeCopiedWholeLeavesNothingUnderItsName) {
    Disk().AddFile("C:\\t\\sub\\1.txt", "1");
    Disk().AddFile("C:\\t\\sub\\2.txt", "2").isUnreadable = true;
    Find(3);
    Copy(To("C:\\d"));
    EXPECT_FALSE(Disk().Exists("C:\\d\\sub"));
    for (const std::string& folder : Disk().AllFolders()) {
        EXPECT_FALSE(folder.starts_with("C:\\d\\")) << folder;
    }
    ExpectTotals(0, 0, 1);
}

TEST_F(Replacing, AnObjectThatFailsLeavesNoFolderThatWasMadeForIt) {
    Disk().AddFile("C:\\t\\sub\\deep\\x.txt", "x").isUnreadable = true;
    Find(0, "C:\\t\\sub");
    Copy([this](fields::FrmDialog& form) {
        To("C:\\d\\new")(form);
        form.optStructure.Choose(static_cast<int>(actions::Structure::kFolderToFolder));
    });
    EXPECT_TRUE(Disk().Exists("C:\\d"));
    EXPECT_FALSE(Disk().Exists("C:\\d\\new"));
    ExpectTotals(0, 0, 1);
    ExpectLog({" Created C:\\d\\new", " Removed C:\\d\\new"});
}

TEST_F(Replacing, AFolderThatWasMadeForOneObjectStaysForAnother) {
    Disk().AddFile("C:\\t\\sub\\1.txt", "1");
    Disk().AddFile("C:\\t\\sub\\2.txt", "2").isUnreadable = true;
    Find(0, "C:\\t\\sub");
    Copy(To("C:\\d\\new"));
    EXPECT_EQ(Disk().Content("C:\\d\\new\\1.txt"), "1");
    ExpectTotals(1, 0, 1);
}

TEST_F(Replacing, AChainOfFoldersThatCannotBeMadeToItsEndGoesAgain) {
    Find();
    machine.faults.FailPath("C:\\d\\new\\deep", platform::kPermissionDenied, "CreateFolder");
    Copy(To("C:\\d\\new\\deep"));
    EXPECT_FALSE(Disk().Exists("C:\\d\\new"));
    ExpectTotals(0, 0, 1);
}

TEST_F(Replacing, AnOverwriteWhoseCopyFailsKeepsWhatStood) {
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find();
    machine.faults.FailAll("CopyFile", platform::kPathFileAccess);
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "new");
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
    ExpectTotals(0, 0, 1);
}

TEST_F(Replacing, AFolderIsOverwrittenOnlyByAWholeCopy) {
    Disk().AddFile("C:\\t\\sub\\1.txt", "1");
    Disk().AddFile("C:\\t\\sub\\2.txt", "2").isUnreadable = true;
    Disk().AddFile("C:\\d\\sub\\old.txt", "old");
    Find(3);
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(Disk().Content("C:\\d\\sub\\old.txt"), "old");
    EXPECT_FALSE(Disk().Exists("C:\\d\\sub\\1.txt"));
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
}

TEST_F(Replacing, AnOverwriteThatGetsNoNameBringsTheOldBack) {
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find();
    machine.faults.FailAll("NameCopy", platform::kDiskFull);
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
    ExpectTotals(0, 0, 1);
    ExpectLog({" C:\\d\\a.txt was put back from the recycle bin."});
}

TEST_F(Replacing, WhereTheOldIsIsToldWhenItCannotComeBack) {
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find();
    machine.faults.FailAll("NameCopy", platform::kPathFileAccess);
    machine.faults.FailAll("PutBack", platform::kPermissionDenied);
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\d\\a.txt"));
    EXPECT_TRUE(WasTold("What stood at C:\\d\\a.txt could not be put back: look for it in the "
                        "recycle bin."));
}

TEST_F(Replacing, RecycleAndReplaceKeepsWhatStoodUntilTheCopyIsWhole) {
    Disk().AddFile("C:\\t\\sub\\1.txt", "1").isUnreadable = true;
    Disk().AddFile("C:\\d\\sub\\old.txt", "old");
    Find(3);
    Copy(To("C:\\d", "chkAsk"), {"OK", "cmdDeleteReplace"});
    EXPECT_EQ(Disk().Content("C:\\d\\sub\\old.txt"), "old");
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
    Disk().Node("C:\\t\\sub\\1.txt")->isUnreadable = false;
    Find(3);
    Copy(To("C:\\d", "chkAsk"), {"OK", "cmdDeleteReplace"});
    EXPECT_EQ(Disk().Content("C:\\d\\sub\\1.txt"), "1");
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\d\\sub"));
    ExpectLog({" Recycled C:\\d\\sub"});
}

TEST_F(Replacing, ARenameThatIsRefusedNeverBecomesACopy) {
    Find();
    machine.faults.FailAll("MoveFile", platform::kPermissionDenied);
    Do(Form().cmdRenameSelected,
       [this](fields::FrmDialog& form) {
           Set(form.chkAdd, "1");
           Set(form.txtAdd, "x");
       },
       {"OK"});
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "new");
    EXPECT_FALSE(Disk().Exists("C:\\t\\ax.txt"));
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
    ExpectTotals(0, 0, 1);
}

TEST_F(Replacing, WhatCannotBeRecycledIsNotOverwritten) {
    Disk().AddFile("C:\\d\\a.txt", "old");
    machine.bin.Refuse("C:\\d\\a.txt", platform::kPermissionDenied);
    Find();
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
    EXPECT_THAT(Told(),
                Contains("Was unable to delete: \r\n\r\nC:\\d\\a.txt\r\n\r\n to recycle bin "
                         "and overwrite with: \r\n\r\nC:\\t\\a.txt\r\n\r\n overwrite was "
                         "skipped."));
    ExpectLog({" Was unable to delete C:\\d\\a.txt to recycle bin and overwrite with C:\\t\\a.txt "
               "overwrite was skipped."});
}

TEST_F(Replacing, OverwritingCombinesAttributes) {
    Disk().Node("C:\\t\\a.txt")->attributes |= kSystem;
    Disk().AddFile("C:\\d\\a.txt", "old").attributes |= kReadOnly;
    Find();
    Copy(To("C:\\d", "chkOverWrite"), {"OK", "cmdYes"});
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "new");
    EXPECT_EQ(MarksOf("C:\\d\\a.txt"), kReadOnly | kSystem);
    EXPECT_EQ(MarksOf("C:\\t\\a.txt"), std::uint32_t{kSystem});
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\d\\a.txt"));
    ExpectLog({" Deleted C:\\d\\a.txt to recycle bin before it was overwritten.",
               " Attributes of C:\\d\\a.txt were combined since it overwrote another object.",
               " Copy C:\\t\\a.txt -- to -- C:\\d\\a.txt overwrite"});
}

} // namespace
} // namespace tarvix::testing
