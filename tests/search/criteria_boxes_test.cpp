#include "session/user_input.h"
#include "tests/support/program_fixture.h"

namespace tarvix::testing {
namespace {

class CriteriaBoxes : public ProgramFixture {
  protected:
    void LeaveSize(fields::TextBox& box, std::string_view text) {
        Form().txtSize2.Visible = true;
        Set(box, text);
        box.BackColor = fields::kRed;
        session::UserLeave(S(), box);
    }
};

TEST_F(CriteriaBoxes, AClickStepsEveryAttributeBoxFromEmptyToCheckedToGrey) {
    Start();
    for (fields::CheckBox* box : Form().attributeBoxes) {
        Set(*box, "1");
        Set(*box, "0");
        for (const int expected : {1, 2, 0, 1}) {
            Click(*box);
            EXPECT_EQ(box->Value.Get(), expected) << box->Name();
        }
    }
}

TEST_F(CriteriaBoxes, EachStateHasItsColourAndTip) {
    Start();
    struct Look {
        const char* value;
        fields::Color color;
        const char* tip;
    };
    for (const Look& look :
         {Look{"1", 255, "Black check will only find objects with this attribute."},
          Look{"2", 0, "Grey checked will find all objects regardless of this attribute."},
          Look{"0", 0xFF0000, "Empty will not find any object with this attribute."}}) {
        Set(Form().chkHidden, look.value);
        EXPECT_EQ(Form().chkHidden.ForeColor.Get(), look.color);
        EXPECT_EQ(Form().chkHidden.ToolTipText.Get(), look.tip);
    }
}

TEST_F(CriteriaBoxes, StartWithArchiveGreyAndAllOthersEmpty) {
    Start();
    for (fields::CheckBox* box : Form().attributeBoxes) {
        const bool isArchive = box == &Form().chkArchive;
        EXPECT_EQ(box->Value.Get(), isArchive ? 2 : 0) << box->Name();
        EXPECT_EQ(box->ForeColor.Get(), isArchive ? 0U : 0xFF0000U) << box->Name();
    }
}

TEST_F(CriteriaBoxes, SizeShowsItsBoxesAndTheSecondOnlyForARange) {
    Start();
    Click(Form().chkSize);
    EXPECT_EQ(Form().chkSize.ForeColor.Get(), 255U);
    EXPECT_TRUE(Form().cboSize.Visible);
    EXPECT_TRUE(Form().txtSize1.Visible);
    EXPECT_FALSE(Form().txtSize2.Visible);
    Set(Form().cboSize, "Range");
    EXPECT_TRUE(Form().txtSize2.Visible);
    Set(Form().cboSize, "At Most");
    EXPECT_FALSE(Form().txtSize2.Visible);
    Set(Form().cboSize, "Range");
    Click(Form().chkSize);
    EXPECT_FALSE(Form().cboSize.Visible);
    EXPECT_FALSE(Form().txtSize1.Visible);
    EXPECT_FALSE(Form().txtSize2.Visible);
    Click(Form().chkSize);
    EXPECT_TRUE(Form().txtSize2.Visible) << "a range shows its second box again";
}

TEST_F(CriteriaBoxes, LeavingASizeBoxMakesItWhite) {
    Start();
    Click(Form().chkSize);
    LeaveSize(Form().txtSize1, "12");
    EXPECT_EQ(Form().txtSize1.BackColor.Get(), 0xFFFFFFU);
    EXPECT_EQ(Form().txtSize1.Text.Get(), "12");
    EXPECT_TRUE(Told().empty());
}

TEST_F(CriteriaBoxes, ASizeAboveTheHighestIsToldAndCut) {
    Start();
    Click(Form().chkSize);
    for (fields::TextBox* box : {&Form().txtSize1, &Form().txtSize2}) {
        LeaveSize(*box, "2147483649");
        EXPECT_EQ(box->Text.Get(), "2147483647");
        EXPECT_EQ(
            Told().back(),
            "The highest number supported here is 2,147,483,647 bytes.\r\n\r\n\r\n"
            "Files sizes above this size are not generally accurate.\r\n"
            "They will be shown in red for files and totals.\r\n"
            "If the size reported is greater than 2,147,483,648 bytes then it is a guess.\r\n"
            "It will only be accurate if the actual file size is below 4,294,967,296 bytes\r\n"
            "The total at the bottom will reflect all guessed sizes.");
    }
    EXPECT_EQ(Told().size(), 2U);
}

TEST_F(CriteriaBoxes, ASizeOfExactlyTheHighestIsLeft) {
    Start();
    Click(Form().chkSize);
    LeaveSize(Form().txtSize1, "2147483648");
    EXPECT_EQ(Form().txtSize1.Text.Get(), "2147483648");
    EXPECT_TRUE(Told().empty());
}

TEST_F(CriteriaBoxes, DateShowsAndHidesItsBoxesAndForgetsTheKindOfDate) {
    Start();
    Click(Form().chkDate);
    EXPECT_EQ(Form().chkDate.ForeColor.Get(), 255U);
    EXPECT_TRUE(Form().cboDate.Visible);
    EXPECT_FALSE(Form().lblDate2.Visible);
    Click(Form().mnuSearch_DateType[1]);
    Click(Form().chkDate);
    EXPECT_FALSE(Form().cboDate.Visible);
    EXPECT_EQ(Form().lblDateType.Caption.Get(), "Date = Modified Date");
}

TEST_F(CriteriaBoxes, ChoosingSinceAsksForOneDate) {
    Start();
    Click(Form().chkDate);
    prompts.Queue("2025/03/04 05:06:07");
    Set(Form().cboDate, "Since");
    EXPECT_EQ(Form().lblDate1.Caption.Get(), "2025/03/04 05:06:07");
    EXPECT_FALSE(S().forms.frmSelectDate.dtpEndDate.Visible);
    EXPECT_FALSE(S().forms.frmSelectDate.dtpEndTime.Visible);
    EXPECT_FALSE(Form().lblDate2.Visible);
    EXPECT_FALSE(Form().lbldDateThru.Visible);
}

TEST_F(CriteriaBoxes, ChoosingARangeAsksForTwoDates) {
    Start();
    Click(Form().chkDate);
    prompts.Queue("2025/03/04 05:06:07 thru 2025/04/05 06:07:08");
    Set(Form().cboDate, "Range");
    EXPECT_EQ(Form().lblDate1.Caption.Get(), "2025/03/04 05:06:07");
    EXPECT_EQ(Form().lblDate2.Caption.Get(), "2025/04/05 06:07:08");
    EXPECT_TRUE(Form().lbldDateThru.Visible);
    EXPECT_TRUE(Form().lblDate2.Visible);
}

TEST_F(CriteriaBoxes, LeavingTheDateChoiceAsksAgainButNotRightAfterTheWindow) {
    Start();
    Click(Form().chkDate);
    Set(Form().cboDate, "Since");
    ASSERT_EQ(prompts.Records().size(), 1U);
    session::UserLeave(S(), Form().cboDate);
    EXPECT_EQ(prompts.Records().size(), 1U);
    session::UserLeave(S(), Form().cboDate);
    EXPECT_EQ(prompts.Records().size(), 2U);
}

TEST_F(CriteriaBoxes, ACancelledDateWindowLeavesTheDate) {
    Start();
    Click(Form().chkDate);
    Form().lblDate1.SetDate(text::DateTime{2025, 1, 1, 0, 0, 0});
    prompts.Queue("cmdCancel");
    Set(Form().cboDate, "Before");
    EXPECT_EQ(Form().lblDate1.Caption.Get(), "2025/01/01 00:00:00");
}

TEST_F(CriteriaBoxes, ChoicesAreLogged) {
    Start();
    Click(Form().chkIncludeSubFolders);
    Click(Form().chkIncludeSubFolders);
    for (int kind = 0; kind < 5; ++kind) {
        Choose(Form().optFilesVsDirs, kind);
    }
    const std::string log = LogText();
    for (const char* entry :
         {" user selected to include subfolders ", " user selected to NOT include subfolders ",
          " User selected to find files ", " User selected to find empty files ",
          " User selected to find files and folders ", " User selected to find folders ",
          " User selected to find empty folders "}) {
        EXPECT_TRUE(HasEntry(log, entry)) << entry;
    }
}

TEST_F(CriteriaBoxes, ShortcutPatternsShowTheTargetBox) {
    Start();
    for (const auto& [text, shown] : {std::pair{"*.LNK", true}, std::pair{"*.mp3", false},
                                      std::pair{"*.url|x", true}, std::pair{"lnk", false}}) {
        Set(Form().cmbSearchFor, text);
        Choose(Form().optFilesVsDirs, 0);
        EXPECT_EQ(Form().cboTargetPath.Visible.Get(), shown) << text;
        EXPECT_EQ(Form().lblTargetPath.Visible.Get(), shown) << text;
    }
}

} // namespace
} // namespace tarvix::testing
