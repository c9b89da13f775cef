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

// What a generation of playlists is asked to do, with the criteria that stand in the window: one
// for each search, of what lies in the search locations, or one for each search in each folder.
// Paths in drive form.
struct PlaylistBatch {
    std::string searchList;
    std::string folderList;       // of the folders that are searched, and hold the playlists
    std::string folder;           // of all playlists; empty where there is a list of folders
    bool writesFullPaths = false; // as entries, else names

    bool IsFull() const { return folderList.empty(); }
};

// One step of a batch before anything is done.
struct PlannedStep {
    std::string search;
    std::string destination; // as the list has it
    std::int64_t matches = 0;
    bool isThere = false; // the folder
};

// One step of a batch, and what became of what it found.
struct BatchStep {
    std::string search;
    std::string destination; // as the list has it
    std::int64_t done = 0;   // objects moved, entries written
    std::int64_t skipped = 0;
    std::int64_t duplicates = 0; // of the skipped
    std::int64_t failed = 0;
    std::int64_t copiedOnly = 0; // of the done, those whose originals still stand
    std::int64_t notReached = 0;
    std::int64_t unread = 0; // what its search could not read
    bool isSkipped = false;  // the user went on to the next search
    std::string file;        // that was written, in drive form
    std::string wrong;       // why nothing of it was done; empty when all went well

    // Whether it did all that it was asked to; duplicates skipped by rule are part of that.
    bool IsDone() const;
};

struct BatchOutcome {
    std::vector<BatchStep> steps;
    std::int64_t answered = 0;   // questions that nobody was asked
    std::int64_t emptied = 0;    // empty folders that were deleted
    std::int64_t stillThere = 0; // those that could not be
    bool isStopped = false;
    std::optional<platform::PlatformError> error; // that ended it; it was told and recorded

    // Whether a step was left out, or something not done as asked.
    bool HasErrors() const;
};

// "12 moved, 1 skipped as it exists"; `done` is what was done to the objects of the first figure.
std::string ResultText(const BatchStep& step, std::string_view done);

} // namespace tarvix::batch
