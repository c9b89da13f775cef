#include "session/settings/platform_settings.h"

#include "session/settings/option_keys.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/list_marks.h"
#include "text/numbers.h"

#include <fmt/core.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace tarvix::session {

namespace {

constexpr std::string_view kDrivePrefix = "DRIVE ";
constexpr std::string_view kNameColumn = "Name";
constexpr std::string_view kNative = "native";
constexpr std::string_view kDrive = "drive";
constexpr std::string_view kAny = "any";
constexpr std::string_view kBytes = "bytes";
constexpr std::string_view kUnits = "units";
constexpr std::string_view kOn = "on";
constexpr std::string_view kOff = "off";
constexpr std::string_view kAll = "all";
constexpr int kMostLogs = 1'000'000;
constexpr int kMostPixels = 100'000;
constexpr int kEarliestYear = 1980;
constexpr int kLastYear = 9999;

constexpr std::string_view kHeading =
    "# What is particular to this machine. Tarvix writes this file when it closes: edit it only "
    "then.";
constexpr std::string_view kDriveComment =
    "# Letters from D to Z for folders and mounts, as \"Drive E: = /srv/collection\".";

std::optional<int> NumberFrom(std::string_view text, int least, int most) {
    const auto number = text::ParseWholeNumber(text);
    if (!number || *number < least || *number > most) return std::nullopt;
    return *number;
}

// ---- values ----

std::string WindowText(const WindowPlace& place) {
    if (place.width == 0) return {};
    std::string text;
    for (const int value : {place.left, place.top, place.width, place.height}) {
        text.append(text.empty() ? "" : ",").append(std::to_string(value));
    }
    if (place.isMaximized) text.append(",maximized");
    return text;
}

bool TakeWindow(WindowPlace& place, std::string_view text) {
    WindowPlace read;
    if (!text.empty()) {
        const auto pieces = text::Split(text, ',');
        const std::array<int*, 4> fields{&read.left, &read.top, &read.width, &read.height};
        read.isMaximized = pieces.size() == 5 && text::EqualNoCase(pieces[4], "maximized");
        if (pieces.size() != (read.isMaximized ? 5U : 4U)) return false;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const auto number = NumberFrom(pieces[i], i < 2 ? -kMostPixels : 1, kMostPixels);
            if (!number) return false;
            *fields[i] = *number;
        }
    }
    place = read;
    return true;
}

std::string_view ColumnText(std::size_t column) {
    return column == 0 ? kNameColumn : kColumnNames[column];
}

std::optional<std::size_t> ColumnFrom(std::string_view text) {
    for (std::size_t column = 0; column < kListColumns; ++column) {
        if (text::EqualNoCase(ColumnText(column), text::Trim(text))) return column;
    }
    return std::nullopt;
}

std::string WidthsText(const PlatformSettings& settings) {
    std::string text;
    for (std::size_t column = 0; column < kListColumns; ++column) {
        const int width = settings.columnWidths[column];
        if (width == 0) continue;
        text += fmt::format("{}{}:{}", text.empty() ? "" : ",", ColumnText(column), width);
    }
    return text;
}

bool TakeWidths(PlatformSettings& settings, std::string_view text) {
    std::array<int, kListColumns> widths{};
    for (const std::string_view piece : text::Split(text, ',')) {
        if (text.empty()) break;
        const std::size_t colon = std::min(piece.find(':'), piece.size());
        const auto column = ColumnFrom(piece.substr(0, colon));
        const auto width = NumberFrom(text::Mid(piece.substr(colon), 2), 1, kMostPixels);
        if (!column || !width) return false;
        widths[*column] = *width;
    }
    settings.columnWidths = widths;
    return true;
}

std::string OrderText(const PlatformSettings& settings) {
    std::string text;
    for (const int column : settings.columnOrder) {
        text.append(text.empty() ? "" : ",").append(ColumnText(static_cast<std::size_t>(column)));
    }
    return text;
}

bool TakeOrder(PlatformSettings& settings, std::string_view text) {
    std::vector<int> order;
    for (const std::string_view piece : text::Split(text, ',')) {
        if (text.empty()) break;
        const auto column = ColumnFrom(piece);
        if (!column || std::ranges::find(order, static_cast<int>(*column)) != order.end())
            return false;
        order.push_back(static_cast<int>(*column));
    }
    settings.columnOrder = std::move(order);
    return true;
}

std::string YearText(const PlatformSettings& settings) {
    return settings.latestYear == kAnyYear ? std::string(kAny)
                                           : std::to_string(settings.latestYear);
}

std::string LengthText(const PlatformSettings& settings) {
    return settings.longestPath == kAnyLength ? std::string(kNative)
                                              : std::to_string(settings.longestPath);
}

bool TakeLength(PlatformSettings& settings, std::string_view text) {
    const bool isAny = text::EqualNoCase(text, kNative);
    if (!isAny && !NumberFrom(text, kToldLength, kToldLength)) return false;
    settings.longestPath = isAny ? kAnyLength : kToldLength;
    return true;
}

std::string SizesText(const PlatformSettings& settings) {
    return std::string(settings.showsUnits ? kUnits : kBytes);
}

bool TakeSizes(PlatformSettings& settings, std::string_view text) {
    const bool isUnits = text::EqualNoCase(text, kUnits);
    if (!isUnits && !text::EqualNoCase(text, kBytes)) return false;
    settings.showsUnits = isUnits;
    return true;
}

bool TakeYear(PlatformSettings& settings, std::string_view text) {
    if (text::EqualNoCase(text, kAny)) {
        settings.latestYear = kAnyYear;
        return true;
    }
    const auto year = NumberFrom(text, kEarliestYear, kLastYear);
    if (year) settings.latestYear = *year;
    return year.has_value();
}

std::string LogsText(const PlatformSettings& settings) {
    const auto& [most, inDays] = settings.logsKept;
    return most == 0 ? std::string(kAll) : fmt::format("{}{}", most, inDays ? " days" : "");
}

bool TakeLogs(PlatformSettings& settings, std::string_view text) {
    LogsKept kept;
    if (text::EqualNoCase(text, kAll)) {
        kept.most = 0;
    } else {
        const std::size_t blank = std::min(text.find(' '), text.size());
        const std::string_view unit = text::Trim(text.substr(blank));
        const auto number = NumberFrom(text.substr(0, blank), 1, kMostLogs);
        kept.inDays = text::EqualNoCase(unit, "days") || text::EqualNoCase(unit, "day");
        if (!number || (!kept.inDays && !unit.empty())) return false;
        kept.most = *number;
    }
    settings.logsKept = kept;
    return true;
}

// ---- the keys ----

struct SettingKey {
    std::string_view key;
    std::string_view comment;
    std::string (*text)(const PlatformSettings&);
    bool (*take)(PlatformSettings&, std::string_view);
    std::string_view choices = "";
    bool isRemembered = false;
};
constexpr bool kRemembered = true;

template <std::string PlatformSettings::*Field>
constexpr SettingKey TextKey(std::string_view key, std::string_view comment) {
    return {key, comment, [](const PlatformSettings& settings) { return settings.*Field; },
            [](PlatformSettings& settings, std::string_view text) {
                settings.*Field = std::string(text);
                return true;
            }};
}

template <bool PlatformSettings::*IsNative>
constexpr SettingKey FormKey(std::string_view key, std::string_view comment) {
    return {key, comment,
            [](const PlatformSettings& settings) {
                return std::string(settings.*IsNative ? kNative : kDrive);
            },
            [](PlatformSettings& settings, std::string_view text) {
                const bool isNative = text::EqualNoCase(text, kNative);
                if (!isNative && !text::EqualNoCase(text, kDrive)) return false;
                settings.*IsNative = isNative;
                return true;
            },
            "native|drive"};
}

template <std::optional<bool> PlatformSettings::*Box>
constexpr SettingKey BoxKey(std::string_view key, std::string_view comment) {
    return {key,
            comment,
            [](const PlatformSettings& settings) {
                const auto& box = settings.*Box;
                return std::string(!box ? "" : *box ? kOn : kOff);
            },
            [](PlatformSettings& settings, std::string_view text) {
                const bool isOn = text::EqualNoCase(text, kOn);
                if (!isOn && !text.empty() && !text::EqualNoCase(text, kOff)) return false;
                settings.*Box = text.empty() ? std::nullopt : std::optional(isOn);
                return true;
            },
            "",
            kRemembered};
}

template <WindowPlace PlatformSettings::*Field>
constexpr SettingKey WindowKey(std::string_view key, std::string_view comment) {
    return {key,
            comment,
            [](const PlatformSettings& settings) { return WindowText(settings.*Field); },
            [](PlatformSettings& settings, std::string_view text) {
                return TakeWindow(settings.*Field, text);
            },
            "",
            kRemembered};
}

constexpr std::array kKeys{
    FormKey<&PlatformSettings::showsNative>(
        "PathForm", "Paths in windows, messages and logs: native or drive."),
    FormKey<&PlatformSettings::listsAreNative>("ListPathForm",
                                               "Paths in lists that are written: native or drive."),
    SettingKey{"SizeForm", "Sizes in the list of the window: bytes, or units for kB, MB and GB.",
               SizesText, TakeSizes, "bytes|units"},
    SettingKey{"LongestPath",
               "The longest path: native for what the disk takes, or 259 characters.", LengthText,
               TakeLength, "native|259"},
    TextKey<&PlatformSettings::editor>(
        "Editor", "The command that opens text files; empty for the desktop's own."),
    TextKey<&PlatformSettings::player>(
        "Player",
        "The command of the media player; empty for VLC where it is, else the desktop's own."),
    TextKey<&PlatformSettings::secondPlayer>(
        "SecondPlayer", "The command of a second media player, with its own switch for adding to "
                        "its list; empty for one that is installed."),
    TextKey<&PlatformSettings::hexEditor>(
        "HexEditor", "The command of the hex editor; empty for one that is installed."),
    TextKey<&PlatformSettings::terminal>(
        "Terminal", "The command of the terminal that text programs run in, such as xterm -e; "
                    "empty for the first that is found."),
    SettingKey{"LatestFileYear",
               "The last year that is plausible for the date of a file; any for all years.",
               YearText, TakeYear},
    SettingKey{"LogsKept",
               "How many action logs stay, each of one run: a number, an age such as 30 days, or "
               "all.",
               LogsText, TakeLogs},
    BoxKey<&PlatformSettings::sortsFast>(
        "FastSort", "Whether the window was left with Fast Sort on; empty for as at first."),
    BoxKey<&PlatformSettings::searchesSubfolders>(
        "Subfolders", "The same of Include subfolders, where the options let it be chosen."),
    WindowKey<&PlatformSettings::searchWindow>(
        "SearchWindow", "Left, top, width and height of the main window, and maximized if it was."),
    WindowKey<&PlatformSettings::dialogWindow>("ActionWindow", "The same of the action window."),
    SettingKey{"ColumnWidths", "Widths of columns that were changed, as \"Name:260\".", WidthsText,
               TakeWidths, "", kRemembered},
    SettingKey{"ColumnOrder", "The columns from left to right; empty for the usual order.",
               OrderText, TakeOrder, "", kRemembered},
};

// The letter of "Drive E:", in upper case; 0 for any other key.
char DriveLetterOf(std::string_view key) {
    const std::string upper = text::Upper(key);
    if (!upper.starts_with(kDrivePrefix)) return 0;
    const std::string_view letter = text::Trim(std::string_view(upper).substr(kDrivePrefix.size()));
    const bool isLetter = letter.size() == 1 || (letter.size() == 2 && letter[1] == ':');
    return isLetter && letter[0] >= 'D' && letter[0] <= 'Z' ? letter[0] : '\0';
}

bool TakeDrive(PlatformSettings& settings, char letter, std::string_view folder) {
    if (folder.empty()) return settings.drives.erase(letter) > 0;
    if (!folder.starts_with('/')) return false;
    settings.drives[letter] = std::string(folder);
    return true;
}

bool TakeLine(PlatformSettings& settings, std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == line.npos) return false;
    const std::string_view key = text::Trim(line.substr(0, equals));
    const std::string_view value = text::Trim(line.substr(equals + 1));
    // A line that is not understood is saved behind all others, where it must not come to mean
    // something: a letter is let go whether or not a line above gave it a folder.
    const bool letsGo = value.empty() && DriveLetterOf(key) != 0;
    return SetSetting(settings, key, value) || letsGo;
}

std::string DriveKey(char letter) {
    return fmt::format("Drive {}:", letter);
}

} // namespace

bool SetSetting(PlatformSettings& settings, std::string_view key, std::string_view value) {
    if (value.find_first_of("\r\n") != value.npos) return false;
    if (const char letter = DriveLetterOf(key)) return TakeDrive(settings, letter, value);
    for (const SettingKey& known : kKeys) {
        if (text::EqualNoCase(known.key, key)) return known.take(settings, value);
    }
    return false;
}

std::vector<NamedSetting> ListSettings(const PlatformSettings& settings) {
    std::vector<NamedSetting> listed;
    for (const auto& [letter, folder] : settings.drives) {
        listed.push_back({DriveKey(letter), folder});
    }
    for (const SettingKey& known : kKeys) {
        listed.push_back({std::string(known.key), known.text(settings)});
    }
    return listed;
}

std::vector<SettingFacts> AllSettingFacts() {
    std::vector<SettingFacts> facts;
    for (const SettingKey& known : kKeys) {
        facts.push_back({known.key, known.comment, known.choices, known.isRemembered});
    }
    return facts;
}

PlatformSettings UsualSettings(const platform::Traits& traits) {
    PlatformSettings settings;
    settings.showsNative = traits.hasNativePaths;
    if (traits.takesLongPaths) settings.longestPath = kAnyLength;
    if (traits.keepsEveryDate) settings.latestYear = kAnyYear;
    return settings;
}

PlatformSettings ParsePlatformSettings(const std::vector<std::string>& lines,
                                       PlatformSettings usual) {
    PlatformSettings settings = std::move(usual);
    for (const std::string& line : lines) {
        const std::string_view trimmed = text::Trim(line);
        if (trimmed == text::kEndMark) break;
        if (trimmed.empty() || trimmed.starts_with('#')) continue;
        if (!TakeLine(settings, trimmed)) settings.unknownLines.push_back(line);
    }
    return settings;
}

std::string PlatformSettingsText(const PlatformSettings& settings) {
    std::string text = fmt::format("{}\r\n{}\r\n", kHeading, kDriveComment);
    for (const auto& [letter, folder] : settings.drives) {
        text += fmt::format("{} = {}\r\n", DriveKey(letter), folder);
    }
    for (const SettingKey& known : kKeys) {
        const std::string value = known.text(settings);
        text += fmt::format("# {}\r\n{} ={}{}\r\n", known.comment, known.key,
                            value.empty() ? "" : " ", value);
    }
    for (const std::string& line : settings.unknownLines) {
        text += fmt::format("{}\r\n", line);
    }
    return text.append(text::kEndMark);
}

} // namespace tarvix::session
