#include "actions/request/preview.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using actions::Verdict;
using ::testing::ElementsAre;

// What the action window foretells, and that foretelling changes nothing.
class PreviewTest : public ProgramFixture {
  protected:
    PreviewTest() {
        Disk().AddFile("C:\\t\\a.txt", "1");
        Disk().AddFile("C:\\t\\b.txt", "2");
        Disk().AddFile("C:\\d\\b.txt", "old");
    }
    // Opens the action window for everything found, lets `fill` set it, and takes the preview.
    actions::PreviewResult Foretell(fields::CommandButton& button,
                                    const std::function<void(fields::FrmDialog&)>& fill) {
        Start();
        Search("*", "C:\\t");
        Click(Form().cmdSelectAll);
        actions::PreviewResult result;
        prompts.SetModalRunner([&](session::Session&, fields::Form& form) {
            if (!form.IsShown()) return false;
            fill(S().frmDialog);
            const auto before = Disk().AllFiles();
            result = actions::Preview(S());
            EXPECT_EQ(Disk().AllFiles(), before);
            Click(S().frmDialog.CancelButton);
            return true;
        });
        Click(button);
        prompts.SetModalRunner({});
        return result;
    }
    static std::vector<std::string> Verdicts(const actions::PreviewResult& result) {
        std::vector<std::string> texts;
        for (const auto& entry : result.entries) {
            texts.push_back(entry.strNewPath + " - " +
                            std::string(actions::VerdictText(entry.verdict)));
        }
        return texts;
    }
};

TEST_F(PreviewTest, ACopyThatSkipsDuplicates) {
    const auto result = Foretell(Form().cmdCopySelected, [this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        Set(form.chkSkipAll, "1");
    });
    EXPECT_THAT(Verdicts(result),
                ElementsAre("C:\\d\\a.txt - copy", "C:\\d\\b.txt - duplicate: skip"));
    EXPECT_EQ(LogText().find(" Copy C:"), std::string::npos);
}

TEST_F(PreviewTest, FoldersAreSpelledAsTheyStand) {
    Disk().AddFolder("C:\\d\\Sub");
    const auto result = Foretell(Form().cmdCopySelected, [this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\D\\SUB\\New");
        Set(form.chkSkipAll, "1");
    });
    EXPECT_THAT(Verdicts(result),
                ElementsAre("C:\\d\\Sub\\New\\a.txt - copy", "C:\\d\\Sub\\New\\b.txt - copy"));
}

TEST_F(PreviewTest, ADuplicateIsToldInTheFolderThatHoldsIt) {
    const auto result = Foretell(Form().cmdCopySelected, [this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\t\\..\\D");
        Set(form.chkSkipAll, "1");
    });
    EXPECT_THAT(Verdicts(result),
                ElementsAre("C:\\d\\a.txt - copy", "C:\\d\\b.txt - duplicate: skip"));
}

TEST_F(PreviewTest, ACopyThatAsks) {
    const auto result = Foretell(Form().cmdCopySelected,
                                 [this](fields::FrmDialog& form) { Set(form.cmbDir, "C:\\d"); });
    EXPECT_THAT(Verdicts(result),
                ElementsAre("C:\\d\\a.txt - copy", "C:\\d\\b.txt - duplicate: ask"));
}

TEST_F(PreviewTest, AMoveThatRenamesDuplicates) {
    const auto result = Foretell(Form().cmdMoveSelected, [this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        Set(form.chkRename, "1");
    });
    EXPECT_THAT(Verdicts(result),
                ElementsAre("C:\\d\\a.txt - move", "C:\\d\\b_.txt - duplicate: rename"));
}

TEST_F(PreviewTest, ARenameInPlace) {
    const auto result = Foretell(Form().cmdRenameSelected,
                                 [this](fields::FrmDialog& form) { Set(form.txtAdd, "x"); });
    EXPECT_THAT(Verdicts(result), ElementsAre("C:\\t\\ax.txt - rename", "C:\\t\\bx.txt - rename"));
}

TEST_F(PreviewTest, AFolderThatTakesNoNames) {
    platform::InMemory(*Disk().Node("C:\\d")).isLocked = true;
    const auto result = Foretell(Form().cmdCopySelected, [this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        Set(form.chkSkipAll, "1");
    });
    EXPECT_THAT(Verdicts(result),
                ElementsAre("C:\\d\\a.txt - no right", "C:\\d\\b.txt - duplicate: skip"));
}

TEST_F(PreviewTest, AFileThatCannotBeRead) {
    platform::InMemory(*Disk().Node("C:\\t\\a.txt")).isUnreadable = true;
    const auto result = Foretell(Form().cmdCopySelected, [this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\e");
        Set(form.chkSkipAll, "1");
    });
    EXPECT_THAT(Verdicts(result), ElementsAre("C:\\e\\a.txt - no right", "C:\\e\\b.txt - copy"));
}

TEST_F(PreviewTest, AnOriginalThatMayNotBeTakenAway) {
    platform::InMemory(*Disk().Node("C:\\t")).isLocked = true;
    const auto result = Foretell(Form().cmdMoveSelected, [this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        Set(form.chkSkipAll, "1");
    });
    EXPECT_THAT(Verdicts(result), ElementsAre("C:\\d\\a.txt - copy only: no right to take it away",
                                              "C:\\d\\b.txt - duplicate: skip"));
}

TEST_F(PreviewTest, NoRoomForTheSecondOfTwo) {
    Disk().AddFile("C:\\t\\a.txt", "seven..");
    Disk().AddFile("C:\\t\\c.txt", "seven..");
    Disk().AddDrive("E:");
    Disk().SetCapacity("E:", 10);
    const auto result = Foretell(Form().cmdCopySelected, [this](fields::FrmDialog& form) {
        Set(form.cmbDir, "E:\\d");
        Set(form.chkSkipAll, "1");
    });
    EXPECT_THAT(Verdicts(result), ElementsAre("E:\\d\\a.txt - copy", "E:\\d\\b.txt - copy",
                                              "E:\\d\\c.txt - no room"));
}

TEST_F(PreviewTest, NoTrashForWhatWouldBeOverwritten) {
    machine.bin.SetHasTrash("C:", false);
    const auto result = Foretell(Form().cmdCopySelected, [this](fields::FrmDialog& form) {
        Set(form.cmbDir, "C:\\d");
        Set(form.chkOverWrite, "1");
    });
    EXPECT_THAT(Verdicts(result), ElementsAre("C:\\d\\a.txt - copy", "C:\\d\\b.txt - no trash"));
}

TEST_F(PreviewTest, ARefusalIsTold) {
    const auto result = Foretell(Form().cmdCopySelected,
                                 [this](fields::FrmDialog& form) { Set(form.cmbDir, "x"); });
    EXPECT_TRUE(result.entries.empty());
    EXPECT_EQ(result.refusal, "It appears you did not select a destination folder. ");
}

} // namespace
} // namespace tarvix::testing
