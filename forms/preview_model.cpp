#include "forms/preview_model.h"

#include "forms/text_conversion.h"
#include "text/case.h"

#include <algorithm>
#include <array>

namespace tarvix::forms {

namespace {

using fields::PreviewRow;

struct ColumnInfo {
    const char* head;
    std::string PreviewRow::*text;
};
constexpr std::array<ColumnInfo, PreviewModel::kColumnCount> kColumns{
    {{"Object", &PreviewRow::object},
     {"New path", &PreviewRow::newPath},
     {"What would happen", &PreviewRow::verdict}}};

const std::string& Text(const PreviewRow& row, int column) {
    return row.*kColumns[static_cast<std::size_t>(column)].text;
}

} // namespace

PreviewModel::PreviewModel(const std::vector<PreviewRow>& rows, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows) {
    Arrange();
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

QVariant PreviewModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    const PreviewRow& row = rows_[shown_[static_cast<std::size_t>(index.row())]];
    const QString text = Shown(Text(row, index.column()));
    return role == Qt::ToolTipRole ? TipText(text) : text;
}

QVariant PreviewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return kColumns[static_cast<std::size_t>(section)].head;
}

void PreviewModel::sort(int column, Qt::SortOrder order) {
    column_ = column;
    order_ = order;
    Arrange();
}

} // namespace tarvix::forms
