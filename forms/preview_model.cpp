#include "forms/preview_model.h"

#include "forms/text_conversion.h"
#include "text/case.h"

#include <QPoint>

#include <algorithm>
#include <array>

namespace tarvix::forms {

namespace {

using fields::PreviewRow;

struct ColumnInfo {
    const char* head;
    const char* headOfNames; // where objects only get other names
    std::string PreviewRow::*text;
};
constexpr std::array<ColumnInfo, PreviewModel::kColumnCount> kColumns{
    {{"Object", "Old name", &PreviewRow::object},
     {"New path", "New name", &PreviewRow::newPath},
     {"What would happen", "What would happen", &PreviewRow::verdict}}};

const std::string& Text(const PreviewRow& row, int column) {
    return row.*kColumns[static_cast<std::size_t>(column)].text;
}

bool IsRoot(std::string_view folder) {
    return folder.size() <= 1 || folder.ends_with('\\');
}

} // namespace

PreviewModel::PreviewModel(const std::vector<PreviewRow>& rows, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows) {
    LookAtPaths();
    Arrange();
}

void PreviewModel::LookAtPaths() {
    text::SharedFolder from;
    text::SharedFolder to;
    bool stays = true;
    bool hasOther = false;
    for (const PreviewRow& row : rows_) {
        if (!row.object.empty()) from.AddPath(row.object);
        if (row.newPath.empty()) continue;
        to.AddPath(row.newPath);
        stays = stays && text::FolderPart(row.newPath) == text::FolderPart(row.object);
        hasOther = hasOther || row.newPath != row.object;
    }
    renames_ = stays && hasOther;
    if (!IsRoot(from.Path())) from_ = from.Path();
    if (!IsRoot(to.Path())) to_ = to.Path();
}

std::vector<std::pair<std::string, int>> PreviewModel::Verdicts() const {
    std::vector<std::pair<std::string, int>> counts;
    for (const PreviewRow& row : rows_) {
        auto found = std::ranges::find(counts, row.verdict, &std::pair<std::string, int>::first);
        if (found == counts.end()) found = counts.insert(found, {row.verdict, 0});
        ++found->second;
    }
    return counts;
}

void PreviewModel::Filter(std::string verdict, std::string part) {
    verdict_ = std::move(verdict);
    part_ = std::move(part);
    Arrange();
}

bool PreviewModel::Passes(const PreviewRow& row) const {
    if (!verdict_.empty() && row.verdict != verdict_) return false;
    return part_.empty() || text::ContainsNoCase(row.object, part_) ||
           text::ContainsNoCase(row.newPath, part_);
}

void PreviewModel::Arrange() {
    beginResetModel();
    shown_.clear();
    for (std::uint32_t i = 0; i < rows_.size(); ++i) {
        if (Passes(rows_[i])) shown_.push_back(i);
    }
    if (column_ >= 0) {
        std::vector<std::string> keys(rows_.size());
        for (const std::uint32_t i : shown_) {
            keys[i] = text::Upper(Text(rows_[i], column_));
        }
        std::ranges::stable_sort(shown_, [&](std::uint32_t a, std::uint32_t b) {
            return order_ == Qt::AscendingOrder ? keys[a] < keys[b] : keys[b] < keys[a];
        });
    }
    endResetModel();
}

int PreviewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int PreviewModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumnCount;
}

std::string_view PreviewModel::TextOf(const PreviewRow& row, int column) const {
    if (column == kObject) return text::PathBelow(row.object, from_);
    if (column != kNewPath) return row.verdict;
    if (renames_ && row.newPath == row.object) return {}; // it keeps its name
    return renames_ ? text::NamePart(row.newPath) : text::PathBelow(row.newPath, to_);
}

// Old and new text are compared by their names; the folders in front of them stand for themselves.
QVariant PreviewModel::ChangedIn(const PreviewRow& row, int column) const {
    if (column == kVerdict || row.newPath.empty() || row.object.empty()) return {};
    const std::string_view oldName = text::NamePart(row.object);
    const std::string_view newName = text::NamePart(row.newPath);
    const text::Change change = text::ChangedPart(oldName, newName);
    const text::Span span = column == kObject ? change.before : change.after;
    if (span.length == 0) return {};
    const std::string_view name = column == kObject ? oldName : newName;
    const std::string_view text = TextOf(row, column);
    const std::size_t start = text.size() - name.size() + span.start;
    const auto characters = [](std::string_view part) {
        return static_cast<int>(Shown(part).size());
    };
    const int arrow = column == kNewPath && renames_ ? static_cast<int>(QString(kArrow).size()) : 0;
    return QPoint(arrow + characters(text.substr(0, start)),
                  characters(text.substr(start, span.length)));
}

QVariant PreviewModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const PreviewRow& row = rows_[shown_[static_cast<std::size_t>(index.row())]];
    switch (role) {
    case Qt::DisplayRole: {
        const QString text = Shown(TextOf(row, index.column()));
        const bool isNew = index.column() == kNewPath && renames_ && !text.isEmpty();
        return isNew ? kArrow + text : text;
    }
    case Qt::ToolTipRole:
        return TipText(Shown(Text(row, index.column())));
    case kChanged:
        return ChangedIn(row, index.column());
    case kWholePath:
        return Shown(Text(row, index.column()));
    default:
        return {};
    }
}

QVariant PreviewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    const ColumnInfo& info = kColumns[static_cast<std::size_t>(section)];
    return renames_ ? info.headOfNames : info.head;
}

void PreviewModel::sort(int column, Qt::SortOrder order) {
    column_ = column;
    order_ = order;
    Arrange();
}

} // namespace tarvix::forms
