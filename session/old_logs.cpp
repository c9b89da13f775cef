#include "session/old_logs.h"

#include "platform/dir.h"
#include "platform/file_system.h"
#include "session/session.h"
#include "text/case.h"
#include "text/like.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>

namespace tarvix::session {

namespace {

constexpr std::string_view kLogs = "TXAction *.log";
constexpr std::string_view kLogName = "TXAction ##.##.## ##.##.##.log";
constexpr int kCentury = 2000; // names have two digits of the year
constexpr std::int64_t kDay = 86'400;

int TwoDigits(std::string_view name, std::size_t at) {
    return (name[at] - '0') * 10 + name[at + 1] - '0';
}

// A program that writes a log holds it.
bool IsWritten(platform::FileSystem& files, const std::string& path) {
    return !files.OpenAsTextStream(path, platform::OpenMode::kAppend);
}

// How many of the logs, newest first, are kept.
std::size_t CountKept(const std::vector<RunLog>& logs, const LogsKept& kept,
                      const text::DateTime& now) {
    if (kept.most == 0) return logs.size();
    if (!kept.inDays) return std::min(logs.size(), static_cast<std::size_t>(kept.most));
    const std::int64_t oldest = text::ToSeconds(now) - kept.most * kDay;
    const auto firstGone = std::ranges::find_if(
        logs, [&](const RunLog& log) { return text::ToSeconds(log.started) < oldest; });
    return static_cast<std::size_t>(firstGone - logs.begin());
}

} // namespace

std::optional<text::DateTime> StartOfRun(std::string_view fileName) {
    if (!text::Like(fileName, kLogName)) return std::nullopt;
    constexpr std::array<std::size_t, 6> kPlaces{9, 12, 15, 18, 21, 24};
    const auto part = [&](std::size_t index) { return TwoDigits(fileName, kPlaces[index]); };
    const text::DateTime started{kCentury + part(2), part(0), part(1), part(3), part(4), part(5)};
    const bool isDate = text::FromSeconds(text::ToSeconds(started)) == started;
    return isDate ? std::optional(started) : std::nullopt;
}

std::vector<RunLog> ListRunLogs(Session& session) {
    const std::string& folder = session.state.strDataFolder;
    std::vector<RunLog> logs;
    platform::Dir dir(session.files());
    for (std::string name = dir.First(text::JoinPath(folder, kLogs), platform::kDirFiles);
         !name.empty(); name = dir.Next()) {
        if (const auto started = StartOfRun(name)) {
            logs.push_back({text::JoinPath(folder, name), *started});
        }
    }
    std::ranges::stable_sort(logs, std::greater{}, &RunLog::started);
    return logs;
}

void RemoveOldLogs(Session& session) {
    const LogsKept& kept = session.state.platformSettings.logsKept;
    if (kept.most == 0 || !session.log.IsOpen()) return;
    const auto logs = ListRunLogs(session);
    auto& files = session.files();
    int removed = 0;
    for (std::size_t i = CountKept(logs, kept, session.Now()); i < logs.size(); ++i) {
        const std::string& path = logs[i].path;
        const bool isOwn = text::EqualNoCase(path, session.state.strActionLogFile);
        if (isOwn || IsWritten(files, path)) continue;
        if (files.DeleteFile(path, false)) ++removed;
    }
    if (removed == 0) return;
    LogTimed(session, fmt::format(" Deleted {} action log{} of earlier runs, as LogsKept says.",
                                  removed, removed == 1 ? "" : "s"));
}

} // namespace tarvix::session
