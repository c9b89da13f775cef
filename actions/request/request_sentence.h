#pragma once

#include "fields/frm_dialog.h"

#include <string>

namespace tarvix::actions {

// What the action window is about to do, told in one or two sentences. `place` is its destination
// as people read it.
std::string RequestSentence(const fields::FrmDialog& form, const std::string& place);

} // namespace tarvix::actions
