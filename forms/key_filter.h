#pragma once

#include <functional>
#include <string_view>

class QComboBox;

namespace tarvix::forms {

// Lets the edit line of a box take only the typed characters for which `takes` is true; `entry` is
// the text (UTF-8) that the box would hold then. Pasted text isn't asked about.
void FilterKeys(QComboBox& box, std::function<bool(char key, std::string_view entry)> takes);

} // namespace tarvix::forms
