#include "fields/frm_search.h"

namespace tarvix::fields {

FrmSearch::FrmSearch() : Form("frmSearch") {
    for (Control* hidden : std::initializer_list<Control*>{
             &txtSize1, &txtSize2, &cboSize, &cboDate, &lblDate1, &lbldDateThru, &lblDate2,
             &txtDate1, &txtDate2, &lblDateType, &lblTargetPath, &cboTargetPath, &lblDetailedStatus,
             &lblBatch, &mnuPlayListWarning, &mnuShortcutsWarning}) {
        hidden->Visible = false;
    }
    cmdEditPlayList.ToolTipText =
        "Duplicate file finder by similar name. Button makes changes you selected by editting "
        "PlayList. Also deletes selected files. Rename dup files where (Year-Rank) is missing.";
    mnuSearch_DateType[0].Checked = true;
    lblTotalSize.ToolTipText = "Total Size for all File objects (Folders listed are not included). "
                               "**When red it is an guess when files over 2 gb exist.**";
}

} // namespace tarvix::fields
