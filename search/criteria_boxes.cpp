#include "search/criteria_boxes.h"

#include "search/date_boxes.h"
#include "search/search_request.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/characters.h"
#include "text/dates.h"
#include "text/format.h"
#include "text/like.h"

#include <fmt/core.h>

#include <array>
#include <charconv>
#include <initializer_list>
#include <memory>
#include <optional>
#include <utility>

namespace tarvix::search {

namespace {

using session::Session;

constexpr double kHighestSize = 2147483648.0;
constexpr fields::Color kWhite = 0xFFFFFF;

// The six lines on sizes above what the boxes take.
constexpr std::string_view kSizeTooHigh =
    "The highest number supported here is 2,147,483,647 bytes.\r\n\r\n\r\n"
    "Files sizes above this size are not generally accurate.\r\n"
    "They will be shown in red for files and totals.\r\n"
    "If the size reported is greater than 2,147,483,648 bytes then it is a guess.\r\n"
    "It will only be accurate if the actual file size is below 4,294,967,296 bytes\r\n"
    "The total at the bottom will reflect all guessed sizes.";

std::optional<double> NumberOf(std::string_view text) {
    text = text::Trim(text);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

void LeaveSizeBox(Session& session, fields::TextBox& box) {
    box.BackColor = kWhite;
    const auto value = NumberOf(box.Text.Get());
    if (!value || *value <= kHighestSize) return;
    session.MsgBox(session::PromptId::kSizeTooHigh, kSizeTooHigh);
    box.Text = "2147483647";
}

DateChoice ChoiceOf(const fields::ComboBox& cboDate) {
    return static_cast<DateChoice>(cboDate.ChosenData());
}

void ShowDateLabels(Session& session) {
    auto& form = session.frmSearch;
    const bool isShown = form.chkDate.Value == 1;
    const bool isRange = isShown && ChoiceOf(form.cboDate) == DateChoice::kRange;
    for (fields::Control* first :
         std::initializer_list<fields::Control*>{&form.lblDate1, &form.txtDate1}) {
        first->Visible = isShown;
    }
    for (fields::Control* second : std::initializer_list<fields::Control*>{
             &form.lbldDateThru, &form.lblDate2, &form.txtDate2}) {
        second->Visible = isRange;
    }
}

std::optional<text::DateTime> PickedDate(const fields::DatePicker& date,
                                         const fields::DatePicker& time) {
    return text::ParseDate(fmt::format("{} {}", date.Text.Get(), time.Text.Get()));
}

void FillPickers(fields::DatePicker& datePicker, fields::DatePicker& timePicker,
                 const text::DateTime& value) {
    datePicker.Text = text::FormatDate(value, "yyyy/mm/dd");
    timePicker.Text = text::FormatDate(value, "hh:mm:ss");
}

void OpenSelectDate(Session& session) {
    auto& form = session.frmSearch;
    auto& dialog = session.forms.frmSelectDate;
    const DateChoice choice = ChoiceOf(form.cboDate);
    if (choice == DateChoice::kNone) return;
    const bool isRange = choice == DateChoice::kRange;
    dialog.lblMain.Caption = isRange ? "First and last date of the range" : form.cboDate.Text.Get();
    dialog.dtpEndDate.Visible = isRange;
    dialog.dtpEndTime.Visible = isRange;
    auto today = session.Now();
    today.hour = today.minute = today.second = 0;
    FillPickers(dialog.dtpStartDate, dialog.dtpStartTime, form.lblDate1.Date().value_or(today));
    auto endOfDay = today;
    endOfDay.hour = 23;
    endOfDay.minute = endOfDay.second = 59;
    FillPickers(dialog.dtpEndDate, dialog.dtpEndTime, form.lblDate2.Date().value_or(endOfDay));
    session.ShowModal(session::PromptId::kSelectDate);
    session.state.blnDateWindowClosing = true;
}

void frmSelectDate_OK(Session& session) {
    auto& form = session.frmSearch;
    auto& dialog = session.forms.frmSelectDate;
    form.lblDate1.SetDate(PickedDate(dialog.dtpStartDate, dialog.dtpStartTime));
    if (dialog.dtpEndDate.Visible) {
        form.lblDate2.SetDate(PickedDate(dialog.dtpEndDate, dialog.dtpEndTime));
    }
    ShowPickedDates(session);
    dialog.Hide();
}

void cboSize_Change(Session& session) {
    auto& form = session.frmSearch;
    const bool isRange = form.cboSize.ChosenData() == static_cast<int>(SizeChoice::kRange);
    form.txtSize2.Visible = form.chkSize.Value == 1 && isRange;
}

void cboDate_Change(Session& session) {
    ShowDateLabels(session);
    OpenSelectDate(session);
}

// A choice has just asked for the date: leaving the box then doesn't ask again.
void cboDate_LostFocus(Session& session) {
    if (!std::exchange(session.state.blnDateWindowClosing, false)) OpenSelectDate(session);
}

void chkSize_Click(Session& session) {
    auto& form = session.frmSearch;
    const bool isOn = form.chkSize.Value == 1;
    form.chkSize.ForeColor = isOn ? fields::kRed : fields::kBlack;
    form.cboSize.Visible = isOn;
    form.txtSize1.Visible = isOn;
    cboSize_Change(session);
    if (isOn) form.Focus = &form.txtSize1;
}

void SetDateType(Session& session, int kind) {
    auto& form = session.frmSearch;
    for (int i = 0; i < static_cast<int>(form.mnuSearch_DateType.size()); ++i) {
        auto& entry = form.mnuSearch_DateType[static_cast<std::size_t>(i)];
        entry.Checked = i == kind;
        if (i == kind) form.lblDateType.Caption = entry.Caption.Get();
    }
}

void mnuSearch_DateType_Click(Session& session, const session::EventArgs& args) {
    SetDateType(session, args.index);
}

void chkDate_Click(Session& session) {
    auto& form = session.frmSearch;
    const bool isOn = form.chkDate.Value == 1;
    form.chkDate.ForeColor = isOn ? fields::kRed : fields::kBlack;
    form.cboDate.Visible = isOn;
    form.lblDateType.Visible = isOn;
    if (!isOn) SetDateType(session, 0);
    ShowDateLabels(session);
    if (isOn) form.Focus = &form.cboDate;
}

void chkIncludeSubFolders_Click(Session& session) {
    session::LogTimed(session, session.frmSearch.chkIncludeSubFolders.Value == 1
                                   ? " user selected to include subfolders "
                                   : " user selected to NOT include subfolders ");
}

constexpr std::array<std::string_view, 5> kKindLog{
    " User selected to find files ", " User selected to find empty files ",
    " User selected to find files and folders ", " User selected to find folders ",
    " User selected to find empty folders "};

void ShowShortcutControls(Session& session) {
    auto& form = session.frmSearch;
    const bool isShortcuts = text::LikeNoCase(form.cmbSearchFor.Text.Get(), "*.lnk*") ||
                             text::LikeNoCase(form.cmbSearchFor.Text.Get(), "*.url*");
    form.lblTargetPath.Visible = isShortcuts;
    form.cboTargetPath.Visible = isShortcuts;
}

void optFilesVsDirs_Click(Session& session, const session::EventArgs& args) {
    if (args.index >= 0 && args.index < static_cast<int>(kKindLog.size())) {
        session::LogTimed(session, kKindLog[static_cast<std::size_t>(args.index)]);
    }
    ShowShortcutControls(session);
}

void Paint(fields::CheckBox& box) {
    struct Look {
        fields::Color color;
        std::string_view tip;
    };
    static constexpr std::array<Look, 3> kLooks{
        {{fields::kBlue, "Empty will not find any object with this attribute."},
         {fields::kRed, "Black check will only find objects with this attribute."},
         {fields::kBlack, "Grey checked will find all objects regardless of this attribute."}}};
    const Look& look = kLooks[static_cast<std::size_t>(box.Value.Get())];
    box.ForeColor = look.color;
    box.ToolTipText = std::string(look.tip);
}

// The click steps on from the value that the box had when the button went down.
void AddAttributeBoxEvents(session::EventTable& events, std::size_t which,
                           const std::string& name) {
    auto before = std::make_shared<int>(-1);
    events.On(fmt::format("frmSearch.{}_MouseDown", name),
              [before, which](Session& session, const session::EventArgs&) {
                  *before = session.frmSearch.attributeBoxes[which]->Value;
              });
    events.On(fmt::format("frmSearch.{}_Click", name),
              [before, which](Session& session, const session::EventArgs&) {
                  fields::CheckBox& box = *session.frmSearch.attributeBoxes[which];
                  const int from = *before < 0 ? box.Value.Get() : std::exchange(*before, -1);
                  box.Value = (from + 1) % 3;
                  Paint(box);
              });
    events.On(fmt::format("frmSearch.{}_Change", name),
              [which](Session& session, const session::EventArgs&) {
                  Paint(*session.frmSearch.attributeBoxes[which]);
              });
}

} // namespace

void AddCriteriaEvents(session::EventTable& events) {
    events.On("frmSearch.cboSize_Change", cboSize_Change);
    events.On("frmSearch.cboDate_Change", cboDate_Change);
    events.On("frmSearch.cboDate_LostFocus", cboDate_LostFocus);
    events.On("frmSearch.chkSize_Click", chkSize_Click);
    events.On("frmSearch.chkDate_Click", chkDate_Click);
    events.On("frmSearch.chkIncludeSubFolders_Click", chkIncludeSubFolders_Click);
    events.On("frmSearch.optFilesVsDirs_Click", optFilesVsDirs_Click);
    events.On("frmSearch.mnuSearch_DateType_Click", mnuSearch_DateType_Click);
    events.On("frmSearch.txtSize1_LostFocus", [](Session& session, const session::EventArgs&) {
        LeaveSizeBox(session, session.frmSearch.txtSize1);
    });
    events.On("frmSearch.txtSize2_LostFocus", [](Session& session, const session::EventArgs&) {
        LeaveSizeBox(session, session.frmSearch.txtSize2);
    });
    AddDateBoxEvents(events);
    events.On("frmSelectDate.cmdOK_Click", frmSelectDate_OK);
    events.On("frmSelectDate.cmdCancel_Click", [](Session& session, const session::EventArgs&) {
        session.forms.frmSelectDate.Hide();
    });
    const fields::FrmSearch names;
    for (std::size_t i = 0; i < names.attributeBoxes.size(); ++i) {
        AddAttributeBoxEvents(events, i, names.attributeBoxes[i]->Name());
    }
}

void PaintAttributeBoxes(Session& session) {
    for (fields::CheckBox* box : session.frmSearch.attributeBoxes) {
        Paint(*box);
    }
}

} // namespace tarvix::search
