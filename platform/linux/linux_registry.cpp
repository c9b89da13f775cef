#include "platform/linux/linux_registry.h"

#include "platform/linux/desktop_entries.h"
#include "platform/linux/glib_pointer.h"
#include "platform/linux/late_gio.h"

#include <fmt/core.h>

namespace tarvix::platform {

namespace {

constexpr std::string_view kVerbs = "\\shell";
constexpr std::string_view kCommand = "\\shell\\open\\command";
constexpr std::string_view kFolderClass = "Folder";

std::string TypeOfClass(std::string_view name) {
    return std::string(name == kFolderClass ? "inode/directory" : name);
}

// The words of a command so that they are parted as they were.
std::string Quoted(const std::vector<std::string>& words) {
    std::string command;
    for (const std::string& word : words) {
        const GlibPointer<char> quoted(TX_GIO(g_shell_quote)(word.c_str()));
        command.append(command.empty() ? "" : " ").append(quoted.get());
    }
    return command;
}

} // namespace

std::optional<std::string> LinuxRegistry::ClassDefault(std::string_view key) const {
    if (key.starts_with('.')) {
        std::string type = applications_.TypeOfName(std::string("x").append(key));
        return type.empty() ? std::nullopt : std::optional(std::move(type));
    }
    if (key.ends_with(kCommand)) {
        return CommandOf(TypeOfClass(key.substr(0, key.size() - kCommand.size())));
    }
    if (!key.ends_with(kVerbs)) return std::nullopt;
    const std::string type = TypeOfClass(key.substr(0, key.size() - kVerbs.size()));
    const bool isOpened = type.find('/') != type.npos && applications_.DefaultFor(type);
    return isOpened ? std::optional<std::string>("open") : std::nullopt;
}

std::optional<std::string> LinuxRegistry::CommandOf(const std::string& type) const {
    if (type.find('/') == type.npos) return std::nullopt;
    for (const Application& application : applications_.RecommendedFor({&type, 1})) {
        const auto entry = ReadEntry(application.id);
        if (!entry || entry->line.exec.empty()) continue;
        const auto lines = ExpandExec(entry->line, {});
        if (!lines || lines->front().empty()) continue;
        PlannedProcess process{.arguments = lines->front()};
        if (application.isTerminal) {
            auto inTerminal = applications_.InTerminal(std::move(process));
            if (!inTerminal) continue;
            process = std::move(*inTerminal);
        }
        return fmt::format("{} %1", Quoted(process.arguments));
    }
    return std::nullopt;
}

} // namespace tarvix::platform
