#include "session/tools.h"

#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "platform/try.h"
#include "session/session.h"

#include <fmt/core.h>

#include <array>
#include <utility>

namespace tarvix::session {

namespace {

// Commands of programs that do well, best first; players with the switch that adds to their list.
constexpr std::array kEditors{"gnome-text-editor", "gedit", "kate",  "kwrite",    "xed",
                              "mousepad",          "pluma", "geany", "featherpad"};
constexpr std::array kPlayers{"vlc",
                              "audacious -e",
                              "qmmp -e",
                              "deadbeef --queue",
                              "strawberry -a",
                              "clementine -a",
                              "celluloid --enqueue",
                              "smplayer -add-to-playlist",
                              "rhythmbox-client --enqueue",
                              "totem --enqueue",
                              "mpv --player-operation-mode=pseudo-gui --"};
constexpr std::array kHexEditors{"ghex", "okteta", "bless", "wxHexEditor", "imhex"};

struct ToolFacts {
    ToolKind kind;
    std::string_view key;
    std::string PlatformSettings::*setting;
};

constexpr std::array kFacts{
    ToolFacts{ToolKind::kEditor, "Editor", &PlatformSettings::editor},
    ToolFacts{ToolKind::kPlayer, "Player", &PlatformSettings::player},
    ToolFacts{ToolKind::kSecondPlayer, "SecondPlayer", &PlatformSettings::secondPlayer},
    ToolFacts{ToolKind::kHexEditor, "HexEditor", &PlatformSettings::hexEditor},
    ToolFacts{ToolKind::kTerminal, "Terminal", &PlatformSettings::terminal}};

std::string_view LastPart(std::string_view native) {
    return native.substr(native.rfind('/') + 1);
}

// Of a command as people know it.
std::string NameOf(std::string_view program) {
    const std::string_view name = LastPart(program);
    return name == "vlc" ? "VLC" : std::string(name);
}

// The first of `known` that is installed and isn't that program; empty for none.
template <class Known>
std::string FirstInstalled(platform::Applications& applications, const Known& known,
                           std::string_view other = {}) {
    for (const std::string_view command : known) {
        const bool isOther = !other.empty() && command.substr(0, command.find(' ')) == other;
        if (!isOther && applications.ProgramOf(command)) return std::string(command);
    }
    return {};
}

std::string_view FirstWord(std::string_view command) {
    return command.substr(0, command.find(' '));
}

// Whether the desktop's own was found; one that needs a terminal is none where there is none.
bool TakeFromDesktop(platform::Applications& applications, Tool& tool, const char* type) {
    auto own = applications.DefaultFor(type);
    if (!own || (own->isTerminal && !applications.InTerminal({.arguments = {""}}))) return false;
    tool.application = std::move(own->id);
    tool.name = std::move(own->name);
    tool.isFound = true;
    return true;
}

bool TakeCommand(platform::Applications& applications, Tool& tool, std::string command) {
    if (command.empty()) return false;
    const auto program = applications.ProgramOf(command);
    tool.name = NameOf(program ? std::string_view(*program) : FirstWord(command));
    tool.command = std::move(command);
    tool.isFound = program.has_value();
    return true;
}

bool TakeTerminal(platform::Applications& applications, Tool& tool) {
    const auto process = applications.InTerminal({.arguments = {""}});
    if (!process) return false;
    tool.name = NameOf(process->arguments.front());
    tool.isFound = true;
    return true;
}

// Fills in what stands for a setting that is empty.
void FindInstalled(Session& session, ToolKind kind, Tool& tool) {
    auto& applications = session.platform.applications;
    switch (kind) {
    case ToolKind::kEditor:
        if (TakeFromDesktop(applications, tool, "text/plain")) return;
        TakeCommand(applications, tool, FirstInstalled(applications, kEditors));
        return;
    case ToolKind::kPlayer:
        if (applications.ProgramOf(kPlayers.front())) {
            TakeCommand(applications, tool, kPlayers.front());
        } else if (!TakeFromDesktop(applications, tool, "audio/mpeg")) {
            TakeCommand(applications, tool, FirstInstalled(applications, kPlayers));
        }
        return;
    case ToolKind::kSecondPlayer: {
        const Tool first = FindTool(session, ToolKind::kPlayer);
        const std::string_view other =
            first.command.empty()
                ? std::string_view(first.application).substr(0, first.application.find('.'))
                : FirstWord(first.command);
        TakeCommand(applications, tool, FirstInstalled(applications, kPlayers, other));
        return;
    }
    case ToolKind::kHexEditor:
        TakeCommand(applications, tool, FirstInstalled(applications, kHexEditors));
        return;
    case ToolKind::kTerminal:
        TakeTerminal(applications, tool);
        return;
    }
}

} // namespace

bool Tool::IsVlc() const {
    const std::string_view first = std::string_view(command).substr(0, command.find(' '));
    return LastPart(first) == "vlc" || application == "vlc.desktop";
}

Tool FindTool(Session& session, ToolKind kind) {
    const ToolFacts& facts = kFacts[static_cast<std::size_t>(kind)];
    auto& applications = ApplicationsOf(session);
    Tool tool{.key = facts.key};
    if (!TakeCommand(applications, tool, session.state.platformSettings.*facts.setting)) {
        FindInstalled(session, kind, tool);
    }
    return tool;
}

platform::Applications& ApplicationsOf(Session& session) {
    auto& applications = session.platform.applications;
    applications.UseTerminal(session.state.platformSettings.terminal);
    return applications;
}

platform::Result<platform::LaunchPlan> PlanTool(Session& session, const Tool& tool,
                                                std::span<const std::string> paths,
                                                std::string_view folder,
                                                std::string_view switches) {
    auto& applications = session.platform.applications;
    std::string command = tool.command;
    if (command.empty() && !switches.empty() && tool.IsVlc()) command = "vlc";
    if (!command.empty()) {
        if (!switches.empty()) command.append(" ").append(switches);
        return applications.PlanCommand(command, paths, folder);
    }
    if (!tool.application.empty()) {
        return applications.PlanApplication(tool.application, paths, folder);
    }
    return platform::Failure(platform::kPermissionDenied,
                             fmt::format("No program is set as {}.", tool.key));
}

platform::Result<void> TryTool(Session& session, ToolKind kind) {
    auto& applications = session.platform.applications;
    const std::string home = session.platform.environment.Get("UserProfile").value_or("");
    const Tool tool = FindTool(session, kind);
    if (kind == ToolKind::kTerminal) {
        const std::string shell = session.platform.environment.Get("SHELL").value_or("");
        const std::string native = session.platform.paths.ToNative(shell);
        TX_TRY_ASSIGN(auto process,
                      applications.InTerminal({.arguments = {native.empty() ? "sh" : native},
                                               .folder = session.platform.paths.ToNative(home)}));
        return applications.Start({.name = tool.name, .processes = {std::move(process)}});
    }
    TX_TRY_ASSIGN(const auto plan, PlanTool(session, tool, {}, home));
    return applications.Start(plan);
}

} // namespace tarvix::session
