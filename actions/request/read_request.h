#pragma once

#include "actions/place/action_request.h"

#include <string>

namespace tarvix::fields {
class FrmDialog;
}
namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// What stands in the action window, as values. `typed` takes the place of the destination box,
// where that is brought into another form first. A rule that can't be used is left out.
ActionRequest ReadRequest(const fields::FrmDialog& form, std::string strAction, std::string typed);
// As it stands in the session's own window, for its present action.
ActionRequest ReadRequest(const session::Session& session);

} // namespace tarvix::actions
