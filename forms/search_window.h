#pragma once

#include "forms/binder.h"
#include "forms/event_gate.h"
#include "forms/main_menu.h"
#include "forms/qt_clipboard.h"
#include "forms/result_model.h"
#include "forms/result_view.h"

#include <QElapsedTimer>
#include <QMainWindow>
#include <QTimer>

namespace tarvix::session {
struct Session;
}
class QLabel;
class QProgressBar;

namespace tarvix::forms {

class ElidedLabel;
class EmptyPanel;
class ListPlace;

// frmSearch: criteria, result list, selection and actions, counters and status.
class SearchWindow : public QMainWindow, public View {
  public:
    // The session must have its rows.
    SearchWindow(session::Session& session, EventGate& gate);
    ~SearchWindow() override;

    void Flush() override;
    void Idle() override;

    ResultView& List() { return *list_; }
    // The selected rows on the clipboard: as files for who takes such, else their native paths, one
    // a line.
    void CopyPaths();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Build();
    void AddOwnEntries();
    void SetUpList();
    void SetUpDrops();
    void SetTabOrder();
    void OfferAnyAttribute();
    void ShowActions();
    void ShowTitle();
    void ShowEmpty();
    void TellSize();
    void ActOnRow(bool (*act)(session::Session&, int), std::size_t row);
    void SortBy(int column);
    void DragRows();
    void RenameHere();
    void ShowProgress();
    void ShowState();
    void KeepTime();
    void ShowRows();
    void ShowNativePath();
    void ShowSort();
    void ShowColumns();
    void TakeMemory();
    void KeepMemory();
    std::vector<std::string> SelectedNativePaths() const;
    void ShareClipboard();

    session::Session& session_;
    EventGate& gate_;
    ResultModel* model_ = nullptr;
    ResultView* list_ = nullptr;
    EmptyPanel* empty_ = nullptr;
    ListPlace* place_ = nullptr; // of the list, or of what an action has done
    ElidedLabel* nativePath_ = nullptr;
    QProgressBar* busy_ = nullptr;
    QLabel* progress_ = nullptr; // what the bar counts
    QWidget* counters_ = nullptr;
    QtClipboard clipboard_;
    std::unique_ptr<MainMenu> menu_;
    std::unique_ptr<Binder> binder_;
    QElapsedTimer sinceRows_;
    QTimer timer_;              // Timer1
    bool remembered_ = false;   // the places of the last run were taken
    bool hadSelection_ = false; // when the actions on it were shown last
    bool closing_ = false;      // asked to close while a routine ran
};

} // namespace tarvix::forms
