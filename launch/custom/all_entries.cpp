#include "launch/custom/action_readers.h"
#include "text/characters.h"

#include <iterator>

namespace tarvix::custom {

namespace {

using platform::DesktopFolder;

struct ScriptsFolder {
    DesktopFolder folder;
    std::string_view below;
    std::string_view prefix;
};
constexpr ScriptsFolder kScripts[]{
    {DesktopFolder::kUserData, "nautilus/scripts", "NAUTILUS"},
    {DesktopFolder::kUserData, "nemo/scripts", "NEMO"},
    {DesktopFolder::kUserConfig, "caja/scripts", "CAJA"},
};

void Append(std::vector<CustomEntry>& all, std::vector<CustomEntry> more) {
    if (more.empty()) return;
    more.front().startsGroup = true;
    all.insert(all.end(), std::make_move_iterator(more.begin()),
               std::make_move_iterator(more.end()));
}

} // namespace

std::vector<CustomEntry> ScriptEntries(std::span<const platform::ScriptFile> scripts,
                                       std::string_view prefix) {
    std::vector<CustomEntry> entries;
    for (const platform::ScriptFile& script : scripts) {
        CustomEntry entry;
        entry.label = text::Left(script.name, kMostLabel);
        entry.tip = script.path;
        entry.submenus = {"Scripts"};
        entry.submenus.insert(entry.submenus.end(), script.folders.begin(), script.folders.end());
        entry.command = {.dialect = Dialect::kScript,
                         .line = script.path,
                         .file = script.path,
                         .name = script.name,
                         .prefix = std::string(prefix)};
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::vector<CustomEntry> AllEntries(platform::Desktop& desktop, const Chosen& chosen) {
    std::vector<CustomEntry> all;
    const auto files = [&](DesktopFolder folder, std::string_view below, std::string_view ending) {
        return desktop.ActionFiles(folder, below, ending);
    };
    Append(all, FileManagerEntries(desktop,
                                   files(DesktopFolder::kData, "file-manager/actions", ".desktop"),
                                   chosen));
    auto services = files(DesktopFolder::kData, "kio/servicemenus", ".desktop");
    auto older = files(DesktopFolder::kData, "kservices5/ServiceMenus", ".desktop");
    services.insert(services.end(), std::make_move_iterator(older.begin()),
                    std::make_move_iterator(older.end()));
    Append(all, ServiceEntries(desktop, services, chosen));
    Append(all, NemoEntries(desktop, files(DesktopFolder::kData, "nemo/actions", ".nemo_action"),
                            chosen));
    Append(all, ThunarEntries(desktop, files(DesktopFolder::kConfig, "Thunar", "uca.xml"), chosen));
    for (const ScriptsFolder& scripts : kScripts)
        Append(all, ScriptEntries(desktop.Scripts(scripts.folder, scripts.below), scripts.prefix));
    return all;
}

} // namespace tarvix::custom
