#pragma once

#include "text/dates.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::fields {
class ComboBox;
}

namespace tarvix::session {

constexpr std::size_t kLongestEntry = 1023; // characters

// The rows of a combo box that keeps what was typed into it: fixed ones on top, then the history in
// the order of its texts. `stamps` has the time of last use of each row, zero for the fixed ones.
class HistoryRows {
  public:
    // Rows from `first` on are history; there are at most `bound` rows in all.
    HistoryRows(fields::ComboBox& box, std::vector<text::DateTime>& stamps, std::size_t first,
                std::size_t bound);

    // The first row that is history, and how many rows there are with the fixed ones.
    std::size_t First() const { return first_; }
    std::size_t Count() const;
    // Of a row below `Count`.
    const std::string& Text(std::size_t row) const;
    const text::DateTime& Stamp(std::size_t row) const { return stamps_[row]; }

    // Without regard to case, fixed rows too.
    std::optional<std::size_t> Find(std::string_view text) const;
    // The history row that was used longest ago; nothing when there is none.
    std::optional<std::size_t> Oldest() const;

    // Adds a row in the order of the texts, in place of the oldest one when the bound is reached.
    void Add(std::string_view text, const text::DateTime& stamp);
    // Dates a row.
    void Touch(std::size_t row, const text::DateTime& stamp) { stamps_[row] = stamp; }
    // Takes a row out; those behind it move up.
    void Remove(std::size_t row);
    // Other fixed rows; gives how many there are now.
    std::size_t SetFixed(const std::vector<std::string>& texts);

  private:
    std::size_t FirstFrom(std::string_view text, int order) const;

    fields::ComboBox& box_;
    std::vector<text::DateTime>& stamps_;
    std::size_t first_;
    std::size_t bound_;
};

// Whether a text can stand in a history and be read from its file again: not blank, at most 1023
// characters, on one line, without "/", and none of the marks of the file.
bool CanBeHistoryEntry(std::string_view text);

} // namespace tarvix::session
