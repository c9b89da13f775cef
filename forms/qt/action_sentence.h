#pragma once

#include "forms/fields/frm_dialog.h"

#include <QString>

namespace tarvix::qt {

// What the action window is about to do, told in one or two sentences.
QString ActionSentence(const forms::FrmDialog& form);

} // namespace tarvix::qt
