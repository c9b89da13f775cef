#pragma once

#include "cli/command_prompts.h"
#include "cli/host.h"
#include "cli/run_program.h"
#include "cli/typed_paths.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::cli {

// What every command that searches shares: its prompts, its paths, and the search itself.
class Finding {
  public:
    Finding(Host& host, const platform::Platform& machine);

    const TypedPaths& Paths() const { return paths_; }
    CommandPrompts& Prompts() { return prompts_; }

    // Before the program starts: whether the locations exist; else the sentence was told.
    bool CheckLocations(const Criteria& criteria);
    // Fills in the criteria; false when a control refused one, which was told.
    bool Fill(session::Session& session, const Criteria& criteria);
    // Fills in the criteria and searches. kDone; kSomeFailed when the search was cut short or
    // passed objects over; kBadRequest when the form refused it.
    int Search(results::Program& program, const Criteria& criteria,
               const std::vector<std::string>& answers);

    // After a search that ended with `searchCode`: selects all rows and presses the button of an
    // action, whose summary begins with `done` ("Copied"). Nothing found is told by a summary
    // unless `isRehearsal`. `after` takes how many rows were selected; both give exit codes.
    int ActOnAll(session::Session& session, int searchCode, fields::Control& button,
                 std::string_view done, bool isRehearsal,
                 const std::function<int(std::int64_t)>& after);

  private:
    // Whether the button could be pressed; else the sentence was told.
    bool Click(session::Session& session, fields::Control& button);

    Host& host_;
    TypedPaths paths_;
    session::ScriptedPrompts scripted_;
    CommandPrompts prompts_{scripted_, host_};
    std::vector<std::string> locations_;
};

// Clicks the column's head until the list stands as wanted: the first click on another head sorts
// upward, a second one turns the order round.
void SortRows(session::Session& session, const SortRequest& sort);

} // namespace tarvix::cli
