#pragma once

namespace tarvix::fields {
struct DuplicateQuestion;
}
namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;
struct Clash;

// What a window tells of two objects that want the same place besides their own facts: which is
// larger and which is newer, whether both hold the same (short files of one size are read), the
// name that a rename would give, how far the action is and what a cancel would leave undone.
void TellDifferences(session::Session& session, const ActionRun& run, const Clash& clash,
                     fields::DuplicateQuestion& question);

} // namespace tarvix::actions
