#include "launch/custom/action_readers.h"
#include "launch/custom/conditions.h"
#include "launch/custom/expand.h"
#include "launch/custom/key_file.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/numbers.h"

#include <fmt/core.h>

#include <algorithm>
#include <set>

namespace tarvix::custom {

namespace {

using platform::ActionFile;

constexpr std::string_view kGroup = "Nemo Action";

bool FitsSelection(const std::string& wanted, std::size_t count) {
    const std::string kind = text::Lower(wanted);
    if (kind.empty() || kind == "any" || kind == "notnone") return true;
    if (kind == "s" || kind == "single") return count == 1;
    if (kind == "m" || kind == "multiple") return count > 1;
    const auto number = text::ParseWholeNumber(kind);
    return number && static_cast<std::size_t>(*number) == count;
}

bool FitsExtension(const ChosenObject& object, const std::string& extension) {
    if (extension == "any") return true;
    if (extension == "dir") return object.isFolder;
    if (extension == "nodirs") return !object.isFolder;
    if (object.isFolder) return false;
    const std::string_view name = NameOf(object.path);
    if (extension == "none") return ExtensionOf(name).empty();
    // "tar.gz" has two of them.
    return text::Lower(name).ends_with(fmt::format(".{}", extension));
}

bool FitsKinds(platform::Desktop& desktop, const KeyFile& keys, const Chosen& chosen) {
    const auto types = keys.List(kGroup, "Mimetypes");
    if (!types.empty()) return FitTypes(desktop, chosen, types);
    auto extensions = keys.List(kGroup, "Extensions");
    for (std::string& extension : extensions)
        extension = text::Lower(extension);
    return !extensions.empty() &&
           std::ranges::all_of(chosen.objects, [&](const ChosenObject& object) {
               return std::ranges::any_of(extensions, [&](const std::string& extension) {
                   return FitsExtension(object, extension);
               });
           });
}

// "!name" must not be there.
bool HasDependencies(platform::Desktop& desktop, const KeyFile& keys) {
    return std::ranges::all_of(keys.List(kGroup, "Dependencies"), [&](const std::string& name) {
        const bool isBarred = name.starts_with('!');
        return desktop.HasProgram(name.substr(isBarred ? 1 : 0)) != isBarred;
    });
}

// A condition that isn't known holds for nothing here.
bool FitsConditions(platform::Desktop& desktop, const KeyFile& keys) {
    return std::ranges::all_of(keys.List(kGroup, "Conditions"), [&](const std::string& condition) {
        constexpr std::string_view kBus = "dbus ";
        return condition.starts_with(kBus) &&
               desktop.IsOnBus(text::Trim(std::string_view(condition).substr(kBus.size())));
    });
}

bool Fits(platform::Desktop& desktop, const KeyFile& keys, const Chosen& chosen) {
    const std::string scheme = keys.Text(kGroup, "UriScheme");
    return keys.HasGroup(kGroup) && keys.Flag(kGroup, "Active", true) &&
           (scheme.empty() || scheme == "file") &&
           FitsSelection(keys.Text(kGroup, "Selection"), chosen.objects.size()) &&
           FitsKinds(desktop, keys, chosen) && HasDependencies(desktop, keys) &&
           FitsConditions(desktop, keys);
}

// "<script.sh %F>" is a program beside the file.
std::string LineOf(const ActionFile& file, std::string exec) {
    if (!exec.starts_with('<')) return exec;
    const std::size_t end = exec.rfind('>');
    std::string inner = exec.substr(1, end == exec.npos ? exec.npos : end - 1);
    const std::size_t blank = std::min(inner.find(' '), inner.size());
    std::string program = fmt::format("{}/{}", FolderOf(file.path), inner.substr(0, blank));
    // As one word, and no code in it.
    program = text::Replace(text::Replace(program, "%", "%%"), "'", "'\\''");
    return fmt::format("'{}'{}", program, inner.substr(blank));
}

std::string WithoutMnemonic(std::string label) {
    const std::size_t at = label.find('_');
    if (at != label.npos && at + 1 < label.size()) label.erase(at, 1);
    return label;
}

CustomEntry EntryOf(const ActionFile& file, const KeyFile& keys,
                    const std::vector<std::string>& languages, const Chosen& chosen) {
    CustomEntry entry;
    const std::string label = WithoutMnemonic(keys.Text(kGroup, "Name", languages));
    entry.label = text::Left(ExpandLabel(Dialect::kNemo, label, chosen), kMostLabel);
    entry.tip = ExpandLabel(Dialect::kNemo, keys.Text(kGroup, "Comment", languages), chosen);
    entry.icon = keys.Text(kGroup, "Icon-Name");
    entry.command = {.dialect = Dialect::kNemo,
                     .line = LineOf(file, keys.Text(kGroup, "Exec")),
                     .file = file.path,
                     .name = entry.label,
                     .icon = entry.icon,
                     .inTerminal = keys.Flag(kGroup, "Terminal", false)};
    return entry;
}

} // namespace

std::vector<CustomEntry> NemoEntries(platform::Desktop& desktop, std::span<const ActionFile> files,
                                     const Chosen& chosen) {
    const auto languages = desktop.Languages();
    std::vector<CustomEntry> entries;
    std::set<std::string_view> seen;
    for (const ActionFile& file : files) {
        if (!seen.insert(file.name).second || entries.size() >= kMostEntries) continue;
        const KeyFile keys(file.bytes);
        if (!Fits(desktop, keys, chosen)) continue;
        CustomEntry entry = EntryOf(file, keys, languages, chosen);
        if (!entry.label.empty() && !entry.command.line.empty())
            entries.push_back(std::move(entry));
    }
    return entries;
}

} // namespace tarvix::custom
