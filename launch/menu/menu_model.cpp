#include "launch/menu/menu_model.h"

#include "launch/custom/action_readers.h"
#include "platform/applications.h"
#include "platform/names.h"
#include "session/session.h"
#include "session/user_input.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace tarvix::menu {

namespace {

using fields::MenuItem;
using session::Session;

constexpr std::size_t kMostApplications = 15;
constexpr std::size_t kMostTypes = 20; // that applications are asked about

// What Tarvix itself does: a control of its window, or a line above the next.
struct OwnEntry {
    std::string_view control; // empty for a line
    std::string_view label;   // empty for the control's caption
    std::string_view icon;
};
constexpr std::array kGuarded{
    OwnEntry{"cmdRenameSelected", "&Rename...", "edit-rename"},
    OwnEntry{"cmdDeleteSelected", "&Move to Trash", "user-trash"},
};
constexpr std::array kOwn{
    OwnEntry{"cmdCopySelected", "Cop&y to...", "edit-copy"},
    OwnEntry{"cmdMoveSelected", "Mo&ve to...", "edit-cut"},
    OwnEntry{"cmdEditTargets", "&Edit Links (shortcuts)", ""},
    OwnEntry{"", "", ""},
    OwnEntry{"mnuRun_Mp3", "", ""},
    OwnEntry{"mnuRun_EnqueueMp3", "", ""},
    OwnEntry{"mnuRun_View", "", ""},
    OwnEntry{"mnuRun_HexEdit", "", ""},
    OwnEntry{"", "", ""},
    OwnEntry{"mnuTools_BypassMPL", "", ""},
    OwnEntry{"mnuTools_NewSearchFor", "", ""},
};

MenuItem Line() {
    MenuItem line;
    line.isLine = true;
    return line;
}

class Builder {
  public:
    Builder(Session& session, const MenuObjects& objects) : session_(session), objects_(objects) {}

    ContextMenu Build() {
        AddOpening();
        AddLine();
        AddClipboard();
        AddLine();
        AddGuarded();
        AddCompress();
        AddCustom();
        AddLine();
        AddOwn();
        AddLine();
        Add(menu_.items, {.label = "&Properties", .icon = "document-properties"},
            {Deed::kProperties, {}, 0});
        return std::move(menu_);
    }

  private:
    std::size_t Count() const { return objects_.paths.size(); }

    void Add(std::vector<MenuItem>& items, MenuItem item, MenuChoice choice) {
        item.id = static_cast<int>(menu_.choices.size());
        menu_.choices.push_back(std::move(choice));
        items.push_back(std::move(item));
    }

    // Never at the top, and never two in a row.
    void AddLine() {
        if (!menu_.items.empty() && !menu_.items.back().isLine) menu_.items.push_back(Line());
    }

    void AddOpening() {
        auto& applications = session_.platform.applications;
        const auto& types = objects_.chosen.types;
        const bool isFew = Count() <= kMostOpened;
        const std::string tooMany =
            isFew ? "" : fmt::format("At most {} objects are opened at once.", kMostOpened);
        Add(menu_.items,
            {.label = "&Open", .icon = "document-open", .tip = tooMany, .isEnabled = isFew},
            {Deed::kOpen, {}, 0});
        MenuItem with{.label = "Open Wit&h", .isEnabled = isFew};
        if (types.size() <= kMostTypes) {
            for (const platform::Application& application : applications.RecommendedFor(types)) {
                if (with.children.size() == kMostApplications) break;
                Add(with.children,
                    {.label = PlainLabel(application.name), .icon = application.icon},
                    {Deed::kOpenWith, application.id, 0});
            }
        }
        if (!with.children.empty()) with.children.push_back(Line());
        Add(with.children, {.label = "&Other..."}, {Deed::kChooseWith, {}, 0});
        menu_.items.push_back(std::move(with));
        AddShowInFolder();
    }

    void AddShowInFolder() {
        std::set<std::string_view> folders;
        for (const custom::ChosenObject& object : objects_.chosen.objects) {
            folders.insert(custom::FolderOf(object.path));
            if (folders.size() > kMostFolders) break;
        }
        const bool isFew = folders.size() <= kMostFolders;
        Add(menu_.items,
            {.label = "Show in &Folder",
             .icon = "folder-open",
             .tip = isFew ? "" : fmt::format("At most {} folders are shown at once.", kMostFolders),
             .isEnabled = isFew},
            {Deed::kShowInFolder, {}, 0});
    }

    void AddClipboard() {
        const bool has = session_.clipboard != nullptr;
        const auto add = [&](const char* label, const char* icon, Deed deed) {
            Add(menu_.items, {.label = label, .icon = icon, .isEnabled = has}, {deed, {}, 0});
        };
        add("&Copy", "edit-copy", Deed::kCopy);
        add("Cu&t", "edit-cut", Deed::kCut);
        add("Copy P&ath", "", Deed::kCopyPath);
    }

    // An entry of a control that can't be used says so.
    void AddControl(std::vector<MenuItem>& items, const OwnEntry& own) {
        const fields::Control* control = session_.frmSearch.Find(own.control);
        const std::string event = fmt::format("frmSearch.{}_Click", own.control);
        if (control == nullptr || !session_.events.Has(event)) return;
        const std::string label(own.label.empty() ? control->CaptionText() : own.label);
        Add(items,
            {.label = label,
             .icon = std::string(own.icon),
             .isEnabled = session::CanUse(*control).has_value()},
            {Deed::kClick, std::string(own.control), 0});
    }

    void AddGuarded() {
        for (const OwnEntry& own : kGuarded)
            AddControl(menu_.items, own);
    }

    void AddOwn() {
        std::vector<MenuItem> own;
        for (const OwnEntry& entry : kOwn) {
            if (!entry.control.empty()) {
                AddControl(own, entry);
            } else if (!own.empty() && !own.back().isLine) {
                own.push_back(Line());
            }
        }
        while (!own.empty() && own.back().isLine)
            own.pop_back();
        if (own.empty()) return;
        menu_.items.push_back({.label = "Tar&vix", .icon = "tarvix", .children = std::move(own)});
    }

    void AddCompress() {
        menu_.archiver = FindArchiver(session_.platform.applications);
        if (!menu_.archiver) return;
        AddLine();
        Add(menu_.items, {.label = "Compre&ss...", .icon = "package-x-generic"},
            {Deed::kCompress, {}, 0});
    }

    // The items of the submenu that an entry goes to; made where it is missing.
    std::vector<MenuItem>& ItemsFor(const std::vector<std::string>& submenus) {
        std::vector<MenuItem>* items = &menu_.items;
        for (std::size_t depth = 0; depth < submenus.size(); ++depth) {
            const std::string label = PlainLabel(submenus[depth]);
            // At the top only what stands among the user's own entries counts.
            const auto first =
                items->begin() + (depth == 0 ? static_cast<std::ptrdiff_t>(firstCustom_) : 0);
            auto found = std::find_if(first, items->end(), [&](const MenuItem& item) {
                return item.label == label && item.id < 0 && !item.isLine;
            });
            if (found == items->end()) {
                items->push_back({.label = label});
                found = items->end() - 1;
            }
            items = &found->children;
        }
        return *items;
    }

    void AddCustom() {
        menu_.custom = custom::AllEntries(session_.platform.desktop, objects_.chosen);
        if (menu_.custom.size() > custom::kMostEntries) menu_.custom.resize(custom::kMostEntries);
        AddLine();
        firstCustom_ = menu_.items.size();
        for (std::size_t index = 0; index < menu_.custom.size(); ++index) {
            const custom::CustomEntry& entry = menu_.custom[index];
            std::vector<MenuItem>& items = ItemsFor(entry.submenus);
            const bool isFirst = items.empty() || items.back().isLine;
            if (entry.startsGroup && !isFirst) items.push_back(Line());
            Add(items,
                {.label = PlainLabel(entry.label),
                 .icon = entry.icon,
                 .tip = platform::NativeForDisplay(entry.tip)},
                {Deed::kCustom, {}, index});
        }
    }

    Session& session_;
    const MenuObjects& objects_;
    ContextMenu menu_;
    std::size_t firstCustom_ = 0; // position of the first of the user's own entries
};

std::string WithoutMnemonic(std::string_view label) {
    std::string plain;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] == '&' && i + 1 < label.size()) ++i;
        plain += label[i];
    }
    return plain;
}

void List(const std::vector<MenuItem>& items, const std::string& above, ListedItems& listed) {
    for (const MenuItem& item : items) {
        if (item.isLine || !item.isEnabled) continue;
        const std::string line = above + WithoutMnemonic(item.label);
        if (item.id >= 0) {
            listed.lines.push_back(line);
            listed.ids.push_back(item.id);
        }
        List(item.children, fmt::format("{}/", line), listed);
    }
}

} // namespace

ContextMenu BuildMenu(Session& session, const MenuObjects& objects) {
    return Builder(session, objects).Build();
}

ListedItems ListItems(const std::vector<MenuItem>& items) {
    ListedItems listed;
    List(items, {}, listed);
    return listed;
}

std::string PlainLabel(std::string_view text) {
    return text::Replace(platform::NativeForDisplay(text), "&", "&&");
}

} // namespace tarvix::menu
