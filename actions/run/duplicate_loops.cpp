#include "actions/run/duplicate_loops.h"

#include "actions/place/action_run.h"
#include "actions/place/destination.h"
#include "actions/place/duplicate.h"
#include "actions/place/duplicate_rename.h"
#include "actions/place/engine.h"
#include "actions/place/find_destination.h"
#include "actions/place/outcome.h"
#include "actions/place/overlap.h"
#include "actions/run/action_progress.h"
#include "actions/run/ask_flow.h"
#include "actions/run/changed_objects.h"
#include "actions/run/fold_outcome.h"
#include "actions/run/plain_moves.h"
#include "platform/file_system.h"
#include "results/selection.h"
#include "session/session.h"
#include "text/case.h"
#include "text/paths.h"

#include <fmt/core.h>

#include <string>
#include <utility>
#include <vector>

namespace tarvix::actions {

namespace {

using session::Session;

// Does what its loop does where a duplicate stands.
using DuplicateRule = Outcome (*)(Session& session, ActionRun& run, const Clash& clash);

Outcome SkippedDuplicate() {
    Outcome outcome;
    outcome.kind = OutcomeKind::kSkippedDuplicate;
    return outcome;
}

Outcome Skip(Session&, ActionRun&, const Clash&) {
    return SkippedDuplicate();
}

// A file never takes the place of a folder, nor a folder that of a file.
Outcome Overwrite(Session& session, ActionRun& run, const Clash& clash) {
    const Object& object = clash.object;
    if (object.isFile != clash.there.isFile) {
        session::LogTimed(session, fmt::format(" Skipped {}, {} {}", session.Shown(object.path),
                                               object.isFile ? "a file can't overwrite the folder"
                                                             : "a folder can't overwrite the file",
                                               session.Shown(clash.destination)));
        return SkippedDuplicate();
    }
    if (auto apart = KeepApart(session, run, clash)) return std::move(*apart);
    if (auto refused = RefusesOverlap(session, clash, DuplicateUse::kReplace)) {
        return std::move(*refused);
    }
    return OverWriteDuplicate(session, run, object, clash.destination);
}

Outcome Rename(Session& session, ActionRun& run, const Clash& clash) {
    if (auto refused = RefusesOverlap(session, clash, DuplicateUse::kKeep)) {
        return std::move(*refused);
    }
    return RenameObjForDuplicate(session, run, clash);
}

enum class PathTest { kGoOn, kNextDestination, kEndLoop };

PathTest TestPathLimit(const session::SessionState& state) {
    if (!state.blnPathLimitHit) return PathTest::kGoOn;
    switch (state.bytPathChoice) {
    case session::kPathCancel:
        return PathTest::kEndLoop;
    case session::kPathSkip:
    case session::kPathSkipAll:
        return PathTest::kNextDestination;
    default:
        return PathTest::kGoOn;
    }
}

// One run of a loop.
class Loop {
  public:
    Loop(Session& session, ActionRun& run, DuplicateRule rule)
        : session_(session), run_(run), tables_(*session.selection), rule_(rule),
          places_(run.request.Places()),
          progress_(session, (tables_.lngSelTop + 1) * places_,
                    run.request.isMove ? 0 : tables_.lngSelBytes * places_),
          plainObserver_(std::exchange(run.observer, [this](const platform::CopyProgress& copied) {
              return progress_.InFile(copied);
          })) {}

    ~Loop() {
        run_.observer = std::move(plainObserver_);
        session_.files().CopySoon({});
    }
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;

    void Run() {
        session_.state.blnStopAction = session_.state.blnStopNow = false;
        session_.state.lastAction = {};
        session_.state.lastAction.wanted = (tables_.lngSelTop + 1) * places_;
        // A cancel that stands was meant for an earlier action.
        if (run_.bytOverrideAnswer == kOverrideCancel) run_.bytOverrideAnswer = kOverrideNo;
        const session::InLoop inLoop(session_, tables_.lngSelTop + 1);
        const auto count = static_cast<std::size_t>(tables_.lngSelTop + 1);
        for (std::size_t index = 0; index < count; ++index) {
            if (index % kPlanEvery == 1) PlanAhead(index);
            const Object object = ObjectAt(tables_, index);
            if (MovesPlainly(object)) continue;
            if (!plain_.Finish() || !PlaceEverywhere(object))
                return FoldChanged(session_, run_, changed_);
        }
        if (!plain_.Finish()) return FoldChanged(session_, run_, changed_);
        SettleChanged();
    }

  private:
    static constexpr std::size_t kPlanEvery = 88;
    static constexpr std::size_t kPlanned = 128;

    void PlanAhead(std::size_t index);
    bool MovesPlainly(const Object& object);
    void SettleMoved(Outcome outcome);
    // Each gives false to end the loop.
    bool PlaceEverywhere(const Object& object);
    bool PlaceNext(const Object& object, int place);
    // What isn't as the search saw it comes at the end, with one question.
    void SettleChanged();
    bool GoesOn();
    // What ends the run, as the log has it; null where nothing does.
    const char* WhyEnded() const;
    void NotePlaced();

    Outcome PlaceOne(const Object& object, int place);
    Outcome PlaceAt(const Object& object, int place, const std::string& computed);
    // Whether a long path keeps the object from being placed, which `outcome` then tells.
    bool StopsAtLongPath(Outcome& outcome) const;
    // The same of a path that came up while it was being placed.
    void NoteLongPath(Outcome& outcome) const;

    Session& session_;
    ActionRun& run_;
    const results::Selection& tables_;
    DuplicateRule rule_;
    int places_;
    ActionProgress progress_;
    platform::CopyObserver plainObserver_;
    platform::ManyChanges many_{session_.files()};
    Outcome last_;
    std::vector<ChangedObject> changed_;
    PlainMoves plain_{
        session_,
        run_,
        Verb::kMove,
        {[this](Outcome outcome) { SettleMoved(std::move(outcome)); },
         [this](std::size_t index) { return PlaceEverywhere(ObjectAt(tables_, index)); }}};
};

// Lets the disk read the next files while those before them are settled. They will mostly go where
// the last one went, or at least to the same file system.
void Loop::PlanAhead(std::size_t index) {
    if (run_.request.isMove || places_ != 1 || !last_.isPlaced) return;
    const std::string folder = text::ParentFolder(last_.strDestination);
    std::vector<platform::PlannedCopy> planned;
    planned.reserve(kPlanned);
    for (std::size_t i = index; i < tables_.strSelPath.size() && planned.size() < kPlanned; ++i) {
        if (!tables_.blnSelIsFile[i]) continue;
        planned.push_back(
            {tables_.strSelActualPath[i], folder, ObjectAt(tables_, i).sighting.location});
    }
    session_.files().CopySoon(planned);
}

// What a rule comes to is told and counted as it is found.
bool Loop::MovesPlainly(const Object& object) {
    const bool isPlain =
        run_.request.isMove && places_ == 1 && run_.request.way != Way::kSpecialRule;
    if (!isPlain) return false;
    session_.Yield();
    if (WhyEnded() != nullptr) return false;
    const Destination destination = ComputeDestination(run_.request, object, 0);
    return destination.IsThere() && !IsOntoItself(object, destination.path) &&
           plain_.Take(object, destination.path);
}

void Loop::SettleMoved(Outcome outcome) {
    last_ = std::move(outcome);
    NotePlaced();
    FoldOutcome(session_.state, run_, last_);
    progress_.Step();
}

bool Loop::PlaceEverywhere(const Object& object) {
    for (int place = 0; place < places_; ++place) {
        if (!PlaceNext(object, place)) return false;
        progress_.Step();
    }
    return true;
}

bool Loop::PlaceNext(const Object& object, int place) {
    session_.Yield();
    if (!GoesOn()) return false;
    session_.state.blnPathLimitHit = false;
    last_ = PlaceOne(object, place);
    last_.index = object.index;
    NotePlaced();
    if (last_.kind == OutcomeKind::kStopped) return GoesOn();
    if (last_.kind == OutcomeKind::kChanged && run_.same != platform::Same::kName) {
        changed_.push_back({object.index, place});
    } else {
        FoldOutcome(session_.state, run_, last_);
    }
    return !last_.endsRun;
}

void Loop::SettleChanged() {
    std::vector<ChangedObject> left = std::move(changed_);
    if (!GoesOnWithChanged(session_, run_, left)) return FoldChanged(session_, run_, left);
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (PlaceNext(ObjectAt(tables_, left[i].index), left[i].place)) continue;
        left.erase(left.begin(), left.begin() + static_cast<std::ptrdiff_t>(i));
        return FoldChanged(session_, run_, left);
    }
}

// Only these choices ever overwrite.
void Loop::NotePlaced() {
    const DuplicateChoice choice = run_.request.duplicates;
    const bool mayOverwrite =
        choice == DuplicateChoice::kOverwrite || choice == DuplicateChoice::kAsk;
    if (mayOverwrite && last_.isPlaced) run_.placed.insert(text::Upper(last_.strDestination));
}

const char* Loop::WhyEnded() const {
    if (last_.errorNumber == platform::kDiskFull) {
        return " The action ended, since the disk is full.";
    }
    if (session_.state.blnStopAction) return " User stopped the action.";
    if (run_.bytOverrideAnswer == kOverrideCancel) {
        return " User canceled delete of rest of files";
    }
    return nullptr;
}

bool Loop::GoesOn() {
    const char* const why = WhyEnded();
    if (why) session::LogTimed(session_, why);
    return why == nullptr;
}

Outcome Loop::PlaceOne(const Object& object, int place) {
    auto found = FindDestination(session_, run_, object, place);
    Outcome outcome;
    const bool stops = StopsAtLongPath(outcome);
    if (!stops && found.path.empty()) {
        outcome.kind = OutcomeKind::kNoDestination;
        // The rule logs its own.
        if (run_.request.way != Way::kSpecialRule) {
            session::LogTimed(
                session_, fmt::format(" Found no destination for {}", session_.Shown(object.path)));
        }
    } else if (!stops && IsOntoItself(object, found.path)) {
        outcome.kind = OutcomeKind::kOntoItself;
        TellOntoItself(session_, object, found.path);
    } else if (!stops) {
        return PlaceAt(object, place, found.path);
    }
    if (found.hasFailed) outcome.kind = OutcomeKind::kFailed;
    outcome.strDestination = std::move(found.path);
    return outcome;
}

Outcome Loop::PlaceAt(const Object& object, int place, const std::string& computed) {
    // What stands where the object will really go is the duplicate.
    std::string destination = CleanedDestination(computed);
    run_.leftParts.RemoveAround(session_, destination);
    Outcome outcome;
    // What came there between the duplicate test and the act is a duplicate as any other.
    do {
        auto found = DetermineIfDuplicateExists(session_, object, destination);
        outcome = {};
        if (StopsAtLongPath(outcome)) break;
        outcome = found ? PerformMoveOrCopy(session_, run_, object, std::move(*found))
                        : rule_(session_, run_, {object, place, destination, found.error()});
        NoteLongPath(outcome);
    } while (outcome.isTaken);
    if (!outcome.isPlaced || outcome.kind == OutcomeKind::kFailed) {
        outcome.strDestination = std::move(destination);
    }
    return outcome;
}

void Loop::NoteLongPath(Outcome& outcome) const {
    const PathTest test = TestPathLimit(session_.state);
    const bool isTold =
        outcome.kind == OutcomeKind::kFailed || outcome.kind == OutcomeKind::kProtected;
    if (test != PathTest::kGoOn && !outcome.isPlaced && !isTold) {
        outcome.kind = OutcomeKind::kLongPath;
    }
    outcome.endsRun = outcome.endsRun || test == PathTest::kEndLoop;
}

bool Loop::StopsAtLongPath(Outcome& outcome) const {
    const PathTest test = TestPathLimit(session_.state);
    if (test == PathTest::kGoOn) return false;
    outcome.kind = OutcomeKind::kLongPath;
    outcome.endsRun = test == PathTest::kEndLoop;
    return true;
}

} // namespace

void SkipAllDuplicates(Session& session, ActionRun& run) {
    Loop(session, run, Skip).Run();
}

void OverwriteAllDuplicates(Session& session, ActionRun& run) {
    Loop(session, run, Overwrite).Run();
}

void RenameAllDuplicates(Session& session, ActionRun& run) {
    Loop(session, run, Rename).Run();
}

void Ask(Session& session, ActionRun& run) {
    Loop(session, run, AskAboutDuplicate).Run();
}

} // namespace tarvix::actions
