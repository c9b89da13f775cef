#pragma once

#include "platform/desktop.h"

#include <string>
#include <vector>

namespace tarvix::platform {

// The desktop of this user by the folders that XDG_DATA_HOME and its kin name, the process table
// and the session bus.
class LinuxDesktop : public Desktop {
  public:
    // The native home folder.
    explicit LinuxDesktop(std::string home) : home_(std::move(home)) {}

    std::vector<ActionFile> ActionFiles(DesktopFolder folder, std::string_view below,
                                        std::string_view ending) override;
    std::vector<ScriptFile> Scripts(DesktopFolder folder, std::string_view below) override;
    std::vector<std::string> Languages() override;
    std::vector<std::string> Names() override;
    bool IsKindOf(std::string_view type, std::string_view base) override;
    bool HasProgram(std::string_view name) override;
    bool IsOnBus(std::string_view name) override;
    bool IsRunning(std::string_view program) override;
    bool TellsTrue(std::string_view commandLine) override;
    bool Has(std::string_view path, FileRight right) override;
    Result<void> ShowProperties(std::span<const std::string> addresses) override;

  private:
    std::vector<std::string> Folders(DesktopFolder folder) const;

    std::string home_;
};

} // namespace tarvix::platform
