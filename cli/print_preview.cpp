#include "cli/print_preview.h"

#include "actions/request/preview.h"
#include "cli/messages.h"
#include "cli/print_rows.h"
#include "cli/request.h"
#include "platform/native_paths.h"
#include "results/selection.h"
#include "session/session.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace tarvix::cli {

namespace {

using session::Session;

nlohmann::ordered_json EntryAsJson(Session& session, const actions::PreviewEntry& entry) {
    const auto& paths = session.platform.paths;
    const std::string_view path = session.selection->strSelPath[entry.index];
    return {{"Object", path},
            {"NativePath", paths.ToNative(path)},
            {"NewPath", entry.strNewPath},
            {"NewNativePath",
             entry.strNewPath.empty() ? std::string() : paths.ToNative(entry.strNewPath)},
            {"Verdict", actions::VerdictText(entry)}};
}

// Whether it would be done as asked, as the exit code of the action itself counts it.
bool IsDone(actions::Verdict verdict) {
    using actions::Verdict;
    return verdict == Verdict::kCopy || verdict == Verdict::kMove || verdict == Verdict::kRename ||
           verdict == Verdict::kDuplicateRename || verdict == Verdict::kDuplicateOverwrite ||
           verdict == Verdict::kDuplicateSkip || verdict == Verdict::kUnchanged;
}

} // namespace

int PrintPreview(Host& host, Session& session, const actions::PreviewResult& result,
                 PreviewRows rows, bool asJson) {
    if (!result.refusal.empty()) {
        Complain(host, result.refusal);
        return kBadRequest;
    }
    const auto& paths = session.platform.paths;
    bool isAll = true;
    for (const auto& entry : result.entries) {
        isAll = isAll && IsDone(entry.verdict);
        const bool isLeft = entry.verdict == actions::Verdict::kUnchanged;
        if (isLeft && rows == PreviewRows::kChanges) continue;
        if (asJson) {
            PrintJson(EntryAsJson(session, entry), host.out);
            continue;
        }
        host.out << actions::VerdictText(entry) << '\t'
                 << paths.ToNative(session.selection->strSelPath[entry.index]) << '\t'
                 << (entry.strNewPath.empty() ? std::string() : paths.ToNative(entry.strNewPath))
                 << '\n';
    }
    host.out.flush();
    return isAll ? kDone : kSomeFailed;
}

} // namespace tarvix::cli
