#pragma once

#include "platform/error.h"
#include "session/settings/option_keys.h"

#include <string>
#include <string_view>

namespace tarvix::session {

// Texts of the options file as values, and back. Error 13 for a text that is no such value, 6 for a
// number beyond its range, 9 for an index beyond its table.

// "True" or "False" in either case, or a number, of which 0 is False.
platform::Result<bool> ToBoolean(std::string_view text);
// A number, rounded half to even, from 0 to `most`.
platform::Result<int> ToByte(std::string_view text, int most = 255);
// A number in the range of a float.
platform::Result<float> ToSingle(std::string_view text);

// One line cut at the first of each separator. Views point into the line.
struct OptionLine {
    std::string_view key;         // "strDefSearchFolder" without its index
    std::string_view value;       // all that stands behind "=" and one more character
    std::string_view rest;        // behind the first blank
    std::string_view folderValue; // from behind "= " to the "["
    std::string_view title;       // behind the "["
    std::string_view paren;       // between "(" and ")"
    bool hasBracket = false;
};
// Takes a line without its end; what isn't in it is empty.
OptionLine SplitOptionLine(std::string_view line);

// Takes the line's value into `options`. A failure changes nothing.
platform::Result<void> TakeOption(Options& options, const OptionKey& key, const OptionLine& line);
// The same for the "Include NAME 00" and "Exclude NAME 00" lines.
platform::Result<void> TakeEnvVariable(Options& options, const OptionLine& line, bool include);

// Where nothing was read yet: every field False, 0 or empty.
Options BlankOptions();
// The value that a key has when its line is missing.
void FillMissingOption(Options& options, const OptionKey& key);

// "key = value" for each line of one key, without line ends.
std::vector<std::string> OptionLines(const Options& options, const OptionKey& key);

} // namespace tarvix::session
