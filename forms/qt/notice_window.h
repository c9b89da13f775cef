#pragma once

#include "forms/fields/prompt_forms.h"
#include "forms/qt/modal_window.h"

namespace tarvix::qt {

// A text that must be read, and OK.
class NoticeWindow : public ModalWindow {
  public:
    NoticeWindow(session::Session& session, EventGate& gate, forms::NoticeForm& form,
                 QWidget* parent);
};

} // namespace tarvix::qt
