#include "session/action_log.h"

#include "platform/file_system.h"
#include "platform/text_stream.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/format.h"

#include <cmath>
#include <utility>

namespace tarvix::session {

ActionLog::ActionLog() = default;
ActionLog::~ActionLog() = default;

void ActionLog::Open(Session& session) {
    wasOpened_ = true;
    const auto early = std::exchange(early_, {});
    auto stream = session.files().CreateTextFile(session.state.strActionLogFile, true);
    if (!stream) {
        if (session.state.options.blnAutoMode) return;
        session.MsgBox("unexpected error " + std::to_string(stream.error().number) + " " +
                       stream.error().description);
        return;
    }
    stream_ = std::move(*stream);
    std::string head = "Opened Log at " + text::DefaultDateText(session.Now()) + "\r\n\r\n";
    head += session.state.options.blnFileLog ? "Logging is turned on." : "Logging is turned off.";
    (void)stream_->Write(head + "\r\n\r\n");
    for (const std::string& text : early) {
        Write(session, text);
    }
}

void ActionLog::Close(Session& session) {
    if (!stream_) return;
    (void)stream_->Write("\r\nClosed Log at " + text::DefaultDateText(session.Now()) + "\r\n");
    (void)stream_->Close();
    stream_.reset();
}

void ActionLog::Write(Session& session, std::string_view text) {
    if (!wasOpened_) early_.emplace_back(text);
    if (!stream_ || !session.state.options.blnFileLog) return;
    std::string entry(text);
    entry.append("\r\n").append(DashesFor(text)).append("\r\n\r\n");
    (void)stream_->Write(entry);
    // What was done must stand in the file even if the program is killed next.
    (void)stream_->Flush();
}

void WriteToActionLog(Session& session, std::string_view text) {
    session.log.Write(session, text);
}

void LogTimed(Session& session, std::string_view text) {
    WriteToActionLog(session, session.TimeText().append(text));
}

std::string DashesFor(std::string_view text) {
    const std::size_t length = text::Length(text);
    if (text.find("\r\n") == text.npos) return std::string(length, '-');
    // nearbyint rounds a half to the even neighbour.
    const double dashes = std::nearbyint(static_cast<double>(length * 2) / 3.0);
    return std::string(static_cast<std::size_t>(dashes), '-');
}

} // namespace tarvix::session
