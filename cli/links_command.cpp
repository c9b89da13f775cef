#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/links_saving.h"
#include "cli/links_text.h"
#include "cli/messages.h"
#include "cli/print_rows.h"
#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "results/link_cells.h"
#include "results/link_target.h"
#include "results/result_list.h"
#include "shortcuts/replace_text.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <ostream>

namespace tarvix::cli {

namespace {

using session::Session;
using shortcuts::Kind;

// Calls `take` for each shortcut of the list, until the process is interrupted.
void ForEachLink(Host& host, Session& session,
                 const std::function<void(std::size_t row, Kind kind)>& take) {
    const Watch watch(host, session);
    for (std::size_t row = 0; row < session.rows->Count() && host.interrupted() == 0; ++row) {
        const results::ResultRow& found = session.rows->At(row);
        const Kind kind =
            found.IsSpacer() || found.isFolder ? Kind::kNone : shortcuts::KindOf(found.name);
        if (kind != Kind::kNone) take(row, kind);
        session.Yield();
    }
}

// A program by its name alone is one that the search path has; unknown where there is no such path.
bool IsProgramThere(Session& session, const std::string& name) {
    const auto path = session.platform.environment.Get("PATH");
    if (!path) return true;
    for (const std::string_view folder : text::Split(*path, ':')) {
        const std::string place = session.platform.paths.ToDrive(folder);
        if (!place.empty() && session.files().Facts(text::JoinPath(place, name))) return true;
    }
    return false;
}

// Whether the target can be told to be missing; addresses can't.
bool IsMissing(Session& session, const std::string& path, Kind kind, const std::string& target) {
    if (target.empty()) return false;
    const bool isNative = target.starts_with('/') || text::StartsWithNoCase(target, "file:");
    if (isNative) {
        const std::string place = session.platform.paths.ToDrive(target);
        return !place.empty() && !session.files().Facts(place);
    }
    if (kind == Kind::kDesktop) {
        const bool isName = target.find_first_of("/:") == target.npos;
        return isName && !IsProgramThere(session, target);
    }
    const auto place = results::PlaceOfTarget(session, path, target);
    return place && !session.files().Facts(*place);
}

int Check(Host& host, Session& session, bool asJson) {
    std::int64_t missing = 0;
    ForEachLink(host, session, [&](std::size_t row, Kind kind) {
        const std::string path = session.rows->FullPath(row);
        const std::string target = session.rows->Links(row).stored[shortcuts::kTarget];
        if (!IsMissing(session, path, kind, target)) return;
        ++missing;
        const std::string native = session.platform.paths.ToNative(path);
        if (asJson) {
            PrintPairs({{"NativePath", native}, {"TargetPathOfLinkSubItem", target}}, "\t", true,
                       host.out);
        } else {
            host.out << PlainField(native) << '\t' << CellField(target) << '\n';
        }
    });
    return missing == 0 ? kDone : kSomeFailed;
}

shortcuts::Values Wanted(const LinksRequest& request, Kind kind, const shortcuts::Values& old) {
    shortcuts::Values wanted = old;
    for (std::size_t i = 0; i < kLinkFields; ++i) {
        if (!shortcuts::HasField(kind, static_cast<shortcuts::Field>(i))) continue;
        if (request.values[i]) wanted[i] = *request.values[i];
        if (!request.to[i]) continue;
        wanted[i] = shortcuts::Replaced(wanted[i], {.find = request.from[i],
                                                    .with = *request.to[i],
                                                    .isPattern = request.isPattern,
                                                    .matchesCase = request.matchesCase});
    }
    return wanted;
}

int Set(Host& host, Session& session, const LinksRequest& request) {
    LinkSaver saver(host, session, request.dryRun);
    ForEachLink(host, session, [&](std::size_t row, Kind kind) {
        const shortcuts::Values& stored = session.rows->Links(row).stored;
        saver.Save({.path = session.rows->FullPath(row),
                    .stored = stored,
                    .wanted = Wanted(request, kind, stored),
                    .newName = {}});
    });
    return saver.End();
}

int Edit(Host& host, Session& session, const std::string& file, bool replaces) {
    LinksText text;
    std::int64_t without = 0;
    ForEachLink(host, session, [&](std::size_t row, Kind kind) {
        const results::LinkCells& cells = session.rows->Links(row);
        if (cells.shown[shortcuts::kTarget].empty()) {
            ++without;
            return;
        }
        text.Add(session.rows->FullPath(row),
                 {kind, std::string(session.rows->At(row).name), cells.shown});
    });
    if (without > 0) {
        Complain(host,
                 fmt::format("{} shortcuts without a target can't be edited and are left out.",
                             without));
    }
    return text.Write(host, session, file, replaces);
}

int Show(Host& host, const platform::Platform& machine, const LinksRequest& request) {
    SearchRequest search{.criteria = request.criteria, .answers = request.answers};
    search.output.format = request.json ? RowFormat::kJson : RowFormat::kTable;
    search.output.columns = {kNativePathColumn};
    for (int column = results::kTargetPath; column <= results::kIconPath; ++column) {
        search.output.columns.push_back(column);
    }
    return Run(host, machine, search);
}

int Act(Host& host, Session& session, const Finding& finding, const LinksRequest& request) {
    const std::string file = request.file.empty() ? session.state.strTargetPathFile
                                                  : finding.Paths().ToDrive(request.file);
    switch (request.verb) {
    case LinksVerb::kEdit:
        return Edit(host, session, file, request.confirmed || request.file.empty());
    case LinksVerb::kApply:
        return ApplyLinks(host, session, file, request.dryRun);
    case LinksVerb::kSet:
        return Set(host, session, request);
    case LinksVerb::kCheck:
        return Check(host, session, request.json);
    case LinksVerb::kShow:
        break;
    }
    return kDone;
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const LinksRequest& request) {
    if (request.verb == LinksVerb::kShow) return Show(host, machine, request);
    const bool searches = request.verb != LinksVerb::kApply;
    Finding finding(host, machine);
    if (searches && !finding.CheckLocations(request.criteria)) return kBadRequest;
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const int found =
            searches ? finding.Search(program, request.criteria, request.answers) : kDone;
        if (found == kBadRequest || host.interrupted() != 0) return found;
        const int code = Act(host, program.Session(), finding, request);
        return code == kDone ? found : code;
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
