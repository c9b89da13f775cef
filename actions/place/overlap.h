#pragma once

#include <optional>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct Clash;
struct Object;
struct Outcome;

// What may be done about a duplicate.
enum class DuplicateUse {
    kKeep,    // it stays, the object in hand goes beside it
    kReplace, // it goes to the recycle bin
};

// What comes of it when the duplicate is the object itself, reached by another road (a link, a
// second drive letter, a second name of one file), or for kReplace when the one lies in the other:
// nothing may be done, which is told, or in automatic mode logged. So, too, when it can't be found
// out, which is an error of the object. Nothing when the duplicate may be used.
std::optional<Outcome> RefusesOverlap(session::Session& session, const Clash& clash,
                                      DuplicateUse use);

// Whether by their texts an object would be written on itself or into its own subfolder.
bool IsOntoItself(const Object& object, std::string_view destination);
// Tells that, or in automatic mode logs it.
void TellOntoItself(session::Session& session, const Object& object, std::string_view destination);

} // namespace tarvix::actions
