#pragma once

#include "platform/applications.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::launch {

// Whether what was found is started, or only told.
enum class Doing : std::uint8_t { kStart, kPlan };

// What became of opening one object.
struct Opened {
    std::string application; // its name; empty for an address
    platform::LaunchPlan plan;
    std::string address; // of a shortcut that leads to the net
};

// Opens the object at `path` (drive path, variables expanded) with the desktop's application for
// it; where that can't be started, with the command of its class, and at last with the text
// viewer. A shortcut opens what it leads to. 53 for what is missing, 5 for a program, which is only
// run when that is asked for, 70 when there is no way.
platform::Result<Opened> OpenObject(session::Session& session, std::string_view path, Doing doing);

// The same with an application of one's own choice: the id of a desktop entry, the name of an
// application, or a command. 5 for an application that isn't there.
platform::Result<Opened> OpenWith(session::Session& session, std::string_view choice,
                                  std::span<const std::string> paths, Doing doing);

// Only the desktop's application: 53 for what is missing, 70 when there is none or it can't start.
platform::Result<Opened> StartDoc(session::Session& session, std::string_view path, Doing doing);

// Shows the object at `path` as text in the editor. 53, 70 as above.
platform::Result<Opened> ViewAsText(session::Session& session, const std::string& path,
                                    Doing doing);

// Runs the program at `path` as it is, or a foreign one with the application that runs such. 53, 70
// without the right to run it, 5 for what is no program.
platform::Result<Opened> RunProgram(session::Session& session, const std::string& path,
                                    Doing doing);

} // namespace tarvix::launch
