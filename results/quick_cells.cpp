#include "results/quick_cells.h"

#include "platform/object_facts.h"
#include "results/result_list.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/dates.h"
#include "text/format.h"
#include "text/paths.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace tarvix::results {

namespace {

constexpr std::array<std::pair<std::uint32_t, char>, 10> kAttributeLetters{
    {{platform::kReadOnly, 'r'},
     {platform::kHidden, 'h'},
     {platform::kSystem, 's'},
     {platform::kArchive, 'a'},
     {platform::kSpecial, '6'},
     {platform::kBit128, '1'},
     {platform::kBit256, '2'},
     {platform::kSparse, '5'},
     {platform::kAlias, 'A'},
     {platform::kCompressed, 'C'}}};

constexpr std::uint64_t kMostGrouped = 999'999'999'999;
constexpr std::int64_t kDay = 86'400;
constexpr std::size_t kLongestShownExtension = 5; // characters

void PutTwo(char* at, std::int64_t number) {
    at[0] = static_cast<char>('0' + number / 10);
    at[1] = static_cast<char>('0' + number % 10);
}

// "2026/11/15 " of the day that was asked for last; not plain where its year has no four digits.
struct WrittenDay {
    std::int64_t number = INT64_MIN;
    bool isPlain = false;
    std::array<char, 11> text{'0', '0', '0', '0', '/', '0', '0', '/', '0', '0', ' '};
};

const WrittenDay& DayText(std::int64_t number) {
    static thread_local WrittenDay day;
    if (day.number == number) return day;
    const text::DateTime date = text::FromSeconds(number * kDay);
    day.number = number;
    day.isPlain = date.year >= 1000 && date.year <= 9999;
    if (!day.isPlain) return day;
    PutTwo(day.text.data(), date.year / 100);
    PutTwo(day.text.data() + 2, date.year % 100);
    PutTwo(day.text.data() + 5, date.month);
    PutTwo(day.text.data() + 8, date.day);
    return day;
}

// Whether Path\Name has one more "\" than the folder.
bool AddsSeparator(const RowFolder& folder, bool isFolder) {
    return !isFolder && !folder.longPath.empty() && !folder.longPath.ends_with('\\');
}

} // namespace

void AppendSize(std::string& out, std::uint64_t bytes) {
    if (bytes > kMostGrouped) {
        out += text::Format(static_cast<std::int64_t>(bytes), "000,000,000,000");
        return;
    }
    std::array<char, 15> cell;
    for (std::size_t i = cell.size(); i-- > 0;) {
        if (i % 4 == 3) {
            cell[i] = ',';
            continue;
        }
        cell[i] = static_cast<char>('0' + bytes % 10);
        bytes /= 10;
    }
    out.append(cell.data(), cell.size());
}

void AppendDate(std::string& out, std::int64_t seconds) {
    const std::int64_t number = seconds / kDay - (seconds % kDay < 0 ? 1 : 0);
    const WrittenDay& day = DayText(number);
    if (!day.isPlain) {
        out += text::FormatDate(text::FromSeconds(seconds), "yyyy/mm/dd hh:mm:ss");
        return;
    }
    const std::int64_t inDay = seconds - number * kDay;
    std::array<char, 8> time{'0', '0', ':', '0', '0', ':', '0', '0'};
    PutTwo(time.data(), inDay / 3600);
    PutTwo(time.data() + 3, inDay / 60 % 60);
    PutTwo(time.data() + 6, inDay % 60);
    out.append(day.text.data(), day.text.size()).append(time.data(), time.size());
}

void AppendExtension(std::string& out, std::string_view name) {
    const std::string_view extension = text::GetExtension(name);
    const auto isPlain = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (!std::ranges::all_of(extension, isPlain)) {
        if (text::Length(extension) <= kLongestShownExtension) out += text::Lower(extension);
        return;
    }
    if (extension.size() > kLongestShownExtension) return;
    for (const char c : extension)
        out += static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
}

void AppendAttributes(std::string& out, std::uint32_t bits) {
    for (const auto& [bit, letter] : kAttributeLetters) {
        if ((bits & bit) != 0) out += letter;
    }
}

void AppendPadded(std::string& out, std::uint64_t number, std::size_t digits) {
    std::array<char, 20> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    const auto length = static_cast<std::size_t>(end - text.data());
    if (length < digits) out.append(digits - length, '0');
    out.append(text.data(), length);
}

bool IsOfPath(int column) {
    constexpr std::array<int, 9> kOfPath{kName,           kExt,        kPath,
                                         kPathName,       kPathLevels, kPathNameNoSrch,
                                         kPathNameLength, kShortPath,  kSearchForEntry};
    return std::ranges::find(kOfPath, column) != kOfPath.end() || column == kSearchFolderIndex;
}

NamesAlone::NamesAlone(ResultList& rows, bool may) : rows_(rows) {
    rows_.TakeNamesAlone(may);
}

NamesAlone::~NamesAlone() {
    rows_.TakeNamesAlone(false);
}

std::size_t RowPathLength(const RowFolder& folder, std::string_view name, bool isFolder) {
    const std::size_t above = text::Length(folder.longPath);
    if (isFolder) return above;
    return above + (AddsSeparator(folder, isFolder) ? 1 : 0) + text::Length(name);
}

std::size_t RowPathLevels(const RowFolder& folder, bool isFolder) {
    return text::CountPathLevels(folder.longPath) + (AddsSeparator(folder, isFolder) ? 1 : 0);
}

} // namespace tarvix::results
