#include "batch/ask_page_show.h"
#include "cli/commands.h"
#include "cli/finding.h"
#include "cli/messages.h"
#include "platform/launcher.h"
#include "session/session.h"

#include <fmt/core.h>

#include <ostream>

namespace tarvix::cli {

namespace {

using batch::PageShow;
using session::Session;

// Whether it began; else the sentence was told.
int Start(Host& host, Session& session, PageShow& show, const ShowPagesRequest& request,
          const batch::PageShowRequest& asked) {
    const auto started = show.Start(session, asked);
    if (started && *started) return kDone;
    if (started) {
        Complain(host, fmt::format("The list {} holds no address.", request.list));
        return kBadRequest;
    }
    const bool isList = !started.error().path.empty();
    Complain(host, isList ? fmt::format("The list {} can't be read: {}.", request.list,
                                        platform::ErrorText(started.error().number))
                          : started.error().description);
    return isList ? kBadRequest : kSomeFailed;
}

} // namespace

int Run(Host& host, const platform::Platform& machine, const ShowPagesRequest& request) {
    const auto seconds = batch::ReadPageSeconds(request.seconds);
    if (!seconds) {
        Complain(host, fmt::format("--seconds takes a number between 1 and 655, not \"{}\".",
                                   request.seconds));
        return kBadRequest;
    }
    const auto browser = machine.launcher.DefaultBrowser();
    if (browser.name.empty()) {
        Complain(host, "This desktop has no default browser: choose one in its settings.");
        return kSomeFailed;
    }
    Tell(host, fmt::format("Pages open in {}; {}.", browser.name,
                           browser.endsPages ? "it is ended before each next page"
                                             : "it runs already, so no page is closed"));
    Finding finding(host, machine);
    ProgramRun run;
    run.act = [&](results::Program& program) -> int {
        Session& session = program.Session();
        PageShow show;
        session.events.On("frmSearch.Timer1_Timer",
                          [&show](Session& ticked, const auto&) { show.Tick(ticked); });
        session.events.On("frmSearch.mnuTools_BrowserUseText_Click",
                          [&show](Session& ended, const auto&) { show.End(ended); });
        const int code =
            Start(host, session, show, request,
                  {.list = finding.Paths().ToDrive(request.list), .seconds = *seconds});
        if (code != kDone) return code;
        RunTimer(host, session);
        host.out << fmt::format("Showed {} page{}.\n", show.Opened(),
                                show.Opened() == 1 ? "" : "s");
        return session.state.blnPageNotOpened ? kSomeFailed : kDone;
    };
    return RunProgram(host, machine, finding.Prompts(), run);
}

} // namespace tarvix::cli
