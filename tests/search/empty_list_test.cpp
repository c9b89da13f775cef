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

} // namespace
} // namespace tarvix::testing
