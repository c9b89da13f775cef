#include "search/follow_up.h"
#include "search/search_request.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

constexpr const char* kFirst =
    "Would you like every empty folder, that matches the search criteria, in the search folder "
    "automatically deleted?";
constexpr const char* kSecond = "Are you sure?,\r\n\r\nThis will continue repeat searching and "
                                "deleting until none are found.";
constexpr const char* kDone = "All empty folders, matching search criteria, have been deleted.";

// Empty folders found and deleted again and again, by a deletion that stands in for the bin's.
class RepeatDeletion : public ProgramFixture {
  protected:
    RepeatDeletion() {
        Disk().AddFolder("C:\\t\\a\\b\\c");
        Disk().AddFolder("C:\\t\\x");
        Disk().AddFile("C:\\t\\full\\f.txt");
    }
    void StartForEmptyFolders() {
        Start();
        S().events.On("frmSearch.cmdDeleteSelected_Click",
                      [this](session::Session& session, const session::EventArgs&) {
                          ++deletions;
                          for (const auto& path : session.selection->strSelPath) {
                              EXPECT_TRUE(session.files().RemoveFolder(path)) << path;
                          }
                          State().lastAction.done = session.selection->lngSelTop + 1;
                      });
        WithSubfolders();
        Set(Form().chkRepeatSearch, "1");
        Choose(Form().optFilesVsDirs, 4);
    }
    void Answer(std::initializer_list<const char*> answers) {
        for (const char* answer : answers) {
            prompts.Queue(answer);
        }
    }
    int deletions = 0;
};

TEST_F(RepeatDeletion, GoesOnUntilNoneAreFoundAndSaysSo) {
    StartForEmptyFolders();
    Answer({"Yes", "Yes"});
    Search("*", "C:\\t");
    EXPECT_THAT(Told(), ElementsAre(kFirst, kSecond, kDone));
    EXPECT_EQ(prompts.Records()[0].style, 276);
    EXPECT_EQ(prompts.Records()[1].style, 276);
    EXPECT_EQ(deletions, 3) << "c and x, then b, then a";
    EXPECT_THAT(Disk().AllFolders(), ::testing::Contains("C:\\t\\full"));
    EXPECT_FALSE(Disk().Exists("C:\\t\\a"));
    EXPECT_FALSE(Disk().Exists("C:\\t\\x"));
    EXPECT_TRUE(Disk().Exists("C:\\t\\full\\f.txt"));
    EXPECT_FALSE(State().blnRepeatDeleteEmpty);
}

TEST_F(RepeatDeletion, ANoToEitherQuestionDeletesNothing) {
    StartForEmptyFolders();
    Answer({"No"});
    Search("*", "C:\\t");
    Answer({"Yes", "No"});
    Click(Form().cmdSearch);
    EXPECT_THAT(Told(), ElementsAre(kFirst, kFirst, kSecond));
    EXPECT_EQ(deletions, 0);
    EXPECT_THAT(Names(), ElementsAre("x", "c"));
}

TEST_F(RepeatDeletion, IsNotOfferedForOtherKindsNorWithoutSubfoldersOrRepeat) {
    StartForEmptyFolders();
    Choose(Form().optFilesVsDirs, 3);
    Search("*", "C:\\t");
    Choose(Form().optFilesVsDirs, 4);
    Set(Form().chkIncludeSubFolders, "0");
    Click(Form().cmdSearch);
    WithSubfolders();
    Set(Form().chkRepeatSearch, "0");
    Click(Form().cmdSearch);
    EXPECT_TRUE(Told().empty());
}

TEST_F(RepeatDeletion, OnlyDeletesWhatMatches) {
    StartForEmptyFolders();
    Answer({"Yes", "Yes"});
    Search("x*", "C:\\t");
    EXPECT_FALSE(Disk().Exists("C:\\t\\x"));
    EXPECT_TRUE(Disk().Exists("C:\\t\\a\\b\\c"));
}

TEST_F(RepeatDeletion, AStopDeletesNothingAndIsNotTakenForConsentLater) {
    StartForEmptyFolders();
    Answer({"Yes", "Yes"});
    S().yielder.After(6, [this] { Click(Form().cmdStop); });
    Search("*", "C:\\t");
    EXPECT_EQ(deletions, 0);
    EXPECT_FALSE(State().blnRepeatDeleteEmpty);
    EXPECT_TRUE(Disk().Exists("C:\\t\\a\\b\\c"));
}

TEST_F(RepeatDeletion, ARefusedSearchIsNoConsentForTheNextOne) {
    StartForEmptyFolders();
    Answer({"Yes", "Yes"});
    Click(Form().chkSize);
    Form().txtSize1.Text = "x";
    Search("*", "C:\\t");
    EXPECT_FALSE(State().blnRepeatDeleteEmpty);
    Click(Form().chkSize);
    Choose(Form().optFilesVsDirs, 2);
    Search("*", "C:\\t");
    EXPECT_EQ(deletions, 0);
    Choose(Form().optFilesVsDirs, 4);
    Answer({"No"});
    Search("*", "C:\\t");
    EXPECT_EQ(deletions, 0) << "it is asked anew";
}

TEST_F(RepeatDeletion, DeletesOnlyWhatASearchForEmptyFoldersListed) {
    StartForEmptyFolders();
    State().blnRepeatDeleteEmpty = true;
    Choose(Form().optFilesVsDirs, 2);
    Search("*", "C:\\t");
    EXPECT_EQ(deletions, 0);
    EXPECT_FALSE(State().blnRepeatDeleteEmpty);
    State().blnRepeatDeleteEmpty = true;
    const search::SearchRequest request{.kind = search::Kind::kAllObjects};
    EXPECT_EQ(search::RunFollowUp(S(), &request, {}), search::Next::kRest);
    EXPECT_EQ(deletions, 0);
}

TEST_F(RepeatDeletion, AFolderFilledBetweenSearchAndDeletionIsKept) {
    StartForEmptyFolders();
    S().events.On("frmSearch.cmdDeleteSelected_Click",
                  [this](session::Session& session, const session::EventArgs&) {
                      Disk().AddFile("C:\\t\\x\\new.txt");
                      State().lastAction = {};
                      for (const auto& path : session.selection->strSelPath) {
                          if (session.files().RemoveFolder(path)) ++State().lastAction.done;
                      }
                  });
    Answer({"Yes", "Yes"});
    Search("*", "C:\\t");
    EXPECT_TRUE(Disk().Exists("C:\\t\\x\\new.txt"));
    EXPECT_EQ(Told().back(), kDone);
}

TEST_F(RepeatDeletion, GoesByTheCountNotByWhatALabelReads) {
    StartForEmptyFolders();
    State().blnRepeatDeleteEmpty = true;
    State().lngFoldersFound = 1;
    Form().lblNumOfDirsFound.Caption = "0";
    const search::SearchRequest request{.kind = search::Kind::kEmptyFolders};
    search::RunFollowUp(S(), &request, {});
    EXPECT_EQ(deletions, 1);
    State().blnRepeatDeleteEmpty = true;
    State().lngFoldersFound = 0;
    Form().lblNumOfDirsFound.Caption = "1";
    EXPECT_EQ(search::RunFollowUp(S(), &request, {}), search::Next::kEnd);
    EXPECT_EQ(deletions, 1);
    EXPECT_EQ(Told().back(), kDone);
}

} // namespace
} // namespace tarvix::testing
