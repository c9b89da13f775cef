#pragma once

#include "fields/frm_options.h"

#include <string>
#include <string_view>

namespace tarvix::options {

// What is known of one control of the window, or of all of an array.
struct OptionRow {
    std::string_view control; // "chkList" for the array
    fields::OptionPage page;
    std::string_view key; // of the options file and the command line; empty for none
    std::string_view tip; // what it does, in a sentence
};

// The row of a control; null for one that is no option.
const OptionRow* FindRow(const fields::Control& control);
// The page of an option; of a setting of this machine, too.
fields::OptionPage PageOf(const fields::FrmOptions& form, const fields::Control& control);
// Whether the control holds an option, with a key or for this run.
bool IsOption(const fields::FrmOptions& form, const fields::Control& control);
// The key as the command line takes it, "blnListItems (SizeSubItem)" for one column; empty for
// what no file keeps.
std::string KeyOf(const fields::FrmOptions& form, const fields::Control& control);
// What people call it: its caption without its letter mark, or a name where it bears none.
std::string NameOf(const fields::FrmOptions& form, const fields::Control& control);

// Gives every option its tip: what it does, and its key.
void SetTips(fields::FrmOptions& form);

} // namespace tarvix::options
