#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/list_file.h"
#include "cli/messages.h"
#include "cli/summary.h"
#include "generate/list_source.h"
#include "generate/write_list.h"
#include "results/quick_cells.h"
#include "results/selection.h"
#include "session/prompt_id.h"
#include "session/user_input.h"

#include <fmt/core.h>

#include <array>
#include <string_view>

namespace tarvix::cli {

namespace {

using session::Session;

// By the words of --text.
constexpr std::array<const char*, 5> kPageTexts{"PN", "P", "N", "R", "F"};

fields::Control& MenuEntryOf(fields::FrmSearch& form, int list) {
    switch (list) {
    case kListOfNames:
        return form.mnuNamesTxt;
    case kPathList:
        return form.mnuPathNamesMPL;
    case kWebPage:
        return form.mnuTools_CreateHtml;
    case kListOfTargets:
        return form.mnuTools_TargetPaths;
    default:
        return form.mnuPathNamesTxt;
    }
}

fields::Control& MenuEntryOf(fields::FrmSearch& form, const PlaylistRequest& request) {
    return request.form == kLocalNames ? form.mnuNamesM3u : form.mnuPathNamesM3u;
}

// Whether nothing but paths is written, in an order that goes by paths.
bool IsOfPaths(const Session& session, const ListRequest& request) {
    const bool writesPaths = request.form != kWebPage && request.form != kListOfTargets;
    return writesPaths && results::IsOfPath(session.frmSearch.lstMain.SortKey) &&
           (!request.sort || results::IsOfPath(static_cast<int>(request.sort->column)));
}

int ToStdout(Host& host, Session& session, const ListRequest& request) {
    generate::ListRequest list;
    list.kind = request.form == kListOfNames     ? generate::ListKind::kNames
                : request.form == kListOfTargets ? generate::ListKind::kTargets
                                                 : generate::ListKind::kPaths;
    list.isPathList = request.form == kPathList;
    list.addsEof = request.addsEof || list.isPathList;
    return PrintList(host, session, list);
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const ListRequest& request) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(request.criteria)) return kBadRequest;
    const bool toStdout = request.file == "-";
    ListFile file(host, finding.Prompts(), machine,
                  {.file = toStdout ? "" : finding.Paths().ToDrive(request.file),
                   .confirmed = request.confirmed});
    file.Fill([&](Session& session) {
        session.frmDialog.chkAddEOF.Value = request.addsEof ? 1 : 0;
        session.frmDialog.chkFindSimilar.Value = 0;
    });
    finding.Prompts().AnswerInput(session::PromptId::kPageText,
                                  kPageTexts[static_cast<std::size_t>(request.pageText)]);
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const results::NamesAlone alone(program.Rows(), IsOfPaths(program.Session(), request));
        const int code = finding.Search(program, request.criteria, request.answers);
        if (code == kBadRequest) return code;
        Session& session = program.Session();
        if (request.sort) SortRows(session, *request.sort);
        if (toStdout) {
            results::cmdSelectAll_Click(session);
            const int printed = ToStdout(host, session, request);
            return printed == kDone ? code : printed;
        }
        return finding.ActOnAll(session, code, MenuEntryOf(session.frmSearch, request.form),
                                "Wrote", false,
                                [&](std::int64_t selected) { return file.End(session, selected); });
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

int Run(Host& host, const platform::Platform& machine, const PlaylistRequest& request) {
    Finding finding(host, machine);
    if (!finding.CheckLocations(request.criteria)) return kBadRequest;
    ListFile file(host, finding.Prompts(), machine,
                  {.file = finding.Paths().ToDrive(request.file), .confirmed = request.confirmed});
    file.Fill([&](Session& session) {
        auto& form = session.frmDialog;
        form.chkAddEOF.Value = 0;
        form.chkComments.Value = request.addsComments ? 1 : 0;
        form.chkRelative.Value = request.form == kRelativePaths ? 1 : 0;
        form.chkFindSimilar.Value = request.similarFolder.empty() ? 0 : 1;
        form.txtDeviation.Text = std::to_string(request.deviation);
    });
    if (!request.similarFolder.empty()) {
        const std::string folder = finding.Paths().ToDrive(request.similarFolder);
        if (!finding.Paths().IsFolder(folder)) {
            Complain(host,
                     fmt::format("There is no folder \"{}\" to look through: give --similar a "
                                 "folder that exists.",
                                 request.similarFolder));
            return kBadRequest;
        }
        finding.Prompts().AnswerPick(session::PromptId::kPickDuplicateFolder, folder);
    }
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        const int code = finding.Search(program, request.criteria, request.answers);
        if (code == kBadRequest) return code;
        Session& session = program.Session();
        if (request.sort) SortRows(session, *request.sort);
        return finding.ActOnAll(session, code, MenuEntryOf(session.frmSearch, request), "Wrote",
                                false,
                                [&](std::int64_t selected) { return file.End(session, selected); });
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
