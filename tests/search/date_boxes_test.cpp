#include "session/prompt_id.h"
#include "session/user_input.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

class DateBoxes : public ProgramFixture {
  protected:
    void StartAt(const text::DateTime& now) {
        machine.clock.SetNow(now);
        Start();
        Click(Form().chkDate);
    }
    std::string First() { return Form().lblDate1.Caption; }
    std::string Second() { return Form().lblDate2.Caption; }
};

TEST_F(DateBoxes, ShowWithTheDateTest) {
    Start();
    EXPECT_FALSE(Form().txtDate1.Visible);
    Click(Form().chkDate);
    EXPECT_TRUE(Form().txtDate1.Visible);
    EXPECT_FALSE(Form().txtDate2.Visible);
    prompts.Queue("2024/01/01 00:00:00 thru 2024/01/31 23:59:59");
    Set(Form().cboDate, "Range");
    EXPECT_TRUE(Form().txtDate2.Visible);
    EXPECT_EQ(Form().txtDate1.Text.Get(), "2024/01/01");
    EXPECT_EQ(Form().txtDate2.Text.Get(), "2024/01/31");
    Click(Form().chkDate);
    EXPECT_FALSE(Form().txtDate1.Visible);
    EXPECT_FALSE(Form().txtDate2.Visible);
}

TEST_F(DateBoxes, ShowTheTimeWhereItSaysMoreThanTheDay) {
    Start();
    Click(Form().chkDate);
    prompts.Queue("2024/01/01 12:30:00 thru 2024/01/31 00:00:00");
    Set(Form().cboDate, "Range");
    EXPECT_EQ(Form().txtDate1.Text.Get(), "2024/01/01 12:30:00");
    EXPECT_EQ(Form().txtDate2.Text.Get(), "2024/01/31 00:00:00");
}

TEST_F(DateBoxes, TakeWordsAndChooseSince) {
    StartAt({2026, 11, 18, 19, 54, 52});
    Set(Form().txtDate1, "last 7 days");
    EXPECT_EQ(First(), "2026/11/12 00:00:00");
    EXPECT_EQ(Form().cboDate.Text.Get(), "Since");
    Set(Form().txtDate1, "last 7 d");
    EXPECT_EQ(First(), "");
}

TEST_F(DateBoxes, AStretchFillsBothEndsOfARange) {
    StartAt({2026, 11, 18, 19, 54, 52});
    Form().cboDate.Text = "Range";
    Form().txtDate2.Visible = true;
    Set(Form().txtDate1, "last month");
    session::UserLeave(S(), Form().txtDate1);
    EXPECT_EQ(First(), "2026/10/01 00:00:00");
    EXPECT_EQ(Second(), "2026/10/31 23:59:59");
    EXPECT_EQ(Form().txtDate2.Text.Get(), "last month");
    Set(Form().txtDate2, "yesterday");
    EXPECT_EQ(Second(), "2026/11/17 23:59:59");
}

TEST_F(DateBoxes, WordsMeanTheDayOfTheSearch) {
    Disk().AddFile("C:\\t\\old.txt").modified = machine.clock.FromLocal({2024, 11, 18, 8, 0, 0});
    Disk().AddFile("C:\\t\\new.txt").modified = machine.clock.FromLocal({2024, 11, 19, 8, 0, 0});
    StartAt({2024, 11, 18, 19, 54, 52});
    Set(Form().txtDate1, "today");
    Search("*.txt", "C:\\t");
    EXPECT_EQ(Names(), (std::vector<std::string>{"new.txt", "old.txt"}));
    machine.clock.SetNow({2024, 11, 19, 9, 0, 0});
    Click(Form().cmdSearch);
    EXPECT_EQ(Names(), (std::vector<std::string>{"new.txt"}));
}

TEST_F(DateBoxes, WhatMeansNoDateIsRefusedAndTheBoxGetsTheFocus) {
    StartAt({2026, 11, 18, 19, 54, 52});
    Form().cboDate.Text = "Since";
    Set(Form().txtDate1, "soon");
    Search("*.txt", "C:\\t");
    EXPECT_EQ(Told().back(), "You did not enter a valid date.");
    EXPECT_EQ(Form().Focus, &Form().txtDate1);
}

TEST_F(DateBoxes, ARefusedSizeGetsTheFocus) {
    Start();
    Click(Form().chkSize);
    EXPECT_EQ(Form().Focus, &Form().txtSize1);
    Set(Form().txtSize1, "big");
    Search("*.txt", "C:\\t");
    EXPECT_EQ(Told().back(), "You did not enter a valid file size in the first box.");
    EXPECT_EQ(Form().Focus, &Form().txtSize1);
}

TEST_F(DateBoxes, AMissingLocationGetsTheFocus) {
    Start();
    Search("*.txt", "C:\\nowhere");
    EXPECT_EQ(Form().Focus, &Form().cmbDir);
}

TEST_F(DateBoxes, SizesTakeUnitsOfAnyMagnitude) {
    Disk().AddFile("C:\\t\\one.txt", std::string(20480, 'x'));
    Disk().AddFile("C:\\t\\two.txt", std::string(20479, 'x'));
    Start();
    Click(Form().chkSize);
    Set(Form().txtSize1, "20K");
    Search("*.txt", "C:\\t");
    EXPECT_EQ(Names(), (std::vector<std::string>{"one.txt"}));
    EXPECT_EQ(Form().txtSize1.Text.Get(), "20K");
    Set(Form().txtSize1, "5 GiB");
    session::UserLeave(S(), Form().txtSize1);
    Click(Form().cmdSearch);
    EXPECT_EQ(Names(), std::vector<std::string>{});
    EXPECT_TRUE(Told().empty());
    Set(Form().txtSize1, "5000000000");
    Click(Form().cmdSearch);
    EXPECT_EQ(Told().back(), "You did not enter a valid file size in the first box.");
}

} // namespace
} // namespace tarvix::testing
