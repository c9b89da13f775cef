#include "actions/request/preview.h"
#include "actions/request/refused_names.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

class RefusedNamesTest : public ProgramFixture {
  protected:
    RefusedNamesTest() {
        Disk().AddDrive("E:", platform::DriveType::kRemovable, "vfat");
        Disk().AddFile("C:\\t\\a\uF03Ab.txt", "1");
        Disk().AddFile("C:\\t\\plain.txt", "2");
    }
    // The verdicts on copies of both to that place.
    std::vector<std::string> Foretold(const std::string& place) {
        Start();
        Search("*", "C:\\t");
        Click(Form().cmdSelectAll);
        std::vector<std::string> told;
        prompts.SetModalRunner([&](session::Session&, fields::Form& form) {
            if (!form.IsShown()) return false;
            Set(S().frmDialog.cmbDir, place);
            for (const auto& entry : actions::Preview(S()).entries)
                told.push_back(actions::VerdictText(entry));
            Click(S().frmDialog.CancelButton);
            return true;
        });
        Click(Form().cmdCopySelected);
        prompts.SetModalRunner({});
        return told;
    }
};

TEST_F(RefusedNamesTest, APreviewTellsWhatADiskCannotHold) {
    EXPECT_THAT(Foretold("E:\\bk"),
                ElementsAre("can't be written there: FAT takes no : in a name", "copy"));
}

TEST_F(RefusedNamesTest, WhereADiskHoldsAnyNameNothingIsRefused) {
    EXPECT_THAT(Foretold("C:\\bk"), ElementsAre("copy", "copy"));
}

TEST_F(RefusedNamesTest, AFolderOnTheWayIsANameToo) {
    const actions::RefusedNames refused(Disk());
    EXPECT_EQ(refused.Why("E:\\x\uF03F\\plain.txt"), "FAT takes no ? in a name");
    EXPECT_EQ(refused.Why("E:\\x\\plain.txt"), "");
    EXPECT_EQ(refused.Why("E:\\"), "");
    EXPECT_EQ(refused.Why("C:\\x\uF03F"), "");
}

} // namespace
} // namespace tarvix::testing
