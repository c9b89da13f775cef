#pragma once

#include "actions/place/outcome.h"
#include "actions/run/renamed_folders.h"
#include "platform/file_system.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvix::session {
struct Session;
}

namespace tarvix::actions {

struct ActionRun;

// The objects of the selection while they get other names in their folders: where each of them is
// by then.
class InPlace {
  public:
    InPlace(session::Session& session, ActionRun& run) : session_(session), run_(run) {}

    // Present paths: as people see it, and as the file system has it.
    std::string Path(std::size_t index) const;
    std::string ActualPath(std::size_t index) const;

    // A rename to a place in its folder that was found free, and one to a name made free from that
    // of `path` by the rule for duplicates. Either gives what became of it.
    Outcome Give(std::size_t index, const platform::FreePlace& place);
    Outcome GiveUnique(std::size_t index, const std::string& path);

  private:
    std::string Now(std::string_view listed, std::size_t index) const;
    void Note(std::size_t index, const Outcome& outcome);

    session::Session& session_;
    ActionRun& run_;
    RenamedFolders folders_;
    std::unordered_map<std::size_t, std::string> names_; // of those that were renamed
};

} // namespace tarvix::actions
