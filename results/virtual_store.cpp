#include "results/virtual_store.h"

#include "platform/environment.h"
#include "platform/file_system.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"

namespace tarvix::results {

namespace {

constexpr int kStoreSince = 6000; // of intOSVersion, which must be above

bool LiesUnder(std::string_view folder, std::string_view location) {
    return text::EqualNoCase(folder, location) ||
           text::Upper(folder).starts_with(text::Concat({text::Upper(location), "\\"}));
}

} // namespace

StoreScan StoreScanOf(const session::SessionState& state, std::string_view location) {
    if (state.intOSVersion <= kStoreSince || !state.blnDataInVirtualStore) return {};
    const bool isOwn = LiesUnder(state.strProgramFolder, location);
    return {.blnScanVirtualStore = isOwn || LiesUnder(state.strDataFolder, location),
            .blnScanVirtualStoreOwn = isOwn};
}

std::optional<std::string> FindInVirtualStore(session::Session& session, std::string_view path) {
    std::string copy = session.platform.environment.VirtualStore();
    copy += text::Mid(path, 3);
    if (!session.files().Facts(copy)) return std::nullopt;
    return copy;
}

} // namespace tarvix::results
