#pragma once

#include <cstdint>
#include <string>

namespace tarvix::fields {
class Form;
}

namespace tarvix::session {

enum class PromptKind : std::uint8_t { kMessage, kInput, kForm, kFolder, kFile };

// One prompt as it was put, and what it was answered.
struct PromptRecord {
    PromptKind kind = PromptKind::kMessage;
    int style = 0;    // of a message
    std::string form; // the name of a modal form
    std::string title;
    std::string text; // of a modal form: what its lblMain reads
    // The caption of a message's button, the text of an input, the last control that an answer
    // clicked in a form. Empty when it wasn't answered.
    std::string answer;
};

// The record of a modal form that is about to show.
PromptRecord RecordOf(const fields::Form& form);

} // namespace tarvix::session
