#include "shortcuts/formats/internet_shortcut.h"

#include "shortcuts/formats/ini_text.h"
#include "shortcuts/formats/utf7.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <charconv>

namespace tarvix::shortcuts {

namespace {

constexpr std::string_view kSection = "InternetShortcut";
constexpr std::string_view kPlainTwin = "InternetShortcut.A";
constexpr std::string_view kWideTwin = "InternetShortcut.W";
constexpr std::string_view kUrlKey = "URL";
constexpr std::string_view kHotKeyKey = "HotKey";
constexpr std::string_view kIconFileKey = "IconFile";
constexpr std::string_view kIconIndexKey = "IconIndex";
constexpr std::string_view kCrLf = "\r\n";

enum class Place { kOutside, kOwn, kPlain, kWide };

Place PlaceOf(std::string_view section) {
    if (text::EqualNoCase(section, kSection)) return Place::kOwn;
    if (text::EqualNoCase(section, kPlainTwin)) return Place::kPlain;
    return text::EqualNoCase(section, kWideTwin) ? Place::kWide : Place::kOutside;
}

constexpr std::size_t kNone = std::string::npos;

// The lines that count for one key.
struct Found {
    std::size_t line = kNone;     // in the plain text
    std::size_t wideLine = kNone; // in the Unicode twin
    std::vector<std::size_t> plainTwins;
};

// An address counts in its own section, and the first one; other keys anywhere, and the last.
Found Find(const IniText& file, std::string_view key) {
    const bool isUrl = key == kUrlKey;
    Found found;
    Place place = Place::kOutside;
    for (std::size_t i = 0; i < file.Lines().size(); ++i) {
        const IniText::Line& line = file.Lines()[i];
        if (const std::string_view section = line.Section(); !section.empty()) {
            place = PlaceOf(section);
        }
        if (!text::EqualNoCase(line.Key(), key)) continue;
        if (place == Place::kPlain) {
            found.plainTwins.push_back(i);
        } else if (place == Place::kWide) {
            if (!isUrl || found.wideLine == kNone) found.wideLine = i;
        } else if (isUrl ? place == Place::kOwn && found.line == kNone : true) {
            found.line = i;
        }
    }
    return found;
}

// The value that counts; none where no line has the key.
std::optional<std::string> ValueOf(const IniText& file, std::string_view key) {
    const Found found = Find(file, key);
    if (found.wideLine != kNone) return FromUtf7(file.Lines()[found.wideLine].Value());
    if (found.line == kNone) return std::nullopt;
    return std::string(file.Lines()[found.line].Value());
}

// Blanks around a value, and one pair of quotes, belong to the file.
std::string BareValue(std::string_view value) {
    value = text::Trim(value);
    if (value.size() >= 2 && value.front() == value.back() &&
        (value.front() == '"' || value.front() == '\'')) {
        value = value.substr(1, value.size() - 2);
    }
    return std::string(value);
}

std::string IndexText(std::string_view value) {
    value = text::Trim(value);
    std::int64_t number = 0;
    const char* const end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, number);
    const bool isNumber = error == std::errc{} && stop == end;
    return isNumber ? std::to_string(number) : std::string(value);
}

std::string IconOf(const IniText& file) {
    const auto path = ValueOf(file, kIconFileKey);
    const auto index = ValueOf(file, kIconIndexKey);
    if (!path && !index) return {};
    return fmt::format("{},{}", path.value_or(""), index ? IndexText(*index) : "");
}

std::size_t OwnSection(const IniText& file) {
    for (std::size_t i = 0; i < file.Lines().size(); ++i) {
        if (PlaceOf(file.Lines()[i].Section()) == Place::kOwn) return i;
    }
    return kNone;
}

bool EndsInTwin(const IniText& file) {
    Place place = Place::kOutside;
    for (const IniText::Line& line : file.Lines()) {
        if (!line.Section().empty()) place = PlaceOf(line.Section());
    }
    return place == Place::kPlain || place == Place::kWide;
}

std::size_t AddOwnSection(IniText& file) {
    const std::size_t section = file.Lines().size();
    file.Insert(section, fmt::format("[{}]", kSection));
    return section;
}

// Behind the lines of its section, or behind all where the file has none; a line of a twin would
// not count.
void AddLine(IniText& file, std::string_view key, std::string_view value) {
    std::size_t section = OwnSection(file);
    if (section == kNone && EndsInTwin(file)) section = AddOwnSection(file);
    const std::size_t at = section == kNone ? file.Lines().size() : file.EndOfSection(section);
    file.Insert(at, fmt::format("{}={}", key, value));
}

void AddWideLine(IniText& file, std::string_view key, std::string_view value) {
    std::size_t section = kNone;
    for (std::size_t i = 0; i < file.Lines().size(); ++i) {
        if (PlaceOf(file.Lines()[i].Section()) == Place::kWide) section = i;
    }
    if (section == kNone) {
        section = file.Lines().size();
        file.Insert(section, fmt::format("[{}]", kWideTwin));
    }
    file.Insert(file.EndOfSection(section), fmt::format("{}={}", key, ToUtf7(value)));
}

// The line that counts, its Unicode twin with it; the twin of the code page goes.
void SetKey(IniText& file, std::string_view key, std::string_view value) {
    const std::vector<std::size_t> twins = Find(file, key).plainTwins;
    for (std::size_t i = twins.size(); i-- > 0;) {
        file.Erase(twins[i]);
    }
    const Found found = Find(file, key);
    if (found.line != kNone) file.SetValue(found.line, value);
    if (found.wideLine != kNone) {
        file.SetValue(found.wideLine, ToUtf7(value));
    } else if (!file.CanHold(value)) {
        AddWideLine(file, key, value);
    }
    if (found.line == kNone && !text::Trim(value).empty()) AddLine(file, key, value);
}

void SetIcon(IniText& file, std::string_view icon) {
    if (icon.empty()) return;
    const std::size_t comma = IconComma(icon);
    const std::string_view path = icon.substr(0, comma);
    const std::string_view index = comma == icon.npos ? "" : icon.substr(comma + 1);
    SetKey(file, kIconIndexKey, index);
    SetKey(file, kIconFileKey, path);
}

std::string Refusal(const Edits& edits) {
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        if (!edits[i]) continue;
        if (i != kTarget && i != kHotKey && i != kIcon) {
            return "A .url file has only a target, a hot key and an icon.";
        }
        if (edits[i]->find_first_of(std::string_view("\r\n\0", 3)) != edits[i]->npos) {
            return "A value of a .url file can't hold a line break.";
        }
    }
    const bool hasTarget = !edits[kTarget] || !text::Trim(*edits[kTarget]).empty();
    return hasTarget ? "" : "A shortcut can't be without a target.";
}

} // namespace

Values ReadInternetShortcut(std::string_view bytes) {
    const IniText file(bytes, kCrLf);
    Values values;
    values[kTarget] = BareValue(ValueOf(file, kUrlKey).value_or(""));
    values[kHotKey] = ValueOf(file, kHotKeyKey).value_or("");
    values[kIcon] = IconOf(file);
    return values;
}

Edited EditInternetShortcut(std::string_view bytes, const Edits& edits) {
    std::string refusal = Refusal(edits);
    if (!refusal.empty()) return std::unexpected(std::move(refusal));
    IniText file(bytes, kCrLf);
    if (edits[kTarget]) {
        if (OwnSection(file) == kNone) (void)AddOwnSection(file);
        SetKey(file, kUrlKey, *edits[kTarget]);
    }
    if (edits[kIcon]) SetIcon(file, *edits[kIcon]);
    if (edits[kHotKey]) SetKey(file, kHotKeyKey, *edits[kHotKey]);
    return file.Bytes();
}

} // namespace tarvix::shortcuts
