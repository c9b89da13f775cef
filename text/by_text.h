#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvix::text {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>()(s); }
};

// A table by text that a view can be looked up in.
template <class Value>
using ByText = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

} // namespace tarvix::text
