#include "platform/linux/linux_environment.h"

#include "platform/linux/environment_files.h"
#include "platform/linux/linux_native_paths.h"
#include "platform/linux/system_calls.h"
#include "text/case.h"

#include <climits>
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <pwd.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
struct Fixed {
    std::string_view name;
    std::string_view native;
};
constexpr std::array<Fixed, 10> kFixed{{{"SystemRoot", "/usr"},
                                        {"windir", "/usr"},
                                        {"ProgramFiles", "/usr"},
                                        {"ProgramW6432", "/usr"},
                                        {"ProgramFiles(x86)", "/opt"},
                                        {"CommonProgramFiles", "/usr/share"},
                                        {"CommonProgramW6432", "/usr/share"},
                                        {"CommonProgramFiles(x86)", "/usr/local/share"},
                                        {"ProgramData", "/var/lib"},
                                        {"AllUsersProfile", "/var/lib"}}};

struct UserFolder {
    std::string_view name;
    std::string_view key;      // in user-dirs.dirs
    std::string_view fallback; // below the home folder
};
constexpr std::array<UserFolder, 8> kUserFolders{{{"Desktop", "XDG_DESKTOP_DIR", "/Desktop"},
                                                  {"Documents", "XDG_DOCUMENTS_DIR", "/Documents"},
                                                  {"Downloads", "XDG_DOWNLOAD_DIR", "/Downloads"},
                                                  {"Music", "XDG_MUSIC_DIR", "/Music"},
                                                  {"Pictures", "XDG_PICTURES_DIR", "/Pictures"},
                                                  {"Public", "XDG_PUBLICSHARE_DIR", "/Public"},
                                                  {"Templates", "XDG_TEMPLATES_DIR", "/Templates"},
                                                  {"Videos", "XDG_VIDEOS_DIR", "/Videos"}}};

std::string ValueOf(const EnvironmentSource& source, std::string_view name) {
    for (const std::string& variable : source.variables) {
        const std::string_view text = variable;
        if (text.starts_with(name) && text.size() > name.size() && text[name.size()] == '=') {
            return std::string(text.substr(name.size() + 1));
        }
    }
    return {};
}

// An absolute path in a variable, or a folder below the home folder.
std::string PathOr(const EnvironmentSource& source, std::string_view name,
                   std::string_view belowHome) {
    std::string value = ValueOf(source, name);
    return value.starts_with('/') ? value : source.home + std::string(belowHome);
}

// The text of a line's value: quotes and backslashes as a shell takes them away.
std::string Unquoted(std::string_view value) {
    std::string out;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '"') continue;
        if (value[i] == '\\' && i + 1 < value.size()) ++i;
        out += value[i];
    }
    return out;
}

// The path that user-dirs.dirs gives for a key; empty when it gives none.
std::string ListedFolder(const EnvironmentSource& source, std::string_view key) {
    std::string_view text = source.userFolders;
    std::string found;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
        if (!line.starts_with(key) || !line.substr(key.size()).starts_with('=')) continue;
        line.remove_prefix(key.size() + 1);
        while (line.ends_with(' ') || line.ends_with('\r'))
            line.remove_suffix(1);
        const std::string value = Unquoted(line);
        if (value == "$HOME" || value.starts_with("$HOME/")) {
            found = source.home + value.substr(5);
        } else if (value.starts_with('/')) {
            found = value;
        }
    }
    return found;
}

std::string OwnFolder() {
    std::string path(PATH_MAX, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    const auto slash = path.rfind('/');
    return slash == path.npos || slash == 0 ? "/" : path.substr(0, slash);
}

// A relative folder is meant from where the process works.
std::string AsAbsolute(std::string folder) {
    const bool isRelative = !folder.empty() && folder[0] != '/' && folder[0] != '~' &&
                            folder[0] != '\\' && folder.find(':') == folder.npos;
    if (!isRelative) return folder;
    std::string here(PATH_MAX, '\0');
    if (::getcwd(here.data(), here.size()) == nullptr) return folder;
    here.resize(here.find('\0'));
    return fmt::format("{}/{}", here, folder);
}

bool IsPathValue(std::string_view value) {
    return value.starts_with('/') && value.find_first_of(":\n") == value.npos;
}
} // namespace

EnvironmentSource ReadEnvironment(std::string dataFolder, std::string programFolder) {
    EnvironmentSource source;
    for (char** variable = ::environ; variable != nullptr && *variable != nullptr; ++variable)
        source.variables.emplace_back(*variable);
    const passwd* const user = ::getpwuid(::geteuid());
    source.home = ValueOf(source, "HOME");
    if (!source.home.starts_with('/')) source.home = user != nullptr ? user->pw_dir : "/";
    source.home = CleanNativePath(source.home);
    if (source.home == "/") source.home.clear();
    source.userName = user != nullptr ? user->pw_name : ValueOf(source, "USER");
    std::array<char, HOST_NAME_MAX + 1> host{};
    if (::gethostname(host.data(), host.size() - 1) == 0) source.computerName = host.data();
    const std::string settings = PathOr(source, "XDG_CONFIG_HOME", "/.config");
    source.userFolders = ReadSystemText(fmt::format("{}/user-dirs.dirs", settings));
    AppendStoredVariables(source.variables, settings);
    source.programFolder = programFolder.empty() ? OwnFolder() : AsAbsolute(programFolder);
    source.dataFolder =
        AsAbsolute(dataFolder.empty() ? ValueOf(source, "TARVIX_DATA_FOLDER") : dataFolder);
    return source;
}

LinuxEnvironment::LinuxEnvironment(const EnvironmentSource& source, const NativePaths& paths)
    : paths_(paths) {
    Add("SystemDrive", "C:");
    for (const Fixed& fixed : kFixed)
        AddPath(fixed.name, std::string(fixed.native));
    AddUserFolders(source);
    AddProcess(source);
    std::sort(variables_.begin(), variables_.end(), [](const auto& a, const auto& b) {
        const int order = text::CompareNoCase(a.first, b.first);
        return order != 0 ? order < 0 : a.first < b.first;
    });
    programFolder_ = paths.ToDrive(source.programFolder);
    if (!source.dataFolder.empty()) dataFolder_ = paths.ToDrive(source.dataFolder);
    virtualStore_ = paths.ToDrive(
        fmt::format("{}/tarvix/VirtualStore", PathOr(source, "XDG_DATA_HOME", "/.local/share")));
}

void LinuxEnvironment::Add(std::string_view name, std::string value) {
    if (!Get(name)) variables_.emplace_back(name, std::move(value));
}

void LinuxEnvironment::AddPath(std::string_view name, const std::string& native) {
    Add(name, paths_.ToDrive(native.empty() ? "/" : native));
}

void LinuxEnvironment::AddUserFolders(const EnvironmentSource& source) {
    const std::string temp = ValueOf(source, "TMPDIR");
    const std::string tempFolder = temp.starts_with('/') ? temp : "/tmp";
    AddPath("UserProfile", source.home);
    AddPath("AppData", PathOr(source, "XDG_CONFIG_HOME", "/.config"));
    AddPath("LocalAppData", PathOr(source, "XDG_DATA_HOME", "/.local/share"));
    AddPath("Temp", tempFolder);
    AddPath("Tmp", tempFolder);
    Add("UserName", source.userName);
    Add("ComputerName", source.computerName);
    for (const UserFolder& folder : kUserFolders) {
        const std::string listed = ListedFolder(source, folder.key);
        AddPath(folder.name, listed.empty() ? source.home + std::string(folder.fallback) : listed);
    }
}

void LinuxEnvironment::AddProcess(const EnvironmentSource& source) {
    for (const std::string& variable : source.variables) {
        const std::size_t equals = variable.find('=');
        if (equals == 0 || equals == variable.npos) continue;
        std::string value = variable.substr(equals + 1);
        if (IsPathValue(value)) value = paths_.ToDrive(value);
        Add(std::string_view(variable).substr(0, equals), std::move(value));
    }
}

std::optional<std::string> LinuxEnvironment::Get(std::string_view name) const {
    for (const auto& [known, value] : variables_) {
        if (text::EqualNoCase(known, name)) return value;
    }
    return std::nullopt;
}

bool LinuxEnvironment::IsProtectedFolder(std::string_view folder) const {
    const std::string native = paths_.ToNative(folder);
    return IsAtOrBelow(native, "/usr") || IsAtOrBelow(native, "/opt");
}

} // namespace tarvix::platform
