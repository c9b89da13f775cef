#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvix::actions {

// Folders that got new names in place, so that what was listed below them can still be found.
class RenamedFolders {
  public:
    // `path` as it was listed, whatever has become of the folders above it since.
    void Note(std::string_view path, std::string_view newName);
    // Where an object that was listed as `path` lies now; its own name stays.
    std::string Now(const std::string& path) const;

  private:
    std::unordered_map<std::string, std::string> names_; // by the path that was listed
};

} // namespace tarvix::actions
