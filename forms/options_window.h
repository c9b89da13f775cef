#pragma once

#include "fields/frm_options.h"
#include "forms/modal_window.h"

#include <QList>

class QStackedWidget;
class QToolButton;
class QTreeWidget;

namespace tarvix::forms {

// frmOptions: the pages on the left with a search over all options above them, the chosen page or
// what was found on the right.
class OptionsWindow : public ModalWindow {
  public:
    OptionsWindow(session::Session& session, EventGate& gate, QWidget* parent);

  protected:
    void Refresh() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* MakeSidebar();
    QWidget* MakeButtons();
    void OfferResets();
    void OfferReset(fields::Control& control, QWidget& widget);
    void ShowMenu(fields::Control& control, QWidget& widget, const QPoint& at);
    void Reset(const fields::Control& control);
    void ShowPage();
    void ShowChanged();
    void ShowVariables();
    fields::FrmOptions& Form() const;

    QStackedWidget* stack_ = nullptr;
    QTreeWidget* variables_ = nullptr;
    struct Marked {
        fields::Control* control;
        QWidget* widget;
        QToolButton* reset; // null for an entry of an array
    };
    QList<Marked> marked_;
};

} // namespace tarvix::forms
