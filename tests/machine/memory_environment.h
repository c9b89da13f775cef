#pragma once

#include "platform/environment.h"

#include <map>

namespace tarvix::platform {

// Variables and folders as a test sets them; the start is the home of ann, with the program in
// C:\home\ann\tarvix, nothing protected but C:\usr and C:\opt.
class MemoryEnvironment : public Environment {
  public:
    MemoryEnvironment();

    std::optional<std::string> Get(std::string_view name) const override;
    std::vector<std::pair<std::string, std::string>> All() const override;
    std::string ProgramFolder() const override { return programFolder; }
    std::optional<std::string> DataFolder() const override { return dataFolder; }
    bool IsProtectedFolder(std::string_view folder) const override;
    std::string VirtualStore() const override { return virtualStore; }

    void Set(std::string_view name, std::string_view value);
    void Unset(std::string_view name);

    std::string programFolder;
    std::optional<std::string> dataFolder;
    std::vector<std::string> protectedFolders;
    std::string virtualStore;

  private:
    std::map<std::string, std::pair<std::string, std::string>> values_; // by upper-case name
};

} // namespace tarvix::platform
