#pragma once

#include "platform/traits.h"

namespace tarvix::platform {

class FileSystem;
class NativePaths;
class Clock;
class Environment;
class Registry;
class Launcher;
class ContentTypes;
class Applications;
class Desktop;
class Trash;

// All that a session needs of the machine. The owner is whoever composed the program.
struct Platform {
    FileSystem& files;
    NativePaths& paths;
    Clock& clock;
    Environment& environment;
    Registry& registry;
    Launcher& launcher;
    ContentTypes& contentTypes;
    Applications& applications;
    Desktop& desktop;
    Trash& trash;
    Traits traits{};
};

} // namespace tarvix::platform
