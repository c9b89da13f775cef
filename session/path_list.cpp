#include "session/path_list.h"

#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "session/session.h"

namespace tarvix::session {

std::string ReadPathList(Session& session, std::string_view path) {
    auto stream = session.files().OpenAsTextStream(path, platform::OpenMode::kRead);
    if (!stream) {
        session.MsgBox("The list can't be read: " + stream.error().description, kExclamation);
        return {};
    }
    std::string paths;
    while (auto line = (*stream)->ReadLine()) {
        if (*line == "*EOF") break;
        if (line->empty()) continue;
        paths.append(paths.empty() ? "" : "|").append(session.platform.paths.ToDrive(*line));
    }
    return paths;
}

} // namespace tarvix::session
