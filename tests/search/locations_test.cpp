#include "search/locations.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

const std::string kHyphens(74, '-');

std::string Framed(const std::string& piece) {
    return "\r\n" + kHyphens + "\r\n" + piece + "\r\n" + kHyphens + "\r\n\r\n";
}

std::string NoFolder(const std::string& piece) {
    return "This search folder does not exist, it is a file, or it contains "
           "multiple environment variables AND is over 259 characters in length:" +
           Framed(piece);
}

class Locations : public ProgramFixture {
  protected:
    Locations() {
        Disk().AddFile("C:\\a\\one.txt");
        Disk().AddFile("C:\\a\\Sub\\two.txt");
        Disk().AddFile("C:\\b\\three.txt");
    }
    void ParseIn(std::string_view text) {
        Start();
        Parse(text);
    }
    void Parse(std::string_view text) { parsed = search::ParseSearchFolder(S(), text); }
    std::vector<std::string> Folders() {
        std::vector<std::string> folders;
        for (const search::SearchLocation& location : parsed.folders) {
            folders.push_back(location.folder);
        }
        return folders;
    }
    search::Locations parsed;
};

TEST_F(Locations, EachPieceIsTrimmedAndSpelledAsTheDiskDoes) {
    ParseIn("c:\\A|  C:\\a\\SUB  ");
    EXPECT_THAT(Folders(), ElementsAre("C:\\a", "C:\\a\\Sub"));
    EXPECT_EQ(parsed.folders.size(), 2U);
}

TEST_F(Locations, AFinalSlashAndABareDriveAreTaken) {
    ParseIn("C:\\a\\");
    EXPECT_THAT(Folders(), ElementsAre("C:\\a"));
    Parse("C:");
    EXPECT_THAT(Folders(), ElementsAre("C:"));
    Parse("C:\\");
    EXPECT_THAT(Folders(), ElementsAre("C:"));
    EXPECT_TRUE(Told().empty());
}

TEST_F(Locations, NativePathsAreTakenInDriveForm) {
    ParseIn("/a|~/Music|file:///b");
    EXPECT_THAT(Folders(), ElementsAre("C:\\a", "C:\\home\\ann\\Music", "C:\\b"));
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\a|C:\\home\\ann\\Music|C:\\b");
}

TEST_F(Locations, VariablesAreExpanded) {
    ParseIn("%UserProfile%\\Music");
    EXPECT_THAT(Folders(), ElementsAre("C:\\home\\ann\\Music"));
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\home\\ann\\Music");
}

TEST_F(Locations, AnUnknownVariableGivesTheVariableMessage) {
    ParseIn("%NoSuchThing%\\x|C:\\a");
    EXPECT_THAT(Told(), ElementsAre("This appears to be an invalid environment variable(s):" +
                                    Framed("%NoSuchThing%\\x")));
    EXPECT_EQ(prompts.Records().front().title, "ParseSearchFolder");
    EXPECT_THAT(Folders(), ElementsAre("", "C:\\a"));
}

TEST_F(Locations, ARealFolderWithAPercentSignIsNoVariable) {
    Disk().AddFolder("C:\\100% done");
    ParseIn("C:\\100% done");
    EXPECT_THAT(Folders(), ElementsAre("C:\\100% done"));
    EXPECT_TRUE(Told().empty());
}

TEST_F(Locations, APieceIsToldWithoutTheBlanksAroundIt) {
    ParseIn("C:\\a|  C:\\nowhere ");
    EXPECT_THAT(Told(), ElementsAre(NoFolder("C:\\nowhere")));
}

TEST_F(Locations, ARealFolderNamedLikeAVariableIsTaken) {
    Disk().AddFolder("C:\\%Temp%");
    ParseIn("C:\\%Temp%");
    EXPECT_THAT(Folders(), ElementsAre("C:\\%Temp%"));
}

TEST_F(Locations, AVariableThatHoldsSeveralFoldersIsNotUnfolded) {
    machine.environment.Set("Two", "C:\\a;C:\\b");
    ParseIn("%Two%");
    EXPECT_TRUE(WasTold("This appears to be an invalid environment variable(s):"));
}

TEST_F(Locations, ABatchKeepsTheBoxAsItWasTyped) {
    Start();
    Form().cmbDir.Text = "%UserProfile%\\Music|C:\\a";
    State().blnAutoMove = true;
    Parse(Form().cmbDir.Text.Get());
    EXPECT_THAT(Folders(), ElementsAre("C:\\home\\ann\\Music", "C:\\a"));
    EXPECT_EQ(Form().cmbDir.Text.Get(), "%UserProfile%\\Music|C:\\a");
    EXPECT_EQ(parsed.text, "%UserProfile%\\Music|C:\\a");
}

TEST_F(Locations, AnEmptyPieceInTheMiddleIsRefused) {
    ParseIn("C:\\a||C:\\b");
    EXPECT_THAT(Folders(), ElementsAre("C:\\a", "", "C:\\b"));
    EXPECT_EQ(TimesTold("Each search folder must be at least 2 characters"), 1U);
}

TEST_F(Locations, APieceOfOneCharacterIsRefusedWithTheExample) {
    ParseIn("C|C:\\a");
    EXPECT_THAT(Told(), ElementsAre("Each search folder must be at least 2 characters in length. "
                                    "(example C: or C:Windows)"));
    EXPECT_THAT(Folders(), ElementsAre("", "C:\\a"));
}

TEST_F(Locations, AMissingFolderAndAFileAreToldInOneMessage) {
    ParseIn("C:\\nowhere|C:\\a\\one.txt");
    EXPECT_THAT(Told(), ElementsAre(NoFolder("C:\\nowhere") + NoFolder("C:\\a\\one.txt")));
    EXPECT_THAT(Folders(), ElementsAre("", ""));
}

TEST_F(Locations, AMissingFolderIsToldWithoutItsVariableWherePathsAreNative) {
    Start();
    State().platformSettings.showsNative = true;
    Parse("%UserProfile%\\nowhere");
    ASSERT_EQ(Told().size(), 1U);
    const std::string shown = S().Shown("C:\\home\\ann\\nowhere");
    EXPECT_THAT(Told()[0], ::testing::HasSubstr("\r\n" + shown + "\r\n"));
    EXPECT_EQ(Told()[0].find('%'), std::string::npos) << Told()[0];
    State().platformSettings.showsNative = false;
    Parse("%UserProfile%\\nowhere");
    EXPECT_THAT(Told()[1], ::testing::HasSubstr("\r\n%UserProfile%\\nowhere\r\n"));
}

TEST_F(Locations, ABadLocationHasNoRowsAndTheGoodOnesAreSearched) {
    Start();
    Search("*", "C:\\nowhere|C:\\b");
    EXPECT_THAT(Paths(), ElementsAre("C:\\b\\three.txt"));
    EXPECT_THAT(Cells(results::kSearchFolderIndex), ElementsAre("2"));
}

TEST_F(Locations, AFolderAndItsOwnSubfolderGiveTheWarningAndTheSearchGoesOn) {
    Start();
    WithSubfolders();
    Search("*", "C:\\a|C:\\a\\Sub");
    EXPECT_THAT(Told(), ElementsAre("These search folders are NOT mutually exclusive: " +
                                    Framed("C:\\a\r\nC:\\a\\Sub")));
    EXPECT_THAT(Paths(),
                ElementsAre("C:\\a\\one.txt", "C:\\a\\Sub\\two.txt", "C:\\a\\Sub\\two.txt"));
}

TEST_F(Locations, TheSameFolderTwiceGivesTheWarningInAnyCase) {
    ParseIn("C:\\a|c:\\A");
    EXPECT_TRUE(WasTold("NOT mutually exclusive"));
}

TEST_F(Locations, FoldersThatOnlyBeginAlikeGiveNoWarning) {
    Disk().AddFolder("C:\\ab");
    ParseIn("C:\\a|C:\\ab");
    EXPECT_TRUE(Told().empty());
}

TEST_F(Locations, ALocationUnderAllUsersMovesToProgramDataWithTheMessage) {
    Disk().AddFile("C:\\ProgramData\\Docs\\d.txt");
    Start();
    Search("*", "C:\\Users\\All Users\\Docs");
    EXPECT_THAT(Told(),
                ElementsAre("C:\\Users\\All Users is not a real folder, substituting the actual "
                            "folder C:\\ProgramData\\Docs"));
    EXPECT_THAT(Paths(), ElementsAre("C:\\ProgramData\\Docs\\d.txt"));
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\ProgramData\\Docs");
}

TEST_F(Locations, TheShortFormOfAllUsersMovesToo) {
    Disk().AddFolder("C:\\ProgramData\\Docs");
    ParseIn("C:\\users\\alluse~1\\Docs");
    EXPECT_THAT(Told(),
                ElementsAre("C:\\users\\alluse~1 is not a real folder, substituting the actual "
                            "folder C:\\ProgramData\\Docs"));
    EXPECT_THAT(Folders(), ElementsAre("C:\\ProgramData\\Docs"));
}

TEST_F(Locations, ATitleStandsForItsFoldersAndTheRestIsKept) {
    Start();
    State().options.strDefSearchFolderTitle[3] = " My two folders ";
    State().options.strDefSearchFolder[3] = "C:\\a|C:\\b|";
    Parse(" My two folders|C:\\home");
    EXPECT_THAT(Folders(), ElementsAre("C:\\a", "C:\\b", "C:\\home"));
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\a|C:\\b|C:\\home");
}

TEST_F(Locations, ATitleThatIsNotKnownIsAPath) {
    ParseIn(" C:\\a");
    EXPECT_THAT(Folders(), ElementsAre("C:\\a"));
}

TEST_F(Locations, ABlankFirstPieceIsNoTitle) {
    ParseIn(" |C:\\a");
    EXPECT_THAT(Folders(), ElementsAre("", "C:\\a"));
    EXPECT_TRUE(WasTold("Each search folder must be at least 2 characters"));
}

TEST_F(Locations, BarsAtTheEndsAreTakenOffBeforeTheSearch) {
    Start();
    Search("*", "|C:\\b|");
    EXPECT_TRUE(Told().empty());
    EXPECT_THAT(Paths(), ElementsAre("C:\\b\\three.txt"));
}

TEST_F(Locations, ABlankTextTakesTheFirstDefaultFolder) {
    Disk().AddFile("C:\\home\\ann\\Documents\\d.txt");
    Start();
    Search("*", "  ");
    EXPECT_THAT(Paths(), ElementsAre("C:\\home\\ann\\Documents\\d.txt"));
    EXPECT_EQ(Form().cmbDir.Text.Get(), "C:\\home\\ann\\Documents");
}

TEST_F(Locations, AtMostAThousandAreTaken) {
    std::string text;
    for (int i = 0; i < 1005; ++i) {
        const std::string folder = "C:\\many\\" + std::to_string(i);
        Disk().AddFolder(folder);
        text += folder + "|";
    }
    ParseIn(text.substr(0, text.size() - 1));
    EXPECT_EQ(parsed.folders.size(), 1000U);
}

TEST_F(Locations, ClearingEmptiesTheBox) {
    Start();
    Set(Form().cmbDir, "C:\\a");
    Click(Form().cmdClearFolders);
    EXPECT_EQ(Form().cmbDir.Text.Get(), "");
}

TEST_F(Locations, OneThatCannotBeLookedAtIsAskedAboutInEveryModeAndMayBeRetried) {
    Start();
    State().options.blnAutoMode = true;
    machine.faults.ResetCounts();
    machine.faults.FailCall("Facts", 1, platform::kDiskNotReady);
    prompts.Queue("Yes");
    EXPECT_EQ(search::ParseSearchFolder(S(), "C:\\a").folders.front().folder, "C:\\a");
    EXPECT_EQ(prompts.Records().size(), 1U);
    EXPECT_EQ(prompts.Records().front().title, "Bad File or Folder Name");
    machine.faults.FailPath("C:\\a", platform::kDiskNotReady, "Facts");
    prompts.Queue("No");
    EXPECT_EQ(search::ParseSearchFolder(S(), "C:\\a").folders.front().folder, "");
    EXPECT_EQ(prompts.Records().size(), 2U) << "one question, and no sentence that it is missing";
}

TEST_F(Locations, ResolvingTellsFilesFoldersAndNothingApart) {
    Start();
    using search::ObjectKind;
    EXPECT_EQ(search::ResolveObjectKind(S(), "c:\\A\\").kind, ObjectKind::kFolder);
    EXPECT_EQ(search::ResolveObjectKind(S(), "c:\\A\\").path, "C:\\a");
    EXPECT_EQ(search::ResolveObjectKind(S(), "c:\\a\\ONE.txt").kind, ObjectKind::kFile);
    EXPECT_EQ(search::ResolveObjectKind(S(), "c:\\a\\ONE.txt").path, "C:\\a\\one.txt");
    EXPECT_EQ(search::ResolveObjectKind(S(), "C:\\nowhere").kind, ObjectKind::kNone);
    EXPECT_EQ(search::ResolveObjectKind(S(), "").kind, ObjectKind::kNone);
}

// ---- recycle folders ----

class RecycleFolders : public ProgramFixture {
  protected:
    RecycleFolders() {
        for (const char* bin : {"$Recycle.Bin", "RECYCLER", "Recycled"}) {
            Disk().AddFile("C:\\" + std::string(bin) + "\\gone.txt");
        }
        Disk().AddFile("C:\\a\\RECYCLER\\kept.txt");
    }
};

TEST_F(RecycleFolders, AreNotCrawledButOnesDeeperDownAre) {
    Start();
    WithSubfolders();
    Search("gone.*|kept.*", "C:");
    EXPECT_THAT(Names(), ElementsAre("kept.txt"));
}

TEST_F(RecycleFolders, AreCrawledWhenTheLastSearchStringNamesOne) {
    Start();
    WithSubfolders();
    Search("gone.*|*recyc*.*", "C:");
    EXPECT_EQ(program.Rows().Count(), 3U);
}

TEST_F(RecycleFolders, AreNotCrawledWhenAnEarlierStringNamesOne) {
    Start();
    WithSubfolders();
    Search("*recyc*.*|gone.*", "C:");
    EXPECT_EQ(program.Rows().Count(), 0U);
}

TEST_F(RecycleFolders, AreCrawledWhenALocationIsOne) {
    Start();
    WithSubfolders();
    Search("gone.*", "C:\\$recycle.bin");
    EXPECT_THAT(Paths(), ElementsAre("C:\\$Recycle.Bin\\gone.txt"));
    EXPECT_TRUE(search::ParseSearchFolder(S(), "C:\\$recycle.bin").blnRecycleAllowed);
    EXPECT_FALSE(search::ParseSearchFolder(S(), "C:").blnRecycleAllowed);
    Search("gone.*", "C:");
    EXPECT_EQ(program.Rows().Count(), 0U) << "each search asks anew";
}

} // namespace
} // namespace tarvix::testing
