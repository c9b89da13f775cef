#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/list_file.h"
#include "cli/messages.h"
#include "generate/digits.h"
#include "generate/list_request.h"
#include "generate/number_lines.h"
#include "session/prompt_id.h"
#include "session/user_input.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::cli {

namespace {

using session::PromptId;
using session::Session;

// What is wrong with the request, or nothing.
std::string WhyNot(const NumbersRequest& request) {
    for (const std::string& number : {request.from, request.until}) {
        const std::string why = generate::WhyNoNumber(number);
        if (!why.empty()) return fmt::format("{} --from and --until take whole numbers.", why);
    }
    if (request.lineText.empty()) return "--line is empty: give a text, with * for the number.";
    return request.picture.empty() ? std::string() : generate::WhyNoPicture(request.picture);
}

generate::NumberPlan PlanOf(const NumbersRequest& request) {
    return {.start = *generate::ReadDigits(request.from),
            .end = *generate::ReadDigits(request.until),
            .picture = request.picture,
            .lineText = request.lineText};
}

void AnswerQuestions(CommandPrompts& prompts, const NumbersRequest& request) {
    prompts.AnswerInput(PromptId::kNumberStart, request.from);
    prompts.AnswerInput(PromptId::kNumberEnd, request.until);
    prompts.AnswerInput(PromptId::kNumberSameLength, request.picture.empty() ? "0" : "1");
    prompts.AnswerInput(PromptId::kNumberFormat, request.picture);
    prompts.AnswerInput(PromptId::kNumberLine, request.lineText);
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const NumbersRequest& request) {
    if (const std::string why = WhyNot(request); !why.empty()) {
        Complain(host, why);
        return kBadRequest;
    }
    Finding finding(host, machine);
    CommandPrompts& prompts = finding.Prompts();
    const generate::NumberPlan plan = PlanOf(request);
    const bool toStdout = request.file == "-";
    ListFile file(host, prompts, machine,
                  {.file = toStdout ? "" : finding.Paths().ToDrive(request.file),
                   .confirmed = request.confirmed});
    file.Fill(
        [&](Session& session) { session.frmDialog.chkAddEOF.Value = request.addsEof ? 1 : 0; });
    AnswerQuestions(prompts, request);
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        Session& session = program.Session();
        prompts.BeginRequest();
        const Watch watch(host, session);
        if (toStdout) {
            return PrintList(host, session,
                             {.kind = generate::ListKind::kNumbers,
                              .addsEof = request.addsEof,
                              .numbers = plan});
        }
        const auto clicked =
            session::UserClick(session, session.frmSearch.mnuTools_NumericIncrement);
        if (!clicked) {
            Complain(host, clicked.error());
            return kBadRequest;
        }
        return file.End(session, std::max<std::int64_t>(plan.end - plan.start + 1, 0));
    };
    return RunProgram(host, machine, prompts, run);
}

} // namespace tarvix::cli
