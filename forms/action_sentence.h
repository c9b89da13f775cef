#pragma once

#include "fields/frm_dialog.h"

#include <QString>

namespace tarvix::forms {

// What the action window is about to do, told in one or two sentences.
QString ActionSentence(const fields::FrmDialog& form);

} // namespace tarvix::forms
