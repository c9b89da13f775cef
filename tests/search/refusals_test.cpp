#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

// Requests that the size and date boxes make impossible.
class Refusals : public ProgramFixture {
  protected:
    Refusals() { Disk().AddFile("C:\\t\\a.txt", "123"); }

    void SearchSize(std::string_view choice, std::string_view first, std::string_view second = {}) {
        Start();
        Click(Form().chkSize);
        Form().cboSize.Text = std::string(choice);
        Form().txtSize1.Text = std::string(first);
        Form().txtSize2.Text = std::string(second);
        Search("*", "C:\\t");
    }
    void SearchDate(std::string_view choice, std::string_view first, std::string_view second = {}) {
        Start();
        Click(Form().chkDate);
        Form().cboDate.Text = std::string(choice);
        Form().lblDate1.SetDate(text::ParseDate(first));
        Form().lblDate2.SetDate(text::ParseDate(second));
        Search("*", "C:\\t");
    }
    void ExpectRefused(std::string_view message) {
        ASSERT_EQ(Told(), std::vector<std::string>{std::string(message)});
        EXPECT_TRUE(State().blnErrorPreparingForSearch);
        EXPECT_EQ(program.Rows().Count(), 0U);
        EXPECT_TRUE(Form().cmdSearch.Enabled);
        EXPECT_FALSE(Form().cmdStop.Visible);
        EXPECT_EQ(LogText().find("User selected to search for"), std::string::npos);
    }
    void ExpectFound() {
        EXPECT_TRUE(Told().empty());
        EXPECT_EQ(program.Rows().Count(), 1U);
    }

    static constexpr const char* kFirstSize =
        "You did not enter a valid file size in the first box.";
    static constexpr const char* kSecondSize =
        "You did not enter a valid file size in the second box.";
    static constexpr const char* kDate = "You did not enter a valid date.";
};

TEST_F(Refusals, ABlankSizeChoice) {
    SearchSize("", "1");
    ExpectRefused(" is not a valid selection for file size search.");
}

TEST_F(Refusals, AnUnknownSizeChoice) {
    SearchSize("Exactly", "1");
    ExpectRefused("Exactly is not a valid selection for file size search.");
}

TEST_F(Refusals, ASizeRangeWithoutItsSecondNumber) {
    SearchSize("Range", "1", "");
    ExpectRefused(kSecondSize);
}

TEST_F(Refusals, ASizeRangeWhoseSecondBoxIsNoNumber) {
    SearchSize("Range", "1", "many");
    ExpectRefused(kSecondSize);
}

TEST_F(Refusals, ASizeRangeWhoseFirstBoxIsNoNumber) {
    SearchSize("Range", "few", "2");
    ExpectRefused(kFirstSize);
}

TEST_F(Refusals, ASizeRangeThatRunsBackward) {
    SearchSize("Range", "4", "3");
    ExpectRefused(" When searching by file size range the first box\r\n"
                  "must be less than the second box.");
}

TEST_F(Refusals, ASizeRangeOfOneSizeIsNoRefusal) {
    SearchSize("Range", "3", "3");
    ExpectFound();
}

TEST_F(Refusals, AtLeastWithoutANumber) {
    SearchSize("At Least", "");
    ExpectRefused(kFirstSize);
}

TEST_F(Refusals, AtMostWithATextThatIsNoNumber) {
    SearchSize("At Most", "1e3");
    ExpectRefused(kFirstSize);
}

TEST_F(Refusals, ANumberOfMoreThan32Bits) {
    SearchSize("At Least", "2147483648");
    ExpectRefused(kFirstSize);
}

TEST_F(Refusals, TheLargestNumberOf32BitsIsNoRefusal) {
    SearchSize("At Most", "2147483647");
    ExpectFound();
}

TEST_F(Refusals, SizeBoxesDoNotCountWhileSizeIsOff) {
    Start();
    Form().cboSize.Text = "nonsense";
    Search("*", "C:\\t");
    ExpectFound();
}

TEST_F(Refusals, ABlankDateChoice) {
    SearchDate("", "2025/01/01");
    ExpectRefused(" is not a valid selection for date search.");
}

TEST_F(Refusals, AnUnknownDateChoice) {
    SearchDate("After", "2025/01/01");
    ExpectRefused("After is not a valid selection for date search.");
}

TEST_F(Refusals, SinceWithoutADate) {
    SearchDate("Since", "");
    ExpectRefused(kDate);
}

TEST_F(Refusals, BeforeATextThatIsNoDate) {
    SearchDate("Before", "2025/02/30");
    ExpectRefused(kDate);
}

TEST_F(Refusals, ADateRangeWithoutItsSecondDate) {
    SearchDate("Range", "2025/01/01", "");
    ExpectRefused(kDate);
}

TEST_F(Refusals, ADateRangeThatRunsBackward) {
    SearchDate("Range", "2025/01/02", "2025/01/01");
    ExpectRefused(" When searching by date range the first box\r\n"
                  "must be less than the second box.");
}

TEST_F(Refusals, ADateRangeOfOneMomentIsNoRefusal) {
    SearchDate("Range", "2025/06/01 12:00:00", "2025/06/01 12:00:00");
    ExpectFound();
}

TEST_F(Refusals, SizeIsRefusedBeforeDateAndBothAreTold) {
    Start();
    Click(Form().chkSize);
    Click(Form().chkDate);
    Form().cboSize.Text = "At Least";
    Form().txtSize1.Text = "x";
    Form().cboDate.Text = "Since";
    Search("*", "C:\\t");
    EXPECT_EQ(Told(), (std::vector<std::string>{kFirstSize, kDate}));
}

TEST_F(Refusals, ARefusedSearchEmptiesTheListAndKeepsTheRepeatBox) {
    Start();
    Search("*", "C:\\t");
    ASSERT_EQ(program.Rows().Count(), 1U);
    Set(Form().chkRepeatSearch, "1");
    Click(Form().chkSize);
    Form().txtSize1.Text = "x";
    Click(Form().cmdSearch);
    EXPECT_EQ(program.Rows().Count(), 0U);
    EXPECT_EQ(Form().chkRepeatSearch.Value.Get(), 1);
}

} // namespace
} // namespace tarvix::testing
