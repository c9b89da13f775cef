#include "forms/selection_actions.h"

#include "fields/frm_search.h"

#include <algorithm>
#include <array>

namespace tarvix::forms {

namespace {

// What these do they do to all that is selected; with nothing, their routines would only say so.
constexpr std::array<std::string_view, 18> kOnSelection{"cmdCopySelected",
                                                        "cmdMoveSelected",
                                                        "cmdRenameSelected",
                                                        "cmdDeleteSelected",
                                                        "mnuNamesTxt",
                                                        "mnuPathNamesTxt",
                                                        "mnuPathNamesMPL",
                                                        "mnuNamesM3u",
                                                        "mnuPathNamesM3u",
                                                        "mnuTools_TargetPaths",
                                                        "mnuTools_CreateHtml",
                                                        "mnuTools_FolderSummary",
                                                        "mnuRenameSelFromFile",
                                                        "mnuRenameSelFromHTMLSearch",
                                                        "mnuRenameSelFromSelfSearch",
                                                        "mnuRenameSelFromTitle",
                                                        "mnuTools_BypassMPL",
                                                        "mnuTools_NewSearchFor"};

} // namespace

std::span<const std::string_view> SelectionActions() {
    return kOnSelection;
}

bool HasSelection(const fields::FrmSearch& form) {
    return form.lblNumOfFilesSelected.Caption.Get() != "0" ||
           form.lblNumOfDirsSelected.Caption.Get() != "0";
}

QString WhyNothingToActOn(const fields::FrmSearch& form, std::string_view control) {
    const bool actsOnIt = std::ranges::find(kOnSelection, control) != kOnSelection.end();
    return actsOnIt && !HasSelection(form) ? QString("Select objects in the list first")
                                           : QString();
}

} // namespace tarvix::forms
