#include "batch/batch_scope.h"

#include "platform/names.h"
#include "session/search_lock.h"
#include "session/session.h"

#include <fmt/core.h>

namespace tarvix::batch {

using session::Session;
using session::SessionState;

BatchScope::BatchScope(Session& session, bool SessionState::*flag)
    : session_(session), listings_(session.files()), flag_(flag) {
    session.state.*flag = true;
    session.state.blnStopClicked = session.state.blnStopAction = false;
    session.frmSearch.mnuOptions.Enabled = false;
}

BatchScope::~BatchScope() {
    auto& form = session_.frmSearch;
    session_.state.*flag_ = false;
    session::UnlockAfterSearch(session_);
    form.mnuOptions.Enabled = true;
    form.cmdStop.Visible = form.cmdNext.Visible = false;
    HideStep(session_);
    form.lblDetailedStatus.Caption = "";
    form.lblDetailedStatus.Visible = false;
}

void ShowStep(Session& session, std::string_view verb, std::int64_t line, std::int64_t lines,
              std::string_view search, std::string_view destination) {
    auto& label = session.frmSearch.lblBatch;
    label.Caption = fmt::format("{} line {} of {}: {} \u2192 {}", verb, line, lines, search,
                                session.Shown(destination));
    label.Visible = true;
}

void HideStep(Session& session) {
    session.frmSearch.lblBatch.Caption = "";
    session.frmSearch.lblBatch.Visible = false;
}

bool IsStopped(const SessionState& state) {
    return state.blnStopClicked || state.blnStopAction;
}

} // namespace tarvix::batch
