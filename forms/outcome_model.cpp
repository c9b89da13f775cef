#include "forms/outcome_model.h"

#include "forms/text_conversion.h"
#include "session/session.h"
#include "text/paths.h"

#include <QApplication>
#include <QStyle>

#include <algorithm>
#include <array>
#include <iterator>

namespace tarvix::forms {

namespace {

using results::OutcomeMark;

constexpr std::array<const char*, OutcomeModel::kColumnCount> kHeads{"What became of it", "Name",
                                                                     "Where it is now", "Was in"};
constexpr std::size_t kMostReasons = 30; // beyond, failures are one group

QString Capital(QString text) {
    if (!text.isEmpty()) text[0] = text[0].toUpper();
    return text;
}

// "Copied under a new name": what was done stands only in the action where it isn't the mark.
QString WordOf(OutcomeMark mark, const std::string& action) {
    const QString text = ToQt(results::MarkText(mark));
    if (mark != OutcomeMark::kNewName) return Capital(text);
    const bool isCopy = action.starts_with("Copy");
    return (isCopy ? "Copied " : action == "Move" ? "Moved " : "Renamed, ") + text;
}

} // namespace

OutcomeModel::OutcomeModel(const session::Session& session, QObject* parent)
    : QAbstractTableModel(parent), session_(session) {}

bool OutcomeModel::Sync() {
    if (generation_ == session_.outcomes->Generation()) return false;
    generation_ = session_.outcomes->Generation();
    FindGroups();
    ShowGroup(std::nullopt);
    return true;
}

void OutcomeModel::FindGroups() {
    const results::OutcomeList& list = *session_.outcomes;
    groups_.clear();
    std::array<std::vector<Group>, results::kOutcomeMarks> byMark;
    for (std::size_t at = 0; at < list.Count(); ++at) {
        const OutcomeMark mark = list.MarkOf(at);
        auto& groups = byMark[static_cast<std::size_t>(mark)];
        const std::string& reason = list.Reason(at);
        auto found = std::ranges::find(groups, reason, &Group::reason);
        if (found == groups.end() && groups.size() >= kMostReasons) found = groups.end() - 1;
        if (found == groups.end()) {
            QString text = WordOf(mark, list.Action());
            if (!reason.empty()) text += ": " + Shown(reason);
            found = groups.insert(found, {mark, text, reason, 0});
        }
        ++found->count;
    }
    for (auto& groups : byMark) {
        if (groups.size() < kMostReasons) {
            std::ranges::move(groups, std::back_inserter(groups_));
            continue;
        }
        Group all{groups.front().mark, WordOf(groups.front().mark, list.Action()), {}, 0};
        for (const Group& group : groups)
            all.count += group.count;
        groups_.push_back(std::move(all));
    }
}

bool OutcomeModel::IsIn(const Group& group, std::size_t at) const {
    const results::OutcomeList& list = *session_.outcomes;
    return list.MarkOf(at) == group.mark &&
           (group.reason.empty() || list.Reason(at) == group.reason);
}

void OutcomeModel::ShowGroup(std::optional<std::size_t> group) {
    beginResetModel();
    group_ = group;
    shown_.clear();
    const results::OutcomeList& list = *session_.outcomes;
    std::array<std::vector<std::uint32_t>, results::kOutcomeMarks> byMark;
    for (std::uint32_t at = 0; at < list.Count(); ++at) {
        if (group_ && !IsIn(groups_[*group_], at)) continue;
        byMark[static_cast<std::size_t>(list.MarkOf(at))].push_back(at);
    }
    for (const auto& of : byMark)
        shown_.insert(shown_.end(), of.begin(), of.end());
    endResetModel();
}

int OutcomeModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int OutcomeModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumnCount;
}

QString OutcomeModel::MarkText(std::size_t at) const {
    const results::OutcomeList& list = *session_.outcomes;
    QString text = WordOf(list.MarkOf(at), list.Action());
    if (!list.Reason(at).empty()) text += ": " + Shown(list.Reason(at));
    return text;
}

QString OutcomeModel::Text(std::size_t at, int column) const {
    const results::OutcomeList& list = *session_.outcomes;
    const std::string source = list.Source(at);
    switch (column) {
    case kMark:
        return MarkText(at);
    case kName:
        return Shown(session_.Shown(text::FolderOwnName(source)));
    case kWas:
        return Shown(session_.Shown(text::ParentFolder(source)));
    default:
        break;
    }
    if (list.MarkOf(at) == OutcomeMark::kRecycled) return "Trash";
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
        return QStringList{Text(at, kName), MarkText(at), Text(at, kNow)}.join(", ");
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
