#include "platform/linux/linux_applications.h"

#include "platform/linux/desktop_entries.h"
#include "platform/linux/errno_failure.h"
#include "platform/linux/exec_line.h"
#include "platform/linux/start_process.h"
#include "platform/linux/unique_fd.h"
#include "platform/names.h"
#include "platform/try.h"
#include "text/case.h"

#include <fmt/core.h>

#include <array>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {

// Where no terminal is named: the first of these that is installed.
constexpr std::array<const char*, 12> kTerminals{"xdg-terminal-exec",
                                                 "x-terminal-emulator -e",
                                                 "gnome-terminal --",
                                                 "kgx -e",
                                                 "konsole -e",
                                                 "xfce4-terminal -x",
                                                 "mate-terminal -x",
                                                 "qterminal -e",
                                                 "kitty",
                                                 "alacritty -e",
                                                 "foot",
                                                 "xterm -e"};

constexpr std::size_t kMark = 4; // bytes that tell a program

// The first bytes of a file; empty for what is no file or can't be read.
std::string FirstBytes(const std::string& native) {
    const UniqueFd file(::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file) return {};
    std::string bytes(kMark, '\0');
    const ssize_t count = ::read(file.Get(), bytes.data(), bytes.size());
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
}

std::unexpected<PlatformError> NoProgram(std::string_view path, int number, std::string_view why) {
    return std::unexpected(
        PlatformError{number, fmt::format("{} {}", ForDisplay(path), why), std::string(path)});
}

std::string BaseName(std::string_view native) {
    return std::string(native.substr(native.rfind('/') + 1));
}

} // namespace

std::string LinuxApplications::TypeOf(std::string_view path) {
    const auto truePath = files_.TruePath(path);
    return truePath ? ContentTypeOf(paths_.ToNative(*truePath)) : std::string();
}

std::string LinuxApplications::TypeOfName(std::string_view name) {
    return ContentTypeOfName(NameToNative(name));
}

std::optional<Application> LinuxApplications::DefaultFor(std::string_view type) {
    return DefaultApplication(std::string(type));
}

std::vector<Application> LinuxApplications::RecommendedFor(std::span<const std::string> types) {
    return ApplicationsForAll(types);
}

std::vector<Application> LinuxApplications::All() {
    return ShownApplications();
}

std::optional<Application> LinuxApplications::Find(std::string_view id) {
    const auto entry = ReadEntry(std::string(id));
    return entry ? std::optional(entry->application) : std::nullopt;
}

std::optional<std::string> LinuxApplications::ProgramOf(std::string_view command) {
    const auto words = SplitCommand(command);
    if (!words) return std::nullopt;
    std::string found = FindProgram(words->front());
    return found.empty() ? std::nullopt : std::optional(std::move(found));
}

ProgramKind LinuxApplications::KindOf(std::string_view path) {
    const auto truePath = files_.TruePath(path);
    if (!truePath) return ProgramKind::kNone;
    const std::string native = paths_.ToNative(*truePath);
    struct stat facts {};
    if (::stat(native.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return ProgramKind::kNone;
    const bool mayRun = ::access(native.c_str(), X_OK) == 0;
    const std::string bytes = FirstBytes(native);
    if (bytes.starts_with("MZ") && text::Lower(native).ends_with(".exe")) {
        return ProgramKind::kForeign;
    }
    const bool canBeRead = ::access(native.c_str(), R_OK) == 0;
    const bool isProgram = bytes == "\x7F"
                                    "ELF" ||
                           bytes.starts_with("#!");
    if (isProgram) return mayRun ? ProgramKind::kNative : ProgramKind::kNoRight;
    return mayRun && !canBeRead ? ProgramKind::kNative : ProgramKind::kNone;
}

bool LinuxApplications::IsTrusted(std::string_view path) {
    const std::string native = paths_.ToNative(path);
    struct stat facts {};
    if (::stat(native.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return false;
    const bool isRoots = facts.st_uid == 0 && (facts.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    return isRoots || ::access(native.c_str(), X_OK) == 0;
}

Result<std::vector<std::string>> LinuxApplications::Natives(std::span<const std::string> paths) {
    std::vector<std::string> natives;
    natives.reserve(paths.size());
    for (const std::string& path : paths) {
        const auto truePath = files_.TruePath(path);
        if (!truePath) return FailureBy(kFileNotFound, path);
        natives.push_back(paths_.ToNative(*truePath));
    }
    return natives;
}

std::string LinuxApplications::NativeFolder(std::string_view folder) const {
    std::string native = paths_.ToNative(folder);
    return native.empty() ? home_ : native;
}

Result<LaunchPlan> LinuxApplications::PlanApplication(std::string_view id,
                                                      std::span<const std::string> paths,
                                                      std::string_view folder) {
    TX_TRY_ASSIGN(const auto natives, Natives(paths));
    const auto entry = ReadEntry(std::string(id));
    if (!entry) {
        return Failure(kInvalidCall, fmt::format("There is no application {}.", id));
    }
    return PlanEntry(*entry, natives, folder);
}

Result<LaunchPlan> LinuxApplications::PlanEntry(const DesktopEntry& entry,
                                                std::span<const std::string> objects,
                                                std::string_view folder) {
    LaunchPlan plan{.name = entry.application.name,
                    .busName = entry.busName,
                    .notifiesStart = entry.notifiesStart};
    if (!plan.busName.empty()) {
        for (const std::string& object : objects)
            plan.addresses.push_back(AddressOf(object));
    }
    if (entry.line.exec.empty()) return plan;
    TX_TRY_ASSIGN(auto lines, ExpandExec(entry.line, objects));
    for (auto& arguments : lines) {
        PlannedProcess process{.arguments = std::move(arguments),
                               .folder = entry.folder.empty() ? NativeFolder(folder) : entry.folder,
                               .variables = {{"GIO_LAUNCHED_DESKTOP_FILE", entry.line.entryFile}}};
        if (entry.application.isTerminal) {
            TX_TRY_ASSIGN(process, InTerminal(std::move(process)));
        }
        plan.processes.push_back(std::move(process));
    }
    return plan;
}

Result<LaunchPlan> LinuxApplications::PlanCommand(std::string_view command,
                                                  std::span<const std::string> paths,
                                                  std::string_view folder) {
    TX_TRY_ASSIGN(const auto natives, Natives(paths));
    TX_TRY_ASSIGN(auto lines, ExpandCommand(command, natives));
    LaunchPlan plan;
    for (auto& arguments : lines) {
        if (FindProgram(arguments.front()).empty()) {
            return Failure(kPermissionDenied, fmt::format("{} is no program here.",
                                                          NativeForDisplay(arguments.front())));
        }
        plan.name = BaseName(arguments.front());
        plan.processes.push_back(
            {.arguments = std::move(arguments), .folder = NativeFolder(folder)});
    }
    return plan;
}

Result<LaunchPlan> LinuxApplications::PlanProgram(std::string_view path, std::string_view folder) {
    const std::string asked(path);
    TX_TRY_ASSIGN(auto natives, Natives({&asked, 1}));
    switch (KindOf(path)) {
    case ProgramKind::kNative:
        return LaunchPlan{
            .name = BaseName(natives.front()),
            .processes = {{.arguments = {natives.front()}, .folder = NativeFolder(folder)}}};
    case ProgramKind::kNoRight:
        return NoProgram(path, kPermissionDenied, "may not be run: it has no right to.");
    default:
        return NoProgram(path, kInvalidCall, "is no program of this machine.");
    }
}

Result<PlannedProcess> LinuxApplications::InTerminal(PlannedProcess process) {
    std::string command = terminal_;
    for (const char* known : kTerminals) {
        if (command.empty() && ProgramOf(known)) command = known;
    }
    if (command.empty()) {
        return Failure(kPermissionDenied, fmt::format("{} runs in a terminal, and there is none.",
                                                      process.arguments.front()));
    }
    TX_TRY_ASSIGN(auto words, SplitCommand(command));
    process.arguments.insert(process.arguments.begin(), words.begin(), words.end());
    return process;
}

} // namespace tarvix::platform
