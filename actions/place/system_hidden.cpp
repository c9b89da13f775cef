#include "actions/place/system_hidden.h"

#include "actions/place/action_run.h"
#include "actions/place/object.h"
#include "platform/file_system.h"
#include "session/attempt.h"
#include "session/prompt_id.h"
#include "session/session.h"

#include <fmt/core.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tarvix::actions {

namespace {

using session::Session;

constexpr std::uint32_t kHiddenOrSystem = platform::kHidden | platform::kSystem;
constexpr std::string_view kHas = " has the attribute(s) system or hidden. ";

std::string_view KindWord(const Object& object) {
    return object.isFile ? "File " : "Folder ";
}

void TellOnce(Session& session, const ActionRun& run, const Object& object) {
    auto& warned = session.state.blnSystemHiddenWarned;
    if (run.request.strAction != "Move" || warned) return;
    warned = true;
    session.MsgBox(
        session::PromptId::kProtectedCopied,
        fmt::format(
            "{0}\r\n\r\n{1}\r\n\r\n{2}{0}, and all others like it, will be copied and the original "
            "will still exist.\r\nAssuming there are no other errors.\r\n\r\nYou will not see this "
            "warning again this session.",
            session.Shown(object.path), kHas, KindWord(object)));
}

std::string Question(const Session& session, const Object& object, bool isDelete) {
    return fmt::format("{}\r\n{}\r\n{}{}", session.Shown(object.path), kHas, KindWord(object),
                       isDelete
                           ? "was not deleted. \r\n\r\nWould you like to delete anyway?"
                           : "was not overwritten. \r\n\r\nWould you like to overwrite anyway?");
}

// Gives whether the object stays protected.
bool AskOverride(Session& session, ActionRun& run, const Object& object) {
    auto& form = session.forms.frmOverrideDialog;
    form.lblMain.Caption = Question(session, object, run.request.strAction == "Delete");
    form.Focus = &form.cmdNo;
    form.Answer = kOverrideNo;
    session.ShowModal(session::PromptId::kOverrideProtected);
    session.Repaint();
    run.bytOverrideAnswer = form.Answer;
    constexpr std::array<std::string_view, 5> kLines{
        " User selected do not override to: ", " User selected override to: ",
        " User selected do not override to all at: ", " User selected override to all at: ",
        " User selected cancel to all in override form at: "};
    session::LogTimed(session,
                      fmt::format("{}{}", kLines[form.Answer], session.Shown(object.path)));
    return form.Answer != kOverrideYes && form.Answer != kOverrideYesToAll;
}

enum class Override { kMove, kOverwrite, kDelete };

// What the options of this run let happen without a question.
bool IsLet(const session::RunChoices& choices, Override what) {
    switch (what) {
    case Override::kMove:
        return choices.blnAllowMove;
    case Override::kOverwrite:
        return choices.blnAllowOverwrite;
    case Override::kDelete:
        return choices.blnAllowDelete;
    }
    return false;
}

// What automatic mode answers: that of overwriting and that of deleting, each with all in front of
// none. Nothing where it may not, or nothing was chosen.
std::optional<bool> AutomaticAnswer(const Session& session, Override what) {
    const auto& choices = session.state.runChoices;
    const bool mayAnswer =
        session.state.options.blnAutoMode && choices.blnAllowAutoModeSystemHidden;
    if (!mayAnswer || what == Override::kMove) return std::nullopt;
    const std::size_t all = what == Override::kOverwrite ? 1 : 3;
    if (choices.blnAutoPara[all]) return true;
    if (choices.blnAutoPara[all + 1]) return false;
    return std::nullopt;
}

// The answer of the options, logged: whether to go on with it. Nothing where the user is to say.
std::optional<bool> AnswerOfOptions(Session& session, const ActionRun& run, const Object& object,
                                    bool blnOverwriting) {
    const auto& action = run.request.strAction;
    if (!blnOverwriting && action != "Delete" && action != "Move") return std::nullopt;
    const Override what = blnOverwriting       ? Override::kOverwrite
                          : action == "Delete" ? Override::kDelete
                                               : Override::kMove;
    const auto answer = IsLet(session.state.runChoices, what) ? std::optional(true)
                                                              : AutomaticAnswer(session, what);
    if (!answer) return std::nullopt;
    session::LogTimed(session, fmt::format(" Options selected {} to: {}",
                                           *answer ? "override" : "do not override",
                                           session.Shown(object.path)));
    return answer;
}

bool IsProtected(Session& session, ActionRun& run, const Object& object, std::uint32_t attributes,
                 bool blnOverwriting) {
    if ((attributes & kHiddenOrSystem) == 0) return false;
    if (run.bytOverrideAnswer == kOverrideNoToAll) return true;
    if (run.bytOverrideAnswer == kOverrideYesToAll) return false;
    if (const auto answer = AnswerOfOptions(session, run, object, blnOverwriting)) return !*answer;
    if (run.request.strAction == "Delete" || blnOverwriting) {
        return AskOverride(session, run, object);
    }
    TellOnce(session, run, object);
    return true;
}

} // namespace

Protection CheckSystemHidden(Session& session, ActionRun& run, const Object& object,
                             bool blnOverwriting) {
    const bool isDelete = run.request.strAction == "Delete";
    const session::ErrorContext context{.routine = "CheckSystemHidden",
                                        .moduleName = isDelete ? "frmSearch" : "frmDialog",
                                        .object = object.path,
                                        .path = object.actual,
                                        .objectType = object.isFile ? session::ObjectType::kFile
                                                                    : session::ObjectType::kFolder,
                                        .asksAlways = isDelete};
    Protection found;
    auto look = session::Attempt(
        session, context, [&] { return LookAt(session, run, object); },
        [](const platform::PlatformError& error) {
            return error.number == platform::kChangedSinceSearch
                       ? std::optional(session::kRecoveryLeave)
                       : std::nullopt;
        });
    // What can't be read can't be shown to be harmless.
    found.isProtected =
        !look || IsProtected(session, run, object, look->facts.attributes, blnOverwriting);
    found.look = std::move(look.result);
    if (found.IsChanged()) {
        session::LogTimed(session, fmt::format(" {}", ChangedText(session, object.path)));
    }
    return found;
}

} // namespace tarvix::actions
