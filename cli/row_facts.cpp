#include "cli/row_facts.h"

#include "platform/clock.h"
#include "platform/file_system.h"
#include "results/result_list.h"
#include "session/session.h"
#include "text/dates.h"

#include <fmt/format.h>

#include <iterator>

namespace tarvix::cli {

void RowFacts::Append(std::string& out, std::size_t row, int column) const {
    const results::ResultRow& object = session_.rows->At(row);
    if (column == kIsFolderColumn) {
        out += object.isFolder ? "true" : "false";
    } else if (column == kModifiedColumn) {
        AppendModified(out, row);
    } else if (!object.isFolder) {
        const fmt::format_int digits(object.size);
        out.append(digits.data(), digits.size());
    }
}

void RowFacts::AppendJson(std::string& out, std::size_t row, int column) const {
    const std::size_t before = out.size();
    const char* quote = column == kModifiedColumn ? "\"" : "";
    out += quote;
    const std::size_t begin = out.size();
    Append(out, row, column);
    if (out.size() == begin) {
        out.replace(before, out.npos, "null");
    } else {
        out += quote;
    }
}

void RowFacts::AppendModified(std::string& out, std::size_t row) const {
    const results::ResultRow& object = session_.rows->At(row);
    text::DateTime date;
    if (datesAreModified_) {
        if (object.date != results::kNoDate) date = text::FromSeconds(object.date);
    } else if (const auto facts = session_.platform.files.Facts(session_.rows->FullPath(row))) {
        date = session_.platform.clock.ToLocal(facts->modified);
    }
    if (!date.HasDate()) return;
    fmt::format_to(std::back_inserter(out), "{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", date.year,
                   date.month, date.day, date.hour, date.minute, date.second);
}

} // namespace tarvix::cli
