#include "session/recent_entries.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

class RecentEntries : public ProgramFixture {
  protected:
    std::vector<std::string> Offered(const fields::ComboBox& box) {
        std::vector<std::string> texts;
        for (const std::size_t row : session::RecentFirst(S(), box)) {
            texts.push_back(box.Items()[row].text);
        }
        return texts;
    }
    using Texts = std::vector<std::string>;
};

TEST_F(RecentEntries, WhatWasSearchedLastComesFirstAndTheFixedRowsLast) {
    Disk().AddFolder("C:\\a");
    Disk().AddFolder("C:\\b");
    Start();
    machine.clock.SetNow({2026, 11, 18, 10, 0, 0});
    Search("zebra", "C:\\b");
    machine.clock.SetNow({2026, 11, 18, 10, 0, 1});
    Search("apple", "C:\\a");
    EXPECT_EQ(Offered(Form().cmbSearchFor),
              (Texts{"apple", "zebra", "  *.lnk", "  *.mpl", "  *.url"}));
    machine.clock.SetNow({2026, 11, 18, 10, 0, 2});
    Search("zebra", "C:\\b");
    EXPECT_EQ(Offered(Form().cmbSearchFor),
              (Texts{"zebra", "apple", "  *.lnk", "  *.mpl", "  *.url"}));
    EXPECT_EQ(Offered(Form().cmbDir)[0], "C:\\b");
    EXPECT_EQ(Offered(Form().cmbDir)[1], "C:\\a");
}

TEST_F(RecentEntries, WhatNeverRanIsNotOffered) {
    Disk().AddFolder("C:\\a");
    Start();
    Click(Form().chkSize);
    Set(Form().txtSize1, "big");
    Search("apple", "C:\\a");
    EXPECT_EQ(Offered(Form().cmbSearchFor), (Texts{"  *.lnk", "  *.mpl", "  *.url"}));
}

TEST_F(RecentEntries, OtherBoxesKeepTheirOrder) {
    Start();
    EXPECT_EQ(Offered(Form().cboSize), (Texts{"At Least", "At Most", "Range"}));
}

} // namespace
} // namespace tarvix::testing
