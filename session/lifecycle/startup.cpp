#include "session/lifecycle/startup.h"

#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/registry.h"
#include "session/errors.h"
#include "session/lifecycle/data_folder.h"
#include "session/lifecycle/first_run.h"
#include "session/lifecycle_events.h"
#include "session/old_logs.h"
#include "session/product.h"
#include "session/prompt_id.h"
#include "session/remembered/histories.h"
#include "session/remembered/left_temporaries.h"
#include "session/remembered/options_file.h"
#include "session/remembered/platform_file.h"
#include "session/remembered/unsaved.h"
#include "session/session.h"
#include "session/wordings.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace tarvix::lifecycle {

namespace {

using session::Session;

void Raise(Session& session, std::string_view event) {
    session.events.Raise(session, event);
}

void SetState(Session& session) {
    auto& state = session.state;
    state.blnRepeatDeleteEmpty = false;
    state.intMaxYear = session.Now().year + 20;
    state.blnRedoNow = true;
}

// The attributes that have but a number, in words.
void NameAttributes(fields::FrmSearch& form) {
    form.chkReadOnly.Caption = "Read only";
    form.chkAlias.Caption = "Link";
    form.chkCompressed.Caption = "Compressed";
    form.chk256.Caption = "Temporary (256)";
    form.chk512.Caption = "Sparse (512)";
    form.chk64.Caption = "Special (64)";
    form.chk128.Caption = "Plain (128)";
}

// What is seen behind the notice of a first start.
void ShowAsHere(Session& session) {
    if (!session.platform.traits.hasNativePaths) return;
    NameAttributes(session.frmSearch);
    session::TakeFirstColumns(session);
}

void AddStandingEntries(Session& session) {
    for (const char* entry : {"  *.lnk", "  *.mpl", "  *.url"}) {
        session.frmSearch.cmbSearchFor.AddItem(entry);
    }
}

// Where the data folder takes nothing, that is the one trouble, and told as such.
void OpenLogs(Session& session) {
    const auto opened = session.log.TryOpen(session);
    if (opened) return session.errorLog.Open(session);
    const auto& error = opened.error();
    if (const auto taken = session::TryDataFolder(session); !taken) {
        const std::string first =
            fmt::format("unexpected error {} {}\r\n\r\nThis run has no logs. ", error.number,
                        session.Shown(error));
        return session::TellDataUnwritable(session, taken.error(), first);
    }
    session::TellUnexpected(session, error, "OpenActionLog", session.state.strActionLogFile);
    session.errorLog.Open(session);
}

// The options as they were saved, a copy of them as they were read, and the logs that they switch.
void ReadOptions(Session& session) {
    const auto& state = session.state;
    session::OpenOptionFile(session);
    if (state.blnOptionFileFound && !state.blnOptionFileUnread) session::BackUpOptionFile(session);
    OpenLogs(session);
    session::RemoveOldLogs(session);
    session::RemoveLeftTemporaries(session);
}

void SetVisibleDefaults(Session& session) {
    auto& form = session.frmSearch;
    form.Caption =
        fmt::format("Search Form - {} v{} - Copyright {} The Tarvix developers",
                    session::kProductName, session::ProductVersion(), session.Now().year);
    form.lstMain.Tip = session.state.options.blnAllowAll ? "" : std::string(kListTip);
    Raise(session, kBrowseNormally);
    form.lblCurrentFolder.ForeColor = fields::kBlue;
    form.lblSearchFor.ForeColor = fields::kRed;
    Raise(session, kPaintAttributeBoxes);
    form.cmdDeleteSelected.Caption =
        std::string(session::Worded(session, session::Wording::kRecycleButton));
}

// In a window the first location stands as the folder that it is, or the home folder where there is
// none; a script reads it as the options have it.
void ShowFirstLocation(Session& session) {
    auto& box = session.frmSearch.cmbDir.Text;
    const bool isVariable = box.Get().find('%') != box.Get().npos;
    const bool showsNative = session.state.platformSettings.showsNative;
    if (!isVariable || !showsNative || !session.prompts.PrefersForms()) return;
    const auto& environment = session.platform.environment;
    const std::string folder = platform::ExpandVariables(environment, box.Get());
    const bool isThere = platform::GetFolder(session.files(), folder).has_value();
    box = isThere ? folder : environment.Get("UserProfile").value_or("");
}

void FillCriteria(Session& session) {
    auto& form = session.frmSearch;
    form.cboSize.AddItem("At Least", 4);
    form.cboSize.AddItem("At Most", 2);
    form.cboSize.AddItem("Range", 1);
    form.cboSize.Text = "At Least";
    form.cboDate.AddItem("Before", 32);
    form.cboDate.AddItem("Since", 16);
    form.cboDate.AddItem("Range", 8);
    form.Width = kLeastWidth;
    form.Height = kLeastHeight;
}

bool HasVerb(Session& session, std::string_view key) {
    const auto value = session.platform.registry.ClassDefault(key);
    return value && text::Length(*value) > 1;
}

void ReadRegistryFlags(Session& session) {
    session.state.blnStarShell = HasVerb(session, "*\\shell");
    session.state.blnUnknownShell = HasVerb(session, "Unknown\\shell");
}

// False when a damaged history ended the program.
bool ReadHistories(Session& session) {
    session::OpenSearchHistoryFile(session);
    if (!session.state.blnEnded) session::OpenFolderHistoryFile2(session);
    return !session.state.blnEnded;
}

void PreloadDialog(Session& session) {
    if (session.state.strLastForm == "frmDialog") return;
    session::OpenDestHistoryFile2(session);
    if (session.state.blnEnded) return;
    session.state.blnPreloadDialog = true;
    Raise(session, kActivateDialog);
    session.state.blnPreloadDialog = false;
}

void RepeatSearch(Session& session) {
    session.frmSearch.lblStatus.Caption = "Repeat Searching";
    session.Repaint();
    Raise(session, kSearch);
}

// What the options window showed or hid counts for the list behind it.
void GroupAfterOptions(Session& session) {
    auto& state = session.state;
    if (state.strLastForm != session.forms.frmOptions.Name()) return;
    if (std::exchange(state.blnColumnsChanged, false)) Raise(session, kGroupRows);
}

void RedoAfterAction(Session& session) {
    auto& state = session.state;
    const bool repeats = session.frmSearch.chkRepeatSearch.Value == 1;
    if (state.blnRedoAfterAction) {
        if (repeats) {
            RepeatSearch(session);
        } else {
            Raise(session, kClearList);
        }
    } else if (state.blnRedoNow && repeats && state.blnRepeatRequested) {
        state.blnRepeatRequested = false;
        RepeatSearch(session);
    } else {
        return;
    }
    state.blnRedoAfterAction = state.blnRedoNow = false;
}

} // namespace

void frmSearch_Load(Session& session, std::string_view argument) {
    SetState(session);
    FindDataFolder(session);
    FormDataPaths(session);
    session::OpenPlatformFile(session);
    AddStandingEntries(session);
    ShowAsHere(session);
    FirstRunCheck(session);
    ReadOptions(session);
    SetVisibleDefaults(session);
    CommandLineOptions(session, argument);
    FillCriteria(session);
    ReadRegistryFlags(session);
    Raise(session, kClearList);
    session.frmSearch.mnuTools_CreateMPLfromCombo.Enabled = true;
    session.frmSearch.lblStatus.Caption = "";
    if (!ReadHistories(session)) return;
    Raise(session, kListDefaultFolders);
    ShowFirstLocation(session);
    PreloadDialog(session);
    if (session.state.blnEnded) return;
    session.frmSearch.Show();
    session.state.blnStarted = true;
}

void frmSearch_Activate(Session& session) {
    auto& form = session.frmSearch;
    GroupAfterOptions(session);
    RedoAfterAction(session);
    if (session.state.blnEditTargets) {
        form.Focus = &form.cmdEditTargets;
    } else if (form.cmdSearch.Enabled && !session.state.blnPlayListMode) {
        // Who acted on rows goes on with those that are left.
        const bool hasRows = form.fraStandardAction.Visible;
        form.Focus = hasRows && session::SpeaksPlainly(session)
                         ? static_cast<fields::Control*>(&form.lstMain)
                         : &form.cmbSearchFor;
    } else {
        form.Focus = &form.chkRepeatSearch;
    }
}

void frmSearch_Resize(Session& session) {
    auto& form = session.frmSearch;
    const auto& state = session.state;
    if (form.State == fields::WindowState::kMinimized) {
        if (state.IsBatch()) form.State = fields::WindowState::kNormal;
        return;
    }
    if (form.Width >= kLeastWidth && form.Height >= kLeastHeight) return;
    if (form.State == fields::WindowState::kMaximized) {
        session.MsgBox(session::PromptId::kWindowTooSmall,
                       session::Worded(session, session::Wording::kWindowTooSmall));
        frmSearch_Unload(session);
        return;
    }
    form.Width = std::max(form.Width, kLeastWidth);
    form.Height = std::max(form.Height, kLeastHeight);
}

void AddLifecycleEvents(session::EventTable& events) {
    events.On("frmSearch.Form_Activate", frmSearch_Activate);
    events.On("frmSearch.Form_Resize", frmSearch_Resize);
    events.On("frmSearch.Form_Unload", frmSearch_Unload);
}

} // namespace tarvix::lifecycle
