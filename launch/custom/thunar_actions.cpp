#include "launch/custom/action_readers.h"
#include "launch/custom/conditions.h"
#include "launch/custom/small_xml.h"
#include "text/characters.h"
#include "text/numbers.h"

#include <algorithm>
#include <array>

namespace tarvix::custom {

namespace {

enum class Sort { kFolder, kAudio, kImage, kText, kVideo, kOther };

struct SortMark {
    Sort sort;
    std::string_view element;
    std::string_view type;
};
constexpr std::array<SortMark, 6> kSorts{{{Sort::kFolder, "directories", "inode/directory"},
                                          {Sort::kAudio, "audio-files", "audio/*"},
                                          {Sort::kImage, "image-files", "image/*"},
                                          {Sort::kText, "text-files", "text/plain"},
                                          {Sort::kVideo, "video-files", "video/*"},
                                          {Sort::kOther, "other-files", ""}}};

bool FitsSorts(platform::Desktop& desktop, const XmlElement& action, const Chosen& chosen) {
    return std::ranges::all_of(chosen.types, [&](const std::string& type) {
        const auto* const sort = std::ranges::find_if(kSorts, [&](const SortMark& mark) {
            return mark.type.empty() || FitsType(desktop, type, mark.type);
        });
        return action.Find(sort->element) != nullptr;
    });
}

bool FitsPatterns(const XmlElement& action, const Chosen& chosen) {
    const std::string_view text = action.TextOf("patterns");
    std::vector<std::string_view> patterns;
    for (const std::string_view piece : text::Split(text, ';')) {
        if (!text::Trim(piece).empty()) patterns.push_back(text::Trim(piece));
    }
    return patterns.empty() || std::ranges::all_of(chosen.objects, [&](const ChosenObject& object) {
               return std::ranges::any_of(patterns, [&](std::string_view pattern) {
                   return FitsGlob(pattern, NameOf(object.path), false);
               });
           });
}

// "", "*", "3" or "2-5".
bool FitsRange(std::string_view range, std::size_t count) {
    range = text::Trim(range);
    if (range.empty() || range == "*") return true;
    const auto pieces = text::Split(range, '-');
    const auto first = text::ParseWholeNumber(text::Trim(pieces.front()));
    const auto last = text::ParseWholeNumber(text::Trim(pieces.back()));
    const auto selected = static_cast<std::int64_t>(count);
    return pieces.size() <= 2 && first && last && selected >= *first && selected <= *last;
}

// Whether a command takes several objects at once.
bool TakesMany(std::string_view command) {
    for (const std::string_view code : {"%F", "%U", "%D", "%N"}) {
        if (command.find(code) != command.npos) return true;
    }
    return false;
}

CustomEntry EntryOf(const XmlElement& action, const platform::ActionFile& file) {
    CustomEntry entry;
    entry.label = text::Left(action.TextOf("name"), kMostLabel);
    entry.tip = action.TextOf("description");
    entry.icon = action.TextOf("icon");
    for (const std::string_view piece : text::Split(action.TextOf("submenu"), '/')) {
        const bool hasRoom = entry.submenus.size() < 4;
        if (!text::Trim(piece).empty() && hasRoom)
            entry.submenus.emplace_back(text::Left(text::Trim(piece), kMostLabel));
    }
    entry.command = {.dialect = Dialect::kThunar,
                     .line = std::string(action.TextOf("command")),
                     .file = file.path,
                     .name = entry.label,
                     .icon = entry.icon};
    return entry;
}

} // namespace

std::vector<CustomEntry> ThunarEntries(platform::Desktop& desktop,
                                       std::span<const platform::ActionFile> files,
                                       const Chosen& chosen) {
    std::vector<CustomEntry> entries;
    if (files.empty()) return entries;
    const std::size_t count = chosen.objects.size();
    const XmlElement root = ParseXml(files.front().bytes);
    for (const XmlElement& action : root.children) {
        if (action.name != "action" || entries.size() >= kMostEntries) continue;
        const bool fits = FitsRange(action.TextOf("range"), count) &&
                          (count == 1 || TakesMany(action.TextOf("command"))) &&
                          FitsSorts(desktop, action, chosen) && FitsPatterns(action, chosen);
        if (!fits) continue;
        CustomEntry entry = EntryOf(action, files.front());
        if (!entry.label.empty() && !entry.command.line.empty())
            entries.push_back(std::move(entry));
    }
    return entries;
}

} // namespace tarvix::custom
