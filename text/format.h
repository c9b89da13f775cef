#pragma once

#include "text/dates.h"

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::text {

// A number by a picture: "0" a digit that is always there, "#" a digit if there is one (from the
// first "0" on all whole places are filled), "," between places thousands separators throughout,
// "." the decimal point, all else itself. More whole digits than places are all printed. Rounds
// half away from zero; a negative result has "-" in front. An empty picture gives the plain number.
std::string Format(double value, std::string_view picture);
std::string FormatWhole(std::int64_t value, std::string_view picture);

template <std::integral Whole>
std::string Format(Whole value, std::string_view picture) {
    return FormatWhole(static_cast<std::int64_t>(value), picture);
}

// A date by a picture: "yyyy" or "yy"; "mm", "dd", "hh", "nn", "ss" in two digits and "m", "d",
// "h", "n", "s" without a leading zero; "m" and "mm" next behind the hours are minutes; hours are
// of 24 unless "AM/PM" stands in the picture. Letters count in either case; all else is itself.
std::string FormatDate(const DateTime& value, std::string_view picture);

} // namespace tarvix::text
