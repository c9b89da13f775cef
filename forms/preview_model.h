#pragma once

#include "fields/prompt_forms.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tarvix::forms {

// The rows of a preview in the order of the action, or sorted by a column, all or some of them. The
// rows themselves stay where they are.
class PreviewModel : public QAbstractTableModel {
  public:
    enum Column { kObject, kNewPath, kVerdict, kColumnCount };

    explicit PreviewModel(const std::vector<fields::PreviewRow>& rows, QObject* parent = nullptr);

    // Each verdict in the order of its first row, and how many have it.
    std::vector<std::pair<std::string, int>> Verdicts() const;
    // Shows the rows of the verdict (empty: any) with the text in their object or new path, without
    // regard to case.
    void Filter(std::string verdict, std::string part);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // A column below 0 gives the order of the action.
    void sort(int column, Qt::SortOrder order) override;

  private:
    bool Passes(const fields::PreviewRow& row) const;
    void Arrange();

    const std::vector<fields::PreviewRow>& rows_;
    std::vector<std::uint32_t> shown_; // indexes of rows
    std::string verdict_;
    std::string part_;
    int column_ = -1;
    Qt::SortOrder order_ = Qt::AscendingOrder;
};

} // namespace tarvix::forms
