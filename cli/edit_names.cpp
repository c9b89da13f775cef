#include "cli/edit_names.h"

#include "actions/request/edit_names.h"
#include "actions/request/preview.h"
#include "cli/command_prompts.h"
#include "cli/messages.h"
#include "cli/print_preview.h"
#include "cli/request.h"
#include "cli/summary.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "results/selection.h"
#include "session/session.h"
#include "session/user_input.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>
#include <istream>
#include <ostream>

namespace tarvix::cli {

namespace {

using session::Session;

// One list of names on its way through the editor.
class Editing {
  public:
    Editing(Host& host, Session& session, CommandPrompts& prompts, const ActionRequest& request)
        : host_(host), session_(session), prompts_(prompts), request_(request) {}

    std::optional<int> Run();

  private:
    bool Write();
    bool Edit();
    std::optional<int> Apply();
    bool IsConfirmed(std::int64_t changes, int& code);
    bool IsEdited();
    // It stays where the user's work is in it.
    void LeaveList();
    void RemoveList() { (void)session_.files().DeleteFile(list_, false); }

    Host& host_;
    Session& session_;
    CommandPrompts& prompts_;
    const ActionRequest& request_;
    std::string list_;  // drive path
    std::string first_; // as it was written
};

std::optional<int> Editing::Run() {
    if (!Write()) return kBadRequest;
    if (!Edit()) {
        LeaveList();
        return kBadRequest;
    }
    if (!IsEdited()) {
        RemoveList();
        const std::int64_t count = session_.selection->lngSelTop + 1;
        return Summarize(host_, "Renamed", {.skipped = count, .unchanged = count}, count);
    }
    const auto code = Apply();
    if (code || !session_.state.lastAction.IsAsAsked()) {
        LeaveList();
    } else {
        RemoveList();
    }
    return code;
}

bool Editing::Write() {
    auto& form = session_.frmDialog;
    auto done = session::UserSet(session_, form.chkWholeNames, "1");
    if (!done) {
        Complain(host_, done.error());
        return false;
    }
    const auto written = actions::WritePresentNames(session_);
    if (!written) {
        Complain(host_, fmt::format("The list of names could not be written, so nothing was "
                                    "renamed. {}",
                                    session_.Shown(written.error())));
        return false;
    }
    list_ = *written;
    first_ = actions::ContentOf(session_, list_);
    done = session::UserSet(session_, form.cmbDir, list_);
    if (!done) Complain(host_, done.error());
    return done.has_value();
}

bool Editing::Edit() {
    if (!host_.edit) {
        Complain(host_, "There is no editor here, so nothing was renamed.");
        return false;
    }
    const auto edited = host_.edit(session_.platform.paths.ToNative(list_));
    if (!edited) Complain(host_, fmt::format("{} Nothing was renamed.", edited.error()));
    return edited.has_value();
}

std::optional<int> Editing::Apply() {
    const auto result = actions::Preview(session_);
    int code = PrintPreview(host_, session_, result, PreviewRows::kChanges, request_.json);
    if (request_.dryRun || !result.refusal.empty()) return code;
    const auto changes = std::ranges::count_if(result.entries, [](const auto& entry) {
        return entry.verdict != actions::Verdict::kUnchanged;
    });
    if (!request_.confirmed && !IsConfirmed(changes, code)) return code;
    prompts_.ConfirmActions();
    const auto clicked = session::UserClick(session_, session_.frmDialog.OKButton);
    if (clicked) return std::nullopt;
    Complain(host_, clicked.error());
    return kBadRequest;
}

bool Editing::IsConfirmed(std::int64_t changes, int& code) {
    host_.err << fmt::format("Rename {} {} as shown? [y/N] ", text::Format(changes, "#,##0"),
                             changes == 1 ? "object" : "objects")
              << std::flush;
    std::string answer;
    const bool isAnswered = static_cast<bool>(std::getline(host_.in, answer));
    if (isAnswered && (answer == "y" || answer == "Y" || answer == "yes")) return true;
    host_.err << (isAnswered ? "" : "\n") << "Nothing was renamed.\n";
    code = isAnswered ? kBadRequest : kUnanswered;
    return false;
}

bool Editing::IsEdited() {
    return actions::ContentOf(session_, list_) != first_;
}

void Editing::LeaveList() {
    if (!IsEdited()) return RemoveList();
    const std::string native = session_.platform.paths.ToNative(list_);
    Tell(host_, fmt::format("The list is kept: {}. To use it, give --from-list and that name with "
                            "--whole-names.",
                            native));
}

} // namespace

std::optional<int> EditNames(Host& host, Session& session, CommandPrompts& prompts,
                             const ActionRequest& request) {
    return Editing(host, session, prompts, request).Run();
}

} // namespace tarvix::cli
