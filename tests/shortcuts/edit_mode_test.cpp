#include "results/link_cells.h"
#include "results/result_list.h"
#include "tests/shortcuts/shortcut_files.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

#include <utility>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr std::string_view kEditFile = "C:\\home\\ann\\tarvix\\TXTargetPathFile.txt";
constexpr std::string_view kEverything = "Name = a.lnk\r\n"
                                         "Target = C:\\Program Files\\App\\app.exe\r\n"
                                         "Arguments = /open \"a b\" -n 5\r\n"
                                         "Start in = C:\\Program Files\\App\r\n"
                                         "HotKey = CTRL+ALT+SHIFT+T\r\n"
                                         "Window Style = Maximized\r\n"
                                         "Description = Everything set\r\n"
                                         "Icon = C:\\Program Files\\App\\app.ico,5\r\n";
constexpr std::string_view kAddress = "Name = b.url\r\n"
                                      "Target = http://example.com/x\r\n"
                                      "HotKey = 1652\r\n"
                                      "Icon = C:\\windows\\system32\\shell32.dll,4\r\n";

// A link, an address, a link without a target and a text in C:\t.
class ShortcutMode : public ProgramFixture {
  protected:
    ShortcutMode() {
        Disk().AddFile("C:\\t\\a.lnk", ShortcutBytes("lnk/wine/72_everything.lnk"));
        Disk().AddFile("C:\\t\\b.url", ShortcutBytes("url/handmade/h01_full.url"));
        Disk().AddFile("C:\\t\\c.txt", "text");
        Disk().AddFile("C:\\t\\d.lnk", ShortcutBytes("lnk/wine/66_empty.lnk"));
    }
    void Find() {
        Start();
        LookForAllAttributes();
        Search("*", "C:\\t");
        Click(Form().cmdSelectAll);
    }
    void Enter() {
        prompts.Queue("cmdOk");
        Click(Form().cmdEditTargets);
    }
    void Save(std::string answer = "Yes") {
        prompts.Queue(std::move(answer));
        Click(Form().cmdEditTargets);
    }
    std::string EditText() { return Disk().Content(kEditFile).value_or("(none)"); }
    void Replace(std::string_view from, std::string_view to) {
        std::string text = EditText();
        const std::size_t at = text.find(from);
        ASSERT_NE(at, text.npos) << from;
        Disk().AddFile(kEditFile, text.replace(at, from.size(), to));
    }
    shortcuts::Values Link(std::string_view path) {
        return shortcuts::Read(shortcuts::KindOf(path), Disk().Content(path).value_or(""));
    }
    std::vector<bool> Selected() {
        std::vector<bool> selected;
        for (std::size_t i = 0; i < S().rows->Count(); ++i) {
            selected.push_back(S().rows->At(i).selected);
        }
        return selected;
    }
};

TEST_F(ShortcutMode, WritesARecordForEachSelectedShortcutInTheOrderOfTheList) {
    Find();
    Enter();
    EXPECT_EQ(EditText(), std::string(kEverything) + std::string(kAddress));
    EXPECT_EQ(Form().cmdEditTargets.Caption.Get(), "  Save &Targets");
    EXPECT_TRUE(Form().mnuShortcutsWarning.Visible);
    EXPECT_EQ(Form().lblStatus.Caption.Get(), "");
}

TEST_F(ShortcutMode, DeselectsShortcutsWithoutTargetAndNoOtherRow) {
    Find();
    Enter();
    EXPECT_THAT(Names(), ElementsAre("a.lnk", "b.url", "c.txt", "d.lnk"));
    EXPECT_THAT(Selected(), ElementsAre(true, true, true, false));
}

TEST_F(ShortcutMode, WithNothingToEditSaysSo) {
    Find();
    Click(Form().cmdSelectNone);
    S().Raise(Form().lstMain, "ItemClick");
    S().rows->At(3).selected = true;
    Form().cmdEditTargets.Visible = true;
    Enter();
    EXPECT_TRUE(WasTold("No 'lnk' or 'url' files to edit here.\r\n\r\nOnly select those with a "
                        "Target Path. It is not allowed to edit 'lnk' or 'url' files with no "
                        "Target Path"));
    EXPECT_EQ(Form().cmdEditTargets.Caption.Get(), "Edi&t Links (shortcuts)");
    EXPECT_FALSE(Form().mnuShortcutsWarning.Visible);
    EXPECT_FALSE(S().rows->At(3).selected);
    EXPECT_TRUE(Form().cmdSearch.Enabled);
}

TEST_F(ShortcutMode, CancelledBeforeItBeginsChangesNothing) {
    Find();
    prompts.Queue("cmdCancel");
    Click(Form().cmdEditTargets);
    EXPECT_EQ(EditText(), "(none)");
    EXPECT_FALSE(Form().mnuShortcutsWarning.Visible);
    EXPECT_TRUE(Form().cmdSearch.Enabled);
}

TEST_F(ShortcutMode, LocksTheFormUntilItIsCancelled) {
    Find();
    Enter();
    for (const fields::Control* control : std::initializer_list<const fields::Control*>{
             &Form().cmdSearch, &Form().cmbSearchFor, &Form().cmbDir, &Form().chkAlias,
             &Form().cmdSelectAll, &Form().cmdMoveSelected, &Form().mnuOptions, &Form().mnuTools}) {
        EXPECT_FALSE(control->Enabled) << control->Name();
    }
    Click(Form().mnuShortcutsWarning);
    EXPECT_TRUE(Form().cmdSearch.Enabled);
    EXPECT_TRUE(Form().mnuTools.Enabled);
    EXPECT_FALSE(Form().mnuShortcutsWarning.Visible);
    EXPECT_EQ(Form().cmdEditTargets.Caption.Get(), "Edi&t Links (shortcuts)");
    EXPECT_NE(EditText(), "(none)");
    program.Stop();
    EXPECT_TRUE(HasEntry(LogText(), " User cancelled Shortcut Editing Mode."));
}

TEST_F(ShortcutMode, OverwritesAnEarlierFileFromItsStart) {
    Disk().AddFile(kEditFile, std::string(5000, 'x'));
    Find();
    Enter();
    EXPECT_EQ(EditText(), std::string(kEverything) + std::string(kAddress));
}

TEST_F(ShortcutMode, SavedUnchangedWritesEveryShortcutAsItIs) {
    Find();
    Enter();
    Save();
    EXPECT_EQ(Disk().Content("C:\\t\\a.lnk"), ShortcutBytes("lnk/wine/72_everything.lnk"));
    EXPECT_EQ(Disk().Content("C:\\t\\b.url"), ShortcutBytes("url/handmade/h01_full.url"));
    EXPECT_EQ(Form().cmdEditTargets.Caption.Get(), "Edi&t Links (shortcuts)");
    EXPECT_TRUE(Form().cmdSearch.Enabled);
    program.Stop();
    const std::string log = LogText();
    EXPECT_TRUE(HasEntry(log, " /t/a.lnk shortcut was updated in Shortcut Edit mode") ||
                HasEntry(log, " C:\\t\\a.lnk shortcut was updated in Shortcut Edit mode"));
    EXPECT_THAT(log, HasSubstr("2 file changes for Shortcut Edit mode were restored to the main "
                               "list."));
}

TEST_F(ShortcutMode, SavesWhatWasEditedAndReadsTheRowsAgain) {
    Find();
    Enter();
    Replace("Target = C:\\Program Files\\App\\app.exe", "Target = D:\\new\\app.exe");
    Replace("Arguments = /open \"a b\" -n 5", "Arguments = ");
    Replace("Target = http://example.com/x", "Target = https://example.org/");
    Save();
    const shortcuts::Values link = Link("C:\\t\\a.lnk");
    EXPECT_EQ(link, (shortcuts::Values{"D:\\new\\app.exe", "", "C:\\Program Files\\App",
                                       "CTRL+ALT+SHIFT+T", "Maximized", "Everything set",
                                       "C:\\Program Files\\App\\app.ico,5"}));
    EXPECT_EQ(Disk().Content("C:\\t\\b.url")->substr(0, 47),
              "[InternetShortcut]\r\nURL=https://example.org/\r\nW");
    EXPECT_THAT(Cells(results::kTargetPath),
                ElementsAre("D:\\new\\app.exe", "https://example.org/", "", ""));
    EXPECT_EQ(S().rows->At(0).size, Disk().Content("C:\\t\\a.lnk")->size());
}

TEST_F(ShortcutMode, KeepsTheOldVersionsInTheTrash) {
    Find();
    Enter();
    Replace("Description = Everything set", "Description = x");
    Save();
    EXPECT_FALSE(Disk().Content("C:\\t\\a (before edit).lnk"));
    ASSERT_EQ(machine.bin.Items().size(), 1U);
    EXPECT_EQ(machine.bin.Items()[0].path, "C:\\t\\a (before edit).lnk");
}

TEST_F(ShortcutMode, OfALinkThatLeadsToAShortcutKeepsTheOldContentToo) {
    Disk().AddFile("C:\\u\\real.url", "[InternetShortcut]\r\nURL=http://a/\r\n");
    Disk().AddLink("C:\\t\\e.url", "C:\\u\\real.url");
    Find();
    Enter();
    Replace("Target = http://a/", "Target = http://b/");
    Save();
    EXPECT_EQ(Disk().Content("C:\\u\\real.url"), "[InternetShortcut]\r\nURL=http://b/\r\n");
    ASSERT_EQ(machine.bin.Items().size(), 1U);
    EXPECT_EQ(machine.bin.Items()[0].path, "C:\\t\\e (before edit).url");
    ASSERT_TRUE(machine.bin.Restore("C:\\t\\e (before edit).url"));
    EXPECT_EQ(Disk().Content("C:\\t\\e (before edit).url"),
              "[InternetShortcut]\r\nURL=http://a/\r\n");
}

TEST_F(ShortcutMode, ThatIsTooLargeIsLeftAlone) {
    const std::string large = "[InternetShortcut]\r\nURL=http://a/\r\n" + std::string(1 << 20, ';');
    Disk().AddFile("C:\\t\\e.url", large);
    Find();
    Enter();
    Replace("Target = http://a/", "Target = http://b/");
    Save();
    EXPECT_EQ(Disk().Content("C:\\t\\e.url"), large);
    EXPECT_TRUE(WasTold("e.url: It is too large for a shortcut."));
}

TEST_F(ShortcutMode, NoToTheQuestionKeepsTheModeWhole) {
    Find();
    Enter();
    Replace("Description = Everything set", "Description = x");
    Save("No");
    EXPECT_EQ(Disk().Content("C:\\t\\a.lnk"), ShortcutBytes("lnk/wine/72_everything.lnk"));
    EXPECT_EQ(Form().cmdEditTargets.Caption.Get(), "  Save &Targets");
    EXPECT_TRUE(Form().mnuShortcutsWarning.Visible);
    EXPECT_FALSE(Form().cmdSearch.Enabled);
    Save();
    EXPECT_EQ(Link("C:\\t\\a.lnk")[shortcuts::kDescription], "x");
}

TEST_F(ShortcutMode, RenamesAndRefusesATakenName) {
    Find();
    Enter();
    Replace("Name = a.lnk", "Name = new name.lnk");
    Replace("Name = b.url", "Name = c.txt");
    Save();
    EXPECT_TRUE(Disk().Content("C:\\t\\new name.lnk"));
    EXPECT_FALSE(Disk().Content("C:\\t\\a.lnk"));
    EXPECT_TRUE(Disk().Content("C:\\t\\b.url"));
    EXPECT_EQ(Disk().Content("C:\\t\\c.txt"), "text");
    EXPECT_TRUE(WasTold("b.url: It kept its name."));
    EXPECT_THAT(Names(), ElementsAre("new name.lnk", "b.url", "c.txt", "d.lnk"));
    EXPECT_EQ(Cells(results::kTargetPath)[0], "C:\\Program Files\\App\\app.exe");
}

TEST_F(ShortcutMode, AReadOnlyShortcutStaysReadOnly) {
    Find();
    Enter();
    ASSERT_TRUE(Disk().SetAttributes("C:\\t\\a.lnk", platform::kReadOnly));
    Replace("Name = a.lnk", "Name = n.lnk");
    Replace("Description = Everything set", "Description = x");
    Save();
    EXPECT_EQ(Link("C:\\t\\n.lnk")[shortcuts::kDescription], "x");
    EXPECT_NE(Disk().Facts("C:\\t\\n.lnk")->attributes & platform::kReadOnly, 0U);
}

TEST_F(ShortcutMode, ExchangedLinesFailOnTheFirstWrongLabelAndNothingIsWritten) {
    Find();
    Enter();
    Replace("Target = C:\\Program Files\\App\\app.exe\r\nArguments = /open \"a b\" -n 5\r\n",
            "Arguments = x\r\nTarget = y\r\n");
    Save();
    EXPECT_TRUE(WasTold("The Shortcut Edit File does not have the correct number of lines in "
                        "it.\r\n\r\nNo shortcut files have been updated yet. \r\n\r\nNo shortcut "
                        "references were completely updated to this list."));
    EXPECT_TRUE(WasTold("Error has occurred in Edit Link Files (Shortcut), refresh the search."));
    EXPECT_EQ(Disk().Content("C:\\t\\a.lnk"), ShortcutBytes("lnk/wine/72_everything.lnk"));
    EXPECT_TRUE(Form().cmdSearch.Enabled);
}

TEST_F(ShortcutMode, AnEarlyEndNamesTheLastShortcutThatWasRead) {
    Find();
    Enter();
    Replace("Description = Everything set", "Description = x");
    Replace("HotKey = 1652\r\nIcon = C:\\windows\\system32\\shell32.dll,4\r\n", "");
    Save();
    EXPECT_TRUE(WasTold("a.lnk was the last shortcut reference to be fully updated to this list."));
    EXPECT_EQ(Cells(results::kDescription)[0], "x");
    EXPECT_EQ(Disk().Content("C:\\t\\a.lnk"), ShortcutBytes("lnk/wine/72_everything.lnk"));
}

TEST_F(ShortcutMode, AMissingFileIsTold) {
    Find();
    Enter();
    ASSERT_TRUE(Disk().DeleteFile(kEditFile, false));
    Save();
    EXPECT_TRUE(WasTold("The Shortcut Edit File does not exist, exiting."));
    EXPECT_TRUE(WasTold("Error has occurred in Edit Link Files (Shortcut), refresh the search."));
}

TEST_F(ShortcutMode, ANameOf176CharactersEndsTheReading) {
    Find();
    Enter();
    Replace("Description = Everything set", "Description = x");
    Replace("Name = b.url", "Name = " + std::string(172, 'b') + ".url");
    Replace("Target = http://example.com/x", "Target = http://changed/");
    Save();
    EXPECT_EQ(Link("C:\\t\\a.lnk")[shortcuts::kDescription], "x");
    EXPECT_EQ(Disk().Content("C:\\t\\b.url"), ShortcutBytes("url/handmade/h01_full.url"));
}

TEST_F(ShortcutMode, SurplusRecordsAreNotRead) {
    Find();
    Enter();
    Disk().AddFile(kEditFile, EditText() + "Name = x\r\nrubbish\r\n");
    Save();
    EXPECT_FALSE(WasTold("correct number of lines"));
}

TEST_F(ShortcutMode, AnEmptyIconOfALinkBecomesACommaAndZero) {
    Find();
    Enter();
    Replace("Icon = C:\\Program Files\\App\\app.ico,5", "Icon = ");
    Save();
    EXPECT_EQ(Link("C:\\t\\a.lnk")[shortcuts::kIcon], ",0");
}

TEST_F(ShortcutMode, AnIconOfALinkWithoutACommaStaysAndIsTold) {
    Find();
    Enter();
    Replace("Description = Everything set", "Description = x");
    Replace("Icon = C:\\Program Files\\App\\app.ico,5", "Icon = C:\\other.ico");
    Save();
    EXPECT_EQ(Link("C:\\t\\a.lnk")[shortcuts::kIcon], "C:\\Program Files\\App\\app.ico,5");
    EXPECT_EQ(Link("C:\\t\\a.lnk")[shortcuts::kDescription], "x");
    EXPECT_TRUE(WasTold("a.lnk: Its icon has no comma"));
}

TEST_F(ShortcutMode, ABracketInAHotKeyGivesItsNoticeAndAllElseIsSaved) {
    Find();
    Enter();
    Replace("HotKey = CTRL+ALT+SHIFT+T", "HotKey = CTRL+[");
    Replace("Description = Everything set", "Description = x");
    Save();
    EXPECT_TRUE(WasTold("The '[' (open bracket) can not be inserted into a shortcut hotkey using "
                        "this method, do it manually."));
    EXPECT_EQ(Link("C:\\t\\a.lnk")[shortcuts::kDescription], "x");
    EXPECT_EQ(Link("C:\\t\\a.lnk")[shortcuts::kHotKey], "CTRL+ALT+SHIFT+T");
}

TEST_F(ShortcutMode, AValueThatCannotBeStoredLeavesItsShortcutAndIsTold) {
    Find();
    Enter();
    Replace("HotKey = CTRL+ALT+SHIFT+T", "HotKey = HYPER+T");
    Replace("Target = http://example.com/x", "Target = http://b/");
    Save();
    EXPECT_EQ(Disk().Content("C:\\t\\a.lnk"), ShortcutBytes("lnk/wine/72_everything.lnk"));
    EXPECT_TRUE(WasTold("a.lnk: \"HYPER+T\" is no hot key"));
    EXPECT_EQ(Link("C:\\t\\b.url")[shortcuts::kTarget], "http://b/");
}

TEST_F(ShortcutMode, AShortcutThatAnotherProgramChangedIsLeftAlone) {
    Find();
    Enter();
    const std::string other = ShortcutBytes("lnk/wine/32_desc.lnk");
    Disk().AddFile("C:\\t\\a.lnk", other);
    Replace("Description = Everything set", "Description = x");
    Save();
    EXPECT_EQ(Disk().Content("C:\\t\\a.lnk"), other);
    EXPECT_TRUE(WasTold("a.lnk: It was changed by another program"));
}

TEST_F(ShortcutMode, AnAddressThatHasGoneIsTold) {
    Find();
    Enter();
    ASSERT_TRUE(Disk().DeleteFile("C:\\t\\b.url", false));
    Save();
    EXPECT_TRUE(WasTold("ERROR shortcut is missing was previously written in 'SaveToLinkFiles'."));
    EXPECT_FALSE(Disk().Content("C:\\t\\b.url"));
}

TEST_F(ShortcutMode, ATextWithLineBreaksIsOneLineAndKeepsThemWhereItIsNotEdited) {
    Disk().AddFile("C:\\t\\e.lnk", ShortcutBytes("lnk/wine/36_desc_newline.lnk"));
    Find();
    Enter();
    EXPECT_THAT(EditText(), HasSubstr("Description = line one  line two\r\n"));
    Replace("Name = e.lnk\r\nTarget = C:\\windows\\notepad.exe",
            "Name = e.lnk\r\nTarget = C:\\windows\\write.exe");
    Save();
    EXPECT_EQ(Link("C:\\t\\e.lnk")[shortcuts::kDescription], "line one\r\nline two");
    EXPECT_EQ(Link("C:\\t\\e.lnk")[shortcuts::kTarget], "C:\\windows\\write.exe");
}

TEST_F(ShortcutMode, IsOfferedForDesktopEntriesToo) {
    Disk().AddFile("C:\\t\\e.desktop", "[Desktop Entry]\nExec=a\n");
    Start();
    LookForAllAttributes();
    Search("*.desktop|*.txt", "C:\\t");
    Click(Form().cmdSelectAll);
    EXPECT_TRUE(Form().cmdEditTargets.Visible);
    Search("*.txt", "C:\\t");
    Click(Form().cmdSelectAll);
    EXPECT_FALSE(Form().cmdEditTargets.Visible);
}

TEST_F(ShortcutMode, DesktopEntriesHaveEightLines) {
    Disk().AddFile("C:\\t\\e.desktop", "[Desktop Entry]\nType=Application\nExec=/bin/a %U\nIcon=i\n"
                                       "Name[de]=x\n");
    Find();
    Enter();
    EXPECT_THAT(EditText(), HasSubstr("Name = e.desktop\r\nTarget = /bin/a\r\nArguments = %U\r\n"
                                      "Start in = \r\nHotKey = \r\nWindow Style = Normal\r\n"
                                      "Description = \r\nIcon = i\r\n"));
    Replace("Target = /bin/a\r\n", "Target = /bin/b\r\n");
    Save();
    EXPECT_EQ(Disk().Content("C:\\t\\e.desktop"),
              "[Desktop Entry]\nType=Application\nExec=/bin/b %U\nIcon=i\nName[de]=x\n");
}

} // namespace
} // namespace tarvix::testing
