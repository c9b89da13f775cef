#pragma once

#include "platform/applications.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"

#include <string>

namespace tarvix::platform {

struct DesktopEntry;

// The applications of this desktop by its entries and the shared MIME database, the session bus
// and processes. For one thread.
class LinuxApplications : public Applications {
  public:
    // `home` is a native path; the others live as long as this.
    LinuxApplications(FileSystem& files, const NativePaths& paths, std::string home)
        : files_(files), paths_(paths), home_(home.empty() ? "/" : std::move(home)) {}

    std::string TypeOf(std::string_view path) override;
    std::string TypeOfName(std::string_view name) override;
    std::optional<Application> DefaultFor(std::string_view type) override;
    std::vector<Application> RecommendedFor(std::span<const std::string> types) override;
    std::vector<Application> All() override;
    std::optional<Application> Find(std::string_view id) override;
    std::optional<std::string> ProgramOf(std::string_view command) override;
    ProgramKind KindOf(std::string_view path) override;
    bool IsTrusted(std::string_view path) override;
    Result<LaunchPlan> PlanApplication(std::string_view id, std::span<const std::string> paths,
                                       std::string_view folder) override;
    Result<LaunchPlan> PlanCommand(std::string_view command, std::span<const std::string> paths,
                                   std::string_view folder) override;
    Result<LaunchPlan> PlanProgram(std::string_view path, std::string_view folder) override;
    Result<PlannedProcess> InTerminal(PlannedProcess process) override;
    void UseTerminal(std::string_view command) override { terminal_ = command; }
    Result<void> Start(const LaunchPlan& plan) override;
    Result<void> ShowInFolder(std::span<const std::string> paths) override;
    Result<void> ShowTrash() override;
    Result<bool> Enqueue(std::string_view command, std::span<const std::string> paths) override;
    Result<bool> PlayNow(std::string_view command, std::span<const std::string> paths) override;

  private:
    // `objects` are native paths, or addresses for an entry that takes them.
    Result<LaunchPlan> PlanEntry(const DesktopEntry& entry, std::span<const std::string> objects,
                                 std::string_view folder);
    // Whether the application that is set for a type took the address of the trash.
    bool OpenTrashWith(std::string_view type);
    Result<bool> HandToPlayer(std::string_view command, std::span<const std::string> paths,
                              bool plays);
    // The native paths of objects, each spelled as the disk has it; 53 for one that is missing.
    Result<std::vector<std::string>> Natives(std::span<const std::string> paths);
    std::string NativeFolder(std::string_view folder) const;
    Result<void> OpenFoldersOf(std::span<const std::string> natives);

    FileSystem& files_;
    const NativePaths& paths_;
    std::string home_;
    std::string terminal_;
    unsigned started_ = 0; // for the ids of starts
};

} // namespace tarvix::platform
