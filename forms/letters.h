#pragma once

class QMenu;
class QWidget;

namespace tarvix::forms {

// The letters by which entries and controls are reached from the keyboard, each once in what is in
// sight together. Those that captions bring along come first; of doubles the later one goes, and
// what has none gets one that its caption holds, as far as there are free ones.

// Gives the entries of a menu theirs each time that it opens, as they stand then.
void GiveLettersWhenOpened(QMenu& menu);
// Gives them now, to the entries that show.
void GiveLetters(QMenu& menu);
// The same, and in front of an entry that is left without one a digit, so that each of up to 36 can
// be reached by one key whatever their captions.
void GiveLettersAndDigits(QMenu& menu);
// Gives them to the buttons and boxes that show in a window; push buttons keep theirs before all
// others, and labels of boxes come last and get none that they don't bring.
void GiveLetters(QWidget& window);

} // namespace tarvix::forms
