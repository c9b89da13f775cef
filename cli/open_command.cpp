#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/launch_text.h"
#include "cli/messages.h"
#include "launch/open_object.h"
#include "results/result_list.h"
#include "session/session.h"

#include <fmt/core.h>

#include <ostream>

namespace tarvix::cli {

namespace {

using launch::Doing;
using launch::Opened;
using platform::Result;
using session::Session;

constexpr std::size_t kMostAtOnce = 200;

Doing DoingOf(bool isDryRun) {
    return isDryRun ? Doing::kPlan : Doing::kStart;
}

std::vector<std::string> ListedPaths(Session& session) {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < session.rows->Count(); ++i) {
        if (!session.rows->At(i).IsSpacer()) paths.push_back(session.rows->FullPath(i));
    }
    return paths;
}

// Whether it went well, else it was told.
bool Take(Host& host, const Session& session, const Result<Opened>& opened, bool isDryRun,
          bool asJson) {
    if (!opened) {
        Complain(host, session.Shown(opened.error()));
        return false;
    }
    if (isDryRun) PrintLaunch(host, *opened, asJson);
    return true;
}

int OpenAll(Host& host, Session& session, const OpenRequest& request,
            const std::vector<std::string>& paths) {
    std::size_t count = 0;
    if (!request.with.empty()) {
        const auto opened = launch::OpenWith(session, request.with, paths, DoingOf(request.dryRun));
        if (Take(host, session, opened, request.dryRun, request.json)) count = paths.size();
        if (!opened && opened.error().number == platform::kInvalidCall) return kBadRequest;
    } else {
        for (const std::string& path : paths) {
            if (host.interrupted() != 0) break;
            const auto opened = launch::OpenObject(session, path, DoingOf(request.dryRun));
            if (Take(host, session, opened, request.dryRun, request.json)) ++count;
        }
    }
    if (!request.dryRun) {
        host.out << (count == paths.size()
                         ? fmt::format("Opened {} object{}.\n", count, count == 1 ? "" : "s")
                         : fmt::format("Opened {} of {} objects.\n", count, paths.size()));
    }
    return count == paths.size() ? kDone : kSomeFailed;
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const OpenRequest& request) {
    Finding finding(host, machine);
    const bool searches = !request.criteria.locations.empty();
    if (searches && !finding.CheckLocations(request.criteria)) return kBadRequest;
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        Session& session = program.Session();
        std::vector<std::string> paths;
        int code = kDone;
        if (searches) {
            code = finding.Search(program, request.criteria, request.answers);
            if (code == kBadRequest) return code;
            paths = ListedPaths(session);
        }
        for (const std::string& typed : request.criteria.patterns) {
            if (!searches) paths.push_back(finding.Paths().ToDrive(typed));
        }
        if (paths.size() > kMostAtOnce && !request.confirmed && !request.dryRun) {
            Complain(host, fmt::format("That would open {} objects at once: give --yes if you "
                                       "mean it.",
                                       paths.size()));
            return kUnanswered;
        }
        const int opened = OpenAll(host, session, request, paths);
        return opened == kDone ? code : opened;
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

int Run(Host& host, const platform::Platform& machine, const RunProgramRequest& request) {
    Finding finding(host, machine);
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        Session& session = program.Session();
        const std::string path = finding.Paths().ToDrive(request.path);
        const auto kind = machine.applications.KindOf(path);
        const auto plan = launch::RunProgram(session, path, Doing::kPlan);
        if (!plan) {
            Complain(host, session.Shown(plan.error()));
            return plan.error().number == platform::kInvalidCall ? kBadRequest : kSomeFailed;
        }
        const bool isForeign = kind == platform::ProgramKind::kForeign;
        if (isForeign && !request.confirmed && !request.dryRun) {
            Complain(host, fmt::format("{} is a program for another system, which {} would start: "
                                       "give --yes if you trust it.",
                                       session.Shown(path), plan->application));
            return kUnanswered;
        }
        const auto started = launch::RunProgram(session, path, DoingOf(request.dryRun));
        if (!Take(host, session, started, request.dryRun, request.json)) return kSomeFailed;
        if (!request.dryRun) host.out << fmt::format("Started {}.\n", started->application);
        return kDone;
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
