#pragma once

#include "platform/applications.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::custom {

// The words of a command line as a shell parts them, their quotes off; nothing else of a shell is
// followed. Nothing for a quote that isn't closed and for a line without a word.
std::optional<std::vector<std::string>> SplitWords(std::string_view line);

// Whether a line means more to a shell than words: "|", "&&", "$x" outside of quotes and the like.
bool NeedsShell(std::string_view line);

// What stands behind a "%" and a letter: any number of values, or nothing for a code that isn't
// known, which stays as it is. "%%" is a "%".
using Codes = std::function<std::optional<std::vector<std::string>>(char code)>;

// A text with its codes filled in, the values of a list with blanks between.
std::string FillText(std::string_view text, const Codes& codes);

// The process of a command line. A value is one argument, or part of one, whatever it holds, and a
// code that stands alone becomes as many as it has values. Where a word is a program for a shell
// (behind "sh -c"), values reach it as variables, so that none is ever read as a command. Nothing
// for a line that can't be read.
std::optional<platform::PlannedProcess> FillWords(std::string_view line, const Codes& codes);

// The same of a line that is a program for "sh -c" as a whole.
platform::PlannedProcess FillShellLine(std::string_view line, const Codes& codes);

} // namespace tarvix::custom
