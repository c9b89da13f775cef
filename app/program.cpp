#include "app/program.h"

#include "actions/request/start_action.h"
#include "batch/batch_events.h"
#include "generate/menu.h"
#include "launch/menu/context_menu.h"
#include "launch/run_menu.h"
#include "options/options_dialog.h"
#include "search/search_button.h"
#include "session/lifecycle/first_run.h"
#include "session/lifecycle/help.h"
#include "session/lifecycle/startup.h"
#include "session/option_menu.h"
#include "session/paths/ask_long_path.h"
#include "session/runs.h"
#include "session/text_viewer.h"
#include "shortcuts/edit_mode.h"

namespace tarvix::app {

void FillEvents(session::EventTable& events) {
    lifecycle::AddLifecycleEvents(events);
    lifecycle::AddHelpEvents(events);
    lifecycle::AddFirstRunEvents(events);
    session::AddAskLongPathEvents(events);
    session::AddOptionMenuEvents(events);
    session::AddLogViewEvents(events);
    session::AddRunsEvents(events);
    results::AddListEvents(events);
    search::AddSearchEvents(events);
    actions::AddActionEvents(events);
    generate::AddGenerateEvents(events);
    batch::AddBatchEvents(events);
    shortcuts::AddShortcutEvents(events);
    menu::AddMenuEvents(events);
    launch::AddLaunchEvents(events);
    options::AddOptionsEvents(events);
}

} // namespace tarvix::app
