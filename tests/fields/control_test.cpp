#include "fields/controls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvix::fields {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A form with a control of each kind.
struct Sample : Form {
    Sample() : Form("frmSample") {}
    Label lblName{*this, "lblName", "&Name"};
    TextBox txtName{*this, "txtName", "first"};
    CheckBox chkDeep{*this, "chkDeep", "&Deep"};
    CheckBox chkHidden{*this, "chkHidden", "Hidden", 2, true};
    OptionGroup optWay{*this, "optWay", {"&One", "&Two", "T&hree"}, 1};
    ComboBox cmbDir{*this, "cmbDir"};
    ComboBox cboSize{*this, "cboSize", false};
    CommandButton cmdGo{*this, "cmdGo", "&Go"};
    MenuEntry mnuTools{*this, "mnuTools", "&Tools", 3};
    Frame fraMore{*this, "fraMore", "More", false};
    ListView lstMain{*this, "lstMain"};
    ListBox lstOne{*this, "lstOne"};
    ListBox lstMany{*this, "lstMany", true};
    DatePicker dtpDate{*this, "dtpDate", false};
    DatePicker dtpTime{*this, "dtpTime", true};
    ProgressBar prgBytes{*this, "prgBytes"};
};

TEST(ControlChanges, EachChangedControlIsGivenOnceInTheOrderOfItsFirstChange) {
    Sample form;
    form.TakeChanged();
    form.txtName.Text = "second";
    form.lblName.Caption = "Other";
    form.txtName.Text = "third";
    form.txtName.Enabled = false;
    EXPECT_THAT(form.TakeChanged(), ElementsAre(&form.txtName, &form.lblName));
    EXPECT_THAT(form.TakeChanged(), IsEmpty());
    form.txtName.Text = "fourth";
    EXPECT_THAT(form.TakeChanged(), ElementsAre(&form.txtName));
}

TEST(ControlChanges, TheSameValueAgainIsNoChange) {
    Sample form;
    form.TakeChanged();
    form.txtName.Text = "first";
    form.chkDeep.Value = 0;
    form.optWay.Choose(1);
    form.cmdGo.Visible = true;
    form.prgBytes.Max = 0;
    EXPECT_THAT(form.TakeChanged(), IsEmpty());
}

TEST(ControlChanges, EveryPropertyCounts) {
    Sample form;
    const auto changes = [&form](const Control& control, const auto& change) {
        form.TakeChanged();
        change();
        EXPECT_THAT(form.TakeChanged(), ElementsAre(&control)) << control.Name();
    };
    changes(form.lblName, [&] { form.lblName.ForeColor = kRed; });
    changes(form.txtName, [&] { form.txtName.BackColor = kGreen; });
    changes(form.chkDeep, [&] { form.chkDeep.ToolTipText = "A tip"; });
    changes(form.cmdGo, [&] { form.cmdGo.Visible = false; });
    changes(form.mnuTools, [&] { form.mnuTools.Checked = true; });
    changes(form.lstMain, [&] { form.lstMain.SortOrder = SortDirection::kDescending; });
    changes(form.lstMany, [&] { form.lstMany.Header = "Lists"; });
    changes(form.dtpDate, [&] { form.dtpDate.Text = "2020/02/29"; });
    changes(form.prgBytes, [&] { form.prgBytes.Value = 7; });
}

TEST(ControlNames, AnEntryOfAnArrayHasTheNameOfItsArray) {
    Sample form;
    EXPECT_EQ(form.optWay[2].Name(), "optWay(2)");
    EXPECT_EQ(form.optWay[2].ArrayName(), "optWay");
    EXPECT_EQ(form.optWay[2].Index(), 2);
    EXPECT_EQ(form.mnuTools.Name(), "mnuTools(3)");
    EXPECT_EQ(form.mnuTools.ArrayName(), "mnuTools");
    EXPECT_EQ(form.cmdGo.Name(), "cmdGo");
    EXPECT_EQ(form.cmdGo.ArrayName(), "cmdGo");
    EXPECT_EQ(form.cmdGo.Index(), -1);
    EXPECT_EQ(&form.cmdGo.Owner(), &form);
}

TEST(ControlNames, AFormFindsItsControlsWithoutRegardToCase) {
    Sample form;
    EXPECT_EQ(form.Find("CMDGO"), &form.cmdGo);
    EXPECT_EQ(form.Find("optway(0)"), &form.optWay[0]);
    EXPECT_EQ(form.Find("optWay"), nullptr);
    EXPECT_EQ(form.Find("optWay(3)"), nullptr);
    EXPECT_EQ(form.Find(""), nullptr);
}

TEST(ControlTexts, WhatBearsWordsGivesThem) {
    Sample form;
    EXPECT_EQ(form.lblName.CaptionText(), "&Name");
    EXPECT_EQ(form.chkDeep.CaptionText(), "&Deep");
    EXPECT_EQ(form.optWay[2].CaptionText(), "T&hree");
    EXPECT_EQ(form.cmdGo.CaptionText(), "&Go");
    EXPECT_EQ(form.mnuTools.CaptionText(), "&Tools");
    EXPECT_EQ(form.fraMore.CaptionText(), "More");
    EXPECT_EQ(form.txtName.CaptionText(), "");
    EXPECT_EQ(form.cmbDir.CaptionText(), "");
    EXPECT_EQ(form.lstMain.CaptionText(), "");
    EXPECT_EQ(form.prgBytes.CaptionText(), "");
}

TEST(ControlTexts, EveryValueHasAText) {
    Sample form;
    form.cmbDir.Text = "C:\\home";
    form.prgBytes.Value = 12'000'000'000;
    EXPECT_EQ(form.lblName.ValueText(), "&Name");
    EXPECT_EQ(form.txtName.ValueText(), "first");
    EXPECT_EQ(form.chkDeep.ValueText(), "0");
    EXPECT_EQ(form.chkHidden.ValueText(), "2");
    EXPECT_EQ(form.optWay[0].ValueText(), "0");
    EXPECT_EQ(form.optWay[1].ValueText(), "1");
    EXPECT_EQ(form.cmbDir.ValueText(), "C:\\home");
    EXPECT_EQ(form.cmdGo.ValueText(), "&Go");
    EXPECT_EQ(form.fraMore.ValueText(), "More");
    EXPECT_EQ(form.prgBytes.ValueText(), "12000000000");
    EXPECT_EQ(form.lstMain.ValueText(), "");
}

TEST(ControlPress, ABoxOfTwoStatesTurns) {
    Sample form;
    EXPECT_FALSE(form.chkDeep.Press());
    EXPECT_EQ(form.chkDeep.Value.Get(), 1);
    EXPECT_FALSE(form.chkDeep.Press());
    EXPECT_EQ(form.chkDeep.Value.Get(), 0);
}

TEST(ControlPress, ABoxOfThreeStatesIsLeftToItsRoutine) {
    Sample form;
    form.TakeChanged();
    EXPECT_FALSE(form.chkHidden.Press());
    EXPECT_EQ(form.chkHidden.Value.Get(), 2);
    EXPECT_THAT(form.TakeChanged(), IsEmpty());
}

TEST(ControlPress, AnOptionSaysWhetherItWasChosenAlready) {
    Sample form;
    EXPECT_FALSE(form.optWay[2].Press());
    EXPECT_EQ(form.optWay.Chosen(), 2);
    EXPECT_TRUE(form.optWay[2].Press());
    EXPECT_EQ(form.optWay.Chosen(), 2);
}

TEST(ControlPress, ElseAPressChangesNothing) {
    Sample form;
    form.TakeChanged();
    for (Control* control : std::initializer_list<Control*>{
             &form.cmdGo, &form.mnuTools, &form.txtName, &form.lblName, &form.lstMany}) {
        EXPECT_FALSE(control->Press()) << control->Name();
    }
    EXPECT_THAT(form.TakeChanged(), IsEmpty());
}

TEST(OptionGroups, ExactlyOneIsChosen) {
    Sample form;
    const auto values = [&form] {
        return std::vector<bool>{form.optWay[0].Value, form.optWay[1].Value, form.optWay[2].Value};
    };
    EXPECT_EQ(form.optWay.Count(), 3);
    EXPECT_THAT(values(), ElementsAre(false, true, false));
    form.optWay.Choose(0);
    EXPECT_THAT(values(), ElementsAre(true, false, false));
    ASSERT_TRUE(form.optWay[2].Enter("1"));
    EXPECT_THAT(values(), ElementsAre(false, false, true));
    EXPECT_EQ(form.optWay.Chosen(), 2);
}

TEST(OptionGroups, NoneMayBeChosenByTheLogic) {
    Sample form;
    form.optWay.Choose(-1);
    EXPECT_EQ(form.optWay.Chosen(), -1);
}

TEST(OptionGroups, OnlyTheEntriesThatTurnHaveChanged) {
    Sample form;
    form.TakeChanged();
    form.optWay.Choose(0);
    EXPECT_THAT(form.TakeChanged(), ElementsAre(&form.optWay[0], &form.optWay[1]));
}

TEST(OptionGroups, TwoGroupsOfAFormAreApart) {
    struct Two : Form {
        Two() : Form("frmTwo") {}
        OptionGroup optA{*this, "optA", {"a", "b"}};
        OptionGroup optB{*this, "optB", {"a", "b"}, 1};
    } form;
    form.optA[1].Press();
    form.optB[0].Press();
    EXPECT_EQ(form.optA.Chosen(), 1);
    EXPECT_EQ(form.optB.Chosen(), 0);
}

TEST(OptionGroups, AreEnabledAsAWhole) {
    Sample form;
    form.optWay.SetEnabled(false);
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(form.optWay[i].Enabled) << i;
    }
}

} // namespace
} // namespace tarvix::fields
