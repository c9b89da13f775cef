#pragma once

#include <cstddef>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// The four loops over the selection, in list order, each object over all its destinations. They
// differ in what they do where something stands at the destination already; they end early when
// the user stops, cancels a prompt, or the disk is full. What became of each object is counted in
// `lastAction`.
void SkipAllDuplicates(session::Session& session);
void OverwriteAllDuplicates(session::Session& session);
void RenameAllDuplicates(session::Session& session);
void Ask(session::Session& session);

// Looks what stands at `strDestination`: sets `strDirResult`, its name or empty, and
// `blnDestIsFile`. A path too long to look at is asked about first and may be shortened.
void DetermineIfDuplicateExists(session::Session& session);

} // namespace tarvix::actions
