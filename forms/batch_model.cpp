#include "forms/batch_model.h"

#include "forms/text_conversion.h"

#include <array>
#include <span>

namespace tarvix::forms {

namespace {

using fields::BatchRow;

struct ColumnInfo {
    const char* head;
    QString (*text)(const BatchRow& row);
    bool isNumber = false;
};

constexpr std::array<ColumnInfo, 4> kPlanned{
    {{"Search For", [](const BatchRow& row) { return Shown(row.search); }},
     {"Destination", [](const BatchRow& row) { return Shown(row.destination); }},
     {"Folder", [](const BatchRow& row) { return Shown(row.folder); }},
     {"Objects", [](const BatchRow& row) { return WithThousands(QString::number(row.matches)); },
      true}}};

constexpr std::array<ColumnInfo, 3> kDone{
    {{"Search For", [](const BatchRow& row) { return Shown(row.search); }},
     {"Destination", [](const BatchRow& row) { return Shown(row.destination); }},
     {"What was done", [](const BatchRow& row) { return Shown(row.result); }}}};

std::span<const ColumnInfo> ColumnsOf(const fields::FrmBatch& form) {
    if (form.isDone) return kDone;
    return kPlanned;
}

} // namespace

BatchModel::BatchModel(const fields::FrmBatch& form, QObject* parent)
    : QAbstractTableModel(parent), form_(form) {}

int BatchModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(form_.rows.size());
}

int BatchModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(ColumnsOf(form_).size());
}

QVariant BatchModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const ColumnInfo& column = ColumnsOf(form_)[static_cast<std::size_t>(index.column())];
    if (role == Qt::TextAlignmentRole && column.isNumber) {
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    const QString text = column.text(form_.rows[static_cast<std::size_t>(index.row())]);
    return role == Qt::ToolTipRole ? TipText(text) : text;
}

QVariant BatchModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::DisplayRole && orientation == Qt::Vertical) return section + 1;
    if (orientation != Qt::Horizontal) return {};
    const ColumnInfo& column = ColumnsOf(form_)[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole) {
        const auto side = column.isNumber ? Qt::AlignRight : Qt::AlignLeft;
        return static_cast<int>(side | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) return {};
    return column.head;
}

} // namespace tarvix::forms
