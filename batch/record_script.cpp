#include "batch/script_recorder.h"
#include "platform/file_system.h"
#include "session/prompt_id.h"
#include "session/remembered/replace_file.h"
#include "session/session.h"

#include <fmt/core.h>

#include <memory>
#include <optional>

namespace tarvix::batch {

namespace {

using session::PromptId;
using session::Session;

constexpr std::string_view kFilters = "Scripts (*.tarvix)|*.tarvix|All Files (*.*)|*.*|";

// The recording of one program, if there is one, and where it goes.
struct Recording {
    std::unique_ptr<ScriptRecorder> recorder;
    std::string file;
};

void ShowState(Session& session, bool isOn) {
    auto& form = session.frmSearch;
    form.mnuFile_RecordScript.Caption = isOn ? "Stop &Recording" : "&Record a Script...";
    form.mnuFile_RecordScript.Checked = isOn;
    form.mnuFile_RunScript.Enabled = !isOn;
}

// A file that may be written; nothing when the user cancelled.
std::optional<std::string> AskFile(Session& session) {
    std::string file = session.PickNewFile(PromptId::kNewScript,
                                           {.filters = kFilters, .name = "New Script.tarvix"});
    if (file.empty()) return {};
    const bool exists = session.files().Facts(file).has_value();
    if (exists && session.MsgBox(PromptId::kConfirmWrite,
                                 fmt::format("{} exists already. Is the script to take its place?",
                                             session.Shown(file))) != session::kOk) {
        return {};
    }
    return file;
}

void Begin(Session& session, Recording& recording) {
    const auto file = AskFile(session);
    if (!file) return;
    recording.file = *file;
    recording.recorder = std::make_unique<ScriptRecorder>(session);
    session.recorder = recording.recorder.get();
    ShowState(session, true);
    session.frmSearch.lblStatus.Caption =
        fmt::format("Recording what you do to {}", session.Shown(recording.file));
}

void End(Session& session, Recording& recording) {
    if (!recording.recorder) return;
    session.recorder = nullptr;
    const std::string text = recording.recorder->Text();
    recording.recorder = nullptr;
    ShowState(session, false);
    const std::string shown = session.Shown(recording.file);
    const auto written = session::ReplaceTextFile(session.files(), recording.file, text);
    session::LogTimed(session, written
                                   ? fmt::format(" Wrote the script {}", shown)
                                   : fmt::format(" The script {} could not be written.", shown));
    if (written) {
        session.frmSearch.lblStatus.Caption = fmt::format("Wrote the script {}", shown);
    } else {
        session.MsgBox(PromptId::kScriptTold, fmt::format("The script {} could not be written: {}",
                                                          shown, session.Shown(written.error())));
    }
}

} // namespace

void AddRecorderEvents(session::EventTable& events) {
    const auto recording = std::make_shared<Recording>();
    events.On("frmSearch.mnuFile_RecordScript_Click",
              [recording](Session& session, const session::EventArgs&) {
                  if (recording->recorder) {
                      End(session, *recording);
                  } else {
                      Begin(session, *recording);
                  }
              });
    events.On(std::string(kEndRecording), [recording](Session& session, const session::EventArgs&) {
        End(session, *recording);
    });
}

} // namespace tarvix::batch
