#pragma once

#include "cli/host.h"
#include "shortcuts/edit_file.h"

#include <cstdint>
#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::cli {

// The text for editing shortcuts, and the one beside it that tells what they held.
class LinksText {
  public:
    void Add(std::string path, shortcuts::LinkRecord record);
    // Writes both and prints where the text is; one that stands is replaced only if `replaces`.
    // Gives the exit code.
    int Write(Host& host, session::Session& session, const std::string& file, bool replaces) const;

  private:
    std::string text_;
    std::string originals_;
    std::int64_t count_ = 0;
};

// Saves what was changed in such a text; gives the exit code.
int ApplyLinks(Host& host, session::Session& session, const std::string& file, bool isRehearsal);

} // namespace tarvix::cli
