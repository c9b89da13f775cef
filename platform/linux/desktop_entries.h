#pragma once

#include "platform/applications.h"
#include "platform/linux/exec_line.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarvix::platform {

// What a desktop entry says about starting its application; native paths.
struct DesktopEntry {
    Application application;
    ExecLine line;
    std::string folder;  // where it begins; empty for anywhere
    std::string busName; // of an application that the session bus starts
    bool notifiesStart = false;
};

// The entry of that id, or the one in the file of that native path; nothing when there is none, or
// its program is not installed.
std::optional<DesktopEntry> ReadEntry(const std::string& id);

// As Applications has them, of this desktop.
std::optional<Application> DefaultApplication(const std::string& type);
std::vector<Application> ApplicationsForAll(std::span<const std::string> types);
std::vector<Application> ShownApplications();

// The type of what is at a native path, links followed; empty when it is missing.
std::string ContentTypeOf(const std::string& native);
// The type of files of a name; empty when the name tells nothing.
std::string ContentTypeOfName(const std::string& name);

} // namespace tarvix::platform
