#pragma once

#include "results/result_list.h"

#include <QAbstractTableModel>

#include <string>

namespace tarvix::session {
struct Session;
}

namespace tarvix::forms {

// The result list as a view asks for it: texts are made for the cells that are looked at.
class ResultModel : public QAbstractTableModel {
  public:
    // Of a cell that shows less than it holds, wherever it stands: all of it.
    static constexpr int kFullText = Qt::UserRole;

    explicit ResultModel(const session::Session& session, QObject* parent = nullptr);

    // The list's one tip for all rows; while it is empty each row has its own.
    void UseTip(const std::string& tip) { tip_ = &tip; }
    // Takes in the rows that were added, or all anew when the list was cleared since; gives whether
    // it shows another list from then on.
    bool Sync();
    // False from the moment that the list is cleared until Sync.
    bool IsCurrent() const { return generation_ == rows_.Generation(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  private:
    QString TextOf(std::size_t row, results::Column column) const;
    bool ShowsUnits() const;
    QString SizeOf(std::size_t row) const;
    QVariant FullTextOf(std::size_t row, results::Column column) const;
    QString SpokenRow(std::size_t row) const;
    QVariant HeadTip(int section) const;
    QVariant ColorOf(std::size_t row, results::Column column) const;
    QVariant FontOf(std::size_t row) const;
    QVariant TipOf(std::size_t row, results::Column column) const;

    const session::Session& session_;
    const results::ResultList& rows_;
    const std::string* tip_ = nullptr;
    std::uint64_t generation_ = 0;
    std::uint64_t clearings_ = 0;
    int count_ = 0;
    std::string location_; // in which all rows lie, in drive form
};

} // namespace tarvix::forms
