#pragma once

#include "actions/place/action_request.h"

#include <string>

namespace tarvix::fields {
class FrmDialog;
}
namespace tarvix::platform {
class NativePaths;
}
namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// What stands in the action window, as values. `typed` takes the place of the destination box,
// where that is brought into another form first. Parts of names come as drive paths have them on
// this machine. A rule that can't be used is left out.
ActionRequest ReadRequest(const fields::FrmDialog& form, const platform::NativePaths& paths,
                          std::string strAction, std::string typed);
// As it stands in the session's own window, for its present action.
ActionRequest ReadRequest(const session::Session& session);

} // namespace tarvix::actions
