#include "actions/request/preview.h"

#include "actions/place/outcome.h"
#include "actions/request/action_names.h"
#include "actions/request/dialog_setup.h"
#include "actions/request/known_bytes.h"
#include "actions/request/ok_button.h"
#include "actions/request/preview_prompts.h"
#include "actions/request/refused_names.h"
#include "platform/clock.h"
#include "platform/launcher.h"
#include "platform/rehearsal/rehearsal_file_system.h"
#include "platform/rehearsal/rehearsal_trash.h"
#include "results/selection.h"
#include "session/prompt_id.h"
#include "session/session.h"
#include "text/format.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <type_traits>

namespace tarvix::actions {

namespace {

using session::Session;

constexpr std::array<std::string_view, 22> kVerdicts{"copy",
                                                     "move",
                                                     "rename",
                                                     "duplicate: rename",
                                                     "duplicate: overwrite",
                                                     "duplicate: skip",
                                                     "duplicate: ask",
                                                     "same place",
                                                     "no destination",
                                                     "long path: ask",
                                                     "protected: copy",
                                                     "protected: ask",
                                                     "unchanged",
                                                     "failed",
                                                     "changed since the search",
                                                     "copy only: no right to take it away",
                                                     "no right",
                                                     "no room",
                                                     "left alone",
                                                     "no trash",
                                                     "can't be written there",
                                                     "reading..."};

class NoLauncher : public platform::Launcher {
  public:
    platform::Result<void> OpenDocument(std::string_view) override { return {}; }
    platform::Result<void> OpenWith(std::string_view, std::string_view) override { return {}; }
    platform::Result<void> CloseDocument(std::string_view) override { return {}; }
};

// New paths with their folders as these are spelled where they stand.
class Spelling {
  public:
    explicit Spelling(platform::FileSystem& files) : files_(files) {}

    std::string Of(const std::string& path) {
        const std::size_t slash = path.rfind('\\');
        if (slash == path.npos || slash < 3) return path;
        const std::string_view folder = std::string_view(path).substr(0, slash);
        if (folder != folder_) {
            folder_ = folder;
            spelled_ = Folder(folder);
        }
        return text::JoinPath(spelled_, std::string_view(path).substr(slash + 1));
    }

  private:
    // As far up as nothing stands yet, it is as typed.
    std::string Folder(std::string_view folder) {
        std::string_view there = folder;
        while (!there.empty()) {
            if (auto spelled = files_.TruePath(there)) {
                const std::string_view rest = folder.substr(there.size());
                return rest.empty() ? *spelled : text::JoinPath(*spelled, rest.substr(1));
            }
            const std::size_t slash = there.rfind('\\');
            if (slash == there.npos) break;
            there = there.substr(0, slash);
        }
        return std::string(folder);
    }

    platform::FileSystem& files_;
    std::string folder_; // the last one, since most objects go where the one before them went
    std::string spelled_;
};

// Collects the verdicts as the action goes from object to object.
class Collector : public OutcomeSink {
  public:
    Collector(PreviewPrompts& prompts, platform::FileSystem& files, platform::RehearsalTrash& trash,
              bool isMove, std::vector<PreviewEntry>& entries)
        : prompts_(prompts), spelling_(files), trash_(trash), refused_(files), isMove_(isMove),
          entries_(entries) {}

    void Settled(const Outcome& outcome) override {
        PreviewEntry entry{outcome.index, spelling_.Of(outcome.strDestination), VerdictOf(outcome)};
        if (Writes(entry.verdict)) entry.why = refused_.Why(entry.strNewPath);
        if (!entry.why.empty()) entry.verdict = Verdict::kNameRefused;
        if (entry.verdict == Verdict::kLeftAlone) entry.why = outcome.why;
        entries_.push_back(std::move(entry));
    }

  private:
    static bool Writes(Verdict verdict) {
        return verdict <= Verdict::kDuplicateOverwrite || verdict == Verdict::kProtectedCopy ||
               verdict == Verdict::kCopyOnly;
    }
    Verdict VerdictOf(const Outcome& outcome) {
        const auto asked = prompts_.Take();
        const bool isRefused = trash_.TakeRefusal();
        if (asked.longPath) return Verdict::kLongPath;
        if (asked.duplicate) return Verdict::kDuplicateAsk;
        if (asked.isProtected) return Verdict::kProtectedAsk;
        switch (outcome.kind) {
        case OutcomeKind::kCopied:
            if (outcome.isNewName) return Verdict::kDuplicateRename;
            if (isMove_ && isRefused) return Verdict::kCopyOnly;
            return isMove_ ? Verdict::kProtectedCopy : Verdict::kCopy;
        case OutcomeKind::kMoved:
            return outcome.isNewName ? Verdict::kDuplicateRename : Verdict::kMove;
        case OutcomeKind::kRenamed:
            return outcome.isNewName ? Verdict::kDuplicateRename : Verdict::kRename;
        case OutcomeKind::kOverwrote:
        case OutcomeKind::kReplaced:
            return Verdict::kDuplicateOverwrite;
        case OutcomeKind::kSkippedDuplicate:
            return Verdict::kDuplicateSkip;
        case OutcomeKind::kOntoItself:
            return Verdict::kSamePlace;
        case OutcomeKind::kNoDestination:
            return Verdict::kNoDestination;
        case OutcomeKind::kLongPath:
            return Verdict::kLongPath;
        case OutcomeKind::kProtected:
            return Verdict::kProtectedAsk;
        case OutcomeKind::kFailed:
            return FailureOf(outcome.errorNumber);
        case OutcomeKind::kChanged:
            return Verdict::kChanged;
        case OutcomeKind::kUnchanged:
            return Verdict::kUnchanged;
        case OutcomeKind::kLeftAlone:
        case OutcomeKind::kStopped:
            break;
        }
        return isRefused ? Verdict::kNoTrash : Verdict::kLeftAlone;
    }

    static Verdict FailureOf(int error) {
        if (error == kStillReading) return Verdict::kReading;
        if (error == platform::kPermissionDenied) return Verdict::kNoRight;
        return error == platform::kDiskFull ? Verdict::kNoRoom : Verdict::kFailed;
    }

    PreviewPrompts& prompts_;
    Spelling spelling_;
    platform::RehearsalTrash& trash_;
    RefusedNames refused_;
    bool isMove_;
    std::vector<PreviewEntry>& entries_;
};

// The same as a rehearsal, though what files hold may come from what is known of it.
class PreviewFiles : public platform::RehearsalFileSystem {
  public:
    PreviewFiles(platform::FileSystem& real, KnownBytes* known)
        : RehearsalFileSystem(real), known_(known) {}

    platform::Result<std::string> ReadBytes(std::string_view path, std::uint64_t offset,
                                            std::size_t count) override {
        const bool isKnown = known_ != nullptr && !HasSteps(); // by then other files have the names
        return isKnown ? known_->Read(path, offset, count)
                       : RehearsalFileSystem::ReadBytes(path, offset, count);
    }

  private:
    KnownBytes* known_;
};

// A session of its own that reads the request from the real window, and whose files only record.
class Rehearsal {
  public:
    // `goesOn` is asked while it works.
    Rehearsal(Session& real, results::Selection& selection, const std::function<bool()>& goesOn,
              KnownBytes* known = nullptr)
        : real_(real), files_(real.files(), known), trash_(files_, real.platform.trash),
          session_(MachineOf(real), prompts_) {
        session_.state = real.state;
        session_.state.blnStopAction = false;
        session_.state.datDestHistory.clear();
        session_.selection = &selection;
        session_.forms.frmOverrideDialog.Answer = real.forms.frmOverrideDialog.Answer;
        session_.log.KeepNothing();
        session_.errorLog.KeepNothing();
        session_.yielder.SetPump([this, &goesOn] {
            if (!goesOn()) session_.state.blnStopAction = true;
        });
    }

    PreviewResult Run() {
        PreviewResult result;
        Collector collector(prompts_, files_, trash_, IsMove(real_.state.strAction),
                            result.entries);
        session_.frmDialog.Show();
        PressOk(session_, real_.frmDialog, &collector);
        result.blnStopped = session_.state.blnStopAction;
        const bool isRefused = session_.frmDialog.IsShown() || session_.state.blnActionCancelled;
        if (result.entries.empty() && isRefused) {
            result.refusal = prompts_.LastTold();
        }
        return result;
    }

  private:
    platform::Platform MachineOf(Session& real) {
        auto machine = real.platform;
        return {files_,           machine.paths, machine.clock,        machine.environment,
                machine.registry, launcher_,     machine.contentTypes, machine.applications,
                machine.desktop,  trash_,        machine.traits};
    }

    Session& real_;
    PreviewFiles files_;
    platform::RehearsalTrash trash_;
    NoLauncher launcher_;
    PreviewPrompts prompts_;
    Session session_;
};

results::Selection FirstOf(const results::Selection& all, std::size_t objects) {
    const auto part = [objects](const auto& table) {
        auto end = table.begin();
        std::advance(end, std::min(objects, table.size()));
        return std::decay_t<decltype(table)>(table.begin(), end);
    };
    results::Selection first{.strSelName = part(all.strSelName),
                             .strSelPath = part(all.strSelPath),
                             .blnSelIsFile = part(all.blnSelIsFile),
                             .strSelRelPath = part(all.strSelRelPath),
                             .strSelActualPath = part(all.strSelActualPath),
                             .blnSelNoDate = part(all.blnSelNoDate),
                             .sightings = part(all.sightings)};
    first.lngSelTop = static_cast<std::int64_t>(first.strSelPath.size()) - 1;
    return first;
}

std::string Summary(const PreviewResult& result) {
    std::array<std::int64_t, kVerdicts.size()> counts{};
    for (const PreviewEntry& entry : result.entries) {
        ++counts[static_cast<std::size_t>(entry.verdict)];
    }
    std::string told;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] == 0) continue;
        told += fmt::format("{}{}  {}", told.empty() ? "" : ",   ", kVerdicts[i],
                            text::Format(counts[i], "#,##0"));
    }
    if (result.blnStopped) told += "   (stopped before the end)";
    return told.empty() ? "Nothing would be done." : told;
}

} // namespace

std::string_view VerdictText(Verdict verdict) {
    return kVerdicts[static_cast<std::size_t>(verdict)];
}

std::string VerdictText(const PreviewEntry& entry) {
    const std::string_view text = VerdictText(entry.verdict);
    return entry.why.empty() ? std::string(text) : fmt::format("{}: {}", text, entry.why);
}

PreviewResult Preview(Session& session) {
    session.state.blnStopAction = false;
    const auto goesOn = [&session] {
        session.Repaint();
        return !session.state.blnStopAction;
    };
    PreviewResult result = Rehearsal(session, *session.selection, goesOn).Run();
    result.blnStopped = session.state.blnStopAction;
    return result;
}

PreviewResult PreviewFirst(Session& session, std::size_t objects,
                           const std::function<bool()>& goesOn, KnownBytes* known) {
    results::Selection first = FirstOf(*session.selection, objects);
    return Rehearsal(session, first, goesOn, known).Run();
}

void cmdPreview_Click(Session& session) {
    ShowBusy(session, true);
    const PreviewResult result = Preview(session);
    ShowBusy(session, false);
    if (!result.refusal.empty()) {
        session.MsgBox(session::PromptId::kPreviewRefused, result.refusal);
        return;
    }
    auto& form = session.forms.frmPreview;
    form.rows.clear();
    form.rows.reserve(result.entries.size());
    for (const PreviewEntry& entry : result.entries) {
        form.rows.push_back({session.Shown(session.selection->strSelPath[entry.index]),
                             session.Shown(entry.strNewPath), VerdictText(entry)});
    }
    form.lblMain.Caption = Summary(result);
    form.Focus = &form.cmdOK;
    session.ShowModal(session::PromptId::kPreview);
    form.rows.clear();
}

void AddPreviewEvents(session::EventTable& events) {
    events.On("frmDialog.cmdPreview_Click", cmdPreview_Click);
    events.On("frmPreview.cmdOK_Click",
              [](Session& session, const session::EventArgs&) { session.forms.frmPreview.Hide(); });
}

} // namespace tarvix::actions
