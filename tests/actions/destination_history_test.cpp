#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

class DestinationHistory : public ProgramFixture {
  protected:
    DestinationHistory() { Disk().AddFile("C:\\t\\a.txt", "1"); }
    std::vector<std::string> Offered() {
        std::vector<std::string> texts;
        for (const auto& item : S().frmDialog.cmbDir.Items()) {
            texts.push_back(item.text);
        }
        return texts;
    }
};

TEST_F(DestinationHistory, AConfirmedDestinationIsKeptAndOfferedAgain) {
    Start();
    Search("*", "C:\\t");
    CopyAll("C:\\z");
    machine.clock.Advance(60);
    CopyAll("C:\\b");
    EXPECT_THAT(Offered(), ::testing::UnorderedElementsAre("C:\\b", "C:\\z"));
    const auto file = Disk().Content(State().strFDHistoryFile).value_or("");
    EXPECT_NE(file.find("C:\\b\r\n"), std::string::npos) << file;
}

TEST_F(DestinationHistory, AnEmptyBoxTakesTheOneUsedLast) {
    Start();
    Search("*", "C:\\t");
    CopyAll("C:\\b");
    machine.clock.Advance(60);
    CopyAll("C:\\z");
    S().frmDialog.cmbDir.Text = "";
    std::string taken;
    prompts.SetModalRunner([&](session::Session&, fields::Form& form) {
        if (!form.IsShown()) return false;
        taken = S().frmDialog.cmbDir.Text.Get();
        Click(S().frmDialog.CancelButton);
        return true;
    });
    Click(Form().cmdCopySelected);
    EXPECT_EQ(taken, "C:\\z");
}

TEST_F(DestinationHistory, ACancelledDestinationIsNotKept) {
    Start();
    Search("*", "C:\\t");
    Click(Form().cmdSelectAll);
    prompts.SetModalRunner([&](session::Session&, fields::Form& form) {
        if (!form.IsShown()) return false;
        Set(S().frmDialog.cmbDir, "C:\\never");
        Click(S().frmDialog.CancelButton);
        return true;
    });
    Click(Form().cmdCopySelected);
    EXPECT_TRUE(Offered().empty());
}

} // namespace
} // namespace tarvix::testing
