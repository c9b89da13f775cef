#pragma once

#include "actions/sources/new_names.h"

#include <string>

namespace tarvix::actions {

struct ActionRun;

// Renames of the whole selection by names that come from elsewhere. All names are found before the
// first object is renamed. What an object gets no name for is logged and counted in `lastAction`.

// The title of each object's page goes before its name.
SourceEnd RenameAsTitle(session::Session& session, ActionRun& run);

// Line k of a list (drive path) is the new name of object k; files come before folders. With whole
// names in the request, the list must have one for each object, and they may change places. Ends
// with one message.
SourceEnd RenameFromTextFile(session::Session& session, ActionRun& run, const std::string& strFile);

// The first line of a list that stands in an object's content goes before its name, in parentheses.
SourceEnd RenameFromSelfSearch(session::Session& session, ActionRun& run,
                               const std::string& strFile);

// What the links of a page call the objects that they lead to becomes their names.
SourceEnd RenameFromHTMLSearch(session::Session& session, ActionRun& run,
                               const std::string& strFile);

} // namespace tarvix::actions
