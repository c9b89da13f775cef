#include "options/find_options.h"

#include "options/expert_mode.h"
#include "options/form_values.h"
#include "options/machine_page.h"
#include "options/option_table.h"
#include "options/quick_columns.h"
#include "options/search_folders.h"
#include "options/tool_fields.h"
#include "session/event_table.h"
#include "session/input_recorder.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>

namespace tarvix::options {

namespace {

using fields::Control;
using fields::ControlKind;
using fields::FrmOptions;
using session::Session;

std::size_t Place(int index) {
    return static_cast<std::size_t>(index);
}

bool IsFolderEntry(const Control& control) {
    return control.ArrayName() == "optDefSearchFolder";
}

// What a control has that no options file of its own keeps.
bool IsHelper(const Control& control) {
    return control.ArrayName() == "optQuickList" || control.ArrayName() == "optAttribDef";
}

// Sets the value of `control` to that of `usual`, which is of the same kind.
void TakeValue(Control& control, const Control& usual) {
    switch (control.Kind()) {
    case ControlKind::kCheckBox:
        static_cast<fields::CheckBox&>(control).Value =
            static_cast<const fields::CheckBox&>(usual).Value;
        break;
    case ControlKind::kOptionButton:
        static_cast<fields::OptionButton&>(control).Value =
            static_cast<const fields::OptionButton&>(usual).Value;
        break;
    case ControlKind::kTextBox:
        static_cast<fields::TextBox&>(control).Text =
            static_cast<const fields::TextBox&>(usual).Text;
        break;
    case ControlKind::kComboBox:
        static_cast<fields::ComboBox&>(control).Text =
            static_cast<const fields::ComboBox&>(usual).Text;
        break;
    case ControlKind::kListBox:
        static_cast<fields::ListBox&>(control).SelectNone();
        break;
    default:
        break;
    }
}

void ResetFolder(FrmOptions& form, int index) {
    form.folders[Place(index)] = form.usual->folders[Place(index)];
    form.optDefSearchFolder[index].Caption = FolderCaption(form.folders[Place(index)]);
}

void ResetValue(FrmOptions& form, Control& control) {
    if (IsHelper(control)) return;
    if (IsFolderEntry(control)) return ResetFolder(form, control.Index());
    if (&control == &form.txtDriveFolder) {
        form.drives.clear();
        form.txtDriveFolder.Text = "";
        return;
    }
    for (Control* one : form.Controls()) {
        const bool isOfGroup =
            control.Kind() == ControlKind::kOptionButton && one->ArrayName() == control.ArrayName();
        if (one != &control && !isOfGroup) continue;
        if (const Control* usual = form.usual->Find(one->Name())) TakeValue(*one, *usual);
    }
}

// What follows from the values.
void ShowFollowing(Session& session) {
    auto& form = session.forms.frmOptions;
    LockByExpertMode(form);
    ShowPattern(session, form);
    ShowChosenFolder(session);
    ShowDrives(session);
    ShowTools(session);
    ShowColumnNote(session);
    ShowChangedCount(session);
}

bool HasWords(const std::string& text, const std::vector<std::string_view>& words) {
    return std::ranges::all_of(words, [&text](std::string_view word) {
        return word.empty() || text::ContainsNoCase(text, word);
    });
}

const std::string& PageName(const FrmOptions& form, int page) {
    return form.tbsOptions.Items()[Place(page)];
}

void lstFound_Click(Session& session, const session::EventArgs& args) {
    auto& form = session.forms.frmOptions;
    if (args.index < 0 || Place(args.index) >= form.found.size()) return;
    Control& control = *form.found[Place(args.index)];
    form.tbsOptions.Select(Place(PageOf(form, control)), true);
    if (IsFolderEntry(control)) {
        form.optDefSearchFolder.Choose(control.Index());
        ShowChosenFolder(session);
    }
    form.txtFind.Text = "";
    FindOptions(session);
    form.Focus = &control;
}

void cmdReset_Click(Session& session) {
    auto& form = session.forms.frmOptions;
    for (Control* control : form.Controls()) {
        const bool isHere = IsOption(form, *control) && PageOf(form, *control) == form.Page();
        if (isHere && IsChanged(form, *control)) ResetValue(form, *control);
    }
    ShowFollowing(session);
}

// For a script it is the value that a user would enter.
void Record(Session& session, const Control& control) {
    if (session.recorder == nullptr) return;
    const auto& form = session.forms.frmOptions;
    const bool hasNoValue = control.Kind() == ControlKind::kListBox || IsFolderEntry(control) ||
                            &control == &form.txtDriveFolder;
    if (hasNoValue) return session.recorder->Reset(control);
    if (control.Kind() != ControlKind::kOptionButton) {
        return session.recorder->Entered(control, control.ValueText());
    }
    for (const Control* entry : control.Owner().Controls()) {
        const bool isChosen =
            entry->ArrayName() == control.ArrayName() && entry->ValueText() == "1";
        if (isChosen) session.recorder->Entered(*entry, "1");
    }
}

void ResetNamed(Session& session, const session::EventArgs& args) {
    Control* control = session.forms.frmOptions.Find(args.path);
    if (control == nullptr) return;
    ResetOption(session, *control);
    Record(session, *control);
}

} // namespace

bool IsChanged(const FrmOptions& form, const Control& control) {
    if (!form.usual || !IsOption(form, control) || IsHelper(control)) return false;
    if (IsFolderEntry(control)) {
        return form.folders[Place(control.Index())] != form.usual->folders[Place(control.Index())];
    }
    if (&control == &form.txtDriveFolder) return !form.drives.empty();
    if (&control == &form.lstMain) return !form.lstMain.ValueText().empty();
    const Control* usual = form.usual->Find(control.Name());
    if (usual == nullptr || control.ValueText() == usual->ValueText()) return false;
    const bool isEntry = control.Kind() == ControlKind::kOptionButton;
    return !isEntry || static_cast<const fields::OptionButton&>(control).Value;
}

void ResetOption(Session& session, Control& control) {
    auto& form = session.forms.frmOptions;
    if (!form.usual || !IsOption(form, control)) return;
    ResetValue(form, control);
    ShowFollowing(session);
}

void FindOptions(Session& session) {
    auto& form = session.forms.frmOptions;
    form.found.clear();
    std::vector<std::string> lines;
    const auto words = text::Split(text::Trim(form.txtFind.Text.Get()), ' ');
    for (Control* control : form.Controls()) {
        const bool isSought = !text::Trim(form.txtFind.Text.Get()).empty();
        if (!isSought || !IsOption(form, *control)) continue;
        const std::string line =
            fmt::format("{}: {}{}", PageName(form, PageOf(form, *control)), NameOf(form, *control),
                        IsChanged(form, *control) ? " (changed)" : "");
        const std::string all =
            fmt::format("{} {} {}", line, control->ToolTipText.Get(), control->Name());
        if (!HasWords(all, words)) continue;
        form.found.push_back(control);
        lines.push_back(line);
    }
    form.lstFound.SelectNone();
    form.lstFound.SetItems(std::move(lines));
}

void ShowChangedCount(Session& session) {
    auto& form = session.forms.frmOptions;
    const auto changed = std::ranges::count_if(
        form.Controls(), [&form](const Control* control) { return IsChanged(form, *control); });
    form.lblChanged.Caption = changed == 0
                                  ? "All options are as at first."
                                  : fmt::format("{} {} not as at first.", changed,
                                                changed == 1 ? "option is" : "options are");
}

void CountChanges(session::EventTable& events) {
    FrmOptions names;
    MakeMachineFields(names);
    for (const Control* control : names.Controls()) {
        if (!IsOption(names, *control)) continue;
        for (const char* event : {"Click", "Change"}) {
            std::string name = fmt::format("frmOptions.{}_{}", control->ArrayName(), event);
            if (!events.Has(name)) events.On(std::move(name), ShowChangedCount);
        }
    }
}

void AddFindEvents(session::EventTable& events) {
    events.On("frmOptions.txtFind_Change", FindOptions);
    events.On("frmOptions.lstFound_Click", lstFound_Click);
    events.On("frmOptions.lstFound_DblClick", lstFound_Click);
    events.On("frmOptions.cmdReset_Click", cmdReset_Click);
    events.On(kResetOption, ResetNamed);
}

} // namespace tarvix::options
