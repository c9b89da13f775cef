#include "actions/request/request_sentence.h"

#include "text/characters.h"
#include "text/format.h"

#include <fmt/core.h>

#include <array>
#include <string_view>

namespace tarvix::actions {

namespace {

constexpr std::array<std::string_view, 4> kStructures{
    ", without their folders", ", at the same place of its drive",
    ", in their folders below the search location", ", in their folders and drives"};

struct DuplicateChoice {
    const fields::CheckBox fields::FrmDialog::*box;
    std::string_view told;
};
constexpr std::array<DuplicateChoice, 4> kDuplicates{
    {{&fields::FrmDialog::chkAsk, " Each duplicate is asked about."},
     {&fields::FrmDialog::chkSkipAll, " Duplicates are skipped."},
     {&fields::FrmDialog::chkRename, " Duplicates are renamed."},
     {&fields::FrmDialog::chkOverWrite, " Duplicates are overwritten."}}};

std::string Renaming(const fields::FrmDialog& form) {
    const std::string& added = form.txtAdd.Text;
    const std::string& sought = form.txtFind.Text;
    if (form.chkAdd.Value == 1) {
        if (added.empty()) return ": no text to insert yet.";
        const bool atEnd = form.chkAddEnd.Value == 1;
        return fmt::format(": \u201c{}\u201d goes {}.", added,
                           atEnd ? "to the end" : "to the beginning");
    }
    if (sought.empty()) return ": no text to find yet.";
    const bool all = form.optOnceVsAll.Chosen() == 1;
    return fmt::format(": \u201c{}\u201d becomes \u201c{}\u201d, {}.", sought,
                       form.txtReplace.Text.Get(),
                       all ? "wherever it stands in a name" : "where it stands first in a name");
}

std::string Where(const fields::FrmDialog& form, const std::string& place) {
    const std::size_t lists = form.lstMulti.Items().size();
    switch (form.optTo.Chosen()) {
    case 1:
        if (lists == 0) return " into the locations of a list, none yet";
        return fmt::format(" into {} {}", text::Format(lists, "#,##0"),
                           lists == 1 ? "location" : "locations");
    case 2:
        return fmt::format(" up the folder tree by {}", form.txtFolderTree.Text.Get());
    case 3:
        return place.empty() ? " by the rule above" : fmt::format(" by the rule {}", place);
    default:
        return place.empty() ? " to the place above" : fmt::format(" to {}", place);
    }
}

std::string_view Structure(const fields::FrmDialog& form) {
    const int chosen = form.optStructure.Chosen();
    const bool matters = form.fraStructure.Visible && form.optTo.Chosen() < 2;
    return matters && chosen >= 0 ? kStructures[static_cast<std::size_t>(chosen)] : "";
}

std::string_view Duplicates(const fields::FrmDialog& form) {
    if (!form.fraDuplicates.Visible) return {};
    for (const auto& [box, told] : kDuplicates) {
        if ((form.*box).Value == 1) return told;
    }
    return " Nothing is chosen for duplicates, so nothing will be done.";
}

} // namespace

std::string RequestSentence(const fields::FrmDialog& form, const std::string& place) {
    const std::string what = text::Replace(form.OKButton.Caption.Get(), "&", "");
    if (form.fraRenameOnly.Visible) return fmt::format("{}{}", what, Renaming(form));
    if (!form.cmbDir.Visible && !form.optTo[0].Visible && !form.optTo[2].Visible) {
        return fmt::format("{}.", what);
    }
    return fmt::format("{}{}{}.{}", what, Where(form, place), Structure(form), Duplicates(form));
}

} // namespace tarvix::actions
