#include "search/filters.h"
#include "tests/support/program_fixture.h"

#include <gmock/gmock.h>

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;

// ---- attributes ----

struct BoxBit {
    fields::CheckBox fields::FrmSearch::*box;
    std::uint32_t bit;
    const char* letter;
};
constexpr BoxBit kBoxes[] = {
    {&fields::FrmSearch::chkReadOnly, 1, "r"}, {&fields::FrmSearch::chkHidden, 2, "h"},
    {&fields::FrmSearch::chkSystem, 4, "s"},   {&fields::FrmSearch::chkArchive, 32, "a"},
    {&fields::FrmSearch::chkAlias, 1024, "A"}, {&fields::FrmSearch::chkCompressed, 2048, "C"},
    {&fields::FrmSearch::chk256, 256, "2"},    {&fields::FrmSearch::chk512, 512, "5"},
    {&fields::FrmSearch::chk64, 64, "6"},      {&fields::FrmSearch::chk128, 128, "1"}};

class Attributes : public ProgramFixture {
  protected:
    void SetAll(std::string_view value) {
        for (fields::CheckBox* box : Form().attributeBoxes) {
            Set(*box, value);
        }
    }
    bool Passes(std::uint32_t attributes) {
        return search::DoesObjectMatchAttributesSelected(
            search::BuildSelectedAttributesVariable(Form()), {.attributes = attributes});
    }
};

TEST_F(Attributes, EachBoxStandsForItsBit) {
    Start();
    for (const BoxBit& entry : kBoxes) {
        SetAll("0");
        Set(Form().*entry.box, "1");
        auto masks = search::BuildSelectedAttributesVariable(Form());
        EXPECT_EQ(masks.intAttrRequired, entry.bit);
        EXPECT_EQ(masks.intAttrAllowed, entry.bit);
        Set(Form().*entry.box, "2");
        masks = search::BuildSelectedAttributesVariable(Form());
        EXPECT_EQ(masks.intAttrRequired, 0U);
        EXPECT_EQ(masks.intAttrAllowed, entry.bit);
    }
}

TEST_F(Attributes, MustHaveMustNotHaveAndDoesNotMatter) {
    Start();
    SetAll("0");
    Set(Form().chkReadOnly, "1");
    Set(Form().chkArchive, "2");
    EXPECT_TRUE(Passes(1));
    EXPECT_TRUE(Passes(1 | 32));
    EXPECT_FALSE(Passes(32)) << "read-only is missing";
    EXPECT_FALSE(Passes(1 | 2)) << "hidden is not allowed";
    EXPECT_FALSE(Passes(0));
}

TEST_F(Attributes, TheFolderBitNeverFailsAFolder) {
    Start();
    EXPECT_TRUE(Passes(16));
    EXPECT_TRUE(Passes(16 | 32));
    EXPECT_FALSE(Passes(16 | 2));
}

TEST_F(Attributes, BitsWithoutABoxNeverPass) {
    Start();
    SetAll("2");
    EXPECT_TRUE(Passes(1 | 2 | 4 | 32 | 64 | 128 | 256 | 512 | 1024 | 2048));
    for (const std::uint32_t bit : {8U, 4096U, 8192U, 16384U}) {
        EXPECT_FALSE(Passes(bit)) << bit;
        EXPECT_FALSE(Passes(bit | 16)) << bit;
    }
}

TEST_F(Attributes, TheDefaultStateDoesNotFindAReadOnlyFile) {
    Disk().AddFile("C:\\t\\plain.txt");
    Disk().AddFile("C:\\t\\fixed.txt").attributes |= 1;
    Disk().AddFile("C:\\t\\.hidden.txt");
    Start();
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("plain.txt"));
}

TEST_F(Attributes, OfAFolderDecideOnItsOwnRowOnly) {
    Disk().AddFile("C:\\t\\.git\\config");
    Start();
    WithSubfolders();
    Choose(Form().optFilesVsDirs, 2);
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("config"));
}

// ---- size and date ----

class SizeAndDate : public ProgramFixture {
  protected:
    // Files of 10, 20 and 30 bytes, of January 1st, 2nd and 3rd 2025 at noon: every pair once.
    SizeAndDate() {
        for (int size : {10, 20, 30}) {
            for (int day : {1, 2, 3}) {
                auto& file = Disk().AddFileOfSize("C:\\t\\" + std::to_string(size) + "-" +
                                                      std::to_string(day),
                                                  static_cast<std::uint64_t>(size));
                file.modified = machine.clock.FromLocal({2025, 1, day, 12, 0, 0});
            }
        }
    }
    void UseSize(std::string_view choice) {
        if (Form().chkSize.Value == 0) Click(Form().chkSize);
        Form().cboSize.Text = std::string(choice);
        Form().txtSize1.Text = "20";
        Form().txtSize2.Text = "30";
    }
    // 1 for a size test, 2 for a date test.
    int Mode() {
        const auto request = search::ReadSearchRequest(S()).value();
        return (request.size.choice != search::SizeChoice::kNone ? 1 : 0) +
               (request.date.choice != search::DateChoice::kNone ? 2 : 0);
    }
    int Code() {
        const auto request = search::ReadSearchRequest(S()).value();
        return static_cast<int>(request.size.choice) + static_cast<int>(request.date.choice);
    }
    void UseDate(std::string_view choice) {
        if (Form().chkDate.Value == 0) Click(Form().chkDate);
        Form().cboDate.Text = std::string(choice);
        Form().lblDate1.SetDate(text::DateTime{2025, 1, 2, 12, 0, 0});
        Form().lblDate2.SetDate(text::DateTime{2025, 1, 3, 12, 0, 0});
    }
};

TEST_F(SizeAndDate, SizeAloneWithItsBoundsIncluded) {
    Start();
    UseSize("At Least");
    Search("*-1", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("20-1", "30-1"));
    UseSize("At Most");
    Search("*-1", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("10-1", "20-1"));
    UseSize("Range");
    Search("*-1", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("20-1", "30-1"));
}

TEST_F(SizeAndDate, DateAloneWithItsBoundsIncluded) {
    Start();
    UseDate("Since");
    Search("10-*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("10-2", "10-3"));
    UseDate("Before");
    Search("10-*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("10-1", "10-2"));
    UseDate("Range");
    Search("10-*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("10-2", "10-3"));
}

TEST_F(SizeAndDate, AllNineCombinationsHaveTheirCodeAndBothTests) {
    struct Combination {
        int code;
        const char* size;
        const char* date;
        std::vector<std::string> found;
    };
    const std::vector<std::string> lowSinceSecond{"10-2", "10-3", "20-2", "20-3"};
    const std::vector<std::string> highSinceSecond{"20-2", "20-3", "30-2", "30-3"};
    const std::vector<std::string> lowBeforeSecond{"10-1", "10-2", "20-1", "20-2"};
    const std::vector<std::string> highBeforeSecond{"20-1", "20-2", "30-1", "30-2"};
    Start();
    for (const Combination& c : {Combination{9, "Range", "Range", highSinceSecond},
                                 Combination{10, "At Most", "Range", lowSinceSecond},
                                 Combination{12, "At Least", "Range", highSinceSecond},
                                 Combination{17, "Range", "Since", highSinceSecond},
                                 Combination{18, "At Most", "Since", lowSinceSecond},
                                 Combination{20, "At Least", "Since", highSinceSecond},
                                 Combination{33, "Range", "Before", highBeforeSecond},
                                 Combination{34, "At Most", "Before", lowBeforeSecond},
                                 Combination{36, "At Least", "Before", highBeforeSecond}}) {
        UseSize(c.size);
        UseDate(c.date);
        Search("*", "C:\\t");
        EXPECT_EQ(Mode(), 3);
        EXPECT_EQ(Code(), c.code) << c.size << " " << c.date;
        EXPECT_EQ(Names(), c.found) << c.size << " " << c.date;
    }
}

TEST_F(SizeAndDate, TheCriteriaModeTellsWhichTestsRun) {
    Start();
    Search("*", "C:\\t");
    EXPECT_EQ(Mode(), 0);
    UseSize("At Least");
    Click(Form().cmdSearch);
    EXPECT_EQ(Mode(), 1);
    UseDate("Since");
    Click(Form().chkSize);
    Click(Form().cmdSearch);
    EXPECT_EQ(Mode(), 2);
}

TEST_F(SizeAndDate, TrueSizesAreComparedWhateverTheirValue) {
    Disk().AddFileOfSize("C:\\t\\huge", 5'000'000'000);
    Start();
    UseSize("At Least");
    Form().txtSize1.Text = "2147483647";
    Search("*", "C:\\t");
    EXPECT_THAT(Names(), ElementsAre("huge"));
}

TEST_F(SizeAndDate, FoldersAndEmptyFilesPassTheDateTestOnly) {
    Disk().AddFolder("C:\\d\\old").modified = machine.clock.FromLocal({2025, 1, 1, 0, 0, 0});
    Disk().AddFolder("C:\\d\\new").modified = machine.clock.FromLocal({2025, 1, 5, 0, 0, 0});
    Disk().AddFile("C:\\d\\oldzero").modified = machine.clock.FromLocal({2025, 1, 1, 0, 0, 0});
    Disk().AddFile("C:\\d\\newzero").modified = machine.clock.FromLocal({2025, 1, 5, 0, 0, 0});
    Start();
    WithSubfolders();
    UseDate("Since");
    Choose(Form().optFilesVsDirs, 3);
    Search("*", "C:\\d");
    EXPECT_THAT(Names(), ElementsAre("new"));
    Choose(Form().optFilesVsDirs, 1);
    Click(Form().cmdSearch);
    EXPECT_THAT(Names(), ElementsAre("newzero"));
}

} // namespace
} // namespace tarvix::testing
