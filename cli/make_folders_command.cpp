#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "generate/folder_names.h"
#include "platform/file_system.h"
#include "session/prompt_id.h"
#include "session/user_input.h"

#include <fmt/core.h>

#include <ostream>

namespace tarvix::cli {

namespace {

using session::PromptId;
using session::Session;

// What is wrong with the request, or nothing.
std::string WhyNot(const FoldersRequest& request, const TypedPaths& paths) {
    if (!paths.IsFolder(paths.ToDrive(request.place))) {
        return fmt::format("There is no folder \"{}\": give --in a folder that exists.",
                           request.place);
    }
    if (!request.list.empty()) return {};
    if (request.count.empty()) {
        const std::string why = generate::WhyNoCountedName(request.from);
        return why.empty() ? generate::WhyNoCountedName(request.until) : why;
    }
    const std::string why = generate::WhyNoFolderNumber(request.from);
    if (!why.empty()) return why;
    const std::string notCount = generate::WhyNoFolderNumber(request.count);
    if (!notCount.empty()) return notCount;
    const std::string biggest =
        std::to_string(std::stoll(request.from) + std::stoll(request.count));
    if (!generate::IsTooBig(biggest)) return {};
    return fmt::format("{} folders from {} on are too many: numbers end at 2,147,483,648.",
                       request.count, request.from);
}

void AnswerQuestions(CommandPrompts& prompts, const FoldersRequest& request,
                     const TypedPaths& paths) {
    prompts.AnswerPick(PromptId::kPickFolderNames,
                       request.list.empty() ? std::string() : paths.ToDrive(request.list));
    prompts.AnswerInput(PromptId::kFoldersKind, request.count.empty() ? "A" : "N");
    prompts.AnswerInput(PromptId::kFoldersStart, request.from);
    prompts.AnswerInput(PromptId::kFoldersCount, request.count);
    prompts.AnswerInput(PromptId::kFoldersFirst, request.from);
    prompts.AnswerInput(PromptId::kFoldersLast, request.until);
}

int Tell(Host& host, const session::ActionTotals& totals) {
    host.out << fmt::format("Made {} of {} folders.\n", totals.done,
                            totals.done + totals.skipped + totals.failed)
             << std::flush;
    return totals.skipped + totals.failed == 0 ? kDone : kSomeFailed;
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const FoldersRequest& request) {
    Finding finding(host, machine);
    CommandPrompts& prompts = finding.Prompts();
    std::string why = WhyNot(request, finding.Paths());
    if (why.empty() && !request.list.empty() &&
        !machine.files.Facts(finding.Paths().ToDrive(request.list))) {
        why = fmt::format("There is no file \"{}\": give --list a file of names.", request.list);
    }
    if (!why.empty()) {
        Complain(host, why);
        return kBadRequest;
    }
    AnswerQuestions(prompts, request, finding.Paths());
    prompts.SetDialogFiller([&](Session& session) {
        auto& form = session.frmDialog;
        auto done = session::UserSet(session, form.cmbDir, finding.Paths().ToDrive(request.place));
        if (done) done = session::UserClick(session, form.OKButton);
        if (!done) Complain(host, done.error());
        if (form.IsShown()) (void)session::UserClick(session, form.CancelButton);
        form.Hide();
    });
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        Session& session = program.Session();
        prompts.BeginRequest();
        const Watch watch(host, session);
        const auto clicked = session::UserClick(session, session.frmSearch.mnuTools_MakeFolders);
        if (!clicked) Complain(host, clicked.error());
        if (!clicked || session.state.blnActionCancelled) return kBadRequest;
        const int code = Tell(host, session.state.lastAction);
        return session.state.blnStopAction ? kSomeFailed : code;
    };
    return RunProgram(host, machine, prompts, run);
}

} // namespace tarvix::cli
