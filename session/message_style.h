#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace tarvix::session {

// The answers that a style offers, in the order of its buttons; OK alone for an unknown one.
std::vector<int> ButtonsOf(int style);
// The answer of the button that has the focus at first.
int DefaultAnswer(int style);
// What closing the box counts as: Cancel or No where there is one, else the only button.
int SafeAnswer(int style);
// The button that Enter presses at first: the default of the style, but a Yes or No that names none
// is answered No by a careless Enter.
int FocusedAnswer(int style);
// The icon's part of a style; 0 when it has none.
int IconOf(int style);
// "Yes" for 6, and back without regard to case or "&"; nothing for a text that is no button.
std::string_view CaptionOf(int answer);
std::optional<int> AnswerOf(std::string_view caption);

} // namespace tarvix::session
