#pragma once

#include "platform/applications.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tarvix::session {

struct Session;

// The programs that the settings of this machine name by a command.
enum class ToolKind : std::uint8_t { kEditor, kPlayer, kSecondPlayer, kHexEditor, kTerminal };
inline constexpr std::array kTools{ToolKind::kEditor, ToolKind::kPlayer, ToolKind::kSecondPlayer,
                                   ToolKind::kHexEditor, ToolKind::kTerminal};

// What stands for one of them as things are: the command of its setting, or what was found since
// that is empty, VLC first as the player, then the desktop's own, then what is known to do well.
struct Tool {
    std::string_view key;    // of its setting, such as "HexEditor"
    std::string command;     // of the setting, or one that is installed
    std::string application; // else the id of the desktop's own
    std::string name;        // of the program, for people; empty when there is none
    bool isFound = false;    // installed here

    // Whether the setting names a program that isn't there.
    bool IsGone() const { return !isFound && !command.empty(); }
    // Whether it is that player, whose switches are known.
    bool IsVlc() const;
};

Tool FindTool(Session& session, ToolKind kind);

// How the tool opens objects (drive paths, none for its bare window), beginning in `folder`, with
// `switches` behind its command. As Applications::PlanCommand; 70 where it isn't found.
platform::Result<platform::LaunchPlan> PlanTool(Session& session, const Tool& tool,
                                                std::span<const std::string> paths,
                                                std::string_view folder,
                                                std::string_view switches = {});

// Starts the tool with nothing to open, in the home folder, so that its command is tried. A
// terminal opens on the user's shell.
platform::Result<void> TryTool(Session& session, ToolKind kind);

// The applications of the machine, which use the terminal of the settings from here on.
platform::Applications& ApplicationsOf(Session& session);

} // namespace tarvix::session
