#include "actions/request/preview.h"
#include "actions/request/read_request.h"
#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/print_rows.h"
#include "cli/summary.h"
#include "platform/native_paths.h"
#include "results/selection.h"
#include "session/user_input.h"

#include <fmt/core.h>
#include <nlohmann/json.hpp>

#include <array>
#include <ostream>
#include <utility>

namespace tarvix::cli {

namespace {

using session::InputResult;
using session::Session;

// The first word of a summary, by ActionVerb.
constexpr std::array<std::string_view, 3> kDoneWords{"Copied", "Moved", "Renamed"};

fields::Control& StartButton(Session& session, ActionVerb verb) {
    auto& form = session.frmSearch;
    if (verb == ActionVerb::kCopy) return form.cmdCopySelected;
    return verb == ActionVerb::kMove ? form.cmdMoveSelected : form.cmdRenameSelected;
}

// Enters values in turn, until one is refused.
class Entry {
  public:
    explicit Entry(Session& session) : session_(session) {}
    Entry& Set(fields::Control& control, std::string_view value) {
        if (done_) done_ = session::UserSet(session_, control, value);
        return *this;
    }
    const InputResult& Done() const { return done_; }

  private:
    Session& session_;
    InputResult done_;
};

InputResult ChooseLists(Session& session, const std::vector<std::string>& lists) {
    auto& field = session.frmDialog.filMultiPath;
    field.SelectNone();
    Entry entry(session);
    for (const std::string& list : lists) {
        entry.Set(field, list);
        if (entry.Done()) continue;
        return std::unexpected(
            fmt::format("There is no list \"{}\" in the data folder {}.", list,
                        session.platform.paths.ToNative(session.state.strDataFolder)));
    }
    return {};
}

InputResult FillPlaces(Session& session, const ActionRequest& request) {
    auto& form = session.frmDialog;
    const std::array<fields::CheckBox*, 4> choices{&form.chkSkipAll, &form.chkAsk,
                                                   &form.chkOverWrite, &form.chkRename};
    Entry entry(session);
    entry.Set(form.optTo[request.way], "1").Set(form.optStructure[request.structure], "1");
    entry.Set(*choices[static_cast<std::size_t>(request.duplicateChoice)], "1");
    if (request.renameText) entry.Set(form.txtRename, *request.renameText);
    if (request.renameAtBeginning) entry.Set(form.chkRenameBeg, "1");
    if (request.way == kUpTheTree) {
        entry.Set(form.txtFolderTree, fmt::format("{}", request.levels));
        entry.Set(form.chkFolderRename, request.withFolderNames ? "1" : "0");
    } else {
        entry.Set(form.cmbDir, request.destination);
    }
    if (!entry.Done() || request.lists.empty()) return entry.Done();
    return ChooseLists(session, request.lists);
}

InputResult FillNames(Session& session, const ActionRequest& request) {
    auto& form = session.frmDialog;
    Entry entry(session);
    entry.Set(request.insertedText ? form.chkAdd : form.chkFindReplace, "1");
    entry.Set(form.optNamePortion[request.portion], "1");
    if (request.insertedText) {
        entry.Set(form.txtAdd, *request.insertedText);
        entry.Set(request.insertAtBeginning ? form.chkAddBeg : form.chkAddEnd, "1");
    } else {
        entry.Set(form.txtFind, request.soughtText).Set(form.txtReplace, request.newText);
        entry.Set(form.optOnceVsAll[request.onlyOnce ? 0 : 1], "1");
    }
    return entry.Done();
}

nlohmann::ordered_json EntryAsJson(Session& session, const actions::PreviewEntry& entry) {
    const auto& paths = session.platform.paths;
    const std::string& path = session.selection->strSelPath[entry.index];
    return {{"Object", path},
            {"NativePath", paths.ToNative(path)},
            {"NewPath", entry.strNewPath},
            {"NewNativePath",
             entry.strNewPath.empty() ? std::string() : paths.ToNative(entry.strNewPath)},
            {"Verdict", actions::VerdictText(entry)}};
}

// Whether it would be done as asked, as the exit code of the action itself counts it.
bool IsDone(actions::Verdict verdict) {
    using actions::Verdict;
    return verdict == Verdict::kCopy || verdict == Verdict::kMove || verdict == Verdict::kRename ||
           verdict == Verdict::kDuplicateRename || verdict == Verdict::kDuplicateOverwrite ||
           verdict == Verdict::kDuplicateSkip || verdict == Verdict::kUnchanged;
}

// Prints what would happen; gives the exit code.
int PrintPreview(Host& host, Session& session, bool asJson) {
    const auto result = actions::Preview(session);
    if (!result.refusal.empty()) {
        Complain(host, result.refusal);
        return kBadRequest;
    }
    const auto& paths = session.platform.paths;
    bool isAll = true;
    for (const auto& entry : result.entries) {
        isAll = isAll && IsDone(entry.verdict);
        if (asJson) {
            PrintJson(EntryAsJson(session, entry), host.out);
            continue;
        }
        host.out << actions::VerdictText(entry) << '\t'
                 << paths.ToNative(session.selection->strSelPath[entry.index]) << '\t'
                 << (entry.strNewPath.empty() ? std::string() : paths.ToNative(entry.strNewPath))
                 << '\n';
    }
    host.out.flush();
    return isAll ? kDone : kSomeFailed;
}

// One run of the command, between the search and its end.
class ActionRun {
  public:
    ActionRun(Host& host, const ActionRequest& request) : host_(host), request_(request) {}

    // Fills in the action window and presses OK. A refusal, told by the window's own message,
    // leaves it open: then it is cancelled.
    void InWindow(Session& session) {
        auto& form = session.frmDialog;
        auto done = request_.verb == ActionVerb::kRename ? FillNames(session, request_)
                                                         : FillPlaces(session, request_);
        if (!done) {
            Complain(host_, done.error());
        } else if (request_.dryRun) {
            code_ = PrintPreview(host_, session, request_.json);
        } else {
            copies_ = actions::ReadRequest(session).Places();
            auto clicked = session::UserClick(session, form.OKButton);
            if (!clicked) Complain(host_, clicked.error());
        }
        if (form.IsShown()) (void)session::UserClick(session, form.CancelButton);
        form.Hide();
    }

    // After the action on so many selected objects; gives the exit code.
    int End(Session& session, std::int64_t selected) {
        if (request_.dryRun) return code_;
        if (session.state.blnActionCancelled) return kBadRequest;
        return Summarize(host_, Done(), session.state.lastAction, selected * copies_);
    }

    std::string_view Done() const { return kDoneWords[static_cast<std::size_t>(request_.verb)]; }

  private:
    Host& host_;
    const ActionRequest& request_;
    std::int64_t copies_ = 1; // of each object
    int code_ = kBadRequest;
};

} // namespace

int Run(Host& host, const platform::Platform& machine, const ActionRequest& typed) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(typed.criteria)) return kBadRequest;
    ActionRequest request = typed;
    if (request.way == kToFolder) request.destination = finding.Paths().ToDrive(typed.destination);
    if (request.confirmed) finding.Prompts().ConfirmActions();
    ActionRun action(host, request);
    finding.Prompts().SetDialogFiller([&](Session& session) { action.InWindow(session); });
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const int code = finding.Search(program, request.criteria, request.answers);
        if (code == kBadRequest) return code;
        Session& session = program.Session();
        return finding.ActOnAll(
            session, code, StartButton(session, request.verb), action.Done(), request.dryRun,
            [&](std::int64_t selected) { return action.End(session, selected); });
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
