#include "search/filters.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Dates : public ProgramFixture {
  protected:
    platform::MemoryNode& FileOf(const text::DateTime& modified) {
        auto& file = Disk().AddFile("C:\\t\\f.txt");
        file.modified = machine.clock.FromLocal(modified);
        return file;
    }
    void UseKind(int kind) {
        session::EventArgs args{kind};
        S().events.Raise(S(), "frmSearch.mnuSearch_DateType_Click", args);
    }
    std::string DateCell() { return Cells(results::kDate).at(0); }
};

TEST_F(Dates, AFileOf2026IsListedWithTheReplacedDateAndOneLogLine) {
    FileOf({2026, 1, 1, 0, 0, 0});
    Start();
    Search("*", "C:\\t");
    EXPECT_EQ(DateCell(), "1980/01/01 00:00:00");
    const std::string log = LogText();
    const std::string line = " - this object was found to have a bad Date = Modified Date. The "
                             "object is C:\\t\\f.txt";
    EXPECT_TRUE(HasEntry(log, line));
    EXPECT_EQ(log.find(line, log.find(line) + 1), std::string::npos);
}

TEST_F(Dates, TheLastSecondOf2025AndTheFirstOf1980ArePlausible) {
    FileOf({2025, 12, 31, 23, 59, 59});
    Start();
    Search("*", "C:\\t");
    EXPECT_EQ(DateCell(), "2025/12/31 23:59:59");
    FileOf({1980, 1, 1, 0, 0, 1});
    Click(Form().cmdSearch);
    EXPECT_EQ(DateCell(), "1980/01/01 00:00:01");
    FileOf({1979, 12, 31, 23, 59, 59});
    Click(Form().cmdSearch);
    EXPECT_EQ(DateCell(), "1980/01/01 00:00:00");
}

TEST_F(Dates, ABadDateTakesTheFirstDateBoxSoThatSinceDoesNotDropIt) {
    FileOf({2031, 5, 5, 5, 5, 5});
    Start();
    Click(Form().chkDate);
    Form().cboDate.Text = "Since";
    Form().lblDate1.SetDate(text::DateTime{2025, 2, 3, 4, 5, 6});
    Search("*", "C:\\t");
    EXPECT_EQ(DateCell(), "2025/02/03 04:05:06");
}

TEST_F(Dates, ABadDateOfAFolderIsLoggedToo) {
    Disk().AddFolder("C:\\t\\d").modified = machine.clock.FromLocal({2030, 1, 1, 0, 0, 0});
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 3);
    Search("*", "C:\\t");
    EXPECT_EQ(DateCell(), "1980/01/01 00:00:00");
    EXPECT_TRUE(HasEntry(LogText(), " - this object was found to have a bad Date = Modified Date. "
                                    "The object is C:\\t\\d"));
}

TEST_F(Dates, TheLatestPlausibleYearIsAnOption) {
    FileOf({2026, 1, 1, 0, 0, 0});
    Start();
    State().options.intLatestYear = 2026;
    Search("*", "C:\\t");
    EXPECT_EQ(DateCell(), "2026/01/01 00:00:00");
}

TEST_F(Dates, WithAnyYearEveryDateOfADiskIsTakenAsItIs) {
    Start();
    State().options.intLatestYear = session::kAnyYear;
    for (const auto& [modified, cell] :
         {std::pair{text::DateTime{1901, 12, 13, 20, 45, 52}, "1901/12/13 20:45:52"},
          std::pair{text::DateTime{1970, 1, 1, 0, 0, 0}, "1970/01/01 00:00:00"},
          std::pair{text::DateTime{2026, 11, 22, 10, 0, 0}, "2026/11/22 10:00:00"},
          std::pair{text::DateTime{2446, 5, 10, 22, 38, 55}, "2446/05/10 22:38:55"}}) {
        FileOf(modified);
        Search("*", "C:\\t");
        EXPECT_EQ(DateCell(), cell);
    }
    EXPECT_EQ(LogText().find("bad Date"), std::string::npos);
}

TEST_F(Dates, WithAnyYearBeforeTakesNoFileOfThisYear) {
    FileOf({2026, 11, 22, 10, 0, 0});
    Start();
    State().options.intLatestYear = session::kAnyYear;
    Click(Form().chkDate);
    Form().cboDate.Text = "Before";
    Form().lblDate1.SetDate(text::DateTime{2020, 1, 1, 0, 0, 0});
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Dates, EachKindOfDateIsReadFromItsOwnTime) {
    auto& file = FileOf({2025, 1, 1, 0, 0, 0});
    file.created = machine.clock.FromLocal({2025, 2, 2, 0, 0, 0});
    file.accessed = machine.clock.FromLocal({2025, 3, 3, 0, 0, 0});
    Start();
    for (const auto& [kind, date] :
         {std::pair{0, "2025/01/01 00:00:00"}, std::pair{1, "2025/02/02 00:00:00"},
          std::pair{2, "2025/03/03 00:00:00"}}) {
        UseKind(kind);
        Search("*", "C:\\t");
        EXPECT_EQ(DateCell(), date) << kind;
    }
}

TEST_F(Dates, WithoutACreationTimeTheWriteTimeStandsForAllKinds) {
    auto& file = FileOf({2025, 1, 1, 0, 0, 0});
    file.created = platform::kNoTime;
    file.accessed = machine.clock.FromLocal({2025, 3, 3, 0, 0, 0});
    Start();
    for (const int kind : {1, 2}) {
        UseKind(kind);
        Search("*", "C:\\t");
        EXPECT_EQ(DateCell(), "2025/01/01 00:00:00") << kind;
    }
}

TEST_F(Dates, AnUnknownKindIsToldLoggedAndDropsEachObject) {
    FileOf({2025, 1, 1, 0, 0, 0});
    Start();
    UseKind(3);
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_THAT(Told(), ElementsAre("Error in date type"));
    EXPECT_TRUE(HasEntry(LogText(), " - this object was found to have a bad date type. The object "
                                    "is C:\\t\\f.txt"));
}

TEST_F(Dates, AreLocal) {
    FileOf({2025, 1, 1, 0, 0, 0});
    machine.clock.SetZone(3600);
    Start();
    Search("*", "C:\\t");
    EXPECT_EQ(DateCell(), "2025/01/01 01:00:00");
}

TEST(IsValidDate, DaysOfTheMonths) {
    for (int month = 1; month <= 12; ++month) {
        const bool isShort = month == 4 || month == 6 || month == 9 || month == 11;
        const int last = month == 2 ? 28 : isShort ? 30 : 31;
        EXPECT_TRUE(search::IsValidDate(last, month, 2023, 2025)) << month;
        EXPECT_FALSE(search::IsValidDate(last + 1, month, 2023, 2025)) << month;
        EXPECT_FALSE(search::IsValidDate(0, month, 2023, 2025)) << month;
    }
}

TEST(IsValidDate, February29NeedsAYearThatFourDivides) {
    EXPECT_TRUE(search::IsValidDate(29, 2, 2024, 2025));
    EXPECT_FALSE(search::IsValidDate(29, 2, 2023, 2025));
    EXPECT_FALSE(search::IsValidDate(30, 2, 2024, 2025));
}

TEST(IsValidDate, MonthsAndYears) {
    EXPECT_FALSE(search::IsValidDate(1, 0, 2020, 2025));
    EXPECT_FALSE(search::IsValidDate(1, 13, 2020, 2025));
    EXPECT_TRUE(search::IsValidDate(1, 1, 1980, 2025));
    EXPECT_FALSE(search::IsValidDate(31, 12, 1979, 2025));
    EXPECT_TRUE(search::IsValidDate(31, 12, 2025, 2025));
    EXPECT_FALSE(search::IsValidDate(1, 1, 2026, 2025));
}

TEST(IsValidTime, Bounds) {
    EXPECT_TRUE(search::IsValidTime(0, 0, 0));
    EXPECT_TRUE(search::IsValidTime(23, 59, 59));
    EXPECT_FALSE(search::IsValidTime(24, 0, 0));
    EXPECT_FALSE(search::IsValidTime(0, 60, 0));
    EXPECT_FALSE(search::IsValidTime(0, 0, 60));
    EXPECT_FALSE(search::IsValidTime(-1, 0, 0));
}

} // namespace
} // namespace tarvix::testing
