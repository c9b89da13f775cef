#include "session/remembered/left_temporaries.h"

#include "platform/clock.h"
#include "platform/file_system.h"
#include "session/session.h"
#include "text/like.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <string>
#include <vector>

namespace tarvix::session {

namespace {

constexpr std::int64_t kInUse = 60; // seconds

bool IsTemporary(std::string_view name) {
    return text::Like(name, "TX*.tmp") || text::Like(name, "TX*.tmp#");
}

bool IsOld(Session& session, const platform::ObjectFacts& facts) {
    const auto changed = session.platform.clock.ToLocal(facts.modified);
    return text::ToSeconds(session.Now()) - text::ToSeconds(changed) > kInUse;
}

std::vector<std::string> OldTemporaries(Session& session, const std::string& folder) {
    std::vector<std::string> found;
    const auto opened = session.files().Open(folder);
    platform::FolderListing listing;
    if (!opened || !(*opened)->List(listing)) return found;
    for (std::size_t i = 0; i < listing.Size(); ++i) {
        const auto entry = listing[i];
        if (entry.isFolder || !IsTemporary(entry.name)) continue;
        const auto facts = (*opened)->Facts(entry.name);
        if (facts && IsOld(session, *facts)) found.push_back(text::JoinPath(folder, entry.name));
    }
    return found;
}

void Log(Session& session, const std::string& path) {
    LogTimed(session, fmt::format(" Removed {}, which a run that ended while it saved had left.",
                                  session.Shown(path)));
}

} // namespace

void RemoveLeftTemporaries(Session& session) {
    const std::string& folder = session.state.strDataFolder;
    if (const auto removed = session.files().RemoveAbandoned(folder)) {
        for (const std::string& path : *removed)
            Log(session, path);
    }
    for (const std::string& path : OldTemporaries(session, folder)) {
        if (session.files().DeleteFile(path, false)) Log(session, path);
    }
}

} // namespace tarvix::session
