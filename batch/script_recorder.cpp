#include "batch/script_recorder.h"

#include "results/columns.h"
#include "results/result_list.h"
#include "session/session.h"
#include "session/user_input.h"
#include "text/dates.h"

#include <fmt/core.h>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace tarvix::batch {

namespace {

using fields::Control;

// By itself in a form that is always there, else with its form.
std::string NameOf(const session::Session& session, const Control& control) {
    return &control.Owner() == &session.frmSearch
               ? control.Name()
               : fmt::format("{}.{}", control.Owner().Name(), control.Name());
}

std::string Quoted(std::string_view value) {
    const bool isPlain = !value.empty() && value.front() != ' ' && value.front() != '"' &&
                         value.back() != ' ' && value.back() != '"';
    return isPlain ? std::string(value) : fmt::format("\"{}\"", value);
}

// A statement is one line.
std::string OnOneLine(std::string text) {
    std::ranges::replace(text, '\n', ' ');
    std::erase(text, '\r');
    return text;
}

bool IsOfScripts(const Control& control) {
    return control.Name() == "mnuFile_RecordScript" || control.Name() == "mnuFile_RunScript";
}

} // namespace

ScriptRecorder::ScriptRecorder(session::Session& session) : session_(session) {
    text_ =
        "# What was done in Tarvix, statement by statement. tarvix-cli run FILE does it again.\n";
    WriteCriteria();
    WriteList();
}

void ScriptRecorder::Set(const Control& control, std::string_view value) {
    text_ += fmt::format("set {} = {}\n", NameOf(session_, control), Quoted(value));
}

void ScriptRecorder::WriteCriteria() {
    auto& form = session_.frmSearch;
    Set(form.cmbSearchFor, form.cmbSearchFor.Text.Get());
    Set(form.cmbDir, form.cmbDir.Text.Get());
    text_ += fmt::format("click optFilesVsDirs({})\n", std::max(form.optFilesVsDirs.Chosen(), 0));
    for (const fields::CheckBox* box : {&form.chkIncludeSubFolders, &form.chkNot, &form.chkOneEach,
                                        &form.chkRepeatSearch, &form.chkFastSort, &form.chkSize}) {
        if (box->Visible && box->Enabled) Set(*box, box->ValueText());
    }
    for (const fields::CheckBox* box : form.attributeBoxes) {
        Set(*box, box->ValueText());
    }
    if (form.chkSize.Value == 1) {
        Set(form.cboSize, form.cboSize.Text.Get());
        Set(form.txtSize1, form.txtSize1.Text.Get());
        if (form.txtSize2.Visible) Set(form.txtSize2, form.txtSize2.Text.Get());
    }
    Set(form.chkDate, form.chkDate.ValueText());
    if (form.chkDate.Value != 1) return;
    text_ += fmt::format(
        "answer {}{}\n", form.lblDate1.Caption.Get(),
        form.lblDate2.Visible ? fmt::format(" thru {}", form.lblDate2.Caption.Get()) : "");
    Set(form.cboDate, form.cboDate.Text.Get());
    for (const fields::TextBox* box : {&form.txtDate1, &form.txtDate2}) {
        const bool isWord = !box->Text->empty() && !text::IsDate(box->Text.Get());
        if (isWord && box->Visible) Set(*box, box->Text.Get());
    }
}

// What stands in the list has to be found first.
void ScriptRecorder::WriteList() {
    const auto& rows = *session_.rows;
    if (rows.Count() == 0) return;
    text_ += "click cmdSearch\n";
    for (std::size_t row = 0; row < rows.Count() && !isSelecting_; ++row) {
        isSelecting_ = rows.At(row).selected;
    }
}

std::string ScriptRecorder::SelectStatement() const {
    const auto& rows = *session_.rows;
    std::string statement;
    for (std::size_t row = 0; row < rows.Count(); ++row) {
        if (!rows.At(row).selected) continue;
        std::size_t last = row;
        while (last + 1 < rows.Count() && rows.At(last + 1).selected)
            ++last;
        statement +=
            last > row ? fmt::format(" {}-{}", row + 1, last + 1) : fmt::format(" {}", row + 1);
        row = last;
    }
    return fmt::format("select{}", statement.empty() ? " none" : statement);
}

void ScriptRecorder::Settle() {
    if (!held_.empty()) text_.append(std::exchange(held_, {})).append("\n");
    typedInto_.clear();
    if (!std::exchange(isSelecting_, false)) return;
    text_.append(SelectStatement()).append("\n");
}

void ScriptRecorder::Hold(std::string statement) {
    Settle();
    held_ = OnOneLine(std::move(statement));
    heldAtYield_ = session_.yielder.Count();
}

void ScriptRecorder::Clicked(const Control& control) {
    if (IsOfScripts(control)) return;
    const std::string name = NameOf(session_, control);
    if (!session::MayInterrupt(control) || held_.empty())
        return Hold(fmt::format("click {}", name));
    const std::uint64_t yields = session_.yielder.Count() - heldAtYield_;
    text_ += fmt::format("after {} yields click {}\n", std::max<std::uint64_t>(yields, 1), name);
}

void ScriptRecorder::Entered(const Control& control, std::string_view value) {
    const std::string name = NameOf(session_, control);
    // Of a text that is typed only the whole counts.
    if (typedInto_ == name) held_.clear();
    Hold(fmt::format("set {} = {}", name, Quoted(value)));
    const bool isText = control.Kind() == fields::ControlKind::kTextBox ||
                        (control.Kind() == fields::ControlKind::kComboBox &&
                         static_cast<const fields::ComboBox&>(control).IsEditable());
    if (isText) typedInto_ = name;
}

void ScriptRecorder::Reset(const Control& control) {
    Hold(fmt::format("reset {}", NameOf(session_, control)));
}

void ScriptRecorder::Left(const Control& control) {
    Hold(fmt::format("leave {}", NameOf(session_, control)));
}

void ScriptRecorder::Selected() {
    Settle();
    isSelecting_ = true;
}

void ScriptRecorder::Sorted(int column) {
    Hold(fmt::format("column {}", results::kColumns[static_cast<std::size_t>(column)].key));
}

void ScriptRecorder::Opened(int row) {
    Hold(fmt::format("doubleclick {}", row + 1));
}

void ScriptRecorder::Answered(std::string_view answer) {
    text_.append(OnOneLine(fmt::format("answer {}", Quoted(answer)))).append("\n");
    typedInto_.clear();
}

std::string ScriptRecorder::Text() {
    Settle();
    return text_;
}

} // namespace tarvix::batch
