#include "generate/text_file.h"

#include "generate/file_names.h"
#include "generate/list_request.h"
#include "generate/number_lines.h"
#include "generate/short_path_refusal.h"
#include "generate/similar_comments.h"
#include "generate/write_list.h"
#include "platform/dir.h"
#include "platform/file_system.h"
#include "session/attempt.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/extra_path_file.h"
#include "session/paths/short_path.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"
#include "text/format.h"

#include <fmt/core.h>

namespace tarvix::generate {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kRoutine = "CopyToTextFile";
constexpr std::string_view kModule = "frmDialog";

// A path that is too long is put in its short form, if the user wants that; false to give up.
bool ShortenSecond(Session& session, const ListRequest& request, std::string& second) {
    if (!session::ExceedsLimit(session, second, session::kLongPath)) return true;
    session::AskLongPath(session, request.file, second, kRoutine, kModule, true);
    if (!session::ContinuesLongPath(session)) return false;
    const auto shortened = session::GetShortPathNameReturnCodes(session, second);
    if (shortened.status < 2) {
        RefuseUnshortened(session, second);
        return false;
    }
    second = shortened.path;
    return true;
}

// The numbers are asked for when the file is about to be written. On a cancel a new file stays
// empty; one that stands already is left alone.
bool AskForNumbers(Session& session, ListRequest& request) {
    if (auto plan = AskNumbers(session)) {
        request.numbers = std::move(*plan);
        return true;
    }
    if (platform::DirName(session.files(), request.file, platform::kDirFiles).empty()) {
        if (auto made = session.files().CreateTextFile(request.file, false)) (void)(*made)->Close();
    }
    session.frmDialog.Hide();
    session.MsgBox(PromptId::kNumbersCanceled, "Canceled");
    return false;
}

void TellLeftOut(Session& session, const ListOutcome& outcome) {
    const std::string told = LeftOutText(session, outcome);
    if (!told.empty()) session::TellAndLog(session, PromptId::kListLeftOut, told);
}

std::string Duplicates(const ListRequest& request, const ListOutcome& outcome) {
    if (!request.findsSimilar) return {};
    return fmt::format(" and {} possible {}", text::Format(outcome.duplicates, "#,##0"),
                       outcome.duplicates == 1 ? "duplicate" : "duplicates");
}

void TellOutcome(Session& session, const ListRequest& request, const ListOutcome& outcome) {
    auto& state = session.state;
    if (outcome.error) {
        state.blnErrorOccurred = true;
        session::HandleError(session, *outcome.error,
                             {.routine = kRoutine,
                              .moduleName = kModule,
                              .object = outcome.failedFile,
                              .path = outcome.failedFile,
                              .searchOrDestination = request.file,
                              .objectType = session::ObjectType::kFile});
        return;
    }
    if (outcome.isStopped) {
        session::LogTimed(session, fmt::format(" User stopped the writing of {}. The file is as "
                                               "it was.",
                                               session.Shown(request.file)));
        session.frmSearch.lblStatus.Caption = "Stopped: nothing was written.";
        return;
    }
    state.lastAction.done = outcome.written;
    state.lastAction.skipped = outcome.leftOut;
    session::LogTimed(session,
                      fmt::format(" Wrote {} to {}", outcome.written, session.Shown(request.file)));
    session.frmSearch.lblStatus.Caption =
        fmt::format("Wrote {} {}{} to {}", text::Format(outcome.written, "#,##0"),
                    outcome.written == 1 ? "entry" : "entries", Duplicates(request, outcome),
                    session.Shown(request.file));
    TellLeftOut(session, outcome);
}

} // namespace

void CopyToTextFile(Session& session) {
    ListRequest request = ReadListRequest(session);
    session.frmDialog.cmbDir.Text = request.file;
    session.state.blnStopAction = false;
    std::string second;
    if (request.addsPathOnly) {
        second = session::ExtraPathFile(request.file);
        if (!ShortenSecond(session, request, second)) {
            session.state.blnErrorOccurred = true;
            return;
        }
    }
    if (request.kind == ListKind::kNumbers && !AskForNumbers(session, request)) return;
    if (request.findsSimilar) {
        request.similarFolder = AskSimilarFolder(session);
        if (request.similarFolder.empty()) return;
    }
    TellOutcome(session, request, WriteList(session, request, second));
}

} // namespace tarvix::generate
