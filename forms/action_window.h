#pragma once

#include "forms/modal_window.h"

class QLabel;
class QPlainTextEdit;
class QProgressBar;

namespace tarvix::forms {

class FittingArea;
class PathRuler;

// frmDialog: the request for the whole selection as choices and as a sentence; its progress below.
class ActionWindow : public ModalWindow {
  public:
    ActionWindow(session::Session& session, EventGate& gate, QWidget* parent);

  protected:
    void Refresh() override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    QWidget* MakeHeading();
    QWidget* MakeDestination();
    QWidget* MakeRuler();
    QWidget* MakeSections();
    QWidget* MakeFirstLines();
    QWidget* MakeProgress();
    QWidget* MakeButtons();
    void SetTabOrder();
    void FocusFirst();
    void ShowSections();
    void ShowHints();
    void ShowRuler();
    void WriteMark(int number);
    void ShowExamples();
    void ShowFirstLines();
    int Room() const; // for its height on the screen
    void Grow();

    PathRuler* ruler_ = nullptr;
    QWidget* rulerPanel_ = nullptr;
    QWidget* where_ = nullptr;
    QWidget* file_ = nullptr;
    QWidget* names_ = nullptr;
    QLabel* sentence_ = nullptr;
    QProgressBar* bytes_ = nullptr;
    FittingArea* area_ = nullptr;
    QWidget* linesSection_ = nullptr;
    QLabel* similarNote_ = nullptr; // of possible duplicates, which these lines leave out
    QPlainTextEdit* lines_ = nullptr;
    std::string shownLines_;    // what the first lines depended on when they were made
    std::string shownExamples_; // what the examples depended on when they were made
};

} // namespace tarvix::forms
