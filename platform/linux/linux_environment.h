#pragma once

#include "platform/environment.h"
#include "platform/native_paths.h"

#include <functional>
#include <string>
#include <vector>

namespace tarvix::platform {

// Where the values come from: native paths, "" where nothing was asked for.
struct EnvironmentSource {
    // "NAME=value": those of the process, then what the system and the user keep in files. Of one
    // name the first counts.
    std::vector<std::string> variables;
    std::string home;
    std::string userName;
    std::string computerName;
    std::string userFolders; // the text of user-dirs.dirs
    std::string programFolder;
    std::string dataFolder; // native or drive path
};

// The variables and places of this process; behind its own variables those of the system's and the
// user's files. `dataFolder` and `programFolder` override what the
// process itself says.
EnvironmentSource ReadEnvironment(std::string dataFolder, std::string programFolder);

// The variables that every desktop of this kind has under the names that lists use, and behind them
// those of the process. Paths are in drive form.
class LinuxEnvironment : public Environment {
  public:
    LinuxEnvironment(const EnvironmentSource& source, const NativePaths& paths);

    std::optional<std::string> Get(std::string_view name) const override;
    std::vector<std::pair<std::string, std::string>> All() const override { return variables_; }
    std::string ProgramFolder() const override { return programFolder_; }
    std::optional<std::string> DataFolder() const override { return dataFolder_; }
    bool IsProtectedFolder(std::string_view folder) const override;
    std::string VirtualStore() const override { return virtualStore_; }

  private:
    void Add(std::string_view name, std::string value);
    void AddPath(std::string_view name, const std::string& native);
    void AddUserFolders(const EnvironmentSource& source);
    void AddProcess(const EnvironmentSource& source);

    const NativePaths& paths_;
    std::vector<std::pair<std::string, std::string>> variables_;
    std::string programFolder_;
    std::optional<std::string> dataFolder_;
    std::string virtualStore_;
};

} // namespace tarvix::platform
