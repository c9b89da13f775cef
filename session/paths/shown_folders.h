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

    // As Session::Shown has it, for a full drive path; good until the next.
    std::string_view Of(std::string_view path);

  private:
    // Whether `below_` begins with the form of this parent.
    bool BeginsWith(std::string_view parent);

    const Session& session_;
    std::string parent_; // of the last
    // Bytes of its form and the separator behind it; 0 where only the whole path tells.
    std::optional<std::size_t> parentSize_;
    std::string below_; // the last that was put together
    std::string whole_; // the last that was not
};

} // namespace tarvix::session
