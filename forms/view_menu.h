#pragma once

class QMenu;

namespace tarvix::session {
struct Session;
}

namespace tarvix::forms {

class ResultView;

// Adds what changes how the list looks: its order, its columns, how sizes are written, and what its
// colours and signs mean. The list and the session must live as long as the menu.
void FillViewMenu(QMenu& menu, ResultView& list, session::Session& session);

} // namespace tarvix::forms
