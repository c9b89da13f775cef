#include "actions/place/action_run.h"
#include "actions/place/duplicate_rename.h"
#include "actions/place/object.h"
#include "actions/place/outcome.h"
#include "actions/request/read_request.h"
#include "actions/run/action_progress.h"
#include "tests/actions/action_fixture.h"
#include "tests/actions/bare_session.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

// What comes before the action window.
class StartAction : public ActionFixture {
  protected:
    StartAction() {
        Disk().AddFile("C:\\t\\a.txt", "a");
        Disk().AddFolder("C:\\t\\one");
        Disk().AddFolder("C:\\t\\two");
        Disk().AddFolder("C:\\d");
    }
    void RenameLocal(const std::string& path, const std::string& destination, bool isFile) {
        const auto request = actions::ReadRequest(S());
        actions::ActionRun run(S(), request);
        actions::RenameObjForDuplicateLocal(
            S(), run, {.path = path, .actual = path, .isFile = isFile}, destination);
    }
};

TEST_F(StartAction, AMoveOfTwoFoldersAmongAllObjectsNeedsASecondThought) {
    Find(2);
    Click(Form().cmdMoveSelected);
    ASSERT_EQ(prompts.Records().size(), 1U);
    EXPECT_EQ(Told()[0],
              "ARE YOU REALLY SURE???\r\n\r\nMoving multiple folders in this mode, may "
              "have unexpected results!\r\n\r\nIf any folders you selected are subfolders "
              "of other folders selected,\r\nthe results will depend on which one is "
              "moved first!!\r\n\r\nAlso files with HIDDEN or SYSTEM Attributes may get "
              "moved!");
    EXPECT_EQ(prompts.Records()[0].style, 305);
    EXPECT_FALSE(Dialog().IsShown());
}

TEST_F(StartAction, AMoveOfOneFolderWithFilesDoesNot) {
    Disk().Node("C:\\t\\two")->Detach();
    Find(2);
    Move(To("C:\\d"));
    EXPECT_FALSE(WasTold("ARE YOU REALLY SURE???"));
    EXPECT_TRUE(Disk().Exists("C:\\d\\one"));
}

TEST_F(StartAction, WithoutSubfoldersNothingIsWarnedOf) {
    Start();
    LookForAllAttributes();
    Choose(Form().optFilesVsDirs, 2);
    Search("*", "C:\\t");
    Click(Form().cmdSelectAll);
    Move(To("C:\\d"));
    EXPECT_FALSE(WasTold("ARE YOU REALLY SURE???"));
}

TEST_F(StartAction, EachButtonHasItsHeadingAndItsLine) {
    std::vector<std::string> headings;
    const auto note = [&](fields::FrmDialog& form) { headings.push_back(form.lblMain.Caption); };
    Find();
    Copy(note, {});
    Move(note, {});
    Do(Form().cmdRenameSelected, note);
    EXPECT_THAT(headings, ElementsAre("Copy Files or Folders to:", "Move Files and\\or Folders to:",
                                      "Rename Objects Only"));
    ExpectLog({" User clicked on the Copy Button which opened the Action form. ",
               " User clicked on the Move Button which opened the Action form. ",
               " User clicked on the Rename Button which opened the Action form. "});
}

TEST_F(StartAction, AnEarlierOverrideNoLongerStands) {
    Find();
    S().forms.frmOverrideDialog.Answer = actions::kOverrideYesToAll;
    S().forms.frmOverrideRecycleFail.Answer = actions::kOverrideYesToAll;
    Copy(To("C:\\d"), {"Cancel"});
    EXPECT_EQ(S().forms.frmOverrideDialog.Answer, actions::kOverrideNo);
    EXPECT_EQ(S().forms.frmOverrideRecycleFail.Answer, actions::kOverrideNo);
}

// ---- an object renamed beside a duplicate in its own folder ----

TEST_F(StartAction, ARenamedObjectGetsAFreeNameLikeADuplicate) {
    Disk().AddFile("C:\\t\\b.txt", "b");
    Disk().AddFile("C:\\t\\b_.txt", "b");
    Start();
    RenameLocal("C:\\t\\a.txt", "C:\\t\\b.txt", true);
    EXPECT_EQ(Disk().Content("C:\\t\\b__.txt"), "a");
    EXPECT_FALSE(Disk().Exists("C:\\t\\a.txt"));
    ExpectLog({" Renamed C:\\t\\a.txt -- as -- C:\\t\\b__.txt"});
}

TEST_F(StartAction, ARenamedFolderKeepsItsDots) {
    Disk().AddFolder("C:\\t\\x.y");
    Start();
    RenameLocal("C:\\t\\one", "C:\\t\\x.y", false);
    EXPECT_TRUE(Disk().Exists("C:\\t\\x.y_"));
    EXPECT_FALSE(Disk().Exists("C:\\t\\one"));
}

// ---- paths beyond all limits ----

TEST_F(StartAction, APathThatCannotBeShortenedIsTold) {
    const std::string deep = "C:\\t\\" + std::string(120, 'y') + "\\" + std::string(115, 'z');
    Disk().AddFile(deep + "\\b.txt", "b");
    const std::string place = "C:\\d\\" + std::string(120, 'x') + "\\" + std::string(132, 'w');
    ASSERT_EQ(place.size(), 258U);
    const std::string target = place + deep.substr(4) + "\\b.txt";
    ASSERT_GE(target.size(), 500U);
    Find(0, "C:\\t", "b.txt");
    Copy(
        [&](fields::FrmDialog& form) {
            Set(form.cmbDir, place);
            Click(form.optStructure[2]);
        },
        {"OK", "cmdContinue"});
    EXPECT_THAT(Told(),
                Contains(target +
                         "'s path exceeds 259 characters in length. You may be "
                         "exceeding 500 characters. \r\n\r\nLength of path shown "
                         "above is : " +
                         std::to_string(target.size()) +
                         " characters.\r\n\r\nPath above maybe partly converted to a short "
                         "path. Possibly all required folders could not be created.Skipping "
                         "this object."));
    ExpectTotals(0, 1, 0);
}

} // namespace
} // namespace tarvix::testing

namespace tarvix::actions {
namespace {

using Progress = BareSession;

TEST_F(Progress, TellsObjectsBytesSpeedAndTimeLeft) {
    machine.clock.SetStep(1'000'000'000);
    {
        ActionProgress progress(session, 4, 4'000'000);
        EXPECT_TRUE(Form().lblProgress.Visible);
        EXPECT_EQ(Form().prgBytes.Max.Get(), 4'000'000);
        EXPECT_TRUE(progress.InFile({"C:\\a", 1'000'000, 2'000'000}));
        EXPECT_EQ(Form().lblProgress.Caption.Get(),
                  "0 of 4 objects - 1.0 MB of 4.0 MB - 1.0 MB/s - 0:03 left");
        EXPECT_EQ(Form().prgBytes.Value.Get(), 1'000'000);
    }
    EXPECT_FALSE(Form().lblProgress.Visible);
    EXPECT_FALSE(Form().prgBytes.Visible);
}

TEST_F(Progress, TheTimeOfAQuestionIsNoTimeOfWork) {
    ActionProgress progress(session, 4, 4'000'000);
    machine.clock.SetStep(1'000'000'000);
    progress.InFile({"C:\\a", 1'000'000, 2'000'000});
    machine.clock.SetStep(100'000'000'000);
    progress.InFile({"C:\\a", 1'500'000, 2'000'000});
    EXPECT_EQ(Form().lblProgress.Caption.Get(),
              "0 of 4 objects - 1.5 MB of 4.0 MB - 1.5 MB/s - 0:01 left");
}

TEST_F(Progress, OfAFolderTheWholeIsToldOnceItIsKnown) {
    machine.clock.SetStep(1'000'000'000);
    ActionProgress progress(session, 4, 0);
    progress.InFile({"C:\\a", 1'000'000, 0});
    EXPECT_EQ(Form().lblProgress.Caption.Get(), "0 of 4 objects - 1.0 MB of this one");
    progress.InFile({"C:\\b", 1'500'000, 2'000'000});
    EXPECT_EQ(Form().lblProgress.Caption.Get(), "0 of 4 objects - 1.5 MB of 2.0 MB of this one");
}

TEST_F(Progress, WithoutBytesTheBarCountsObjects) {
    machine.clock.SetStep(1'000'000'000);
    ActionProgress progress(session, 1, 0);
    progress.Step();
    EXPECT_EQ(Form().lblProgress.Caption.Get(), "1 of 1 object");
    EXPECT_EQ(Form().prgBytes.Value.Get(), 1);
}

} // namespace
} // namespace tarvix::actions
