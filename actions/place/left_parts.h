#pragma once

#include "text/by_text.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// Copies without a name that runs which were killed left behind. Each folder that an action comes
// by is looked through once; what goes is logged and counted in `lastAction`.
class LeftParts {
  public:
    // `path` of an object, in the folder or to be put there.
    void RemoveAround(session::Session& session, std::string_view path);
    // Whether there is nothing left to look for in that folder.
    bool HasSeenAround(std::string_view path) const;

  private:
    std::string last_;
    std::unordered_set<std::string, text::TextHash, std::equal_to<>> seen_;
};

} // namespace tarvix::actions
