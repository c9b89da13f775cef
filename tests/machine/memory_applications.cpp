#include "tests/machine/memory_applications.h"

#include "platform/try.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::platform {

namespace {

constexpr std::string_view kSuffix = ".desktop";

std::string Joined(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words)
        line += fmt::format("{}{}", line.empty() ? "" : " ", word);
    return line;
}

} // namespace

void MemoryApplications::AddApplication(const std::string& type, const std::string& id,
                                        const std::string& name) {
    byType_[type].push_back({.id = id, .name = name});
    AddProgram(id.substr(0, id.size() - kSuffix.size()));
}

std::string MemoryApplications::TypeOf(std::string_view path) {
    const auto facts = files_.Facts(path);
    if (!facts) return {};
    if (facts->IsFolder()) return "inode/directory";
    std::string type = TypeOfName(text::FileNameOf(path));
    return type.empty() ? "application/octet-stream" : type;
}

std::string MemoryApplications::TypeOfName(std::string_view name) {
    const auto found = types_.find(text::Lower(text::GetExtension(name)));
    return found == types_.end() ? std::string() : found->second;
}

std::optional<Application> MemoryApplications::DefaultFor(std::string_view type) {
    const auto found = byType_.find(std::string(type));
    if (found == byType_.end() || found->second.empty()) return std::nullopt;
    return found->second.front();
}

std::vector<Application> MemoryApplications::RecommendedFor(std::span<const std::string> types) {
    if (types.empty()) return {};
    auto all = byType_[types.front()];
    for (const std::string& type : types.subspan(1)) {
        const auto& others = byType_[type];
        std::erase_if(all, [&](const Application& one) {
            return std::ranges::find(others, one.id, &Application::id) == others.end();
        });
    }
    return all;
}

std::vector<Application> MemoryApplications::All() {
    std::map<std::string, Application> byId;
    for (const auto& [type, applications] : byType_) {
        for (const Application& application : applications)
            byId.emplace(application.id, application);
    }
    std::vector<Application> all;
    for (const auto& [id, application] : byId)
        all.push_back(application);
    std::ranges::stable_sort(all, {}, &Application::name);
    return all;
}

std::optional<Application> MemoryApplications::Find(std::string_view id) {
    for (const Application& application : All()) {
        if (application.id == id) return application;
    }
    return std::nullopt;
}

std::optional<std::string> MemoryApplications::ProgramOf(std::string_view command) {
    const std::string program(command.substr(0, command.find(' ')));
    if (!programs_.contains(program)) return std::nullopt;
    return "/usr/bin/" + program;
}

ProgramKind MemoryApplications::KindOf(std::string_view path) {
    const auto found = kinds_.find(std::string(path));
    return found == kinds_.end() ? ProgramKind::kNone : found->second;
}

Result<LaunchPlan> MemoryApplications::PlanOne(std::string_view command,
                                               std::span<const std::string> paths,
                                               std::string_view folder) {
    for (const std::string& path : paths) {
        if (!files_.Facts(path)) return Failure(kFileNotFound, path + " is not there.");
    }
    PlannedProcess process{.arguments = {}, .folder = std::string(folder)};
    for (const std::string_view word : text::Split(command, ' ')) {
        if (!word.empty()) process.arguments.emplace_back(word);
    }
    process.arguments.insert(process.arguments.end(), paths.begin(), paths.end());
    return LaunchPlan{.name = process.arguments.front(), .processes = {process}};
}

Result<LaunchPlan> MemoryApplications::PlanApplication(std::string_view id,
                                                       std::span<const std::string> paths,
                                                       std::string_view folder) {
    const auto application = Find(id);
    if (!application) return Failure(kInvalidCall, fmt::format("There is no application {}.", id));
    TX_TRY_ASSIGN(auto plan, PlanOne(id.substr(0, id.size() - kSuffix.size()), paths, folder));
    plan.name = application->name;
    return plan;
}

Result<LaunchPlan> MemoryApplications::PlanCommand(std::string_view command,
                                                   std::span<const std::string> paths,
                                                   std::string_view folder) {
    if (!ProgramOf(command)) {
        return Failure(kPermissionDenied, fmt::format("{} is no program here.", command));
    }
    return PlanOne(command, paths, folder);
}

Result<LaunchPlan> MemoryApplications::PlanProgram(std::string_view path, std::string_view folder) {
    if (!files_.Facts(path)) return Failure(kFileNotFound, fmt::format("{} is not there.", path));
    if (KindOf(path) != ProgramKind::kNative) {
        return Failure(KindOf(path) == ProgramKind::kNoRight ? kPermissionDenied : kInvalidCall,
                       fmt::format("{} can't be run.", path));
    }
    return LaunchPlan{
        .name = std::string(text::FileNameOf(path)),
        .processes = {{.arguments = {std::string(path)}, .folder = std::string(folder)}}};
}

Result<PlannedProcess> MemoryApplications::InTerminal(PlannedProcess process) {
    if (terminal.empty()) return Failure(kPermissionDenied, "There is no terminal.");
    process.arguments.insert(process.arguments.begin(), terminal);
    return process;
}

Result<void> MemoryApplications::Start(const LaunchPlan& plan) {
    for (const PlannedProcess& process : plan.processes) {
        if (refusing.contains(process.arguments.front())) {
            return Failure(kPermissionDenied, process.arguments.front() + " can't be started.");
        }
        started.push_back(fmt::format("{}> {}", process.folder, Joined(process.arguments)));
    }
    return {};
}

Result<void> MemoryApplications::ShowInFolder(std::span<const std::string> paths) {
    for (const std::string& path : paths) {
        if (!files_.Facts(path)) return Failure(kFileNotFound, path + " is not there.");
        shown.push_back(path);
    }
    return {};
}

Result<bool> MemoryApplications::Enqueue(std::string_view command,
                                         std::span<const std::string> paths) {
    if (!hasPlayer) return false;
    for (const std::string& path : paths)
        enqueued.push_back(fmt::format("{}: {}", command, path));
    return true;
}

Result<bool> MemoryApplications::PlayNow(std::string_view command,
                                         std::span<const std::string> paths) {
    if (!hasPlayer) return false;
    for (const std::string& path : paths)
        played.push_back(fmt::format("{}: {}", command, path));
    return true;
}

} // namespace tarvix::platform
