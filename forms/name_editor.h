#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::forms {

class ResultView;

// Whether the name of a row can be edited as text: none is of bytes that are no text.
bool CanEditName(const session::Session& session, std::size_t row);

// Lets the name of a row be edited where it stands, its part in front of the extension selected.
// Enter hands on the new name in drive form; Escape, and leaving the box, change nothing.
void EditName(ResultView& list, const session::Session& session, std::size_t row,
              std::function<void(std::size_t row, const std::string& name)> onName);

} // namespace tarvix::forms
