#pragma once

#include "cli/command_prompts.h"
#include "cli/host.h"
#include "cli/run_program.h"
#include "cli/typed_paths.h"

#include <expected>
#include <string>
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
    // Fills in the criteria and searches. kDone; kSomeFailed when the search was cut short or
    // passed objects over; kBadRequest when the form refused it.
    int Search(results::Program& program, const Criteria& criteria,
               const std::vector<std::string>& answers);

  private:
    Host& host_;
    TypedPaths paths_;
    session::ScriptedPrompts scripted_;
    CommandPrompts prompts_{scripted_, host_};
    std::vector<std::string> locations_;
};

} // namespace tarvix::cli
