#pragma once

#include "batch/move_batch.h"

#include <string_view>
#include <vector>

namespace tarvix::session {
class EventTable;
struct Session;
} // namespace tarvix::session

namespace tarvix::batch {

// What a batch is called, asks before it starts, and does to the objects that it finds.
struct BatchWords {
    std::string_view title;
    std::string_view question;
    std::string_view done; // "moved"
};

// Whether whoever is asked likes a batch as a table.
bool ShowsTables(const session::Session& session);

// Shows the plan with the question; whether the batch is to start.
bool ConfirmByTable(session::Session& session, const BatchWords& words,
                    const std::vector<PlannedStep>& plan);

// Shows what was done, below the sentence of how it ended.
void TellByTable(session::Session& session, const BatchWords& words, std::string_view ended,
                 const BatchOutcome& outcome);

// The buttons of frmBatch.
void AddTableEvents(session::EventTable& events);

} // namespace tarvix::batch
