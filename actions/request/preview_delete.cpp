#include "actions/request/preview_delete.h"

#include "actions/place/action_run.h"
#include "actions/request/delete_request.h"
#include "actions/request/preview_prompts.h"
#include "platform/rehearsal/rehearsal_file_system.h"
#include "platform/rehearsal/rehearsal_trash.h"
#include "results/selection.h"
#include "session/paths/recycle_folders.h"
#include "session/session.h"

#include <array>
#include <string>
#include <unordered_set>

namespace tarvix::actions {

namespace {

using session::Session;

constexpr std::array<std::string_view, 8> kDeleteVerdicts{"trash",
                                                          "delete for good",
                                                          "protected: ask",
                                                          "protected: left alone",
                                                          "left alone: it is a trash",
                                                          "no trash",
                                                          "changed since the search",
                                                          "failed"};

// The answer that stands for all.
OverrideAnswer Standing(const std::optional<bool>& choice) {
    if (!choice) return kOverrideNo;
    return *choice ? kOverrideYesToAll : kOverrideNoToAll;
}

// A session of its own whose files and trash only record.
class DeleteRehearsal {
  public:
    DeleteRehearsal(Session& real, const DeleteChoices& choices)
        : files_(real.files()), trash_(files_, real.platform.trash),
          session_(MachineOf(real), prompts_) {
        session_.state = real.state;
        session_.selection = real.selection;
        session_.forms.frmOverrideDialog.Answer = Standing(choices.takesProtected);
        session_.forms.frmOverrideRecycleFail.Answer = Standing(choices.deletesForGood);
        session_.log.KeepNothing();
        session_.errorLog.KeepNothing();
    }

    DeleteVerdict VerdictOf(std::size_t index) {
        const std::string_view path = session_.selection->strSelPath[index];
        if (session::IsRecycleBin(path)) return DeleteVerdict::kIsTrash;
        if (WentWithItsFolder(path)) return DeleteVerdict::kTrash;
        auto& totals = session_.state.lastAction = {};
        RecycleSelected(session_, {.index = static_cast<int>(index)});
        const bool isRefused = trash_.TakeRefusal();
        const bool isAsked = prompts_.Take().isProtected;
        if (totals.done > 0) {
            taken_.emplace(path);
            return totals.deleted > 0 ? DeleteVerdict::kForGood : DeleteVerdict::kTrash;
        }
        if (isAsked) return DeleteVerdict::kProtectedAsk;
        if (totals.skipped > 0) return DeleteVerdict::kProtected;
        if (isRefused) return DeleteVerdict::kNoTrash;
        return session_.files().Facts(path) ? DeleteVerdict::kChanged : DeleteVerdict::kFailed;
    }

  private:
    platform::Platform MachineOf(Session& real) {
        const auto& machine = real.platform;
        return {files_,           machine.paths,    machine.clock,        machine.environment,
                machine.registry, machine.launcher, machine.contentTypes, machine.applications,
                machine.desktop,  trash_,           machine.traits};
    }

    bool WentWithItsFolder(std::string_view path) const {
        for (std::size_t slash = path.rfind('\\'); slash != path.npos && slash > 0;
             slash = path.rfind('\\', slash - 1)) {
            if (taken_.contains(std::string(path.substr(0, slash)))) return true;
        }
        return false;
    }

    platform::RehearsalFileSystem files_;
    platform::RehearsalTrash trash_;
    PreviewPrompts prompts_;
    Session session_;
    std::unordered_set<std::string> taken_;
};

} // namespace

std::string_view VerdictText(DeleteVerdict verdict) {
    return kDeleteVerdicts[static_cast<std::size_t>(verdict)];
}

std::vector<DeletePreview> PreviewDelete(Session& session, const DeleteChoices& choices) {
    session.state.blnStopAction = false;
    DeleteRehearsal rehearsal(session, choices);
    std::vector<DeletePreview> entries;
    const auto count = static_cast<std::size_t>(session.selection->lngSelTop + 1);
    entries.reserve(count);
    for (std::size_t index = 0; index < count && !session.state.blnStopAction; ++index) {
        entries.push_back({index, rehearsal.VerdictOf(index)});
        session.Yield();
    }
    return entries;
}

} // namespace tarvix::actions
