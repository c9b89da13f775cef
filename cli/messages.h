#pragma once

#include "cli/host.h"
#include "session/prompt_record.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct LeftOut;
struct Session;
} // namespace tarvix::session

namespace tarvix::cli {

// One sentence on stderr, behind the program's name.
void Complain(Host& host, std::string_view sentence);

// Takes the line of progress off the terminal; before anything else is printed.
void ClearProgress(Host& host);

// A prompt's text on stderr, its empty lines left out.
void Tell(Host& host, std::string_view text);

// What the last search could not read, on stderr: a line for each reason, or for each object where
// the host is verbose.
void TellUnread(Host& host, const session::Session& session);

// Why objects failed, those of one reason in one line; `failed` may be more than there are
// sentences.
void TellErrors(Host& host, const std::vector<std::string>& sentences, std::int64_t failed);

// What its attribute boxes left out, in one line, with the option that finds it.
void TellLeftOut(Host& host, const session::LeftOut& leftOut);

// The sentence of a prompt that had no answer, and how to give one; `way` is "give --answer", or
// "put answer" for a script.
std::string HowToAnswer(const session::PromptRecord& prompt, std::string_view way);

// A prompt's text on one line: line ends become blanks.
std::string OnOneLine(std::string_view text);

} // namespace tarvix::cli
