#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace tarvix::session {

constexpr std::size_t kListColumns = 27;

// Where a window stood when it closed, in pixels of its toolkit; a width of 0 is no place.
struct WindowPlace {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool isMaximized = false;
    bool operator==(const WindowPlace&) const = default;
};

// What is particular to this machine and so stands in no options file.
struct PlatformSettings {
    std::map<char, std::string> drives; // by letter, native folders
    bool listsAreNative = true;         // paths in written lists
    std::string editor;                 // a command; empty for the desktop's own
    std::string player;                 // instead of VLC
    std::string secondPlayer;           // instead of Winamp
    int latestYear = 2025;              // the last year that is plausible for a file
    WindowPlace searchWindow;
    WindowPlace dialogWindow;
    // By column index, in pixels; 0 for the width that the column has at first.
    std::array<int, kListColumns> columnWidths{};
    std::vector<int> columnOrder; // column indexes from left to right; empty for the usual order
    std::vector<std::string> others; // lines that this version doesn't know, kept as they stand
    bool operator==(const PlatformSettings&) const = default;
};

} // namespace tarvix::session
