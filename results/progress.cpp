#include "results/progress.h"

#include "session/session.h"

#include <string>

namespace tarvix::results {

void ShowProgress(session::Session& session, std::string_view word) {
    auto& form = session.forms.frmProgress;
    form.prgMain.Value = 0;
    if (word == "Show") {
        form.Show();
    } else {
        form.Hide();
    }
    session.frmSearch.lstMain.Enabled = word != "Show";
}

void StepProgress(session::Session& session, std::string_view what, std::int64_t done,
                  std::int64_t total) {
    auto& form = session.forms.frmProgress;
    form.lblMain.Caption = std::string(what);
    form.prgMain.Max = total;
    form.prgMain.Value = done;
    session.frmSearch.lblStatus.Caption = std::string(what);
    session.Repaint();
}

} // namespace tarvix::results
