#pragma once

#include "platform/error.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::platform {

// A program with an entry in the desktop's menus.
struct Application {
    std::string id;          // of its desktop entry, as "org.gnome.eog.desktop"
    std::string name;        // in the user's language
    std::string icon;        // of the icon theme, or a native path; may be empty
    bool isTerminal = false; // runs in a terminal
    bool operator==(const Application&) const = default;
};

// One process to start, all in native form.
struct PlannedProcess {
    std::vector<std::string> arguments; // the program first
    std::string folder;                 // where it begins; the home folder when it is gone
    // Variables that it has besides those of this process.
    std::vector<std::pair<std::string, std::string>> variables = {};
};

// What starting something comes to, before anything has happened.
struct LaunchPlan {
    std::string name; // of the application or program, for people
    std::vector<PlannedProcess> processes;
    // An application that the session bus starts is handed addresses; `processes` are for where
    // the bus can't start it. Empty for others.
    std::string busName;
    std::vector<std::string> addresses;
    bool notifiesStart = false; // it tells the desktop when it is up
};

// What a file is to whoever wants to run it.
enum class ProgramKind : std::uint8_t {
    kNone,    // no program
    kNoRight, // one that this user has no right to run
    kNative,  // runs here: a binary, or a script that names its interpreter
    kForeign, // an .exe
};

// The applications of the desktop, and programs of this machine as processes of their own: they get
// no descriptor of ours (0 to 2 are /dev/null), begin in a folder, and outlive this program.
// Objects are drive paths unless it says otherwise; other programs get native ones.
class Applications {
  public:
    virtual ~Applications() = default;

    // The type of an object, as "text/plain" or "inode/directory", by its name and, where that
    // tells nothing, its first bytes; links are followed. Empty when it is missing.
    virtual std::string TypeOf(std::string_view path) = 0;
    // The type of files of such a name; empty when the desktop knows none.
    virtual std::string TypeOfName(std::string_view name) = 0;
    // What opens objects of a type unless asked otherwise.
    virtual std::optional<Application> DefaultFor(std::string_view type) = 0;
    // What can open objects of all these types, that default of the first type in front.
    virtual std::vector<Application> RecommendedFor(std::span<const std::string> types) = 0;
    // All that the menus show, by name.
    virtual std::vector<Application> All() = 0;
    virtual std::optional<Application> Find(std::string_view id) = 0;
    // The native path of the program that a command ("vlc --no-video") begins with; nothing when
    // there is none, or the command can't be read.
    virtual std::optional<std::string> ProgramOf(std::string_view command) = 0;
    virtual ProgramKind KindOf(std::string_view path) = 0;
    // Whether a file that names commands, such as a desktop entry or a service menu, may be
    // followed: it has the right to run, or belongs to the system's administrator alone.
    virtual bool IsTrusted(std::string_view path) = 0;

    // How an application opens objects, by the rules of its desktop entry. `folder` is where it
    // begins unless its entry names another. 53 for an object that is missing, 5 for an unknown
    // application or an entry that names no program, 70 when it needs a terminal and there is none.
    virtual Result<LaunchPlan> PlanApplication(std::string_view id,
                                               std::span<const std::string> paths,
                                               std::string_view folder) = 0;
    // How a command opens objects: behind its own arguments, or where it has %f, %F, %u or %U.
    // 53 as above, 5 for a command that can't be read, 70 when its program isn't there.
    virtual Result<LaunchPlan> PlanCommand(std::string_view command,
                                           std::span<const std::string> paths,
                                           std::string_view folder) = 0;
    // How a program runs by itself. 53 when it is missing, 70 without the right to run it, 5 when
    // it is none of this machine.
    virtual Result<LaunchPlan> PlanProgram(std::string_view path, std::string_view folder) = 0;
    // The same process in a terminal: in that of `UseTerminal`, or the first that is found. 70 when
    // there is none.
    virtual Result<PlannedProcess> InTerminal(PlannedProcess process) = 0;
    // The command to whose end a program and its arguments are added, as "xterm -e"; empty for the
    // first that is found.
    virtual void UseTerminal(std::string_view command) = 0;

    // Starts all processes of a plan and returns once they run, without waiting for their end. 70
    // at the first that can't be started, which ends it.
    virtual Result<void> Start(const LaunchPlan& plan) = 0;

    // Shows objects selected in their folder, in the desktop's file manager; where none takes
    // that, opens their folders. 53 when all are missing, 70 when nothing can show them.
    virtual Result<void> ShowInFolder(std::span<const std::string> paths) = 0;
    // Shows the desktop's trash in its file manager; where none takes that, the folder of what this
    // user's trash holds. 70 when nothing can show it, 76 when there is no trash yet.
    virtual Result<void> ShowTrash() = 0;
    // Puts files at the end of the list of a player that runs and takes them over the session bus
    // (MPRIS), named as the program of `command`. False, and nothing was added, when there is none.
    // 70 when it takes only some.
    virtual Result<bool> Enqueue(std::string_view command, std::span<const std::string> paths) = 0;
    // The same, and the first of them plays at once.
    virtual Result<bool> PlayNow(std::string_view command, std::span<const std::string> paths) = 0;
};

} // namespace tarvix::platform
