#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarvix::sweep {

namespace fs = std::filesystem;

// What happens to one file system call of a program.
enum class Fault { kNone, kKillBefore, kKillAfter, kFail };

struct Plan {
    int call = 0; // counted from 1 over all threads
    Fault fault = Fault::kNone;
    int error = 0; // of kFail, an errno value
};

struct TracedRun {
    int calls = 0;       // that were counted
    bool isHit = false;  // the planned call was reached
    std::string hitCall; // its name
    std::string hitPath; // what it was about
    int exitCode = -1;   // -1 when the program was killed
};

// Becomes the program that `words` begin with, in `folder`, its output in files of these names
// there.
[[noreturn]] void BecomeProgram(const std::vector<std::string>& words, const fs::path& folder,
                                void (*prepare)() = nullptr);

// Whether this machine lets a process trace its child.
bool CanTrace();

// Runs `words` in `folder` and does as planned at one call that concerns anything below one of
// `watched` (native folders); other calls are neither counted nor touched. stdout and stderr go to
// files of these names in `folder`.
TracedRun RunTraced(const std::vector<std::string>& words, const fs::path& folder,
                    const std::vector<fs::path>& watched, const Plan& plan);

} // namespace tarvix::sweep
