#include "options/quick_columns.h"
#include "tests/options/options_fixture.h"

namespace tarvix::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class QuickColumns : public OptionsFixture {
  protected:
    // The checked columns after the group, with the last one as given before it.
    std::vector<int> After(int group, int last) {
        std::vector<int> checked;
        Inside([&] {
            Window().chkList[24].Value = last;
            Click(Window().optQuickList[group]);
            checked = CheckedColumns();
        });
        return checked;
    }
};

TEST_F(QuickColumns, EachGroupChecksItsColumnsAndNoOthers) {
    Start();
    EXPECT_THAT(After(0, 0), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17,
                                         18, 19, 20, 21, 22, 23, 24));
    EXPECT_THAT(After(1, 1), ElementsAre(1, 2, 3, 8));
    EXPECT_THAT(After(2, 1), ElementsAre(1, 2, 3, 5, 8));
    EXPECT_THAT(After(3, 0), ElementsAre(1, 2, 4, 11, 19, 20, 21, 22, 23));
    EXPECT_THAT(After(4, 0), ElementsAre(9));
    EXPECT_THAT(After(5, 0), ElementsAre(1, 2, 3, 8, 10));
    EXPECT_THAT(After(6, 0), ElementsAre(1, 2, 3, 4, 9, 22, 23));
    EXPECT_THAT(After(7, 1), ElementsAre(1, 2, 3, 8, 12, 13, 14, 15, 16, 17, 18));
    EXPECT_THAT(After(8, 1), ElementsAre(1, 2, 3, 8, 12, 18));
    EXPECT_THAT(After(9, 1), ElementsAre(1, 2, 8, 9, 23));
}

TEST_F(QuickColumns, FourGroupsLeaveTheLastColumnAsItStands) {
    Start();
    EXPECT_THAT(After(3, 1), ElementsAre(1, 2, 4, 11, 19, 20, 21, 22, 23, 24));
    EXPECT_THAT(After(4, 1), ElementsAre(9, 24));
    EXPECT_THAT(After(5, 1), ElementsAre(1, 2, 3, 8, 10, 24));
    EXPECT_THAT(After(6, 1), ElementsAre(1, 2, 3, 4, 9, 22, 23, 24));
}

TEST_F(QuickColumns, BearTheirCaptions) {
    const auto& group = Window().optQuickList;
    ASSERT_EQ(group.Count(), 10);
    EXPECT_EQ(group[0].Caption.Get(), "All");
    EXPECT_EQ(group[1].Caption.Get(), "&Explorer details view default");
    EXPECT_EQ(group[2].Caption.Get(), "Explorer and &Version");
    EXPECT_EQ(group[3].Caption.Get(), "Tar&vix Columns");
    EXPECT_EQ(group[4].Caption.Get(), "S&imple");
    EXPECT_EQ(group[5].Caption.Get(), "Explorer and Att&ributes");
    EXPECT_EQ(group[6].Caption.Get(), "Explorer, Ext, Year, Levels and &Search for Entries");
    EXPECT_EQ(group[7].Caption.Get(), "S&hortcut Editting Mode");
    EXPECT_EQ(group[8].Caption.Get(), "Shortcut Editting Mode (Web)");
    EXPECT_EQ(group[9].Caption.Get(), "L&oad Pla&ylist Mode");
}

TEST_F(QuickColumns, TheChosenGroupIsRedUntilABoxIsClicked) {
    Start();
    Inside([&] {
        Click(Window().optQuickList[4]);
        EXPECT_EQ(Window().optQuickList.Chosen(), 4);
        EXPECT_EQ(Window().optQuickList[4].ForeColor, fields::kRed);
        Click(Window().optQuickList[1]);
        EXPECT_EQ(Window().optQuickList[4].ForeColor, fields::kBlack);
        EXPECT_EQ(Window().optQuickList[1].ForeColor, fields::kRed);
        Click(Window().chkList[7]);
        EXPECT_EQ(Window().optQuickList.Chosen(), -1);
        EXPECT_EQ(Window().optQuickList[1].ForeColor, fields::kBlack);
    });
}

TEST_F(QuickColumns, AnAddedSlowColumnIsToldOfAndNoOther) {
    Start();
    Inside([&] {
        Click(Window().optQuickList[4]);
        EXPECT_EQ(prompts.Records().size(), 1U) << "only the window";
        Click(Window().optQuickList[1]);
        ASSERT_EQ(prompts.Records().size(), 2U);
        EXPECT_EQ(prompts.Records()[1].text,
                  "You will need to perform the search again to see the column(s) information you "
                  "just added. ");
        Click(Window().optQuickList[5]);
        EXPECT_EQ(prompts.Records().size(), 2U) << "Type was there";
        Click(Window().optQuickList[2]);
        EXPECT_EQ(prompts.Records().size(), 3U);
    });
}

TEST_F(QuickColumns, FilesAndFoldersInFolderCountAsSlow) {
    Start();
    Inside([&] {
        Click(Window().optQuickList[4]);
        Click(Window().optQuickList[3]);
        EXPECT_EQ(TimesTold("perform the search again"), 1U);
    });
}

TEST_F(QuickColumns, DuringASearchItMustBeStartedAgain) {
    Start();
    State().blnSearching = true;
    options::AlertAboutColumnChange(S());
    State().blnSearching = false;
    EXPECT_TRUE(
        WasTold("Since the search is currently active you will have to stop and restart it, to see "
                "column(s) you just selected.\r\n(To very slightly speed up searchs never select "
                "Version, OS, Exe Type, or Type.)"));
}

TEST_F(QuickColumns, TheOptionSilencesTheNotice) {
    Start();
    Accept([&] { SetNamed("chkNoColumnWarning", "1"); });
    Inside([&] {
        Click(Window().optQuickList[4]);
        Click(Window().optQuickList[0]);
    });
    EXPECT_FALSE(WasTold("perform the search again"));
}

TEST_F(QuickColumns, ANoteTellsWhatTheNextSearchCounts) {
    Disk().AddFile("C:\\d\\a.txt", "a");
    GivenOptions("blnListItems (SizeSubItem) = True\r\n");
    Start();
    Search("*.txt", "C:\\d");
    Inside([&] {
        Click(Window().chkList[1]);
        EXPECT_THAT(ValueOf("lblColumnNote"), HasSubstr("never select"));
        Click(Window().chkList[20]);
        EXPECT_EQ(ValueOf("lblColumnNote"),
                  "Files and Folders in this Folder are counted by the next search.");
    });
}

} // namespace
} // namespace tarvix::testing
