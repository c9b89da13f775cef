#include "search/date_boxes.h"

#include "search/search_request.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/date_words.h"
#include "text/format.h"

#include <optional>
#include <string>

namespace tarvix::search {

namespace {

using session::Session;

bool IsRange(const fields::FrmSearch& form) {
    return form.cboDate.ChosenData() == static_cast<int>(DateChoice::kRange);
}

// A stretch begins a range, or ends it.
void TakeBox(Session& session, const fields::TextBox& box, fields::DateLabel& date, bool isEnd) {
    const std::string_view typed = text::Trim(box.Text.Get());
    if (typed.empty()) return;
    const auto span = text::ParseDateWords(typed, session.Now());
    date.SetDate(span ? std::optional(isEnd ? span->last : span->first) : std::nullopt);
}

// A date without a test would be refused.
void ChooseTest(fields::FrmSearch& form) {
    if (form.cboDate.ChosenData() == 0 && form.lblDate1.Date()) form.cboDate.Text = "Since";
}

void txtDate1_Change(Session& session) {
    auto& form = session.frmSearch;
    form.lblDate1.SetDate(std::nullopt);
    TakeBox(session, form.txtDate1, form.lblDate1, false);
    ChooseTest(form);
}

void txtDate2_Change(Session& session) {
    auto& form = session.frmSearch;
    form.lblDate2.SetDate(std::nullopt);
    TakeBox(session, form.txtDate2, form.lblDate2, true);
}

// "last 7 days" says where a range ends, too.
void txtDate1_LostFocus(Session& session) {
    auto& form = session.frmSearch;
    const bool isOpen = IsRange(form) && text::Trim(form.txtDate2.Text.Get()).empty();
    const auto span = text::ParseDateWords(form.txtDate1.Text.Get(), session.Now());
    if (!isOpen || !span || span->first == span->last) return;
    form.txtDate2.Text = form.txtDate1.Text.Get();
    form.lblDate2.SetDate(span->last);
}

std::string TextOf(const std::optional<text::DateTime>& date, bool isEnd) {
    if (!date) return {};
    const bool isWhole =
        isEnd ? date->hour == 23 && date->minute == 59 && date->second == 59 : !date->HasTime();
    return text::FormatDate(*date, isWhole ? "yyyy/mm/dd" : "yyyy/mm/dd hh:mm:ss");
}

} // namespace

void TakeDateBoxes(Session& session) {
    auto& form = session.frmSearch;
    if (form.chkDate.Value != 1) return;
    TakeBox(session, form.txtDate1, form.lblDate1, false);
    if (IsRange(form)) TakeBox(session, form.txtDate2, form.lblDate2, true);
}

void ShowPickedDates(Session& session) {
    auto& form = session.frmSearch;
    form.txtDate1.Text = TextOf(form.lblDate1.Date(), false);
    form.txtDate2.Text = TextOf(form.lblDate2.Date(), true);
}

void AddDateBoxEvents(session::EventTable& events) {
    events.On("frmSearch.txtDate1_Change", txtDate1_Change);
    events.On("frmSearch.txtDate2_Change", txtDate2_Change);
    events.On("frmSearch.txtDate1_LostFocus", txtDate1_LostFocus);
}

} // namespace tarvix::search
