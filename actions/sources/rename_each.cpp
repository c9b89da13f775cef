#include "actions/sources/rename_each.h"

#include "actions/place/action_run.h"
#include "actions/run/action_progress.h"
#include "actions/run/changed_objects.h"
#include "actions/run/fold_outcome.h"
#include "actions/run/new_path.h"
#include "actions/sources/in_place.h"
#include "platform/dir.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <algorithm>
#include <utility>

namespace tarvix::actions {

namespace {

using session::Session;

class EachRun {
  public:
    EachRun(Session& session, ActionRun& run, const NewNames& names, const RenameOrder& order)
        : session_(session), run_(run), names_(names), order_(order), places_(session, run) {}

    RenamedEach Run();

  private:
    enum class Kinds { kAll, kFiles, kFolders };
    void RunPass(Kinds kinds, ActionProgress& progress);
    void RenameObject(std::size_t index);
    Outcome GiveName(std::size_t index, const std::string& name);
    Outcome GivePath(std::size_t index, const std::string& path);
    void Settle(Outcome outcome);
    void SettleChanged();

    Session& session_;
    ActionRun& run_;
    const NewNames& names_;
    RenameOrder order_;
    InPlace places_;
    std::vector<ChangedObject> changed_;
    RenamedEach done_;
};

RenamedEach EachRun::Run() {
    const platform::ManyChanges many(session_.files());
    const session::InLoop inLoop(session_, session_.selection->lngSelTop + 1);
    ActionProgress progress(session_, session_.selection->lngSelTop + 1, 0);
    const auto plain = std::exchange(
        run_.observer, [&progress](const auto& copied) { return progress.InFile(copied); });
    if (order_.filesFirst) {
        RunPass(Kinds::kFiles, progress);
        RunPass(Kinds::kFolders, progress);
    } else {
        RunPass(Kinds::kAll, progress);
    }
    SettleChanged();
    run_.observer = plain;
    return std::move(done_);
}

void EachRun::RunPass(Kinds kinds, ActionProgress& progress) {
    const auto& isFile = session_.selection->blnSelIsFile;
    const std::size_t end = std::min(isFile.size(), order_.reached);
    for (std::size_t index = 0; index < end && done_.end == SourceEnd::kRan; ++index) {
        if (kinds != Kinds::kAll && isFile[index] != (kinds == Kinds::kFiles)) continue;
        session_.Yield();
        if (session_.state.blnStopAction) {
            done_.end = SourceEnd::kStopped;
            return;
        }
        RenameObject(index);
        progress.Step();
    }
}

void EachRun::RenameObject(std::size_t index) {
    const NewName& name = names_[index];
    if (name.name.empty()) return FoldOutcome(session_.state, run_, WithoutName(index, name));
    Settle(GiveName(index, name.name));
}

Outcome EachRun::GiveName(std::size_t index, const std::string& name) {
    const std::string old = places_.Path(index);
    const std::string parent = text::ParentFolderSlash(old);
    std::string path = parent + name;
    Outcome outcome{.index = index, .strDestination = path};
    if (path == old) {
        outcome.kind = OutcomeKind::kUnchanged;
        return outcome;
    }
    session_.frmDialog.lblStatus.Caption =
        text::Concat({"Renaming ", session_.Shown(old), "  as  ", session_.Shown(path)});
    const bool canUse = CanUseNewPath(session_,
                                      {.path = old,
                                       .parent = parent,
                                       .isFile = session_.selection->blnSelIsFile[index],
                                       .routine = order_.routine},
                                      path);
    if (!canUse) return outcome;
    run_.leftParts.RemoveAround(session_, path);
    outcome = GivePath(index, path);
    if (!outcome.isPlaced && outcome.strDestination.empty()) outcome.strDestination = path;
    return outcome;
}

Outcome EachRun::GivePath(std::size_t index, const std::string& path) {
    platform::Standing standing = platform::WhatStands(session_.files(), path);
    const std::string actual = places_.ActualPath(index);
    const std::string_view name = text::FolderOwnName(path);
    const std::string_view own = text::FolderOwnName(actual);
    // The object itself is found under its name in another case.
    const bool isItself =
        standing.name == own && standing.name != name && text::EqualNoCase(own, name);
    if (isItself) standing = {.place = {path, nullptr}};
    if (!standing.IsFree()) return places_.GiveUnique(index, path);
    Outcome outcome = places_.Give(index, standing.place);
    if (outcome.isTaken) return places_.GiveUnique(index, path);
    const bool isLeft = !outcome.isPlaced && outcome.kind == OutcomeKind::kLeftAlone;
    const bool isFolder = !session_.selection->blnSelIsFile[index];
    if (isLeft && isFolder && !session_.state.blnPathLimitHit) done_.metLongPaths = true;
    return outcome;
}

void EachRun::Settle(Outcome outcome) {
    auto& state = session_.state;
    const std::size_t index = outcome.index;
    state.blnPathLimitHit = false;
    if (state.bytPathChoice == session::kPathCancel) done_.end = SourceEnd::kStopped;
    if (outcome.isPlaced) {
        done_.lastPath = session_.selection->strSelPath[index];
        done_.lastName = text::FolderOwnName(outcome.strDestination);
    }
    if (outcome.kind == OutcomeKind::kChanged && run_.same != platform::Same::kName) {
        return changed_.push_back({index});
    }
    FoldOutcome(state, run_, outcome);
}

void EachRun::SettleChanged() {
    std::vector<ChangedObject> left = std::move(changed_);
    if (done_.end != SourceEnd::kRan || !GoesOnWithChanged(session_, run_, left)) {
        return FoldChanged(session_, run_, left);
    }
    for (const ChangedObject& object : left)
        RenameObject(object.index);
}

} // namespace

Outcome WithoutName(std::size_t index, const NewName& name) {
    return {.index = index,
            .kind = name.without,
            .errorNumber = name.errorNumber,
            .error = name.error,
            .why = name.why};
}

RenamedEach RenameEach(Session& session, ActionRun& run, const NewNames& names,
                       const RenameOrder& order) {
    return EachRun(session, run, names, order).Run();
}

} // namespace tarvix::actions
