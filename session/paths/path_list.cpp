#include "session/paths/path_list.h"

#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/list_marks.h"

#include <fmt/core.h>

namespace tarvix::session {

namespace {

std::string Unreadable(Session& session, const platform::PlatformError& error) {
    session.MsgBox(PromptId::kListUnreadable,
                   fmt::format("The list can't be read: {}", session.Shown(error)));
    return {};
}

} // namespace

std::string ReadPathList(Session& session, std::string_view path) {
    auto stream = session.files().OpenAsTextStream(path, platform::OpenMode::kRead);
    if (!stream) return Unreadable(session, stream.error());
    std::string paths;
    auto line = (*stream)->ReadLine();
    for (; line && *line != text::kEndMark; line = (*stream)->ReadLine()) {
        if (line->empty()) continue;
        paths.append(paths.empty() ? "" : "|").append(session.platform.paths.ToDrive(*line));
    }
    // Half a list would be taken for the whole.
    const bool isWhole = line || line.error().number == platform::kInputPastEnd;
    return isWhole ? paths : Unreadable(session, line.error());
}

} // namespace tarvix::session
