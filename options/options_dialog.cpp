#include "options/options_dialog.h"

#include "options/apply_options.h"
#include "options/expert_mode.h"
#include "options/find_options.h"
#include "options/form_values.h"
#include "options/machine_page.h"
#include "options/option_table.h"
#include "options/quick_columns.h"
#include "options/search_folders.h"
#include "options/tool_fields.h"
#include "results/columns.h"
#include "session/event_table.h"
#include "session/lifecycle_events.h"
#include "session/paths/env_variables.h"
#include "session/prompt_id.h"
#include "session/remembered/options_file.h"
#include "session/remembered/platform_file.h"
#include "session/session.h"
#include "session/settings/option_values.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <utility>

namespace tarvix::options {

namespace {

using fields::FrmOptions;
using session::Session;

constexpr float kLeastSeconds = 1;
constexpr float kMostSeconds = 655;

void NameColumns(FrmOptions& form) {
    for (int column = 0; column < form.optSortBy.Count(); ++column) {
        const auto header = std::string(results::kColumns[static_cast<std::size_t>(column)].header);
        form.optSortBy[column].Caption = header;
        if (column >= form.chkList.First()) form.chkList[column].Caption = header;
    }
}

// The boxes bear the words that the main window has for them.
void NameBoxes(FrmOptions& form, const fields::FrmSearch& main) {
    for (const AttributeOption& attribute : kAttributeOptions) {
        auto& box = form.*attribute.box;
        if (const fields::Control* same = main.Find(box.Name())) box.Caption = same->CaptionText();
    }
}

void NameEverything(Session& session, FrmOptions& form) {
    MakeMachineFields(form);
    NameColumns(form);
    NameBoxes(form, session.frmSearch);
    SetTips(form);
}

// The same form as it is with a new options file.
std::unique_ptr<FrmOptions> UsualForm(Session& session) {
    auto usual = std::make_unique<FrmOptions>();
    MakeMachineFields(*usual);
    ShowOptions(*usual, session::UsualOptions(session));
    ShowChoices(*usual, {});
    ShowMachine(*usual, session::UsualSettings(session.platform.traits));
    return usual;
}

bool StaysInSearch(const FrmOptions& form, const fields::Control& control) {
    return PageOf(form, control) == fields::kListPage;
}

void LockForActiveSearch(Session& session) {
    auto& form = session.forms.frmOptions;
    const bool isActive = session.state.blnSearching;
    form.lblActive.Caption =
        isActive ? "Most options here unavailable during active search" : std::string{};
    form.lblActive.Visible = isActive;
    form.cmdRebuildEnvVar.Enabled = form.cmdBrowseDrive.Enabled = form.cmdReset.Enabled =
        form.cmbDriveLetter.Enabled = !isActive;
    for (fields::Control* control : form.Controls()) {
        if (!IsOption(form, *control)) continue;
        control->Enabled = !isActive || StaysInSearch(form, *control);
    }
    form.chkErrorLog.Enabled = form.chkSaveAtClose.Enabled =
        form.chkIncludeNameInCopyToTextFile.Enabled = false;
    if (!isActive) return LockByExpertMode(form);
    form.txtDefFolder.Enabled = form.txtDefFolderTitle.Enabled = form.cmdBrowse.Enabled = false;
}

void TellWebTime(Session& session, session::PromptId id, std::string_view text) {
    auto& form = session.forms.frmOptions;
    form.tbsOptions.Select(fields::kWebPage, true);
    form.Focus = &form.txtDefTime;
    session.MsgBox(id, text);
}

bool CheckWebTime(Session& session) {
    const auto seconds = session::ToSingle(session.forms.frmOptions.txtDefTime.Text.Get());
    if (!seconds) {
        TellWebTime(session, session::PromptId::kWebTimeNotNumeric,
                    "Default time for web pages must be numeric.");
        return false;
    }
    const bool isInRange = *seconds >= kLeastSeconds && *seconds <= kMostSeconds;
    if (!isInRange) {
        TellWebTime(session, session::PromptId::kWebTimeOutOfRange,
                    "Default time for web pages must be no less than 1 and no more than 655.");
    }
    return isInRange;
}

// A list of several folders has its file, so that other programs find it, too.
void WriteFolderLists(Session& session) {
    const auto& options = session.state.options;
    for (std::size_t i = 0; i < session::kConfiguredFolders; ++i) {
        const std::string& title = options.strDefSearchFolderTitle[i];
        const bool isList = options.strDefSearchFolder[i].find('|') != std::string::npos;
        if (!isList || text::Trim(title).empty()) continue;
        session.events.Raise(session, lifecycle::kWriteDefaultFolder, {.path = title});
    }
}

// The table is built from what the window has; the options in force keep theirs until they are
// applied.
void cmdRebuildEnvVar_Click(Session& session) {
    auto& form = session.forms.frmOptions;
    auto& table = session.state.options.envVariables;
    auto inForce = std::exchange(table, ReadVariables(form));
    for (session::EnvVariable& variable : table) {
        variable.strEnvVarPath.clear();
    }
    session::RebuildEnvVarTable(session);
    ShowVariables(form, std::exchange(table, std::move(inForce)));
}

void cmdApply_Click(Session& session) {
    if (SaveOptionsFromForm(session)) LoadOptionsIntoForm(session);
}

void cmdOK_Click(Session& session) {
    if (SaveOptionsFromForm(session)) session.forms.frmOptions.Hide();
}

void cmdCancel_Click(Session& session) {
    session.forms.frmOptions.Hide();
}

// Overwriting or deleting all and none exclude each other.
void chkAutoPara_Click(Session& session, const session::EventArgs& args) {
    auto& boxes = session.forms.frmOptions.chkAutoPara;
    if (args.index < 1 || args.index > boxes.Last() || boxes[args.index].Value == 0) return;
    const int other = args.index % 2 == 1 ? args.index + 1 : args.index - 1;
    boxes[other].Value = 0;
}

} // namespace

void LoadOptionsIntoForm(Session& session) {
    auto& form = session.forms.frmOptions;
    const auto& state = session.state;
    NameEverything(session, form);
    ShowOptions(form, state.options);
    ShowChoices(form, state.runChoices);
    ShowVariables(form, state.options.envVariables);
    ShowMachine(form, state.platformSettings);
    form.usual = UsualForm(session);
    ShowPattern(session, form);
    ShowChosenFolder(session);
    ShowDrives(session);
    ShowTools(session);
    ShowColumnNote(session);
    LockForActiveSearch(session);
    FindOptions(session);
    ShowChangedCount(session);
}

bool SaveOptionsFromForm(Session& session) {
    auto& form = session.forms.frmOptions;
    auto& state = session.state;
    if (!CheckWebTime(session) || !CheckFolders(session)) return false;
    auto settings = state.platformSettings;
    if (!ReadMachine(session, settings)) return false;
    CleanFolders(session);
    auto options = state.options;
    ReadOptions(form, options);
    options.envVariables = ReadVariables(form);
    options.intLatestYear = settings.latestYear;
    state.runChoices = ReadChoices(form);
    ApplyOptions(session, std::move(options), std::move(settings));
    WriteFolderLists(session);
    session.events.Raise(session, lifecycle::kListDefaultFolders);
    session::LogTimed(session, " User changed the options.");
    session::SaveOptionFile(session);
    session::SavePlatformFile(session);
    return true;
}

void mnuOptions_Click(Session& session) {
    if (!session.frmSearch.mnuOptions.Enabled) return;
    auto& form = session.forms.frmOptions;
    form.txtFind.Text = "";
    form.optQuickList.Choose(-1);
    for (int i = 0; i < form.optQuickList.Count(); ++i) {
        form.optQuickList[i].ForeColor = fields::kBlack;
    }
    LoadOptionsIntoForm(session);
    session.ShowModal(session::PromptId::kOptionsWindow);
    form.usual.reset();
    session.state.strLastForm = form.Name();
    session.events.Raise(session, "frmSearch.Form_Activate");
}

void AddOptionsEvents(session::EventTable& events) {
    events.On("frmSearch.mnuOptions_Click", mnuOptions_Click);
    events.On("frmSearch.mnuOptions_Open_Click", mnuOptions_Click);
    events.On("frmOptions.cmdOK_Click", cmdOK_Click);
    events.On("frmOptions.cmdApply_Click", cmdApply_Click);
    events.On("frmOptions.cmdCancel_Click", cmdCancel_Click);
    events.On("frmOptions.cmdRebuildEnvVar_Click", cmdRebuildEnvVar_Click);
    events.On("frmOptions.chkAutoPara_Click", chkAutoPara_Click);
    events.On("frmOptions.optQuickList_Click", optQuickList_Click);
    events.On("frmOptions.chkList_Click", chkList_Click);
    AddExpertModeEvents(events);
    AddSearchFolderEvents(events);
    AddMachineEvents(events);
    AddToolEvents(events);
    AddFindEvents(events);
    CountChanges(events);
}

} // namespace tarvix::options
