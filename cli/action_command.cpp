#include "actions/request/preview.h"
#include "actions/request/read_request.h"
#include "cli/commands.h"
#include "cli/edit_names.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/print_preview.h"
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
using session::PromptId;
using session::Session;

// The first word of a summary, by ActionVerb.
constexpr std::array<std::string_view, 3> kDoneWords{"Copied", "Moved", "Renamed"};

fields::Control& RenameButton(fields::FrmSearch& form, NameSource source) {
    switch (source) {
    case NameSource::kList:
    case NameSource::kEditor:
        return form.mnuRenameSelFromFile;
    case NameSource::kTitles:
        return form.mnuRenameSelFromTitle;
    case NameSource::kLinks:
        return form.mnuRenameSelFromHTMLSearch;
    case NameSource::kPrefixes:
        return form.mnuRenameSelFromSelfSearch;
    case NameSource::kTyped:
        break;
    }
    return form.cmdRenameSelected;
}

fields::Control& StartButton(Session& session, const ActionRequest& request) {
    auto& form = session.frmSearch;
    if (request.verb == ActionVerb::kRename) return RenameButton(form, request.source);
    if (request.folderNames > 0) return form.mnuTools_FolderSummary;
    return request.verb == ActionVerb::kCopy ? form.cmdCopySelected : form.cmdMoveSelected;
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
    if (request.folderNames > 0) {
        entry.Set(form.txtFolderTree, fmt::format("{}", request.folderNames));
    } else {
        entry.Set(form.optTo[request.way], "1").Set(form.optStructure[request.structure], "1");
    }
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

InputResult FillSource(Session& session, const ActionRequest& request) {
    auto& form = session.frmDialog;
    Entry entry(session);
    if (request.source == NameSource::kTitles) return entry.Done();
    const bool isList = request.source == NameSource::kList;
    if (isList) entry.Set(form.chkWholeNames, request.wholeNames ? "1" : "0");
    return entry.Set(form.cmbDir, request.sourceFile).Done();
}

InputResult FillNames(Session& session, const ActionRequest& request) {
    if (request.source != NameSource::kTyped) return FillSource(session, request);
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

// One run of the command, between the search and its end.
class ActionRun {
  public:
    ActionRun(Host& host, CommandPrompts& prompts, const ActionRequest& request)
        : host_(host), prompts_(prompts), request_(request) {}

    // Fills in the action window and presses OK. A refusal, told by the window's own message,
    // leaves it open: then it is cancelled.
    void InWindow(Session& session) {
        auto& form = session.frmDialog;
        if (request_.source == NameSource::kEditor) {
            const auto code = EditNames(host_, session, prompts_, request_);
            code_ = code.value_or(kDone);
            isSettled_ = code.has_value();
        } else {
            Fill(session);
        }
        if (form.IsShown()) (void)session::UserClick(session, form.CancelButton);
        form.Hide();
    }

    // After the action on so many selected objects; gives the exit code.
    int End(Session& session, std::int64_t selected) {
        if (request_.dryRun || isSettled_) return code_;
        if (session.state.blnActionCancelled) return kBadRequest;
        return Summarize(host_, Done(), session.state.lastAction, selected * copies_);
    }

    std::string_view Done() const { return kDoneWords[static_cast<std::size_t>(request_.verb)]; }

  private:
    void Fill(Session& session) {
        auto& form = session.frmDialog;
        auto done = request_.verb == ActionVerb::kRename ? FillNames(session, request_)
                                                         : FillPlaces(session, request_);
        if (!done) {
            Complain(host_, done.error());
        } else if (request_.dryRun) {
            code_ = PrintPreview(host_, session, actions::Preview(session), PreviewRows::kAll,
                                 request_.json);
        } else {
            copies_ = actions::ReadRequest(session).Places();
            auto clicked = session::UserClick(session, form.OKButton);
            if (!clicked) Complain(host_, clicked.error());
        }
    }

    Host& host_;
    CommandPrompts& prompts_;
    const ActionRequest& request_;
    std::int64_t copies_ = 1; // of each object
    int code_ = kBadRequest;
    bool isSettled_ = false; // OK was not pressed
};

} // namespace

int Run(Host& host, const platform::Platform& machine, const ActionRequest& typed) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(typed.criteria)) return kBadRequest;
    ActionRequest request = typed;
    if (request.way == kToFolder) request.destination = finding.Paths().ToDrive(typed.destination);
    const bool hasFile = !typed.sourceFile.empty();
    if (hasFile) request.sourceFile = finding.Paths().ToDrive(typed.sourceFile);
    if (request.confirmed) finding.Prompts().ConfirmActions();
    // The help tells all that these notes do, and the sum that all went as it should.
    for (const auto note : {PromptId::kTitleNote, PromptId::kPrefixNote, PromptId::kNamesUsedUp})
        finding.Prompts().AnswerMessage(note, true);
    ActionRun action(host, finding.Prompts(), request);
    finding.Prompts().SetDialogFiller([&](Session& session) { action.InWindow(session); });
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const int code = finding.Search(program, request.criteria, request.answers);
        if (code == kBadRequest) return code;
        Session& session = program.Session();
        return finding.ActOnAll(
            session, code, StartButton(session, request), action.Done(), request.dryRun,
            [&](std::int64_t selected) { return action.End(session, selected); });
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
