#pragma once

#include "fields/frm_dialog.h"

#include <string>

namespace tarvix::actions {

// What the action window is about to do, told in one or two sentences. Paths stand in drive form.
std::string RequestSentence(const fields::FrmDialog& form);

} // namespace tarvix::actions
