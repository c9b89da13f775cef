#include "generate/make_folders.h"

#include "generate/folder_plan.h"
#include "generate/proposed_file.h"
#include "platform/file_system.h"
#include "platform/names.h"
#include "results/selection.h"
#include "session/errors.h"
#include "session/lifecycle_events.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"
#include "text/format.h"
#include "text/list_marks.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <vector>

namespace tarvix::generate {

namespace {

using session::PromptId;
using session::Session;

constexpr std::size_t kToldNames = 10;

// What became of all folders.
struct Made {
    std::int64_t done = 0;
    std::int64_t taken = 0;
    std::int64_t refused = 0;
    std::vector<std::string> names; // the first few that were taken or refused
    bool isStopped = false;
};

session::ErrorContext Context(const std::string& path, const std::string& place) {
    return {.routine = "MakeFolders",
            .moduleName = "frmDialog",
            .object = path,
            .path = path,
            .searchOrDestination = place,
            .objectType = session::ObjectType::kFolder};
}

// One folder. A failure is recorded, and the next one follows.
void MakeOne(Session& session, const std::string& place, const std::string& name, Made& made) {
    std::string path = text::JoinPath(place, name);
    session.frmDialog.lblStatus.Caption = fmt::format("Making {}", session.Shown(path));
    session.Yield();
    if (session::ExceedsLimit(session, path, session::kFolderPortion)) {
        path = session::GetShortPathNameReturnCodes(session, path).path;
    }
    const auto done = session.files().CreateFolder(path);
    if (done) {
        ++made.done;
        return;
    }
    const bool isTaken = session.files().Facts(path).has_value();
    ++(isTaken ? made.taken : made.refused);
    session.state.lastAction.errors.push_back(session.Shown(done.error()));
    if (made.names.size() < kToldNames) made.names.push_back(name);
    session::ReportError(session, done.error(), Context(path, place), session::kRecoverySkip,
                         "MakeFolders has not proceeded as expected.");
}

// Each name of a path in a list as this machine's disk may hold it.
std::string ListedName(std::string_view line) {
    std::string path;
    for (const std::string_view name : text::Split(line, '\\')) {
        if (!path.empty()) path += '\\';
        platform::AppendNameToDrive(path, name);
    }
    return path;
}

// False when the list could not be read to its mark, which was told.
bool MakeListed(Session& session, const std::string& place, const std::string& list, Made& made) {
    auto stream = session.files().OpenAsTextStream(list, platform::OpenMode::kRead);
    auto line = stream ? (*stream)->ReadLine()
                       : platform::Result<std::string>(std::unexpected(stream.error()));
    while (line && *line != text::kEndMark) {
        made.isStopped = session.state.blnStopAction;
        if (made.isStopped) return true;
        const std::string name = ListedName(text::CleanSpacesInPath(*line, false));
        if (!name.empty()) MakeOne(session, place, name, made);
        line = (*stream)->ReadLine();
    }
    if (line) return true;
    session::HandleError(session, line.error(), Context(list, place));
    return false;
}

void MakeCounted(Session& session, const std::string& place, const NextName& next, Made& made) {
    for (auto name = next(); name; name = next()) {
        made.isStopped = session.state.blnStopAction;
        if (made.isStopped) return;
        MakeOne(session, place, *name, made);
    }
}

std::string Counted(std::int64_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", text::Format(count, "#,##0"), count == 1 ? one : many);
}

void TellMade(Session& session, const std::string& place, const Made& made) {
    std::string told =
        fmt::format("Made {} in {}", Counted(made.done, "folder", "folders"), session.Shown(place));
    if (made.isStopped) told += " and stopped";
    session.frmSearch.lblStatus.Caption = told;
    session.state.lastAction.done = made.done;
    session.state.lastAction.duplicates = session.state.lastAction.skipped = made.taken;
    session.state.lastAction.failed = made.refused;
    if (made.taken + made.refused == 0) return;
    told += ".\r\n";
    if (made.taken > 0) {
        told += fmt::format(
            "\r\n{}.", Counted(made.taken, "name is taken already", "names are taken already"));
    }
    if (made.refused > 0) {
        told +=
            fmt::format("\r\n{}.", Counted(made.refused, "could not be made", "could not be made"));
    }
    for (const std::string& name : made.names) {
        told += fmt::format("\r\n   {}", platform::ForDisplay(name));
    }
    if (made.taken + made.refused > static_cast<std::int64_t>(made.names.size())) told += "\r\n...";
    session::TellAndLog(session, PromptId::kFoldersNotMade, told);
}

} // namespace

void MakeFolders(Session& session) {
    const std::string place = session.frmDialog.cmbDir.Text;
    session.state.blnStopAction = false;
    if (!platform::GetFolder(session.files(), place)) {
        session.MsgBox(PromptId::kFoldersPlaceMissing,
                       fmt::format("There is no folder {} to make folders in. Make it first, or "
                                   "choose another one.",
                                   session.Shown(place)));
        return;
    }
    const auto plan = AskFolderPlan(session);
    if (!plan) {
        session.frmDialog.Hide();
        session.state.blnActionCancelled = true;
        session.MsgBox(PromptId::kFoldersCanceled, "Canceled");
        return;
    }
    Made made;
    bool isWhole = true;
    if (plan->list.empty()) {
        MakeCounted(session, place, plan->next, made);
    } else {
        isWhole = MakeListed(session, place, plan->list, made);
    }
    const std::string_view end = plan->list.empty() ? "" : ".";
    if (isWhole) {
        session::LogTimed(session,
                          fmt::format("{} in folder: {}{}", plan->log, session.Shown(place), end));
    }
    session.frmDialog.Hide();
    TellMade(session, place, made);
}

void mnuTools_MakeFolders_Click(Session& session) {
    auto& state = session.state;
    auto& form = session.frmDialog;
    state.strAction = "MakeFolders";
    state.blnActionCancelled = false;
    state.lastAction = {};
    results::BuildFileArray(session);
    form.chkAddEOF.Value = 0;
    const std::string& remembered = state.strRememberedDestination;
    const bool isSame = state.strPrevAction == state.strAction && !form.cmbDir.Text->empty();
    if (!remembered.empty()) {
        form.cmbDir.Text = remembered;
    } else if (!isSame) {
        form.cmbDir.Text = FirstLocation(session);
    }
    form.lblMain.Caption = "Make Folders in:";
    session.frmSearch.lblStatus.Caption = "";
    session.events.Raise(session, lifecycle::kOpenDialog);
}

} // namespace tarvix::generate
