#include "options/options_dialog.h"
#include "tests/options/options_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class OptionsSaving : public OptionsFixture {
  protected:
    // Whether a time of web pages was taken, with what was told.
    bool IsTaken(const std::string& seconds) {
        bool taken = false;
        Inside([&] {
            Window().tbsOptions.Select(fields::kGeneralPage, true);
            SetNamed("chkDesc", "1");
            SetNamed("txtDefTime", seconds);
            Click(Window().cmdApply);
            taken = State().options.blnSort;
            EXPECT_EQ(Window().Page(), int{taken ? fields::kGeneralPage : fields::kWebPage});
            SetNamed("chkDesc", "0");
            SetNamed("txtDefTime", "8");
            Click(Window().cmdApply);
        });
        return taken;
    }
};

// ---- the checks ----

TEST_F(OptionsSaving, AWebTimeIsFrom1To655) {
    Start();
    EXPECT_TRUE(IsTaken("655"));
    EXPECT_TRUE(IsTaken("1"));
    EXPECT_TRUE(IsTaken("2.5"));
    EXPECT_EQ(TimesTold("Default time for web pages"), 0U);
    for (const char* seconds : {"656", "0", "-3", "655.5"})
        EXPECT_FALSE(IsTaken(seconds)) << seconds;
    EXPECT_EQ(TimesTold("Default time for web pages must be no less than 1 and no more than 655."),
              4U);
}

TEST_F(OptionsSaving, AWebTimeIsANumber) {
    Start();
    for (const char* seconds : {"abc", "", "8s"})
        EXPECT_FALSE(IsTaken(seconds)) << seconds;
    EXPECT_EQ(TimesTold("Default time for web pages must be numeric."), 3U);
}

TEST_F(OptionsSaving, ARefusedValueStopsTheSavingAndTakesNothingIn) {
    Start();
    Accept([] {});
    const std::string before = File();
    Inside([&] {
        SetNamed("chkSkipNTFS", "0");
        SetNamed("chkAllowMove", "1");
        SetNamed("txtEditor", "kate");
        SetNamed("txtDefTime", "abc");
        Click(Window().cmdOK);
        EXPECT_TRUE(Window().IsShown());
        EXPECT_EQ(ValueOf("txtDefTime"), "abc");
        EXPECT_EQ(ValueOf("chkSkipNTFS"), "0");
    });
    EXPECT_TRUE(State().options.blnSkipNTFS);
    EXPECT_FALSE(State().runChoices.blnAllowMove);
    EXPECT_EQ(State().platformSettings.editor, "");
    EXPECT_EQ(File(), before);
}

// ---- OK, Apply, Cancel ----

TEST_F(OptionsSaving, CancelDiscardsEverything) {
    Start();
    const auto options = State().options.strDefSearchFolder;
    const auto settings = State().platformSettings;
    Inside([&] {
        for (const char* box : {"chkAllowAll", "chkDesc", "chkFastSearch", "chkAllowMove",
                                "chkAutoPara(1)", "chkRemoveEnvVar"})
            SetNamed(box, "1");
        SetNamed("chkList(3)", "0");
        SetNamed("optSortBy(2)", "1");
        SetNamed("txtDefTime", "99");
        SetNamed("txtDefFolder", "C:\\elsewhere");
        SetNamed("lstMain", "Music");
        SetNamed("txtEditor", "kate");
        SetNamed("cmbPathForm", "native");
        SetNamed("cmbDriveLetter", "K:");
        SetNamed("txtDriveFolder", "/srv/k");
        Click(Window().cmdRebuildEnvVar);
        Click(Window().cmdCancel);
        EXPECT_FALSE(Window().IsShown());
    });
    EXPECT_FALSE(State().options.blnAllowAll);
    EXPECT_FALSE(State().options.blnSort);
    EXPECT_TRUE(State().options.blnListItems[3]);
    EXPECT_EQ(State().options.strDefSearchFolder, options);
    EXPECT_EQ(State().runChoices, session::RunChoices{});
    EXPECT_EQ(State().platformSettings, settings);
    for (const auto& variable : State().options.envVariables)
        EXPECT_FALSE(variable.blnEnvVarInclude) << variable.strEnvVarName;
    EXPECT_EQ(File(), "");
    Inside([&] {
        EXPECT_EQ(ValueOf("chkDesc"), "0");
        EXPECT_EQ(ValueOf("txtDefTime"), "8");
        EXPECT_EQ(ValueOf("txtDefFolder"), "%UserProfile%\\Documents");
        EXPECT_EQ(ValueOf("lstMain"), "");
        EXPECT_EQ(ValueOf("chkAllowMove"), "0");
    });
}

TEST_F(OptionsSaving, ApplyKeepsTheWindowAndWhatItHas) {
    Start();
    Inside([&] {
        SetNamed("chkDesc", "1");
        Click(Window().cmdApply);
        EXPECT_TRUE(Window().IsShown());
        EXPECT_TRUE(State().options.blnSort);
        EXPECT_TRUE(FileHas("blnSort = True"));
        SetNamed("chkDesc", "0");
        Click(Window().cmdCancel);
    });
    EXPECT_TRUE(State().options.blnSort) << "what was applied stays";
    EXPECT_TRUE(FileHas("blnSort = True"));
}

TEST_F(OptionsSaving, OkAppliesAndCloses) {
    Start();
    Accept([&] { SetNamed("chkSkipNTFS", "0"); });
    EXPECT_TRUE(FileHas("blnSkipNTFS = False"));
    EXPECT_EQ(State().strLastForm, "frmOptions");
}

TEST_F(OptionsSaving, OpensOnThePageWhereItWasLeft) {
    Start();
    Inside([&] { SetNamed("tbsOptions", "Logging"); });
    Inside([&] { EXPECT_EQ(ValueOf("tbsOptions"), "Logging\r\n"); });
}

TEST_F(OptionsSaving, AFailureToSaveIsToldAndTheOldFileStands) {
    GivenOptions("blnSort = False\r\n");
    Start();
    machine.faults.FailAll("CreateTextFile", 70);
    Accept([&] { SetNamed("chkDesc", "1"); });
    EXPECT_FALSE(FileHas("blnSort = True"));
    EXPECT_TRUE(State().options.blnSort);
}

// ---- what counts at once ----

TEST_F(OptionsSaving, TheMainWindowShowsItAtOnce) {
    Start();
    Inside([&] {
        SetNamed("chkAllowAll", "1");
        SetNamed("chkAllowUserSelectSubfolders", "1");
        SetNamed("chkDefaultToIncludeSubfolders", "1");
        SetNamed("chkHidden", "1");
        SetNamed("chkAlias", "2");
        SetNamed("optFilesVsDirs(3)", "1");
        Click(Window().cmdApply);
        EXPECT_TRUE(Form().chkIncludeSubFolders.Enabled);
        EXPECT_EQ(Form().chkIncludeSubFolders.Value, 1);
        EXPECT_TRUE(Form().mnuOptions_AllowUserSelectSubfolders.Checked);
        EXPECT_EQ(Form().chkHidden.Value, 1);
        EXPECT_EQ(Form().chkHidden.ForeColor, fields::kRed);
        EXPECT_EQ(Form().chkAlias.Value, 2);
        EXPECT_EQ(Form().optFilesVsDirs.Chosen(), 3);
    });
}

TEST_F(OptionsSaving, TheListIsSortedAnewAtOnce) {
    for (const char* name : {"b.txt", "a.txt", "c.txt"})
        Disk().AddFile(std::string("C:\\d\\") + name, "x");
    Start();
    Search("*.txt", "C:\\d");
    Inside([&] {
        SetNamed("chkDesc", "1");
        Click(Window().cmdApply);
        EXPECT_THAT(Names(), ::testing::ElementsAre("c.txt", "b.txt", "a.txt"));
    });
    Accept([&] { SetNamed("chkDesc", "0"); });
    EXPECT_THAT(Names(), ::testing::ElementsAre("a.txt", "b.txt", "c.txt"));
}

TEST_F(OptionsSaving, ChangedColumnsGroupTheListAnewByItsColumn) {
    Disk().AddFile("C:\\d\\a.txt", "x");
    Disk().AddFile("C:\\d\\b.txt", "xx");
    Start();
    Form().chkFastSort.Value = 1;
    Search("*.txt", "C:\\d");
    Form().lstMain.SortKey = int{results::kSize};
    Form().chkFastSort.Value = 0;
    Accept([&] { SetNamed("chkList(4)", "0"); });
    EXPECT_THAT(Names(), ::testing::ElementsAre("a.txt", "", "b.txt"));
    EXPECT_FALSE(S().blnListItems[results::kExt]);
    EXPECT_EQ(Form().lstMain.SortKey, int{results::kSize}) << "the order that was clicked stays";
}

TEST_F(OptionsSaving, AnotherOptionLeavesTheListAlone) {
    Disk().AddFile("C:\\d\\a.txt", "x");
    Disk().AddFile("C:\\d\\b.txt", "xx");
    Start();
    Search("*.txt", "C:\\d");
    const auto generation = program.Rows().Generation();
    Accept([&] { SetNamed("txtDefTime", "9"); });
    EXPECT_EQ(program.Rows().Generation(), generation);
}

TEST_F(OptionsSaving, TheActionLogStopsAtOnce) {
    Start();
    Accept([&] { SetNamed("chkFileLog", "0"); });
    const std::string log = Disk().Content(State().strActionLogFile).value_or("");
    Accept([] {});
    EXPECT_EQ(Disk().Content(State().strActionLogFile).value_or(""), log);
}

// ---- what is not to be had ----

TEST_F(OptionsSaving, DuringASearchMostOfItIsUnavailable) {
    Start();
    State().blnSearching = true;
    options::LoadOptionsIntoForm(S());
    EXPECT_EQ(ValueOf("lblActive"), "Most options here unavailable during active search");
    EXPECT_TRUE(Window().lblActive.Visible);
    for (const char* name : {"chkAllowAll", "optFilesVsDirs(0)", "txtDefFolder", "chkDesc",
                             "chkAllowMove", "chkFileLog", "lstMain", "txtDefTime", "txtEditor"})
        EXPECT_FALSE(Named(name).Enabled) << name;
    for (const char* name : {"chkList(3)", "optQuickList(0)", "cmdOK", "cmdCancel"})
        EXPECT_TRUE(Named(name).Enabled) << name;
    State().blnSearching = false;
    options::LoadOptionsIntoForm(S());
    EXPECT_FALSE(Window().lblActive.Visible);
    EXPECT_TRUE(Named("txtDefTime").Enabled);
}

TEST_F(OptionsSaving, WhileShortcutsAreEditedItDoesntOpen) {
    Start();
    Form().mnuOptions.Enabled = false;
    Click(Form().mnuOptions_Open);
    EXPECT_TRUE(prompts.Records().empty());
}

TEST_F(OptionsSaving, TheMenuEntryOpensIt) {
    Start();
    bool came = false;
    prompts.SetModalRunner([&](session::Session&, fields::Form& form) {
        came = &form == &Window();
        Click(Window().cmdCancel);
        return true;
    });
    Click(Form().mnuOptions_Open);
    prompts.SetModalRunner({});
    EXPECT_TRUE(came);
}

TEST_F(OptionsSaving, ThePagesBearTheirCaptions) {
    const auto& pages = Window().pages;
    EXPECT_EQ(pages[0].Caption.Get(), "Set General Options");
    EXPECT_EQ(pages[1].Caption.Get(), "Set Defaults at Open");
    EXPECT_EQ(pages[2].Caption.Get(), "Set Options for File/Folder List");
    EXPECT_EQ(pages[3].Caption.Get(), "Set Options for File/Folder List Sort");
    EXPECT_EQ(pages[4].Caption.Get(),
              "Set Options for Copy\\Move\\Delete of System\\Hidden Attributes");
    EXPECT_EQ(pages[5].Caption.Get(), "Set Options for Logging");
    EXPECT_EQ(pages[6].Caption.Get(), "Set Options for Editting Link Files");
    EXPECT_EQ(pages[7].Caption.Get(), "Set Web Browsing Options");
}

} // namespace
} // namespace tarvix::testing
