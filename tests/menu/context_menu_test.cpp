#include "fields/frm_context_menu.h"
#include "launch/menu/clipboard_forms.h"
#include "launch/menu/menu_model.h"
#include "platform/clipboard.h"
#include "results/result_list.h"
#include "results/row_marks.h"
#include "session/user_input.h"
#include "tests/support/program_fixture.h"

#include <algorithm>

namespace tarvix::menu {
namespace {

using platform::ClipboardForm;
using platform::DesktopFolder;
using Texts = std::vector<std::string>;

class MemoryClipboard : public platform::Clipboard {
  public:
    void Put(const std::vector<ClipboardForm>& forms) override { last = forms; }
    std::string Of(std::string_view type) const {
        const auto found = std::ranges::find(last, type, &ClipboardForm::type);
        return found == last.end() ? "none" : found->bytes;
    }
    std::vector<ClipboardForm> last;
};

// A list of C:\a with two texts, a picture and, in a folder, one more text.
class ContextMenuTest : public testing::ProgramFixture {
  protected:
    ContextMenuTest() {
        Disk().AddFile("C:\\a\\one.txt", "1");
        Disk().AddFile("C:\\a\\two & 2.txt", "22");
        Disk().AddFile("C:\\a\\pic.jpg", "333");
        Disk().AddFile("C:\\a\\sub\\deep.txt", "4444");
        auto& desktop = machine.applications;
        desktop.SetType("txt", "text/plain");
        desktop.SetType("jpg", "image/jpeg");
        desktop.AddApplication("text/plain", "edit.desktop", "Text Editor");
        desktop.AddApplication("text/plain", "write.desktop", "Writer & More");
        desktop.AddApplication("image/jpeg", "view.desktop", "Viewer");
        S().clipboard = &clipboard;
    }

    void Find() {
        Start();
        WithSubfolders();
        State().options.blnNoContextMenuWarning = !isWarned;
        ContextMenuTest::Search("*", "C:\\a");
    }

    // The rows of these names selected.
    void Select(const Texts& names) {
        for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
            auto& row = program.Rows().At(i);
            row.selected = std::ranges::count(names, row.name) > 0;
        }
    }

    // A right click; in the menu the entry of that line is chosen, or the menu is left without one.
    void RightClick(const std::string& line = {}) {
        offered.clear();
        prompts.SetModalRunner([this, line](session::Session&, fields::Form& form) {
            if (&form != &S().forms.frmContextMenu || !offered.empty()) return false;
            offered = S().forms.frmContextMenu.lstMenu.Items();
            if (line.empty()) {
                Click(S().forms.frmContextMenu.cmdCancel);
            } else {
                Set(S().forms.frmContextMenu.lstMenu, line);
                Click(S().forms.frmContextMenu.cmdOK);
            }
            return true;
        });
        session::UserMenu(S());
        prompts.SetModalRunner({});
    }

    bool Offers(std::string_view line) const { return std::ranges::count(offered, line) > 0; }

    const results::ResultRow& Row(std::string_view name) {
        for (std::size_t i = 0; i < program.Rows().Count(); ++i) {
            if (program.Rows().At(i).name == name) return program.Rows().At(i);
        }
        ADD_FAILURE() << name;
        return program.Rows().At(0);
    }

    const Texts& Started() const { return machine.applications.started; }

    MemoryClipboard clipboard;
    Texts offered; // the lines of the last menu
    bool isWarned = false;
};

TEST_F(ContextMenuTest, TheWarningComesOncePerRun) {
    isWarned = true;
    Find();
    Select({"one.txt"});
    RightClick();
    RightClick();
    EXPECT_EQ(TimesTold("Taking actions with the context menu may change search results."), 1U);
    EXPECT_EQ(State().intContextMenuCount, 2);
    const auto record = std::ranges::find_if(prompts.Records(), [](const auto& prompt) {
        return prompt.text.starts_with("Taking actions");
    });
    ASSERT_NE(record, prompts.Records().end());
    EXPECT_EQ(record->style, 16);
}

TEST_F(ContextMenuTest, TheOptionSilencesTheWarning) {
    Find();
    Select({"one.txt"});
    RightClick();
    EXPECT_EQ(TimesTold("Taking actions"), 0U);
    EXPECT_FALSE(offered.empty());
}

TEST_F(ContextMenuTest, AnEmptySelectionHasNoMenu) {
    Find();
    Select({});
    RightClick("Open");
    EXPECT_TRUE(offered.empty());
    EXPECT_TRUE(Started().empty());
}

TEST_F(ContextMenuTest, ADeletedObjectInTheSelectionMeansNoMenu) {
    Find();
    Select({"one.txt", "pic.jpg"});
    ASSERT_TRUE(Disk().DeleteFile("C:\\a\\pic.jpg", true));
    RightClick("Open");
    EXPECT_TRUE(offered.empty());
    EXPECT_TRUE(Started().empty());
    EXPECT_NE(Form().lblStatus.Caption->find("isn't there any more. Search again."),
              std::string::npos);
}

TEST_F(ContextMenuTest, ACancelledMenuInvokesNothing) {
    Find();
    Select({"one.txt"});
    RightClick();
    EXPECT_FALSE(offered.empty());
    EXPECT_TRUE(Started().empty());
    EXPECT_TRUE(clipboard.last.empty());
    EXPECT_TRUE(Disk().Exists("C:\\a\\one.txt"));
}

TEST_F(ContextMenuTest, ASelectionAcrossTwoFoldersGetsOneMenuForAll) {
    Find();
    Select({"one.txt", "deep.txt"});
    RightClick("Copy");
    EXPECT_EQ(clipboard.Of("text/plain"), "/a/one.txt\n/a/sub/deep.txt");
}

TEST_F(ContextMenuTest, ObjectsOfOneTypeOpenTogether) {
    Find();
    Select({"one.txt", "two & 2.txt"});
    RightClick("Open");
    EXPECT_EQ(Started().size(), 1U);
}

TEST_F(ContextMenuTest, ObjectsOfSeveralTypesOpenEachWithItsOwn) {
    Find();
    Select({"one.txt", "pic.jpg", "two & 2.txt"});
    RightClick("Open");
    EXPECT_EQ(Started().size(), 2U);
}

TEST_F(ContextMenuTest, WhatNothingOpensIsTold) {
    machine.applications.SetType("jpg", "x/unknown");
    Find();
    Select({"one.txt", "pic.jpg"});
    RightClick("Open");
    EXPECT_EQ(Started().size(), 1U);
    EXPECT_TRUE(WasTold("Nothing on this desktop opens files of this type:"));
}

TEST_F(ContextMenuTest, RecommendedApplicationsStandBelowOpenWith) {
    Find();
    Select({"one.txt"});
    RightClick("Open With/Writer & More");
    EXPECT_TRUE(Offers("Open With/Text Editor"));
    EXPECT_TRUE(Offers("Open With/Other..."));
    EXPECT_FALSE(Offers("Open With/Viewer"));
    ASSERT_EQ(Started().size(), 1U);
    EXPECT_NE(Started()[0].find("write"), std::string::npos);
}

TEST_F(ContextMenuTest, OtherLetsOneOfAllApplicationsBeChosen) {
    Find();
    Select({"one.txt"});
    prompts.SetModalRunner([this](session::Session&, fields::Form& form) {
        if (&form == &S().forms.frmContextMenu) {
            Set(S().forms.frmContextMenu.lstMenu, "Open With/Other...");
            Click(S().forms.frmContextMenu.cmdOK);
        } else {
            auto& chooser = S().forms.frmOpenWith;
            EXPECT_EQ(chooser.lstApplications.Items().size(), 3U);
            Set(chooser.txtFind, "view");
            EXPECT_EQ(chooser.lstApplications.Items(), Texts{"Viewer"});
            Click(chooser.cmdOK);
        }
        return true;
    });
    session::UserMenu(S());
    ASSERT_EQ(Started().size(), 1U);
    EXPECT_NE(Started()[0].find("view"), std::string::npos);
}

TEST_F(ContextMenuTest, ALeftChooserOpensNothing) {
    Find();
    Select({"one.txt"});
    prompts.SetModalRunner([this](session::Session&, fields::Form& form) {
        if (&form == &S().forms.frmContextMenu) {
            Set(S().forms.frmContextMenu.lstMenu, "Open With/Other...");
            Click(S().forms.frmContextMenu.cmdOK);
        } else {
            Set(S().forms.frmOpenWith.lstApplications, "Viewer");
            Click(S().forms.frmOpenWith.cmdCancel);
        }
        return true;
    });
    session::UserMenu(S());
    EXPECT_TRUE(Started().empty());
}

TEST_F(ContextMenuTest, TheFolderShowsWithTheObjects) {
    Find();
    Select({"one.txt", "deep.txt"});
    RightClick("Show in Folder");
    EXPECT_EQ(machine.applications.shown, (Texts{"C:\\a\\one.txt", "C:\\a\\sub\\deep.txt"}));
}

TEST_F(ContextMenuTest, MoreThanTenFoldersAreNotShown) {
    Texts names;
    for (int i = 0; i < 11; ++i) {
        names.push_back("f" + std::to_string(i) + ".txt");
        Disk().AddFile("C:\\a\\d" + std::to_string(i) + "\\" + names.back(), "x");
    }
    Find();
    Select(names);
    RightClick();
    EXPECT_FALSE(Offers("Show in Folder"));
    EXPECT_TRUE(Offers("Open"));
}

TEST_F(ContextMenuTest, CutIsOnTheClipboardAndMarked) {
    Find();
    Select({"one.txt", "two & 2.txt"});
    RightClick("Cut");
    EXPECT_EQ(clipboard.Of("x-special/gnome-copied-files"),
              "cut\nfile:///a/one.txt\nfile:///a/two%20%26%202.txt");
    EXPECT_EQ(clipboard.Of("application/x-kde-cutselection"), "1");
    EXPECT_TRUE(Row("one.txt").Has(results::kCut));
    EXPECT_TRUE(Row("two & 2.txt").Has(results::kCut));
    EXPECT_FALSE(Row("pic.jpg").Has(results::kCut));
}

TEST_F(ContextMenuTest, CopyTakesTheMarkAway) {
    Find();
    Select({"one.txt"});
    RightClick("Cut");
    Select({"pic.jpg"});
    RightClick("Copy");
    EXPECT_FALSE(Row("one.txt").Has(results::kCut));
    EXPECT_EQ(clipboard.Of("application/x-kde-cutselection"), "0");
}

TEST_F(ContextMenuTest, ASecondCutMarksItsOwnRowsAlone) {
    Find();
    Select({"one.txt"});
    RightClick("Cut");
    Select({"pic.jpg"});
    RightClick("Cut");
    EXPECT_FALSE(Row("one.txt").Has(results::kCut));
    EXPECT_TRUE(Row("pic.jpg").Has(results::kCut));
}

TEST_F(ContextMenuTest, PathsAreCopiedAsText) {
    Find();
    Select({"one.txt", "pic.jpg"});
    RightClick("Copy Path");
    EXPECT_EQ(clipboard.last.size(), 1U);
    EXPECT_EQ(clipboard.Of("text/plain"), "/a/one.txt\n/a/pic.jpg");
}

TEST_F(ContextMenuTest, WithoutAClipboardNothingIsOfferedForIt) {
    S().clipboard = nullptr;
    Find();
    Select({"one.txt"});
    RightClick();
    EXPECT_FALSE(Offers("Copy"));
    EXPECT_FALSE(Offers("Cut"));
    EXPECT_TRUE(Offers("Open"));
}

TEST_F(ContextMenuTest, TrashGoesTheWayOfTheButtonAndMarksTheRow) {
    Find();
    Select({"one.txt"});
    prompts.Queue("Yes");
    RightClick("Move to Trash");
    EXPECT_TRUE(WasTold("Are you sure you want"));
    EXPECT_FALSE(Disk().Exists("C:\\a\\one.txt"));
    EXPECT_TRUE(Row("one.txt").Has(results::kGone));
    EXPECT_FALSE(Row("pic.jpg").Has(results::kGone));
}

TEST_F(ContextMenuTest, ARefusedTrashMarksNothing) {
    Find();
    Select({"one.txt"});
    prompts.Queue("No");
    RightClick("Move to Trash");
    EXPECT_TRUE(Disk().Exists("C:\\a\\one.txt"));
    EXPECT_FALSE(Row("one.txt").Has(results::kGone));
}

TEST_F(ContextMenuTest, RenameOpensTheActionWindow) {
    Find();
    Select({"one.txt"});
    bool opened = false;
    prompts.SetModalRunner([&](session::Session&, fields::Form& form) {
        if (&form == &S().forms.frmContextMenu) {
            Set(S().forms.frmContextMenu.lstMenu, "Rename...");
            Click(S().forms.frmContextMenu.cmdOK);
            return true;
        }
        opened = &form == &S().frmDialog;
        Click(S().frmDialog.CancelButton);
        return true;
    });
    session::UserMenu(S());
    EXPECT_TRUE(opened);
    EXPECT_EQ(State().strAction, "Rename");
}

TEST_F(ContextMenuTest, AnArchiverOffersItselfWhereThereIsOne) {
    Find();
    Select({"one.txt", "deep.txt"});
    RightClick();
    EXPECT_FALSE(Offers("Compress..."));
    machine.applications.AddProgram("engrampa");
    RightClick("Compress...");
    ASSERT_EQ(Started().size(), 1U);
    EXPECT_EQ(Started()[0], "/a> engrampa --default-dir=/a --add /a/one.txt /a/sub/deep.txt");
}

TEST_F(ContextMenuTest, PropertiesAreTheFileManagers) {
    Find();
    Select({"two & 2.txt"});
    RightClick("Properties");
    EXPECT_EQ(machine.desktop.properties, Texts{"file:///a/two%20%26%202.txt"});
    machine.desktop.showsProperties = false;
    RightClick("Properties");
    EXPECT_TRUE(WasTold("Nothing shows properties."));
}

TEST_F(ContextMenuTest, TheUsersOwnActionsStandInTheMenuAndRun) {
    machine.desktop.AddAction(
        DesktopFolder::kData, "file-manager/actions",
        {"/x/a.desktop", "a.desktop",
         "[Desktop Entry]\nName=Turn & turn\nProfiles=p;\n[X-Action-Profile p]\nExec=turn %F\n"});
    machine.desktop.scripts[{DesktopFolder::kUserData, "nemo/scripts"}] = {
        {"/s/tools/count", {"tools"}, "count"}};
    Find();
    Select({"one.txt", "two & 2.txt"});
    RightClick("Turn & turn");
    EXPECT_TRUE(Offers("Scripts/tools/count"));
    RightClick("Scripts/tools/count");
    EXPECT_EQ(Started(), (Texts{"/a> turn /a/one.txt /a/two & 2.txt",
                                "/a> /s/tools/count one.txt two & 2.txt"}));
}

TEST_F(ContextMenuTest, AnActionThatIsNotTrustedIsAskedAbout) {
    machine.desktop.AddAction(DesktopFolder::kData, "kio/servicemenus",
                              {"/x/a.desktop", "a.desktop",
                               "[Desktop Entry]\nMimeType=all/all;\nActions=x;\n"
                               "[Desktop Action x]\nName=Wipe\nExec=wipe %F\n"});
    Find();
    Select({"one.txt"});
    prompts.Queue("No");
    RightClick("Wipe");
    EXPECT_TRUE(Started().empty());
    EXPECT_TRUE(WasTold("which is not marked as a program"));
    prompts.Queue("Yes");
    RightClick("Wipe");
    EXPECT_EQ(Started(), Texts{"/a> wipe /a/one.txt"});
}

TEST_F(ContextMenuTest, ACommandThatCannotBeReadIsTold) {
    machine.desktop.AddAction(
        DesktopFolder::kData, "file-manager/actions",
        {"/x/a.desktop", "a.desktop",
         "[Desktop Entry]\nName=Bad\nProfiles=p;\n[X-Action-Profile p]\nExec=turn '%F\n"});
    Find();
    Select({"one.txt"});
    RightClick("Bad");
    EXPECT_TRUE(WasTold("can't be read: turn '%F"));
    EXPECT_TRUE(Started().empty());
}

TEST_F(ContextMenuTest, AScriptFindsItsWayThroughTheMenuByLines) {
    Find();
    Select({"one.txt"});
    RightClick();
    for (const char* line : {"Open", "Copy", "Cut", "Copy Path", "Rename...", "Move to Trash",
                             "Tarvix/Copy to...", "Tarvix/Move to...", "Properties"})
        EXPECT_TRUE(Offers(line)) << line;
}

TEST(ClipboardForms, ObjectsInEveryForm) {
    const Texts paths{"/a b", "/c\xE9\nd"};
    const auto forms = ObjectForms(paths, false);
    const auto of = [&](std::string_view type) {
        const auto found = std::ranges::find(forms, type, &ClipboardForm::type);
        return found == forms.end() ? "none" : found->bytes;
    };
    EXPECT_EQ(of("text/uri-list"), "file:///a%20b\r\nfile:///c%E9%0Ad\r\n");
    EXPECT_EQ(of("x-special/gnome-copied-files"), "copy\nfile:///a%20b\nfile:///c%E9%0Ad");
    EXPECT_EQ(of("x-special/mate-copied-files"), "copy\nfile:///a%20b\nfile:///c%E9%0Ad");
    EXPECT_EQ(of("application/x-kde-cutselection"), "0");
    EXPECT_EQ(of("application/x-kde4-urilist"), "file:///a%20b\r\nfile:///c%E9%0Ad\r\n");
    EXPECT_EQ(of("text/plain"), "/a b\n/c\xE9\nd");
}

} // namespace
} // namespace tarvix::menu
