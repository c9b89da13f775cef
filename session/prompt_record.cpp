#include "session/prompt_record.h"

#include "fields/control.h"

namespace tarvix::session {

PromptRecord RecordOf(const fields::Form& form) {
    const fields::Control* main = form.Find("lblMain");
    return {.kind = PromptKind::kForm,
            .form = form.Name(),
            .title = form.Caption,
            .text = main ? main->ValueText() : std::string{}};
}

} // namespace tarvix::session
