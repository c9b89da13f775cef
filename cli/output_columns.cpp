#include "cli/output_columns.h"

#include "text/case.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::cli {

namespace {

using results::kColumns;

// By column index.
constexpr std::array<std::string_view, results::kColumnCount> kShortWords{
    "name",    "size",   "date",     "type",    "ext",       "version",  "exetype",
    "os",      "path",   "fullpath", "attr",    "relative",  "target",   "arguments",
    "start",   "hotkey", "window",   "comment", "icon",      "length",   "files",
    "folders", "levels", "rank",     "pattern", "shortpath", "location",
};

const FactColumn* FindFact(int column) {
    const auto found = std::ranges::find(kFactColumns, column, &FactColumn::column);
    return found == kFactColumns.end() ? nullptr : &*found;
}

const results::ColumnInfo& InfoOf(int column) {
    return kColumns[static_cast<std::size_t>(column)];
}

void AddMissing(std::vector<int>& columns, int column) {
    if (std::ranges::find(columns, column) == columns.end()) columns.push_back(column);
}

} // namespace

std::string_view KeyOfOutput(int column) {
    const FactColumn* fact = FindFact(column);
    return fact != nullptr ? fact->key : InfoOf(column).key;
}

std::string_view HeadOf(int column) {
    const FactColumn* fact = FindFact(column);
    return fact != nullptr ? fact->key : InfoOf(column).header;
}

std::optional<int> FindOutputColumn(std::string_view name) {
    for (const FactColumn& fact : kFactColumns) {
        if (text::EqualNoCase(fact.key, name)) return fact.column;
    }
    for (int column = 0; column < results::kColumnCount; ++column) {
        const auto& [key, header, width, rightAlign] = InfoOf(column);
        for (const std::string_view known :
             {key, header, kShortWords[static_cast<std::size_t>(column)]}) {
            if (text::EqualNoCase(known, name)) return column;
        }
    }
    return std::nullopt;
}

std::vector<std::string_view> OutputColumnNames() {
    std::vector<std::string_view> names;
    for (const auto& info : kColumns)
        names.push_back(info.key);
    for (const FactColumn& fact : kFactColumns)
        names.push_back(fact.key);
    names.insert(names.end(), kShortWords.begin(), kShortWords.end());
    for (const auto& info : kColumns)
        names.push_back(info.header);
    return names;
}

std::vector<int> AllOutputColumns() {
    std::vector<int> columns;
    for (int column = 0; column < results::kColumnCount; ++column)
        columns.push_back(column);
    for (const FactColumn& fact : kFactColumns)
        columns.push_back(fact.column);
    return columns;
}

std::vector<int> UsualColumns(const std::array<bool, session::kVisibilityCount>& shows,
                              RowFormat format) {
    std::vector<int> columns{results::kName};
    for (int column = 1; column < results::kColumnCount; ++column) {
        if (shows[static_cast<std::size_t>(column)]) columns.push_back(column);
    }
    columns.push_back(kNativePathColumn);
    if (format != RowFormat::kJson) return columns;
    for (const FactColumn& fact : kFactColumns)
        AddMissing(columns, fact.column);
    return columns;
}

std::vector<int> JsonColumns(std::vector<int> columns) {
    const std::vector<int> asked = columns;
    for (const FactColumn& fact : kFactColumns) {
        const bool isBeside =
            fact.beside < 0 || std::ranges::find(asked, fact.beside) != asked.end();
        if (isBeside) AddMissing(columns, fact.column);
    }
    return columns;
}

std::string ColumnHelp() {
    std::string help = "\nColumns, by key, short word or caption:\n";
    for (int column = 0; column < results::kColumnCount; ++column) {
        help += fmt::format("  {:<26}{:<11}{}\n", InfoOf(column).key,
                            kShortWords[static_cast<std::size_t>(column)], InfoOf(column).header);
    }
    help += "  NativePath                           The path on this machine\n"
            "  Bytes                                The size as a number; none for folders\n"
            "  Modified                             When it last changed, as 2026-11-15T19:54:52\n"
            "  IsFolder                             true or false\n"
            "  all                                  All of these\n";
    return help;
}

} // namespace tarvix::cli
