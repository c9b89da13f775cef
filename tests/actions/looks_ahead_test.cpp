// Files that the machine may look at before an action comes to them.

#include "tests/actions/action_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

class LooksAheadTest : public ActionFixture {
  protected:
    void SetUp() override {
        for (int i = 0; i < kFiles; ++i)
            Disk().AddFile(NameOf(i), "1");
        Disk().AddFolder("C:\\d");
    }
    static std::string NameOf(int i) { return "C:\\t\\" + std::to_string(1000 + i); }
    // Every file but the first, once and in the order of the list; then the end.
    void ExpectPlanned() {
        const auto& plans = machine.faults.LookedSoon();
        ASSERT_GT(plans.size(), 2u);
        EXPECT_TRUE(plans.back().empty());
        std::vector<std::string> planned;
        for (const auto& plan : plans)
            planned.insert(planned.end(), plan.begin(), plan.end());
        std::vector<std::string> expected;
        for (int i = 1; i < kFiles; ++i)
            expected.push_back(NameOf(i));
        EXPECT_EQ(planned, expected);
    }

    static constexpr int kFiles = 300;
};

TEST_F(LooksAheadTest, AMoveTellsWhatComesNext) {
    Find();
    Move(To("C:\\d"));
    ExpectTotals(kFiles, 0, 0);
    ExpectPlanned();
}

TEST_F(LooksAheadTest, ARenameTellsWhatComesNext) {
    Find();
    const auto fill = [this](fields::FrmDialog& form) {
        Set(form.chkAdd, "1");
        Set(form.chkAddEnd, "1");
        Set(form.txtAdd, "x");
    };
    Do(Form().cmdRenameSelected, fill, {"OK"});
    ExpectTotals(kFiles, 0, 0);
    ExpectPlanned();
}

TEST_F(LooksAheadTest, ACopyIsReadAheadInstead) {
    Find();
    Copy(To("C:\\d"));
    ExpectTotals(kFiles, 0, 0);
    EXPECT_EQ(machine.faults.LookedSoon(), (std::vector<std::vector<std::string>>{{}}));
}

} // namespace
} // namespace tarvix::testing
