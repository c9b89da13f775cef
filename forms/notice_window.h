#pragma once

#include "fields/prompt_forms.h"
#include "forms/modal_window.h"

namespace tarvix::forms {

// A text that must be read, and OK.
class NoticeWindow : public ModalWindow {
  public:
    NoticeWindow(session::Session& session, EventGate& gate, fields::NoticeForm& form,
                 QWidget* parent);
};

} // namespace tarvix::forms
