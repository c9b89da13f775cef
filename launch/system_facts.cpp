#include "launch/system_facts.h"

#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "platform/text_stream.h"
#include "session/product.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/tools.h"
#include "text/characters.h"
#include "text/numbers.h"

#include <fmt/core.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace tarvix::launch {

namespace {

using session::Session;

constexpr std::size_t kMostLines = 60; // of a file of the system

std::vector<std::string> LinesOf(Session& session, std::string_view native) {
    std::vector<std::string> lines;
    const auto stream = session.files().OpenAsTextStream(session.platform.paths.ToDrive(native),
                                                         platform::OpenMode::kRead);
    if (!stream) return lines;
    while (lines.size() < kMostLines) {
        auto line = (*stream)->ReadLine();
        if (!line) break;
        lines.push_back(std::move(*line));
    }
    return lines;
}

// What stands behind a key and its "=" or ":", without quotes and blanks around.
std::optional<std::string> ValueOf(const std::vector<std::string>& lines, std::string_view key) {
    for (const std::string& line : lines) {
        if (!line.starts_with(key)) continue;
        std::string_view value = std::string_view(line).substr(key.size());
        value.remove_prefix(std::min(value.find_first_not_of(" \t:="), value.size()));
        value = text::Trim(value);
        if (value.size() > 1 && value.starts_with('"') && value.ends_with('"')) {
            value = value.substr(1, value.size() - 2);
        }
        return std::string(value);
    }
    return std::nullopt;
}

// From a number of "kB", which are 1,024 bytes each; as it stands where it is none.
std::optional<std::string> InGigabytes(std::optional<std::string> memory) {
    constexpr double kPerGigabyte = 1024.0 * 1024.0;
    if (!memory) return memory;
    const auto number = text::ParseWholeNumber(memory->substr(0, memory->find(' ')));
    return number ? fmt::format("{:.1f} GiB", *number / kPerGigabyte) : memory;
}

class Facts {
  public:
    void Add(std::string_view name, std::string_view value) {
        if (!value.empty()) text_ += fmt::format("{}: {}\r\n", name, value);
    }
    void AddKnown(std::string_view name, const std::optional<std::string>& value) {
        if (value) Add(name, *value);
    }
    void Part() { text_ += "\r\n"; }
    std::string Take() { return std::move(text_); }

  private:
    std::string text_;
};

void AddDrives(Session& session, Facts& facts) {
    for (const platform::DriveInfo& drive : session.files().Drives()) {
        if (!drive.isReady) continue;
        facts.Add(fmt::format("Drive {}", drive.path.substr(0, 1)),
                  fmt::format("{} ({})", drive.nativeMount, drive.fileSystem));
    }
}

void AddTools(Session& session, Facts& facts) {
    for (const session::ToolKind kind : session::kTools) {
        const session::Tool tool = session::FindTool(session, kind);
        const std::string_view name = tool.name.empty() ? "none" : std::string_view(tool.name);
        facts.Add(tool.key, tool.isFound || tool.name.empty()
                                ? std::string(name)
                                : fmt::format("{} (not found)", name));
    }
}

} // namespace

std::string SystemFacts(Session& session) {
    const auto system = LinesOf(session, "/etc/os-release");
    const auto kernel = LinesOf(session, "/proc/sys/kernel/osrelease");
    if (system.empty() && kernel.empty()) return {};
    const auto& environment = session.platform.environment;
    Facts facts;
    facts.Add(session::kProductName, session::ProductVersion());
    facts.Add("Data folder", session.Shown(session.state.strDataFolder));
    facts.Part();
    facts.AddKnown("System", ValueOf(system, "PRETTY_NAME"));
    if (!kernel.empty()) facts.Add("Kernel", kernel.front());
    facts.AddKnown("Memory", InGigabytes(ValueOf(LinesOf(session, "/proc/meminfo"), "MemTotal")));
    facts.AddKnown("Processor", ValueOf(LinesOf(session, "/proc/cpuinfo"), "model name"));
    facts.AddKnown("Computer", environment.Get("ComputerName"));
    facts.AddKnown("User", environment.Get("UserName"));
    facts.AddKnown("Desktop", environment.Get("XDG_CURRENT_DESKTOP"));
    facts.AddKnown("Session", environment.Get("XDG_SESSION_TYPE"));
    facts.Part();
    AddDrives(session, facts);
    facts.Part();
    AddTools(session, facts);
    return facts.Take();
}

void StartSysInfo(Session& session) {
    const std::string facts = SystemFacts(session);
    if (facts.empty()) {
        session.MsgBox(session::PromptId::kSystemFactsMissing,
                       "System Information Is Unavailable At This Time");
    } else {
        session.MsgBox(session::PromptId::kSystemFacts, facts);
    }
}

} // namespace tarvix::launch
