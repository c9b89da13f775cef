#pragma once

#include "generate/list_request.h"
#include "platform/error.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::generate {

class ListSource;

// What became of one list.
struct ListOutcome {
    std::int64_t written = 0;              // entries
    std::int64_t duplicates = 0;           // possible ones that were noted
    std::int64_t leftOut = 0;              // entries that can't stand in a list
    std::vector<std::string> leftOutPaths; // the first few of them, drive paths
    bool isStopped = false;                // by the user; nothing was changed
    std::optional<platform::PlatformError> error;
    std::string failedFile; // that the error is about

    bool IsDone() const { return !isStopped && !error; }
};

// What was left out, for people; empty when nothing was.
std::string LeftOutText(const session::Session& session, const ListOutcome& outcome);

// The whole text of a list, handed on in pieces; `take` gives false to end it there. Shows how far
// it is, yields, and ends at the stop button.
ListOutcome MakeListText(session::Session& session, const ListRequest& request, ListSource& source,
                         const std::function<bool(std::string_view)>& take);

// Writes the file of the request, and its second file where there is one; each is put in its place
// when it is whole, so that after a stop or a failure the old ones stand as they were.
// `secondFile` is empty for none.
ListOutcome WriteList(session::Session& session, const ListRequest& request,
                      const std::string& secondFile);

// The first lines that would be written, less their ends; a number list shows those of its plan.
std::vector<std::string> FirstLines(session::Session& session, const ListRequest& request,
                                    std::size_t count);

} // namespace tarvix::generate
