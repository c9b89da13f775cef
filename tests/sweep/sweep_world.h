#pragma once

#include "tests/sweep/traced_run.h"

#include <set>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace tarvix::sweep {

// What a run left of the files that stood before it.
struct Damage {
    std::vector<std::string> lost;    // contents that are nowhere any more, by the path they had
    std::vector<std::string> broken;  // files under a name of ours that are no whole content
    std::vector<std::string> gone;    // replaced files that are neither there nor in a trash
    std::vector<std::string> changed; // sources whose mode is another
    std::vector<std::string> left;    // files and folders under hidden names of the program
};

// A home folder with sources and targets, on one disk and, where there is one, on a second.
class SweepWorld {
  public:
    SweepWorld();
    ~SweepWorld();
    SweepWorld(const SweepWorld&) = delete;
    SweepWorld& operator=(const SweepWorld&) = delete;

    // Makes everything anew.
    void Reset();
    // `command` is the words behind the program's name; "ROOT" and "DISK" in it stand for folders.
    TracedRun Run(const std::string& command, const Plan& plan);
    // The same without a trace; gives the exit code.
    int RunFreely(const std::string& command);
    fs::path Root() const { return root_; }
    Damage Assess() const;
    // "left -> right" lines of everything that stands, for a message.
    std::string Listing() const;

    bool HasSecondDisk() const { return !disk_.empty(); }

  private:
    void AddFile(const fs::path& file);
    std::vector<fs::path> Roots() const;
    void AssessFile(const fs::path& file, std::set<std::string>& found,
                    std::set<std::string>& trashed, Damage& damage) const;
    std::vector<std::string> WordsOf(const std::string& command) const;
    std::string Filled(std::string words) const;

    fs::path root_;
    bool isMounted_ = false;
    fs::path disk_;                  // on another file system; empty for none
    std::set<std::string> contents_; // of the files that were made; each begins with its path
    std::vector<fs::path> targets_;  // files that stand where others will go
    std::vector<std::pair<fs::path, mode_t>> modes_; // of the sources
};

} // namespace tarvix::sweep
