#include "fields/frm_search.h"

namespace tarvix::fields {

FrmSearch::FrmSearch() : Form("frmSearch") {
    for (Control* hidden : std::initializer_list<Control*>{
             &txtSize1, &txtSize2, &cboSize, &cboDate, &lblDate1, &lbldDateThru, &lblDate2,
             &lblDateType, &lblTargetPath, &cboTargetPath, &lblDetailedStatus,
             &mnuShortcutsWarning}) {
        hidden->Visible = false;
    }
    mnuSearch_DateType[0].Checked = true;
    lblTotalSize.ToolTipText = "Total Size for all File objects (Folders listed are not included). "
                               "**When red it is an guess when files over 2 gb exist.**";
}

} // namespace tarvix::fields
