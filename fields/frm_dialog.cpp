#include "fields/frm_dialog.h"

namespace tarvix::fields {

FrmDialog::FrmDialog() : Form("frmDialog") {
    Caption = "Action Form";
    const char* mode = "Select either 'Find and Replace' or 'Insert Text'";
    chkFindReplace.ToolTipText = mode;
    chkAdd.ToolTipText = mode;
    chkAddEOF.ToolTipText = "Required for Create Folder Lists and Web Browsing Lists (Also MPL's - "
                            "generated automatically)";
    chkComments.ToolTipText = "Adds missing rank numbers as comments to M3u.";
    chkRelative.ToolTipText = "So that the playlist and its music can be moved together.";
    chkFindSimilar.ToolTipText = "Adds similar file names as comments to M3u.";
    for (Control* hidden : std::initializer_list<Control*>{
             &lblFolderTree, &txtFolderTree, &chkFolderRename, &filMultiPath, &lstMulti, &chkPlus1,
             &txtDeviation, &chkAddEOF, &chkComments, &chkRelative, &chkFindSimilar,
             &lblProgress}) {
        hidden->Visible = false;
    }
}

} // namespace tarvix::fields
