#include "batch/automated_move.h"
#include "batch/list_file.h"
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
using batch::PlannedStep;

// The length of a list; without one the sentence was told.
std::optional<batch::ListLength> Measure(Host& host, platform::FileSystem& files,
                                         const std::string& typed, const std::string& path,
                                         batch::ListMarks marks) {
    const auto length = batch::MeasureList(files, path, marks);
    if (!length) {
        Complain(host, fmt::format("The list {} can't be read: {}.", typed,
                                   platform::ErrorText(length.error().number)));
        return {};
    }
    if (!length->isMarked) {
        Complain(host, fmt::format("The list {} has no end: its last line must be {}{}.", typed,
                                   batch::kEndMark,
                                   marks == batch::ListMarks::kEnd ? "" : " or *REPEAT"));
        return {};
    }
    return *length;
}

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

nlohmann::ordered_json AsJson(const PlannedStep& step) {
    return {{"Search", step.search},
            {"Destination", step.destination},
            {"Matches", step.matches},
            {"IsThere", step.isThere}};
}

nlohmann::ordered_json AsJson(const BatchStep& step) {
    return {{"Search", step.search},
            {"Destination", step.destination},
            {"Moved", step.done - step.copiedOnly},
            {"SkippedAsTheyExist", step.duplicates},
            {"Failed", step.failed},
            {"CopiedOnly", step.copiedOnly},
            {"NotReached", step.notReached},
            {"Skipped", step.skipped - step.duplicates},
            {"Wrong", step.wrong}};
}

int PrintPlan(Host& host, const std::vector<PlannedStep>& plan, bool asJson) {
    for (const PlannedStep& step : plan) {
        if (asJson) {
            PrintJson(AsJson(step), host.out);
            continue;
        }
        host.out << fmt::format("{}\t{}\t{}\t{}\n", step.matches, step.search, step.destination,
                                step.isThere ? "" : "is made");
    }
    host.out.flush();
    return kDone;
}

void PrintStep(Host& host, const BatchStep& step, bool asJson) {
    if (asJson) return PrintJson(AsJson(step), host.out);
    std::string line = fmt::format("{} moved", step.done - step.copiedOnly);
    if (step.duplicates > 0) line += fmt::format(", {} skipped as they exist", step.duplicates);
    if (step.skipped > step.duplicates) {
        line += fmt::format(", {} skipped", step.skipped - step.duplicates);
    }
    if (step.copiedOnly > 0) {
        line += fmt::format(", {} copied only, the originals still stand", step.copiedOnly);
    }
    if (step.notReached > 0) line += fmt::format(", {} not reached", step.notReached);
    if (step.failed > 0) line += fmt::format(", {} failed", step.failed);
    if (!step.wrong.empty()) line += fmt::format(", left out: {}", step.wrong);
    host.out << fmt::format("{}\t{}\t{}\n", step.search, step.destination, line);
}

int PrintOutcome(Host& host, const BatchOutcome& outcome, bool asJson) {
    std::int64_t moved = 0;
    std::int64_t failed = 0;
    for (const BatchStep& step : outcome.steps) {
        PrintStep(host, step, asJson);
        moved += step.done - step.copiedOnly;
        failed += step.failed;
    }
    if (!asJson) {
        host.out << fmt::format("Moved {} object{} in {} step{}{}.\n", moved, moved == 1 ? "" : "s",
                                outcome.steps.size(), outcome.steps.size() == 1 ? "" : "s",
                                failed > 0 ? fmt::format("; {} failed", failed) : "");
    }
    host.out.flush();
    if (outcome.answered > 0) {
        Complain(host, fmt::format("{} question{} came up and got the safe answer; the action log "
                                   "has them.",
                                   outcome.answered, outcome.answered == 1 ? "" : "s"));
    }
    if (outcome.isStopped) Complain(host, "The run was stopped before its end.");
    return outcome.HasErrors() || outcome.isStopped ? kSomeFailed : kDone;
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
            if (plan) return PrintPlan(host, *plan, request.json);
            Complain(host, fmt::format("A list can't be read on: {}.",
                                       platform::ErrorText(plan.error().number)));
            return kSomeFailed;
        }
        return PrintOutcome(host, batch::RunAutomatedMove(session, asked), request.json);
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
