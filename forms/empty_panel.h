#pragma once

#include "search/empty_list.h"

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace tarvix::forms {

// Lies over a list that a search left empty, and says why it is empty, with a button for each way
// out. The buttons are named "wayOut1" and so on.
class EmptyPanel : public QWidget {
  public:
    explicit EmptyPanel(QWidget& list);

    // Shows these; hides where there is no title.
    void Tell(const std::string& title, const std::vector<search::EmptyReason>& reasons);
    std::function<void(search::WayOut)> onWayOut;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void AddReason(const search::EmptyReason& reason, int number);
    void FillOut();

    QWidget& list_;
    QLabel* title_;
    QWidget* rows_ = nullptr;
    QVBoxLayout* column_;
    std::string shownTitle_;
    std::vector<search::EmptyReason> shown_;
};

} // namespace tarvix::forms
