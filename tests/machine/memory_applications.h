#pragma once

#include "platform/applications.h"
#include "platform/file_system.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace tarvix::platform {

// A desktop as a test sets it up: types go by extension, an application is a command of one word,
// its id without ".desktop". Starts nothing and records what it was asked for, with drive paths.
class MemoryApplications : public Applications {
  public:
    explicit MemoryApplications(FileSystem& files) : files_(files) {}

    // `extension` without its "."; empty for names without one.
    void SetType(const std::string& extension, const std::string& type) {
        types_[extension] = type;
    }
    // The first that is added for a type is its default.
    void AddApplication(const std::string& type, const std::string& id, const std::string& name);
    // A program that commands may begin with.
    void AddProgram(const std::string& name) { programs_.insert(name); }
    void RemoveProgram(const std::string& name) { programs_.erase(name); }
    void SetKind(const std::string& path, ProgramKind kind) { kinds_[path] = kind; }

    std::string TypeOf(std::string_view path) override;
    std::string TypeOfName(std::string_view name) override;
    std::optional<Application> DefaultFor(std::string_view type) override;
    std::vector<Application> RecommendedFor(std::span<const std::string> types) override;
    std::vector<Application> All() override;
    std::optional<Application> Find(std::string_view id) override;
    std::optional<std::string> ProgramOf(std::string_view command) override;
    ProgramKind KindOf(std::string_view path) override;
    bool IsTrusted(std::string_view path) override { return trusted.contains(std::string(path)); }
    Result<LaunchPlan> PlanApplication(std::string_view id, std::span<const std::string> paths,
                                       std::string_view folder) override;
    Result<LaunchPlan> PlanCommand(std::string_view command, std::span<const std::string> paths,
                                   std::string_view folder) override;
    Result<LaunchPlan> PlanProgram(std::string_view path, std::string_view folder) override;
    Result<PlannedProcess> InTerminal(PlannedProcess process) override;
    void UseTerminal(std::string_view command) override { terminal = command; }
    Result<void> Start(const LaunchPlan& plan) override;
    Result<void> ShowInFolder(std::span<const std::string> paths) override;
    Result<void> ShowTrash() override {
        ++trashShown;
        return {};
    }
    Result<bool> Enqueue(std::string_view command, std::span<const std::string> paths) override;
    Result<bool> PlayNow(std::string_view command, std::span<const std::string> paths) override;

    // What was started, in order: "FOLDER> ARGUMENT ARGUMENT ...".
    std::vector<std::string> started;
    std::vector<std::string> shown; // paths shown in their folder
    int trashShown = 0;
    std::vector<std::string> enqueued; // "COMMAND: PATH"
    std::vector<std::string> played;   // the same
    std::string terminal;
    bool hasPlayer = false;         // one that takes files over the bus
    std::set<std::string> refusing; // programs that can't be started
    std::set<std::string> trusted;  // paths of entries

  private:
    Result<LaunchPlan> PlanOne(std::string_view command, std::span<const std::string> paths,
                               std::string_view folder);

    FileSystem& files_;
    std::map<std::string, std::string> types_;
    std::map<std::string, std::vector<Application>> byType_;
    std::map<std::string, ProgramKind> kinds_;
    std::set<std::string> programs_;
};

} // namespace tarvix::platform
