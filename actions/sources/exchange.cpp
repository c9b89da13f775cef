#include "actions/sources/exchange.h"

#include "actions/place/action_run.h"
#include "actions/run/action_progress.h"
#include "actions/run/changed_objects.h"
#include "actions/run/fold_outcome.h"
#include "actions/sources/exchange_order.h"
#include "actions/sources/in_place.h"
#include "platform/dir.h"
#include "platform/names.h"
#include "results/selection.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/format.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace tarvix::actions {

namespace {

using session::Session;

constexpr std::size_t kMostTold = 10;
constexpr std::size_t kLongestName = 255; // bytes, on every disk of this kind of machine

// ---- what is in the way ----

class Objections {
  public:
    Objections(Session& session, const ExchangePlan& plan) : session_(session), plan_(plan) {}

    void Look(std::size_t index) {
        if (!plan_.Moves(index)) return;
        const std::string path = plan_.NewPath(index);
        const std::string folder = text::ParentFolderSlash(session_.selection->strSelPath[index]);
        const std::string_view name = std::string_view(path).substr(folder.size());
        if (!platform::CanBeName(name)) {
            Add(fmt::format("{} can't be the name of {}.", platform::ForDisplay(name), Old(index)));
        } else if (session::ExceedsLimit(session_, path, session::kLongPath)) {
            Add(fmt::format("{} would have {} characters.", session_.Shown(path),
                            text::Length(path)));
        } else if (IsTooLong(name)) {
            Add(fmt::format("{} is too long for a name.", platform::ForDisplay(name)));
        } else if (!IsFreeThen(index, path)) {
            Add(fmt::format("{} exists already, so {} can't get that name.", session_.Shown(path),
                            Old(index)));
        }
    }
    void AddDouble(std::size_t first, std::size_t second) {
        const std::string path = plan_.NewPath(second);
        Add(fmt::format("{} and {} would both be called {}.", Old(first), Old(second),
                        platform::ForDisplay(text::FolderOwnName(path))));
    }
    std::string Text() const {
        if (told_.empty()) return {};
        return told_ + (count_ > kMostTold ? fmt::format("\r\nand {} more.", count_ - kMostTold)
                                           : std::string());
    }

  private:
    std::string Old(std::size_t index) const {
        return session_.Shown(session_.selection->strSelPath[index]);
    }
    bool IsTooLong(std::string_view name) const {
        return session_.platform.traits.hasNativePaths &&
               platform::NameToNative(name).size() > kLongestName;
    }
    bool IsFreeThen(std::size_t index, const std::string& path) {
        const auto standing = platform::WhatStands(session_.files(), path);
        if (standing.IsFree() || plan_.MakesRoom(path)) return true;
        // The object itself, under its name in another case.
        return standing.name == session_.selection->strSelName[index] &&
               text::EqualNoCase(standing.name, text::FolderOwnName(path));
    }
    void Add(const std::string& sentence) {
        if (++count_ > kMostTold) return;
        told_ += (told_.empty() ? "" : "\r\n") + sentence;
    }

    Session& session_;
    const ExchangePlan& plan_;
    std::string told_;
    std::size_t count_ = 0;
};

// ---- the renames ----

class Exchange {
  public:
    Exchange(Session& session, ActionRun& run, const std::vector<std::string>& wanted)
        : session_(session), run_(run), wanted_(wanted), plan_(*session.selection, wanted),
          places_(session, run) {}

    SourceEnd Run();

  private:
    void SettleUnchanged();
    void RunChain(const Chain& chain, ActionProgress& progress);
    Outcome GiveWanted(std::size_t index);
    // Under a name that nothing bears, by which it can be known.
    Outcome StepAside(std::size_t index);
    std::string FreeName(std::size_t index);
    // The objects of a ring get the names back that they had, those tried last first. Gives what
    // became of each of them.
    std::vector<Outcome> BreakOff(const Chain& chain, std::size_t tried, Outcome cause);
    void TakeBack(std::size_t index);
    void Settle(Outcome outcome);

    Session& session_;
    ActionRun& run_;
    const std::vector<std::string>& wanted_;
    ExchangePlan plan_;
    InPlace places_;
    std::vector<ChangedObject> changed_;
};

SourceEnd Exchange::Run() {
    const platform::ManyChanges many(session_.files());
    ActionProgress progress(session_, session_.selection->lngSelTop + 1, 0);
    SettleUnchanged();
    SourceEnd end = SourceEnd::kRan;
    for (const Chain& chain : plan_.Chains()) {
        session_.Yield();
        if (session_.state.blnStopAction) {
            end = SourceEnd::kStopped;
            break;
        }
        RunChain(chain, progress);
    }
    // What has changed since the search keeps its name: another may have taken the new one.
    FoldChanged(session_, run_, changed_);
    return end;
}

void Exchange::SettleUnchanged() {
    for (std::size_t index = 0; index < wanted_.size(); ++index) {
        if (plan_.Moves(index)) continue;
        FoldOutcome(session_.state, run_,
                    {.index = index,
                     .strDestination = std::string(session_.selection->strSelPath[index]),
                     .kind = OutcomeKind::kUnchanged});
    }
}

void Exchange::RunChain(const Chain& chain, ActionProgress& progress) {
    std::vector<Outcome> outcomes;
    bool isBroken = false;
    if (chain.isRing) {
        Outcome aside = StepAside(chain.indexes.back());
        isBroken = !aside.isPlaced;
        if (isBroken) outcomes.push_back(std::move(aside));
    }
    std::size_t tried = 0;
    while (tried < chain.indexes.size() && !isBroken) {
        outcomes.push_back(GiveWanted(chain.indexes[tried++]));
        isBroken = chain.isRing && !outcomes.back().isPlaced;
    }
    if (isBroken) outcomes = BreakOff(chain, tried, std::move(outcomes.back()));
    for (Outcome& outcome : outcomes) {
        if (!outcome.isPlaced) outcome.strDestination = plan_.NewPath(outcome.index);
        Settle(std::move(outcome));
        progress.Step();
    }
}

std::vector<Outcome> Exchange::BreakOff(const Chain& chain, std::size_t tried, Outcome cause) {
    for (std::size_t i = tried; i > 0; --i)
        TakeBack(chain.indexes[i - 1]);
    TakeBack(chain.indexes.back());
    std::vector<Outcome> outcomes;
    for (const std::size_t index : chain.indexes) {
        Outcome outcome{.index = index};
        if (index == cause.index) outcome = cause;
        const std::string path = places_.Path(index);
        if (path != session_.selection->strSelPath[index]) {
            outcome.kind = OutcomeKind::kFailed;
            outcome.error = fmt::format("{} could not get its name back and is called {}.",
                                        session_.Shown(session_.selection->strSelPath[index]),
                                        session_.Shown(path));
            session::LogTimed(session_, fmt::format(" {}", outcome.error));
        }
        outcomes.push_back(std::move(outcome));
    }
    return outcomes;
}

void Exchange::TakeBack(std::size_t index) {
    const std::string path = places_.Path(index);
    const std::string old =
        text::ParentFolderSlash(path).append(session_.selection->strSelName[index]);
    if (path != old) (void)places_.Give(index, {old, nullptr});
}

Outcome Exchange::GiveWanted(std::size_t index) {
    const std::string path = text::ParentFolderSlash(places_.Path(index)) + wanted_[index];
    session_.frmDialog.lblStatus.Caption = text::Concat(
        {"Renaming ", session_.Shown(places_.Path(index)), "  as  ", session_.Shown(path)});
    platform::Standing standing = platform::WhatStands(session_.files(), path);
    const std::string actual = places_.ActualPath(index);
    const std::string_view own = text::FolderOwnName(actual);
    const bool isItself = standing.name == own && own != wanted_[index];
    if (isItself) standing = {.place = {path, nullptr}};
    if (standing.IsFree()) return places_.Give(index, standing.place);
    session::LogTimed(session_,
                      fmt::format(" Was unable to rename {} as {}, which exists already.",
                                  session_.Shown(places_.Path(index)), session_.Shown(path)));
    return {.index = index};
}

Outcome Exchange::StepAside(std::size_t index) {
    const std::string path = text::ParentFolderSlash(places_.Path(index)) + FreeName(index);
    return places_.Give(index, {path, nullptr});
}

std::string Exchange::FreeName(std::size_t index) {
    constexpr std::size_t kKept = 40; // characters of its name, so that there is room for more
    const std::string folder = text::ParentFolderSlash(places_.Path(index));
    const std::string_view own = text::Left(session_.selection->strSelName[index], kKept);
    for (int number = 1;; ++number) {
        const std::string name = number == 1 ? fmt::format("{} (renaming)", own)
                                             : fmt::format("{} (renaming {})", own, number);
        if (platform::WhatStands(session_.files(), folder + name).IsFree()) return name;
    }
}

void Exchange::Settle(Outcome outcome) {
    if (outcome.kind == OutcomeKind::kChanged) return changed_.push_back({outcome.index});
    FoldOutcome(session_.state, run_, outcome);
}

} // namespace

std::string WhyNotExchanged(Session& session, const std::vector<std::string>& wanted) {
    const ExchangePlan plan(*session.selection, wanted);
    Objections objections(session, plan);
    for (const auto& [first, second] : plan.Doubles())
        objections.AddDouble(first, second);
    for (std::size_t index = 0; index < wanted.size(); ++index)
        objections.Look(index);
    return objections.Text();
}

SourceEnd RenameExchanged(Session& session, ActionRun& run,
                          const std::vector<std::string>& wanted) {
    return Exchange(session, run, wanted).Run();
}

} // namespace tarvix::actions
