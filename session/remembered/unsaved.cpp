#include "session/remembered/unsaved.h"

#include "platform/file_system.h"
#include "session/errors.h"
#include "session/prompt_id.h"
#include "session/remembered/replace_file.h"
#include "session/session.h"
#include "session/tell.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::session {

namespace {

constexpr std::size_t kEnoughForAFile = 4096;

void Record(Session& session, const platform::PlatformError& error, std::string_view routine,
            std::string_view path, std::string_view message) {
    ReportError(session, error,
                {.routine = routine,
                 .moduleName = "Module1",
                 .searchOrDestination = path,
                 .objectType = ObjectType::kFile},
                0, message);
}

} // namespace

platform::Result<void> TryDataFolder(Session& session) {
    const std::string probe = text::JoinPath(session.state.strDataFolder, "TXWriteTest");
    auto written = ReplaceTextFile(session.files(), probe, text::Repeat(" ", kEnoughForAFile));
    (void)session.files().DeleteFile(probe, true);
    return written;
}

void TellDataUnwritable(Session& session, const platform::PlatformError& error,
                        std::string_view first) {
    auto& state = session.state;
    state.blnDataUnwritable = true;
    const std::string told =
        fmt::format("{}The data folder can't be written: {}\r\n\r\n{}\r\n\r\nThe options and "
                    "histories of this run are not saved. The files there stay as they were.",
                    first, session.Shown(state.strDataFolder), session.Shown(error));
    TellUnlessAuto(session, PromptId::kDataFolderUnwritable, told);
    Record(session, error, "SaveOptionFile", state.strDataFolder, told);
}

void NoteLeftAlone(Session& session, std::string_view routine, std::string_view path) {
    Record(session, {platform::kPathFileAccess, platform::ErrorText(platform::kPathFileAccess)},
           routine, path,
           fmt::format("{} was not read whole, so it is left as it is and nothing is saved in it.",
                       path));
}

} // namespace tarvix::session
