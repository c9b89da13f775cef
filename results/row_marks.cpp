#include "results/row_marks.h"

#include "platform/file_system.h"
#include "results/outcome_list.h"
#include "results/result_list.h"
#include "session/session.h"
#include "text/paths.h"

#include <algorithm>
#include <string>
#include <string_view>

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

std::size_t RowAt(ResultList& rows, const std::string& path, bool isFile) {
    if (path.empty()) return rows.Count();
    return rows.Find(isFile ? text::ParentFolder(path) : path, text::FolderOwnName(path), !isFile);
}

// Objects are mostly settled in the order of their rows: this looks at the next rows first, which
// needs no index of all.
class RowsInOrder {
  public:
    RowsInOrder(ResultList& rows, const OutcomeList& list) : rows_(rows), list_(list) {}

    std::size_t RowOf(std::size_t at) {
        const std::string now = list_.Now(at);
        const std::string source = list_.Source(at);
        const bool isWhereListed = now.empty() || now == source;
        std::size_t row = isWhereListed ? Near(source, list_.IsFile(at)) : rows_.Count();
        if (row == rows_.Count()) row = RowOfOutcome(rows_, list_, at);
        if (row < rows_.Count()) next_ = row;
        return row;
    }

  private:
    static constexpr std::size_t kNear = 64; // rows that were not selected, and spacers

    std::size_t Near(const std::string& path, bool isFile) const {
        const std::string_view name = text::FolderOwnName(path);
        const std::size_t end = std::min(rows_.Count(), next_ + kNear);
        for (std::size_t i = next_; i < end; ++i) {
            const ResultRow& row = rows_.At(i);
            const bool isOne = !row.IsSpacer() && row.isFolder != isFile && row.name == name;
            if (isOne && rows_.FullPath(i) == path) return i;
        }
        return rows_.Count();
    }

    ResultList& rows_;
    const OutcomeList& list_;
    std::size_t next_ = 0;
};

RowFate FateOf(const OutcomeList& list, std::size_t at) {
    const OutcomeMark mark = list.MarkOf(at);
    const bool isGone = list.Trashed(at) != 0;
    if (mark == OutcomeMark::kNotReached || isGone) return RowFate::kNone;
    if (IsTrouble(mark)) return RowFate::kFailed;
    if (!list.IsPlaced(at)) return RowFate::kNone;
    if (list.Action() == "Move") return RowFate::kMoved;
    return list.Action().starts_with("Rename") ? RowFate::kRenamed : RowFate::kNone;
}

void SetGone(ResultRow& row) {
    SetMark(row, kGone, true);
    row.selected = false;
}

bool WentAway(OutcomeMark mark) {
    return mark == OutcomeMark::kRecycled || mark == OutcomeMark::kDeleted ||
           mark == OutcomeMark::kWasGone;
}

void MarkWentAway(ResultList& rows, const OutcomeList& list) {
    RowsInOrder inOrder(rows, list);
    for (std::size_t at = 0; at < list.Count(); ++at) {
        if (!WentAway(list.MarkOf(at))) continue;
        const std::size_t row = inOrder.RowOf(at);
        if (row < rows.Count() && rows.At(row).selected) SetGone(rows.At(row));
    }
}

} // namespace

void MarkCut(session::Session& session) {
    for (ResultRow& row : session.rows->Added())
        SetMark(row, kCut, row.selected);
}

void ClearCut(session::Session& session) {
    for (ResultRow& row : session.rows->Added())
        SetMark(row, kCut, false);
}

void MarkGone(session::Session& session, const OutcomeList* settled) {
    if (settled) MarkWentAway(*session.rows, *settled);
    const platform::ManyChanges many(session.files()); // whose folders are held between the looks
    for (std::size_t i = 0; i < session.rows->Count(); ++i) {
        ResultRow& row = session.rows->At(i);
        if (!row.selected || row.IsSpacer()) continue;
        const std::string path = session.rows->FullPath(i);
        const auto look = session.files().LookAtSeen(
            {path, session.rows->SightingOf(row), platform::Same::kName});
        SetMark(row, kGone, false);
        if (!look && IsMissing(look.error())) SetGone(row);
    }
}

void MarkBack(ResultList& rows, const OutcomeList& list) {
    for (std::size_t at = 0; at < list.Count() && rows.Count() > 0; ++at) {
        if (list.MarkOf(at) != OutcomeMark::kPutBack) continue;
        const std::size_t row = RowAt(rows, list.Source(at), list.IsFile(at));
        if (row < rows.Count()) SetMark(rows.At(row), kGone, false);
    }
}

std::size_t RowOfOutcome(ResultList& rows, const OutcomeList& list, std::size_t at) {
    const bool isFile = list.IsFile(at);
    const bool isCopiedOnly = list.MarkOf(at) == OutcomeMark::kCopiedOnly;
    const std::size_t row = isCopiedOnly ? rows.Count() : RowAt(rows, list.Now(at), isFile);
    return row < rows.Count() ? row : RowAt(rows, list.Source(at), isFile);
}

void MarkFates(ResultList& rows, const OutcomeList& list) {
    for (ResultRow& row : rows.Added())
        row.SetFate(RowFate::kNone);
    RowsInOrder inOrder(rows, list);
    for (std::size_t at = 0; at < list.Count() && rows.Count() > 0; ++at) {
        const RowFate fate = FateOf(list, at);
        if (fate == RowFate::kNone) continue;
        const std::size_t row = inOrder.RowOf(at);
        const bool hasFailed = row < rows.Count() && rows.At(row).Fate() == RowFate::kFailed;
        if (row < rows.Count() && !hasFailed) rows.At(row).SetFate(fate); // at one of its places
    }
}

} // namespace tarvix::results
