#pragma once

#include "cli/host.h"
#include "shortcuts/formats/values.h"

#include <cstdint>
#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::cli {

// Saves changed shortcuts one after the other and prints each value that changes.
class LinkSaver {
  public:
    LinkSaver(Host& host, session::Session& session, bool isRehearsal)
        : host_(host), session_(session), isRehearsal_(isRehearsal) {}

    struct Link {
        std::string path;         // drive path
        shortcuts::Values stored; // as it was read
        shortcuts::Values wanted;
        std::string newName; // empty for its own
    };
    void Save(const Link& link);
    // Tells why a shortcut was not saved.
    void Fail(const std::string& path, const std::string& why);
    // Prints the sum; gives the exit code.
    int End() const;

  private:
    void Write(const Link& link, const shortcuts::Edits& edits);
    void PrintChanges(const Link& link) const;

    Host& host_;
    session::Session& session_;
    bool isRehearsal_;
    std::int64_t seen_ = 0;
    std::int64_t changed_ = 0;
    std::int64_t failed_ = 0;
};

} // namespace tarvix::cli
