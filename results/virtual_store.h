#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
struct SessionState;
} // namespace tarvix::session

namespace tarvix::results {

// Whether rows of a search location may stand for copies that the system keeps in the virtual
// store.
struct StoreScan {
    bool blnScanVirtualStore = false;    // its folder rows
    bool blnScanVirtualStoreOwn = false; // its file rows too
    bool operator==(const StoreScan&) const = default;
};

// Both are false unless the program's data had to go to the store; the first takes a location under
// which the program's folder or the data folder lies, the second one with the program's folder.
StoreScan StoreScanOf(const session::SessionState& state, std::string_view location);

// The copy that stands in the virtual store for an object of a protected folder: the store's path,
// or nothing when there is no such copy.
std::optional<std::string> FindInVirtualStore(session::Session& session, std::string_view path);

} // namespace tarvix::results
