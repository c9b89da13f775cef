#pragma once

#include "platform/error.h"
#include "session/settings/option_keys.h"

#include <string>
#include <string_view>

namespace tarvix::session {

struct Session;

// Reads `strOptionFile` into the options and onto the main form; without one the options are those
// of a new record and the form stays as it is. Lines may stand in any order, what isn't understood
// is passed over, and what is missing is filled in. A file of another version is copied to
// "TXOptionFile_<version>.txt" first, with a message. A value that is none ends the reading by way
// of HandleError.
void OpenOptionFile(Session& session);

// The options of a new options file on this machine.
Options UsualOptions(Session& session);

// Shows one option on the main form, if that has something that shows it.
void ShowOption(Session& session, const OptionKey& key);

// The columns that a new user finds where paths are native, before any options were read.
void TakeFirstColumns(Session& session);

// Writes the options to `strOptionFile`; after a failure, which is told, the old file stands. A
// file that could not be opened at the start is left as it is.
void SaveOptionFile(Session& session);

// The copy of the options file that each start makes, "TXOptionFile.bak".
void BackUpOptionFile(Session& session);

// The whole text of the options file.
std::string OptionFileText(const Session& session);

// Tells the list which columns show and how it is sorted.
void ApplyColumnsToList(Session& session);

// "%UserProfile%\Documents", or "%Documents%" where only that one exists.
std::string DocumentsFolder(Session& session);

} // namespace tarvix::session
