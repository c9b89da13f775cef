#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarvix::actions {

// What became of one object at one of its destinations.
enum class OutcomeKind : std::uint8_t {
    kCopied,
    kMoved,
    kRenamed,
    kOverwrote, // what stood there is in the recycle bin
    kReplaced,  // the same, by the user's choice for a folder
    kSkippedDuplicate,
    kOntoItself,    // on itself or into its own subfolder
    kNoDestination, // the rule gave no folder
    kLongPath,      // left alone since its new path is too long
    kProtected,     // hidden or system, and not to be overwritten
    kUnchanged,     // a name in which the rename finds nothing to do
    kLeftAlone,     // for another reason, that was told or logged
    kChanged,       // not what the search saw, so left as it is
    kStopped,       // the user ended the action in the middle of it; nothing was done
    kFailed,
};

struct Outcome {
    std::size_t index = 0;      // in the selection
    std::string strDestination; // where it stands, or would stand
    OutcomeKind kind = OutcomeKind::kLeftAlone;
    bool isPlaced = false;    // it stands there, even if a step behind that failed
    bool isNewName = false;   // a duplicate that got another name, or was to
    bool isKeptApart = false; // since this run placed what stands there
    bool isTaken = false;     // nothing was done: something stands there since the duplicate test
    bool endsRun = false;     // the user cancelled what is left
    int errorNumber = 0;      // of a failure
    std::string error;        // of a failure, in one sentence; may be empty
    std::string why = {};     // of what is left alone, in a few words; may be empty
};

// Follows an action object by object.
class OutcomeSink {
  public:
    virtual ~OutcomeSink() = default;
    // Called for each outcome, once the totals have it.
    virtual void Settled(const Outcome& outcome) = 0;
    // Whether nothing is really done, and nobody is asked.
    virtual bool IsRehearsal() const { return true; }
};

} // namespace tarvix::actions
