#include "launch/custom/action_readers.h"
#include "launch/custom/conditions.h"
#include "launch/custom/expand.h"
#include "launch/custom/key_file.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <set>

namespace tarvix::custom {

namespace {

using platform::ActionFile;

constexpr std::string_view kGroup = "Desktop Entry";
constexpr std::string_view kSeparator = "SEPARATOR";
constexpr std::string_view kEnding = ".desktop";
constexpr std::size_t kDeepest = 6; // menus in menus

struct Item {
    std::string id;
    const ActionFile* file;
    KeyFile keys;
    std::vector<std::string> items; // of a menu
};

class Reader {
  public:
    Reader(platform::Desktop& desktop, const Chosen& chosen)
        : desktop_(desktop), chosen_(chosen), languages_(desktop.Languages()) {}

    std::vector<CustomEntry> Read(std::span<const ActionFile> files) {
        for (const ActionFile& file : files)
            Take(file);
        // What a menu lists stands in that menu alone.
        std::set<std::string_view> listed;
        for (const Item& item : items_)
            listed.insert(item.items.begin(), item.items.end());
        for (const Item& item : items_) {
            if (!listed.contains(item.id)) Add(item, {}, false);
        }
        return std::move(entries_);
    }

  private:
    void Take(const ActionFile& file) {
        if (file.name.size() <= kEnding.size()) return;
        std::string id = file.name.substr(0, file.name.size() - kEnding.size());
        if (Find(id) != nullptr) return;
        Item item{std::move(id), &file, KeyFile(file.bytes), {}};
        if (item.keys.Text(kGroup, "Type") == "Menu") {
            item.items = item.keys.List(kGroup, "ItemsList");
        }
        items_.push_back(std::move(item));
    }

    const Item* Find(std::string_view id) const {
        const auto found = std::ranges::find(items_, id, &Item::id);
        return found == items_.end() ? nullptr : &*found;
    }

    std::string Label(const Item& item, std::string_view group) const {
        std::string label = item.keys.Text(group, "Name", languages_);
        label = ExpandLabel(Dialect::kFileManager, label, chosen_);
        return std::string(text::Left(label, kMostLabel));
    }

    bool Shows(const Item& item) const {
        return item.keys.HasGroup(kGroup) && !item.keys.Flag(kGroup, "Hidden", false) &&
               item.keys.Flag(kGroup, "Enabled", true) &&
               ConditionsHold(desktop_, item.keys, kGroup, chosen_);
    }

    void Add(const Item& item, const std::vector<std::string>& submenus, bool startsGroup) {
        if (entries_.size() >= kMostEntries || submenus.size() > kDeepest || !Shows(item)) return;
        if (item.items.empty()) return AddAction(item, submenus, startsGroup);
        const std::string label = Label(item, kGroup);
        if (label.empty()) return;
        std::vector<std::string> below = submenus;
        below.push_back(label);
        bool startsNext = false;
        for (const std::string& id : item.items) {
            const Item* listed = Find(id);
            if (id == kSeparator) {
                startsNext = true;
            } else if (listed != nullptr && std::ranges::count(open_, listed) == 0) {
                open_.push_back(listed);
                const std::size_t before = entries_.size();
                Add(*listed, below, startsNext);
                if (entries_.size() > before) startsNext = false;
                open_.pop_back();
            }
        }
    }

    void AddAction(const Item& item, const std::vector<std::string>& submenus, bool startsGroup) {
        if (!item.keys.Flag(kGroup, "TargetContext", true)) return;
        if (item.keys.Text(kGroup, "Type") == "Menu") return; // one of nothing
        for (const std::string& profile : item.keys.List(kGroup, "Profiles")) {
            const std::string group = fmt::format("X-Action-Profile {}", profile);
            if (!item.keys.HasGroup(group) || item.keys.Text(group, "Exec").empty() ||
                !item.keys.Text(group, "ExecuteAs").empty() ||
                !ConditionsHold(desktop_, item.keys, group, chosen_)) {
                continue;
            }
            entries_.push_back(EntryOf(item, group, submenus, startsGroup));
            if (entries_.back().label.empty()) entries_.pop_back();
            return;
        }
    }

    CustomEntry EntryOf(const Item& item, std::string_view profile,
                        const std::vector<std::string>& submenus, bool startsGroup) const {
        const KeyFile& keys = item.keys;
        const std::string mode = keys.Text(profile, "ExecutionMode");
        CustomEntry entry;
        entry.label = Label(item, kGroup);
        entry.tip = keys.Text(kGroup, "Tooltip", languages_);
        entry.icon = keys.Text(kGroup, "Icon", languages_);
        entry.submenus = submenus;
        entry.startsGroup = startsGroup;
        entry.command = {.dialect = Dialect::kFileManager,
                         .line = keys.Text(profile, "Exec"),
                         .folder = keys.Text(profile, "Path"),
                         .file = item.file->path,
                         .name = entry.label,
                         .icon = entry.icon,
                         .inTerminal = !mode.empty() && mode != "Normal",
                         .showsOutput = mode == "DisplayOutput" || mode == "Embedded"};
        if (entry.command.folder.empty()) entry.command.folder = "%d";
        return entry;
    }

    platform::Desktop& desktop_;
    const Chosen& chosen_;
    std::vector<std::string> languages_;
    std::vector<Item> items_;
    std::vector<const Item*> open_; // the menus that are being filled
    std::vector<CustomEntry> entries_;
};

} // namespace

std::vector<CustomEntry> FileManagerEntries(platform::Desktop& desktop,
                                            std::span<const ActionFile> files,
                                            const Chosen& chosen) {
    return Reader(desktop, chosen).Read(files);
}

} // namespace tarvix::custom
