#include "results/shown_cells.h"

#include "platform/names.h"
#include "platform/native_paths.h"
#include "results/result_list.h"
#include "session/session.h"
#include "text/characters.h"

#include <algorithm>

namespace tarvix::results {

namespace {

bool IsPath(Column column) {
    return column == kPath || column == kPathName || column == kShortPath;
}

bool IsBelow(Column column) {
    return column == kPathNameNoSrch;
}

} // namespace

std::string ShownCell(const session::Session& session, std::size_t row, Column column) {
    std::string cell = session.rows->Cell(row, column);
    if (!session.state.platformSettings.showsNative || cell.empty()) return cell;
    if (IsPath(column)) return session.Shown(cell);
    return IsBelow(column) ? text::Replace(cell, "\\", "/") : cell;
}

std::string ShownTip(const session::Session& session, std::size_t row, Column column) {
    const std::string tip = session.rows->CellTip(row, column);
    const bool isCell = tip == session.rows->Cell(row, column);
    return isCell ? ShownCell(session, row, column) : session.Shown(tip);
}

std::string PlainCell(const session::Session& session, const ResultList& rows, std::size_t row,
                      Column column) {
    std::string cell;
    AppendPlainCell(cell, session, rows, row, column);
    return cell;
}

void AppendPlainCell(std::string& out, const session::Session& session, const ResultList& rows,
                     std::size_t row, Column column) {
    const std::size_t begin = out.size();
    rows.AppendCell(out, row, column);
    const bool isNative = session.state.platformSettings.showsNative;
    if (isNative && IsPath(column) && out.size() > begin) {
        const std::string native = session.platform.paths.ToNative(out.substr(begin));
        if (!native.empty()) {
            out.replace(begin, out.npos, native);
            return;
        }
    }
    if (isNative && IsBelow(column))
        std::replace(out.begin() + static_cast<std::ptrdiff_t>(begin), out.end(), '\\', '/');
    const std::string_view cell = std::string_view(out).substr(begin);
    if (platform::MayHoldCarried(cell)) out.replace(begin, out.npos, platform::NameToNative(cell));
}

} // namespace tarvix::results
