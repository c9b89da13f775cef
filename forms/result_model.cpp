#include "forms/result_model.h"

#include "forms/list_colors.h"
#include "forms/text_conversion.h"
#include "results/list_looks.h"
#include "results/shown_cells.h"
#include "session/session.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <QStringList>

namespace tarvix::forms {

namespace {

constexpr std::size_t kDriveLength = 3; // of "C:\"

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
      generation_(rows_.Generation()), clearings_(rows_.Clearings()),
      count_(static_cast<int>(rows_.Count())), location_(results::CommonLocation(rows_, 0, {})) {}

bool ResultModel::Sync() {
    const int now = static_cast<int>(rows_.Count());
    const bool isOther = clearings_ != rows_.Clearings();
    clearings_ = rows_.Clearings();
    if (!IsCurrent() || now < count_) {
        beginResetModel();
        generation_ = rows_.Generation();
        count_ = now;
        location_ = results::CommonLocation(rows_, 0, {});
        endResetModel();
    } else if (now > count_) {
        const auto first = static_cast<std::size_t>(count_);
        beginInsertRows({}, count_, now - 1);
        count_ = now;
        location_ = results::CommonLocation(rows_, first, location_);
        endInsertRows();
    }
    return isOther;
}

bool ResultModel::ShowsUnits() const {
    return session_.state.platformSettings.showsUnits;
}

int ResultModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

int ResultModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : results::kColumnCount;
}

// A size that red alone would tell apart has a mark.
QString ResultModel::SizeOf(std::size_t row) const {
    const QString size = ShowsUnits() ? ToQt(results::ReadableSizeCell(rows_, row))
                                      : ToQt(rows_.Cell(row, results::kSize));
    const bool isMarked =
        !rows_.At(row).isFolder && rows_.CellColor(row, results::kSize) == fields::kRed;
    return isMarked && !size.isEmpty() ? size + " !" : size;
}

QString ResultModel::TextOf(std::size_t row, results::Column column) const {
    if (column == results::kSize) return SizeOf(row);
    if (column == results::kPath) return Shown(results::PathFrom(session_, row, location_));
    return Shown(results::ShownCell(session_, row, column));
}

QVariant ResultModel::FullTextOf(std::size_t row, results::Column column) const {
    if (column == results::kSize && ShowsUnits()) {
        const std::string exact = results::ExactSize(rows_, row);
        return exact.empty() ? QVariant() : QVariant(ToQt(exact));
    }
    if (column != results::kPath) return {};
    const QString path = Shown(results::ShownCell(session_, row, column));
    return path == TextOf(row, column) ? QVariant() : QVariant(path);
}

QString ResultModel::SpokenRow(std::size_t row) const {
    QStringList parts;
    for (const auto column :
         {results::kName, results::kType, results::kSize, results::kDate, results::kPath}) {
        QString part = TextOf(row, column).trimmed();
        if (column == results::kSize) part = WithoutLeadingZeros(part);
        if (!part.isEmpty()) parts << part;
    }
    const results::ResultRow& spoken = rows_.At(row);
    const results::RowSign sign = results::SignOf(spoken);
    if (sign != results::RowSign::kFolder && sign != results::RowSign::kNone) {
        parts << ToQt(results::WordsOf(sign));
    }
    const int pattern = results::LaterPattern(spoken);
    if (pattern > 0) parts << QString("found by search string %1").arg(pattern);
    return parts.join(", ");
}

// What was cut or is gone stands back.
QVariant ResultModel::ColorOf(std::size_t row, results::Column column) const {
    const results::ResultRow& shown = rows_.At(row);
    const QPalette palette = QGuiApplication::palette();
    const bool isBack = shown.Has(results::kCut) || shown.Has(results::kGone);
    if (isBack) return StandingBack(palette);
    return ListTint(rows_.CellColor(row, column), palette);
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
        return TextOf(row, column);
    case kFullText:
        return FullTextOf(row, column);
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

// Paths that begin at a folder name it at their head.
QVariant ResultModel::HeadTip(int section) const {
    if (section != results::kPath || location_.size() <= kDriveLength) return {};
    return TipText("Below " + ToQt(session_.Shown(location_)));
}

QVariant ResultModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= results::kColumnCount) return {};
    if (role == Qt::DisplayRole) return ToQt(Info(section).header);
    if (role == Qt::ToolTipRole) return HeadTip(section);
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
