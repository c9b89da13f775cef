#include "actions/sources/source_list.h"

#include "platform/dir.h"
#include "session/paths/end_mark.h"
#include "session/session.h"
#include "session/tell.h"

#include <fmt/core.h>

namespace tarvix::actions {

using session::PromptId;
using session::Session;

void TellUnusable(Session& session, PromptId id, std::string_view told) {
    session.MsgBox(id, told);
    session::LogTimed(session, fmt::format(" {}", told));
}

bool HasSourceFile(Session& session, const std::string& strFile) {
    if (!platform::DirName(session.files(), strFile, platform::kDirFiles).empty()) return true;
    TellUnusable(session, PromptId::kSourceGone, "File not found");
    return false;
}

std::optional<std::vector<std::string>> ReadSourceList(Session& session, const std::string& strFile,
                                                       bool needsLines) {
    if (!HasSourceFile(session, strFile)) return std::nullopt;
    auto list = ReadNameLines(session.files(), strFile);
    if (!list) {
        TellUnusable(session, PromptId::kSourceGone, "File not found.");
        return std::nullopt;
    }
    if (needsLines && list->lines.empty()) {
        TellUnusable(session, PromptId::kSourceEmpty,
                     "List of Prefixes for renaming, File is empty.");
        return std::nullopt;
    }
    if (list->isMarked) return std::move(list->lines);
    const auto added = session::AddEndMark(session.files(), strFile);
    TellUnusable(session, PromptId::kSourceMarkMissing,
                 added ? "*EOF missing from end of text file. Ending Object renaming. Adding *EOF "
                         "mark for next usage."
                       : fmt::format("*EOF missing from end of text file. Ending Object renaming. "
                                     "The mark could not be added: {}",
                                     session.Shown(added.error())));
    return std::nullopt;
}

} // namespace tarvix::actions
