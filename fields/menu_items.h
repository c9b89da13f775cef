#pragma once

#include <string>
#include <vector>

namespace tarvix::fields {

// A menu's entry, line or submenu.
struct MenuItem {
    std::string label; // with a "&" before the letter that it answers to; "&&" is a "&"
    std::string icon;  // of the icon theme, or a native path; empty for none
    std::string tip;
    bool isEnabled = true;
    bool isLine = false;            // between entries; nothing else of it counts
    int id = -1;                    // of an entry; -1 for others
    std::vector<MenuItem> children; // of a submenu
};

} // namespace tarvix::fields
