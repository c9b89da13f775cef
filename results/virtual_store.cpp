#include "results/virtual_store.h"

#include "platform/environment.h"
#include "platform/file_system.h"
#include "session/session.h"
#include "text/characters.h"

namespace tarvix::results {

std::optional<std::string> FindInVirtualStore(session::Session& session, std::string_view path) {
    std::string copy = session.platform.environment.VirtualStore();
    copy += text::Mid(path, 3);
    if (!session.files().Facts(copy)) return std::nullopt;
    return copy;
}

} // namespace tarvix::results
