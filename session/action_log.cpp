#include "session/action_log.h"

#include "platform/file_system.h"
#include "platform/names.h"
#include "session/errors.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/dates.h"
#include "text/format.h"

#include <fmt/core.h>

#include <cmath>
#include <utility>

namespace tarvix::session {

namespace {

// How many logs may bear the names of the same moments.
constexpr int kMostTries = 3600;

std::size_t DashCount(std::string_view text) {
    const std::size_t length = text::Length(text);
    if (text.find("\r\n") == text.npos) return length;
    // nearbyint rounds a half to the even neighbour.
    return static_cast<std::size_t>(std::nearbyint(static_cast<double>(length * 2) / 3.0));
}

} // namespace

std::string ActionLogName(Session& session, int secondsLater) {
    const auto opened = text::FromSeconds(text::ToSeconds(session.Now()) + secondsLater);
    return fmt::format("{}\\TXAction {}.log", session.state.strDataFolder,
                       text::FormatDate(opened, "mm.dd.yy hh.nn.ss"));
}

platform::Result<void> ActionLog::TryOpen(Session& session) {
    wasOpened_ = true;
    const auto early = std::exchange(early_, {});
    std::string& name = session.state.strActionLogFile;
    const std::string head = fmt::format("Opened Log at {}\r\n\r\nLogging is turned {}.\r\n\r\n",
                                         text::DefaultDateText(session.Now()),
                                         session.state.options.blnFileLog ? "on" : "off");
    auto opened = file_.Create(session.files(), name, head);
    for (int later = 1; later < kMostTries && !opened && !file_.IsOpen() &&
                        opened.error().number == platform::kAlreadyExists;
         ++later) {
        name = ActionLogName(session, later);
        opened = file_.Create(session.files(), name, head);
    }
    if (!opened && file_.IsOpen()) {
        session.NoteLogTrouble(opened.error());
    } else if (!opened) {
        return opened;
    }
    for (const std::string& text : early) {
        Write(session, text);
    }
    return {};
}

void ActionLog::Open(Session& session) {
    const auto opened = TryOpen(session);
    if (opened) return;
    TellUnexpected(session, opened.error(), "OpenActionLog", session.state.strActionLogFile);
}

void ActionLog::Close(Session& session) {
    const auto closed =
        file_.Close(fmt::format("\r\nClosed Log at {}\r\n", text::DefaultDateText(session.Now())));
    if (closed || session.state.blnLogFailed) return;
    session.state.blnLogFailed = true;
    TellUnexpected(session, closed.error(), "CloseActionLog", session.state.strActionLogFile);
}

std::string_view ActionLog::Entry(const Session& session, std::string_view text,
                                  std::string_view stamp) {
    entry_.assign(stamp).append(text);
    if (!wasOpened_) early_.push_back(entry_);
    if (!file_.IsOpen() || !session.state.options.blnFileLog) return {};
    if (platform::MayHoldCarried(entry_)) entry_ = platform::ForDisplay(entry_);
    const std::size_t dashes = DashCount(entry_);
    return entry_.append("\r\n").append(dashes, '-').append("\r\n\r\n");
}

void ActionLog::Write(Session& session, std::string_view text, std::string_view stamp) {
    const auto written = file_.Write(Entry(session, text, stamp));
    if (!written) session.NoteLogTrouble(written.error());
}

void ActionLog::WriteSoon(Session& session, std::string_view text, std::string_view stamp) {
    const auto added = file_.Add(Entry(session, text, stamp));
    if (!added) session.NoteLogTrouble(added.error());
}

std::optional<platform::MoveNote> ActionLog::Note(const Session& session, std::string_view text,
                                                  std::string_view stamp) {
    if (!file_.IsOpen()) return std::nullopt;
    std::string entry(Entry(session, text, stamp));
    if (entry.empty()) return platform::MoveNote{};
    return platform::MoveNote{file_.Stream(), std::move(entry)};
}

void ActionLog::Flush(Session& session) {
    const auto flushed = file_.Flush();
    if (!flushed) session.NoteLogTrouble(flushed.error());
}

void WriteToActionLog(Session& session, std::string_view text) {
    session.log.Write(session, text);
}

void LogTimed(Session& session, std::string_view text) {
    session.log.Write(session, text, session.TimeText());
}

void LogPlanned(Session& session, std::string_view text) {
    session.log.WriteSoon(session, text, session.TimeText());
}

std::optional<platform::MoveNote> NoteTimed(Session& session, std::string_view text) {
    return session.log.Note(session, text, session.TimeText());
}

std::string DashesFor(std::string_view text) {
    return std::string(DashCount(text), '-');
}

} // namespace tarvix::session
