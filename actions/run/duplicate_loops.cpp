#include "actions/run/duplicate_loops.h"

#include "actions/place/destination.h"
#include "actions/place/duplicate_rename.h"
#include "actions/place/engine.h"
#include "actions/place/outcome.h"
#include "actions/place/overlap.h"
#include "actions/run/action_progress.h"
#include "actions/run/ask_flow.h"
#include "platform/dir.h"
#include "platform/file_system.h"
#include "platform/native_paths.h"
#include "results/selection.h"
#include "session/paths/ask_long_path.h"
#include "session/paths/short_path.h"
#include "session/session.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/paths.h"

#include <utility>
#include <vector>

namespace tarvix::actions {

namespace {

using session::Session;

// Does what its loop does where a duplicate stands; false ends the loop.
using DuplicateRule = bool (*)(Session& session, Outcome& outcome);

bool Skip(Session&, Outcome& outcome) {
    outcome.kind = OutcomeKind::kSkippedDuplicate;
    return true;
}

// A file never takes the place of a folder, nor a folder that of a file.
bool IsOfOtherKind(Session& session, Outcome& outcome) {
    const auto& action = session.state.action;
    const auto index = static_cast<std::size_t>(action.lngIndex);
    const bool isFile = session.selection->blnSelIsFile[index];
    if (isFile == action.blnDestIsFile) return false;
    outcome.kind = OutcomeKind::kSkippedDuplicate;
    session::LogTimed(session, " Skipped " + session.selection->strSelPath[index] +
                                   (isFile ? ", a file can't overwrite the folder "
                                           : ", a folder can't overwrite the file ") +
                                   action.strDestination);
    return true;
}

bool Overwrite(Session& session, Outcome& outcome) {
    if (IsOfOtherKind(session, outcome)) return true;
    if (RefusesOverlap(session, DuplicateUse::kReplace, outcome)) return true;
    OverWriteDuplicate(session);
    outcome.kind = OutcomeKind::kOverwrote;
    return true;
}

bool Rename(Session& session, Outcome& outcome) {
    if (RefusesOverlap(session, DuplicateUse::kKeep, outcome)) return true;
    RenameObjForDuplicate(session);
    outcome.kind = OutcomeKind::kCopied;
    outcome.isNewName = true;
    return true;
}

// Whether an object would be written on itself or into its own subfolder.
bool IsOntoItself(std::string_view path, std::string_view destination) {
    return text::EqualNoCase(path, destination) ||
           text::StartsWithNoCase(destination, std::string(path) + "\\");
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
    Loop(Session& session, DuplicateRule rule)
        : session_(session), action_(session.state.action), tables_(*session.selection),
          rule_(rule),
          progress_(session, Count() * action_.intMultiCount,
                    action_.blnMove ? 0 : tables_.lngSelBytes * action_.intMultiCount) {}

    ~Loop() { session_.files().CopySoon({}); }
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;

    void Run() {
        session_.state.blnStopAction = action_.blnDiskFull = false;
        session_.state.lastAction = {};
        // A cancel that stands was meant for an earlier action.
        if (action_.bytOverrideAnswer == session::kOverrideCancel) {
            action_.bytOverrideAnswer = session::kOverrideNo;
        }
        for (action_.lngIndex = 0; action_.lngIndex <= tables_.lngSelTop; ++action_.lngIndex) {
            if (session_.frmDialog.optTo[2].Value &&
                session_.frmDialog.chkFolderRename.Value == 1) {
                BuildFolderPrefix(session_);
            }
            if (Index() % kPlanEvery == 1) PlanAhead();
            if (!PlaceEverywhere()) return;
        }
    }

  private:
    static constexpr std::size_t kPlanEvery = 40;
    static constexpr std::size_t kPlanned = 64;

    // Lets the disk read the next files while those before them are settled. They will mostly go
    // where the last one went, or at least to the same file system.
    void PlanAhead() {
        if (action_.blnMove || action_.intMultiCount != 1 || !action_.blnPlaced) return;
        const std::string folder = text::ParentFolder(action_.strPlacedAt);
        std::vector<platform::PlannedCopy> planned;
        planned.reserve(kPlanned);
        for (std::size_t i = Index(); i < tables_.strSelPath.size() && planned.size() < kPlanned;
             ++i) {
            if (tables_.blnSelIsFile[i]) planned.push_back({tables_.strSelActualPath[i], folder});
        }
        session_.files().CopySoon(planned);
    }

    std::int64_t Count() const { return tables_.lngSelTop + 1; }
    std::size_t Index() const { return static_cast<std::size_t>(action_.lngIndex); }

    bool PlaceEverywhere() {
        for (action_.intMultiIndex = 1; action_.intMultiIndex <= action_.intMultiCount;
             ++action_.intMultiIndex) {
            session_.Yield();
            if (const char* why = WhyEnded(); why != nullptr) {
                session::LogTimed(session_, why);
                return false;
            }
            session_.state.blnPathLimitHit = false;
            Outcome outcome{.index = Index()};
            const bool hadError = std::exchange(action_.blnErrorOccurred, false);
            const bool goesOn = PlaceOne(outcome);
            Settle(outcome);
            action_.blnErrorOccurred = action_.blnErrorOccurred || hadError;
            progress_.Step();
            if (!goesOn) return false;
        }
        return true;
    }

    // Null to go on with the next object.
    const char* WhyEnded() const {
        if (action_.blnDiskFull) return " The action ended, since the disk is full.";
        if (session_.state.blnStopAction) return " User stopped the action.";
        const bool isCancelled = action_.bytOverrideAnswer == session::kOverrideCancel;
        return isCancelled ? " User canceled delete of rest of files" : nullptr;
    }

    // False ends the loop.
    bool PlaceOne(Outcome& outcome) {
        action_.blnPlaced = action_.blnProtected = false;
        action_.strDestination =
            ComputeDestination(session_, tables_.strSelName[Index()], tables_.strSelPath[Index()]);
        outcome.strDestination = action_.strDestination;
        if (const PathTest test = TestPathLimit(session_.state); test != PathTest::kGoOn) {
            outcome.kind = OutcomeKind::kLongPath;
            return test == PathTest::kNextDestination;
        }
        if (action_.blnNoDestination) {
            outcome.kind = OutcomeKind::kNoDestination;
            // The rule logs its own.
            if (!session_.frmDialog.optTo[3].Value) {
                session::LogTimed(session_,
                                  " Found no destination for " + tables_.strSelPath[Index()]);
            }
            return true;
        }
        const std::string& path = tables_.strSelPath[Index()];
        const std::string& actual = tables_.strSelActualPath[Index()];
        if (IsOntoItself(path, action_.strDestination) ||
            (actual != path && IsOntoItself(actual, action_.strDestination))) {
            outcome.kind = OutcomeKind::kOntoItself;
            TellOntoItself(session_);
            return true;
        }
        // What stands where the object will really go is the duplicate.
        action_.strDestination = CleanedDestination(action_.strDestination);
        DetermineIfDuplicateExists(session_);
        outcome.strDestination = action_.strDestination;
        if (const PathTest test = TestPathLimit(session_.state); test != PathTest::kGoOn) {
            outcome.kind = OutcomeKind::kLongPath;
            return test == PathTest::kNextDestination;
        }
        return Act(outcome);
    }

    bool Act(Outcome& outcome) {
        bool goesOn = true;
        if (action_.strDirResult.empty()) {
            PerformMoveOrCopy(session_);
            outcome.kind = OutcomeKind::kCopied;
        } else {
            goesOn = rule_(session_, outcome);
        }
        if (TestPathLimit(session_.state) != PathTest::kGoOn && !action_.blnPlaced) {
            outcome.kind = OutcomeKind::kLongPath;
        }
        return goesOn && TestPathLimit(session_.state) != PathTest::kEndLoop;
    }

    void Settle(Outcome& outcome) {
        auto& totals = session_.state.lastAction;
        if (action_.blnErrorOccurred) {
            outcome.kind = OutcomeKind::kFailed;
            ++totals.failed;
        } else if (action_.blnPlaced) {
            outcome.strDestination = action_.strPlacedAt;
            if (action_.blnPlacedByMove) outcome.kind = OutcomeKind::kMoved;
            ++totals.done;
        } else {
            const bool seemsPlaced = outcome.kind == OutcomeKind::kCopied ||
                                     outcome.kind == OutcomeKind::kOverwrote ||
                                     outcome.kind == OutcomeKind::kReplaced;
            if (action_.blnProtected) {
                outcome.kind = OutcomeKind::kProtected;
            } else if (seemsPlaced) {
                outcome.kind = OutcomeKind::kLeftAlone;
            }
            ++totals.skipped;
            if (outcome.kind == OutcomeKind::kSkippedDuplicate) ++totals.duplicates;
        }
        if (action_.sink) action_.sink->Settled(outcome);
    }

    Session& session_;
    session::ActionState& action_;
    const results::Selection& tables_;
    DuplicateRule rule_;
    ActionProgress progress_;
    platform::Busy busy_{session_.files()};
};

} // namespace

void DetermineIfDuplicateExists(Session& session) {
    auto& action = session.state.action;
    std::string& destination = action.strDestination;
    if (text::Length(destination) > session::kLongPath) {
        const auto& path = session.selection->strSelPath[static_cast<std::size_t>(action.lngIndex)];
        session::AskLongPath(session, path, destination, "DetermineIfDuplicateExists", "frmDialog");
        if (!session::ContinuesLongPath(session)) return;
        auto shortened = session::GetShortPathNameReturnCodes(session, destination);
        destination = std::move(shortened.path);
        if (shortened.status < 2) return RefuseUnconverted(session, destination);
    }
    auto& files = session.files();
    action.strDirResult = platform::StandingName(files, destination);
    action.blnDestIsFile = false;
    if (action.strDirResult.empty()) return;
    std::string file = platform::DirName(files, destination, platform::kDirFiles);
    if (file.empty()) return;
    action.strDirResult = std::move(file);
    action.blnDestIsFile = true;
}

void SkipAllDuplicates(Session& session) {
    Loop(session, Skip).Run();
}

void OverwriteAllDuplicates(Session& session) {
    Loop(session, Overwrite).Run();
}

void RenameAllDuplicates(Session& session) {
    Loop(session, Rename).Run();
}

void Ask(Session& session) {
    Loop(session, AskAboutDuplicate).Run();
}

} // namespace tarvix::actions
