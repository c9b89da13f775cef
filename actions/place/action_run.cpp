#include "actions/place/action_run.h"

#include "session/session.h"

namespace tarvix::actions {

ActionRun::ActionRun(session::Session& session, const ActionRequest& actionRequest,
                     OutcomeSink* outcomeSink)
    : request(actionRequest), sink(outcomeSink), bytAskAnswer(session.forms.frmAsk.Answer),
      bytOverrideAnswer(session.forms.frmOverrideDialog.Answer),
      observer([&session](const platform::CopyProgress&) {
          session.Yield();
          return !session.state.blnStopNow;
      }),
      shownSources(session), shownPlaces(session) {
    for (const platform::DriveInfo& drive : session.files().Drives()) {
        if (drive.type == platform::DriveType::kCdRom) strCDDrives.push_back(drive.path);
    }
}

} // namespace tarvix::actions
