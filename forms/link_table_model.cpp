#include "forms/link_table_model.h"

#include "forms/text_conversion.h"
#include "shortcuts/edit_file.h"

#include <QFont>

#include <algorithm>
#include <map>
#include <utility>

namespace tarvix::forms {

LinkTableModel::LinkTableModel(std::vector<fields::LinkRow>& rows,
                               const std::vector<fields::LinkRow>& first, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows), first_(first) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        changed_ += static_cast<int>(rows[i].name != first[i].name);
        for (std::size_t value = 0; value < rows[i].values.size(); ++value) {
            changed_ += static_cast<int>(rows[i].values[value] != first[i].values[value]);
        }
    }
}

std::string& LinkTableModel::Text(const QModelIndex& index) const {
    fields::LinkRow& row = rows_[static_cast<std::size_t>(index.row())];
    return index.column() == 0 ? row.name
                               : row.values[static_cast<std::size_t>(index.column() - 1)];
}

const std::string& LinkTableModel::First(const QModelIndex& index) const {
    const fields::LinkRow& row = first_[static_cast<std::size_t>(index.row())];
    return index.column() == 0 ? row.name
                               : row.values[static_cast<std::size_t>(index.column() - 1)];
}

bool LinkTableModel::IsEditable(const QModelIndex& index) const {
    return index.column() == 0 || rows_[static_cast<std::size_t>(index.row())]
                                      .isEditable[static_cast<std::size_t>(index.column() - 1)];
}

bool LinkTableModel::Put(const QModelIndex& index, std::string text) {
    if (!IsEditable(index)) return false;
    std::string& held = Text(index);
    if (held == text) return false;
    changed_ += static_cast<int>(text != First(index)) - static_cast<int>(held != First(index));
    held = std::move(text);
    emit dataChanged(index, index);
    return true;
}

int LinkTableModel::Replace(const QModelIndexList& cells,
                            const shortcuts::Replacement& replacement) {
    int count = 0;
    for (const QModelIndex& cell : cells) {
        count += static_cast<int>(Put(cell, shortcuts::Replaced(Text(cell), replacement)));
    }
    return count;
}

void LinkTableModel::FillDown(QModelIndexList cells) {
    std::ranges::sort(cells, {}, &QModelIndex::row);
    std::map<int, std::string> upper;
    for (const QModelIndex& cell : cells) {
        if (!IsEditable(cell)) continue;
        const auto [first, isFirst] = upper.try_emplace(cell.column(), Text(cell));
        if (!isFirst) (void)Put(cell, first->second);
    }
}

void LinkTableModel::Restore(const QModelIndexList& cells) {
    for (const QModelIndex& cell : cells) {
        (void)Put(cell, First(cell));
    }
}

int LinkTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int LinkTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shortcuts::kFieldCount) + 1;
}

QVariant LinkTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::EditRole) return ToQt(Text(index));
    if (role == Qt::DisplayRole) return Shown(Text(index));
    const bool isChanged = Text(index) != First(index);
    if (role == Qt::ToolTipRole) {
        const QString text = Shown(Text(index));
        return TipText(isChanged ? QString("%1\nIt was: %2").arg(text, Shown(First(index))) : text);
    }
    if (role == Qt::FontRole && isChanged) {
        QFont font;
        font.setBold(true);
        return font;
    }
    return {};
}

bool LinkTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    return role == Qt::EditRole && Put(index, ToUtf8(value.toString()));
}

Qt::ItemFlags LinkTableModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    return IsEditable(index) ? usual | Qt::ItemIsEditable : usual & ~Qt::ItemIsEnabled;
}

QVariant LinkTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    if (section == 0) return "Name";
    return ToQt(shortcuts::LabelOf(static_cast<shortcuts::Field>(section - 1)));
}

} // namespace tarvix::forms
