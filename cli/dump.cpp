#include "cli/dump.h"

#include "cli/output_columns.h"
#include "cli/print_rows.h"
#include "platform/file_system.h"
#include "results/result_list.h"
#include "results/shown_cells.h"
#include "session/session.h"

#include <ostream>

namespace tarvix::cli {

namespace {

std::string StyleOf(const session::PromptRecord& prompt) {
    switch (prompt.kind) {
    case session::PromptKind::kMessage:
        return std::to_string(prompt.style);
    case session::PromptKind::kInput:
        return "input";
    case session::PromptKind::kFolder:
        return "folder";
    case session::PromptKind::kFile:
        return "file";
    case session::PromptKind::kNewFile:
        return "new file";
    case session::PromptKind::kForm:
        break;
    }
    return prompt.form;
}

std::vector<results::Column> AllColumns() {
    std::vector<results::Column> columns;
    for (int column = 0; column < results::kColumnCount; ++column)
        columns.push_back(static_cast<results::Column>(column));
    return columns;
}

void AppendCells(std::string& text, const session::Session& session, std::size_t row,
                 const std::vector<results::Column>& columns) {
    for (std::size_t i = 0; i < columns.size(); ++i)
        text.append(i > 0 ? "\t" : "")
            .append(PlainField(results::PlainCell(session, *session.rows, row, columns[i])));
}

} // namespace

void DumpList(const session::Session& session, const std::vector<results::Column>& columns,
              std::ostream& out) {
    if (columns.empty()) return DumpList(session, AllColumns(), out);
    const results::ResultList& rows = *session.rows;
    std::string text;
    for (const results::Column column : columns)
        text.append(text.empty() ? "" : "\t").append(HeadOf(column));
    text += '\n';
    for (std::size_t row = 0; row < rows.Count(); ++row) {
        if (!rows.At(row).IsSpacer()) AppendCells(text, session, row, columns);
        text += '\n';
    }
    out << text;
}

void DumpPrompts(const std::vector<session::PromptRecord>& prompts, std::ostream& out) {
    for (const session::PromptRecord& prompt : prompts) {
        out << StyleOf(prompt) << '\t' << CellField(prompt.title) << '\t' << CellField(prompt.text)
            << '\t' << CellField(prompt.answer) << '\n';
    }
}

void DumpFile(platform::FileSystem& files, std::string_view path, std::ostream& out) {
    auto stream = files.OpenAsTextStream(path, platform::OpenMode::kRead);
    if (!stream) return;
    while (const auto line = (*stream)->ReadLine())
        out << *line << '\n';
}

} // namespace tarvix::cli
