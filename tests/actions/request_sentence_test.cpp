#include "actions/request/request_sentence.h"

#include <gtest/gtest.h>

namespace tarvix::testing {
namespace {

TEST(RequestSentence, TellsWhereHowAndWhatHappensToDuplicates) {
    fields::FrmDialog form;
    form.OKButton.Caption = "&Copy 3 objects";
    form.cmbDir.Text = "E:\\Bk";
    EXPECT_EQ(actions::RequestSentence(form, form.cmbDir.Text),
              "Copy 3 objects to E:\\Bk, without their folders. Each duplicate is asked about.");
    form.optStructure.Choose(3);
    form.chkAsk.Value = 0;
    form.chkOverWrite.Value = 1;
    EXPECT_EQ(actions::RequestSentence(form, form.cmbDir.Text),
              "Copy 3 objects to E:\\Bk, in their folders and drives. Duplicates are overwritten.");
    form.chkOverWrite.Value = 0;
    form.optTo.Choose(1);
    EXPECT_TRUE(
        actions::RequestSentence(form, form.cmbDir.Text)
            .starts_with("Copy 3 objects into the locations of a list, none yet, in their"));
    form.lstMulti.SetItems({"E:\\a", "F:\\b"});
    EXPECT_EQ(actions::RequestSentence(form, form.cmbDir.Text),
              "Copy 3 objects into 2 locations, in their folders and drives. Nothing is chosen for "
              "duplicates, so nothing will be done.");
}

TEST(RequestSentence, TellsARename) {
    fields::FrmDialog form;
    form.OKButton.Caption = "&Rename 3 objects";
    form.fraRenameOnly.Visible = true;
    EXPECT_EQ(actions::RequestSentence(form, form.cmbDir.Text),
              "Rename 3 objects: no text to insert yet.");
    form.txtAdd.Text = " (live)";
    EXPECT_EQ(actions::RequestSentence(form, form.cmbDir.Text),
              "Rename 3 objects: \u201c (live)\u201d goes to the end.");
    form.chkAdd.Value = 0;
    form.chkFindReplace.Value = 1;
    form.txtFind.Text = "a";
    form.txtReplace.Text = "b";
    EXPECT_EQ(actions::RequestSentence(form, form.cmbDir.Text),
              "Rename 3 objects: \u201ca\u201d becomes \u201cb\u201d, where "
              "it stands first in a name.");
}

} // namespace
} // namespace tarvix::testing
