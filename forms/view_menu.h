#pragma once

class QMenu;

namespace tarvix::session {
struct PlatformSettings;
}

namespace tarvix::forms {

class ResultView;

// Adds what changes how the list looks: its columns, how sizes are written, and what its colours
// and signs mean. The list and the settings must live as long as the menu.
void FillViewMenu(QMenu& menu, ResultView& list, session::PlatformSettings& settings);

} // namespace tarvix::forms
