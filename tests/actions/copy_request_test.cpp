#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

constexpr int kOkCancelInformation = 65;
constexpr int kOkCancelExclamationSecond = 305;

// The action window from its button to the report.
class CopyRequest : public ProgramFixture {
  protected:
    CopyRequest() {
        Disk().AddFile("C:\\t\\a.txt", "1");
        Disk().AddFolder("C:\\d");
    }
    void FindAndSelect() {
        Start();
        Search("*", "C:\\t");
        Click(Form().cmdSelectAll);
    }
    fields::FrmDialog& Dialog() { return S().frmDialog; }
    // Types a destination and presses OK; prompts get the queued answers, then the safe ones. The
    // window is cancelled if it still shows.
    void TryCopy(const std::string& destination, std::vector<std::string> answers = {}) {
        bool done = false;
        prompts.SetModalRunner([=, this](session::Session&, fields::Form& form) mutable {
            if (done) return false;
            done = true;
            Set(Dialog().cmbDir, destination);
            // A batch or a history brings what no key can enter.
            if (bringsAnything) Dialog().cmbDir.Text = destination;
            for (const std::string& answer : answers) {
                prompts.Queue(answer);
            }
            Click(Dialog().OKButton);
            stayedOpen = form.IsShown();
            isUsable = Dialog().OKButton.Enabled;
            if (stayedOpen) Click(Dialog().CancelButton);
            return true;
        });
        Click(Form().cmdCopySelected);
        prompts.SetModalRunner({});
    }
    void ExpectRefused(const std::string& destination, const std::string& message) {
        FindAndSelect();
        TryCopy(destination);
        ASSERT_THAT(Told(), ::testing::Contains(message));
        EXPECT_FALSE(WasTold("Are you sure you want to"));
        EXPECT_TRUE(stayedOpen);
        EXPECT_TRUE(isUsable);
        EXPECT_EQ(State().lastAction.done, 0);
    }
    bool bringsAnything = false;
    bool stayedOpen = false;
    bool isUsable = false;
};

TEST_F(CopyRequest, NothingSelectedDoesNotOpenTheWindow) {
    Start();
    Search("*", "C:\\t");
    Click(Form().cmdCopySelected);
    EXPECT_THAT(Told(), ElementsAre("Nothing is selected."));
    EXPECT_FALSE(Dialog().IsShown());
}

TEST_F(CopyRequest, AsksBeforeItActsAndNamesPlaceAndStructure) {
    FindAndSelect();
    TryCopy("C:\\d", {"Cancel"});
    const auto& question = prompts.Records().back();
    EXPECT_EQ(question.text,
              "Are you sure you want to Copy Files or Folders to: C:\\d using folder "
              "structure - None ?");
    EXPECT_EQ(question.style, kOkCancelInformation);
    EXPECT_TRUE(stayedOpen);
    EXPECT_FALSE(Disk().Exists("C:\\d\\a.txt"));
}

TEST_F(CopyRequest, ACancelHidesTheWindowAndIsLogged) {
    FindAndSelect();
    TryCopy("C:\\d", {"Cancel"});
    EXPECT_TRUE(State().blnActionCancelled);
    EXPECT_FALSE(Dialog().IsShown());
    EXPECT_TRUE(HasEntry(LogText(), " User cancelled the action form."));
}

TEST_F(CopyRequest, AStarOrABarInTheDestination) {
    bringsAnything = true;
    ExpectRefused("C:\\d*", "There is an asterick '*' or bar '|' in the destination path.");
    ExpectRefused("C:\\d|C:\\e", "There is an asterick '*' or bar '|' in the destination path.");
}

TEST_F(CopyRequest, AFileAsDestination) {
    ExpectRefused("C:\\t\\a.txt", "C:\\t\\a.txt is a file, you can not copy objects inside it.");
}

TEST_F(CopyRequest, AnEmptyDestinationAndOneWithoutASeparator) {
    ExpectRefused("", "It appears you did not select a destination folder. ");
    ExpectRefused("folder", "It appears you did not select a destination folder. ");
}

TEST_F(CopyRequest, ANativeDestinationIsTakenInDriveForm) {
    FindAndSelect();
    TryCopy("~/copies", {"OK"});
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\copies\\a.txt"), "1");
}

TEST_F(CopyRequest, VariablesInTheDestinationAreExpanded) {
    FindAndSelect();
    TryCopy("%UserProfile%\\copies", {"OK"});
    EXPECT_EQ(Disk().Content("C:\\home\\ann\\copies\\a.txt"), "1");
}

TEST_F(CopyRequest, AllUsersBecomesProgramDataAfterAPlainNotice) {
    FindAndSelect();
    TryCopy("C:\\Users\\All Users\\Docs", {"OK", "OK"});
    EXPECT_TRUE(WasTold(" is not a real folder, substituting the actual folder "
                        "C:\\ProgramData\\Docs"));
    EXPECT_EQ(Disk().Content("C:\\ProgramData\\Docs\\a.txt"), "1");
}

TEST_F(CopyRequest, TheShortFormOfAllUsersBecomesProgramDataToo) {
    FindAndSelect();
    TryCopy("C:\\Users\\ALLUSE~1\\Docs", {"OK", "OK"});
    EXPECT_EQ(Disk().Content("C:\\ProgramData\\Docs\\a.txt"), "1");
}

TEST_F(CopyRequest, ADestinationOf259CharactersPassesAndOneOf260Asks) {
    const std::string question =
        "What is typed into the Destination combo box exceeds 259 characters in length. Some "
        "applications may not be able to work with files so deep in the folder structure. \r\n\r\n"
        "Microsoft says the limit is 250 but they support 259 characters in most situations. Using "
        "the short paths standard that limit CAN be greatly exceeded, but can cause issues."
        "\r\n\r\n Would you like to continue and attempt to use the short path?";
    const std::string place = "C:\\d\\" + std::string(120, 'x') + "\\" + std::string(133, 'y');
    ASSERT_EQ(place.size(), 259U);
    FindAndSelect();
    TryCopy(place);
    EXPECT_FALSE(WasTold("exceeds 259"));
    TryCopy(place + "y");
    ASSERT_TRUE(WasTold(question));
    EXPECT_EQ(prompts.Records().back().style, 17);
    EXPECT_TRUE(stayedOpen);
}

TEST_F(CopyRequest, ALongDestinationIsShortenedOnOk) {
    const std::string place = "C:\\d\\" + std::string(120, 'x') + "\\" + std::string(134, 'y');
    Disk().AddFolder(place);
    FindAndSelect();
    TryCopy(place, {"OK", "OK"});
    EXPECT_EQ(Disk().Content(place + "\\a.txt"), "1");
}

TEST_F(CopyRequest, ADestinationThatCannotBeShortenedIsRefused) {
    FindAndSelect();
    TryCopy("C:\\" + std::string(600, 'x'), {"OK"});
    EXPECT_THAT(Told(),
                ::testing::Contains(
                    "What is typed into the Destination combo box exceeds 259 characters in "
                    "length AND the folder portion does not exist. Was unable to calculate "
                    "a short path to substitute."));
    EXPECT_TRUE(stayedOpen);
}

TEST_F(CopyRequest, TwoFoldersAmongAllObjectsNeedASecondThought) {
    Disk().AddFolder("C:\\t\\one");
    Disk().AddFolder("C:\\t\\two");
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 2);
    Search("*", "C:\\t");
    Click(Form().cmdSelectAllDirs);
    Click(Form().cmdCopySelected);
    ASSERT_EQ(prompts.Records().size(), 1U);
    EXPECT_EQ(Told()[0], "ARE YOU REALLY SURE???\r\n\r\nCopying multiple folders in this mode, may "
                         "make many duplicate copies!");
    EXPECT_EQ(prompts.Records()[0].style, kOkCancelExclamationSecond);
    EXPECT_FALSE(Dialog().IsShown());
}

TEST_F(CopyRequest, OneFolderWithAFileNeedsItTooButOneFolderAloneDoesNot) {
    Disk().AddFolder("C:\\t\\one");
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 2);
    Search("*", "C:\\t");
    Click(Form().cmdSelectAll);
    Click(Form().cmdCopySelected);
    EXPECT_TRUE(WasTold("ARE YOU REALLY SURE???"));
    Click(Form().cmdSelectAllDirs);
    TryCopy("C:\\d", {"OK"});
    EXPECT_EQ(TimesTold("ARE YOU REALLY SURE???"), 1U);
    EXPECT_TRUE(Disk().Exists("C:\\d\\one"));
}

TEST_F(CopyRequest, FoldersAloneInFoldersModeNeedNoSecondThought) {
    Disk().AddFolder("C:\\t\\one");
    Disk().AddFolder("C:\\t\\two");
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 3);
    Search("*", "C:\\t");
    Click(Form().cmdSelectAll);
    TryCopy("C:\\d", {"OK"});
    EXPECT_FALSE(WasTold("ARE YOU REALLY SURE???"));
}

} // namespace
} // namespace tarvix::testing
