#pragma once

#include <fmt/core.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::text {
struct DateTime;
}

namespace tarvix::session {

enum class PromptId : std::uint8_t;
struct Session;

// The texts that name a part of another system or advise what would be false here. Each has its
// told words, and those that are true on a machine with native paths; `session/wordings.cpp` has
// both side by side.
enum class Wording : std::uint8_t {
    kFirstRun,
    kWindowTooSmall,
    kReallyDelete, // in front of kConfirmDelete where folders go with all that they hold
    kConfirmDelete,
    kDestinationTooLong,
    kLocationTooShort,
    kLocationMissing, // the folder follows
    kBin,             // where deleted objects go, behind "the"
    kRecycleButton,
    kRecycleAtOnce, // the status while one call recycles all
    kRecycleOrDeleteAtOnce,
    kRecycleProgress, // takes how many of how many objects
    kRecycleRefused,  // takes the object; whether to delete it for good
    kRecycleRefusedTitle,
    kReplaceRefused, // takes what could not be recycled, and so was not replaced
    kRecycleFolderButton,
    kRecycleFoldersButton,
    kRecycleFileForFolder,
    kRecycleFolderForFile,
    kNotOpened, // what opens no object
    kForceNeedsPlayer,
    kNoPlayers,  // behind what was not played
    kPlayerGone, // the program that the setting names
    kSecondPlayerGone,
    kHexEditorMissing,
    kNotAProgram,
    kContextMenu, // what its warning says
    kEnd
};

// Whether this machine's own words count: people are shown native paths on one that has them.
bool SpeaksPlainly(const Session& session);

// The told words.
std::string_view Told(Wording wording);
// What counts on this machine: the told words, unless people are shown native paths on one that has
// them.
std::string_view Worded(const Session& session, Wording wording);

// The same with its values filled in.
template <class... Values>
std::string Worded(const Session& session, Wording wording, const Values&... values) {
    return fmt::vformat(Worded(session, wording), fmt::make_format_args(values...));
}

// A date in a prompt: as the list has it, or in the told form.
std::string WordedDate(const Session& session, const text::DateTime& date);

// What a window has above a prompt in place of a title that names a routine; else `title`.
std::string_view WindowTitle(PromptId id, std::string_view title);

} // namespace tarvix::session
