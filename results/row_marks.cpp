#include "results/row_marks.h"

#include "platform/file_system.h"
#include "results/result_list.h"
#include "session/session.h"

namespace tarvix::results {

namespace {

void SetMark(ResultRow& row, RowMark mark, bool isSet) {
    const unsigned bit = mark;
    const unsigned others = row.marks & ~bit;
    row.marks = static_cast<std::uint8_t>(isSet ? others | bit : others);
}

bool IsMissing(const platform::PlatformError& error) {
    return error.number == platform::kFileNotFound || error.number == platform::kPathNotFound;
}

} // namespace

void MarkCut(session::Session& session) {
    for (std::size_t i = 0; i < session.rows->Count(); ++i) {
        ResultRow& row = session.rows->At(i);
        SetMark(row, kCut, row.selected && !row.IsSpacer());
    }
}

void ClearCut(session::Session& session) {
    for (std::size_t i = 0; i < session.rows->Count(); ++i)
        SetMark(session.rows->At(i), kCut, false);
}

void MarkGone(session::Session& session) {
    const platform::ManyChanges many(session.files()); // whose folders are held between the looks
    for (std::size_t i = 0; i < session.rows->Count(); ++i) {
        ResultRow& row = session.rows->At(i);
        if (!row.selected || row.IsSpacer()) continue;
        const std::string path = session.rows->FullPath(i);
        const auto look = session.files().LookAtSeen(
            {path, session.rows->SightingOf(row), platform::Same::kName});
        const bool isGone = !look && IsMissing(look.error());
        SetMark(row, kGone, isGone);
        if (isGone) row.selected = false;
    }
}

} // namespace tarvix::results
