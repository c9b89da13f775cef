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
    while (!opened && !file_.IsOpen() && opened.error().number == platform::kPermissionDenied &&
           session.files().Facts(name)) {
        name.insert(name.size() - kExtension, "_1");
        opened = file_.Open(session.files(), name, head);
    }
    if (!opened && file_.IsOpen()) {
        session.NoteLogTrouble(opened.error());
    } else if (!opened) {
        TellUnexpected(session, opened.error(), "OpenProgramErrorFile", name);
    }
    const auto written = WriteRaw(std::exchange(early_, {}));
    if (!written) session.NoteLogTrouble(written.error());
}

void ErrorLog::Close(Session& session) {
    const auto closed = file_.Close(
        fmt::format("\r\nClosed Error Log at {}\r\n", text::DefaultDateText(session.Now())));
    if (closed || session.state.blnLogFailed) return;
    session.state.blnLogFailed = true;
    TellUnexpected(session, closed.error(), "CloseProgramErrorFile", session.state.strErrorLogFile);
}

platform::Result<void> ErrorLog::WriteRaw(std::string_view text) {
    if (file_.IsOpen()) return file_.Write(text);
    if (keeps_) early_.append(text);
    return {};
}

} // namespace tarvix::session
