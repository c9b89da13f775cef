#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "session/lifecycle/startup.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

namespace tarvix::lifecycle {

namespace {

// The lines of a Multiple Path List up to "*EOF" or its end, each behind a "|".
void ReadLocations(session::Session& session, const std::string& path) {
    auto& box = session.frmSearch.cmbDir;
    box.Text = "";
    auto stream = session.files().OpenAsTextStream(path, platform::OpenMode::kRead);
    if (!stream) return;
    std::string locations;
    while (auto line = (*stream)->ReadLine()) {
        if (*line == "*EOF") break;
        locations += "|" + session.platform.paths.ToDrive(*line);
    }
    box.Text = locations;
}

} // namespace

void CommandLineOptions(session::Session& session, std::string_view argument) {
    const std::string drivePath = session.platform.paths.ToDrive(argument);
    const std::string path(text::StripTrailingSlash(drivePath));
    if (path.empty()) return;
    const auto facts = session.files().Facts(path);
    if (!facts) return;
    auto& form = session.frmSearch;
    if (facts->IsFolder()) {
        form.cmbDir.Text = path;
    } else if (text::Upper(path).ends_with(".MPL")) {
        ReadLocations(session, path);
    } else {
        form.cmbDir.Text = std::string(text::StripTrailingSlash(text::ParentFolder(path)));
        form.cmbSearchFor.Text = std::string(text::FolderOwnName(path));
    }
}

} // namespace tarvix::lifecycle
