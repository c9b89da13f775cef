#include "shortcuts/edit_file.h"

#include "text/characters.h"
#include "text/encoding.h"

#include <optional>
#include <utility>

namespace tarvix::shortcuts {

namespace {

constexpr std::size_t kLongestName = 175;
constexpr std::string_view kNameLabel = "Name";
constexpr std::array<std::string_view, kFieldCount> kLabels{
    "Target", "Arguments", "Start in", "HotKey", "Window Style", "Description", "Icon"};

void AppendLine(std::string& text, std::string_view label, std::string_view value) {
    text.append(label).append(" = ").append(value).append("\r\n");
}

// The value of the next line, if it has the label.
std::optional<std::string_view> NextValue(text::LineReader& lines, std::string_view label) {
    if (lines.AtEnd()) return std::nullopt;
    std::string_view line = lines.Next();
    if (!line.starts_with(label)) return std::nullopt;
    line.remove_prefix(label.size());
    constexpr std::string_view kSign = " = ";
    if (!line.starts_with(kSign)) return std::nullopt;
    return line.substr(kSign.size());
}

// Empty when a line is wrong.
std::optional<Values> ReadValues(text::LineReader& lines, Kind kind) {
    Values values;
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        if (!HasField(kind, static_cast<Field>(i))) continue;
        const auto value = NextValue(lines, kLabels[i]);
        if (!value) return std::nullopt;
        values[i] = *value;
    }
    return values;
}

bool IsBadIcon(Kind kind, const std::string& icon) {
    return kind == Kind::kLnk && !icon.empty() && IconComma(icon) == icon.npos;
}

} // namespace

bool HasField(Kind kind, Field field) {
    return kind != Kind::kUrl || field == kTarget || field == kHotKey || field == kIcon;
}

std::string_view LabelOf(Field field) {
    return kLabels[field];
}

void AppendRecord(std::string& text, const LinkRecord& record) {
    AppendLine(text, kNameLabel, record.name);
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        if (HasField(record.kind, static_cast<Field>(i))) {
            AppendLine(text, kLabels[i], record.values[i]);
        }
    }
}

EditedFile ParseEditFile(std::string_view text, const std::vector<Kind>& kinds) {
    EditedFile file;
    text::LineReader lines(text);
    for (const Kind kind : kinds) {
        const auto name = NextValue(lines, kNameLabel);
        if (name && text::Length(*name) > kLongestName) {
            file.end = EditedFile::End::kLongName;
            return file;
        }
        auto values = name ? ReadValues(lines, kind) : std::nullopt;
        if (!values) {
            file.end = EditedFile::End::kWrongLine;
            return file;
        }
        file.hasBadIcon.push_back(IsBadIcon(kind, (*values)[kIcon]));
        file.records.push_back({kind, std::string(*name), std::move(*values)});
    }
    return file;
}

} // namespace tarvix::shortcuts
