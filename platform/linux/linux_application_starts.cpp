#include "platform/linux/desktop_entries.h"
#include "platform/linux/errno_failure.h"
#include "platform/linux/late_gio.h"
#include "platform/linux/linux_applications.h"
#include "platform/linux/player_bus.h"
#include "platform/linux/session_bus.h"
#include "platform/linux/start_process.h"
#include "platform/names.h"
#include "platform/try.h"

#include <fmt/core.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <unistd.h>

namespace tarvix::platform {

namespace {

constexpr std::string_view kTrashAddress = "trash:///";

// As a start of a program is told in X11: who, which of its starts, and when.
std::string StartupId(unsigned count) {
    constexpr long kMilliseconds = 1000;
    constexpr long kNanoseconds = 1'000'000;
    timespec now{};
    (void)::clock_gettime(CLOCK_MONOTONIC, &now);
    const auto time =
        static_cast<std::uint32_t>(now.tv_sec * kMilliseconds + now.tv_nsec / kNanoseconds);
    return fmt::format("tarvix-{}-{}_TIME{}", ::getpid(), count, time);
}

GVariant* Strings(const std::vector<std::string>& texts) {
    GVariantBuilder builder;
    TX_GIO(g_variant_builder_init)(&builder, VariantType("as"));
    for (const std::string& text : texts)
        TX_GIO(g_variant_builder_add)(&builder, "s", text.c_str());
    return TX_GIO(g_variant_builder_end)(&builder);
}

// "org.gnome.Maps" is the object "/org/gnome/Maps".
std::string ObjectOf(std::string name) {
    std::ranges::replace(name, '.', '/');
    std::ranges::replace(name, '-', '_');
    return fmt::format("/{}", name);
}

// Hands the addresses to an application; one that takes its time has them all the same.
Result<void> Activate(const LaunchPlan& plan, const std::string& startupId) {
    const bool isBare = plan.addresses.empty();
    GVariantBuilder hints;
    TX_GIO(g_variant_builder_init)(&hints, VariantType("a{sv}"));
    TX_GIO(g_variant_builder_add)
    (&hints, "{sv}", "desktop-startup-id", TX_GIO(g_variant_new_string)(startupId.c_str()));
    GVariant* const told = TX_GIO(g_variant_builder_end)(&hints);
    const BusMethod method{plan.busName, ObjectOf(plan.busName), "org.freedesktop.Application",
                           isBare ? "Activate" : "Open"};
    const auto answer = SessionBus().Call(
        method, isBare ? TX_GIO(g_variant_new)("(@a{sv})", told)
                       : TX_GIO(g_variant_new)("(@as@a{sv})", Strings(plan.addresses), told));
    if (answer || answer.error().number == kDeviceError) return {};
    return std::unexpected(answer.error());
}

} // namespace

Result<void> LinuxApplications::Start(const LaunchPlan& plan) {
    const std::string startupId = StartupId(++started_);
    if (!plan.busName.empty()) {
        auto activated = Activate(plan, startupId);
        if (activated || plan.processes.empty()) return activated;
    }
    if (plan.processes.empty()) {
        return Failure(kPermissionDenied, fmt::format("{} names no program.", plan.name));
    }
    for (PlannedProcess process : plan.processes) {
        if (plan.notifiesStart) process.variables.emplace_back("DESKTOP_STARTUP_ID", startupId);
        TX_TRY(StartProcess(process, home_));
    }
    return {};
}

Result<void> LinuxApplications::ShowInFolder(std::span<const std::string> paths) {
    std::vector<std::string> natives;
    std::vector<std::string> addresses;
    for (const std::string& path : paths) {
        const auto truePath = files_.TruePath(path);
        if (!truePath) continue;
        natives.push_back(paths_.ToNative(*truePath));
        addresses.push_back(FileAddress(natives.back()));
    }
    if (natives.empty()) return FailureBy(kFileNotFound, paths.empty() ? "" : paths.front());
    const BusMethod show{"org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                         "org.freedesktop.FileManager1", "ShowItems"};
    const SessionBus bus;
    if (bus.Offers(show.name)) {
        const std::string startupId = StartupId(++started_);
        const auto shown =
            bus.Call(show, TX_GIO(g_variant_new)("(@ass)", Strings(addresses), startupId.c_str()));
        if (shown || shown.error().number == kDeviceError) return {};
    }
    return OpenFoldersOf(natives);
}

bool LinuxApplications::OpenTrashWith(std::string_view type) {
    const auto application = DefaultFor(type);
    const auto entry = application ? ReadEntry(application->id) : std::nullopt;
    if (!entry || (entry->busName.empty() && !TakesAddresses(entry->line.exec))) return false;
    const std::string address(kTrashAddress);
    const auto plan = PlanEntry(*entry, {&address, 1}, {});
    return plan && Start(*plan);
}

// A file manager that takes addresses knows this one; the folder itself, which doesn't tell where
// its objects were, is for who has none.
Result<void> LinuxApplications::ShowTrash() {
    const BusMethod show{"org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                         "org.freedesktop.FileManager1", "ShowFolders"};
    const SessionBus bus;
    if (bus.Offers(show.name)) {
        const std::string startupId = StartupId(++started_);
        const auto shown =
            bus.Call(show, TX_GIO(g_variant_new)("(@ass)", Strings({std::string(kTrashAddress)}),
                                                 startupId.c_str()));
        if (shown || shown.error().number == kDeviceError) return {};
    }
    if (OpenTrashWith("x-scheme-handler/trash") || OpenTrashWith("inode/directory")) return {};
    const char* const set = std::getenv("XDG_DATA_HOME");
    const std::string data =
        set != nullptr && *set == '/' ? set : fmt::format("{}/.local/share", home_);
    const std::string held = fmt::format("{}/Trash/files", data);
    if (::access(held.c_str(), R_OK | X_OK) != 0) {
        return Failure(kPathNotFound, "There is no trash in the home folder yet.");
    }
    const std::vector<std::string> inside{fmt::format("{}/.", held)};
    return OpenFoldersOf(inside);
}

Result<void> LinuxApplications::OpenFoldersOf(std::span<const std::string> natives) {
    const auto manager = DefaultFor("inode/directory");
    if (!manager) {
        return Failure(kPermissionDenied, "No program is set here that opens folders.");
    }
    std::vector<std::string> folders;
    for (const std::string& native : natives) {
        const std::size_t slash = native.rfind('/');
        folders.push_back(paths_.ToDrive(slash == 0 ? "/" : native.substr(0, slash)));
    }
    std::ranges::sort(folders);
    folders.erase(std::ranges::unique(folders).begin(), folders.end());
    TX_TRY_ASSIGN(const auto plan, PlanApplication(manager->id, folders, folders.front()));
    return Start(plan);
}

Result<bool> LinuxApplications::Enqueue(std::string_view command,
                                        std::span<const std::string> paths) {
    return HandToPlayer(command, paths, false);
}

Result<bool> LinuxApplications::PlayNow(std::string_view command,
                                        std::span<const std::string> paths) {
    return HandToPlayer(command, paths, true);
}

Result<bool> LinuxApplications::HandToPlayer(std::string_view command,
                                             std::span<const std::string> paths, bool plays) {
    const auto program = ProgramOf(command);
    if (!program) return false;
    TX_TRY_ASSIGN(const auto natives, Natives(paths));
    const PlayerBus player(program->substr(program->rfind('/') + 1));
    if (!player.TakesFiles()) return false;
    bool playsNext = plays;
    for (const std::string& native : natives)
        TX_TRY(player.Append(FileAddress(native), std::exchange(playsNext, false)));
    return true;
}

} // namespace tarvix::platform
