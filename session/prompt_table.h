#pragma once

#include "session/prompt_id.h"
#include "session/prompt_record.h"

#include <span>
#include <string_view>

namespace tarvix::session {

// What a prompt is for; whoever answers without a user goes by it.
enum class PromptRole : std::uint8_t {
    kNotice,       // only tells
    kFirstRun,     // what a first start tells and offers; its safe answer does no harm
    kDecision,     // a decision that is the user's own
    kConfirmation, // whether to do what was asked for; the first button does it
    kGoOn,         // whether to go on in spite of a warning; the first button does
    kTryAgain,     // whether to try a failed statement again
    kWindow,       // something to work in
};

// What is fixed of one prompt.
struct PromptFacts {
    PromptId id;
    PromptKind kind;
    PromptRole role;
    int style;              // of a message
    std::string_view title; // empty for a modal form, which has a caption of its own
    std::string_view form;  // the name of a modal form
};

// All prompts in the order of their ids, each once.
std::span<const PromptFacts> AllPrompts();
const PromptFacts& FactsOf(PromptId id);

} // namespace tarvix::session
