#include "search/unread.h"

#include "session/prompt_id.h"

#include <fmt/core.h>

#include <vector>

namespace tarvix::search {

namespace {

using session::Session;

std::string Counted(std::size_t count) {
    return fmt::format("{} object{} could not be read", count, count == 1 ? "" : "s");
}

std::string LineOf(const Session& session, const session::UnreadObject& object) {
    return fmt::format("{}: {}", session.Shown(object.path), platform::ErrorText(object.number));
}

void cmdUnread_Click(Session& session) {
    auto& form = session.forms.frmUnread;
    const auto& all = session.state.unread.All();
    std::vector<std::string> lines;
    lines.reserve(all.size());
    for (const session::UnreadObject& object : all) {
        lines.push_back(LineOf(session, object));
    }
    form.lblMain.Caption = fmt::format(
        "{} by the last search, and so what they hold was not found:", Counted(all.size()));
    form.lstUnread.SetItems(std::move(lines));
    form.Focus = &form.cmdOK;
    session.ShowModal(session::PromptId::kUnreadObjects);
    form.lstUnread.SetItems({});
}

} // namespace

std::optional<int> HandleUnread(Session& session, const UnreadCandidate& object,
                                const session::ErrorContext& context,
                                const platform::PlatformError& error) {
    const bool isGone =
        error.number == platform::kFileNotFound || error.number == platform::kPathNotFound;
    const bool isTold = session.state.unread.Has(object.path);
    if (!object.counts || isTold || (isGone && !object.mustExist)) return session::kRecoverySkip;
    if (error.number == platform::kBadFileName) return std::nullopt;
    const int recovery = session::HandleUnreadable(session, error, context);
    if (recovery != session::kRecoveryRetry) {
        session.state.unread.Add({object.path, object.isFolder, error.number});
    }
    return recovery;
}

void HideUnread(Session& session) {
    session.state.unread.Clear();
    session.frmSearch.cmdUnread.Visible = false;
}

void ShowUnread(Session& session) {
    const std::size_t count = session.state.unread.All().size();
    if (count == 0) return;
    auto& button = session.frmSearch.cmdUnread;
    button.Caption = fmt::format("{}...", Counted(count));
    button.Visible = true;
    session.events.Raise(session, kUnreadTold);
}

void AddUnreadEvents(session::EventTable& events) {
    events.On("frmSearch.cmdUnread_Click", cmdUnread_Click);
    events.On("frmUnread.cmdOK_Click",
              [](Session& session, const session::EventArgs&) { session.forms.frmUnread.Hide(); });
}

} // namespace tarvix::search
