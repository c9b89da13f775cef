#pragma once

#include <QDialog>

namespace tarvix::forms {

// What the colours and signs of the list mean, beside the list that they stand in.
class LegendWindow : public QDialog {
  public:
    explicit LegendWindow(QWidget* parent);
};

} // namespace tarvix::forms
