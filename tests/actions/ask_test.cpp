#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// frmAsk: what it tells, what it offers, what each answer does.
class AskTest : public ActionFixture {
  protected:
    AskTest() {
        Disk().AddFile("C:\\t\\a.txt", "new");
        Disk().AddFile("C:\\d\\a.txt", "older");
    }
    fields::FrmAsk& Ask() { return S().forms.frmAsk; }
    std::vector<std::string> Offered() {
        std::vector<std::string> names;
        for (fields::CommandButton* button :
             {&Ask().cmdSkip, &Ask().cmdOverwrite, &Ask().cmdRename, &Ask().cmdSkipAll,
              &Ask().cmdOverwriteAll, &Ask().cmdRenameAll, &Ask().cmdCancel,
              &Ask().cmdDeleteReplace, &Ask().cmdDeleteReplaceAll}) {
            if (button->Visible && button->Enabled) names.push_back(button->Name());
        }
        return names;
    }
    // What the first prompt of a copy or move offers.
    std::vector<std::string> OfferedFor(int kind, bool isMove = false) {
        std::vector<std::string> offered;
        onForm = [&](fields::Form& form) {
            if (&form == &Ask() && offered.empty()) offered = Offered();
        };
        Find(kind);
        Do(isMove ? Form().cmdMoveSelected : Form().cmdCopySelected, To("C:\\d", "chkAsk"), {"OK"});
        return offered;
    }
};

TEST_F(AskTest, TellsOfBothObjects) {
    Disk().Node("C:\\t\\a.txt")->modified = machine.clock.FromLocal({2025, 3, 4, 5, 6, 7});
    Disk().Node("C:\\d\\a.txt")->modified = machine.clock.FromLocal({2024, 1, 2, 13, 4, 5});
    std::string told;
    onForm = [&](fields::Form&) { told = Ask().lblMain.Caption.Get(); };
    Find();
    Copy(To("C:\\d", "chkAsk"));
    EXPECT_EQ(told,
              "Duplicate found of File :\r\n\r\n'a.txt'\r\n\r\nWould you like to replace existing "
              "\r\n\r\n\r\nC:\\d\r\na.txt\r\n of type File \r\n\r\nSize: 5\r\nVersion: \r\nfor OS: "
              "\r\nDate: 1/2/2024 1:04:05 PM\r\n\r\nwith This One?\r\n\r\nC:\\t\r\na.txt\r\n of "
              "type File \r\n\r\nSize: 3\r\nVersion: \r\nfor OS: \r\nDate: 3/4/2025 5:06:07 AM"
              "\r\n\r\n\r\n\r\n\r\n\r\nRename rule: Add  '_' at end.");
}

TEST_F(AskTest, TheRenameRuleTellsItsSide) {
    std::string told;
    onForm = [&](fields::Form&) { told = Ask().lblMain.Caption.Get(); };
    Find();
    Copy([this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        Set(form.chkRenameBeg, "1");
        Set(form.txtRename, "x");
    });
    EXPECT_TRUE(told.ends_with("Rename rule: Add  'x' at beginning.")) << told;
}

TEST_F(AskTest, TwoFilesOfferNoRecycleAndReplace) {
    EXPECT_THAT(OfferedFor(0), ElementsAre("cmdSkip", "cmdOverwrite", "cmdRename", "cmdSkipAll",
                                           "cmdOverwriteAll", "cmdRenameAll", "cmdCancel"));
}

TEST_F(AskTest, TwoFoldersOfferEverything) {
    Disk().AddFolder("C:\\t\\sub");
    Disk().AddFolder("C:\\d\\sub");
    EXPECT_THAT(OfferedFor(3), ElementsAre("cmdSkip", "cmdOverwrite", "cmdRename", "cmdSkipAll",
                                           "cmdOverwriteAll", "cmdRenameAll", "cmdCancel",
                                           "cmdDeleteReplace", "cmdDeleteReplaceAll"));
    EXPECT_EQ(Ask().cmdDeleteReplace.Caption.Get(),
              "Rec&ycle this duplicate folder and contents, then replace.");
}

TEST_F(AskTest, ObjectsOfTwoKindsOfferNoOverwrite) {
    Disk().AddFolder("C:\\t\\b");
    Disk().AddFile("C:\\d\\b", "file");
    EXPECT_THAT(OfferedFor(3), ElementsAre("cmdSkip", "cmdRename", "cmdSkipAll", "cmdRenameAll",
                                           "cmdCancel", "cmdDeleteReplace"));
    EXPECT_EQ(Ask().cmdDeleteReplace.Caption.Get(),
              "Recycle duplicate file, then replace with original folder.");
    Disk().Node("C:\\t\\a.txt")->Detach();
    Disk().AddFile("C:\\t\\c", "file");
    Disk().AddFolder("C:\\d\\c");
    OfferedFor(0);
    EXPECT_EQ(Ask().cmdDeleteReplace.Caption.Get(),
              "Recycle duplicate folder, then replace with original file.");
}

TEST_F(AskTest, AMoveOffersSkipRenameAndCancelOnly) {
    EXPECT_THAT(OfferedFor(0, true),
                ElementsAre("cmdSkip", "cmdRename", "cmdSkipAll", "cmdRenameAll", "cmdCancel"));
}

TEST_F(AskTest, WithoutATextNothingCanBeRenamed) {
    std::vector<std::string> offered;
    onForm = [&](fields::Form&) { offered = Offered(); };
    Find();
    Copy([this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        Set(form.txtRename, "");
    });
    EXPECT_THAT(offered, ElementsAre("cmdSkip", "cmdOverwrite", "cmdSkipAll", "cmdOverwriteAll",
                                     "cmdCancel"));
}

// ---- answers ----

TEST_F(AskTest, EachAnswerHasItsLine) {
    for (const char* name : {"b.txt", "c.txt", "e.txt"}) {
        Disk().AddFile("C:\\t\\" + std::string(name), "new");
        Disk().AddFile("C:\\d\\" + std::string(name), "old");
    }
    Find();
    Copy(To("C:\\d", "chkAsk"), {"OK", "cmdSkip", "cmdOverwrite", "cmdRename", "cmdCancel"});
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "older");
    EXPECT_EQ(Disk().Content("C:\\d\\b.txt"), "new");
    EXPECT_EQ(Disk().Content("C:\\d\\c_.txt"), "new");
    EXPECT_EQ(Disk().Content("C:\\d\\e.txt"), "old");
    ExpectLog(
        {" User selected to be asked when duplicates, in the destination are found, at start.",
         " User selected skip in Ask form to object: C:\\t\\a.txt",
         " User selected overwrite in Ask form to object: C:\\t\\b.txt",
         " User selected rename in Ask form to object: C:\\t\\c.txt",
         " User selected cancel to all in Ask form at: C:\\t\\e.txt"});
}

TEST_F(AskTest, AnAnswerForAllStandsAndIsLoggedOnce) {
    struct Case {
        const char* button;
        const char* line;
        const char* second; // what stands at C:\d\b.txt then
    };
    for (const Case& c :
         {Case{"cmdSkipAll", " User selected skip to all in Ask form at: ", "old"},
          Case{"cmdRenameAll", " User selected rename to all in Ask form at: ", "old"},
          Case{"cmdOverwriteAll", " User selected overwrite to all in Ask form at: ", "new"}}) {
        Disk().AddFile("C:\\t\\b.txt", "new");
        Disk().AddFile("C:\\d\\b.txt", "old");
        int asked = 0;
        onForm = [&](fields::Form&) { ++asked; };
        Find();
        Copy(To("C:\\d", "chkAsk"), {"OK", c.button});
        EXPECT_EQ(asked, 0) << "only the first was asked about";
        EXPECT_EQ(Disk().Content("C:\\d\\b.txt"), c.second) << c.button;
    }
    ExpectLog({" User selected skip to all in Ask form at: C:\\t\\a.txt",
               " User selected rename to all in Ask form at: C:\\t\\a.txt",
               " User selected overwrite to all in Ask form at: C:\\t\\a.txt"});
}

TEST_F(AskTest, AStandingAnswerEndsWhereKindsDiffer) {
    Disk().AddFile("C:\\t\\b", "file");
    Disk().AddFile("C:\\d\\b\\in", "x");
    Disk().AddFile("C:\\t\\c.txt", "new");
    Disk().AddFile("C:\\d\\c.txt", "old");
    Find();
    Copy(To("C:\\d", "chkAsk"), {"OK", "cmdOverwriteAll", "cmdSkip", "cmdSkip"});
    EXPECT_EQ(Disk().Content("C:\\d\\a.txt"), "new");
    EXPECT_EQ(Disk().Content("C:\\d\\b\\in"), "x");
    EXPECT_EQ(Disk().Content("C:\\d\\c.txt"), "old") << "the answer for all no longer stood";
}

TEST_F(AskTest, RecycleAndReplace) {
    Disk().AddFile("C:\\t\\sub\\new.txt", "new");
    Disk().AddFile("C:\\d\\sub\\old.txt", "old");
    Find(3);
    Copy(To("C:\\d", "chkAsk"), {"OK", "cmdDeleteReplace"});
    EXPECT_EQ(Disk().Content("C:\\d\\sub\\new.txt"), "new");
    EXPECT_FALSE(Disk().Exists("C:\\d\\sub\\old.txt"));
    EXPECT_THAT(machine.bin.Paths(), ElementsAre("C:\\d\\sub"));
    ExpectLog({" User selected Recycle and Replace in ask form to: C:\\t\\sub",
               " Recycled C:\\d\\sub", " Copy C:\\t\\sub -- to -- C:\\d\\sub "});
}

TEST_F(AskTest, RecycleAndReplaceThatIsRefusedCanBeTriedAgain) {
    Disk().AddFile("C:\\t\\sub\\new.txt", "new");
    Disk().AddFile("C:\\d\\sub\\old.txt", "old");
    Find(3);
    machine.faults.FailCall("Recycle", 1, platform::kPermissionDenied);
    machine.faults.ResetCounts();
    Copy(To("C:\\d", "chkAsk"), {"OK", "cmdDeleteReplace", "Retry"});
    EXPECT_TRUE(WasTold("Permission denied on: \r\n\r\nC:\\d\\sub\r\n\r\n action not performed."
                        "\r\n\r\nWith Recycle and Replace, object is most likely open, possibly in "
                        "an application.\r\n\r\nAlso write to device/folder may not be allowed."
                        "\r\n\r\nex. CD/DVD device is write protected."));
    EXPECT_EQ(Disk().Content("C:\\d\\sub\\new.txt"), "new");
}

TEST_F(AskTest, RecycleAndReplaceThatIsGivenUpPlacesNothing) {
    Disk().AddFile("C:\\t\\sub\\new.txt", "new");
    Disk().AddFile("C:\\d\\sub\\old.txt", "old");
    machine.bin.Refuse("C:\\d\\sub", platform::kPermissionDenied);
    Find(3);
    Copy(To("C:\\d", "chkAsk"), {"OK", "cmdDeleteReplace", "Cancel"});
    EXPECT_EQ(Disk().Content("C:\\d\\sub\\old.txt"), "old");
    EXPECT_FALSE(Disk().Exists("C:\\d\\sub\\new.txt"));
    EXPECT_THAT(machine.bin.Paths(), IsEmpty());
    ExpectLog({" User selected Recycle and Replace in Ask form to object: C:\\t\\subPermission was "
               "denied, action was not performed.\r\n\r\nWith Recycle and Replace, object was most "
               "likely open, possibly in explorer or other application."});
}

// ---- the renaming rule ----

class RenameRule : public ActionFixture {
  protected:
    // Where a copy of `name` goes when these names are taken in C:\d.
    std::string PlacedAs(const std::string& name, const std::vector<std::string>& taken,
                         const std::string& added = "_", bool atBeginning = false) {
        Disk().AddFile("C:\\t\\" + name, "new");
        for (const std::string& each : taken) {
            Disk().AddFile("C:\\d\\" + each, "old");
        }
        Find();
        Copy([&](fields::FrmDialog& form) {
            Set(form.cmbDir, "C:\\d");
            Set(form.chkRename, "1");
            if (atBeginning) Set(form.chkRenameBeg, "1");
            Set(form.txtRename, added);
        });
        for (const std::string& path : Disk().AllFiles()) {
            if (path.starts_with("C:\\d\\") && Disk().Content(path) == "new") return path;
        }
        return {};
    }
};

TEST_F(RenameRule, TheTextIsRepeatedNotNumbered) {
    EXPECT_EQ(PlacedAs("a.txt", {"a.txt", "a_.txt", "a__.txt"}), "C:\\d\\a___.txt");
}

TEST_F(RenameRule, AtTheBeginning) {
    EXPECT_EQ(PlacedAs("a.txt", {"a.txt", "xa.txt"}, "x", true), "C:\\d\\xxa.txt");
}

TEST_F(RenameRule, ANameWithoutAnExtensionGetsNoDot) {
    EXPECT_EQ(PlacedAs("a", {"a"}), "C:\\d\\a_");
}

TEST_F(RenameRule, ANameThatEndsInADotLosesIt) {
    EXPECT_EQ(PlacedAs("a.", {"a."}), "C:\\d\\a_");
}

TEST_F(RenameRule, TheLastDotCounts) {
    EXPECT_EQ(PlacedAs("a.tar.gz", {"a.tar.gz"}), "C:\\d\\a.tar_.gz");
}

TEST_F(RenameRule, AFolderHasNoExtension) {
    Disk().AddFile("C:\\t\\sub.x\\a", "new");
    Disk().AddFile("C:\\d\\sub.x\\a", "old");
    Find(3);
    Copy(To("C:\\d", "chkRename"));
    EXPECT_EQ(Disk().Content("C:\\d\\sub.x_\\a"), "new");
}

TEST_F(RenameRule, ABlankAtTheEndOfANameNeverMakesAFreeOne) {
    Disk().AddFile("C:\\t\\a", "new");
    Disk().AddFile("C:\\d\\a", "old");
    Find();
    Copy([this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        Set(form.chkRename, "1");
        form.txtRename.Text = " ";
    });
    ExpectTotals(0, 1, 0);
    ExpectLog({" Skipped C:\\t\\a, no free name was found for a duplicate."});
}

TEST_F(RenameRule, AnEmptyTextIsRefusedBeforeAnythingIsDone) {
    Disk().AddFile("C:\\t\\a", "new");
    Find();
    Copy([this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        Set(form.chkRename, "1");
        Set(form.txtRename, "");
    });
    EXPECT_TRUE(stayedOpen);
    EXPECT_TRUE(WasTold("There is no text to add to the names of duplicates"));
    EXPECT_FALSE(Disk().Exists("C:\\d\\a"));
}

TEST_F(RenameRule, AMovedDuplicateIsMovedToItsNewName) {
    Disk().AddFile("C:\\t\\a.txt", "new");
    Disk().AddFile("C:\\d\\a.txt", "old");
    Find();
    Move(To("C:\\d", "chkRename"));
    EXPECT_EQ(Disk().Content("C:\\d\\a_.txt"), "new");
    EXPECT_FALSE(Disk().Exists("C:\\t\\a.txt"));
}

} // namespace
} // namespace tarvix::testing
