#include "session/lifecycle/data_folder.h"

#include "platform/environment.h"
#include "platform/file_system.h"
#include "session/paths/missing_folders.h"
#include "session/remembered/platform_file.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::lifecycle {

namespace {
constexpr std::string_view kPlatformFile = "TXPlatform.txt";

// The program's own folder without its drive, or without the "\\" of a share.
std::string_view BelowDrive(std::string_view folder) {
    return text::Mid(folder, 3);
}
} // namespace

DataPlace PlaceOfData(const platform::Environment& environment) {
    const std::string program = environment.ProgramFolder();
    if (const auto asked = environment.DataFolder()) {
        return {std::string(text::StripTrailingSlash(*asked)), false};
    }
    if (environment.IsProtectedFolder(program)) {
        return {fmt::format("{}{}", environment.VirtualStore(), BelowDrive(program)), true};
    }
    return {program, false};
}

void FindDataFolder(session::Session& session) {
    auto& state = session.state;
    const DataPlace place = PlaceOfData(session.platform.environment);
    state.strProgramFolder = session.platform.environment.ProgramFolder();
    state.strDataFolder = place.folder;
    state.blnDataInVirtualStore = place.isVirtualStore;
    if (!platform::GetFolder(session.files(), state.strDataFolder)) {
        // One that can't be made is told when the logs are opened in it.
        session::CreateMissingFolder(session, state.strDataFolder, true, true);
    }
}

void FormDataPaths(session::Session& session) {
    auto& state = session.state;
    const std::string& folder = state.strDataFolder;
    state.strFDHistoryFile = text::JoinPath(folder, "TXFDFolderHistoryFile.txt");
    state.strFSSearchHistoryFile = text::JoinPath(folder, "TXFSSearchHistoryFile.txt");
    state.strFSFolderHistoryFile = text::JoinPath(folder, "TXFSFolderHistoryFile.txt");
    state.strActionLogFile = session::ActionLogName(session);
    state.strErrorLogFile = text::JoinPath(folder, "TXProgramError.log");
    state.strOptionFile = text::JoinPath(folder, "TXOptionFile.txt");
    state.strOptionBackupFile = text::JoinPath(folder, "TXOptionFile.bak");
    state.strTargetPathFile = text::JoinPath(folder, "TXTargetPathFile.txt");
    state.strPlatformFile = text::JoinPath(folder, kPlatformFile);
}

std::vector<std::pair<char, std::string>> SavedDrives(const platform::Platform& machine) {
    const std::string folder = PlaceOfData(machine.environment).folder;
    const auto settings =
        session::ReadPlatformFile(machine.files, text::JoinPath(folder, kPlatformFile));
    return {settings.drives.begin(), settings.drives.end()};
}

} // namespace tarvix::lifecycle
