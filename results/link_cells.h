#pragma once

#include "results/columns.h"
#include "shortcuts/formats/values.h"

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::results {

// Whether a column shows one of the seven values of shortcuts, and which.
constexpr bool IsLinkColumn(Column column) {
    return column >= kTargetPath && column <= kIconPath;
}
constexpr shortcuts::Field FieldOf(Column column) {
    return static_cast<shortcuts::Field>(column - kTargetPath);
}

// What the columns of one shortcut show. Where `shown` differs from `stored` a save writes it:
// since variables were folded or unfolded, or since the user changed it.
struct LinkCells {
    shortcuts::Values shown;
    shortcuts::Values stored; // as the file has it, on one line and in the spelling of the disk
};

// Whether a search reads shortcuts: for a column that shows, or for a filter of targets.
bool WantsLinks(const session::Session& session, std::string_view targetFilter);

// Reads shortcuts one after the other, best folder by folder: what a folder's letters mean is
// looked for once.
class LinkReader {
  public:
    explicit LinkReader(session::Session& session) : session_(session) {}

    // What `bytes` of the shortcut at `path` (drive path) show, by the options on variables.
    LinkCells CellsOf(std::string_view path, std::string_view bytes);
    // Reads the shortcut at `path` for its columns; false when its target has not the filter (in
    // upper case, empty for any) in it, nor with its variables folded. A .url file that has gone is
    // told and passes with empty cells, what can't be read passes so too, with an error record.
    bool FoundFileMeetsLinkTargetCriteria(std::string_view path, std::string_view targetFilter,
                                          LinkCells& cells);
    // The same for what is shown later: nobody is told.
    LinkCells Read(std::string_view path);
    // Forgets what it looked for.
    void Clear() { folder_.clear(); }

  private:
    const std::string& LettersOf(std::string_view path);
    shortcuts::Values StoredValues(std::string_view path, std::string_view bytes);

    session::Session& session_;
    std::string folder_; // of the last shortcut
    std::string letters_;
};

} // namespace tarvix::results
