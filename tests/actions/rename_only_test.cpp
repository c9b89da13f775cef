#include "actions/place/action_run.h"
#include "actions/request/read_request.h"
#include "actions/run/rename_only.h"
#include "tests/actions/bare_session.h"

#include <gmock/gmock.h>

#include <array>

namespace tarvix::actions {
namespace {

using ::testing::ElementsAre;

using Portion = NamePortion;
using enum NamePortion;

class RenameOnlyTest : public BareSession {
  protected:
    RenameOnlyTest() { session.state.strAction = "Rename"; }

    void AddFile(const std::string& path) {
        Disk().AddFile(path, "of " + path);
        Select(path);
    }
    void AddFolder(const std::string& path) {
        Disk().AddFolder(path);
        Select(path, false);
    }
    void Insert(const std::string& add, bool atEnd, Portion portion) {
        Form().chkAdd.Value = 1;
        Form().chkFindReplace.Value = 0;
        Form().txtAdd.Text = add;
        Form().chkAddEnd.Value = atEnd ? 1 : 0;
        Form().chkAddBeg.Value = atEnd ? 0 : 1;
        Form().optNamePortion.Choose(static_cast<int>(portion));
        Run();
    }
    void Replace(const std::string& find, const std::string& replace, bool all = true,
                 Portion portion = kPrefix) {
        Form().chkAdd.Value = 0;
        Form().chkFindReplace.Value = 1;
        Form().txtFind.Text = find;
        Form().txtReplace.Text = replace;
        Form().optOnceVsAll.Choose(all ? 1 : 0);
        Form().optNamePortion.Choose(static_cast<int>(portion));
        Run();
    }
    void Run() {
        const ActionRequest request = ReadRequest(session);
        ActionRun run(session, request);
        end = RenameOnly(session, run);
    }
    // The files below C:\t, less that.
    std::vector<std::string> Files() { return Below(Disk().AllFiles()); }
    std::vector<std::string> Folders() { return Below(Disk().AllFolders()); }
    void ExpectTotals(int done, int skipped, int failed) {
        EXPECT_EQ(session.state.lastAction.done, done);
        EXPECT_EQ(session.state.lastAction.skipped, skipped);
        EXPECT_EQ(session.state.lastAction.failed, failed);
        EXPECT_EQ(end.blnRenamed, done > 0);
    }
    static std::string Taken(const char* old, const char* newName, const char* word = "File") {
        return std::string("Could not rename: \r\n\r\nC:\\t\\") + old +
               "\r\n\r\n as: \r\n\r\nC:\\t\\" + newName + "\r\n\r\nThat " + word +
               " name already exists";
    }

    RenameOnlyEnd end;

  private:
    static std::vector<std::string> Below(const std::vector<std::string>& paths) {
        std::vector<std::string> below;
        for (const std::string& path : paths) {
            if (path.starts_with("C:\\t\\")) below.push_back(path.substr(5));
        }
        return below;
    }
};

struct Case {
    const char* name;
    const char* add;
    bool atEnd;
    Portion portion;
    const char* result;
};

TEST_F(RenameOnlyTest, TextIsInsertedOnTheSideAndPortionChosen) {
    for (const Case& c :
         {Case{"a.txt", "x", true, kPrefix, "ax.txt"}, Case{"a.txt", "x", false, kPrefix, "xa.txt"},
          Case{"a.txt", "x", true, kExtension, "a.txtx"},
          Case{"a.txt", "x", false, kExtension, "a.xtxt"},
          Case{"a.txt", "x", true, kWholeName, "a.txtx"},
          Case{"a.txt", "x", false, kWholeName, "xa.txt"},
          Case{"a.b.c", "ü", true, kPrefix, "a.bü.c"}, Case{"noext", "x", true, kPrefix, "noextx."},
          Case{"noext", "x", true, kExtension, "noext.x"},
          Case{"noext", "x", true, kWholeName, "noextx"}}) {
        selection = {};
        AddFile(std::string("C:\\t\\") + c.name);
        Insert(c.add, c.atEnd, c.portion);
        EXPECT_THAT(Files(), ElementsAre(c.result)) << c.name;
        ExpectTotals(1, 0, 0);
        Disk().Node(std::string("C:\\t\\") + c.result)->Detach();
    }
}

TEST_F(RenameOnlyTest, ForAFolderThePortionHasNoEffect) {
    for (const Portion portion : {kPrefix, kExtension, kWholeName}) {
        selection = {};
        AddFolder("C:\\t\\a.b");
        Insert("x", true, portion);
        EXPECT_THAT(Folders(), ElementsAre("a.bx"));
        Disk().Node("C:\\t\\a.bx")->Detach();
    }
}

TEST_F(RenameOnlyTest, AnInsertedNameThatIsTakenIsToldAndSkipped) {
    AddFile("C:\\t\\a.txt");
    AddFile("C:\\t\\b.txt");
    Disk().AddFile("C:\\t\\ax.txt", "old");
    Insert("x", true, kPrefix);
    EXPECT_EQ(Disk().Content("C:\\t\\ax.txt"), "old");
    EXPECT_THAT(Files(), ElementsAre("a.txt", "ax.txt", "bx.txt"));
    EXPECT_TRUE(WasTold(Taken("a.txt", "ax.txt")));
    EXPECT_TRUE(HasEntry(" " + Taken("a.txt", "ax.txt")));
    EXPECT_EQ(prompts.Records()[0].style, session::kOkOnly);
    ExpectTotals(1, 1, 0);
    EXPECT_FALSE(end.blnStopped);
}

TEST_F(RenameOnlyTest, TheStatusTellsOfTheNameInHandWhetherItIsFreeTakenOrNone) {
    const auto status = [this] { return Form().lblStatus.Caption.Get(); };
    AddFile("C:\\t\\a.txt");
    Insert("x", true, kPrefix);
    EXPECT_EQ(status(), "Renaming C:\\t\\a.txt  as  C:\\t\\ax.txt");
    selection = {};
    AddFile("C:\\t\\b.txt");
    Disk().AddFile("C:\\t\\bx.txt", "old");
    Insert("x", true, kPrefix);
    EXPECT_EQ(status(), "Renaming C:\\t\\b.txt  as  C:\\t\\bx.txt");
    Insert("?", true, kPrefix);
    EXPECT_EQ(status(), "Renaming C:\\t\\b.txt  as  C:\\t\\b?.txt");
}

TEST_F(RenameOnlyTest, AnInsertedNameThatIsTakenIsOnlyLoggedInAutomaticMode) {
    session.state.options.blnAutoMode = true;
    AddFolder("C:\\t\\a");
    Disk().AddFolder("C:\\t\\ax");
    Insert("x", true, kPrefix);
    EXPECT_TRUE(prompts.Records().empty());
    EXPECT_TRUE(HasEntry(" " + Taken("a", "ax", "Folder")));
}

TEST_F(RenameOnlyTest, InsertingNothingFindsTheNameTaken) {
    AddFile("C:\\t\\a.txt");
    Insert("", true, kPrefix);
    EXPECT_THAT(Files(), ElementsAre("a.txt"));
    ExpectTotals(0, 1, 0);
}

// ---- find and replace ----

TEST_F(RenameOnlyTest, AnEmptyTextToFindChangesNothing) {
    AddFile("C:\\t\\a.txt");
    machine.faults.ResetCounts();
    Replace("", "x");
    EXPECT_THAT(Files(), ElementsAre("a.txt"));
    EXPECT_EQ(machine.faults.Count("MoveFile"), 0U);
    ExpectTotals(0, 1, 0);
}

TEST_F(RenameOnlyTest, AnEmptyReplacementDeletesTheHit) {
    AddFile("C:\\t\\aXbxXc.txt");
    Replace("x", "");
    EXPECT_THAT(Files(), ElementsAre("abc.txt"));
}

TEST_F(RenameOnlyTest, OnlyTheCaseMayChange) {
    AddFile("C:\\t\\a.txt");
    AddFolder("C:\\t\\dada");
    Replace("a", "A");
    EXPECT_THAT(Files(), ElementsAre("A.txt"));
    EXPECT_THAT(Folders(), ElementsAre("dAdA"));
    EXPECT_TRUE(prompts.Records().empty());
    ExpectTotals(2, 0, 0);
}

TEST_F(RenameOnlyTest, ALongerReplacementIsNotSearchedAgain) {
    AddFile("C:\\t\\aXa.txt");
    Replace("a", "aa");
    EXPECT_THAT(Files(), ElementsAre("aaXaa.txt"));
}

struct ReplaceCase {
    const char* name;
    const char* find;
    const char* replace;
    bool all;
    Portion portion;
    const char* result;
};

TEST_F(RenameOnlyTest, HitsAreReplacedInThePortionChosen) {
    for (const ReplaceCase& c : {
             ReplaceCase{"abab.abab", "b", "c", true, kPrefix, "acac.abab"},
             ReplaceCase{"abab.abab", "b", "c", false, kPrefix, "acab.abab"},
             ReplaceCase{"abab.abab", "b", "c", true, kExtension, "abab.acac"},
             ReplaceCase{"abab.abab", "b", "c", false, kExtension, "abab.acab"},
             ReplaceCase{"abab.abab", "b", "c", true, kWholeName, "acac.acac"},
             ReplaceCase{"a.b.c", ".", "_", true, kWholeName, "a_b_c"},
             ReplaceCase{"a.b.c", ".", "_", true, kPrefix, "a_b.c"},
             ReplaceCase{"aaaa.x", "aa", "b", true, kPrefix, "bb.x"},
             ReplaceCase{"aaa.x", "a", "", true, kWholeName, ".x"},
             ReplaceCase{"ÄäÄ.x", "ä", "ae", true, kPrefix, "aeaeae.x"},
             ReplaceCase{"日x本x.x", "X", "日本", true, kPrefix, "日日本本日本.x"},
             ReplaceCase{"noext", "o", "0", true, kPrefix, "n0ext."},
             ReplaceCase{"1 a.x", "1", "", true, kPrefix, "a.x"},
             ReplaceCase{"a 1.x", "1", "", true, kPrefix, "a.x"},
             ReplaceCase{"a.1 x", "1", "", true, kExtension, "a. x"},
         }) {
        selection = {};
        AddFile(std::string("C:\\t\\") + c.name);
        Replace(c.find, c.replace, c.all, c.portion);
        EXPECT_THAT(Files(), ElementsAre(c.result)) << c.name << ' ' << c.find;
        ExpectTotals(1, 0, 0);
        Disk().Node(std::string("C:\\t\\") + c.result)->Detach();
    }
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(RenameOnlyTest, EachHitIsARenameOfItsOwn) {
    AddFile("C:\\t\\1-1-1.txt");
    Replace("1", "2");
    for (const char* line : {" Renamed C:\\t\\1-1-1.txt -- as -- C:\\t\\2-1-1.txt",
                             " Renamed C:\\t\\2-1-1.txt -- as -- C:\\t\\2-2-1.txt",
                             " Renamed C:\\t\\2-2-1.txt -- as -- C:\\t\\2-2-2.txt"}) {
        EXPECT_TRUE(HasEntry(line)) << line;
    }
    EXPECT_EQ(Disk().Content("C:\\t\\2-2-2.txt"), "of C:\\t\\1-1-1.txt");
    ExpectTotals(1, 0, 0);
}

TEST_F(RenameOnlyTest, ATakenNameAsksAndOkGoesOnWithTheNextHit) {
    AddFile("C:\\t\\aXa.txt");
    Disk().AddFile("C:\\t\\bXa.txt", "old");
    prompts.Queue("OK");
    Replace("a", "b");
    EXPECT_EQ(prompts.Records()[0].style, session::kOkCancel);
    EXPECT_EQ(prompts.Records()[0].text, Taken("aXa.txt", "bXa.txt"));
    EXPECT_TRUE(HasEntry(" Was unable to rename C:\\t\\aXa.txt as C:\\t\\bXa.txt"));
    EXPECT_EQ(Disk().Content("C:\\t\\bXa.txt"), "old");
    EXPECT_THAT(Files(), ElementsAre("aXb.txt", "bXa.txt"));
    EXPECT_FALSE(end.blnStopped);
}

TEST_F(RenameOnlyTest, ATakenNameIsAskedOnceForEachObject) {
    AddFile("C:\\t\\aXa.txt");
    Disk().AddFile("C:\\t\\Xa.txt", "1");
    Disk().AddFile("C:\\t\\aX.txt", "2");
    prompts.Queue("OK");
    Replace("a", "");
    EXPECT_EQ(prompts.Records().size(), 1U);
    EXPECT_THAT(Files(), ElementsAre("aX.txt", "aXa.txt", "Xa.txt"));
    ExpectTotals(0, 1, 0);
}

TEST_F(RenameOnlyTest, CancelAtATakenNameStopsTheActionAndKeepsWhatWasRenamed) {
    AddFile("C:\\t\\a1.txt");
    AddFile("C:\\t\\a2.txt");
    AddFile("C:\\t\\a3.txt");
    Disk().AddFile("C:\\t\\b2.txt", "old");
    prompts.Queue("Cancel");
    Replace("a", "b");
    EXPECT_TRUE(end.blnStopped);
    EXPECT_TRUE(end.blnRenamed);
    EXPECT_TRUE(
        HasEntry(" Was unable to rename C:\\t\\a2.txt as C:\\t\\b2.txt and user canceled."));
    EXPECT_THAT(Files(), ElementsAre("a2.txt", "a3.txt", "b1.txt", "b2.txt"));
    ExpectTotals(1, 1, 0);
}

TEST_F(RenameOnlyTest, InAutomaticModeATakenNameIsLoggedOncePerObject) {
    session.state.options.blnAutoMode = true;
    AddFile("C:\\t\\aXa.txt");
    Disk().AddFile("C:\\t\\Xa.txt", "1");
    Disk().AddFile("C:\\t\\aX.txt", "2");
    Replace("a", "");
    EXPECT_TRUE(prompts.Records().empty());
    const std::string log = Log();
    EXPECT_TRUE(HasEntry(" Was unable to rename C:\\t\\aXa.txt as C:\\t\\Xa.txt"));
    EXPECT_EQ(log.find("Was unable"), log.rfind("Was unable"));
}

TEST_F(RenameOnlyTest, AnotherObjectInAnotherCaseIsTakenToo) {
    AddFile("C:\\t\\foo.txt");
    Disk().AddFile("C:\\t\\BAR.txt", "old");
    prompts.Queue("OK");
    Replace("foo", "bar");
    EXPECT_THAT(Files(), ElementsAre("BAR.txt", "foo.txt"));
    EXPECT_EQ(prompts.Records()[0].text, Taken("foo.txt", "bar.txt"));
    ExpectTotals(0, 1, 0);
}

TEST_F(RenameOnlyTest, AChangeOfCaseBesideANeighbourOfThatNameIsTaken) {
    AddFile("C:\\t\\Aa.TXT");
    Disk().AddFile("C:\\t\\aa.txt", "old");
    prompts.Queue("OK");
    Replace("aa", "AA");
    EXPECT_THAT(Files(), ::testing::UnorderedElementsAre("Aa.TXT", "aa.txt"));
    EXPECT_EQ(Disk().Content("C:\\t\\aa.txt"), "old");
    ASSERT_EQ(prompts.Records().size(), 1U);
    EXPECT_EQ(prompts.Records()[0].text, Taken("Aa.TXT", "AA.TXT"));
    ExpectTotals(0, 1, 0);
}

TEST_F(RenameOnlyTest, ATextWithAPathInItMovesNothing) {
    AddFile("C:\\t\\a.txt");
    Disk().AddFolder("C:\\t\\b");
    Insert("..\\..\\x", false, kWholeName);
    Insert("b\\", false, kWholeName);
    Replace("a", "..\\up", true, kWholeName);
    EXPECT_THAT(Files(), ElementsAre("a.txt"));
    EXPECT_FALSE(end.blnRenamed);
}

TEST_F(RenameOnlyTest, ANameOfWhichNothingWouldBeLeftIsRefused) {
    AddFolder("C:\\t\\aaa");
    Disk().AddFile("C:\\t\\aaa\\inside.txt", "x");
    Replace("aaa", " ");
    EXPECT_THAT(Folders(), ElementsAre("aaa"));
    EXPECT_EQ(Disk().Content("C:\\t\\aaa\\inside.txt"), "x");
    EXPECT_TRUE(WasTold("Could not rename: \r\n\r\nC:\\t\\aaa\r\n\r\nNothing would be left of the "
                        "name."));
    ExpectTotals(0, 1, 0);
}

// ---- order ----

TEST_F(RenameOnlyTest, AFileBelowASelectedFolderIsRenamedFirst) {
    AddFolder("C:\\t\\a");
    AddFile("C:\\t\\a\\a.txt");
    Replace("a", "b");
    EXPECT_THAT(Files(), ElementsAre("b\\b.txt"));
    EXPECT_TRUE(HasEntry(" Renamed C:\\t\\a\\a.txt -- as -- C:\\t\\a\\b.txt"));
    EXPECT_TRUE(HasEntry(" Renamed C:\\t\\a -- as -- C:\\t\\b"));
    EXPECT_LT(Log().find("a.txt -- as"), Log().find("Renamed C:\\t\\a --"));
}

TEST_F(RenameOnlyTest, FoldersInsideEachOtherAreAllFoundInAnyOrder) {
    for (const auto& order : {std::array{"C:\\t\\a", "C:\\t\\a\\a", "C:\\t\\a\\a\\a"},
                              std::array{"C:\\t\\a\\a\\a", "C:\\t\\a\\a", "C:\\t\\a"},
                              std::array{"C:\\t\\a\\a", "C:\\t\\a", "C:\\t\\a\\a\\a"}}) {
        selection = {};
        for (const char* path : order) {
            AddFolder(path);
        }
        Replace("a", "b");
        EXPECT_THAT(Folders(), ElementsAre("b", "b\\b", "b\\b\\b")) << order[0];
        ExpectTotals(3, 0, 0);
        Disk().Node("C:\\t\\b")->Detach();
    }
}

TEST_F(RenameOnlyTest, AFolderThatTakesTheFormerNameOfAnotherIsNotTakenForIt) {
    AddFolder("C:\\t\\ab");
    AddFolder("C:\\t\\aab");
    AddFolder("C:\\t\\ab\\a1");
    AddFolder("C:\\t\\aab\\a2");
    Replace("a", "", false);
    EXPECT_THAT(Folders(), ElementsAre("ab", "ab\\2", "b", "b\\1"));
    ExpectTotals(4, 0, 0);
}

// ---- stop, failures, long paths ----

TEST_F(RenameOnlyTest, AStopTakesEffectAtTheNextObject) {
    for (const char* path : {"C:\\t\\a1", "C:\\t\\a2", "C:\\t\\a3"}) {
        AddFile(path);
    }
    machine.faults.BeforeCall("MoveFile", 2, [this] { session.state.blnStopAction = true; });
    Replace("a", "b", true, kWholeName);
    EXPECT_THAT(Files(), ElementsAre("a3", "b1", "b2"));
    EXPECT_FALSE(end.blnStopped) << "the window closes";
    ExpectTotals(2, 0, 0);
}

TEST_F(RenameOnlyTest, AStopOfTheActionBeforeIsForgotten) {
    session.state.blnStopAction = true;
    AddFile("C:\\t\\a");
    Replace("a", "b", true, kWholeName);
    EXPECT_THAT(Files(), ElementsAre("b"));
}

TEST_F(RenameOnlyTest, AnObjectThatFailsIsCountedAndTheOthersGoOn) {
    session.state.options.blnAutoMode = true;
    AddFile("C:\\t\\1-1.txt");
    AddFile("C:\\t\\1.txt");
    machine.faults.FailPath("C:\\t\\1-1.txt", 75, "MoveFile");
    Replace("1", "2");
    EXPECT_THAT(Files(), ElementsAre("1-1.txt", "2.txt"));
    ExpectTotals(1, 0, 1);
    EXPECT_TRUE(session.state.blnErrorOccurred);
    EXPECT_TRUE(HasEntry(" Renamed C:\\t\\1.txt -- as -- C:\\t\\2.txt"));
}

TEST_F(RenameOnlyTest, AnObjectThatIsGoneMeanwhileIsAFailureOfItsOwn) {
    session.state.options.blnAutoMode = true;
    AddFile("C:\\t\\a1.txt");
    AddFile("C:\\t\\a2.txt");
    Disk().Node("C:\\t\\a1.txt")->Detach();
    Replace("a", "b");
    EXPECT_THAT(Files(), ElementsAre("b2.txt"));
    ExpectTotals(1, 0, 1);
}

TEST_F(RenameOnlyTest, ReadOnlyAndHiddenObjectsKeepTheirAttributes) {
    AddFile("C:\\t\\a.txt");
    Disk().Node("C:\\t\\a.txt")->attributes |= platform::kReadOnly | platform::kHidden;
    Replace("a", "b");
    const auto* renamed = Disk().Node("C:\\t\\b.txt");
    ASSERT_NE(renamed, nullptr);
    EXPECT_NE(renamed->attributes & platform::kReadOnly, 0U);
    EXPECT_NE(renamed->attributes & platform::kHidden, 0U);
}

class LongRename : public RenameOnlyTest {
  protected:
    // Its path has 255 characters.
    std::string AddLongFile() {
        const std::string folder = "C:\\t\\" + std::string(120, 'f') + "\\" + std::string(100, 'g');
        AddFile(folder + "\\" + std::string(24, 'a') + ".txt");
        return folder;
    }
};

TEST_F(RenameOnlyTest, ANameWithNothingToReplaceIsAsItShouldBe) {
    AddFile("C:\\t\\a.txt");
    AddFile("C:\\t\\x.txt");
    Replace("a", "b");
    EXPECT_THAT(Files(), ElementsAre("b.txt", "x.txt"));
    ExpectTotals(1, 1, 0);
    EXPECT_EQ(session.state.lastAction.unchanged, 1);
    EXPECT_TRUE(session.state.lastAction.IsAsAsked());
}

TEST_F(RenameOnlyTest, ANameThatIsTakenIsNotUnchanged) {
    AddFile("C:\\t\\a.txt");
    Disk().AddFile("C:\\t\\b.txt");
    prompts.Queue("OK");
    Replace("a", "b");
    EXPECT_EQ(session.state.lastAction.unchanged, 0);
    EXPECT_FALSE(session.state.lastAction.IsAsAsked());
}

TEST_F(LongRename, ContinuingRenamesByAShortPath) {
    const std::string folder = AddLongFile();
    prompts.Queue("cmdContinueAll");
    Insert("xxxxx", true, kPrefix);
    EXPECT_TRUE(Disk().Exists(folder + "\\" + std::string(24, 'a') + "xxxxx.txt"));
    EXPECT_EQ(prompts.Records()[0].form, "frmAsk259");
    ExpectTotals(1, 0, 0);
}

TEST_F(LongRename, SkippingGoesToTheNextObject) {
    AddLongFile();
    AddFile("C:\\t\\a.txt");
    prompts.Queue("cmdSkip");
    Replace("a", "bbbbbbb", false);
    EXPECT_TRUE(Disk().Exists(selection.strSelPath[0]));
    EXPECT_TRUE(Disk().Exists("C:\\t\\bbbbbbb.txt"));
    ExpectTotals(1, 1, 0);
}

TEST_F(LongRename, CancellingEndsTheAction) {
    AddLongFile();
    AddFile("C:\\t\\a.txt");
    prompts.Queue("cmdCancel");
    Insert("xxxxx", true, kPrefix);
    EXPECT_TRUE(Disk().Exists(selection.strSelPath[0]));
    EXPECT_TRUE(Disk().Exists("C:\\t\\a.txt"));
    ExpectTotals(0, 1, 0);
    EXPECT_FALSE(session.state.blnPathLimitHit);
}

} // namespace
} // namespace tarvix::actions
