#include "session/lifecycle/data_folder.h"

#include "platform/environment.h"
#include "platform/file_system.h"
#include "session/missing_folders.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/format.h"
#include "text/paths.h"

namespace tarvix::lifecycle {

namespace {
// The program's own folder without its drive, or without the "\\" of a share.
std::string BelowDrive(std::string_view folder) {
    return std::string(text::Mid(folder, 3));
}
} // namespace

void FindDataFolder(session::Session& session) {
    auto& state = session.state;
    auto& environment = session.platform.environment;
    state.strProgramFolder = environment.ProgramFolder();
    if (const auto asked = environment.DataFolder()) {
        state.strDataFolder = std::string(text::StripTrailingSlash(*asked));
    } else if (environment.IsProtectedFolder(state.strProgramFolder)) {
        state.blnDataInVirtualStore = true;
        state.strDataFolder = environment.VirtualStore() + BelowDrive(state.strProgramFolder);
    } else {
        state.strDataFolder = state.strProgramFolder;
    }
    if (!platform::GetFolder(session.files(), state.strDataFolder)) {
        session::CreateMissingFolder(session, state.strDataFolder, true);
    }
}

void FormDataPaths(session::Session& session) {
    auto& state = session.state;
    const std::string folder = state.strDataFolder + "\\";
    state.strFDHistoryFile = folder + "TXFDFolderHistoryFile.txt";
    state.strFSSearchHistoryFile = folder + "TXFSSearchHistoryFile.txt";
    state.strFSFolderHistoryFile = folder + "TXFSFolderHistoryFile.txt";
    state.strTargetPathFile = folder + "TXTargetPathFile.txt";
    state.strActionLogFile =
        folder + "TXAction " + text::FormatDate(session.Now(), "mm.dd.yy hh.nn.ss") + ".log";
    state.strErrorLogFile = folder + "TXProgramError.log";
    state.strOptionFile = folder + "TXOptionFile.txt";
    state.strOptionBackupFile = folder + "TXOptionFile.bak";
}

} // namespace tarvix::lifecycle
