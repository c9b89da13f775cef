#include "forms/action_sentence.h"

#include "forms/text_conversion.h"

#include <array>

namespace tarvix::forms {

namespace {

constexpr std::array<const char*, 4> kStructures{
    ", without their folders", ", at the same place of its drive",
    ", in their folders below the search location", ", in their folders and drives"};

struct DuplicateChoice {
    const fields::CheckBox fields::FrmDialog::*box;
    const char* told;
};
constexpr std::array<DuplicateChoice, 4> kDuplicates{
    {{&fields::FrmDialog::chkAsk, " Each duplicate is asked about."},
     {&fields::FrmDialog::chkSkipAll, " Duplicates are skipped."},
     {&fields::FrmDialog::chkRename, " Duplicates are renamed."},
     {&fields::FrmDialog::chkOverWrite, " Duplicates are overwritten."}}};

QString Quoted(const std::string& text) {
    return QString("\u201c%1\u201d").arg(Shown(text));
}

QString Renaming(const fields::FrmDialog& form) {
    const bool inserts = form.chkAdd.Value == 1;
    if (inserts ? form.txtAdd.Text->empty() : form.txtFind.Text->empty()) {
        return inserts ? ": no text to insert yet." : ": no text to find yet.";
    }
    if (inserts) {
        return QString(": %1 goes %2.")
            .arg(Quoted(form.txtAdd.Text.Get()),
                 form.chkAddEnd.Value == 1 ? "to the end" : "to the beginning");
    }
    return QString(": %1 becomes %2, %3.")
        .arg(Quoted(form.txtFind.Text.Get()), Quoted(form.txtReplace.Text.Get()),
             form.optOnceVsAll.Chosen() == 1 ? "wherever it stands in a name"
                                             : "where it stands first in a name");
}

QString Where(const fields::FrmDialog& form) {
    const QString place = Shown(form.cmbDir.Text.Get());
    switch (form.optTo.Chosen()) {
    case 1: {
        const auto count = static_cast<qlonglong>(form.lstMulti.Items().size());
        if (count == 0) return " into the locations of a list, none yet";
        return QString(" into %1 %2")
            .arg(WithThousands(QString::number(count)), count == 1 ? "location" : "locations");
    }
    case 2:
        return QString(" up the folder tree by %1").arg(Shown(form.txtFolderTree.Text.Get()));
    case 3:
        return place.isEmpty() ? " by the rule above" : " by the rule " + place;
    default:
        return place.isEmpty() ? " to the place above" : " to " + place;
    }
}

QString Structure(const fields::FrmDialog& form) {
    const int chosen = form.optStructure.Chosen();
    const bool matters = form.fraStructure.Visible && form.optTo.Chosen() < 2;
    return matters && chosen >= 0 ? kStructures[static_cast<std::size_t>(chosen)] : "";
}

QString Duplicates(const fields::FrmDialog& form) {
    if (!form.fraDuplicates.Visible) return {};
    for (const auto& [box, told] : kDuplicates) {
        if ((form.*box).Value == 1) return told;
    }
    return " Nothing is chosen for duplicates, so nothing will be done.";
}

} // namespace

QString ActionSentence(const fields::FrmDialog& form) {
    const QString what = PlainCaption(form.OKButton.Caption.Get());
    if (form.fraRenameOnly.Visible) return what + Renaming(form);
    if (!form.cmbDir.Visible && !form.optTo[0].Visible && !form.optTo[2].Visible) return what + ".";
    return what + Where(form) + Structure(form) + "." + Duplicates(form);
}

} // namespace tarvix::forms
