#include "fields/controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvix::fields {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A form that notes changes from the moment that it is made.
struct Entering : Form, ::testing::Test {
    Entering() : Form("frmSample") { TakeChanged(); }

    // "Change", "Click 2" or "", or the sentence that refuses the text.
    static std::string Outcome(Control& control, std::string_view text) {
        const auto entered = control.Enter(text);
        if (!entered) return entered.error();
        std::string told(entered->event);
        if (entered->index >= 0) told.append(" ").append(std::to_string(entered->index));
        return told;
    }

    TextBox txtName{*this, "txtName", "first"};
    CheckBox chkDeep{*this, "chkDeep", "&Deep"};
    CheckBox chkHidden{*this, "chkHidden", "Hidden", 2, true};
    OptionGroup optWay{*this, "optWay", {"&One", "&Two"}};
    ComboBox cmbDir{*this, "cmbDir"};
    ComboBox cboSize{*this, "cboSize", false};
    ListBox lstOne{*this, "lstOne"};
    ListBox lstMany{*this, "lstMany", true};
    DatePicker dtpDate{*this, "dtpDate", false};
    DatePicker dtpTime{*this, "dtpTime", true};
};

TEST_F(Entering, ATextBoxTakesAnyText) {
    EXPECT_EQ(Outcome(txtName, "Motörhead \"1\""), "Change");
    EXPECT_EQ(txtName.Text.Get(), "Motörhead \"1\"");
    EXPECT_EQ(Outcome(txtName, ""), "Change");
    EXPECT_EQ(txtName.Text.Get(), "");
}

TEST_F(Entering, ATextThatStandsThereIsEnteredAllTheSame) {
    EXPECT_EQ(Outcome(txtName, "first"), "Change");
    EXPECT_THAT(TakeChanged(), IsEmpty());
}

TEST_F(Entering, ABoxOfTwoStatesTakesZeroAndOne) {
    EXPECT_EQ(Outcome(chkDeep, "1"), "Click");
    EXPECT_EQ(chkDeep.Value.Get(), 1);
    EXPECT_EQ(Outcome(chkDeep, "1"), "") << "nothing changed, so nothing is raised";
    EXPECT_EQ(Outcome(chkDeep, "0"), "Click");
    EXPECT_EQ(chkDeep.Value.Get(), 0);
    for (const char* wrong : {"2", "-1", "", "True", "01", "1 "}) {
        EXPECT_EQ(Outcome(chkDeep, wrong), "takes 0 or 1.") << wrong;
    }
    EXPECT_EQ(chkDeep.Value.Get(), 0);
}

TEST_F(Entering, ABoxOfThreeStatesTakesTwoAsWell) {
    EXPECT_EQ(Outcome(chkHidden, "2"), "");
    EXPECT_EQ(Outcome(chkHidden, "0"), "Change");
    EXPECT_EQ(Outcome(chkHidden, "2"), "Change");
    EXPECT_EQ(chkHidden.Value.Get(), 2);
    EXPECT_EQ(Outcome(chkHidden, "3"), "takes 0, 1 or 2.");
    EXPECT_EQ(chkHidden.Value.Get(), 2);
}

TEST_F(Entering, AnOptionIsOnlyEverChosen) {
    EXPECT_EQ(Outcome(optWay[1], "1"), "Click 1");
    EXPECT_EQ(optWay.Chosen(), 1);
    EXPECT_EQ(Outcome(optWay[1], "true"), "");
    EXPECT_EQ(Outcome(optWay[0], "TRUE"), "Click 0");
    for (const char* wrong : {"0", "False", "", "2"}) {
        EXPECT_EQ(Outcome(optWay[1], wrong), "is one of several choices: it can only be set to 1.")
            << wrong;
    }
    EXPECT_EQ(optWay.Chosen(), 0);
}

TEST_F(Entering, AnEditableBoxTakesAnyText) {
    cmbDir.AddItem("C:\\home");
    EXPECT_EQ(Outcome(cmbDir, "c:\\HOME"), "Change");
    EXPECT_EQ(cmbDir.Text.Get(), "c:\\HOME");
}

TEST_F(Entering, AListThatIsNotEditableTakesWhatItHolds) {
    cboSize.AddItem("At Least", 4);
    cboSize.AddItem("Range", 1);
    EXPECT_EQ(Outcome(cboSize, "range"), "Change");
    EXPECT_EQ(cboSize.Text.Get(), "Range") << "as it stands in the list";
    EXPECT_EQ(cboSize.ChosenData(), 1);
    EXPECT_EQ(Outcome(cboSize, "Most"), "has no entry \"Most\".");
    EXPECT_EQ(Outcome(cboSize, ""), "has no entry \"\".");
    EXPECT_EQ(cboSize.Text.Get(), "Range");
}

TEST_F(Entering, AListTakesTheTextOfALine) {
    lstOne.SetItems({"a.mpl", "b.mpl"});
    EXPECT_EQ(Outcome(lstOne, "B.MPL"), "Click 1");
    EXPECT_EQ(lstOne.ValueText(), "b.mpl\r\n");
    EXPECT_EQ(Outcome(lstOne, "a.mpl"), "Click 0");
    EXPECT_EQ(lstOne.ValueText(), "a.mpl\r\n");
    EXPECT_EQ(Outcome(lstOne, "a.mpl"), "Click 0") << "one that is selected stays so";
    EXPECT_EQ(lstOne.ValueText(), "a.mpl\r\n");
    EXPECT_EQ(Outcome(lstOne, "c.mpl"), "has no line \"c.mpl\".");
    EXPECT_EQ(lstOne.ValueText(), "a.mpl\r\n");
}

TEST_F(Entering, ALineOfAMultipleListIsTurned) {
    lstMany.SetItems({"a", "b", "c"});
    EXPECT_EQ(Outcome(lstMany, "c"), "Click 2");
    EXPECT_EQ(Outcome(lstMany, "a"), "Click 0");
    EXPECT_EQ(lstMany.ValueText(), "a\r\nc\r\n");
    EXPECT_EQ(Outcome(lstMany, "c"), "Click 2");
    EXPECT_EQ(lstMany.ValueText(), "a\r\n");
}

TEST_F(Entering, APickerTakesItsHalfOfAMoment) {
    EXPECT_EQ(Outcome(dtpDate, "2020/02/29 13:05:09"), "Change");
    EXPECT_EQ(dtpDate.Text.Get(), "2020/02/29");
    EXPECT_EQ(Outcome(dtpTime, "2020/02/29 13:05:09"), "Change");
    EXPECT_EQ(dtpTime.Text.Get(), "13:05:09");
    EXPECT_EQ(Outcome(dtpTime, "7:08"), "Change");
    EXPECT_EQ(dtpTime.Text.Get(), "07:08:00");
}

TEST_F(Entering, APickerRefusesWhatIsNoDate) {
    ASSERT_EQ(Outcome(dtpDate, "2019/01/02"), "Change");
    EXPECT_EQ(Outcome(dtpDate, "2019/02/30"), "takes a date or time, not \"2019/02/30\".");
    EXPECT_EQ(Outcome(dtpDate, "soon"), "takes a date or time, not \"soon\".");
    EXPECT_EQ(dtpDate.Text.Get(), "2019/01/02");
}

TEST_F(Entering, WhatHoldsNoValueTakesNone) {
    Label label{*this, "lblName", "Name"};
    CommandButton button{*this, "cmdGo", "&Go"};
    MenuEntry entry{*this, "mnuTools", "&Tools"};
    Frame frame{*this, "fraMore"};
    ListView view{*this, "lstMain"};
    ProgressBar bar{*this, "prgBytes"};
    for (Control* control :
         std::initializer_list<Control*>{&label, &button, &entry, &frame, &view, &bar}) {
        EXPECT_EQ(Outcome(*control, "1"), "has no value that can be set.") << control->Name();
    }
    EXPECT_EQ(label.Caption.Get(), "Name");
}

TEST_F(Entering, ARefusedValueChangesNothing) {
    cboSize.AddItem("Range");
    lstMany.SetItems({"a"});
    TakeChanged();
    for (Control* control : std::initializer_list<Control*>{&chkDeep, &chkHidden, &optWay[1],
                                                            &cboSize, &lstMany, &dtpDate}) {
        EXPECT_FALSE(control->Enter("no such value")) << control->Name();
    }
    EXPECT_THAT(TakeChanged(), IsEmpty());
}

} // namespace
} // namespace tarvix::fields
