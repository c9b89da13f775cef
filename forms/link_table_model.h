#pragma once

#include "fields/prompt_forms.h"
#include "shortcuts/replace_text.h"

#include <QAbstractTableModel>

#include <string>
#include <vector>

namespace tarvix::forms {

// The shortcuts of frmLinkTable, a row each: the name, then their values. What was changed stands
// out.
class LinkTableModel : public QAbstractTableModel {
  public:
    LinkTableModel(std::vector<fields::LinkRow>& rows, const std::vector<fields::LinkRow>& first,
                   QObject* parent = nullptr);

    // Replaces in these cells; gives how many changed.
    int Replace(const QModelIndexList& cells, const shortcuts::Replacement& replacement);
    // In each column the upper one of these cells, for all of them.
    void FillDown(QModelIndexList cells);
    // What these cells held at first.
    void Restore(const QModelIndexList& cells);
    int ChangedCells() const { return changed_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    bool IsEditable(const QModelIndex& index) const;
    std::string& Text(const QModelIndex& index) const;
    const std::string& First(const QModelIndex& index) const;
    bool Put(const QModelIndex& index, std::string text);

    std::vector<fields::LinkRow>& rows_;
    const std::vector<fields::LinkRow>& first_;
    int changed_ = 0;
};

} // namespace tarvix::forms
