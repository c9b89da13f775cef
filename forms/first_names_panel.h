#pragma once

#include "actions/request/first_names.h"
#include "actions/request/known_bytes.h"

#include <QTimer>
#include <QWidget>

#include <memory>
#include <string>

class QTableView;

namespace tarvix::session {
struct Session;
}

namespace tarvix::forms {

class EventGate;
class FileReader;
class PreviewModel;
class WrappingLabel;

// The first names that an action would give, a moment after each change; hidden for an action that
// gives none.
class FirstNamesPanel : public QWidget {
  public:
    FirstNamesPanel(session::Session& session, EventGate& gate);
    ~FirstNamesPanel() override;
    // Sees to it that what changed will show.
    void Follow();

  protected:
    bool event(QEvent* event) override;

  private:
    void ReadApart();
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
    actions::KnownBytes known_;
    std::unique_ptr<FileReader> reader_; // none where the disk answers at once
    QTimer pause_;                       // between typing and looking
};

} // namespace tarvix::forms
