#pragma once

#include <string>
#include <string_view>

namespace tarvix::session {
struct Session;
}

namespace tarvix::launch {

// What the class of an object says about opening it.
struct ClassCommand {
    std::string command;       // the path follows behind it; empty when the class has none
    bool startsItself = false; // the object is the program
};

// A registered command line without the place of its argument, which is " %1", " "%1" with
// whatever stands behind, or " /idlist"; blanks and null characters at its end go.
std::string StripCommandArguments(std::string_view command);

// The class for what has none of its own: "Unknown", "*", or the text viewer.
std::string FindAlternateFileType(session::Session& session);

// By the class of the object at `path` (drive path): that of folders, that of its extension, or
// the one for what has none.
ClassCommand FindClassCommand(session::Session& session, std::string_view path, bool isFolder);

} // namespace tarvix::launch
