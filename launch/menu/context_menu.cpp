#include "launch/menu/context_menu.h"

#include "launch/menu/menu_deeds.h"
#include "launch/menu/menu_model.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/wordings.h"

#include <fmt/core.h>

#include <utility>

namespace tarvix::menu {

namespace {

using session::PromptId;
using session::Session;

void Warn(Session& session) {
    auto& state = session.state;
    const bool isFirst = state.intContextMenuCount++ == 0;
    if (!isFirst || state.options.blnNoContextMenuWarning) return;
    session.MsgBox(PromptId::kContextMenuWarning,
                   session::Worded(session, session::Wording::kContextMenu));
}

// The position of the chosen entry; -1 for none.
int Offer(Session& session, const ContextMenu& menu) {
    auto& form = session.forms.frmContextMenu;
    ListedItems listed = ListItems(menu.items);
    form.chosen = -1;
    form.items = menu.items;
    form.listedItems = std::move(listed.ids);
    form.lstMenu.SetItems(std::move(listed.lines));
    form.lstMenu.SelectNone();
    session.ShowModal(PromptId::kContextMenu);
    form.items.clear();
    return form.chosen;
}

void frmContextMenu_OK(Session& session) {
    auto& form = session.forms.frmContextMenu;
    for (std::size_t i = 0; i < form.listedItems.size(); ++i) {
        if (form.lstMenu.IsSelected(i)) form.chosen = form.listedItems[i];
    }
    form.Hide();
}

void frmContextMenu_Cancel(Session& session) {
    session.forms.frmContextMenu.Hide();
}

} // namespace

void lstMain_MouseUp(Session& session) {
    Warn(session);
    std::string gone;
    const auto objects = SelectedObjects(session, gone);
    if (!objects) {
        if (gone.empty()) return;
        session.frmSearch.lblStatus.Caption =
            fmt::format("{} isn't there any more. Search again.", session.Shown(gone));
        return;
    }
    const ContextMenu menu = BuildMenu(session, *objects);
    const int chosen = Offer(session, menu);
    if (chosen >= 0) Do(session, *objects, menu, menu.choices[static_cast<std::size_t>(chosen)]);
}

void AddMenuEvents(session::EventTable& events) {
    events.On("frmSearch.lstMain_MouseUp", lstMain_MouseUp);
    events.On("frmContextMenu.cmdOK_Click", frmContextMenu_OK);
    events.On("frmContextMenu.cmdCancel_Click", frmContextMenu_Cancel);
    AddDeedEvents(events);
}

} // namespace tarvix::menu
