#include "launch/custom/action_readers.h"
#include "launch/custom/conditions.h"
#include "launch/custom/key_file.h"
#include "text/characters.h"
#include "text/numbers.h"

#include <fmt/core.h>

#include <algorithm>
#include <set>
#include <utility>

namespace tarvix::custom {

namespace {

using platform::ActionFile;

constexpr std::string_view kGroup = "Desktop Entry";
constexpr std::string_view kOctets = "application/octet-stream";

bool IsForObjects(const KeyFile& keys) {
    const auto types = keys.List(kGroup, "X-KDE-ServiceTypes");
    const auto older = keys.List(kGroup, "ServiceTypes");
    if (types.empty() && older.empty()) return true;
    const auto names = [](const std::string& type) { return type == "KonqPopupMenu/Plugin"; };
    return std::ranges::any_of(types, names) || std::ranges::any_of(older, names);
}

// One protocol, "!" negates it; or a list of them.
bool FitsProtocol(const KeyFile& keys) {
    const std::string one = keys.Text(kGroup, "X-KDE-Protocol");
    if (!one.empty()) return one.starts_with('!') ? one != "!file" : one == "file";
    const auto list = keys.List(kGroup, "X-KDE-Protocols", ',');
    return list.empty() ||
           std::ranges::any_of(list, [](const auto& name) { return name == "file"; });
}

bool FitsNumber(const KeyFile& keys, std::size_t count) {
    const auto number = [&](std::string_view key) {
        return text::ParseWholeNumber(keys.Text(kGroup, key));
    };
    const auto least = number("X-KDE-MinNumberOfUrls");
    const auto most = number("X-KDE-MaxNumberOfUrls");
    const auto wanted = keys.List(kGroup, "X-KDE-RequiredNumberOfUrls", ',');
    const auto selected = static_cast<std::int64_t>(count);
    return (!least || selected >= *least) && (!most || selected <= *most) &&
           (wanted.empty() || std::ranges::count(wanted, std::to_string(count)) > 0);
}

// The types stand with ";" or "," between.
std::vector<std::string> Types(const KeyFile& keys, std::string_view key) {
    std::vector<std::string> types;
    for (const std::string& part : keys.List(kGroup, key)) {
        for (const std::string_view piece : text::Split(part, ',')) {
            const std::string_view type = text::Trim(piece);
            if (type.empty()) continue;
            types.emplace_back(type == kOctets ? "all/allfiles" : type);
        }
    }
    return types;
}

bool FitsTypes(platform::Desktop& desktop, const KeyFile& keys, const Chosen& chosen) {
    const auto types = Types(keys, "MimeType");
    if (types.empty()) return false;
    const auto excluded = Types(keys, "ExcludeServiceTypes");
    const bool isExcluded = std::ranges::any_of(chosen.types, [&](const std::string& type) {
        return std::ranges::any_of(
            excluded, [&](const std::string& wanted) { return FitsType(desktop, type, wanted); });
    });
    return !isExcluded && FitTypes(desktop, chosen, types);
}

bool Fits(platform::Desktop& desktop, const KeyFile& keys, const Chosen& chosen) {
    const auto missing = [&](std::string_view key) { return keys.Text(kGroup, key).empty(); };
    const std::string program = keys.Text(kGroup, "TryExec");
    const std::string owner = keys.Text(kGroup, "X-KDE-ShowIfRunning");
    return keys.HasGroup(kGroup) && !keys.Flag(kGroup, "Hidden", false) &&
           !keys.Flag(kGroup, "NoDisplay", false) && missing("X-KDE-GetActionMenu") &&
           missing("X-KDE-ShowIfDBusCall") && IsForObjects(keys) && FitsProtocol(keys) &&
           FitsNumber(keys, chosen.objects.size()) && FitsTypes(desktop, keys, chosen) &&
           (program.empty() || desktop.HasProgram(program)) &&
           (owner.empty() || desktop.IsOnBus(owner));
}

void AddActions(const ActionFile& file, const KeyFile& keys,
                const std::vector<std::string>& languages, std::vector<CustomEntry>& entries) {
    const std::string submenu = keys.Text(kGroup, "X-KDE-Submenu", languages);
    bool startsGroup = false;
    for (const std::string& action : keys.List(kGroup, "Actions")) {
        const std::string group = fmt::format("Desktop Action {}", action);
        if (action == "_SEPARATOR_") startsGroup = true;
        CustomEntry entry;
        entry.label = text::Left(keys.Text(group, "Name", languages), kMostLabel);
        entry.command.line = keys.Text(group, "Exec");
        const bool isWhole = !entry.label.empty() && !entry.command.line.empty();
        if (!isWhole || entries.size() >= kMostEntries) continue;
        entry.icon = keys.Text(group, "Icon");
        if (!submenu.empty()) entry.submenus = {std::string(text::Left(submenu, kMostLabel))};
        entry.startsGroup = std::exchange(startsGroup, false);
        entry.isTrusted = file.mayRun || file.isOfTheSystem;
        entry.command.dialect = Dialect::kService;
        entry.command.file = file.path;
        entry.command.name = entry.label;
        entry.command.icon = entry.icon;
        entry.command.inTerminal =
            keys.Flag(group, "Terminal", keys.Flag(kGroup, "Terminal", false));
        entries.push_back(std::move(entry));
    }
}

} // namespace

std::vector<CustomEntry> ServiceEntries(platform::Desktop& desktop,
                                        std::span<const ActionFile> files, const Chosen& chosen) {
    const auto languages = desktop.Languages();
    std::vector<CustomEntry> entries;
    std::set<std::string_view> seen;
    for (const ActionFile& file : files) {
        if (!seen.insert(file.name).second) continue;
        const KeyFile keys(file.bytes);
        if (Fits(desktop, keys, chosen)) AddActions(file, keys, languages, entries);
    }
    return entries;
}

} // namespace tarvix::custom
