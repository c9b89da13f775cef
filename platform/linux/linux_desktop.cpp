#include "platform/linux/linux_desktop.h"

#include "platform/linux/late_gio.h"
#include "platform/linux/session_bus.h"
#include "platform/linux/start_process.h"
#include "platform/linux/tell_true.h"
#include "platform/linux/unique_fd.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {

constexpr std::size_t kMostFiles = 500;
constexpr std::size_t kMostSeen = 5'000; // names of a folder
constexpr std::size_t kMostBytes = 256 * 1024;
constexpr std::size_t kDeepest = 5;

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

// A folder that isn't absolute doesn't count, as the rules of these variables say.
std::string FolderFrom(const char* variable, std::string usual) {
    std::string folder = Variable(variable);
    return folder.starts_with('/') ? folder : usual;
}

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

// In the order of their bytes.
std::vector<std::string> NamesIn(const std::string& path) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(path.c_str()));
    if (folder == nullptr) return names;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the stream is this routine's own
    while (const dirent* entry = readdir(folder.get())) {
        if (names.size() >= kMostSeen) break;
        if (entry->d_name[0] != '.') names.emplace_back(static_cast<const char*>(entry->d_name));
    }
    std::ranges::sort(names);
    return names;
}

bool MayAccess(const std::string& path, int how) {
    return faccessat(AT_FDCWD, path.c_str(), how, AT_EACCESS) == 0;
}

std::optional<std::string> BytesOf(int fd, std::size_t size) {
    std::string bytes(size, '\0');
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got = read(fd, bytes.data() + done, size - done);
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        done += static_cast<std::size_t>(got);
    }
    bytes.resize(done);
    return bytes;
}

std::optional<ActionFile> ReadAction(const std::string& path, const std::string& name) {
    const UniqueFd fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat facts {};
    if (!fd || fstat(fd.Get(), &facts) != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
    if (static_cast<std::size_t>(facts.st_size) > kMostBytes) return std::nullopt;
    auto bytes = BytesOf(fd.Get(), static_cast<std::size_t>(facts.st_size));
    if (!bytes) return std::nullopt;
    return ActionFile{path, name, std::move(*bytes), MayAccess(path, X_OK), facts.st_uid == 0};
}

class ScriptFinder {
  public:
    std::vector<ScriptFile> Take() { return std::move(found_); }

    void Look(const std::string& path) {
        for (const std::string& name : NamesIn(path)) {
            if (found_.size() >= kMostFiles) return;
            const std::string inner = fmt::format("{}/{}", path, name);
            struct stat facts {};
            if (lstat(inner.c_str(), &facts) != 0) continue;
            if (S_ISDIR(facts.st_mode) && folders_.size() < kDeepest) {
                folders_.push_back(name);
                Look(inner);
                folders_.pop_back();
            } else if (stat(inner.c_str(), &facts) == 0 && S_ISREG(facts.st_mode) &&
                       MayAccess(inner, X_OK)) {
                found_.push_back({inner, folders_, name});
            }
        }
    }

  private:
    std::vector<std::string> folders_;
    std::vector<ScriptFile> found_;
};

} // namespace

std::vector<std::string> LinuxDesktop::Folders(DesktopFolder folder) const {
    const bool isConfig = folder == DesktopFolder::kUserConfig || folder == DesktopFolder::kConfig;
    std::vector<std::string> folders{
        isConfig ? FolderFrom("XDG_CONFIG_HOME", fmt::format("{}/.config", home_))
                 : FolderFrom("XDG_DATA_HOME", fmt::format("{}/.local/share", home_))};
    if (folder == DesktopFolder::kUserData || folder == DesktopFolder::kUserConfig) return folders;
    std::string others = Variable(isConfig ? "XDG_CONFIG_DIRS" : "XDG_DATA_DIRS");
    if (others.empty()) others = isConfig ? "/etc/xdg" : "/usr/local/share:/usr/share";
    for (const std::string_view other : text::Split(others, ':')) {
        if (other.starts_with('/')) folders.emplace_back(other);
    }
    return folders;
}

std::vector<ActionFile> LinuxDesktop::ActionFiles(DesktopFolder folder, std::string_view below,
                                                  std::string_view ending) {
    std::vector<ActionFile> files;
    for (const std::string& base : Folders(folder)) {
        const std::string path = fmt::format("{}/{}", base, below);
        for (const std::string& name : NamesIn(path)) {
            if (files.size() >= kMostFiles) return files;
            if (!name.ends_with(ending)) continue;
            auto file = ReadAction(fmt::format("{}/{}", path, name), name);
            if (file) files.push_back(std::move(*file));
        }
    }
    return files;
}

std::vector<ScriptFile> LinuxDesktop::Scripts(DesktopFolder folder, std::string_view below) {
    ScriptFinder finder;
    for (const std::string& base : Folders(folder))
        finder.Look(fmt::format("{}/{}", base, below));
    return finder.Take();
}

std::vector<std::string> LinuxDesktop::Languages() {
    std::vector<std::string> languages;
    for (const char* const* name = TX_GIO(g_get_language_names)(); *name != nullptr; ++name) {
        const std::string_view language = *name;
        if (language.find('.') == language.npos && language != "C")
            languages.emplace_back(language);
    }
    return languages;
}

std::vector<std::string> LinuxDesktop::Names() {
    const std::string desktop = Variable("XDG_CURRENT_DESKTOP");
    std::vector<std::string> names;
    for (const std::string_view name : text::Split(desktop, ':')) {
        if (!name.empty()) names.emplace_back(name);
    }
    return names;
}

bool LinuxDesktop::IsKindOf(std::string_view type, std::string_view base) {
    return TX_GIO(g_content_type_is_a)(std::string(type).c_str(), std::string(base).c_str()) !=
           FALSE;
}

bool LinuxDesktop::HasProgram(std::string_view name) {
    return !name.empty() && !FindProgram(std::string(name)).empty();
}

bool LinuxDesktop::IsOnBus(std::string_view name) {
    const auto names = SessionBus().Names();
    return std::ranges::find(names, name) != names.end();
}

// The process table keeps the first 15 bytes of a name.
bool LinuxDesktop::IsRunning(std::string_view program) {
    constexpr std::size_t kKept = 15;
    const std::string_view wanted = program.substr(0, kKept);
    for (const std::string& process : NamesIn("/proc")) {
        if (process.find_first_not_of("0123456789") != process.npos) continue;
        const UniqueFd fd(
            open(fmt::format("/proc/{}/comm", process).c_str(), O_RDONLY | O_CLOEXEC));
        const auto name = fd ? BytesOf(fd.Get(), kKept + 1) : std::nullopt;
        if (name && name->substr(0, name->find('\n')) == wanted) return true;
    }
    return false;
}

bool LinuxDesktop::TellsTrue(std::string_view commandLine) {
    return SaysTrue(std::string(commandLine));
}

bool LinuxDesktop::Has(std::string_view path, FileRight right) {
    const std::string native(path);
    switch (right) {
    case FileRight::kOwner: {
        struct stat facts {};
        return lstat(native.c_str(), &facts) == 0 && facts.st_uid == geteuid();
    }
    case FileRight::kRead:
        return MayAccess(native, R_OK);
    case FileRight::kWrite:
        return MayAccess(native, W_OK);
    case FileRight::kRun:
        return MayAccess(native, X_OK);
    case FileRight::kLocal:
        return true; // whatever has a native path
    }
    return false;
}

Result<void> LinuxDesktop::ShowProperties(std::span<const std::string> addresses) {
    GVariantBuilder list;
    TX_GIO(g_variant_builder_init)(&list, VariantType("as"));
    for (const std::string& address : addresses)
        TX_GIO(g_variant_builder_add)(&list, "s", address.c_str());
    const auto shown = SessionBus().Call({.name = "org.freedesktop.FileManager1",
                                          .object = "/org/freedesktop/FileManager1",
                                          .interface = "org.freedesktop.FileManager1",
                                          .method = "ShowItemProperties"},
                                         TX_GIO(g_variant_new)("(ass)", &list, ""));
    if (shown) return {};
    return Failure(kPermissionDenied, "No file manager of this desktop shows properties.");
}

} // namespace tarvix::platform
