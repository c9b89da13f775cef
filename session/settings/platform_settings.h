#pragma once

#include "platform/traits.h"
#include "session/settings/options.h"

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {

constexpr std::size_t kListColumns = 27;
constexpr int kLatestYear = 2025;
constexpr int kToldLength = 259; // characters
constexpr int kAnyLength = 0;

// Where a window stood when it closed, in pixels of its toolkit; a width of 0 is no place.
struct WindowPlace {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool isMaximized = false;
    bool operator==(const WindowPlace&) const = default;
};

// Which action logs of earlier runs stay.
struct LogsKept {
    int most = 200;      // so many, that of this run among them; 0 for all
    bool inDays = false; // those of so many days instead
    bool operator==(const LogsKept&) const = default;
};

// What is particular to this machine and so stands in no options file. A new record holds what
// counts on a machine of default traits.
struct PlatformSettings {
    std::map<char, std::string> drives; // by letter from D to Z, absolute native folders
    bool showsNative = false;           // paths in what people read
    bool listsAreNative = true;         // paths in written lists
    bool showsUnits = false;            // sizes in the list, in place of all their bytes
    int longestPath = kToldLength;      // in characters, or kAnyLength: what the disk takes
    std::string editor;                 // a command; empty for the desktop's own
    std::string player;                 // in the place of VLC
    std::string secondPlayer;           // in the place of Winamp
    std::string hexEditor;              // empty for none
    std::string terminal;               // a program and its arguments are added to its end
    int latestYear = kLatestYear;       // the last year that is plausible for a file, or kAnyYear
    LogsKept logsKept;
    std::optional<bool> sortsFast;          // as the window left the box; none: as at first
    std::optional<bool> searchesSubfolders; // the same
    WindowPlace searchWindow;
    WindowPlace dialogWindow;
    // By column index, in pixels; 0 for the width that the column has at first.
    std::array<int, kListColumns> columnWidths{};
    std::vector<int> columnOrder; // column indexes from left to right; empty for the usual order
    std::vector<std::string> unknownLines; // kept as they stand
    bool operator==(const PlatformSettings&) const = default;
};

// What counts on a machine as long as nothing else was set.
PlatformSettings UsualSettings(const platform::Traits& traits);

// The settings in the lines of a file, "key = value" each, up to "*EOF" or its end; the others are
// those of `usual`. A line that isn't understood, or whose value is none, is kept among
// `unknownLines`; lines that begin with "#" are passed over.
PlatformSettings ParsePlatformSettings(const std::vector<std::string>& lines,
                                       PlatformSettings usual = {});
// The whole text of the file, a comment above each key.
std::string PlatformSettingsText(const PlatformSettings& settings);

// One setting by its key without regard to case, as the command line lists and sets them. Setting
// fails for an unknown key and for a value that is none.
struct NamedSetting {
    std::string key;
    std::string value;
};
std::vector<NamedSetting> ListSettings(const PlatformSettings& settings);

// What is known of a setting besides its value, in the order of the list, drives left out.
struct SettingFacts {
    std::string_view key;
    std::string_view comment; // a sentence
    // The values that it takes, separated by "|"; empty where it takes any text.
    std::string_view choices;
    bool isRemembered = false; // by the windows themselves: nothing that a user sets
};
std::vector<SettingFacts> AllSettingFacts();

bool SetSetting(PlatformSettings& settings, std::string_view key, std::string_view value);

} // namespace tarvix::session
