#pragma once

#include <QString>

#include <span>
#include <string_view>

namespace tarvix::fields {
class FrmSearch;
}

namespace tarvix::forms {

// The names of the controls that act on all that is selected.
std::span<const std::string_view> SelectionActions();

bool HasSelection(const fields::FrmSearch& form);

// Why a control of the main window, by its name, can't be used: it acts on what is selected, and
// nothing is. Empty when that is no reason.
QString WhyNothingToActOn(const fields::FrmSearch& form, std::string_view control);

} // namespace tarvix::forms
