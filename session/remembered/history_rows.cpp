#include "session/remembered/history_rows.h"

#include "fields/controls.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/list_marks.h"
#include "text/numbers.h"

#include <algorithm>

namespace tarvix::session {

HistoryRows::HistoryRows(fields::ComboBox& box, std::vector<text::DateTime>& stamps,
                         std::size_t first, std::size_t bound)
    : box_(box), stamps_(stamps), first_(first), bound_(bound) {
    stamps_.resize(Count());
}

std::size_t HistoryRows::Count() const {
    return box_.Items().size();
}

const std::string& HistoryRows::Text(std::size_t row) const {
    return box_.Items()[row].text;
}

std::optional<std::size_t> HistoryRows::Find(std::string_view text) const {
    for (std::size_t row = 0; row < std::min(first_, Count()); ++row) {
        if (text::EqualNoCase(Text(row), text)) return row;
    }
    const std::size_t row = FirstFrom(text, 0);
    return row < Count() && text::EqualNoCase(Text(row), text) ? std::optional(row) : std::nullopt;
}

// The first history row whose text compares with this one so or above.
std::size_t HistoryRows::FirstFrom(std::string_view text, int order) const {
    const auto& items = box_.Items();
    const auto begin = items.begin() + static_cast<std::ptrdiff_t>(std::min(first_, Count()));
    const auto found = std::partition_point(begin, items.end(), [&](const auto& item) {
        return text::CompareNoCase(item.text, text) < order;
    });
    return static_cast<std::size_t>(found - items.begin());
}

std::optional<std::size_t> HistoryRows::Oldest() const {
    std::optional<std::size_t> oldest;
    for (std::size_t row = Count(); row-- > first_;) {
        if (stamps_[row].IsZero()) continue;
        if (!oldest || stamps_[row] < stamps_[*oldest]) oldest = row;
    }
    return oldest;
}

void HistoryRows::Add(std::string_view text, const text::DateTime& stamp) {
    if (Count() >= bound_) {
        if (const auto oldest = Oldest()) Remove(*oldest);
    }
    const std::size_t row = FirstFrom(text, 1);
    box_.InsertItem(row, std::string(text));
    stamps_.insert(stamps_.begin() + static_cast<std::ptrdiff_t>(row), stamp);
}

void HistoryRows::Remove(std::size_t row) {
    box_.RemoveItem(row);
    stamps_.erase(stamps_.begin() + static_cast<std::ptrdiff_t>(row));
}

std::size_t HistoryRows::SetFixed(const std::vector<std::string>& texts) {
    while (first_ > 0) {
        Remove(--first_);
    }
    for (const std::string& text : texts) {
        box_.InsertItem(first_, text);
        stamps_.insert(stamps_.begin() + static_cast<std::ptrdiff_t>(first_++), text::DateTime{});
    }
    return first_;
}

bool CanBeHistoryEntry(std::string_view text) {
    return !text::Trim(text).empty() && text::Length(text) <= kLongestEntry &&
           text.find_first_of("/\r\n") == text.npos && text != text::kEndMark &&
           !text::IsBlankValue(text);
}

} // namespace tarvix::session
