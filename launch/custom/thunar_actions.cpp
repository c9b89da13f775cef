#include "launch/custom/action_readers.h"
#include "launch/custom/conditions.h"
#include "text/characters.h"
#include "text/numbers.h"

#include <algorithm>
#include <array>
#include <pugixml.hpp>

namespace tarvix::custom {

namespace {

enum class Sort { kFolder, kAudio, kImage, kText, kVideo, kOther };

struct SortMark {
    Sort sort;
    const char* element;
    std::string_view type;
};
constexpr std::array<SortMark, 6> kSorts{{{Sort::kFolder, "directories", "inode/directory"},
                                          {Sort::kAudio, "audio-files", "audio/*"},
                                          {Sort::kImage, "image-files", "image/*"},
                                          {Sort::kText, "text-files", "text/plain"},
                                          {Sort::kVideo, "video-files", "video/*"},
                                          {Sort::kOther, "other-files", ""}}};

// Without the blanks at its ends; empty when there is no such element.
std::string_view TextOf(const pugi::xml_node& action, const char* element) {
    return action.child(element).text().get();
}

bool FitsSorts(platform::Desktop& desktop, const pugi::xml_node& action, const Chosen& chosen) {
    return std::ranges::all_of(chosen.types, [&](const std::string& type) {
        const auto* const sort = std::ranges::find_if(kSorts, [&](const SortMark& mark) {
            return mark.type.empty() || FitsType(desktop, type, mark.type);
        });
        return !action.child(sort->element).empty();
    });
}

bool FitsPatterns(const pugi::xml_node& action, const Chosen& chosen) {
    const std::string_view text = TextOf(action, "patterns");
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

CustomEntry EntryOf(const pugi::xml_node& action, const platform::ActionFile& file) {
    CustomEntry entry;
    entry.label = text::Left(TextOf(action, "name"), kMostLabel);
    entry.tip = TextOf(action, "description");
    entry.icon = TextOf(action, "icon");
    for (const std::string_view piece : text::Split(TextOf(action, "submenu"), '/')) {
        const bool hasRoom = entry.submenus.size() < 4;
        if (!text::Trim(piece).empty() && hasRoom)
            entry.submenus.emplace_back(text::Left(text::Trim(piece), kMostLabel));
    }
    entry.command = {.dialect = Dialect::kThunar,
                     .line = std::string(TextOf(action, "command")),
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
    // Of a file that breaks off, what stands before counts.
    pugi::xml_document document;
    const std::string& bytes = files.front().bytes;
    (void)document.load_buffer(bytes.data(), bytes.size(),
                               pugi::parse_default | pugi::parse_trim_pcdata, pugi::encoding_utf8);
    for (const pugi::xml_node action : document.document_element().children("action")) {
        if (entries.size() >= kMostEntries) break;
        const bool fits = FitsRange(TextOf(action, "range"), count) &&
                          (count == 1 || TakesMany(TextOf(action, "command"))) &&
                          FitsSorts(desktop, action, chosen) && FitsPatterns(action, chosen);
        if (!fits) continue;
        CustomEntry entry = EntryOf(action, files.front());
        if (!entry.label.empty() && !entry.command.line.empty())
            entries.push_back(std::move(entry));
    }
    return entries;
}

} // namespace tarvix::custom
