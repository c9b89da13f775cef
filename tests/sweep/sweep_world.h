#pragma once

#include "tests/sweep/traced_run.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::sweep {

// What a run left of the files that stood before it.
struct Damage {
    std::vector<std::string> lost;   // contents that are nowhere any more, by the path they had
    std::vector<std::string> broken; // files under a name of ours that are no whole content
    std::vector<std::string> gone;   // places where a file stood and nothing stands
    std::vector<std::string> left;   // temporary files
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
    std::vector<std::string> WordsOf(const std::string& command) const;
    std::string Filled(std::string words) const;

    fs::path root_;
    bool isMounted_ = false;
    fs::path disk_;                  // on another file system; empty for none
    std::set<std::string> contents_; // of the files that were made; each begins with its path
    std::vector<fs::path> targets_;  // files that stand where others will go
};

} // namespace tarvix::sweep
