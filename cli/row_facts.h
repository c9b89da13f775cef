#pragma once

#include "cli/request.h"

#include <cstddef>
#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::cli {

// The facts of kFactColumns but the path, as programs read them: digits, "2026-11-15T19:54:52" in
// local time, "true" or "false".
class RowFacts {
  public:
    // Where the rows' dates may be another than that of the last change, the disk is asked.
    RowFacts(const session::Session& session, bool datesAreModified)
        : session_(session), datesAreModified_(datesAreModified) {}

    // Nothing is appended where there is none: the size of a folder, the date of what has gone.
    void Append(std::string& out, std::size_t row, int column) const;
    // As JSON has it: a number, a text, true or false; null where there is none.
    void AppendJson(std::string& out, std::size_t row, int column) const;

  private:
    void AppendModified(std::string& out, std::size_t row) const;

    const session::Session& session_;
    bool datesAreModified_;
};

} // namespace tarvix::cli
