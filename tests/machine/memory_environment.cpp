#include "tests/machine/memory_environment.h"

#include "text/case.h"

#include <algorithm>

namespace tarvix::platform {

namespace {
constexpr std::pair<const char*, const char*> kVariables[] = {
    {"UserProfile", "C:\\home\\ann"},
    {"UserName", "ann"},
    {"SystemDrive", "C:"},
    {"Temp", "C:\\tmp"},
    {"windir", "C:\\usr"},
    {"ProgramFiles", "C:\\opt"},
    {"ProgramFiles(x86)", "C:\\usr\\local"},
    {"ProgramData", "C:\\var\\lib"},
    {"Public", "C:\\home\\Public"},
    {"AppData", "C:\\home\\ann\\.config"},
    {"LocalAppData", "C:\\home\\ann\\.local\\share"},
    {"Desktop", "C:\\home\\ann\\Desktop"},
    {"Documents", "C:\\home\\ann\\Documents"},
    {"Downloads", "C:\\home\\ann\\Downloads"},
    {"Music", "C:\\home\\ann\\Music"},
    {"Pictures", "C:\\home\\ann\\Pictures"},
    {"Videos", "C:\\home\\ann\\Videos"},
};
} // namespace

MemoryEnvironment::MemoryEnvironment()
    : programFolder("C:\\home\\ann\\tarvix"), protectedFolders{"C:\\usr", "C:\\opt"},
      virtualStore("C:\\home\\ann\\.local\\share\\tarvix\\VirtualStore") {
    for (const auto& [name, value] : kVariables)
        Set(name, value);
}

std::optional<std::string> MemoryEnvironment::Get(std::string_view name) const {
    const auto found = values_.find(text::Upper(name));
    if (found == values_.end()) return std::nullopt;
    return found->second.second;
}

std::vector<std::pair<std::string, std::string>> MemoryEnvironment::All() const {
    std::vector<std::pair<std::string, std::string>> all;
    for (const auto& [key, variable] : values_)
        all.push_back(variable);
    return all;
}

bool MemoryEnvironment::IsProtectedFolder(std::string_view folder) const {
    const std::string upper = text::Upper(folder);
    return std::any_of(protectedFolders.begin(), protectedFolders.end(),
                       [&](const std::string& root) {
                           const std::string top = text::Upper(root);
                           return upper.starts_with(top) &&
                                  (upper.size() == top.size() || upper[top.size()] == '\\');
                       });
}

void MemoryEnvironment::Set(std::string_view name, std::string_view value) {
    values_[text::Upper(name)] = {std::string(name), std::string(value)};
}

void MemoryEnvironment::Unset(std::string_view name) {
    values_.erase(text::Upper(name));
}

} // namespace tarvix::platform
