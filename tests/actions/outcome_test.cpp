#include "actions/request/outcome_page.h"
#include "actions/request/rename_in_place.h"
#include "results/outcome_list.h"
#include "results/row_marks.h"
#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tarvix::testing {
namespace {

using results::OutcomeMark;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

// Each object as "MARK: SOURCE -> WHERE IT IS".
class Outcomes : public ActionFixture {
  protected:
    std::vector<std::string> Listed() {
        const auto& list = program.Outcomes();
        std::vector<std::string> lines;
        for (std::size_t at = 0; at < list.Count(); ++at) {
            lines.push_back(std::string(results::MarkText(list.MarkOf(at))) + ": " +
                            list.Source(at) + " -> " + list.Now(at));
        }
        return lines;
    }
    fields::FrmOutcome& Page() { return S().forms.frmOutcome; }
    std::vector<std::string> Selected() {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
            if (program.Rows().At(i).selected) names.emplace_back(program.Rows().At(i).name);
        }
        return names;
    }
    // a.txt goes, b.txt stays.
    void DeleteTwoOfWhichTheTrashTakesOne() {
        Disk().AddFile("C:\\t\\a.txt", "a");
        Disk().AddFile("C:\\t\\b.txt", "b");
        machine.bin.Refuse("C:\\t\\b.txt", platform::kPermissionDenied);
        Find();
        prompts.Queue("Yes");
        prompts.Queue("cmdNo");
        Click(Form().cmdDeleteSelected);
    }
};

TEST_F(Outcomes, ACopyTellsOfEachObjectAndItsPageOpensFromTheStatusLine) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddFile("C:\\t\\b.txt", "b");
    Disk().AddFile("C:\\d\\b.txt", "stood there");
    Find();
    Copy(To("C:\\d"));
    EXPECT_THAT(Listed(), ElementsAre("copied: C:\\t\\a.txt -> C:\\d\\a.txt",
                                      "skipped as duplicate: C:\\t\\b.txt -> C:\\t\\b.txt"));
    EXPECT_EQ(program.Outcomes().Place(1), "C:\\d\\b.txt");
    EXPECT_EQ(Page().lblMain.Caption.Get(), "Copied 1 of 2 objects, 1 skipped as duplicate.");
    EXPECT_FALSE(Page().IsShown());
    Click(Form().cmdOutcome);
    EXPECT_TRUE(Page().IsShown());
    Click(Page().cmdClose);
    EXPECT_FALSE(Page().IsShown());
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt"));
}

TEST_F(Outcomes, SeveralThatWereSkippedAreDuplicates) {
    for (const char* name : {"a.txt", "b.txt"}) {
        Disk().AddFile(std::string("C:\\t\\") + name, "new");
        Disk().AddFile(std::string("C:\\d\\") + name, "stood there");
    }
    Find();
    Copy(To("C:\\d"));
    EXPECT_EQ(Page().lblMain.Caption.Get(), "Copied 0 of 2 objects, 2 skipped as duplicates.");
}

TEST_F(Outcomes, AMoveThatEmptiesTheListShowsItsPageInPlaceOfIt) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddFile("C:\\t\\b.txt", "b");
    machine.faults.FailPath("C:\\t\\b.txt", platform::kDeviceError, "MoveFile");
    Find();
    Move(To("C:\\d"));
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_TRUE(Page().IsShown());
    EXPECT_EQ(Page().lblMain.Caption.Get(), "Moved 1 of 2 objects, 1 failed.");
    EXPECT_THAT(Listed(), ElementsAre("moved: C:\\t\\a.txt -> C:\\d\\a.txt",
                                      "failed: C:\\t\\b.txt -> C:\\t\\b.txt"));
    EXPECT_TRUE(Page().cmdSelectFailed.Visible);
    EXPECT_FALSE(Page().cmdOpenTrash.Visible);
}

TEST_F(Outcomes, SelectTheFailedSearchesAgainWhereTheListIsEmpty) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddFile("C:\\t\\b.txt", "b");
    machine.faults.FailPath("C:\\t\\b.txt", platform::kDeviceError, "MoveFile");
    Find();
    Move(To("C:\\d"));
    Click(Page().cmdSelectFailed);
    EXPECT_FALSE(Page().IsShown());
    EXPECT_THAT(Names(), ElementsAre("b.txt"));
    EXPECT_THAT(Selected(), ElementsAre("b.txt"));
}

TEST_F(Outcomes, SelectTheFailedUnselectsWhatWasDone) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddFile("C:\\t\\b.txt", "b");
    machine.faults.FailPath("C:\\t\\a.txt", platform::kDeviceError, "CopyFile");
    Find();
    Copy(To("C:\\d"));
    EXPECT_THAT(Selected(), ElementsAre("a.txt", "b.txt"));
    Click(Form().cmdOutcome);
    Click(Page().cmdSelectFailed);
    EXPECT_THAT(Selected(), ElementsAre("a.txt"));
    EXPECT_EQ(Form().lblNumOfFilesSelected.Caption.Get(), "1");
}

TEST_F(Outcomes, ASearchTakesThePageAway) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Find();
    Move(To("C:\\d"));
    EXPECT_TRUE(Page().IsShown());
    Click(Page().cmdSearchAgain);
    EXPECT_FALSE(Page().IsShown());
    EXPECT_FALSE(Form().cmdOutcome.Visible);
}

TEST_F(Outcomes, ShowThereShowsWhatWasChosenOrTheFirstThatWasPlaced) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddFile("C:\\t\\b.txt", "b");
    Find();
    Move(To("C:\\d"));
    Click(Page().cmdShowThere);
    EXPECT_THAT(machine.applications.shown, ElementsAre("C:\\d\\a.txt"));
    Page().chosen = {1};
    Click(Page().cmdShowThere);
    EXPECT_THAT(machine.applications.shown, ElementsAre("C:\\d\\a.txt", "C:\\d\\b.txt"));
}

TEST_F(Outcomes, ARenameTellsWhereFilesOfRenamedFoldersAre) {
    Disk().AddFile("C:\\t\\one\\a1.txt", "a");
    Find(2);
    Do(Form().cmdRenameSelected,
       [this](fields::FrmDialog& form) {
           Set(form.chkFindReplace, "1");
           Set(form.txtFind, "o");
           Set(form.txtReplace, "0");
       },
       {"OK"});
    EXPECT_TRUE(Page().IsShown());
    EXPECT_THAT(Listed(), ElementsAre("unchanged: C:\\t\\one\\a1.txt -> C:\\t\\0ne\\a1.txt",
                                      "renamed: C:\\t\\one -> C:\\t\\0ne"));
    EXPECT_TRUE(Disk().Content("C:\\t\\0ne\\a1.txt").has_value());
}

TEST_F(Outcomes, WhatAStopLeavesIsNotReached) {
    for (const char* name : {"a", "b", "c"})
        Disk().AddFile(std::string("C:\\t\\") + name, "x");
    Find();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("CopyFile", 3, [this] { State().blnStopAction = true; });
    Copy(To("C:\\d"));
    EXPECT_THAT(Listed(),
                ElementsAre("copied: C:\\t\\a -> C:\\d\\a", "copied: C:\\t\\b -> C:\\d\\b",
                            "not reached: C:\\t\\c -> C:\\t\\c"));
    EXPECT_EQ(Page().lblMain.Caption.Get(), "Copied 2 of 3 objects, 1 not reached.");
    Click(Form().cmdOutcome);
    Click(Page().cmdSelectFailed);
    EXPECT_THAT(Selected(), ElementsAre("c"));
}

TEST_F(Outcomes, RecycledRowsAreMarkedAndUnselectedAndTheTrashCanBeOpened) {
    DeleteTwoOfWhichTheTrashTakesOne();
    EXPECT_THAT(Listed(), ElementsAre("in the trash: C:\\t\\a.txt -> ",
                                      "failed: C:\\t\\b.txt -> C:\\t\\b.txt"));
    EXPECT_THAT(Selected(), ElementsAre("b.txt"));
    EXPECT_EQ(Form().lblNumOfFilesSelected.Caption.Get(), "1");
    EXPECT_TRUE(program.Rows().At(0).Has(results::kGone));
    EXPECT_FALSE(program.Rows().At(1).Has(results::kGone));
    EXPECT_EQ(Form().cmdOutcome.Caption.Get(), "Moved 1 of 2 objects to the trash, 1 failed.");
    Click(Form().cmdOutcome);
    Click(Page().cmdOpenTrash);
    EXPECT_EQ(machine.applications.trashShown, 1);
}

TEST_F(Outcomes, WhatWentToTheTrashIsNotLookedForOnceMore) {
    DeleteTwoOfWhichTheTrashTakesOne();
    const auto& calls = machine.faults.Calls();
    const auto isRecycling = [](const auto& call) { return call.operation == "Recycle"; };
    const auto last = std::find_if(calls.rbegin(), calls.rend(), isRecycling).base();
    std::vector<std::string> lookedAt;
    for (auto call = last; call != calls.end(); ++call)
        if (call->operation == "Facts") lookedAt.push_back(call->path);
    EXPECT_THAT(lookedAt, Contains("C:\\t\\b.txt"));
    EXPECT_THAT(lookedAt, Not(Contains("C:\\t\\a.txt")));
}

TEST_F(Outcomes, WhatWentWithItsFolderIsInTheTrash) {
    Disk().AddFile("C:\\t\\one\\a.txt", "a");
    Find(2);
    prompts.Queue("Yes");
    Click(Form().cmdDeleteSelected);
    const auto& list = program.Outcomes();
    EXPECT_EQ(list.CountOf(OutcomeMark::kRecycled), 2);
    EXPECT_EQ(list.CountOf(OutcomeMark::kWasGone), 0);
}

TEST_F(Outcomes, TheStatusTellsOfTheActionThatCameLast) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Find();
    Copy(To("C:\\d"));
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Copied 1 of 1 object.");
    Copy(To("C:\\d"));
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Copied 0 of 1 object, 1 skipped as duplicates.");
}

TEST_F(Outcomes, ACancelledWindowLeavesThePageOfTheActionBefore) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Find();
    Copy(To("C:\\d"));
    Do(Form().cmdCopySelected, [](fields::FrmDialog&) {}, {"Cancel"});
    EXPECT_THAT(Listed(), ElementsAre("copied: C:\\t\\a.txt -> C:\\d\\a.txt"));
    EXPECT_TRUE(Form().cmdOutcome.Visible);
}

// ---- what the rows show of it ----

using Fates = Outcomes;
using results::RowFate;

TEST_F(Fates, WhatCouldNotBeCopiedHasItsSignUntilTheNextAction) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddFile("C:\\t\\b.txt", "b");
    machine.faults.FailPath("C:\\t\\b.txt", platform::kDeviceError, "CopyFile");
    Find();
    Copy(To("C:\\d"));
    EXPECT_EQ(program.Rows().At(0).Fate(), RowFate::kNone);
    EXPECT_EQ(program.Rows().At(1).Fate(), RowFate::kFailed);
    Do(Form().cmdCopySelected, [](fields::FrmDialog&) {}, {"Cancel"});
    EXPECT_EQ(program.Rows().At(1).Fate(), RowFate::kFailed); // nothing was done since
    machine.faults.ClearFaults();
    Copy(To("C:\\d"));
    EXPECT_EQ(program.Rows().At(1).Fate(), RowFate::kNone);
}

TEST_F(Fates, WhatAStopLeavesAsItWasHasNone) {
    for (const char* name : {"a", "b"})
        Disk().AddFile(std::string("C:\\t\\") + name, "x");
    Find();
    machine.faults.ResetCounts();
    machine.faults.BeforeCall("CopyFile", 2, [this] { State().blnStopAction = true; });
    Copy(To("C:\\d"));
    EXPECT_EQ(program.Rows().At(0).Fate(), RowFate::kNone);
    EXPECT_EQ(program.Rows().At(1).Fate(), RowFate::kNone);
}

TEST_F(Fates, ARepeatedSearchShowsWhatWasMovedWithinItAndWhatWasNot) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddFile("C:\\t\\b.txt", "b");
    Disk().AddFolder("C:\\t\\sub");
    machine.faults.FailPath("C:\\t\\b.txt", platform::kDeviceError, "MoveFile");
    Find();
    Set(Form().chkRepeatSearch, "1");
    Move(To("C:\\t\\sub"));
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\b.txt", "C:\\t\\sub\\a.txt"));
    EXPECT_EQ(program.Rows().At(0).Fate(), RowFate::kFailed);
    EXPECT_EQ(program.Rows().At(1).Fate(), RowFate::kMoved);
    Search("*", "C:\\t");
    EXPECT_EQ(program.Rows().At(0).Fate(), RowFate::kNone);
}

TEST_F(Fates, WhatCouldNotGoToTheTrashHasItsSign) {
    DeleteTwoOfWhichTheTrashTakesOne();
    EXPECT_EQ(program.Rows().At(0).Fate(), RowFate::kNone);
    EXPECT_TRUE(program.Rows().At(0).Has(results::kGone));
    EXPECT_EQ(program.Rows().At(1).Fate(), RowFate::kFailed);
}

TEST_F(Fates, WhatFailedAtOneOfItsPlacesHasFailed) {
    results::OutcomeList list;
    list.Begin("Move");
    Disk().AddFile("C:\\t\\a.txt", "a");
    Find();
    list.Add({.source = "C:\\t\\a.txt", .mark = OutcomeMark::kFailed});
    list.Add({.source = "C:\\t\\a.txt",
              .place = "C:\\e\\a.txt",
              .mark = OutcomeMark::kMoved,
              .isPlaced = true});
    results::MarkFates(program.Rows(), list);
    EXPECT_EQ(program.Rows().At(0).Fate(), RowFate::kFailed);
}

TEST_F(Fates, EachFailureStandsAtItsOwnRowHoweverFarApartTheyAreSettled) {
    results::OutcomeList list;
    list.Begin("Move");
    for (int i = 100; i < 300; ++i)
        Disk().AddFile("C:\\t\\" + std::to_string(i), "x");
    Disk().AddFolder("C:\\t\\250.d");
    Find(2);
    const auto failed = [&](const std::string& name, bool isFile) {
        list.Add({.source = "C:\\t\\" + name, .mark = OutcomeMark::kFailed, .isFile = isFile});
    };
    for (const char* name : {"101", "102", "110", "299", "250", "103", "103"})
        failed(name, true);
    failed("250.d", false);
    failed("250.d", true); // no file of that name is listed
    failed("gone", true);
    results::MarkFates(program.Rows(), list);
    std::vector<std::string> marked;
    for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
        if (program.Rows().At(i).Fate() == RowFate::kFailed)
            marked.emplace_back(program.Rows().At(i).name);
    }
    EXPECT_THAT(marked,
                ::testing::UnorderedElementsAre("101", "102", "103", "110", "250", "250.d", "299"));
}

TEST_F(Fates, ARowThatIsRenamedWhereItStandsHasItsSign) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddFile("C:\\t\\b.txt", "b");
    Find();
    actions::RenameInPlace(S(), 1, "c.txt");
    EXPECT_EQ(program.Rows().At(0).Fate(), RowFate::kNone);
    EXPECT_EQ(program.Rows().At(1).Fate(), RowFate::kRenamed);
}

// ---- one object renamed where it stands in the list ----

using RenameInPlace = Outcomes;

TEST_F(RenameInPlace, TheRowBearsTheNewNameAndStays) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddFile("C:\\t\\b.txt", "b");
    Find();
    actions::RenameInPlace(S(), 1, "c.txt");
    EXPECT_EQ(Disk().Content("C:\\t\\c.txt"), "b");
    EXPECT_FALSE(Disk().Content("C:\\t\\b.txt").has_value());
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\a.txt", "C:\\t\\c.txt"));
    EXPECT_THAT(Selected(), ElementsAre("a.txt", "c.txt"));
    EXPECT_THAT(Listed(), ElementsAre("renamed: C:\\t\\b.txt -> C:\\t\\c.txt"));
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "Renamed b.txt as c.txt.");
    ExpectLog({" User selected to rename in place: C:\\t\\b.txt as: c.txt",
               " Renamed C:\\t\\b.txt -- as -- C:\\t\\c.txt"});
}

TEST_F(RenameInPlace, ANameThatIsTakenIsToldAndNothingIsDone) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Disk().AddFile("C:\\t\\b.txt", "b");
    Find();
    actions::RenameInPlace(S(), 0, "b.txt");
    EXPECT_TRUE(WasTold("already exists"));
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "a");
    EXPECT_EQ(Disk().Content("C:\\t\\b.txt"), "b");
    EXPECT_THAT(Names(), ElementsAre("a.txt", "b.txt"));
}

TEST_F(RenameInPlace, TheCaseAloneCanChange) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Find();
    actions::RenameInPlace(S(), 0, "A.txt");
    EXPECT_THAT(Disk().AllFiles(), ::testing::Contains("C:\\t\\A.txt"));
    EXPECT_THAT(Names(), ElementsAre("A.txt"));
}

TEST_F(RenameInPlace, WhatIsNoNameIsRefused) {
    Disk().AddFile("C:\\t\\a.txt", "a");
    Find();
    for (const char* name : {"x\\y.txt", "..", "a:b", ""}) {
        actions::RenameInPlace(S(), 0, name);
    }
    EXPECT_EQ(Disk().Content("C:\\t\\a.txt"), "a");
    EXPECT_EQ(Told().size(), 4U);
    EXPECT_THAT(Names(), ElementsAre("a.txt"));
}

TEST_F(RenameInPlace, RowsInARenamedFolderGoWithIt) {
    Disk().AddFile("C:\\t\\one\\a.txt", "a");
    Find(2);
    const auto paths = Paths();
    const auto at =
        static_cast<std::size_t>(std::ranges::find(paths, "C:\\t\\one") - paths.begin());
    ASSERT_LT(at, paths.size());
    actions::RenameInPlace(S(), at, "two");
    EXPECT_THAT(Paths(), ::testing::UnorderedElementsAre("C:\\t\\two", "C:\\t\\two\\a.txt"));
    // The rows still stand for their objects.
    prompts.Queue("OK");
    Copy(To("C:\\d"));
    EXPECT_EQ(Totals().failed, 0);
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "a");
}

} // namespace
} // namespace tarvix::testing
