#include "launch/run_menu.h"

#include "launch/media.h"
#include "launch/open_object.h"
#include "launch/starting_folder.h"
#include "launch/system_facts.h"
#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "results/result_list.h"
#include "results/selection.h"
#include "session/lifecycle_events.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tools.h"
#include "session/wordings.h"
#include "text/case.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::launch {

namespace {

using platform::ProgramKind;
using session::PromptId;
using session::Session;
using session::Tool;
using session::ToolKind;
using session::Wording;

constexpr std::int64_t kMostMedia = 200;
constexpr std::int64_t kMostViewed = 5;
constexpr std::string_view kMediaCountText =
    "Can not enqueue more than 200 files at once files.! Or less than 1 file.";
constexpr std::string_view kViewCountText =
    "You must select a file in search results window. \r\nCan not view more than 5 files at once.!";
constexpr std::string_view kHexEditorFile = "\\FRHED.EXE";

// The selection as it stands; how many objects it has.
std::int64_t CountSelected(Session& session) {
    results::BuildFileArray(session);
    return session.selection->lngSelTop + 1;
}

std::vector<std::string> SelectedFiles(const Session& session) {
    const auto& selection = *session.selection;
    std::vector<std::string> files;
    for (std::size_t i = 0; i < selection.strSelActualPath.size(); ++i) {
        if (selection.blnSelIsFile[i]) files.emplace_back(selection.strSelActualPath[i]);
    }
    return files;
}

// Whether the count lies in 1 to `most`; else it was told.
bool TakesCount(Session& session, std::int64_t most, PromptId id, std::string_view text) {
    const std::int64_t count = CountSelected(session);
    if (count >= 1 && count <= most) return true;
    session.MsgBox(id, text);
    return false;
}

void TellFailure(Session& session, PromptId id, const platform::PlatformError& error) {
    session.MsgBox(id, session.Shown(error));
}

void PlayMedia(Session& session, MediaWay way) {
    if (!TakesCount(session, kMostMedia, PromptId::kMediaCount, kMediaCountText)) return;
    // A folder is no file of any player, and so stands among the skipped.
    const auto& selection = *session.selection;
    const MediaPlan plan = PlanMedia(session, selection.strSelActualPath, way);
    if (way == MediaWay::kForce && !plan.player.isFound) {
        session.MsgBox(PromptId::kForceNeedsPlayer,
                       session::Worded(session, Wording::kForceNeedsPlayer));
        return;
    }
    if (const auto started = StartMedia(session, plan, way); !started) {
        TellFailure(session, PromptId::kPlayerNotStarted, started.error());
    }
    if (const std::string skipped = SkippedText(session, plan); !skipped.empty()) {
        session.MsgBox(PromptId::kNotPlayed, skipped);
    }
}

// The told hex editor, where its variable is set and it is there; empty else.
std::string ToldHexEditor(Session& session) {
    const auto folder = session.platform.environment.Get("FrHed");
    if (!folder || folder->empty()) return {};
    std::string path = folder->ends_with('\\') ? folder->substr(0, folder->size() - 1) : *folder;
    path += kHexEditorFile;
    return session.files().Facts(path) ? path : std::string();
}

Tool HexEditor(Session& session) {
    Tool tool = session::FindTool(session, ToolKind::kHexEditor);
    const std::string told = tool.isFound ? std::string() : ToldHexEditor(session);
    if (told.empty()) return tool;
    const std::string native = session.platform.paths.ToNative(told);
    return {.key = tool.key,
            .command = fmt::format("\"{}\"", native.empty() ? told : native),
            .name = std::string(text::FileNameOf(told)),
            .isFound = true};
}

void OpenEach(Session& session, const Tool& tool, const std::vector<std::string>& files) {
    for (const std::string& file : files) {
        const auto plan = session::PlanTool(session, tool, {&file, 1}, StartingFolder(session));
        platform::Result<void> started;
        if (plan) {
            started = session.platform.applications.Start(*plan);
        } else {
            started = std::unexpected(plan.error());
        }
        // The next one would be refused for the same reason.
        if (!started) return TellFailure(session, PromptId::kEditorNotStarted, started.error());
    }
}

bool TakesFiles(Session& session, std::vector<std::string>& files) {
    if (!TakesCount(session, kMostViewed, PromptId::kViewCount, kViewCountText)) return false;
    files = SelectedFiles(session);
    if (!files.empty()) return true;
    session.MsgBox(PromptId::kViewCount, kViewCountText);
    return false;
}

// Whether a foreign program is to be started with what runs such here.
bool IsConfirmed(Session& session, const std::string& path) {
    auto& applications = session::ApplicationsOf(session);
    const auto runner = applications.DefaultFor(applications.TypeOf(path));
    if (!runner) return true; // told by the failure
    return session.MsgBox(PromptId::kRunForeign,
                          fmt::format("{}\r\n\r\nis a program for another system. Shall {} start "
                                      "it? It may change whatever you may change.",
                                      session.Shown(path), runner->name)) == session::kYes;
}

void RunSelected(Session& session, const std::string& path) {
    const bool isExe = text::EqualNoCase(text::GetExtension(text::FileNameOf(path)), "exe");
    const bool isTold = !session.platform.traits.hasNativePaths;
    const ProgramKind kind = session.platform.applications.KindOf(path);
    if ((isTold && !isExe) || (!isTold && kind == ProgramKind::kNone)) {
        session.MsgBox(PromptId::kNotAProgram, session::Worded(session, Wording::kNotAProgram));
        return;
    }
    if (kind == ProgramKind::kForeign && !IsConfirmed(session, path)) return;
    if (const auto run = RunProgram(session, path, Doing::kStart); !run) {
        TellFailure(session, PromptId::kProgramNotStarted, run.error());
    }
}

} // namespace

void lstMain_DblClick(Session& session, std::size_t row) {
    if (session.state.blnSearching || row >= session.rows->Count()) return;
    if (session.state.blnPlayListMode) {
        session.events.Raise(session, lifecycle::kMarkPlayListRow, {static_cast<int>(row)});
        return;
    }
    if (session.rows->At(row).IsSpacer()) return;
    const auto opened = OpenObject(session, session.rows->FullPath(row), Doing::kStart);
    if (opened) return;
    const auto& error = opened.error();
    const bool hasNoWay = error.number == platform::kPermissionDenied && error.path.empty();
    if (hasNoWay) {
        session.MsgBox(PromptId::kNotOpened, session::Worded(session, Wording::kNotOpened));
    } else {
        TellFailure(session, PromptId::kNotOpened, error);
    }
}

void mnuRun_Mp3_Click(Session& session) {
    PlayMedia(session, MediaWay::kPlay);
}

void mnuRun_EnqueueMp3_Click(Session& session) {
    PlayMedia(session, MediaWay::kEnqueue);
}

void mnuRun_ForceEnqueueMp3_Click(Session& session) {
    PlayMedia(session, MediaWay::kForce);
}

void mnuRun_View_Click(Session& session) {
    std::vector<std::string> files;
    if (!TakesFiles(session, files)) return;
    OpenEach(session, session::FindTool(session, ToolKind::kEditor), files);
}

void mnuRun_HexEdit_Click(Session& session) {
    std::vector<std::string> files;
    if (!TakesFiles(session, files)) return;
    const Tool tool = HexEditor(session);
    if (!tool.isFound) {
        session.MsgBox(PromptId::kHexEditorMissing,
                       session::Worded(session, Wording::kHexEditorMissing));
        return;
    }
    OpenEach(session, tool, files);
}

void mnuRun_Run_Click(Session& session) {
    const std::int64_t count = CountSelected(session);
    const auto files = SelectedFiles(session);
    if (count != 1 || files.empty()) {
        session.MsgBox(PromptId::kRunCount,
                       "You must select one and only one file from search results!");
        return;
    }
    RunSelected(session, files.front());
}

void mnuRun_OpenParent_Click(Session& session) {
    if (CountSelected(session) != 1) {
        session.MsgBox(PromptId::kParentCount,
                       "There must only be one object selected in order to open the parent folder "
                       "in File Explorer.");
        return;
    }
    const auto parent = text::ParentFolder(session.selection->strSelActualPath.front());
    if (StartDoc(session, parent, Doing::kStart)) return;
    session.MsgBox(PromptId::kParentNotOpened,
                   " Unable to open. Either folder was deleted or it has a lock on it or its on a "
                   "removable device.");
}

void AddLaunchEvents(session::EventTable& events) {
    events.On("frmSearch.lstMain_DblClick", [](Session& session, const session::EventArgs& args) {
        lstMain_DblClick(session, static_cast<std::size_t>(args.index));
    });
    events.On("frmSearch.mnuRun_Mp3_Click", mnuRun_Mp3_Click);
    events.On("frmSearch.mnuRun_EnqueueMp3_Click", mnuRun_EnqueueMp3_Click);
    events.On("frmSearch.mnuRun_ForceEnqueueMp3_Click", mnuRun_ForceEnqueueMp3_Click);
    events.On("frmSearch.mnuRun_View_Click", mnuRun_View_Click);
    events.On("frmSearch.mnuRun_HexEdit_Click", mnuRun_HexEdit_Click);
    events.On("frmSearch.mnuRun_Run_Click", mnuRun_Run_Click);
    events.On("frmSearch.mnuRun_OpenParent_Click", mnuRun_OpenParent_Click);
    events.On("frmSearch.mnuHelp_SysInfo_Click", StartSysInfo);
}

} // namespace tarvix::launch
