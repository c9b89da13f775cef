#pragma once

#include "cli/request.h"

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::cli {

// Values of options. A failure is one sentence that names the option and what it takes.
template <class Value>
using Read = std::expected<Value, std::string>;

// "4096", "10K", "1.5 GiB" in bytes, as text::ParseSize has it.
Read<std::int64_t> ReadSize(std::string_view option, std::string_view value);
// "10K..1M".
Read<Ends<std::int64_t>> ReadSizeRange(std::string_view option, std::string_view value);

// A date, with or without a time of day.
Read<text::DateTime> ReadDate(std::string_view option, std::string_view value);
// The same, or words for one, as text::ParseDateWords has them.
Read<Moment> ReadMoment(std::string_view option, std::string_view value);
// "2026-01-01..2026-01-31", without a time of day the second is the last second of its day; or
// words for a stretch of time alone.
Read<Ends<Moment>> ReadDateRange(std::string_view option, std::string_view value);

// How many levels up the folder tree: from 1 to 999.
Read<int> ReadLevels(std::string_view option, std::string_view value);

// "E=/srv/collection" or "e:=/srv/collection".
Read<std::pair<char, std::string>> ReadDrive(std::string_view option, std::string_view value);

// Columns by key, short word or caption: one of the list; several with commas between, facts and
// "all" among them; "NAME[:desc]".
Read<results::Column> ReadColumn(std::string_view name);
Read<std::vector<int>> ReadColumns(std::string_view option, std::string_view value);
Read<SortRequest> ReadSort(std::string_view option, std::string_view value);

} // namespace tarvix::cli
