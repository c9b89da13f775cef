#pragma once

#include "batch/list_file.h"
#include "batch/move_batch.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
enum class PromptId : std::uint8_t;
} // namespace tarvix::session

namespace tarvix::batch {

// A list that the user picked, with its mark.
struct PickedList {
    std::string path; // in drive form
    ListLength length;
};

// What is called by its name in the questions and the log: "Search", "Destination".
struct ListKind {
    std::string_view name;
    session::PromptId picker;
    ListMarks marks;
    std::string_view routine; // for errors
};

// Has a list picked and counted, and its mark added where it lacks one, if the user says so.
// Nothing when the user cancelled or the list can't be read, which was told.
std::optional<PickedList> PickList(session::Session& session, const ListKind& kind);

// The questions of an automated move, in their order, but for the last: whether to start. Nothing
// when the user cancelled.
std::optional<MoveBatch> AskMoveBatch(session::Session& session);

} // namespace tarvix::batch
