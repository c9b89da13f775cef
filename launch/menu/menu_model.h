#pragma once

#include "fields/menu_items.h"
#include "launch/custom/entry.h"
#include "launch/menu/archivers.h"
#include "launch/menu/menu_objects.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::menu {

enum class Deed : std::uint8_t {
    kOpen,
    kOpenWith,   // an application
    kChooseWith, // one of all applications
    kShowInFolder,
    kCopy,
    kCut,
    kCopyPath,
    kCompress,
    kCustom, // an entry of the user's own
    kClick,  // a control of the search window
    kProperties,
};

// What an entry of the menu does.
struct MenuChoice {
    Deed deed{};
    std::string what;      // the application's id, or the control's name
    std::size_t index = 0; // among the user's own entries
};

// A menu as it is offered. The ids of its items are positions in `choices`.
struct ContextMenu {
    std::vector<fields::MenuItem> items;
    std::vector<MenuChoice> choices;
    std::vector<custom::CustomEntry> custom;
    std::optional<Archiver> archiver;
};

// More objects are not opened, nor more folders shown, at once.
constexpr std::size_t kMostOpened = 200;
constexpr std::size_t kMostFolders = 10;

// What a file manager of this desktop would offer for the objects, and what Tarvix does with them.
// The user's own entries are read anew. An entry that can't be used now is there, disabled.
ContextMenu BuildMenu(session::Session& session, const MenuObjects& objects);

// The entries that can be chosen as lines, "Open With/Image Viewer", without mnemonics, and their
// ids beside them.
struct ListedItems {
    std::vector<std::string> lines;
    std::vector<int> ids;
};
ListedItems ListItems(const std::vector<fields::MenuItem>& items);

// A text as a label that answers to no letter.
std::string PlainLabel(std::string_view text);

} // namespace tarvix::menu
