#pragma once

#include "platform/error.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvix::batch {

// What an automated move is asked to do, in the search locations and with the criteria that stand
// in the window. Paths in drive form.
struct MoveBatch {
    std::string searchList;
    std::string destinationList;
    bool renamesDuplicates = false; // else they are skipped
    bool thenFiles = false;         // the lists again, for files
    bool emptiesFolders = false;    // at the end
};

// One line of the search list before anything is moved.
struct PlannedStep {
    std::string search;
    std::string destination; // as the list has it
    std::int64_t matches = 0;
    bool isThere = false; // the folder
};

// One line of the search list, and what became of what it found.
struct BatchStep {
    std::string search;
    std::string destination; // as the list has it
    std::int64_t done = 0;
    std::int64_t skipped = 0;
    std::int64_t duplicates = 0; // of the skipped
    std::int64_t failed = 0;
    std::int64_t copiedOnly = 0; // of the done, those whose originals still stand
    std::int64_t notReached = 0;
    bool isSkipped = false; // the user went on to the next search
    std::string wrong;      // why nothing of it was done; empty when all went well
};

struct BatchOutcome {
    std::vector<BatchStep> steps;
    std::int64_t answered = 0; // questions that nobody was asked
    bool isStopped = false;
    std::optional<platform::PlatformError> error; // that ended it; it was told and recorded

    // Whether a step was left out, or an object not moved as asked.
    bool HasErrors() const;
};

} // namespace tarvix::batch
