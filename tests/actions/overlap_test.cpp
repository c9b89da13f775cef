#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::IsEmpty;

// A destination that is the object itself by another road, holds it, or lies in it.
class Overlap : public ActionFixture {
  protected:
    void ExpectBinEmpty() { EXPECT_THAT(machine.bin.Paths(), IsEmpty()); }
};

TEST_F(Overlap, OverwritingThroughALinkRecyclesNothing) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddLink("C:\\road", "C:\\t");
    Find();
    Copy(To("C:\\road", "chkOverWrite"));
    ExpectBinEmpty();
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "a");
    EXPECT_TRUE(WasTold(" User attempted to write object: \r\n\r\nC:\\t\\a.txt\r\n\r\n upon itself "
                        "or to its own subfolder as: \r\n\r\nC:\\road\\a.txt"));
    ExpectTotals(0, 1, 0);
}

TEST_F(Overlap, NoCopyBesideItselfThroughALink) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddLink("C:\\road", "C:\\t");
    Find();
    Copy(To("C:\\road", "chkRename"));
    EXPECT_FALSE(Disk().Exists("C:\\t\\a_.txt"));
    Find();
    Move(To("C:\\road", "chkRename"));
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "a");
    EXPECT_FALSE(Disk().Exists("C:\\t\\a_.txt"));
    EXPECT_EQ(TimesTold("upon itself"), 2U);
}

TEST_F(Overlap, SkippingThroughALinkSaysNothing) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddLink("C:\\road", "C:\\t");
    Find();
    Copy(To("C:\\road", "chkSkipAll"));
    EXPECT_FALSE(WasTold("upon itself"));
    ExpectTotals(0, 1, 0);
}

TEST_F(Overlap, NothingIsAskedWhenBothAreOne) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddLink("C:\\road", "C:\\t");
    Find();
    int asked = 0;
    onForm = [&](fields::Form&) { ++asked; };
    Copy(To("C:\\road", "chkAsk"));
    EXPECT_EQ(asked, 0);
    EXPECT_TRUE(WasTold("upon itself"));
}

TEST_F(Overlap, InAutomaticModeItIsOnlyLogged) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddLink("C:\\road", "C:\\t");
    Find();
    State().options.blnAutoMode = true;
    Copy(To("C:\\road", "chkOverWrite"));
    EXPECT_FALSE(WasTold("upon itself"));
    ExpectBinEmpty();
    ExpectLog({" User attempted to write object: \r\n\r\nC:\\t\\a.txt\r\n\r\n upon itself or to "
               "its own subfolder as: \r\n\r\nC:\\road\\a.txt"});
}

TEST_F(Overlap, AFolderThatHoldsTheSourceIsNotRecycledForIt) {
    Disk().AddFile("C:\\t\\x\\x\\a.txt", "a");
    Disk().AddFile("C:\\t\\x\\b.txt", "b");
    Find(3, "C:\\t\\x");
    Copy(To("C:\\t", "chkOverWrite"));
    ExpectBinEmpty();
    EXPECT_EQ(Disk().Content("C:\\t\\x\\x\\a.txt"), "a");
    EXPECT_TRUE(WasTold("One of them lies in the other"));
}

TEST_F(Overlap, NorByRecycleAndReplace) {
    Disk().AddFile("C:\\t\\x\\x", "a file of that name");
    Find(0, "C:\\t\\x");
    Copy(To("C:\\t", "chkAsk"), {"OK", "cmdDeleteReplace"});
    ExpectBinEmpty();
    EXPECT_EQ(Disk().Content("C:\\t\\x\\x"), "a file of that name");
}

TEST_F(Overlap, APartOfTheSourceReachedByALinkIsNotRecycled) {
    Disk().AddFile("C:\\t\\s\\in\\s\\a.txt", "inner");
    Disk().AddLink("C:\\road", "C:\\t\\s\\in");
    Find(3, "C:\\t", "s");
    Copy(To("C:\\road", "chkOverWrite"));
    ExpectBinEmpty();
    EXPECT_EQ(Disk().Content("C:\\t\\s\\in\\s\\a.txt"), "inner");
}

TEST_F(Overlap, AFileIsNotOverwrittenByALinkToIt) {
    Disk().AddFile("C:\\d\\a.txt", "a");
    Disk().AddLink("C:\\t\\a.txt", "C:\\d\\a.txt");
    Find();
    Copy(To("C:\\d", "chkOverWrite"));
    ExpectBinEmpty();
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "a");
}

TEST_F(Overlap, ALinkMayBeReplacedByTheFileThatItLeadsTo) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddLink("C:\\d\\a.txt", "C:\\t\\a.txt");
    Find();
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_FALSE(Disk().Node("C:\\d\\a.txt")->IsLink());
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "a");
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "a");
}

TEST_F(Overlap, WhatCannotBeComparedIsAFailureAndStays) {
    Disk().AddFile("C:\\t\\a.txt", "new");
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find();
    machine.faults.FailAll("Holds", platform::kPathFileAccess);
    Copy(To("C:\\d", "chkOverWrite"));
    ExpectBinEmpty();
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
    ExpectTotals(0, 0, 1);
}

TEST_F(Overlap, AFileNeverOverwritesAFolderNorAFolderAFile) {
    Disk().AddFile("C:\\t\\a", "file");
    Disk().AddFile("C:\\d\\a\\in", "x");
    Disk().AddFile("C:\\t\\b\\in", "x");
    Disk().AddFile("C:\\d\\b", "file");
    Find(0);
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(Disk().Content("C:\\d\\a\\in"), "x");
    Find(3);
    Copy(To("C:\\d", "chkOverWrite"));
    EXPECT_EQ(Disk().Content("C:\\d\\b"), "file");
    ExpectBinEmpty();
    ExpectLog({" Skipped C:\\t\\a, a file can't overwrite the folder C:\\d\\a",
               " Skipped C:\\t\\b, a folder can't overwrite the file C:\\d\\b"});
}

TEST_F(Overlap, ASourceThatCannotBeReadTakesNothingAway) {
    Disk().AddFile("C:\\t\\a.txt", "new").isUnreadable = true;
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find();
    Copy(To("C:\\d", "chkOverWrite"));
    ExpectBinEmpty();
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "old");
    ExpectTotals(0, 0, 1);
}

TEST_F(Overlap, AFolderWhoseCleanedNameIsTakenIsADuplicate) {
    Disk().AddFile("C:\\t\\ sub\\new.txt", "new");
    Disk().AddFile("C:\\d\\sub\\old.txt", "old");
    Find(3);
    Copy(To("C:\\d"));
    EXPECT_FALSE(Disk().Exists("C:\\d\\sub\\new.txt"));
    ExpectTotals(0, 1, 0);
}

} // namespace
} // namespace tarvix::testing
