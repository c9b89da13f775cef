#include "actions/place/system_hidden.h"

#include "platform/file_system.h"
#include "session/attempt.h"
#include "session/prompt_id.h"
#include "session/session.h"

#include <array>
#include <string_view>

namespace tarvix::actions {

namespace {

using session::Session;

constexpr std::uint32_t kHiddenOrSystem = 2 + 4;
constexpr std::string_view kHas = " has the attribute(s) system or hidden. ";

void TellOnce(Session& session, const std::string& object, std::string_view word) {
    auto& warned = session.state.action.blnSystemHiddenWarned;
    if (session.state.strAction != "Move" || warned) return;
    warned = true;
    std::string told = object + "\r\n\r\n";
    told.append(kHas).append("\r\n\r\n").append(word).append(object);
    told += ", and all others like it, will be copied and the original will still exist.\r\n"
            "Assuming there are no other errors.\r\n\r\n"
            "You will not see this warning again this session.";
    session.MsgBox(session::PromptId::kProtectedCopied, told);
}

std::string Question(const std::string& object, std::string_view word, bool isDelete) {
    std::string told = object + "\r\n";
    told.append(kHas).append("\r\n").append(word);
    told += isDelete ? "was not deleted. \r\n\r\nWould you like to delete anyway?"
                     : "was not overwritten. \r\n\r\nWould you like to overwrite anyway?";
    return told;
}

// Gives whether the object stays protected.
bool AskOverride(Session& session, const std::string& object, std::string_view word) {
    auto& form = session.forms.frmOverrideDialog;
    auto& answer = session.state.action.bytOverrideAnswer;
    form.lblMain.Caption = Question(object, word, session.state.strAction == "Delete");
    form.Focus = &form.cmdNo;
    answer = session::kOverrideNo;
    session.ShowModal(session::PromptId::kOverrideProtected);
    session.Repaint();
    constexpr std::array<const char*, 5> kLines{
        " User selected do not override to: ", " User selected override to: ",
        " User selected do not override to all at: ", " User selected override to all at: ",
        " User selected cancel to all in override form at: "};
    session::LogTimed(session, kLines[answer] + object);
    return answer != session::kOverrideYes && answer != session::kOverrideYesToAll;
}

} // namespace

bool IsProtected(Session& session, const std::string& object, std::uint32_t attributes,
                 bool blnIsFile, bool blnOverwriting) {
    if ((attributes & kHiddenOrSystem) == 0) return false;
    const auto& answer = session.state.action.bytOverrideAnswer;
    if (answer == session::kOverrideNoToAll) return true;
    if (answer == session::kOverrideYesToAll) return false;
    const std::string_view word = blnIsFile ? "File " : "Folder ";
    if (session.state.strAction == "Delete" || blnOverwriting) {
        return AskOverride(session, object, word);
    }
    TellOnce(session, object, word);
    return true;
}

bool CheckSystemHidden(Session& session, const std::string& object, const std::string& actual,
                       bool blnIsFile, bool blnOverwriting,
                       std::optional<platform::ObjectFacts>* read) {
    const session::ErrorContext context{
        .routine = "CheckSystemHidden",
        .moduleName = session.state.strAction == "Delete" ? "frmSearch" : "frmDialog",
        .object = object,
        .path = actual,
        .objectType = blnIsFile ? session::ObjectType::kFile : session::ObjectType::kFolder};
    const auto facts = session::Attempt(session, context, [&] {
        return blnIsFile ? platform::GetFile(session.files(), actual)
                         : platform::GetFolder(session.files(), actual);
    });
    // What can't be read can't be shown to be harmless.
    if (!facts) return true;
    if (read) *read = *facts.result;
    return IsProtected(session, object, facts->attributes, blnIsFile, blnOverwriting);
}

} // namespace tarvix::actions
