#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::platform {

// A text in a character set, by the name that documents have for it, as UTF-8. What is no character
// of the set becomes U+FFFD, and so does one that is cut off at the end. Nothing for a set that the
// C library doesn't know.
std::optional<std::string> DecodeFrom(std::string_view charset, std::string_view bytes);

} // namespace tarvix::platform
