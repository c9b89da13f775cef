#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::cli {

// The known name that is spelled most like `wanted`, without regard to case; empty when none is
// near enough to be meant.
std::string_view Nearest(std::string_view wanted, std::span<const std::string_view> known);

// " Did you mean "NAME"?", or nothing.
std::string Suggestion(std::string_view nearest);

// The suggestion of the nearest among the names of `known`, which `name` gives for each.
template <class Range, class Name = std::identity>
std::string DidYouMean(std::string_view wanted, const Range& known, Name name = {}) {
    std::vector<std::string_view> names;
    for (const auto& each : known)
        names.push_back(std::invoke(name, each));
    return Suggestion(Nearest(wanted, names));
}

} // namespace tarvix::cli
