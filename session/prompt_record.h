#pragma once

#include "session/prompt.h"

#include <cstdint>
#include <string>

namespace tarvix::session {

enum class PromptKind : std::uint8_t { kMessage, kInput, kForm, kFolder, kFile, kNewFile };

// One prompt as it was put, and what it was answered.
struct PromptRecord : Prompt {
    PromptKind kind = PromptKind::kMessage;
    std::string form; // the name of a modal form
    // The caption of a message's button, the text of an input, the last control that an answer
    // clicked in a form. Empty when it wasn't answered.
    std::string answer;
};

} // namespace tarvix::session
