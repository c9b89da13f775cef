#pragma once

#include "fields/frm_options.h"
#include "session/session_state.h"

namespace tarvix::options {

// Options as the fields of the window have them, and back. Neither looks at what is allowed, nor
// does anything else.
void ShowOptions(fields::FrmOptions& form, const session::Options& options);
// What the window does not have stays as it is in `options`. The time of a web page must be a
// number.
void ReadOptions(const fields::FrmOptions& form, session::Options& options);

void ShowChoices(fields::FrmOptions& form, const session::RunChoices& choices);
session::RunChoices ReadChoices(const fields::FrmOptions& form);

// The lines of `lstMain`, the included ones selected.
void ShowVariables(fields::FrmOptions& form, const std::vector<session::EnvVariable>& variables);
std::vector<session::EnvVariable> ReadVariables(const fields::FrmOptions& form);

// The ten boxes with the options that they hold, in the order of the options file.
struct AttributeOption {
    fields::CheckBox fields::FrmOptions::*box;
    int session::Options::*option;
};
inline constexpr std::array<AttributeOption, 10> kAttributeOptions{{
    {&fields::FrmOptions::chkReadOnly, &session::Options::bytReadOnly},
    {&fields::FrmOptions::chkSystem, &session::Options::bytSystem},
    {&fields::FrmOptions::chkHidden, &session::Options::bytHidden},
    {&fields::FrmOptions::chkArchive, &session::Options::bytArchive},
    {&fields::FrmOptions::chk64, &session::Options::byt64},
    {&fields::FrmOptions::chk128, &session::Options::byt128},
    {&fields::FrmOptions::chk256, &session::Options::byt256},
    {&fields::FrmOptions::chk512, &session::Options::byt512},
    {&fields::FrmOptions::chkAlias, &session::Options::bytAlias},
    {&fields::FrmOptions::chkCompressed, &session::Options::bytCompressed},
}};

// The title of a default search folder as its entry bears it.
std::string FolderCaption(const fields::OfferedFolder& folder);

} // namespace tarvix::options
