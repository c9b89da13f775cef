#include "search/empty_list.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

using search::EmptyListText;

constexpr std::string_view kHowTo = "Say what to search for and where, then press Search.";

class EmptyList : public ProgramFixture {};

TEST_F(EmptyList, SaysHowToBegin) {
    Start();
    EXPECT_EQ(EmptyListText(S().state), kHowTo);
}

TEST_F(EmptyList, SaysThatNothingWasFound) {
    Disk().AddFile("C:\\t\\one.txt");
    Start();
    Search("*.mp3", "C:\\t");
    EXPECT_EQ(EmptyListText(S().state), "No object matches.");
}

TEST_F(EmptyList, SaysSoOfAFolderThatHoldsOnlyFolders) {
    Disk().AddFolder("C:\\t\\sub");
    Start();
    Search("*.mp3", "C:\\t");
    EXPECT_EQ(EmptyListText(S().state), "No object matches.");
}

TEST_F(EmptyList, SaysThatASearchRuns) {
    session::SessionState state;
    state.blnSearching = true;
    state.lngSeenFiles = 7;
    EXPECT_EQ(EmptyListText(state), "Searching...");
}

class EmptyReasons : public ProgramFixture {
  protected:
    std::vector<std::string> Whys() {
        std::vector<std::string> whys;
        for (const search::EmptyReason& reason : search::EmptyListReasons(S())) {
            whys.push_back(reason.why + " / " + reason.button);
        }
        return whys;
    }
    using Lines = std::vector<std::string>;
};

TEST_F(EmptyReasons, TellsOfSubfoldersAndSearchesThem) {
    Disk().AddFile("C:\\t\\one.txt");
    Disk().AddFile("C:\\t\\a\\two.mp3");
    Disk().AddFolder("C:\\t\\b");
    Start();
    State().options.blnAllowUserSelectSubfolders = true;
    Form().chkIncludeSubFolders.Value = 0;
    Set(Form().optFilesVsDirs[2], "1");
    Search("*.mp3", "C:\\t");
    EXPECT_EQ(search::EmptyListTitle(S()), "No object matches *.mp3 in C:\\t");
    EXPECT_EQ(Whys(), Lines{"2 subfolders were not searched. / Search Subfolders Too"});
    search::TakeWayOut(S(), search::WayOut::kSubfolders);
    EXPECT_EQ(Names(), Lines{"two.mp3"});
    EXPECT_EQ(Form().chkIncludeSubFolders.Value, 1);
    EXPECT_EQ(search::EmptyListTitle(S()), "");
    EXPECT_EQ(Whys(), Lines{});
}

TEST_F(EmptyReasons, OffersNoWayThatTheOptionsForbid) {
    Disk().AddFolder("C:\\t\\b");
    Start();
    State().options.blnAllowUserSelectSubfolders = false;
    Form().chkIncludeSubFolders.Value = 0;
    Set(Form().optFilesVsDirs[2], "1");
    Search("*.mp3", "C:\\t");
    EXPECT_EQ(Whys(), Lines{"1 subfolder was not searched. / "});
    EXPECT_EQ(search::EmptyListReasons(S())[0].way, search::WayOut::kNone);
}

TEST_F(EmptyReasons, TellsOfBoxesAndTestsAndKinds) {
    Disk().AddFile("C:\\t\\one.mp3", "123").attributes |= platform::kHidden;
    Start();
    Search("*.mp3", "C:\\t");
    EXPECT_EQ(Whys(), (Lines{"Left out: 1 hidden. / Find Them Too",
                             "Only files were looked for. / Look for All Objects"}));
    search::TakeWayOut(S(), search::WayOut::kLeftOut);
    EXPECT_EQ(Names(), Lines{"one.mp3"});
    Set(Form().chkSize, "1");
    Set(Form().txtSize1, "1K");
    Set(Form().optFilesVsDirs[2], "1");
    Search("*.mp3", "C:\\t");
    EXPECT_EQ(Whys(), Lines{"Only objects of a certain size count. / Search without Size"});
    search::TakeWayOut(S(), search::WayOut::kTests);
    EXPECT_EQ(Form().chkSize.Value, 0);
    EXPECT_EQ(Names(), Lines{"one.mp3"});
}

TEST_F(EmptyReasons, TellsOfAReversedSearch) {
    Disk().AddFile("C:\\t\\one.mp3");
    Start();
    Set(Form().optFilesVsDirs[2], "1");
    Set(Form().chkNot, "1");
    Search("*.mp3", "C:\\t");
    EXPECT_EQ(Whys(), Lines{"Names that match were passed over. / Search without NOT"});
    search::TakeWayOut(S(), search::WayOut::kNot);
    EXPECT_EQ(Names(), Lines{"one.mp3"});
}

TEST_F(EmptyReasons, SaysNothingBeforeASearchAndBesideRows) {
    Disk().AddFile("C:\\t\\one.mp3");
    Start();
    EXPECT_EQ(search::EmptyListTitle(S()), "");
    Search("", "C:\\t");
    EXPECT_EQ(Names(), Lines{"one.mp3"});
    EXPECT_EQ(Whys(), Lines{});
}

TEST_F(EmptyReasons, TakingAllKindsFindsFolders) {
    Disk().AddFolder("C:\\t\\Live");
    Start();
    Search("Live", "C:\\t");
    EXPECT_EQ(Whys().back(), "Only files were looked for. / Look for All Objects");
    search::TakeWayOut(S(), search::WayOut::kKind);
    EXPECT_EQ(Names(), Lines{"Live"});
}

} // namespace
} // namespace tarvix::testing
