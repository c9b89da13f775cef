#pragma once

#include "actions/place/action_run.h"
#include "actions/place/engine.h"
#include "actions/place/outcome.h"
#include "platform/file_system.h"
#include "session/attempt.h"
#include "session/session.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::actions {

using platform::ObjectFacts;
using session::Session;

// One object on its way to one place.
class Placing {
  public:
    Placing(Session& session, ActionRun& run, Job job)
        : session_(session), run_(run), object_(job.object), place_(std::move(job.place)),
          wasFree_(job.wasFree), verb_(job.verb), overwrites_(job.overwrites),
          makeWay_(std::move(job.makeWay)), look_(std::move(job.look)) {}
    // What was taken away for nothing comes back.
    ~Placing() { (void)PutBack(); }
    Placing(const Placing&) = delete;
    Placing& operator=(const Placing&) = delete;

    // All of it, as PlaceObject tells it; once.
    Outcome Run();

  private:
    // ---- the steps, in order ----
    void GoThroughSteps();
    bool FinishDestination();
    void ShowStatus();
    void FindReadOnlyDrives();
    bool MayOverwrite();
    bool ReadObjects();
    bool PutThere();
    bool Replaces() const { return overwrites_ || makeWay_ != nullptr; }
    // The copy lies whole beside the place before what stands there goes, and gets its name then.
    bool ReplaceWhatStands();
    bool MakeWay();
    bool NameCopy();
    // What stands at the destination is kept in the recycle bin.
    bool RecycleDestination();
    // What was recycled for a copy that got no name stands again, or the failure tells where it is.
    void UndoRecycling();
    bool PutBack();
    // An original that can't go stays beside its copy.
    void RecycleSource();
    void SetCombined();
    void LogPlaced();
    // Folders that were made for an object that didn't get there.
    void TakeBackFolders();
    Outcome Result();

    // ---- the file system ----
    platform::Result<void> Read(std::string_view path, ObjectFacts& facts);
    platform::Result<void> LookAtSource();
    // By its path alone where it could not be looked at.
    const platform::Look& Source();
    // Never replaces, and a folder never goes into one that is there.
    platform::Result<void> Copy();
    platform::Result<void> Prepare();
    platform::Result<void> Move();

    // ---- the error policy ----
    session::ErrorContext Context() const;
    // Runs one statement. False when the routine is to leave.
    template <class Statement>
    bool Do(Statement&& statement) {
        const auto done = session::Attempt(
            session_, Context(), statement,
            [this](const platform::PlatformError& error) { return OwnRule(error); });
        if (done) return true;
        if (!isSettled_) Fail(done.result.error());
        return false;
    }
    void Fail(const platform::PlatformError& error);
    bool IsStop(const platform::PlatformError& error) const {
        return error.number == platform::kInterrupted && session_.state.blnStopNow;
    }
    // The object isn't what the search saw: it stays, and is told of at the end of the action.
    void NoteChanged();
    std::optional<int> OwnRule(const platform::PlatformError& error);
    // 58: what stands there may have come just now.
    std::optional<int> LeaveTaken();
    // 18: the user wants no end of the copy in hand.
    std::optional<int> LeaveStopped();
    // 76, first time: the folder may be missing.
    std::optional<int> MakePathOnce();
    void TellDeepFolder(bool isThere) const;
    // 70, first time: what the system refuses may go by copying and recycling.
    std::optional<int> ForceOnce();
    // A statement of the forced road: its errors have no second chance.
    template <class Statement>
    bool Force(Statement&& statement) {
        const auto done = session::Attempt(session_, Context(), statement,
                                           [this](const platform::PlatformError& error) {
                                               return IsStop(error) ? LeaveStopped() : std::nullopt;
                                           });
        if (!done && !isStopped_) Fail(done.result.error());
        return static_cast<bool>(done);
    }
    bool ForceCopyThere();
    std::optional<int> ForceCopy();
    std::optional<int> ForceMove();
    void LogForcedMove();

    Session& session_;
    ActionRun& run_;
    const Object& object_;
    platform::FreePlace place_; // where it is to go
    bool wasFree_;
    // Both as people read them, once the place is finished; they belong to the run.
    std::string_view shownSource_;
    std::string_view shownPlace_;
    Verb verb_;
    bool overwrites_;
    std::function<bool()> makeWay_;
    std::optional<platform::Look> look_;          // at the source
    platform::Look unseen_;                       // what Source gives where there is none
    std::unique_ptr<platform::UnnamedCopy> copy_; // that lies ready
    bool blnDestOnCD_ = false;
    ObjectFacts sourceFacts_;
    ObjectFacts destinationFacts_;
    std::uint32_t sourceAttributes_ = 0;
    std::uint32_t destinationAttributes_ = 0;
    bool isProtected_ = false;
    bool isRecycled_ = false;              // what stood at the destination went to the recycle bin
    std::optional<std::size_t> trashed_;   // its number there
    std::vector<std::string> madeFolders_; // for this object, the topmost first
    bool isTried_ = false;                 // a copy or move
    bool isCopyOnly_ = false;              // moved, but the original could not go
    bool forceTried_ = false;
    bool pathTried_ = false;
    bool isPlaced_ = false;  // the object stands at its new place
    bool isDone_ = false;    // and all that belongs to it was done
    bool isSettled_ = false; // told or logged already; the routine only leaves
    bool hasFailed_ = false;
    int errorNumber_ = 0;
    bool isTaken_ = false;
    bool isChanged_ = false;
    bool isStopped_ = false;
    std::string error_;
};

} // namespace tarvix::actions
