#include "session/error_log.h"

#include "platform/file_system.h"
#include "session/errors.h"
#include "session/session.h"
#include "text/format.h"

#include <fmt/core.h>

#include <utility>

namespace tarvix::session {

namespace {

constexpr std::size_t kExtension = 4;

} // namespace

void ErrorLog::Open(Session& session) {
    std::string& name = session.state.strErrorLogFile;
    const std::string head =
        fmt::format("Opened Error Log at {}\r\n\r\n", text::DefaultDateText(session.Now()));
    auto opened = file_.Open(session.files(), name, head);
    // A folder that can't be written refuses every name, and its longest name differs.
    while (!opened && opened.error().number == platform::kPermissionDenied &&
           session.files().Facts(name)) {
        name.insert(name.size() - kExtension, "_1");
        opened = file_.Open(session.files(), name, head);
    }
    if (!opened) TellUnexpected(session, opened.error(), "OpenProgramErrorFile", name);
    WriteRaw(std::exchange(early_, {}));
}

void ErrorLog::Close(Session& session) {
    const auto closed = file_.Close(
        fmt::format("\r\nClosed Error Log at {}\r\n", text::DefaultDateText(session.Now())));
    if (closed) return;
    TellUnexpected(session, closed.error(), "CloseProgramErrorFile", session.state.strErrorLogFile);
}

void ErrorLog::WriteRaw(std::string_view text) {
    if (file_.IsOpen()) {
        file_.Write(text);
    } else if (keeps_) {
        early_.append(text);
    }
}

} // namespace tarvix::session
