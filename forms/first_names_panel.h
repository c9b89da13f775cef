#pragma once

#include "actions/request/first_names.h"

#include <QTimer>
#include <QWidget>

#include <string>

class QTableView;

namespace tarvix::session {
struct Session;
}

namespace tarvix::forms {

class EventGate;
class PreviewModel;
class WrappingLabel;

// The first names that an action would give, a moment after each change; hidden for an action that
// gives none.
class FirstNamesPanel : public QWidget {
  public:
    FirstNamesPanel(session::Session& session, EventGate& gate);
    // Sees to it that what changed will show.
    void Follow();

  protected:
    bool event(QEvent* event) override;

  private:
    void MakeTable();
    void ShowModel();
    void Work();
    void Show(actions::FirstNames names);

    session::Session& session_;
    EventGate& gate_;
    QTableView* table_;
    WrappingLabel* note_;
    PreviewModel* model_ = nullptr; // of these:
    actions::FirstNames names_;
    std::string shown_; // what the names depended on when they were found
    QTimer pause_;      // between typing and looking
};

} // namespace tarvix::forms
