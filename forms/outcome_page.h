#pragma once

#include <QStackedWidget>

#include <memory>

class QComboBox;
class QTableView;

namespace tarvix::session {
struct Session;
}

namespace tarvix::forms {

class Binder;
class EventGate;
class OutcomeModel;

// frmOutcome: what an action has done, object by object, failures first.
class OutcomePage : public QWidget {
  public:
    // The session must have its list of outcomes.
    OutcomePage(session::Session& session, EventGate& gate);
    ~OutcomePage() override;

    // Shows what changed in the fields; the objects only while the page is to be seen.
    void Refresh();
    void TakeFocus();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* MakeHead();
    QWidget* MakeTable();
    QWidget* MakeButtons();
    void FillGroups();
    void Choose();

    session::Session& session_;
    EventGate& gate_;
    OutcomeModel* model_;
    QComboBox* groups_ = nullptr;
    QTableView* table_ = nullptr;
    std::unique_ptr<Binder> binder_;
};

// The place of the result list: the list itself, or that page as long as its form is shown.
class ListPlace : public QStackedWidget {
  public:
    ListPlace(session::Session& session, EventGate& gate, QWidget& list);

    void Refresh();

  private:
    session::Session& session_;
    QWidget& list_;
    OutcomePage* page_;
};

} // namespace tarvix::forms
