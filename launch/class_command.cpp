#include "launch/class_command.h"

#include "platform/registry.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

namespace tarvix::launch {

namespace {

using session::Session;

constexpr std::string_view kFolderClass = "Folder";
constexpr std::string_view kViewerClass = "Applications\\notepad.exe";
constexpr std::string_view kUsualVerb = "open";

std::string ClassOf(Session& session, std::string_view path, bool isFolder) {
    if (isFolder) return std::string(kFolderClass);
    const std::string extension = text::Lower(text::GetExtension(text::FileNameOf(path)));
    if (!extension.empty()) {
        auto known = session.platform.registry.ClassDefault(fmt::format(".{}", extension));
        if (known) return std::move(*known);
    }
    return FindAlternateFileType(session);
}

} // namespace

std::string StripCommandArguments(std::string_view command) {
    std::size_t place = command.npos;
    for (const std::string_view argument : {" %1", " \"%1", " /idlist"}) {
        if (place == command.npos) place = command.find(argument);
    }
    std::string_view kept = text::RTrim(command.substr(0, place));
    while (kept.ends_with('\0'))
        kept.remove_suffix(1);
    return std::string(kept);
}

std::string FindAlternateFileType(Session& session) {
    if (session.state.blnUnknownShell) return "Unknown";
    if (session.state.blnStarShell) return "*";
    return std::string(kViewerClass);
}

ClassCommand FindClassCommand(Session& session, std::string_view path, bool isFolder) {
    const auto& registry = session.platform.registry;
    const std::string name = ClassOf(session, path, isFolder);
    const auto verb = registry.ClassDefault(fmt::format("{}\\shell", name));
    const auto command = registry.ClassDefault(
        fmt::format("{}\\shell\\{}\\command", name, verb ? std::string_view(*verb) : kUsualVerb));
    if (!command) return {};
    if (command->starts_with("\"%1") || command->starts_with("%1")) {
        return {.command = {}, .startsItself = true};
    }
    return {.command = StripCommandArguments(*command)};
}

} // namespace tarvix::launch
