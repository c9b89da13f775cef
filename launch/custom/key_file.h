#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::custom {

// The groups and keys of a desktop entry or a file like it, for reading. Any bytes are taken; a
// line that is none of it is passed over, and of two keys of one name the first counts. Views live
// as long as the file, or a copy of it.
class KeyFile {
  public:
    explicit KeyFile(std::string_view bytes);

    bool HasGroup(std::string_view group) const;
    // As it stands behind the "=", blanks at its ends off.
    std::optional<std::string_view> Raw(std::string_view group, std::string_view key) const;
    // The same with its escapes undone; empty when there is none.
    std::string Text(std::string_view group, std::string_view key) const;
    // That of the best language that has one, else the one of no language.
    std::string Text(std::string_view group, std::string_view key,
                     std::span<const std::string> languages) const;
    // "true" or "1"; `missing` when there is none.
    bool Flag(std::string_view group, std::string_view key, bool missing) const;
    // The parts between ";" (or `separator`), those that are empty left out; "\;" is no separator.
    std::vector<std::string> List(std::string_view group, std::string_view key,
                                  char separator = ';') const;

  private:
    struct Entry {
        std::string_view group;
        std::string_view key;
        std::string_view value;
    };

    std::shared_ptr<const std::string> bytes_; // where the views lead, even when this is moved
    std::vector<Entry> entries_;
    std::vector<std::string_view> groups_;
};

} // namespace tarvix::custom
