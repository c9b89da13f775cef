#pragma once

#include "forms/modal_window.h"

namespace tarvix::forms {

// frmShortcutWarning: what editing shortcuts in bulk means, and how to do it.
class ShortcutWarningWindow : public ModalWindow {
  public:
    ShortcutWarningWindow(session::Session& session, EventGate& gate, QWidget* parent);
};

// frmLinkChanges: what a save would change, a line for each value.
class LinkChangesWindow : public ModalWindow {
  public:
    LinkChangesWindow(session::Session& session, EventGate& gate, QWidget* parent);
};

} // namespace tarvix::forms
