#pragma once

#include "cli/host.h"

namespace tarvix::actions {
struct PreviewResult;
}
namespace tarvix::session {
struct Session;
}

namespace tarvix::cli {

enum class PreviewRows { kAll, kChanges };

// Prints what would happen, object by object, or what keeps it from happening. Gives the exit code
// that the action itself would.
int PrintPreview(Host& host, session::Session& session, const actions::PreviewResult& result,
                 PreviewRows rows, bool asJson);

} // namespace tarvix::cli
