// The program without a desktop, for what is timed inside it.
#pragma once

#include "app/program.h"
#include "platform/linux/linux_platform.h"
#include "session/scripted_prompts.h"

#include <chrono>
#include <string>

namespace tarvix::bench {

// Started, with its data in a folder (native path), and every prompt answered safely.
class BareProgram {
  public:
    explicit BareProgram(const std::string& dataFolder)
        : machine_(OptionsFor(dataFolder)), program_(machine_.Parts(), prompts_) {
        prompts_.SetFallback(session::ScriptedPrompts::Fallback::kSafe);
        program_.Start("");
    }

    app::Program& operator*() { return program_; }
    app::Program* operator->() { return &program_; }

  private:
    static platform::LinuxOptions OptionsFor(const std::string& dataFolder) {
        platform::LinuxOptions options;
        options.dataFolder = dataFolder;
        options.hasDesktop = false;
        return options;
    }

    platform::LinuxPlatform machine_;
    session::ScriptedPrompts prompts_;
    app::Program program_;
};

// Starts when it is made.
class Watch {
  public:
    double Seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    }

  private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

} // namespace tarvix::bench
