#pragma once

#include "fields/prompt_forms.h"
#include "text/cut_text.h"

#include <QAbstractTableModel>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::forms {

// The rows of a preview in the order of the action, or sorted by a column, all or some of them. The
// rows themselves stay where they are. Paths show from the folders on that hold all of them; where
// objects only get other names, the new name stands alone.
class PreviewModel : public QAbstractTableModel {
  public:
    enum Column { kObject, kNewPath, kVerdict, kColumnCount };
    // What differs between the old and the new name, as a QPoint of its first character in the
    // text of the cell and how many there are.
    static constexpr int kChanged = Qt::UserRole;
    // The whole path of a cell.
    static constexpr int kWholePath = Qt::UserRole + 1;

    // Stands in front of a new name.
    static constexpr const char* kArrow = "→ ";

    explicit PreviewModel(const std::vector<fields::PreviewRow>& rows, QObject* parent = nullptr);

    // The folders that hold all objects and all new paths; empty where there is none but a root.
    const std::string& From() const { return from_; }
    const std::string& To() const { return to_; }
    // Whether no object leaves its folder, and one gets another name.
    bool Renames() const { return renames_; }

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
    void LookAtPaths();
    bool Passes(const fields::PreviewRow& row) const;
    void Arrange();
    std::string_view TextOf(const fields::PreviewRow& row, int column) const;
    QVariant ChangedIn(const fields::PreviewRow& row, int column) const;

    const std::vector<fields::PreviewRow>& rows_;
    std::vector<std::uint32_t> shown_; // indexes of rows
    std::string from_;
    std::string to_;
    bool renames_ = false;
    std::string verdict_;
    std::string part_;
    int column_ = -1;
    Qt::SortOrder order_ = Qt::AscendingOrder;
};

} // namespace tarvix::forms
