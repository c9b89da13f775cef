#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// What the crawl meets on a disk.
class Crawl : public ProgramFixture {
  protected:
    void FindAll(std::string_view location = "C:\\t", std::string_view pattern = "*") {
        Start();
        WithSubfolders();
        LookForAllAttributes();
        Choose(Form().optFilesVsDirs, 2);
        Search(pattern, location);
    }
};

TEST_F(Crawl, AnEmptyTreeHasNoRows) {
    Disk().AddFolder("C:\\t");
    FindAll();
    EXPECT_THAT(Paths(), IsEmpty());
    EXPECT_EQ(Form().lblNumOfFilesFound.Caption.Get(), "0");
    EXPECT_EQ(Form().lblNumOfDirsFound.Caption.Get(), "0");
    EXPECT_TRUE(HasEntry(LogText(), " Normal end to search"));
}

TEST_F(Crawl, GoesBreadthFirstWithTheRowsOfEachFolderBehindIt) {
    Disk().AddFile("C:\\t\\b\\x.txt");
    Disk().AddFile("C:\\t\\a\\deep\\z.txt");
    Disk().AddFile("C:\\t\\a\\y.txt");
    Disk().AddFile("C:\\t\\root.txt");
    FindAll();
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\root.txt", "C:\\t\\a", "C:\\t\\a\\y.txt", "C:\\t\\b",
                                     "C:\\t\\b\\x.txt", "C:\\t\\a\\deep", "C:\\t\\a\\deep\\z.txt"));
}

TEST_F(Crawl, WithALikeCharacterAllFoldersComeBeforeTheFilesBelow) {
    Disk().AddFile("C:\\t\\#b\\#x.txt");
    Disk().AddFile("C:\\t\\#a\\#y.txt");
    Disk().AddFile("C:\\t\\#r.txt");
    FindAll("C:\\t", "#*");
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\#r.txt", "C:\\t\\#a", "C:\\t\\#b", "C:\\t\\#a\\#y.txt",
                                     "C:\\t\\#b\\#x.txt"));
}

TEST_F(Crawl, AFolderThatCannotBeReadHasNoObjectsAndTheRestIsFound) {
    Disk().AddFile("C:\\t\\locked\\secret.txt");
    Disk().Node("C:\\t\\locked")->isUnreadable = true;
    Disk().AddFile("C:\\t\\open\\o.txt");
    FindAll();
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\locked", "C:\\t\\open", "C:\\t\\open\\o.txt"));
    EXPECT_TRUE(Told().empty());
}

TEST_F(Crawl, AFolderThatVanishesDuringTheCrawlIsNotListed) {
    Disk().AddFile("C:\\t\\a\\1.txt");
    Disk().AddFile("C:\\t\\b\\2.txt");
    Start();
    WithSubfolders();
    LookForAllAttributes();
    Choose(Form().optFilesVsDirs, 2);
    machine.faults.ResetCounts();
    // The root is listed once; "a" is next.
    machine.faults.BeforeCall("Open", 2, [this] { Disk().Node("C:\\t\\a")->Detach(); });
    Search("*", "C:\\t");
    EXPECT_THAT(Paths(), ElementsAre("C:\\t\\b", "C:\\t\\b\\2.txt"));
    EXPECT_TRUE(HasEntry(LogText(), " Normal end to search"));
}

TEST_F(Crawl, AFileThatVanishesBeforeItsFactsAreReadIsNotListed) {
    Disk().AddFile("C:\\t\\1.txt");
    Disk().AddFile("C:\\t\\2.txt");
    Start();
    machine.faults.BeforeCall("FolderFacts", 1, [this] { Disk().Node("C:\\t\\1.txt")->Detach(); });
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("2.txt"));
}

TEST_F(Crawl, ALinkLoopIsListedOnceAndNeverWalked) {
    Disk().AddFile("C:\\t\\sub\\f.txt");
    Disk().AddLink("C:\\t\\sub\\up", "C:\\t");
    Disk().AddLink("C:\\t\\self", "C:\\t\\self");
    FindAll();
    EXPECT_THAT(Paths(),
                ElementsAre("C:\\t\\self", "C:\\t\\sub", "C:\\t\\sub\\f.txt", "C:\\t\\sub\\up"));
}

TEST_F(Crawl, ALinkToAFolderIsAFolderWithTheAliasBit) {
    Disk().AddFile("C:\\far\\f.txt");
    Disk().AddFolder("C:\\t");
    Disk().AddLink("C:\\t\\link", "C:\\far");
    FindAll();
    ASSERT_THAT(Paths(), ElementsAre("C:\\t\\link"));
    EXPECT_TRUE(program.Rows().At(0).isFolder);
    EXPECT_THAT(Cells(results::kAttributes), ElementsAre(::testing::HasSubstr("A")));
}

TEST_F(Crawl, LinksAreNotFoundUnlessTheAliasBoxAllowsThem) {
    Disk().AddFolder("C:\\far");
    Disk().AddFolder("C:\\t");
    Disk().AddLink("C:\\t\\link", "C:\\far");
    Disk().AddLink("C:\\t\\dangling", "C:\\nowhere");
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 2);
    Search("*", "C:\\t");
    EXPECT_THAT(Paths(), IsEmpty());
    Set(Form().chkAlias, "1");
    Click(Form().cmdSearch);
    EXPECT_THAT(Names(), ElementsAre("dangling", "link"));
}

TEST_F(Crawl, AFifoCarriesBit64) {
    Disk().AddSpecial("C:\\t\\pipe");
    Disk().AddFile("C:\\t\\file");
    Start();
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("file"));
    Set(Form().chk64, "1");
    Click(Form().cmdSearch);
    EXPECT_THAT(Names(), ElementsAre("pipe"));
    EXPECT_THAT(Cells(results::kAttributes), ElementsAre("a6"));
}

TEST_F(Crawl, AMountThatMustNotBeEnteredIsListedButNeverWalked) {
    Disk().AddFile("C:\\proc\\1\\cmdline");
    Disk().Node("C:\\proc")->isBoundary = true;
    FindAll("C:", "*c*");
    const auto paths = Paths();
    EXPECT_THAT(paths, ::testing::Contains("C:\\proc"));
    EXPECT_THAT(paths, ::testing::Not(::testing::Contains(::testing::StartsWith("C:\\proc\\"))));
    for (const std::string& listed : Disk().Calls().listed) {
        EXPECT_FALSE(listed.starts_with("C:\\proc")) << listed;
    }
}

TEST_F(Crawl, FoldersThatAreNotEnteredAreNeverEmpty) {
    Disk().AddFolder("C:\\t\\mount").isBoundary = true;
    Disk().AddFolder("C:\\t\\locked").isUnreadable = true;
    Disk().AddFolder("C:\\empty");
    Disk().AddLink("C:\\t\\link", "C:\\empty");
    Disk().AddFolder("C:\\t\\really empty");
    Start();
    WithSubfolders();
    LookForAllAttributes();
    Choose(Form().optFilesVsDirs, 4);
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("really empty"));
}

TEST_F(Crawl, AllUsersAtTheEndOfAPathIsSkippedWithTheNote) {
    Disk().AddFile("C:\\Users\\All Users\\x.txt");
    Disk().AddFile("C:\\Users\\ann\\y.txt");
    Start();
    WithSubfolders();
    Search("*.txt", "C:\\Users");
    EXPECT_THAT(Names(), ElementsAre("y.txt"));
    EXPECT_THAT(Told(), ElementsAre("C:\\Users\\All Users is not a real folder. You may want to "
                                    "add the actual folder C:\\ProgramData to your search location "
                                    "list."));
    EXPECT_EQ(prompts.Records()[0].form, "frmAllUsers");
}

TEST_F(Crawl, ANestedRecoveryModeFolderIsSkippedAndTheCrawlGoesOn) {
    Disk().AddFile("C:\\t\\Recovery-Mode\\RECOVERY-MODE\\inner.txt");
    Disk().AddFile("C:\\t\\Recovery-Mode\\after.txt");
    Disk().AddFile("C:\\t\\Recovery-Mode\\zz\\last.txt");
    Start();
    WithSubfolders();
    Search("*.txt", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("after.txt", "last.txt"));
    EXPECT_TRUE(HasEntry(LogText(), " Skipped C:\\t\\Recovery-Mode\\RECOVERY-MODE as nested "
                                    "Recovery-Mode folders are not allowed (Ubuntu)."));
}

TEST_F(Crawl, TellsWhatItSeesAndWhatItFinds) {
    Disk().AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\t\\s\\b.txt");
    Disk().AddFile("C:\\t\\s\\c.mp3");
    Start();
    WithSubfolders();
    Search("*.txt", "C:\\t");
    EXPECT_EQ(Form().lblNumOfFilesAttrib.Caption.Get(), "3");
    EXPECT_EQ(Form().lblNumOfDirsAttrib.Caption.Get(), "1");
    EXPECT_EQ(Form().lblNumOfFilesFound.Caption.Get(), "2");
    EXPECT_EQ(Form().lblNumOfDirsFound.Caption.Get(), "0");
}

TEST_F(Crawl, CountsWhatLiesDirectlyInEachFolder) {
    Disk().AddFile("C:\\t\\s\\1");
    Disk().AddFile("C:\\t\\s\\2");
    Disk().AddFile("C:\\t\\s\\deep\\3");
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 3);
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("s", "deep"));
    EXPECT_THAT(Cells(results::kFilesInFolder), ElementsAre("00,002", "00,001"));
    EXPECT_THAT(Cells(results::kFoldersInFolder), ElementsAre("00,001", "00,000"));
}

TEST_F(Crawl, WithoutSubfoldersTheChildrenAreListedAndTheirContentOnlyCounted) {
    Disk().AddFile("C:\\t\\s\\1");
    Disk().AddFile("C:\\t\\s\\deep\\2");
    Disk().AddFile("C:\\t\\root");
    Start();
    Choose(Form().optFilesVsDirs, 3);
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("s"));
    EXPECT_THAT(Cells(results::kFilesInFolder), ElementsAre("00,001"));
    EXPECT_THAT(Cells(results::kFoldersInFolder), ElementsAre("00,001"));
    EXPECT_EQ(Form().lblNumOfFilesAttrib.Caption.Get(), "1") << "only the location's own files";
}

TEST_F(Crawl, MoreSearchStringsReadNoFolderAgain) {
    for (int i = 0; i < 20; ++i) {
        Disk().AddFile("C:\\t\\" + std::to_string(i) + "\\f.txt");
    }
    Start();
    WithSubfolders();
    const auto listings = [this](std::string_view patterns) {
        Disk().ForgetCalls();
        machine.faults.ResetCounts();
        Search(patterns, "C:\\t");
        return machine.faults.Count("List");
    };
    EXPECT_EQ(listings("*.mp3"), listings("*.mp3|*.ogg|*.flac"));
}

} // namespace
} // namespace tarvix::testing
