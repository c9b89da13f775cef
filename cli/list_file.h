#pragma once

#include "cli/command_prompts.h"
#include "cli/host.h"

#include <cstdint>
#include <functional>
#include <string>

namespace tarvix::generate {
struct ListRequest;
}

namespace tarvix::cli {

// The file that a command writes through the action window.
class ListFile {
  public:
    struct Target {
        std::string file;       // drive path; empty when there is none
        bool confirmed = false; // whether one that stands already may be replaced
    };
    // Fills in the window and presses OK once it shows. `prompts` must outlive this.
    ListFile(Host& host, CommandPrompts& prompts, const platform::Platform& machine, Target target);

    // What else is to be set in the window.
    void Fill(std::function<void(session::Session&)> fill) { fill_ = std::move(fill); }
    // After the action on so many entries; tells the sum and gives the exit code.
    int End(session::Session& session, std::int64_t wanted) const;

  private:
    void InWindow(session::Session& session) const;

    Host& host_;
    std::string file_;
    std::function<void(session::Session&)> fill_;
};

// Prints a list that needs no file, lines ended by LF. Gives the exit code.
int PrintList(Host& host, session::Session& session, const generate::ListRequest& request);

} // namespace tarvix::cli
