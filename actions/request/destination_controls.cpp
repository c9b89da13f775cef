#include "actions/request/destination_controls.h"

#include "actions/place/action_request.h"
#include "actions/request/action_names.h"
#include "platform/native_paths.h"
#include "session/paths/picker_start.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace tarvix::actions {

namespace {

using fields::CheckBox;
using fields::FrmDialog;
using session::EventArgs;
using session::Session;

constexpr std::array kWayLogs{
    " objects into one location folder.",
    " objects into multiple location folders.",
    " objects up the folder tree.",
    " objects into one folder each based on a special rule.",
};

constexpr std::array kDuplicateBoxes{&FrmDialog::chkAsk, &FrmDialog::chkSkipAll,
                                     &FrmDialog::chkRename, &FrmDialog::chkOverWrite};

bool BeginsNative(std::string_view text) {
    constexpr std::string_view kAddress = "file:/";
    return text.starts_with('/') || text.starts_with("~/") ||
           text::EqualNoCase(text.substr(0, kAddress.size()), kAddress);
}

std::string_view WithoutQuotes(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of('"'), text.size()));
    return text.substr(0, text.find_last_not_of('"') + 1);
}

// What stands in the box was typed for another way when it can't be a location.
bool CanBeOneLocation(std::string_view text) {
    return text.contains("\\\\") || text.contains(':') || text.contains('%') || BeginsNative(text);
}

void ClearDestination(FrmDialog& form, Way way) {
    const bool keeps = way == Way::kUpFolderTree ||
                       (way == Way::kOneLocation && CanBeOneLocation(form.cmbDir.Text.Get()));
    if (!keeps) form.cmbDir.Text = "";
}

void ChooseDuplicate(Session& session, const CheckBox& chosen) {
    for (const auto box : kDuplicateBoxes) {
        CheckBox& each = session.frmDialog.*box;
        each.Value = &each == &chosen ? 1 : 0;
    }
    ShowDuplicateFields(session);
}

void optTo_Click(Session& session, const EventArgs& args) {
    // What was typed for this way is kept.
    if (args.isRepeat) return;
    if (args.index < 0 || args.index >= static_cast<int>(kWayLogs.size())) return;
    FrmDialog& form = session.frmDialog;
    session::LogTimed(session, fmt::format(" User selected to {}{}", session.state.strAction,
                                           kWayLogs[static_cast<std::size_t>(args.index)]));
    const auto way = static_cast<Way>(args.index);
    ClearDestination(form, way);
    if (way == Way::kUpFolderTree) {
        form.txtFolderTree.Text = "1";
        form.lblFolderTree.Caption = "Number of levels to move object up folder tree";
    }
    ResetDuplicateChoice(session);
    ShowDestinationFields(session);
    const std::array<fields::Control*, 4> revealed{&form.cmbDir, &form.filMultiPath,
                                                   &form.txtFolderTree, &form.cmbDir};
    form.Focus = revealed[static_cast<std::size_t>(args.index)];
}

void cmbDir_Change(Session& session) {
    FrmDialog& form = session.frmDialog;
    form.cmbDir.Text = std::string(WithoutQuotes(form.cmbDir.Text.Get()));
}

void txtFolderTree_Change(Session& session) {
    std::string digits = session.frmDialog.txtFolderTree.Text;
    std::erase_if(digits, [](char c) { return c < '0' || c > '9'; });
    session.frmDialog.txtFolderTree.Text = digits;
}

struct SourcePicker {
    std::string_view action;
    session::PromptId id;
    std::string_view filters;
};
constexpr std::string_view kListFilters = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*|";
constexpr std::array kSourcePickers{
    SourcePicker{kRenameFromList, session::PromptId::kPickNameList, kListFilters},
    SourcePicker{kRenameByPrefix, session::PromptId::kPickPrefixList, kListFilters},
    SourcePicker{kRenameFromLinks, session::PromptId::kPickLinkPage,
                 "Html Files (*.htm*)|*.htm*|All Files (*.*)|*.*|"}};

void PickSource(Session& session, const SourcePicker& picker) {
    const std::string file = session.PickFile(picker.id, picker.filters);
    if (!file.empty()) session.frmDialog.cmbDir.Text = session.platform.paths.ToDrive(file);
}

void cmdBrowse_Click(Session& session) {
    if (IsTextGroup(session.state.strAction)) {
        session.events.Raise(session, "frmDialog.PickNewFile");
        return;
    }
    const auto source =
        std::ranges::find(kSourcePickers, session.state.strAction, &SourcePicker::action);
    if (source != kSourcePickers.end()) return PickSource(session, *source);
    const std::string folder =
        session.PickFolder(session::PromptId::kPickDestination,
                           session::PickerStart(session, session.frmDialog.cmbDir.Text.Get()));
    if (!folder.empty()) session.frmDialog.cmbDir.Text = session.platform.paths.ToDrive(folder);
}

// A box of which one of two is always set.
void AddOneOfTwo(session::EventTable& events, CheckBox FrmDialog::*box, CheckBox FrmDialog::*other,
                 void (*show)(Session&)) {
    const FrmDialog names;
    const auto add = [&](CheckBox FrmDialog::*clicked, CheckBox FrmDialog::*opposite) {
        events.On(fmt::format("frmDialog.{}_Click", (names.*clicked).Name()),
                  [clicked, opposite, show](Session& session, const EventArgs&) {
                      FrmDialog& form = session.frmDialog;
                      (form.*opposite).Value = (form.*clicked).Value == 1 ? 0 : 1;
                      show(session);
                  });
    };
    add(box, other);
    add(other, box);
}

void AddDuplicateEvents(session::EventTable& events) {
    const FrmDialog names;
    for (const auto box : kDuplicateBoxes) {
        events.On(fmt::format("frmDialog.{}_Click", (names.*box).Name()),
                  [box](Session& session, const EventArgs&) {
                      const CheckBox& clicked = session.frmDialog.*box;
                      if (clicked.Value == 1) ChooseDuplicate(session, clicked);
                      if (&clicked == &session.frmDialog.chkRename && clicked.Value == 1) {
                          session.frmDialog.Focus = &session.frmDialog.txtRename;
                      }
                      if (clicked.Value == 1) return;
                      ShowDuplicateFields(session);
                  });
    }
}

} // namespace

bool TakesKey(char key, bool isRule, std::string_view entry) {
    constexpr std::string_view kNever = "/\"?<>";
    constexpr std::string_view kInRules = "*|";
    if (BeginsNative(WithoutQuotes(entry))) return true;
    return !kNever.contains(key) && (isRule || !kInRules.contains(key));
}

void ResetDuplicateChoice(Session& session) {
    FrmDialog& form = session.frmDialog;
    const bool isMove = session.state.strAction == "Move";
    const CheckBox& automatic = isMove ? form.chkSkipAll : form.chkRename;
    ChooseDuplicate(session, session.state.options.blnAutoMode ? automatic : form.chkAsk);
}

void ShowDuplicateFields(Session& session) {
    FrmDialog& form = session.frmDialog;
    const bool isShown = form.chkRename.Value == 1 || form.chkAsk.Value == 1;
    if (isShown && !form.chkRenameEnd.Visible) {
        form.chkRenameBeg.Value = 0;
        form.chkRenameEnd.Value = 1;
    }
    for (fields::Control* control : std::initializer_list<fields::Control*>{
             &form.chkRenameBeg, &form.chkRenameEnd, &form.lblRename, &form.txtRename}) {
        control->Visible = isShown;
    }
}

void ShowRenameFields(Session& session) {
    FrmDialog& form = session.frmDialog;
    const bool isAdd = form.chkAdd.Value == 1;
    for (fields::Control* control :
         std::initializer_list<fields::Control*>{&form.txtAdd, &form.chkAddBeg, &form.chkAddEnd}) {
        control->Visible = isAdd;
    }
    for (fields::Control* control : std::initializer_list<fields::Control*>{
             &form.txtFind, &form.txtReplace, &form.optOnceVsAll[0], &form.optOnceVsAll[1]}) {
        control->Visible = !isAdd;
    }
    form.lblAddBeg.Visible = isAdd && form.chkAddBeg.Value == 1;
    form.lblAddEnd.Visible = isAdd && form.chkAddEnd.Value == 1;
}

void ShowDestinationFields(Session& session) {
    const std::string& action = session.state.strAction;
    if (action != "Copy" && action != "Move") return;
    FrmDialog& form = session.frmDialog;
    const auto way = static_cast<Way>(form.optTo.Chosen());
    form.cmbDir.Visible = way != Way::kUpFolderTree;
    form.cmdBrowse.Visible = way == Way::kOneLocation || way == Way::kSpecialRule;
    form.txtFolderTree.Visible = way == Way::kUpFolderTree;
    form.lblFolderTree.Visible = way == Way::kUpFolderTree;
    form.chkFolderRename.Visible = way == Way::kUpFolderTree;
    form.filMultiPath.Visible = way == Way::kMultipleLocations;
    form.lstMulti.Visible = way == Way::kMultipleLocations;
    form.OKButton.Visible = way != Way::kMultipleLocations || !form.lstMulti.Items().empty();
}

void AddDestinationEvents(session::EventTable& events) {
    events.On("frmDialog.optTo_Click", optTo_Click);
    events.On("frmDialog.cmbDir_Change", cmbDir_Change);
    events.On("frmDialog.txtFolderTree_Change", txtFolderTree_Change);
    events.On("frmDialog.cmdBrowse_Click", cmdBrowse_Click);
    AddDuplicateEvents(events);
    AddOneOfTwo(events, &FrmDialog::chkRenameBeg, &FrmDialog::chkRenameEnd, ShowDuplicateFields);
    AddOneOfTwo(events, &FrmDialog::chkFindReplace, &FrmDialog::chkAdd, [](Session& session) {
        FrmDialog& form = session.frmDialog;
        ShowRenameFields(session);
        form.Focus = form.chkAdd.Value == 1 ? &form.txtAdd : &form.txtFind;
    });
    AddOneOfTwo(events, &FrmDialog::chkAddBeg, &FrmDialog::chkAddEnd, ShowRenameFields);
}

} // namespace tarvix::actions
