#pragma once

#include "forms/modal_window.h"

class QCalendarWidget;
class QDateTimeEdit;
class QKeyEvent;

namespace tarvix::fields {
class DatePicker;
}

namespace tarvix::forms {

// frmSelectDate: one moment, or two for a range, by calendar, by keys or by the usual words.
class DateWindow : public ModalWindow {
  public:
    DateWindow(session::Session& session, EventGate& gate, QWidget* parent);

  protected:
    // Digits typed on a calendar go to the box above it.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Moment {
        QWidget* panel = nullptr;
        QDateTimeEdit* day = nullptr;
        QDateTimeEdit* hour = nullptr;
        QCalendarWidget* calendar = nullptr;
    };
    QWidget* MakeWords();
    Moment MakeMoment(const QString& word, const fields::DatePicker& date,
                      const fields::DatePicker& time);
    void TakeWord(const char* word);
    bool TypeOn(const Moment& moment, QKeyEvent& key);
    bool SkipsSign(QDateTimeEdit& day, const QKeyEvent& key);

    Moment start_;
    Moment end_;
    int typedSection_ = 0; // of the box, that the last digit was typed into
};

} // namespace tarvix::forms
