#include "options/find_options.h"
#include "options/option_table.h"
#include "session/input_recorder.h"
#include "tests/options/options_fixture.h"
#include "text/characters.h"

namespace tarvix::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class FindOptions : public OptionsFixture {
  protected:
    const std::vector<std::string>& Found(std::string_view words) {
        SetNamed("txtFind", words);
        return Window().lstFound.Items();
    }
    bool IsChanged(std::string_view name) { return options::IsChanged(Window(), Named(name)); }
};

// ---- the search box ----

TEST_F(FindOptions, FindsByNamePageTipAndKey) {
    Start();
    Inside([&] {
        EXPECT_THAT(Found("security"), ElementsAre("General: Skip security access warnings."));
        EXPECT_THAT(Found("sngdefweb"), ElementsAre("Web: Seconds for a page"));
        EXPECT_THAT(Found("PathSubItem"), ElementsAre("List: Path"));
        EXPECT_THAT(Found("sort by folders"), ElementsAre("Sort: Sort by Folders in this Folder"));
        EXPECT_THAT(Found("LatestFileYear"), ElementsAre("This Machine: LatestFileYear"));
        EXPECT_THAT(Found("strDefSearchFolder(7)"),
                    ElementsAre("Defaults at Open: Search folder 7: (Untitled)"));
        EXPECT_THAT(Found("no such option"), IsEmpty());
        EXPECT_THAT(Found("  "), IsEmpty());
    });
}

TEST_F(FindOptions, ChoosingALineGoesToThePage) {
    Start();
    Inside([&] {
        Found("sngDefWeb");
        SetNamed("lstFound", "Web: Seconds for a page");
        EXPECT_EQ(Window().Page(), int{fields::kWebPage});
        EXPECT_EQ(Window().Focus, &Window().txtDefTime);
        EXPECT_EQ(ValueOf("txtFind"), "");
        EXPECT_THAT(Window().lstFound.Items(), IsEmpty());
        Found("strDefSearchFolder(7)");
        SetNamed("lstFound", "Defaults at Open: Search folder 7: (Untitled)");
        EXPECT_EQ(Window().Page(), int{fields::kDefaultsPage});
        EXPECT_TRUE(Window().optDefSearchFolder[7].Value);
    });
}

TEST_F(FindOptions, MarksWhatIsChanged) {
    Start();
    Inside([&] {
        SetNamed("chkSkipNTFS", "0");
        EXPECT_THAT(Found("security"),
                    ElementsAre("General: Skip security access warnings. (changed)"));
        EXPECT_THAT(Found("(changed)"),
                    Contains("General: Skip security access warnings. (changed)"));
        EXPECT_EQ(ValueOf("lblChanged"), "1 option is not as at first.");
    });
}

// ---- tips ----

TEST_F(FindOptions, EachOptionTellsWhatItDoesAndItsKey) {
    Start();
    Inside([&] {
        for (fields::Control* control : Window().Controls()) {
            if (!options::IsOption(Window(), *control)) continue;
            EXPECT_FALSE(control->ToolTipText->empty()) << control->Name();
            const std::string key = options::KeyOf(Window(), *control);
            if (key.empty()) continue;
            EXPECT_THAT(control->ToolTipText.Get(), HasSubstr("\nKey: " + key)) << control->Name();
        }
        EXPECT_THAT(Window().chkList[7].ToolTipText.Get(),
                    HasSubstr("\nKey: blnListItems (OSSubItem)"));
        EXPECT_THAT(Window().optSortBy[7].ToolTipText.Get(), HasSubstr("\nKey: bytSortBy"));
        EXPECT_THAT(Window().chkAllowMove.ToolTipText.Get(), HasSubstr("no file keeps it"));
    });
}

// ---- what is changed ----

TEST_F(FindOptions, AtFirstNothingIsChanged) {
    Start();
    Inside([&] {
        for (const fields::Control* control : Window().Controls())
            EXPECT_FALSE(options::IsChanged(Window(), *control)) << control->Name();
        EXPECT_EQ(ValueOf("lblChanged"), "All options are as at first.");
    });
}

TEST_F(FindOptions, WhatANewFileWouldHaveOnThisMachineIsUnchanged) {
    S().platform.traits.hasNativePaths = true;
    Start();
    Inside([&] {
        EXPECT_EQ(ValueOf("chkDefaultToIncludeSubfolders"), "1");
        EXPECT_FALSE(IsChanged("chkDefaultToIncludeSubfolders"));
        EXPECT_EQ(ValueOf("chkList(5)"), "0");
        EXPECT_FALSE(IsChanged("chkList(5)"));
    });
}

TEST_F(FindOptions, OfAGroupTheChosenEntryIsTheChangedOne) {
    Start();
    Inside([&] {
        SetNamed("optSortBy(2)", "1");
        EXPECT_TRUE(IsChanged("optSortBy(2)"));
        EXPECT_FALSE(IsChanged("optSortBy(0)"));
        SetNamed("txtDefFolder", "C:\\x");
        EXPECT_TRUE(IsChanged("optDefSearchFolder(0)"));
        EXPECT_FALSE(IsChanged("optDefSearchFolder(1)"));
        SetNamed("lstMain", "Music");
        EXPECT_TRUE(IsChanged("lstMain"));
        SetNamed("cmbDriveLetter", "K:");
        SetNamed("txtDriveFolder", "/k");
        EXPECT_TRUE(IsChanged("txtDriveFolder"));
    });
}

TEST_F(FindOptions, TheWindowTellsHowManyAreChanged) {
    GivenOptions("blnSkipNTFS = False\r\nblnAskWebTime = True\r\nblnAskWebSize = True\r\n");
    Start();
    Inside([&] { EXPECT_EQ(ValueOf("lblChanged"), "1 option is not as at first."); });
}

// ---- Reset ----

TEST_F(FindOptions, ResetSetsThePageInSightBackAndNoOther) {
    Start();
    Inside([&] {
        SetNamed("chkSkipNTFS", "0");
        SetNamed("chkAllowAll", "1");
        SetNamed("txtDefTime", "99");
        SetNamed("tbsOptions", "General");
        Click(Window().cmdReset);
        EXPECT_EQ(ValueOf("chkSkipNTFS"), "1");
        EXPECT_EQ(ValueOf("chkAllowAll"), "0");
        EXPECT_FALSE(Window().chkAutoOptions.Enabled);
        EXPECT_EQ(ValueOf("txtDefTime"), "99");
        SetNamed("tbsOptions", "Web");
        Click(Window().cmdReset);
        EXPECT_EQ(ValueOf("txtDefTime"), "8");
    });
}

TEST_F(FindOptions, ResetSetsEveryKindOfOptionBack) {
    Start();
    Inside([&] {
        SetNamed("chkList(3)", "0");
        SetNamed("optSortBy(5)", "1");
        SetNamed("txtDefFolder", "C:\\x");
        SetNamed("txtDefFolderTitle", "X");
        SetNamed("lstMain", "Music");
        SetNamed("cmbDefSize", "N - Minimized");
        SetNamed("txtEditor", "kate");
        SetNamed("cmbPathForm", "native");
        SetNamed("chkAutoPara(2)", "1");
        SetNamed("cmbDriveLetter", "K:");
        SetNamed("txtDriveFolder", "/k");
        for (const std::string& page : Window().tbsOptions.Items()) {
            SetNamed("tbsOptions", page);
            Click(Window().cmdReset);
        }
        for (const fields::Control* control : Window().Controls())
            EXPECT_FALSE(options::IsChanged(Window(), *control)) << control->Name();
        EXPECT_TRUE(Window().optSortBy[0].Value);
        EXPECT_EQ(ValueOf("txtDefFolder"), "%UserProfile%\\Documents");
        EXPECT_EQ(ValueOf("txtDefFolderTitle"), "");
        EXPECT_EQ(Window().optDefSearchFolder[0].Caption.Get(), "(Untitled)");
    });
}

TEST_F(FindOptions, OneOptionIsSetBackByItsName) {
    Start();
    Inside([&] {
        SetNamed("chkDesc", "1");
        SetNamed("optSortBy(5)", "1");
        S().events.Raise(S(), options::kResetOption, {.path = "optSortBy(5)"});
        EXPECT_TRUE(Window().optSortBy[0].Value);
        EXPECT_FALSE(Window().optSortBy[5].Value);
        EXPECT_EQ(ValueOf("chkDesc"), "1");
    });
}

// Notes what a script would get.
struct NotedResets : session::InputRecorder {
    void Clicked(const fields::Control&) override {}
    void Entered(const fields::Control& control, std::string_view value) override {
        noted.push_back(text::Concat({control.Name(), " = ", value}));
    }
    void Left(const fields::Control&) override {}
    void Reset(const fields::Control& control) override {
        noted.push_back("reset " + control.Name());
    }
    void Selected() override {}
    void Sorted(int) override {}
    void Opened(int) override {}
    void Answered(std::string_view) override {}
    std::vector<std::string> noted;
};

TEST_F(FindOptions, AResetIsRecordedWithItsValueOrAsOne) {
    Start();
    Inside([&] {
        SetNamed("chkDesc", "1");
        SetNamed("optDefSearchFolder(7)", "1");
        SetNamed("txtDefFolder", "/srv");
        SetNamed("cmbDriveLetter", "K:");
        SetNamed("txtDriveFolder", "/k");
        NotedResets recorder;
        S().recorder = &recorder;
        for (const char* name : {"chkDesc", "optDefSearchFolder(7)", "txtDriveFolder", "lstMain"})
            S().events.Raise(S(), options::kResetOption, {.path = name});
        S().recorder = nullptr;
        EXPECT_THAT(recorder.noted, ElementsAre("chkDesc = 0", "reset optDefSearchFolder(7)",
                                                "reset txtDriveFolder", "reset lstMain"));
        EXPECT_FALSE(IsChanged("optDefSearchFolder(7)"));
    });
}

TEST_F(FindOptions, AResetCountsFromOkOn) {
    GivenOptions("blnSkipNTFS = False\r\n");
    Start();
    Inside([&] {
        Click(Window().cmdReset);
        EXPECT_EQ(ValueOf("chkSkipNTFS"), "1");
        EXPECT_FALSE(State().options.blnSkipNTFS);
        Click(Window().cmdOK);
    });
    EXPECT_TRUE(State().options.blnSkipNTFS);
}

} // namespace
} // namespace tarvix::testing
