#pragma once

#include "platform/error.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {
class FileSystem;
}

namespace tarvix::actions {

// Looks for many texts in one pass, without regard to case.
class PrefixSearch {
  public:
    // UTF-8; empty ones are never found.
    explicit PrefixSearch(const std::vector<std::string>& prefixes);

    // The first of them in their order, not in that of the file, that stands in a file (drive path)
    // of whatever content, read block by block as long as `goesOn`. What is no UTF-8 is looked at
    // as Windows-1252, too. Nothing without one; the errors of ReadBytes.
    platform::Result<std::optional<std::size_t>> FirstIn(platform::FileSystem& files,
                                                         std::string_view path,
                                                         const std::function<bool()>& goesOn) const;

    // The first of them before the one at `best` that stands in a text, `best` without one.
    std::size_t FirstIn(std::string_view upperText, std::size_t best) const;

  private:
    std::vector<std::string> upper_;
    std::array<std::vector<std::uint32_t>, 256> byFirst_; // their numbers, by first byte
    std::size_t longest_ = 0;
};

} // namespace tarvix::actions
