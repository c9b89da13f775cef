#include "forms/outcome_model.h"

#include "forms/text_conversion.h"
#include "session/session.h"
#include "text/paths.h"

#include <QApplication>
#include <QStyle>

#include <array>

namespace tarvix::forms {

namespace {

using results::OutcomeMark;

constexpr std::array<const char*, OutcomeModel::kColumnCount> kHeads{"What became of it", "Name",
                                                                     "Where it is now", "Was in"};

} // namespace

OutcomeModel::OutcomeModel(const session::Session& session, QObject* parent)
    : QAbstractTableModel(parent), session_(session) {}

bool OutcomeModel::Sync() {
    if (generation_ == session_.outcomes->Generation()) return false;
    generation_ = session_.outcomes->Generation();
    groups_ = results::GroupsOf(*session_.outcomes);
    ShowGroup(std::nullopt);
    return true;
}

void OutcomeModel::ShowGroup(std::optional<std::size_t> group) {
    beginResetModel();
    shown_ = results::ObjectsOf(*session_.outcomes, group ? &groups_[*group] : nullptr);
    endResetModel();
}

int OutcomeModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int OutcomeModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumnCount;
}

QString OutcomeModel::Text(std::size_t at, int column) const {
    const results::OutcomeList& list = *session_.outcomes;
    const std::string source = list.Source(at);
    switch (column) {
    case kMark:
        return Shown(results::OutcomeText(list, at));
    case kName:
        return Shown(session_.Shown(text::FolderOwnName(source)));
    case kWas:
        return Shown(session_.Shown(text::ParentFolder(source)));
    default:
        break;
    }
    if (list.MarkOf(at) == OutcomeMark::kRecycled || list.Trashed(at) != 0) return "Trash";
    const std::string now = list.Now(at);
    return now.empty() ? QString() : Shown(session_.Shown(now));
}

QString OutcomeModel::Tip(std::size_t at, int column) const {
    const results::OutcomeList& list = *session_.outcomes;
    if (column != kMark || list.Reason(at).empty()) return Text(at, column);
    return Shown(
        list.Sentence(at, session_.Shown(list.Source(at)), session_.Shown(list.Place(at))));
}

QVariant OutcomeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || generation_ != session_.outcomes->Generation()) return {};
    const std::size_t at = ObjectAt(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return Text(at, index.column());
    case Qt::ToolTipRole:
        return TipText(Tip(at, index.column()));
    case Qt::AccessibleTextRole:
        if (index.column() != kMark) return {};
        return QStringList{Text(at, kName), Text(at, kMark), Text(at, kNow)}.join(", ");
    case Qt::DecorationRole:
        if (index.column() != kMark || !results::IsTrouble(session_.outcomes->MarkOf(at)))
            return {};
        return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
    default:
        return {};
    }
}

QVariant OutcomeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return kHeads[static_cast<std::size_t>(section)];
}

} // namespace tarvix::forms
