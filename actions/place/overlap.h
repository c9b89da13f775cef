#pragma once

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct Outcome;

// What may be done about a duplicate.
enum class DuplicateUse {
    kKeep,    // it stays, the object in hand goes beside it
    kReplace, // it goes to the recycle bin
};

// Whether what stands at `strDestination` is the object in hand itself, reached by another road (a
// link, a second drive letter, a second name of one file), or for kReplace whether the one lies in
// the other. Then nothing may be done, which is told, or in automatic mode logged, and noted in
// `outcome`. True, too, when it can't be found out, which is an error of the object.
bool RefusesOverlap(session::Session& session, DuplicateUse use, Outcome& outcome);

// Tells, or in automatic mode logs, that the object in hand would be written on itself.
void TellOntoItself(session::Session& session);

} // namespace tarvix::actions
