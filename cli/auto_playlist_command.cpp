#include "batch/automated_playlists.h"
#include "cli/batch_lists.h"
#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "cli/print_rows.h"
#include "platform/file_system.h"
#include "session/session.h"

#include <fmt/core.h>
#include <nlohmann/json.hpp>

#include <ostream>

namespace tarvix::cli {

namespace {

using batch::BatchOutcome;
using batch::BatchStep;
using batch::PlaylistBatch;
using session::Session;

PlaylistBatch BatchOf(const TypedPaths& paths, const AutoPlaylistRequest& request) {
    PlaylistBatch batch{.searchList = paths.ToDrive(request.searches),
                        .writesFullPaths = request.form == kFullPaths};
    if (request.folders.empty()) {
        batch.folder = paths.ToDrive(request.folder);
    } else {
        batch.folderList = paths.ToDrive(request.folders);
    }
    return batch;
}

bool IsGood(Host& host, Finding& finding, platform::FileSystem& files,
            const AutoPlaylistRequest& request, const PlaylistBatch& batch) {
    if (!Measure(host, files, request.searches, batch.searchList, batch::ListMarks::kEnd)) {
        return false;
    }
    if (!batch.IsFull()) {
        return Measure(host, files, request.folders, batch.folderList, batch::ListMarks::kEnd)
            .has_value();
    }
    if (!finding.CheckLocations(request.criteria)) return false;
    if (finding.Paths().IsFolder(batch.folder)) return true;
    Complain(host, fmt::format("There is no folder \"{}\": give --to a folder that exists.",
                               request.folder));
    return false;
}

void PrintStep(Host& host, const Session& session, const BatchStep& step, bool asJson) {
    const std::string file = step.file.empty() ? std::string() : session.Shown(step.file);
    if (asJson) {
        return PrintJson({{"Search", step.search},
                          {"Destination", step.destination},
                          {"File", file},
                          {"Entries", step.done},
                          {"LeftOut", step.skipped},
                          {"Unread", step.unread},
                          {"Wrong", step.wrong}},
                         host.out);
    }
    host.out << fmt::format(
        "{}\t{}\t{}\n", step.search, file.empty() ? session.Shown(step.destination) : file,
        file.empty() && step.IsDone() ? "nothing found" : ResultText(step, "written"));
}

int PrintOutcome(Host& host, const Session& session, const BatchOutcome& outcome, bool asJson) {
    std::int64_t written = 0;
    for (const BatchStep& step : outcome.steps) {
        PrintStep(host, session, step, asJson);
        if (!step.file.empty()) ++written;
    }
    if (!asJson) {
        host.out << fmt::format("Wrote {} playlist{} in {} step{}.\n", written,
                                written == 1 ? "" : "s", outcome.steps.size(),
                                outcome.steps.size() == 1 ? "" : "s");
    }
    return EndBatch(host, outcome);
}

int DryRun(Host& host, Session& session, const PlaylistBatch& batch, bool asJson) {
    const auto plan = batch::PlanPlaylists(session, batch);
    if (plan) return PrintPlan(host, *plan, "is missing", asJson);
    Complain(host,
             fmt::format("A list can't be read on: {}.", platform::ErrorText(plan.error().number)));
    return kSomeFailed;
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const AutoPlaylistRequest& request) {
    Finding finding(host, machine);
    const PlaylistBatch batch = BatchOf(finding.Paths(), request);
    if (!IsGood(host, finding, machine.files, request, batch)) return kBadRequest;
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        Session& session = program.Session();
        if (!finding.Fill(session, request.criteria)) return kBadRequest;
        if (request.sort) SortRows(session, *request.sort);
        session.frmDialog.chkComments.Value = request.addsComments ? 1 : 0;
        session.frmDialog.chkAddEOF.Value = 0;
        const Watch watch(host, session);
        if (request.dryRun) return DryRun(host, session, batch, request.json);
        return PrintOutcome(host, session, batch::RunPlaylists(session, batch), request.json);
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
