#pragma once

#include "results/outcome_groups.h"

#include <QAbstractTableModel>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::forms {

// What an action has done with each object, what went wrong first; all, or those of one group.
// Texts are made for what is seen.
class OutcomeModel : public QAbstractTableModel {
  public:
    enum Column { kMark, kName, kNow, kWas, kColumnCount };

    // The session must have its list of outcomes.
    explicit OutcomeModel(const session::Session& session, QObject* parent = nullptr);

    // Takes the list as it is by now; gives whether it had changed.
    bool Sync();
    const std::vector<results::OutcomeGroup>& Groups() const { return groups_; }
    // Shows one group, or all of them.
    void ShowGroup(std::optional<std::size_t> group);
    // The number of the object in a row.
    std::uint32_t ObjectAt(int row) const { return shown_[static_cast<std::size_t>(row)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QString Text(std::size_t at, int column) const;
    QString Tip(std::size_t at, int column) const;

    const session::Session& session_;
    std::uint64_t generation_ = 0;
    std::vector<results::OutcomeGroup> groups_;
    std::vector<std::uint32_t> shown_;
};

} // namespace tarvix::forms
