#pragma once

#include "results/program.h"

namespace tarvix::app {

// Every routine of every subsystem, by its event.
void FillEvents(session::EventTable& events);

// The program that both fronts run.
class Program : public results::Program {
  public:
    Program(const platform::Platform& machine, session::PromptService& prompts)
        : results::Program(machine, prompts, FillEvents) {}
};

} // namespace tarvix::app
