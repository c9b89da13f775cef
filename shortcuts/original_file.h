#pragma once

#include "shortcuts/edit_file.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::shortcuts {

// A record as it was before it was edited, and the shortcut that it is of.
struct OriginalRecord {
    std::string path; // drive path
    LinkRecord record;
};

// The text that goes beside one for editing: where each shortcut is, and what it held.
void AppendOriginal(std::string& text, const OriginalRecord& original);
// None for a text that is no such file to its end.
std::optional<std::vector<OriginalRecord>> ParseOriginals(std::string_view text);

} // namespace tarvix::shortcuts
