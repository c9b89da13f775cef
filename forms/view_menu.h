#pragma once

class QMenu;

namespace tarvix::forms {

class ResultModel;
class ResultView;

// Adds what changes how the list looks: its columns, how sizes are written, and what its colours
// and signs mean. Both must live as long as the menu.
void FillViewMenu(QMenu& menu, ResultView& list, ResultModel& model);

} // namespace tarvix::forms
