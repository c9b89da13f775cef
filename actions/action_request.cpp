#include "actions/action_request.h"

#include "actions/duplicate_loops.h"
#include "platform/dir.h"
#include "platform/environment.h"
#include "platform/native_paths.h"
#include "results/selection.h"
#include "session/session.h"
#include "session/short_path.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/format.h"
#include "text/paths.h"

#include <algorithm>

namespace tarvix::actions {

namespace {

using session::Session;

constexpr int kConfirm = session::kOkCancel + session::kInformation;
constexpr int kWarn = session::kOkCancel + session::kExclamation + session::kSecondDefault;
constexpr std::size_t kMostErrorsTold = 10;

std::string Objects(std::int64_t count) {
    return text::Format(count, "#,##0") + (count == 1 ? " object" : " objects");
}

void SetBusy(Session& session, bool busy) {
    auto& form = session.frmDialog;
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &form.OKButton, &form.CancelButton, &form.cmdBrowse, &form.cmbDir, &form.chkSkipAll,
             &form.optTo[0], &form.optStructure[0]}) {
        control->Enabled = !busy;
    }
    form.lblBusy.Caption = "Busy";
    form.lblBusy.Visible = busy;
    form.prgBytes.Visible = busy;
    form.cmdStop.Visible = busy;
}

// Copying folders together with what lies in them can copy the same files twice.
bool ConfirmManyFolders(Session& session) {
    const auto& form = session.frmSearch;
    const auto& isFile = session.selection->blnSelIsFile;
    const auto folders = std::ranges::count(isFile, false);
    const auto files = std::ranges::count(isFile, true);
    const bool mixed = form.chkIncludeSubFolders.Value == 1 && form.optFilesVsDirs.Chosen() == 2 &&
                       (folders >= 2 || (folders >= 1 && files >= 1));
    if (!mixed) return true;
    return session.MsgBox("ARE YOU REALLY SURE???\r\n\r\nCopying multiple folders in this mode, "
                          "may make many duplicate copies!",
                          kWarn) == session::kOk;
}

// "\USERS\ALL USERS" and its short form only stand in for ProgramData.
void SubstituteFakeRoot(Session& session, std::string_view fake, std::string_view original) {
    if (!text::Upper(text::Mid(original, 3)).starts_with(fake)) return;
    auto& box = session.frmDialog.cmbDir;
    const std::string real = std::string(text::Left(original, 2)) + "\\ProgramData" +
                             std::string(text::Mid(original, 3 + text::Length(fake)));
    session.MsgBox(box.Text.Get() + " is not a real folder, substituting the actual folder " +
                   real);
    box.Text = real;
}

// Steps that bring the typed destination into its final form. False stops with the window open.
bool CleanDestination(Session& session) {
    auto& box = session.frmDialog.cmbDir;
    box.Text = text::CleanSpacesInPath(session.platform.paths.ToDrive(box.Text.Get()), true);
    if (text::Length(box.Text.Get()) > session::kLongPath) {
        const int answer = session.MsgBox(
            "What is typed into the Destination combo box exceeds 259 characters in length. Some "
            "applications may not be able to work with files so deep in the folder structure. "
            "\r\n\r\nMicrosoft says the limit is 250 but they support 259 characters in most "
            "situations. Using the short paths standard that limit CAN be greatly exceeded, but "
            "can cause issues.\r\n\r\n Would you like to continue and attempt to use the short "
            "path?",
            session::kOkCancel + session::kCritical);
        if (answer != session::kOk) return false;
        const auto shortened = session::GetShortPathNameReturnCodes(session, box.Text.Get());
        if (shortened.status < 2) {
            session.MsgBox("What is typed into the Destination combo box exceeds 259 characters in "
                           "length AND the folder portion does not exist. Was unable to calculate "
                           "a short path to substitute.",
                           session::kCritical);
            return false;
        }
        box.Text = shortened.path;
    }
    const std::string original = box.Text;
    SubstituteFakeRoot(session, "\\USERS\\ALL USERS", original);
    SubstituteFakeRoot(session, "\\USERS\\ALLUSE~1", original);
    box.Text = platform::ExpandVariables(session.platform.environment, box.Text.Get());
    return true;
}

// A sentence on why the place can't be used; empty when it can.
std::string WhyNotAPlace(Session& session, const std::string& place) {
    if (place.find_first_of("*|") != std::string::npos) {
        return "There is an asterick '*' or bar '|' in the destination path.";
    }
    if (text::Length(place) >= 4 &&
        !platform::DirName(session.files(), place, platform::kDirFiles).empty()) {
        return place + " is a file, you can not copy objects inside it.";
    }
    if (text::Length(place) < 2 || place.find('\\') == std::string::npos) {
        return "It appears you did not select a destination folder. ";
    }
    return {};
}

bool ConfirmCopy(Session& session) {
    const auto& form = session.frmDialog;
    const std::string question = "Are you sure you want to " + form.lblMain.Caption.Get() + " " +
                                 form.cmbDir.Text.Get() + " using folder structure - None ?";
    return session.MsgBox(question, kConfirm) == session::kOk;
}

void ReportActionResult(Session& session) {
    const auto& totals = session.state.lastAction;
    if (totals.failed == 0) return;
    std::string told = Objects(totals.failed) + " could not be copied. " + Objects(totals.done) +
                       " copied, " + Objects(totals.skipped) + " skipped as duplicates.\r\n";
    for (std::size_t i = 0; i < std::min(totals.errors.size(), kMostErrorsTold); ++i) {
        told += "\r\n" + totals.errors[i];
    }
    told += "\r\n\r\nSee the action log for more details.";
    session.MsgBox(told, session::kExclamation);
}

void BackToWindow(Session& session) {
    SetBusy(session, false);
    frmDialog_Activate(session);
}

void RunCopy(Session& session) {
    session::LogTimed(session, " User selected to Copyobjects to folder: " +
                                   session.frmDialog.cmbDir.Text.Get() + " Using One Location");
    session::LogTimed(session, " User selected to skip all duplicates at start.");
    SkipAllDuplicates(session);
    session.frmDialog.Hide();
    SetBusy(session, false);
    ReportActionResult(session);
}

} // namespace

void cmdCopySelected_Click(Session& session) {
    session.state.strAction = "Copy";
    session.state.blnActionCancelled = false;
    session.state.lastAction = {};
    results::BuildFileArray(session);
    if (!ConfirmManyFolders(session)) return;
    if (session.selection->lngSelTop < 0) {
        session.MsgBox("Nothing is selected.");
        return;
    }
    session.frmDialog.lblMain.Caption = "Copy Files or Folders to:";
    session::LogTimed(session, " User clicked on the Copy Button which opened the Action form. ");
    frmDialog_Activate(session);
    session.ShowModal(session.frmDialog);
    session.state.strPrevAction = session.state.strAction;
    session.events.Raise(session, "frmSearch.Form_Activate");
}

void frmDialog_Activate(Session& session) {
    auto& form = session.frmDialog;
    session.state.strCurrentForm = "frmDialog";
    if (session.state.blnPreloadDialog) {
        form.Hide();
        session.state.strLastForm = "frmDialog";
        return;
    }
    form.lblStatus.Caption = "";
    SetBusy(session, false);
    const auto count = session.selection->lngSelTop + 1;
    form.OKButton.Caption = "&Copy " + Objects(count);
}

void OKButton_Click(Session& session) {
    session.state.action.blnErrorOccurred = false;
    if (!CleanDestination(session)) return;
    SetBusy(session, true);
    const std::string refusal = WhyNotAPlace(session, session.frmDialog.cmbDir.Text.Get());
    if (!refusal.empty()) {
        session.MsgBox(refusal);
        return BackToWindow(session);
    }
    if (!ConfirmCopy(session)) return BackToWindow(session);
    if (session.selection->lngSelTop < 0) {
        session.MsgBox("nothing was selected");
        return BackToWindow(session);
    }
    RunCopy(session);
}

void CancelButton_Click(Session& session) {
    session.frmDialog.Hide();
    session.state.blnActionCancelled = true;
    session::LogTimed(session, " User cancelled the action form.");
}

void AddActionEvents(session::EventTable& events) {
    events.On("frmSearch.cmdCopySelected_Click", cmdCopySelected_Click);
    events.On("frmDialog.OKButton_Click", OKButton_Click);
    events.On("frmDialog.CancelButton_Click", CancelButton_Click);
    events.On("frmDialog.cmdStop_Click", [](Session& session, const session::EventArgs&) {
        session.state.blnStopAction = true;
    });
}

} // namespace tarvix::actions
