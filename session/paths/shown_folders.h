#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::session {

struct Session;

// Objects as people see them, cheap for many of one parent in a row.
class ShownFolders {
  public:
    explicit ShownFolders(const Session& session) : session_(session) {}

    // As Session::Shown has it, for a full drive path.
    std::string Of(std::string_view path);

  private:
    std::string_view ShownParent(std::string_view parent);

    const Session& session_;
    std::string parent_;                     // of the last
    std::optional<std::string> shownParent_; // empty where only the whole path tells
};

} // namespace tarvix::session
