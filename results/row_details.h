#pragma once

#include "results/exe_facts.h"
#include "results/link_cells.h"
#include "results/result_list.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// The cells that need more than a row's own facts: type names of the desktop, and what the headers
// of programs tell. Each file is read once, and only when such a cell is asked for. A hidden column
// has empty cells, so that nothing is read for it.
class RowDetails {
  public:
    explicit RowDetails(session::Session& session) : session_(session), linkReader_(session) {}

    // Type, Version, Exe Type, OS, Year-Rank or what a shortcut holds, of a file row; `path` is its
    // full path.
    std::string Cell(const ResultRow& row, Column column, std::string_view path);
    // The first year that is too late for a Year-Rank.
    int MaxYear() const;
    // The version of a file row as a number that orders like it, whether or not its column shows; 0
    // for none.
    std::uint64_t VersionKey(const ResultRow& row, std::string_view path);
    // What the columns of a shortcut show, for reading and for setting; empty for other files.
    LinkCells& Links(const ResultRow& row, std::string_view path);
    // The same that was read already.
    void SetLinks(const ResultRow& row, LinkCells cells);
    // The name of a row is kept at another place.
    void Renamed(const char* from, const char* to);
    // Forgets what was read for rows that are gone.
    void Clear() {
        read_.clear();
        links_.clear();
        linkReader_.Clear();
    }

  private:
    std::string TypeCell(const ResultRow& row, std::string_view path);
    std::string LinkCell(const ResultRow& row, Column column, std::string_view path);
    const ExeFacts& FactsOf(const ResultRow& row, std::string_view path);

    session::Session& session_;
    LinkReader linkReader_;
    // By where the list keeps a row's name: that is the row's own as long as it lives.
    std::unordered_map<const char*, ExeFacts> read_;
    std::unordered_map<const char*, std::unique_ptr<LinkCells>> links_;
};

} // namespace tarvix::results
