#pragma once

#include "actions/place/outcome.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

// What a source of names has for one object of the selection.
struct NewName {
    std::string name; // whole, drive form; empty where it has none
    // Why it has none; kUnchanged for an object that is to keep its name.
    OutcomeKind without = OutcomeKind::kUnchanged;
    int errorNumber = 0;    // of a failure
    std::string error = {}; // the same, in a sentence
    std::string why = {};   // of an object that is left alone, in a few words

    static NewName Failed(int number, std::string error) {
        return {{}, OutcomeKind::kFailed, number, std::move(error)};
    }
    static NewName LeftAlone(std::string why = {}) {
        return {.without = OutcomeKind::kLeftAlone, .why = std::move(why)};
    }
};

// One for each object, by its index in the selection.
using NewNames = std::vector<NewName>;

// How a run of a source ended.
enum class SourceEnd {
    kRan,
    kRefused, // the source can't be used, which was told: nothing was done
    kStopped, // before the end; what was done stays done
};

// Gets ready for a run over the whole selection: totals, and the stop.
void BeginRenaming(session::Session& session);

// Calls `take` for each object of the selection, by its index, while nothing is renamed yet, with
// the progress shown. False when the user stopped, or ended it in an answer.
bool ForEachSelected(session::Session& session, const std::function<void(std::size_t)>& take);

// The object's name with a text before it and a blank between, the text's characters carried where
// a drive path reserves them.
std::string WithTextBefore(std::string_view text, std::string_view name);

} // namespace tarvix::actions
