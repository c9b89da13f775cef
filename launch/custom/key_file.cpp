#include "launch/custom/key_file.h"

#include "shortcuts/formats/exec_line.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::custom {

namespace {

constexpr std::size_t kMostLines = 10'000;
constexpr std::string_view kMark = "\xEF\xBB\xBF";

std::string_view Stripped(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = line.find_first_not_of(kBlanks);
    if (first == line.npos) return {};
    return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

} // namespace

KeyFile::KeyFile(std::string_view bytes) : bytes_(std::make_shared<const std::string>(bytes)) {
    std::string_view rest = *bytes_;
    if (rest.starts_with(kMark)) rest.remove_prefix(kMark.size());
    std::string_view group;
    for (std::size_t line = 0; line < kMostLines && !rest.empty(); ++line) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view text = Stripped(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (text.empty() || text.front() == '#') continue;
        const std::size_t equals = text.find('=');
        if (text.front() == '[' && text.back() == ']') {
            group = text.substr(1, text.size() - 2);
            groups_.push_back(group);
        } else if (equals != text.npos && equals > 0) {
            entries_.push_back(
                {group, Stripped(text.substr(0, equals)), Stripped(text.substr(equals + 1))});
        }
    }
}

bool KeyFile::HasGroup(std::string_view group) const {
    return std::ranges::find(groups_, group) != groups_.end();
}

std::optional<std::string_view> KeyFile::Raw(std::string_view group, std::string_view key) const {
    const auto found = std::ranges::find_if(
        entries_, [&](const Entry& entry) { return entry.group == group && entry.key == key; });
    return found == entries_.end() ? std::nullopt : std::optional(found->value);
}

std::string KeyFile::Text(std::string_view group, std::string_view key) const {
    const auto raw = Raw(group, key);
    return raw ? shortcuts::UnescapeValue(*raw) : std::string();
}

std::string KeyFile::Text(std::string_view group, std::string_view key,
                          std::span<const std::string> languages) const {
    for (const std::string& language : languages) {
        const auto raw = Raw(group, fmt::format("{}[{}]", key, language));
        if (raw) return shortcuts::UnescapeValue(*raw);
    }
    return Text(group, key);
}

bool KeyFile::Flag(std::string_view group, std::string_view key, bool missing) const {
    const auto raw = Raw(group, key);
    if (!raw || raw->empty()) return missing;
    return *raw == "true" || *raw == "True" || *raw == "1";
}

std::vector<std::string> KeyFile::List(std::string_view group, std::string_view key,
                                       char separator) const {
    const std::string_view raw = Raw(group, key).value_or("");
    std::vector<std::string> list;
    std::string piece;
    const auto take = [&] {
        std::string part = shortcuts::UnescapeValue(Stripped(piece));
        if (!part.empty()) list.push_back(std::move(part));
        piece.clear();
    };
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const bool isEscaped = raw[i] == '\\' && i + 1 < raw.size();
        if (isEscaped && raw[i + 1] == separator) {
            piece += raw[++i];
        } else if (isEscaped) {
            piece.append(raw.substr(i++, 2));
        } else if (raw[i] == separator) {
            take();
        } else {
            piece += raw[i];
        }
    }
    take();
    return list;
}

} // namespace tarvix::custom
