#include "batch/automated_move.h"
#include "cli/batch_lists.h"
#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/print_rows.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "session/session.h"

#include <fmt/core.h>
#include <nlohmann/json.hpp>

#include <ostream>

namespace tarvix::cli {

namespace {

using batch::BatchOutcome;
using batch::BatchStep;

bool AreListsGood(Host& host, platform::FileSystem& files, const AutoMoveRequest& request,
                  const batch::MoveBatch& asked) {
    const auto searches =
        Measure(host, files, request.searches, asked.searchList, batch::ListMarks::kEnd);
    if (!searches) return false;
    const auto destinations = Measure(host, files, request.destinations, asked.destinationList,
                                      batch::ListMarks::kEndOrRepeat);
    if (!destinations) return false;
    if (destinations->repeats || destinations->entries == searches->entries) return true;
    Complain(host, fmt::format("{} has {} lines and {} has {}: they must have as many, or the list "
                               "of destinations end with {}.",
                               request.searches, searches->entries, request.destinations,
                               destinations->entries, batch::kRepeatMark));
    return false;
}

nlohmann::ordered_json AsJson(const BatchStep& step) {
    return {{"Search", step.search},
            {"Destination", step.destination},
            {"Moved", step.done - step.copiedOnly},
            {"SkippedAsTheyExist", step.duplicates},
            {"Failed", step.failed},
            {"CopiedOnly", step.copiedOnly},
            {"NotReached", step.notReached},
            {"Unread", step.unread},
            {"Skipped", step.skipped - step.duplicates},
            {"Wrong", step.wrong}};
}

void PrintStep(Host& host, const BatchStep& step, bool asJson) {
    if (asJson) return PrintJson(AsJson(step), host.out);
    host.out << fmt::format("{}\t{}\t{}\n", step.search, step.destination,
                            batch::ResultText(step, "moved"));
}

std::string Plural(std::int64_t count, std::string_view noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

void PrintTotal(Host& host, const BatchOutcome& outcome) {
    std::int64_t moved = 0;
    std::int64_t failed = 0;
    for (const BatchStep& step : outcome.steps) {
        moved += step.done - step.copiedOnly;
        failed += step.failed;
    }
    host.out << fmt::format("Moved {} in {}", Plural(moved, "object"),
                            Plural(static_cast<std::int64_t>(outcome.steps.size()), "step"));
    if (failed > 0) host.out << fmt::format("; {} failed", failed);
    if (outcome.emptied > 0) {
        host.out << fmt::format("; deleted {}", Plural(outcome.emptied, "empty folder"));
    }
    if (outcome.stillThere > 0) {
        host.out << fmt::format("; {} could not be deleted",
                                Plural(outcome.stillThere, "empty folder"));
    }
    host.out << ".\n";
}

int PrintOutcome(Host& host, const BatchOutcome& outcome, bool asJson) {
    for (const BatchStep& step : outcome.steps) {
        PrintStep(host, step, asJson);
    }
    if (!asJson) PrintTotal(host, outcome);
    return EndBatch(host, outcome);
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const AutoMoveRequest& request) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(request.criteria)) return kBadRequest;
    const batch::MoveBatch asked{.searchList = finding.Paths().ToDrive(request.searches),
                                 .destinationList = finding.Paths().ToDrive(request.destinations),
                                 .renamesDuplicates = request.renamesDuplicates,
                                 .thenFiles = request.thenFiles,
                                 .emptiesFolders = request.emptiesFolders};
    if (!AreListsGood(host, machine.files, request, asked)) return kBadRequest;
    if (!request.dryRun && !request.confirmed) {
        Complain(host, "This moves without asking: say --yes, or look first with --dry-run.");
        return kUnanswered;
    }
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        session::Session& session = program.Session();
        if (!finding.Fill(session, request.criteria)) return kBadRequest;
        const Watch watch(host, session);
        if (request.dryRun) {
            const auto plan = batch::PlanAutomatedMove(session, asked);
            if (plan) return PrintPlan(host, *plan, "is made", request.json);
            Complain(host, fmt::format("A list can't be read on: {}.",
                                       platform::ErrorText(plan.error().number)));
            return kSomeFailed;
        }
        return PrintOutcome(host, batch::RunAutomatedMove(session, asked), request.json);
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
