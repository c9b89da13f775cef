#include "fields/frm_dialog.h"

namespace tarvix::fields {

FrmDialog::FrmDialog() : Form("frmDialog") {
    Caption = "Action Form";
    const char* mode = "Select either 'Find and Replace' or 'Insert Text'";
    chkFindReplace.ToolTipText = mode;
    chkAdd.ToolTipText = mode;
    chkWholeNames.ToolTipText =
        "The list has names with their extensions, one for each object. Two "
        "of them may change places.";
    cmdEditNames.ToolTipText = "Writes the present names into a list and shows it in the editor. "
                               "Change it there, save it, and press Rename here.";
    chkAddEOF.ToolTipText = "Required for Create Folder Lists and Web Browsing Lists (Also MPL's - "
                            "generated automatically)";
    chkComments.ToolTipText = "Adds missing rank numbers as comments to M3u.";
    chkRelative.ToolTipText = "So that the playlist and its music can be moved together.";
    chkFindSimilar.ToolTipText = "Adds similar file names as comments to M3u.";
    for (Control* hidden : std::initializer_list<Control*>{
             &lblFolderTree, &txtFolderTree, &chkFolderRename, &filMultiPath, &lstMulti, &chkPlus1,
             &txtDeviation, &chkAddEOF, &chkComments, &chkRelative, &chkFindSimilar, &chkWholeNames,
             &cmdEditNames, &lblProgress}) {
        hidden->Visible = false;
    }
}

} // namespace tarvix::fields
