#include "options/tool_fields.h"

#include "options/find_options.h"
#include "session/event_table.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "session/settings/platform_settings.h"
#include "session/tools.h"
#include "text/characters.h"

#include <fmt/core.h>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvix::options {

namespace {

using fields::FrmOptions;
using session::Session;
using session::ToolKind;

constexpr const char* kShowTools = "frmOptions.ShowTools";

// While it lives the settings are those that the window has.
class TypedSettings {
  public:
    explicit TypedSettings(Session& session)
        : session_(session), inForce_(session.state.platformSettings) {
        for (const fields::MachineField& field : session.forms.frmOptions.machine) {
            const std::string typed = field.control->ValueText();
            session::SetSetting(session.state.platformSettings, field.key, text::Trim(typed));
        }
    }
    ~TypedSettings() { session_.state.platformSettings = std::move(inForce_); }
    TypedSettings(const TypedSettings&) = delete;
    TypedSettings& operator=(const TypedSettings&) = delete;

  private:
    Session& session_;
    session::PlatformSettings inForce_;
};

std::string FoundText(const session::Tool& tool) {
    if (tool.isFound) return fmt::format("Found: {}", tool.name);
    return tool.name.empty() ? "No such program is installed."
                             : fmt::format("Not found: {} is not installed here.", tool.name);
}

// The controls of one program.
struct ToolField {
    ToolField(FrmOptions& form, ToolKind toolKind, std::string_view key)
        : kind(toolKind), lblFound(form, fmt::format("lblFound{}", key)),
          cmdTest(form, fmt::format("cmdTest{}", key), "Test") {
        cmdTest.ToolTipText = "Starts the program as it is typed here.";
    }
    ToolKind kind;
    fields::Label lblFound;
    fields::CommandButton cmdTest;
};
using ToolFields = std::vector<std::unique_ptr<ToolField>>;

void MakeFields(Session& session, ToolFields& tools) {
    for (const ToolKind kind : session::kTools) {
        const session::Tool tool = session::FindTool(session, kind);
        tools.push_back(std::make_unique<ToolField>(session.forms.frmOptions, kind, tool.key));
    }
}

void Show(Session& session, ToolFields& tools) {
    const TypedSettings typed(session);
    if (tools.empty()) MakeFields(session, tools);
    for (const auto& tool : tools) {
        const auto found = session::FindTool(session, tool->kind);
        tool->lblFound.Caption = FoundText(found);
        tool->cmdTest.Enabled = found.isFound && !session.state.blnSearching;
    }
}

void Test(Session& session, ToolKind kind, std::string_view key) {
    const TypedSettings typed(session);
    const auto tried = session::TryTool(session, kind);
    if (tried) return session::LogTimed(session, fmt::format(" User tested {}.", key));
    session.MsgBox(session::PromptId::kOptionInvalid,
                   fmt::format("{} could not be started: {}", key, session.Shown(tried.error())));
}

} // namespace

void ShowTools(Session& session) {
    session.events.Raise(session, kShowTools);
}

void AddToolEvents(session::EventTable& events) {
    auto tools = std::make_shared<ToolFields>();
    events.On(kShowTools,
              [tools](Session& session, const session::EventArgs&) { Show(session, *tools); });
    for (const session::SettingFacts& facts : session::AllSettingFacts()) {
        events.On(fmt::format("frmOptions.txt{}_Change", facts.key),
                  [tools](Session& session, const session::EventArgs&) {
                      Show(session, *tools);
                      ShowChangedCount(session);
                  });
    }
    constexpr std::array kKeys{"Editor", "Player", "SecondPlayer", "HexEditor", "Terminal"};
    for (std::size_t i = 0; i < kKeys.size(); ++i) {
        events.On(fmt::format("frmOptions.cmdTest{}_Click", kKeys[i]),
                  [kind = session::kTools[i], key = std::string(kKeys[i])](
                      Session& session, const session::EventArgs&) { Test(session, kind, key); });
    }
}

} // namespace tarvix::options
