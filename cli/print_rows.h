#pragma once

#include "cli/request.h"

#include <nlohmann/json_fwd.hpp>

#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::cli {

// How rows are printed; the columns are all named.
struct RowPrint {
    RowOutput output;
    bool toTerminal = false;       // control characters are escaped
    bool datesAreModified = false; // rows tell the dates of the last change
};

// Prints the rows of a list as results of a command; spacers are left out. False when `out` no
// longer takes them.
bool PrintRows(const session::Session& session, const RowPrint& print, std::ostream& out);

// Prints named values: "NAME<between>VALUE" on each line or, as JSON, one object on one line.
void PrintPairs(const std::vector<std::pair<std::string, std::string>>& pairs,
                std::string_view between, bool asJson, std::ostream& out);

// An object on a line of its own; bytes that are no text are replaced.
void PrintJson(const nlohmann::ordered_json& object, std::ostream& out);

// A text of names as one field of a line: a tab is "\t", a line end "\n", and what a drive path
// carries is itself.
std::string CellField(std::string_view cell);
// The same of a text in the disk's own bytes.
std::string PlainField(std::string field);

} // namespace tarvix::cli
