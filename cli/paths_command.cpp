#include "cli/commands.h"
#include "cli/print_rows.h"
#include "platform/environment.h"
#include "platform/native_paths.h"
#include "session/lifecycle/data_folder.h"
#include "session/session.h"
#include "session/unattended_prompts.h"
#include "text/paths.h"

#include <utility>
#include <vector>

namespace tarvix::cli {

namespace {

using Place = std::pair<std::string, std::string>;

std::vector<Place> PlacesOf(const platform::Platform& machine) {
    session::UnattendedPrompts prompts;
    session::Session session(machine, prompts);
    auto& state = session.state;
    const lifecycle::DataPlace data = lifecycle::PlaceOfData(machine.environment);
    state.strDataFolder = data.folder;
    lifecycle::FormDataPaths(session);
    return {{"Program", machine.environment.ProgramFolder()},
            {"Data folder", data.folder},
            {"Options", state.strOptionFile},
            {"Options at the last start", state.strOptionBackupFile},
            {"Machine settings", state.strPlatformFile},
            {"Search history", state.strFSSearchHistoryFile},
            {"Location history", state.strFSFolderHistoryFile},
            {"Destination history", state.strFDHistoryFile},
            {"Action logs", text::JoinPath(data.folder, "TXAction")},
            {"Error log", state.strErrorLogFile}};
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const PathsRequest& request) {
    std::vector<Place> places = PlacesOf(machine);
    for (auto& [name, path] : places) {
        path = machine.paths.ToNative(path);
        // Each run has a log of its own.
        if (name == "Action logs") path += " *.log";
    }
    PrintPairs(places, "\t", request.json, host.out);
    return kDone;
}

} // namespace tarvix::cli
