#pragma once

#include "forms/modal_window.h"

class QLabel;
class QProgressBar;

namespace tarvix::forms {

class FirstLinesPanel;
class FirstNamesPanel;
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
    QWidget* MakeProgress();
    QWidget* MakeButtons();
    void SetTabOrder();
    void FocusFirst();
    void ShowSections();
    void ShowHints();
    void ShowRuler();
    void WriteMark(int number);
    void ShowExamples();
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
    FirstNamesPanel* firstNames_ = nullptr;
    FirstLinesPanel* firstLines_ = nullptr;
    std::string shownExamples_; // what the examples depended on when they were made
};

} // namespace tarvix::forms
