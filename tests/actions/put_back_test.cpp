#include "results/outcome_list.h"
#include "results/row_marks.h"
#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

#include <cstdint>

namespace tarvix::testing {
namespace {

using results::OutcomeMark;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// Each object as "MARK[: REASON]: SOURCE".
class PutBack : public ActionFixture {
  protected:
    fields::FrmOutcome& Page() { return S().forms.frmOutcome; }
    std::vector<std::string> Listed() {
        const auto& list = program.Outcomes();
        std::vector<std::string> lines;
        for (std::size_t at = 0; at < list.Count(); ++at) {
            std::string line(results::MarkText(list.MarkOf(at)));
            if (!list.Reason(at).empty()) line += ": " + list.Reason(at);
            lines.push_back(line + ": " + list.Source(at));
        }
        return lines;
    }
    // Files of these names in C:\t, each holding its name.
    void Files(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            Disk().AddFile("C:\\t\\" + name, name);
    }
    void RecycleAll(int kind = 0) {
        Find(kind);
        prompts.Queue("Yes");
        Click(Form().cmdDeleteSelected);
    }
    void ChooseOnPage(const std::vector<std::uint32_t>& numbers) {
        Page().chosen = numbers;
        S().events.Raise(S(), "frmOutcome.lstOutcome_Click");
    }
    void ClickPutBack() {
        if (!Page().IsShown()) Click(Form().cmdOutcome);
        Click(Page().cmdPutBack);
    }
    std::string Headline() { return Page().lblMain.Caption.Get(); }
    std::vector<bool> Gone() {
        std::vector<bool> gone;
        for (std::size_t i = 0; i < program.Rows().Count(); ++i)
            gone.push_back(program.Rows().At(i).Has(results::kGone));
        return gone;
    }
};

TEST_F(PutBack, AllThatWentComesBackAndThePageTellsOfIt) {
    Files({"a.txt", "b.txt", "c.txt"});
    RecycleAll();
    ASSERT_THAT(Disk().AllFiles(), Not(::testing::Contains("C:\\t\\a.txt")));
    EXPECT_THAT(Gone(), ElementsAre(true, true, true));
    Click(Form().cmdOutcome);
    EXPECT_TRUE(Page().cmdPutBack.Visible);
    EXPECT_TRUE(Page().cmdPutBack.Enabled);
    EXPECT_EQ(Page().cmdPutBack.Caption.Get(), "Put Bac&k");
    Click(Page().cmdPutBack);
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "a.txt");
    EXPECT_EQ(Disk().Content("C:\\t\\b.txt"), "b.txt");
    EXPECT_EQ(Disk().Content("C:\\t\\c.txt"), "c.txt");
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
    EXPECT_THAT(Listed(), ElementsAre("put back: C:\\t\\a.txt", "put back: C:\\t\\b.txt",
                                      "put back: C:\\t\\c.txt"));
    EXPECT_EQ(program.Outcomes().Now(1), "C:\\t\\b.txt");
    EXPECT_EQ(Headline(), "Put back 3 of 3 objects.");
    EXPECT_EQ(Form().cmdOutcome.Caption.Get(), "Put back 3 of 3 objects.");
    EXPECT_TRUE(Page().IsShown());
    EXPECT_THAT(Gone(), ElementsAre(false, false, false));
    EXPECT_FALSE(Page().cmdPutBack.Enabled);
    EXPECT_TRUE(Page().cmdPutBack.Visible);
    EXPECT_EQ(Page().cmdPutBack.ToolTipText.Get(), "Nothing of this is in the trash any more");
    EXPECT_EQ(Totals().done, 3);
    EXPECT_EQ(Totals().failed, 0);
    ExpectLog({" User selected to put back 3 objects from the recycle bin at start.",
               " Put back C:\\t\\c.txt from the recycle bin.",
               " Put back C:\\t\\a.txt from the recycle bin."});
}

TEST_F(PutBack, WhatIsBackCanBeSelectedAndActedOnAgain) {
    Files({"a.txt", "b.txt"});
    RecycleAll();
    ClickPutBack();
    Click(Page().cmdClose);
    Click(Form().cmdSelectAll);
    EXPECT_EQ(Form().lblNumOfFilesSelected.Caption.Get(), "2");
    Copy(To("C:\\d"));
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "a.txt");
    EXPECT_EQ(Headline(), "Copied 2 of 2 objects.");
    EXPECT_FALSE(Page().cmdPutBack.Visible);
    prompts.Queue("Yes");
    Click(Form().cmdDeleteSelected);
    EXPECT_EQ(Headline(), "Moved 2 of 2 objects to the trash.");
    EXPECT_TRUE(Page().cmdPutBack.Enabled);
}

TEST_F(PutBack, TheChosenOnesAloneAndTheRestLater) {
    Files({"a.txt", "b.txt", "c.txt"});
    RecycleAll();
    Click(Form().cmdOutcome);
    ChooseOnPage({2, 0});
    EXPECT_EQ(Page().cmdPutBack.Caption.Get(), "Put Bac&k 2");
    Click(Page().cmdPutBack);
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\b.txt"));
    EXPECT_THAT(Gone(), ElementsAre(false, true, false));
    EXPECT_THAT(Listed(), ElementsAre("put back: C:\\t\\a.txt", "in the trash: C:\\t\\b.txt",
                                      "put back: C:\\t\\c.txt"));
    EXPECT_EQ(Headline(), "Put back 2 of 2 objects, 1 left in the trash.");
    EXPECT_EQ(Page().cmdPutBack.Caption.Get(), "Put Bac&k");
    EXPECT_TRUE(Page().cmdPutBack.Enabled);
    ChooseOnPage({0});
    EXPECT_FALSE(Page().cmdPutBack.Enabled);
    EXPECT_EQ(Page().cmdPutBack.ToolTipText.Get(), "Nothing of what is selected is in the trash");
    ChooseOnPage({});
    Click(Page().cmdPutBack);
    EXPECT_EQ(Disk().Content("C:\\t\\b.txt"), "b.txt");
    EXPECT_THAT(Listed(), ElementsAre("put back: C:\\t\\b.txt"));
    EXPECT_EQ(Headline(), "Put back 1 of 1 object.");
}

TEST_F(PutBack, FailuresTellWhyAndCanBeTriedAgain) {
    Files({"a.txt", "b.txt", "c.txt", "d.txt", "sub\\e.txt"});
    RecycleAll();
    Disk().AddFile("C:\\t\\a.txt", "theirs");
    machine.bin.Lose("C:\\t\\b.txt");
    machine.faults.FailPath("C:\\t\\c.txt", platform::kDeviceError, "PutBack");
    ASSERT_TRUE(Disk().RemoveFolder("C:\\t\\sub"));
    ClickPutBack();
    EXPECT_THAT(Listed(), ElementsAre("failed: its place is taken: C:\\t\\a.txt",
                                      "failed: not in the trash any more: C:\\t\\b.txt",
                                      HasSubstr("failed: "), "put back: C:\\t\\d.txt",
                                      "failed: its folder is missing: C:\\t\\sub\\e.txt"));
    EXPECT_EQ(Headline(), "Put back 1 of 5 objects, 4 failed.");
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "theirs");
    EXPECT_EQ(program.Outcomes().Sentence(0, "/t/a.txt", ""), "/t/a.txt: its place is taken.");
    EXPECT_EQ(program.Outcomes().Now(0), "");
    EXPECT_THAT(Gone(), ElementsAre(true, true, true, false, true));
    EXPECT_FALSE(Page().cmdSelectFailed.Visible);
    EXPECT_EQ(Totals().done, 1);
    EXPECT_EQ(Totals().failed, 4);
    ExpectLog({" Was unable to put back C:\\t\\a.txt: its place is taken."});
    // What has left the trash is not asked for again.
    machine.faults.ClearFaults();
    ASSERT_TRUE(Disk().DeleteFile("C:\\t\\a.txt", false));
    Disk().AddFolder("C:\\t\\sub");
    Click(Page().cmdPutBack);
    EXPECT_THAT(Listed(), ElementsAre("put back: C:\\t\\a.txt", "put back: C:\\t\\c.txt",
                                      "put back: C:\\t\\sub\\e.txt"));
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "a.txt");
}

TEST_F(PutBack, AFolderIsThereBeforeWhatWasInIt) {
    Files({"one\\a.txt", "one\\b.txt"});
    Find(2);
    ASSERT_THAT(Names(), ElementsAre("one", "a.txt", "b.txt"));
    program.Rows().Reorder({1, 0, 2}); // b.txt goes with the folder
    prompts.Queue("Yes");
    Click(Form().cmdDeleteSelected);
    ASSERT_THAT(machine.bin.Paths(), ElementsAre("C:\\t\\one\\a.txt", "C:\\t\\one"));
    ClickPutBack();
    EXPECT_THAT(Listed(), ElementsAre("put back: C:\\t\\one\\a.txt", "put back: C:\\t\\one",
                                      "put back: C:\\t\\one\\b.txt"));
    EXPECT_EQ(Disk().Content("C:\\t\\one\\a.txt"), "one\\a.txt");
    EXPECT_EQ(Disk().Content("C:\\t\\one\\b.txt"), "one\\b.txt");
    EXPECT_EQ(Headline(), "Put back 3 of 3 objects.");
    EXPECT_THAT(Gone(), ElementsAre(false, false, false));
}

TEST_F(PutBack, WhatWentWithItsFolderIsBackWithItAndNotWithoutIt) {
    Files({"one\\a.txt"});
    RecycleAll(2);
    Click(Form().cmdOutcome);
    ASSERT_THAT(Listed(),
                ElementsAre("in the trash: C:\\t\\one", "in the trash: C:\\t\\one\\a.txt"));
    ChooseOnPage({1});
    EXPECT_EQ(Page().cmdPutBack.Caption.Get(), "Put Bac&k 1");
    Click(Page().cmdPutBack);
    EXPECT_THAT(Listed(), ElementsAre("in the trash: C:\\t\\one",
                                      "failed: its folder is in the trash: C:\\t\\one\\a.txt"));
    EXPECT_EQ(Headline(), "Put back 0 of 1 object, 1 failed, 1 left in the trash.");
    ChooseOnPage({0});
    Click(Page().cmdPutBack);
    EXPECT_THAT(Listed(), ElementsAre("put back: C:\\t\\one", "put back: C:\\t\\one\\a.txt"));
}

TEST_F(PutBack, AStopLeavesTheRestInTheTrash) {
    Files({"a", "b", "c"});
    RecycleAll();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("PutBack", 2, [this] { State().blnStopAction = true; });
    ClickPutBack();
    EXPECT_THAT(Listed(),
                ElementsAre("not reached: C:\\t\\a", "put back: C:\\t\\b", "put back: C:\\t\\c"));
    EXPECT_EQ(Headline(), "Put back 2 of 3 objects, 1 not reached.");
    EXPECT_FALSE(Form().cmdStop.Visible);
    EXPECT_FALSE(State().blnRecycling);
    ExpectLog({" User stopped the putting back of the objects."});
    ClickPutBack();
    EXPECT_THAT(Listed(), ElementsAre("put back: C:\\t\\a"));
    EXPECT_EQ(Disk().Content("C:\\t\\a"), "a");
}

TEST_F(PutBack, OfWhatTheTrashRefusedThereIsNothingToPutBack) {
    Files({"a.txt", "b.txt"});
    machine.bin.Refuse("C:\\t\\a.txt", platform::kPermissionDenied);
    Find();
    prompts.Queue("Yes");
    prompts.Queue("cmdNo");
    Click(Form().cmdDeleteSelected);
    Click(Form().cmdOutcome);
    ChooseOnPage({0});
    EXPECT_FALSE(Page().cmdPutBack.Enabled);
    ChooseOnPage({});
    Click(Page().cmdPutBack);
    EXPECT_THAT(Listed(), ElementsAre("put back: C:\\t\\b.txt"));
    EXPECT_EQ(Disk().Content("C:\\t\\b.txt"), "b.txt");
}

TEST_F(PutBack, WhatAnotherActionTookFromTheSamePathSinceStaysThere) {
    Files({"a.txt"});
    RecycleAll();
    Disk().AddFile("C:\\t\\a.txt", "another");
    const std::vector<std::string> paths{"C:\\t\\a.txt"};
    ASSERT_TRUE(machine.platform.trash.Recycle(paths, {}));
    ClickPutBack();
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "a.txt");
    EXPECT_EQ(machine.bin.Paths().size(), 1u);
}

TEST_F(PutBack, ARepeatedSearchListsWhatIsBack) {
    Files({"a.txt", "b.txt"});
    Find();
    Set(Form().chkRepeatSearch, "1");
    prompts.Queue("Yes");
    Click(Form().cmdDeleteSelected);
    EXPECT_THAT(Names(), IsEmpty());
    ASSERT_TRUE(Page().IsShown());
    Click(Page().cmdPutBack);
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt"));
    EXPECT_TRUE(Page().IsShown());
    EXPECT_EQ(Headline(), "Put back 2 of 2 objects.");
    EXPECT_TRUE(Form().cmdOutcome.Visible);
}

TEST_F(PutBack, AMoveHasNothingToPutBack) {
    Files({"a.txt"});
    Find();
    Move(To("C:\\d"));
    EXPECT_FALSE(Page().cmdPutBack.Visible);
}

} // namespace
} // namespace tarvix::testing
