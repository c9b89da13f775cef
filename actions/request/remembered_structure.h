#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRequest;

// A window remembers each destination together with the folder structure that it was last used
// with, in a file of the data folder. Fronts without windows, and batches, have what they set.

// Chooses the structure of the destination in the box; none for one that is not remembered.
void OfferStructureOf(session::Session& session);
// Notes what an action is about to use, unless that is noted already. What can't be written is
// left.
void RememberStructure(session::Session& session, const ActionRequest& request);

} // namespace tarvix::actions
