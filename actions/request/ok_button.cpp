#include "actions/request/ok_button.h"

#include "actions/place/action_run.h"
#include "actions/request/action_names.h"
#include "actions/request/copy_or_move_request.h"
#include "actions/request/dialog_setup.h"
#include "actions/request/other_requests.h"
#include "actions/request/read_request.h"
#include "actions/run/outcome_recorder.h"
#include "platform/native_paths.h"
#include "results/selection.h"
#include "session/paths/env_variables.h"
#include "session/paths/fake_roots.h"
#include "session/paths/missing_folders.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/wordings.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvix::actions {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kNoShortPath =
    "What is typed into the Destination combo box exceeds 259 characters in length AND the folder "
    "portion does not exist. Was unable to calculate a short path to substitute.";

// The destination box of this session while its text is brought into its final form, step by
// step: each step shows.
class Typed {
  public:
    Typed(Session& session, std::string text) : session_(session), text_(std::move(text)) {}

    bool Finish(bool isRule) {
        CleanSpaces(isRule);
        if (!Shorten()) return false;
        SubstituteFakeRoots();
        return true;
    }
    void ExpandVariables() {
        if (text_.contains('%')) Set(session::RemoveEnvVarAndRestorePath(session_, text_));
    }
    const std::string& Text() const { return text_; }
    // Those that were missing, the topmost first.
    std::vector<std::string>& MadeFolders() { return made_; }

  private:
    void Set(std::string text) {
        text_ = std::move(text);
        session_.frmDialog.cmbDir.Text = text_;
    }
    void CleanSpaces(bool isRule);
    bool Shorten();
    void SubstituteFakeRoots();

    Session& session_;
    std::string text_;
    std::vector<std::string> made_;
};

void Typed::CleanSpaces(bool isRule) {
    std::string text = session_.platform.paths.ToDrive(text_);
    if (isRule) {
        // In a rule these are marks, not characters of a name.
        text = text::Replace(text, "\uF02A", "*");
        text = text::Replace(text, "\uF07C", "|");
    }
    Set(text::CleanSpacesInPath(text, true));
}

bool Typed::Shorten() {
    if (!session::ExceedsLimit(session_, text_, session::kLongPath)) return true;
    if (session_.MsgBox(PromptId::kDestinationTooLong,
                        Worded(session_, session::Wording::kDestinationTooLong)) != session::kOk) {
        return false;
    }
    auto shortened = session::GetShortPathNameReturnCodes(session_, text_);
    made_ = std::move(shortened.made);
    if (shortened.status < 2) {
        session_.MsgBox(PromptId::kDestinationUnshortened, kNoShortPath);
        return false;
    }
    Set(std::move(shortened.path));
    return true;
}

void Typed::SubstituteFakeRoots() {
    const std::string original = text_;
    for (const std::string_view fake : session::kFakeRoots) {
        auto real = session::WithoutFakeRoot(original, fake);
        if (!real) continue;
        session_.MsgBox(PromptId::kDestinationReplaced,
                        fmt::format("{} is not a real folder, substituting the actual folder {}",
                                    session_.Shown(text_), session_.Shown(*real)));
        Set(std::move(*real));
    }
}

struct Branch {
    std::string_view action;
    void (*run)(Session& session, ActionRun& run);
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

void RunBranch(Session& session, ActionRun& run) {
    const std::string& action = run.request.strAction;
    if (IsTextGroup(action)) return RequestTextFile(session, run);
    const auto branch = std::ranges::find(kBranches, action, &Branch::action);
    if (branch != kBranches.end()) branch->run(session, run);
}

} // namespace

void PressOk(Session& session, const fields::FrmDialog& form, OutcomeSink* sink) {
    auto& state = session.state;
    const bool isRule = IsCopyOrMove(state.strAction) && form.optTo[3].Value;
    state.bytPathChoice = session::kPathSkip;
    Typed typed(session, form.cmbDir.Text);
    // A request that came to nothing leaves nothing behind.
    if (!typed.Finish(isRule)) return session::RemoveMadeFolders(session, typed.MadeFolders());
    ShowBusy(session, true);
    state.blnRedoAfterAction = state.blnActionCancelled = state.blnErrorOccurred = false;
    typed.ExpandVariables();
    const ActionRequest request =
        ReadRequest(form, session.platform.paths, state.strAction, typed.Text());
    std::optional<OutcomeRecorder> recorder;
    const bool isLookedAt = session.outcomes != nullptr && !state.IsBatch();
    if (sink == nullptr && isLookedAt) sink = &recorder.emplace(session, request);
    ActionRun run(session, request, sink);
    run.madeFolders = std::move(typed.MadeFolders());
    RunBranch(session, run);
    session::RemoveMadeFolders(session, run.madeFolders);
    // The rows of what was renamed before a cancel are old.
    if (session.selection->isRenamed) state.blnRedoAfterAction = true;
}

void OKButton_Click(Session& session) {
    PressOk(session, session.frmDialog, nullptr);
}

void CancelButton_Click(Session& session) {
    session.frmDialog.Hide();
    session.state.blnActionCancelled = true;
    session.state.blnRedoNow = false;
    if (session.selection->isRenamed) session.state.blnRedoAfterAction = true;
    session::LogTimed(session, " User cancelled the action form.");
}

} // namespace tarvix::actions
