#include "fields/forms.h"
#include "text/case.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

namespace tarvix::fields {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> NamesOf(const std::vector<Control*>& controls) {
    std::vector<std::string> names;
    for (const Control* control : controls) {
        names.push_back(control->Name());
    }
    return names;
}

TEST(AllForms, AreFoundByName) {
    const Forms forms;
    for (const char* name : {"frmSearch",
                             "frmDialog",
                             "frmForChar",
                             "frmTrailingSp",
                             "frmAllUsers",
                             "frmSelectDate",
                             "frmProgress",
                             "frmAsk",
                             "frmAsk259",
                             "frmOverrideDialog",
                             "frmOverrideRecycleFail",
                             "frmPreview",
                             "frmUnread",
                             "frmRuns",
                             "frmNumbers",
                             "frmWelcome",
                             "frmBatch",
                             "frmShortcutWarning",
                             "frmLinkChanges",
                             "frmLinkTable",
                             "frmContextMenu",
                             "frmOpenWith",
                             "frmOptions",
                             "frmOutcome"}) {
        ASSERT_NE(forms.Find(name), nullptr) << name;
        EXPECT_EQ(forms.Find(name)->Name(), name);
    }
    EXPECT_EQ(forms.Find("FRMDIALOG"), &forms.frmDialog);
    EXPECT_EQ(forms.Find("frmDialo"), nullptr);
    EXPECT_EQ(forms.all.size(), 24U);
}

TEST(AllForms, HaveNoTwoOfOneName) {
    const Forms forms;
    std::set<std::string> names;
    for (const Form* form : forms.all) {
        EXPECT_TRUE(names.insert(text::Lower(form->Name())).second) << form->Name();
    }
}

TEST(AllForms, HaveNoTwoControlsOfOneName) {
    const Forms forms;
    for (const Form* form : forms.all) {
        std::set<std::string> names;
        for (const Control* control : form->Controls()) {
            EXPECT_TRUE(names.insert(text::Lower(control->Name())).second)
                << form->Name() << "." << control->Name();
        }
        EXPECT_FALSE(names.empty()) << form->Name();
    }
}

TEST(AllForms, FindEachOfTheirControlsByItsName) {
    const Forms forms;
    for (const Form* form : forms.all) {
        for (Control* control : form->Controls()) {
            EXPECT_EQ(form->Find(control->Name()), control) << form->Name();
            EXPECT_EQ(form->Find(text::Upper(control->Name())), control) << form->Name();
            EXPECT_EQ(&control->Owner(), form) << control->Name();
        }
    }
}

// The letters in front of a name tell what it names.
TEST(AllForms, ControlsBearTheLettersOfTheirKind) {
    const std::map<ControlKind, std::set<std::string>> letters{
        {ControlKind::kLabel, {"lbl"}},
        {ControlKind::kTextBox, {"txt"}},
        {ControlKind::kCheckBox, {"chk"}},
        {ControlKind::kOptionButton, {"opt"}},
        {ControlKind::kComboBox, {"cmb", "cbo"}},
        {ControlKind::kCommandButton, {"cmd"}},
        {ControlKind::kMenuEntry, {"mnu"}},
        {ControlKind::kFrame, {"fra"}},
        {ControlKind::kListView, {"lst"}},
        {ControlKind::kListBox, {"lst", "fil", "tbs"}},
        {ControlKind::kDatePicker, {"dtp"}},
        {ControlKind::kProgressBar, {"prg"}},
        {ControlKind::kTimer, {"Tim"}}};
    const std::set<std::string> others{"OKButton", "CancelButton"};
    const Forms forms;
    for (const Form* form : forms.all) {
        for (const Control* control : form->Controls()) {
            if (others.contains(control->Name())) continue;
            EXPECT_TRUE(letters.at(control->Kind()).contains(control->Name().substr(0, 3)))
                << form->Name() << "." << control->Name();
        }
    }
}

TEST(AllForms, HaveAnOptionChosenInEachGroup) {
    const Forms forms;
    for (const Form* form : forms.all) {
        std::map<std::string, int> chosen;
        for (const Control* control : form->Controls()) {
            if (control->Kind() != ControlKind::kOptionButton) continue;
            chosen[std::string(control->ArrayName())] += control->ValueText() == "1" ? 1 : 0;
        }
        for (const auto& [name, count] : chosen) {
            // A group of columns is taken when it is pressed, and stands for none before.
            const int expected = name == "optQuickList" ? 0 : 1;
            EXPECT_EQ(count, expected) << form->Name() << "." << name;
        }
    }
}

TEST(AllForms, EachPromptHasAWayOut) {
    const Forms forms;
    EXPECT_THAT(NamesOf(forms.frmDialog.WaysOut()), ElementsAre("CancelButton", "OKButton"));
    EXPECT_THAT(NamesOf(forms.frmSelectDate.WaysOut()), ElementsAre("cmdCancel", "cmdOK"));
    EXPECT_THAT(NamesOf(forms.frmAsk.WaysOut()), ElementsAre("cmdCancel"));
    EXPECT_THAT(NamesOf(forms.frmAsk259.WaysOut()), ElementsAre("cmdCancel"));
    EXPECT_THAT(NamesOf(forms.frmOverrideDialog.WaysOut()), ElementsAre("cmdCancel"));
    EXPECT_THAT(NamesOf(forms.frmOverrideRecycleFail.WaysOut()), ElementsAre("cmdCancel"));
    EXPECT_THAT(NamesOf(forms.frmPreview.WaysOut()), ElementsAre("cmdOK"));
    EXPECT_THAT(NamesOf(forms.frmForChar.WaysOut()), ElementsAre("cmdOK"));
    EXPECT_THAT(forms.frmSearch.WaysOut(), IsEmpty());
}

TEST(AllForms, AreHiddenAtFirst) {
    Forms forms;
    for (Form* form : forms.all) {
        EXPECT_FALSE(form->IsShown()) << form->Name();
    }
    forms.frmAsk.Show();
    EXPECT_TRUE(forms.frmAsk.IsShown());
    forms.frmAsk.Hide();
    EXPECT_FALSE(forms.frmAsk.IsShown());
}

TEST(CopyOfAForm, TakesOverEveryValueThatAUserEnters) {
    FrmDialog from;
    from.lblMain.Caption = "Copy";
    from.cmbDir.AddItem("E:\\newest", 3);
    from.cmbDir.Text = "E:\\Music";
    from.optTo.Choose(2);
    from.optStructure.Choose(-1);
    from.txtFolderTree.Text = "12";
    from.chkFolderRename.Value = 1;
    from.filMultiPath.SetItems({"a.mpl", "b.mpl"});
    from.filMultiPath.Select(1, true);
    from.lstMulti.Header = "Locations of b.mpl";
    FrmDialog to;
    to.cmbDir.AddItem("E:\\stale");
    to.filMultiPath.SetItems({"a.mpl", "b.mpl"});
    to.filMultiPath.Select(0, true);
    to.CopyFrom(from);
    EXPECT_EQ(to.lblMain.Caption.Get(), "Copy");
    EXPECT_THAT(to.cmbDir.Items(), ElementsAre(ComboItem{"E:\\newest", 3}));
    EXPECT_EQ(to.cmbDir.Text.Get(), "E:\\Music");
    EXPECT_EQ(to.optTo.Chosen(), 2);
    EXPECT_EQ(to.optStructure.Chosen(), -1);
    EXPECT_EQ(to.txtFolderTree.Text.Get(), "12");
    EXPECT_EQ(to.chkFolderRename.Value.Get(), 1);
    EXPECT_EQ(to.filMultiPath.ValueText(), "b.mpl\r\n") << "what was selected before is not";
    EXPECT_EQ(to.lstMulti.Header.Get(), "Locations of b.mpl");
}

TEST(CopyOfAForm, TakesOverWhatShowsAndWhatIsEnabled) {
    FrmDialog from;
    from.txtFolderTree.Visible = true;
    from.OKButton.Enabled = false;
    from.cmdStop.Visible = true;
    FrmDialog to;
    to.CopyFrom(from);
    EXPECT_TRUE(to.txtFolderTree.Visible);
    EXPECT_FALSE(to.OKButton.Enabled);
    EXPECT_TRUE(to.cmdStop.Visible);
}

TEST(CopyOfAForm, TakesOverThePickedDates) {
    FrmSearch from;
    from.lblDate1.SetDate(text::DateTime{2024, 3, 9, 1, 2, 3});
    FrmSearch to;
    to.lblDate2.SetDate(text::DateTime{2024, 3, 9, 1, 2, 3});
    to.CopyFrom(from);
    EXPECT_EQ(to.lblDate1.Date(), (text::DateTime{2024, 3, 9, 1, 2, 3}));
    EXPECT_EQ(to.lblDate1.Caption.Get(), "2024/03/09 01:02:03");
    EXPECT_FALSE(to.lblDate2.Date());
    EXPECT_EQ(to.lblDate2.Caption.Get(), "");
}

TEST(DateLabel, ShowsItsDate) {
    FrmSearch form;
    form.lblDate1.SetDate(text::DateTime{987, 1, 2, 3, 4, 5});
    EXPECT_EQ(form.lblDate1.ValueText(), "0987/01/02 03:04:05");
    form.TakeChanged();
    form.lblDate1.SetDate(text::DateTime{987, 1, 2, 3, 4, 6});
    EXPECT_THAT(NamesOf(form.TakeChanged()), ElementsAre("lblDate1"));
    form.lblDate1.SetDate(std::nullopt);
    EXPECT_EQ(form.lblDate1.ValueText(), "");
}

TEST(CopyOfAForm, TakesOverDates) {
    FrmSelectDate from;
    from.dtpStartDate.Text = "2020/02/29";
    from.dtpEndTime.Text = "23:59:59";
    FrmSelectDate to;
    to.CopyFrom(from);
    EXPECT_EQ(to.dtpStartDate.Text.Get(), "2020/02/29");
    EXPECT_EQ(to.dtpEndTime.Text.Get(), "23:59:59");
}

TEST(CopyOfAForm, LeavesTheOriginalAsItIs) {
    FrmSearch from;
    from.cmbSearchFor.Text = "*.mp3";
    from.TakeChanged();
    FrmSearch to;
    to.CopyFrom(from);
    to.cmbSearchFor.Text = "*.flac";
    to.optFilesVsDirs.Choose(3);
    EXPECT_EQ(from.cmbSearchFor.Text.Get(), "*.mp3");
    EXPECT_EQ(from.optFilesVsDirs.Chosen(), 0);
    EXPECT_THAT(from.TakeChanged(), IsEmpty());
}

TEST(CopyOfAForm, HasTheValuesOfEachControlOfEachForm) {
    Forms from;
    Forms to;
    for (std::size_t i = 0; i < from.all.size(); ++i) {
        for (Control* control : from.all[i]->Controls()) {
            (void)(control->Enter("1") || control->Enter("2019/03/04"));
            control->Visible = !control->Visible;
            control->Enabled = !control->Enabled;
        }
        to.all[i]->CopyFrom(*from.all[i]);
        for (const Control* control : from.all[i]->Controls()) {
            const Control& copy = *to.all[i]->Find(control->Name());
            EXPECT_EQ(copy.ValueText(), control->ValueText()) << control->Name();
            EXPECT_EQ(copy.Visible.Get(), control->Visible.Get()) << control->Name();
            EXPECT_EQ(copy.Enabled.Get(), control->Enabled.Get()) << control->Name();
        }
    }
}

} // namespace
} // namespace tarvix::fields
