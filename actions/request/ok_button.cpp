#include "actions/request/ok_button.h"

#include "actions/request/action_names.h"
#include "actions/request/copy_or_move_request.h"
#include "actions/request/dialog_setup.h"
#include "actions/request/other_requests.h"
#include "actions/run/report.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "session/paths/env_variables.h"
#include "session/paths/fake_roots.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <array>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kTooLong =
    "What is typed into the Destination combo box exceeds 259 characters in length. Some "
    "applications may not be able to work with files so deep in the folder structure. \r\n\r\n"
    "Microsoft says the limit is 250 but they support 259 characters in most situations. Using "
    "the short paths standard that limit CAN be greatly exceeded, but can cause issues.\r\n\r\n "
    "Would you like to continue and attempt to use the short path?";
constexpr std::string_view kNoShortPath =
    "What is typed into the Destination combo box exceeds 259 characters in length AND the folder "
    "portion does not exist. Was unable to calculate a short path to substitute.";

void CleanSpaces(Session& session) {
    auto& box = session.frmDialog.cmbDir;
    const bool isPath = session.state.strAction != "Copy" && session.state.strAction != "Move";
    const bool isRule = !isPath && session.frmDialog.optTo[3].Value;
    std::string typed = session.platform.paths.ToDrive(box.Text.Get());
    if (isRule) {
        // In a rule these are marks, not characters of a name.
        typed = text::Replace(typed, "\uF02A", "*");
        typed = text::Replace(typed, "\uF07C", "|");
    }
    box.Text = std::move(typed);
    box.Text = text::CleanSpacesInPath(box.Text.Get(), true);
}

bool ShortenDestination(Session& session) {
    auto& box = session.frmDialog.cmbDir;
    if (text::Length(box.Text.Get()) <= session::kLongPath) return true;
    if (session.MsgBox(PromptId::kDestinationTooLong, kTooLong) != session::kOk) {
        return false;
    }
    const auto shortened = session::GetShortPathNameReturnCodes(session, box.Text.Get());
    if (shortened.status < 2) {
        session.MsgBox(PromptId::kDestinationUnshortened, kNoShortPath);
        return false;
    }
    box.Text = shortened.path;
    return true;
}

void SubstituteFakeRoots(Session& session) {
    auto& box = session.frmDialog.cmbDir;
    const std::string original = box.Text;
    for (const std::string_view fake : session::kFakeRoots) {
        const auto real = session::WithoutFakeRoot(original, fake);
        if (!real) continue;
        session.MsgBox(PromptId::kDestinationReplaced,
                       box.Text.Get() + " is not a real folder, substituting the actual folder " +
                           *real);
        box.Text = *real;
    }
}

// Everything that one action leaves behind for the next.
void ResetForRun(Session& session) {
    auto& state = session.state;
    auto& action = state.action;
    state.blnRedoAfterAction = state.blnActionCancelled = false;
    action.blnErrorOccurred = action.blnPathNotFoundTried = false;
    action.intRuleNoFolder = action.intRuleOk = 0;
    action.intRuleShortSearch = action.intRuleShortReplace = 0;
    action.strFolderPrefix.clear();
    action.strCDDrives.clear();
    for (const platform::DriveInfo& drive : session.files().Drives()) {
        if (drive.type == platform::DriveType::kCdRom) action.strCDDrives.push_back(drive.path);
    }
}

struct Branch {
    std::string_view action;
    void (*run)(Session& session);
};

constexpr std::array kBranches{
    Branch{"MakeFolders", RequestMakeFolders},
    Branch{"Automated Move", RequestAutomatedMove},
    Branch{"Automated Playlist Gen", RequestAutomatedPlaylist},
    Branch{"Automated Playlist Gen Full", RequestAutomatedPlaylist},
    Branch{"Rename", RequestRename},
    Branch{"RenameAsTitle", RequestRenameAsTitle},
    Branch{"RenameFromHTMLSearch", RequestRenameFromFile},
    Branch{"RenameFromSelfSearch", RequestRenameFromFile},
    Branch{"RenameFromTextFile", RequestRenameFromFile},
    Branch{"CopyRenameAsFolderName", RequestCopyAsFolderName},
    Branch{"Copy", RequestCopyOrMove},
    Branch{"Move", RequestCopyOrMove},
};

void RunBranch(Session& session) {
    const std::string& action = session.state.strAction;
    if (IsTextGroup(action)) return RequestTextFile(session);
    const auto branch = std::ranges::find(kBranches, action, &Branch::action);
    if (branch != kBranches.end()) branch->run(session);
}

} // namespace

bool CleanDestinationBox(Session& session) {
    CleanSpaces(session);
    if (!ShortenDestination(session)) return false;
    SubstituteFakeRoots(session);
    return true;
}

void OKButton_Click(Session& session) {
    session.state.action.blnRuleFailed = false;
    session.state.bytPathChoice = session::kPathSkip;
    if (!CleanDestinationBox(session)) return;
    SetBusy(session, true);
    ResetForRun(session);
    auto& box = session.frmDialog.cmbDir;
    if (box.Text->find('%') != std::string::npos) {
        box.Text = session::RemoveEnvVarAndRestorePath(session, box.Text.Get());
    }
    RunBranch(session);
}

void CancelButton_Click(Session& session) {
    session.frmDialog.Hide();
    session.state.blnActionCancelled = true;
    session.state.blnRedoNow = false;
    session::LogTimed(session, " User cancelled the action form.");
}

} // namespace tarvix::actions
