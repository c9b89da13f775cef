#pragma once

#include <string>
#include <vector>

namespace tarvix::session {
struct Session;
}

namespace tarvix::search {

// A place that a search is offered, by its title, with a blank in front and behind.
struct NamedPlace {
    std::string title;
    std::vector<std::string> folders; // drive paths
};

// The places of a machine with native paths: the user's own folders, the mounted media, the whole
// machine and its temporary files. Only those that exist, and each folder once.
std::vector<NamedPlace> NativePlaces(session::Session& session);

} // namespace tarvix::search
