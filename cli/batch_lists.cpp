#include "cli/batch_lists.h"

#include "cli/messages.h"
#include "cli/print_rows.h"
#include "platform/error.h"

#include <fmt/core.h>
#include <nlohmann/json.hpp>

#include <ostream>

namespace tarvix::cli {

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

int PrintPlan(Host& host, const std::vector<batch::PlannedStep>& plan, std::string_view missing,
              bool asJson) {
    for (const batch::PlannedStep& step : plan) {
        if (asJson) {
            PrintJson({{"Search", step.search},
                       {"Destination", step.destination},
                       {"Matches", step.matches},
                       {"IsThere", step.isThere}},
                      host.out);
            continue;
        }
        host.out << fmt::format("{}\t{}\t{}\t{}\n", step.matches, step.search, step.destination,
                                step.isThere ? "" : missing);
    }
    host.out.flush();
    return kDone;
}

int EndBatch(Host& host, const batch::BatchOutcome& outcome) {
    host.out.flush();
    if (outcome.answered > 0) {
        Complain(host, fmt::format("{} question{} came up and got the safe answer; the action log "
                                   "has {}.",
                                   outcome.answered, outcome.answered == 1 ? "" : "s",
                                   outcome.answered == 1 ? "it" : "them"));
    }
    if (outcome.isStopped) Complain(host, "The run was stopped before its end.");
    return outcome.HasErrors() || outcome.isStopped ? kSomeFailed : kDone;
}

} // namespace tarvix::cli
