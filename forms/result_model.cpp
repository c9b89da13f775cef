#include "forms/result_model.h"

#include "forms/text_conversion.h"
#include "forms/theme.h"
#include "results/shown_cells.h"
#include "session/session.h"

#include <QFont>
#include <QGuiApplication>
#include <QStringList>

namespace tarvix::forms {

namespace {

const results::ColumnInfo& Info(int column) {
    return results::kColumns[static_cast<std::size_t>(column)];
}

QVariant Alignment(int column) {
    const auto side = Info(column).rightAlign ? Qt::AlignRight : Qt::AlignLeft;
    return QVariant::fromValue(Qt::Alignment(side | Qt::AlignVCenter));
}

} // namespace

ResultModel::ResultModel(const session::Session& session, QObject* parent)
    : QAbstractTableModel(parent), session_(session), rows_(*session.rows),
      generation_(rows_.Generation()), count_(static_cast<int>(rows_.Count())) {}

void ResultModel::Sync() {
    const int now = static_cast<int>(rows_.Count());
    if (!IsCurrent() || now < count_) {
        beginResetModel();
        generation_ = rows_.Generation();
        count_ = now;
        endResetModel();
    } else if (now > count_) {
        beginInsertRows({}, count_, now - 1);
        count_ = now;
        endInsertRows();
    }
}

int ResultModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

int ResultModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : results::kColumnCount;
}

QString ResultModel::SpokenRow(std::size_t row) const {
    QStringList parts;
    for (const auto column :
         {results::kName, results::kType, results::kSize, results::kDate, results::kPath}) {
        QString part = Shown(results::ShownCell(session_, row, column)).trimmed();
        if (column == results::kSize) part = WithoutLeadingZeros(part);
        if (!part.isEmpty()) parts << part;
    }
    if (rows_.At(row).Has(results::kCut)) parts << "cut";
    if (rows_.At(row).Has(results::kGone)) parts << "moved to the trash";
    return parts.join(", ");
}

// What was cut or is gone stands back.
QVariant ResultModel::ColorOf(std::size_t row, results::Column column) const {
    const results::ResultRow& shown = rows_.At(row);
    const QPalette palette = QGuiApplication::palette();
    const bool isBack = shown.Has(results::kCut) || shown.Has(results::kGone);
    if (isBack) return palette.color(QPalette::Disabled, QPalette::Text);
    return Tint(rows_.CellColor(row, column), palette);
}

QVariant ResultModel::FontOf(std::size_t row) const {
    if (!rows_.At(row).Has(results::kGone)) return {};
    QFont font;
    font.setStrikeOut(true);
    return font;
}

QVariant ResultModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || !IsCurrent() || row >= rows_.Count()) return {};
    const auto column = static_cast<results::Column>(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return Shown(results::ShownCell(session_, row, column));
    case Qt::ForegroundRole:
        return ColorOf(row, column);
    case Qt::FontRole:
        return FontOf(row);
    case Qt::TextAlignmentRole:
        return Alignment(column);
    case Qt::ToolTipRole:
        return TipOf(row, column);
    case Qt::AccessibleTextRole:
        return column == results::kName && !rows_.At(row).IsSpacer() ? SpokenRow(row) : QVariant();
    default:
        return {};
    }
}

QVariant ResultModel::TipOf(std::size_t row, results::Column column) const {
    if (results::TellsItsHeader(column)) return ToQt(Info(column).header);
    if (tip_ != nullptr && !tip_->empty()) return ToQt(*tip_);
    return Shown(results::ShownTip(session_, row, column));
}

QVariant ResultModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= results::kColumnCount) return {};
    if (role == Qt::DisplayRole) return ToQt(Info(section).header);
    return role == Qt::TextAlignmentRole ? Alignment(section) : QVariant();
}

Qt::ItemFlags ResultModel::flags(const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || !IsCurrent() || row >= rows_.Count() || rows_.At(row).IsSpacer()) {
        return Qt::ItemNeverHasChildren;
    }
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled |
           Qt::ItemNeverHasChildren;
}

} // namespace tarvix::forms
