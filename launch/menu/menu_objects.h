#pragma once

#include "launch/custom/chosen.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::menu {

// The selected objects as the menu and what it starts need them; both lists in the list's order.
struct MenuObjects {
    std::vector<std::string> paths; // drive form
    custom::Chosen chosen;          // the same in native form, with types
};

// Those of the selected rows. Nothing when none is selected, and when one of them has gone or has
// no native path: `gone` then names the first.
std::optional<MenuObjects> SelectedObjects(session::Session& session, std::string& gone);

// Their native paths.
std::vector<std::string> NativePathsOf(const custom::Chosen& chosen);

} // namespace tarvix::menu
