// Files that are moved while the next ones are prepared: nothing that can be seen of an action is
// other than when each is settled before the next.

#include "actions/place/action_request.h"
#include "results/outcome_list.h"
#include "session/prompt_id.h"
#include "tests/actions/action_fixture.h"

#include <algorithm>

namespace tarvix::testing {
namespace {

using results::OutcomeMark;

class PlainMovesTest : public ActionFixture {
  protected:
    static std::string NameOf(int i) { return std::to_string(100 + i); }
    static std::string PathOf(int i) { return "C:\\t\\" + NameOf(i); }
    void AddFiles(int count) {
        for (int i = 0; i < count; ++i)
            Disk().AddFile(PathOf(i), NameOf(i));
    }
    Fill Replacing(const std::string& find, const std::string& replace) {
        return [this, find, replace](fields::FrmDialog& form) {
            Set(form.chkFindReplace, "1");
            Set(form.txtFind, find);
            Set(form.txtReplace, replace);
            Choose(form.optNamePortion, static_cast<int>(actions::NamePortion::kWholeName));
            Choose(form.optOnceVsAll, 1);
        };
    }
    std::vector<std::string> Sources() {
        const auto& list = program.Outcomes();
        std::vector<std::string> sources;
        for (std::size_t at = 0; at < list.Count(); ++at)
            sources.emplace_back(list.Source(at));
        return sources;
    }
    std::int64_t CountOf(OutcomeMark mark) { return program.Outcomes().CountOf(mark); }
    std::vector<std::string> Paths(int count) {
        std::vector<std::string> paths;
        for (int i = 0; i < count; ++i)
            paths.push_back(PathOf(i));
        return paths;
    }
    // After twenty of a hundred files, while others are on their way.
    void StopInTheMiddle() {
        AddFiles(100);
        Find();
        machine.faults.HoldMoves(true);
        machine.faults.BeforeCall("MoveFile", 20, [this] { Click(Dialog().cmdStop); });
    }
    // What was done is what is told; the rest was not come to.
    void ExpectStopped(OutcomeMark mark) {
        const auto done = Totals().done;
        EXPECT_GE(done, 20);
        EXPECT_LT(done, 100);
        EXPECT_EQ(CountOf(mark), done);
        EXPECT_EQ(CountOf(OutcomeMark::kNotReached), 100 - done);
        for (int i = 0; i < 100; ++i)
            EXPECT_EQ(Disk().Exists(PathOf(i)), i >= done) << i;
    }
    // The entries of the log that tell of something done, by their sources.
    std::vector<std::string> Logged(std::string_view verb) {
        std::vector<std::string> sources;
        const std::string log = LogText();
        for (std::size_t at = log.find(verb); at != log.npos; at = log.find(verb, at + 1)) {
            const std::size_t begin = at + verb.size();
            if (!log.substr(begin).starts_with("C:")) continue;
            sources.push_back(log.substr(begin, log.find(" -- ", begin) - begin));
        }
        return sources;
    }
};

TEST_F(PlainMovesTest, AMoveHandsItsFilesOver) {
    AddFiles(200);
    Find();
    Move(To("C:\\d"));
    ExpectTotals(200, 0, 0);
    EXPECT_GT(machine.faults.Handed(), 190u);
    EXPECT_EQ(Sources(), Paths(200));
    EXPECT_EQ(Logged(" Move "), Paths(200));
    EXPECT_EQ(CountOf(OutcomeMark::kMoved), 200);
    EXPECT_EQ(Disk().Content("C:\\d\\199"), "199");
    EXPECT_FALSE(Disk().Exists(PathOf(99)));
}

TEST_F(PlainMovesTest, ThoseThatAreStillOnTheirWayAtTheEndAreWaitedFor) {
    AddFiles(200);
    Find();
    machine.faults.HoldMoves(true);
    Move(To("C:\\d"));
    ExpectTotals(200, 0, 0);
    EXPECT_EQ(Sources(), Paths(200));
    EXPECT_EQ(Logged(" Move "), Paths(200));
}

TEST_F(PlainMovesTest, ARenameHandsItsFilesOver) {
    AddFiles(100);
    Find();
    machine.faults.HoldMoves(true);
    Do(Form().cmdRenameSelected, Replacing("1", "x"), {"OK"});
    // "1" alone more than once makes more than one name.
    ExpectTotals(100, 0, 0);
    EXPECT_GT(machine.faults.Handed(), 20u);
    EXPECT_EQ(Sources(), Paths(100));
    EXPECT_EQ(Disk().Content("C:\\t\\x50"), "150");
    EXPECT_EQ(Disk().Content("C:\\t\\xx5"), "115");
    EXPECT_EQ(Disk().Content("C:\\t\\xxx"), "111");
}

TEST_F(PlainMovesTest, WhatAppearsAtTheNextPlaceIsADuplicate) {
    AddFiles(10);
    Find();
    machine.faults.HoldMoves(true);
    machine.faults.BeforeCall("MoveFile", 5,
                              [this] { Disk().AddFile("C:\\d\\" + NameOf(4), "theirs"); });
    Move(To("C:\\d"));
    ExpectTotals(9, 1, 0);
    EXPECT_EQ(Sources(), Paths(10)) << "in their order";
    EXPECT_EQ(CountOf(OutcomeMark::kSkipped), 1);
    EXPECT_EQ(Disk().Content("C:\\d\\" + NameOf(4)), "theirs");
    EXPECT_EQ(Disk().Content(PathOf(4)), NameOf(4));
    EXPECT_EQ(Logged(" Move ").size(), 9u);
}

TEST_F(PlainMovesTest, AnErrorIsToldOnceOfTheObjectThatMetIt) {
    AddFiles(10);
    Find();
    machine.faults.FailPath(PathOf(5), platform::kDeviceError, "MoveFile");
    Move(To("C:\\d"));
    ExpectTotals(9, 0, 1);
    EXPECT_EQ(Sources(), Paths(10));
    EXPECT_EQ(std::ranges::count(prompts.Records(), session::PromptId::kUnexpectedError,
                                 &session::PromptRecord::id),
              1);
    EXPECT_EQ(Disk().Content(PathOf(5)), NameOf(5));
}

TEST_F(PlainMovesTest, AFullDiskEndsTheMoveThere) {
    AddFiles(10);
    Find();
    machine.faults.FailPath(PathOf(5), platform::kDiskFull, "MoveFile");
    machine.faults.HoldMoves(true);
    Move(To("C:\\d"));
    ExpectTotals(5, 0, 1);
    EXPECT_EQ(CountOf(OutcomeMark::kNotReached), 4);
    EXPECT_TRUE(Disk().Exists(PathOf(6)));
    ExpectLog({" The action ended, since the disk is full."});
}

TEST_F(PlainMovesTest, StopLeavesWhatIsNotBegunAndTellsWhatIsDone) {
    StopInTheMiddle();
    Move(To("C:\\d"));
    ExpectStopped(OutcomeMark::kMoved);
    EXPECT_EQ(Sources(), Paths(100));
    EXPECT_EQ(Logged(" Move ").size(), static_cast<std::size_t>(Totals().done));
    ExpectLog({" User stopped the action."});
}

TEST_F(PlainMovesTest, StopInARenameDoesTheSame) {
    StopInTheMiddle();
    const auto fill = [this](fields::FrmDialog& form) {
        Set(form.chkAdd, "1");
        Set(form.chkAddEnd, "1");
        Set(form.txtAdd, "x");
    };
    Do(Form().cmdRenameSelected, fill, {"OK"});
    ExpectStopped(OutcomeMark::kRenamed);
}

// It can't go back since its own place was taken, too.
TEST_F(PlainMovesTest, AnObjectThatWentAstrayIsTold) {
    AddFiles(20);
    Find();
    machine.faults.HoldMoves(true);
    machine.faults.SendAstray(PathOf(7));
    Move(To("C:\\d"));
    ExpectTotals(19, 0, 1);
    EXPECT_EQ(Sources(), Paths(20));
    EXPECT_EQ(CountOf(OutcomeMark::kFailed), 1);
    ExpectLog({" went astray"});
    EXPECT_EQ(Disk().Content(PathOf(7)), NameOf(7));
}

TEST_F(PlainMovesTest, ObjectsThatNeedMoreStayInTheirOrder) {
    AddFiles(30);
    Disk().Node(PathOf(10))->attributes = platform::kHidden;
    Disk().AddFile("C:\\d\\" + NameOf(20), "stood there");
    Find();
    machine.faults.HoldMoves(true);
    Move(To("C:\\d"));
    EXPECT_EQ(Sources(), Paths(30));
    EXPECT_EQ(CountOf(OutcomeMark::kMoved), 28);
    EXPECT_EQ(CountOf(OutcomeMark::kCopiedOnly), 1) << "a hidden file is copied";
    EXPECT_EQ(CountOf(OutcomeMark::kSkipped), 1);
}

TEST_F(PlainMovesTest, OfTwoNamesThatAreOneWithoutRegardToCaseTheSecondIsADuplicate) {
    AddFiles(20);
    Disk().AddFile("C:\\t\\sub\\name", "first");
    Disk().AddFile("C:\\t\\sub2\\NAME", "second");
    Find();
    Move(To("C:\\d"));
    ExpectTotals(21, 1, 0);
    EXPECT_EQ(Disk().Content("C:\\d\\name"), "first");
    EXPECT_EQ(Disk().Content("C:\\t\\sub2\\NAME"), "second");
}

TEST_F(PlainMovesTest, ALogThatCantBeWrittenIsToldOnce) {
    AddFiles(20);
    Find();
    machine.faults.FailAll("Flush", platform::kDiskFull);
    Move(To("C:\\d"));
    ExpectTotals(20, 0, 0);
    EXPECT_EQ(std::ranges::count(prompts.Records(), session::PromptId::kLogUnwritable,
                                 &session::PromptRecord::id),
              1);
}

TEST_F(PlainMovesTest, WhereNoneCanBeHandedOverAllGoesByItsSteps) {
    AddFiles(100);
    Find();
    machine.faults.RefuseMoves();
    Move(To("C:\\d"));
    ExpectTotals(100, 0, 0);
    EXPECT_EQ(machine.faults.Handed(), 0u);
    EXPECT_EQ(Sources(), Paths(100));
    EXPECT_EQ(Logged(" Move "), Paths(100));
}

TEST_F(PlainMovesTest, ACopyHandsNothingOver) {
    AddFiles(20);
    Find();
    Copy(To("C:\\d"));
    ExpectTotals(20, 0, 0);
    EXPECT_EQ(machine.faults.Handed(), 0u);
}

} // namespace
} // namespace tarvix::testing
