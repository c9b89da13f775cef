#pragma once

#include "forms/modal_window.h"

class QCalendarWidget;
class QDateTimeEdit;

namespace tarvix::fields {
class DatePicker;
}

namespace tarvix::forms {

// frmSelectDate: one moment, or two for a range, by calendar, by keys or by the usual words.
class DateWindow : public ModalWindow {
  public:
    DateWindow(session::Session& session, EventGate& gate, QWidget* parent);

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

    Moment start_;
    Moment end_;
};

} // namespace tarvix::forms
