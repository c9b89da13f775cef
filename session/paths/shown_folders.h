#pragma once

#include "text/by_text.h"
#include "text/last_found.h"

#include <string>
#include <string_view>

namespace tarvix::session {

struct Session;

// Objects as people see them, cheap for many that share a few parents.
class ShownFolders {
  public:
    explicit ShownFolders(const Session& session) : session_(session) {}

    // As Session::Shown has it, for a full drive path; good until the next.
    std::string_view Of(std::string_view path);

  private:
    // What the form of each object below a parent begins with; empty where only the whole path
    // tells.
    const std::string& FormOf(std::string_view parent);

    const Session& session_;
    text::ByText<std::string> forms_;
    text::LastFound<std::string> lastForms_;
    std::string below_; // the last that was put together
    std::string whole_; // the last that was not
};

} // namespace tarvix::session
