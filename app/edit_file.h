#pragma once

#include <expected>
#include <string>

namespace tarvix::app {

// Opens a file (native path) in the editor that VISUAL or EDITOR names, else in the machine's own,
// and waits for its end. A failure to start it, and an end other than 0, is a sentence. Ctrl+C goes
// to the editor alone meanwhile.
std::expected<void, std::string> EditFile(const std::string& file);

} // namespace tarvix::app
