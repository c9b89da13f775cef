#pragma once

#include "platform/clipboard.h"

class QMimeData;

namespace tarvix::forms {

// The clipboard of the windows' desktop.
class QtClipboard : public platform::Clipboard {
  public:
    void Put(const std::vector<platform::ClipboardForm>& forms) override;
};

// The same content for a drag; its owner is the caller's business.
QMimeData* MimeDataOf(const std::vector<platform::ClipboardForm>& forms);

} // namespace tarvix::forms
