#pragma once

#include "fields/frm_context_menu.h"
#include "fields/frm_dialog.h"
#include "fields/frm_options.h"
#include "fields/frm_outcome.h"
#include "fields/frm_search.h"
#include "fields/prompt_forms.h"

#include <array>
#include <string_view>

namespace tarvix::fields {

// Every window of the program, one record each.
struct Forms {
    FrmSearch frmSearch;
    FrmDialog frmDialog;
    FrmForChar frmForChar;
    FrmTrailingSp frmTrailingSp;
    FrmAllUsers frmAllUsers;
    FrmSelectDate frmSelectDate;
    FrmProgress frmProgress;
    FrmAsk frmAsk;
    FrmAsk259 frmAsk259;
    FrmOverrideDialog frmOverrideDialog;
    FrmOverrideRecycleFail frmOverrideRecycleFail;
    FrmPreview frmPreview;
    FrmUnread frmUnread;
    FrmRuns frmRuns;
    FrmWelcome frmWelcome;
    FrmNumbers frmNumbers;
    FrmBatch frmBatch;
    FrmShortcutWarning frmShortcutWarning;
    FrmLinkChanges frmLinkChanges;
    FrmLinkTable frmLinkTable;
    FrmContextMenu frmContextMenu;
    FrmOpenWith frmOpenWith;
    FrmOptions frmOptions;
    FrmOutcome frmOutcome;

    const std::array<Form*, 24> all{&frmSearch,
                                    &frmDialog,
                                    &frmForChar,
                                    &frmTrailingSp,
                                    &frmAllUsers,
                                    &frmSelectDate,
                                    &frmProgress,
                                    &frmAsk,
                                    &frmAsk259,
                                    &frmOverrideDialog,
                                    &frmOverrideRecycleFail,
                                    &frmPreview,
                                    &frmUnread,
                                    &frmRuns,
                                    &frmWelcome,
                                    &frmNumbers,
                                    &frmBatch,
                                    &frmShortcutWarning,
                                    &frmLinkChanges,
                                    &frmLinkTable,
                                    &frmContextMenu,
                                    &frmOpenWith,
                                    &frmOptions,
                                    &frmOutcome};

    // By name, without regard to case; null when there is none.
    Form* Find(std::string_view name) const;
};

} // namespace tarvix::fields
