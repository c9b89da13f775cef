#pragma once

#include <cstdint>
#include <string>

namespace tarvix::session {

// Which prompt it is; `session/prompt_id.h` names them.
enum class PromptId : std::uint8_t;

// One prompt as it is put. Fronts decide by `id`, never by what the texts say.
struct Prompt {
    PromptId id{};
    int style = 0; // of a message
    std::string title;
    std::string text; // of a modal form: what its lblMain reads
    // What a window says in place of a text that speaks of routines, which it has under Details;
    // empty where the text says it plainly.
    std::string plain;
    std::string folder; // where a picker begins, in drive form; empty for where the last one ended
    std::string verb;   // what a window's button that goes ahead says; empty for its usual word
    // About one of many objects: it may be answered kSkipAll and kStopAll, too.
    bool isInLoop = false;
};

} // namespace tarvix::session
