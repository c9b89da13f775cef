#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace tarvix::actions {

// Folders that got new names in place, so that what was listed below them can still be found.
class RenamedFolders {
  public:
    // `path` as it was listed, whatever has become of the folders above it since.
    void Note(std::string_view path, std::string_view newName);
    // Where an object that was listed as `path` lies now; its own name stays.
    std::string Now(std::string_view path) const;
    bool IsEmpty() const { return names_.empty(); }

  private:
    std::map<std::string, std::string, std::less<>> names_; // by the path that was listed
};

} // namespace tarvix::actions
