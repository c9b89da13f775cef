#pragma once

#include "generate/list_request.h"

#include <cstddef>
#include <memory>
#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

enum class Appended : std::uint8_t {
    kWritten,
    kLeftOut, // the entry can't stand in this list
    kEndsRun, // the user cancelled what is left
};

// The text of one list, piece by piece. Every piece is whole lines, ended by CR LF.
class ListSource {
  public:
    virtual ~ListSource() = default;
    virtual std::size_t Count() const = 0;
    virtual void AppendHead(std::string&) {}
    // The entry from 0 on. Nothing is appended for one that is left out.
    virtual Appended Append(std::size_t index, std::string& out) = 0;
    // What follows the last entry, and what follows the mark of the end.
    virtual void AppendEnd(std::string&) {}
    virtual void AppendFooter(std::string&) {}
    // How many possible duplicates were noted so far.
    virtual std::int64_t Duplicates() const { return 0; }
};

// The session must outlive it. Entries are those of the selection, except for locations and
// numbers.
std::unique_ptr<ListSource> MakeListSource(session::Session& session, const ListRequest& request);
// One line for the folder of each selected object.
std::unique_ptr<ListSource> MakePathOnlySource(session::Session& session);

constexpr std::string_view kLineEnd = "\r\n";

} // namespace tarvix::generate
