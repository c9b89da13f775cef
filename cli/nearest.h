#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tarvix::cli {

// The known name that is spelled most like `wanted`, without regard to case; empty when none is
// near enough to be meant.
std::string_view Nearest(std::string_view wanted, std::span<const std::string_view> known);

// " Did you mean "NAME"?", or nothing.
std::string DidYouMean(std::string_view wanted, std::span<const std::string_view> known);

} // namespace tarvix::cli
