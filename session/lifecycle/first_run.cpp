#include "session/lifecycle/first_run.h"

#include "platform/dir.h"
#include "platform/file_system.h"
#include "session/lifecycle/help.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/wordings.h"

namespace tarvix::lifecycle {

namespace {

using session::PromptId;
using session::Session;

bool AsksFor(Session& session, PromptId id, std::string_view question) {
    return session.MsgBox(id, question) == session::kYes;
}

void TellInBoxes(Session& session) {
    session.MsgBox(PromptId::kFirstRunWarning, session::Told(session::Wording::kFirstRun));
    OpenHelp(session);
    if (AsksFor(session, PromptId::kOfferGeneralInformation,
                "Would you like to see the General Information file?")) {
        OpenGeneralInformation(session);
    }
    if (AsksFor(session, PromptId::kOfferAdvancedFunctions,
                "Would you like to see the Advanced Functions file?")) {
        OpenAdvancedFunctions(session);
    }
}

void Welcome(Session& session) {
    auto& form = session.forms.frmWelcome;
    form.lblMain.Caption = std::string(session::Worded(session, session::Wording::kFirstRun));
    form.ReadsGuide = false;
    form.Focus = &form.cmdOK;
    session.ShowModal(PromptId::kWelcome);
    if (form.ReadsGuide) OpenHelp(session);
}

void cmdGuide_Click(Session& session) {
    session.forms.frmWelcome.ReadsGuide = true;
    session.forms.frmWelcome.Hide();
}

void cmdOK_Click(Session& session) {
    session.forms.frmWelcome.Hide();
}

} // namespace

void FirstRunCheck(Session& session) {
    const std::string& history = session.state.strFSSearchHistoryFile;
    if (!platform::DirName(session.files(), history, platform::kDirFiles).empty()) return;
    if (session.platform.traits.hasNativePaths && session.prompts.PrefersForms()) {
        Welcome(session);
    } else {
        TellInBoxes(session);
    }
    if (auto made = session.files().CreateTextFile(history, false)) (void)(*made)->Close();
}

void AddFirstRunEvents(session::EventTable& events) {
    events.On("frmWelcome.cmdGuide_Click", cmdGuide_Click);
    events.On("frmWelcome.cmdOK_Click", cmdOK_Click);
}

} // namespace tarvix::lifecycle
