#pragma once

#include "platform/desktop.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tarvix::platform {

// A desktop as a test sets it up; nothing is added to it at the start.
class MemoryDesktop : public Desktop {
  public:
    // `place` is below the folder, as "nemo/actions/a.nemo_action".
    void AddAction(DesktopFolder folder, const std::string& below, ActionFile file) {
        actions[{folder, below}].push_back(std::move(file));
    }

    std::vector<ActionFile> ActionFiles(DesktopFolder folder, std::string_view below,
                                        std::string_view ending) override {
        std::vector<ActionFile> files;
        for (const ActionFile& file : actions[{folder, std::string(below)}]) {
            if (file.name.ends_with(ending)) files.push_back(file);
        }
        return files;
    }
    std::vector<ScriptFile> Scripts(DesktopFolder folder, std::string_view below) override {
        return scripts[{folder, std::string(below)}];
    }
    std::vector<std::string> Languages() override { return languages; }
    std::vector<std::string> Names() override { return names; }
    bool IsKindOf(std::string_view type, std::string_view base) override {
        return type == base || kinds.contains({std::string(type), std::string(base)});
    }
    bool HasProgram(std::string_view name) override { return programs.contains(std::string(name)); }
    bool IsOnBus(std::string_view name) override { return onBus.contains(std::string(name)); }
    bool IsRunning(std::string_view name) override { return running.contains(std::string(name)); }
    bool TellsTrue(std::string_view line) override { return saysTrue.contains(std::string(line)); }
    bool Has(std::string_view path, FileRight right) override {
        return !missing.contains({std::string(path), right});
    }
    Result<void> ShowProperties(std::span<const std::string> addresses) override {
        if (!showsProperties) return Failure(kPermissionDenied, "Nothing shows properties.");
        properties.assign(addresses.begin(), addresses.end());
        return {};
    }

    std::map<std::pair<DesktopFolder, std::string>, std::vector<ActionFile>> actions;
    std::map<std::pair<DesktopFolder, std::string>, std::vector<ScriptFile>> scripts;
    std::vector<std::string> languages;
    std::vector<std::string> names;
    std::set<std::pair<std::string, std::string>> kinds; // a type and what it is derived from
    std::set<std::string> programs;
    std::set<std::string> onBus;
    std::set<std::string> running;
    std::set<std::string> saysTrue;
    std::set<std::pair<std::string, FileRight>> missing; // rights that aren't there
    bool showsProperties = true;
    std::vector<std::string> properties; // addresses that were shown last
};

} // namespace tarvix::platform
