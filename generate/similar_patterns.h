#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tarvix::generate {

// The part of a name that tells what it is: without its extension, and without a year and rank at
// either end.
std::string SimilarBaseName(std::string_view name);

// The three patterns for files of a similar name, from narrow to wide: all significant words in
// order, the first and the last, the first and the one before the last.
std::array<std::string, 3> SimilarPatterns(std::string_view baseName);

} // namespace tarvix::generate
