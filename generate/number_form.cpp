#include "generate/number_form.h"

#include "generate/digits.h"
#include "generate/number_lines.h"
#include "generate/write_list.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/format.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::generate {

namespace {

using session::PromptId;
using session::Session;

constexpr std::size_t kLines = 20;

// What is wrong with the fields, in a sentence; empty when they make a plan.
std::string WhyNoPlan(const fields::FrmNumbers& form) {
    for (const fields::TextBox* box : {&form.txtStart, &form.txtEnd}) {
        if (box->Text->empty()) return "Type the first and the last number.";
        const std::string why = WhyNoNumber(box->Text.Get());
        if (!why.empty()) return why;
    }
    if (form.chkSameLength.Value == 1) {
        const std::string why = WhyNoPicture(form.txtFormat.Text.Get());
        if (!why.empty()) return why;
    }
    return form.txtLine.Text->empty() ? "Type the text of a line, with * where the number goes."
                                      : "";
}

NumberPlan PlanOf(const fields::FrmNumbers& form) {
    return {.start = *ReadDigits(form.txtStart.Text.Get()),
            .end = *ReadDigits(form.txtEnd.Text.Get()),
            .picture = form.chkSameLength.Value == 1 ? form.txtFormat.Text.Get() : "",
            .lineText = form.txtLine.Text};
}

std::string CountText(const NumberPlan& plan) {
    const std::int64_t count = std::max<std::int64_t>(plan.end - plan.start + 1, 0);
    if (count == 0) return "No line: the first number is beyond the last one.";
    return fmt::format("{} {} will be written:", text::Format(count, "#,##0"),
                       count == 1 ? "line" : "lines");
}

void ShowPlan(Session& session) {
    auto& form = session.forms.frmNumbers;
    form.txtFormat.Enabled = form.chkSameLength.Value == 1;
    const std::string why = WhyNoPlan(form);
    form.cmdOK.Enabled = why.empty();
    if (!why.empty()) {
        form.lblMain.Caption = why;
        form.lstFirstLines.SetItems({});
        return;
    }
    const ListRequest request{.kind = ListKind::kNumbers,
                              .addsEof = session.frmDialog.chkAddEOF.Value == 1,
                              .numbers = PlanOf(form)};
    form.lblMain.Caption = CountText(request.numbers);
    form.lstFirstLines.SetItems(FirstLines(session, request, kLines));
}

void Close(Session& session, bool isAccepted) {
    session.forms.frmNumbers.Accepted = isAccepted;
    session.forms.frmNumbers.Hide();
}

} // namespace

std::optional<NumberPlan> AskNumbersInForm(Session& session) {
    auto& form = session.forms.frmNumbers;
    if (form.txtLine.Text->empty()) form.txtLine.Text = std::string(kLineTextPreset);
    form.Accepted = false;
    form.Focus = &form.txtStart;
    ShowPlan(session);
    session.ShowModal(PromptId::kNumberPlan);
    if (!form.Accepted || !WhyNoPlan(form).empty()) return std::nullopt;
    return PlanOf(form);
}

void AddNumberFormEvents(session::EventTable& events) {
    for (const char* box : {"txtStart", "txtEnd", "txtFormat", "txtLine"}) {
        events.On(fmt::format("frmNumbers.{}_Change", box), ShowPlan);
    }
    events.On("frmNumbers.chkSameLength_Click", ShowPlan);
    events.On("frmNumbers.cmdOK_Click",
              [](Session& session, const session::EventArgs&) { Close(session, true); });
    events.On("frmNumbers.cmdCancel_Click",
              [](Session& session, const session::EventArgs&) { Close(session, false); });
}

} // namespace tarvix::generate
