#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

// What an action says of itself is what it did.
class HonestTotals : public ActionFixture {
  protected:
    HonestTotals() {
        Disk().AddFile("C:\\t\\a.txt", "a");
        Disk().AddFolder("C:\\d");
    }
};

TEST_F(HonestTotals, AnOriginalThatCannotGoWasOnlyCopied) {
    Find();
    machine.faults.FailCall("MoveFile", 1, platform::kPermissionDenied);
    machine.bin.Refuse("C:\\t\\a.txt", platform::kPermissionDenied);
    Move(To("C:\\d"));
    EXPECT_EQ(Totals().copiedOnly, 1);
    EXPECT_EQ(Form().lblStatus.Caption.Get(),
              "Moved 0 of 1 object, 1 copied only, the originals still stand.");
}

TEST_F(HonestTotals, AStopCountsWhatWasNotReached) {
    for (const char* name : {"b.txt", "c.txt", "d.txt"}) {
        Disk().AddFile(std::string("C:\\t\\") + name, name);
    }
    Find();
    machine.faults.BeforeCall("CopyFile", 2, [this] { State().blnStopAction = true; });
    Copy(To("C:\\d"));
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Copied 2 of 4 objects, 2 not reached.");
}

TEST_F(HonestTotals, WhatARunPlacedIsNeverOverwrittenByIt) {
    Disk().AddFile("C:\\t\\1\\a.txt", "first");
    Disk().AddFile("C:\\t\\2\\a.txt", "second");
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find();
    Copy([this](fields::FrmDialog& form) {
        To("C:\\d", "chkOverWrite")(form);
        form.txtRename.Text = "_";
    });
    EXPECT_THAT(machine.bin.Paths(), ::testing::ElementsAre("C:\\d\\a.txt"));
    EXPECT_TRUE(Disk().Exists("C:\\d\\a_.txt"));
    EXPECT_TRUE(Disk().Exists("C:\\d\\a__.txt"));
    EXPECT_EQ(Totals().keptApart, 2);
    ExpectTotals(3, 0, 0);
}

} // namespace
} // namespace tarvix::testing
