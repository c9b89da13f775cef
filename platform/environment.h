#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::platform {

// Variables and places, values in drive form where they are paths.
class Environment {
  public:
    virtual ~Environment() = default;
    // Looked up without regard to case; nothing when it isn't set. "UserProfile", "SystemDrive",
    // "Temp", "windir", "ProgramFiles", "ProgramFiles(x86)", "ProgramData", "Public", "AppData",
    // "LocalAppData" and the user folders always have a value.
    virtual std::optional<std::string> Get(std::string_view name) const = 0;
    // All that have a value, as names and values, in no special order.
    virtual std::vector<std::pair<std::string, std::string>> All() const = 0;
    // The folder that the program runs from, no final "\".
    virtual std::string ProgramFolder() const = 0;
    // A data folder that the user asked for, or nothing.
    virtual std::optional<std::string> DataFolder() const = 0;
    // Whether the program was installed for all users, so that data can't lie beside it.
    virtual bool IsProtectedFolder(std::string_view folder) const = 0;
    // Where data goes when the program's own folder is protected.
    virtual std::string VirtualStore() const = 0;
};

// Replaces each %NAME% that is set; others stay as they are.
std::string ExpandVariables(const Environment& environment, std::string_view text);

} // namespace tarvix::platform
