#pragma once

#include "platform/file_system.h"
#include "platform/folder_visit.h"
#include "platform/linux/copy_ahead.h"
#include "platform/linux/copy_run.h"
#include "platform/linux/drive_table.h"
#include "platform/linux/folder_store.h"
#include "platform/linux/linux_folder_visitor.h"
#include "platform/linux/linux_foresight.h"
#include "platform/linux/linux_open_folder.h"
#include "platform/linux/listing_store.h"
#include "platform/linux/move_queue.h"
#include "platform/linux/path_resolver.h"

#include <memory>
#include <span>

namespace tarvix::platform {

// The disks of this machine. Facts, listings and reading are safe from several threads; what
// changes files is for one thread.
class LinuxFileSystem : public FileSystem, public VisitedFiles {
  public:
    explicit LinuxFileSystem(
        Mounts& mounts, CopyRoads roads = {}, StoreClock clock = {},
        std::shared_ptr<ListingStore> listings = std::make_shared<ListingStore>())
        : mounts_(mounts), listings_(std::move(listings)), store_(std::move(clock), listings_),
          resolver_(mounts, store_), roads_(roads) {}
    // Waits for visitors that are just finding a folder.
    ~LinuxFileSystem() override;
    LinuxFileSystem(const LinuxFileSystem&) = delete;
    LinuxFileSystem& operator=(const LinuxFileSystem&) = delete;

    Result<ObjectFacts> Facts(std::string_view path) override;
    Result<Look> LookAt(std::string_view path) override;
    Result<Look> LookAtSeen(const SeenObject& seen) override;
    std::optional<FreePlace> KnownFree(std::string_view path) override;
    Result<std::string> TruePath(std::string_view path) override;
    Result<bool> Holds(std::string_view outer, std::string_view inner) override;
    Result<std::string> ShortPath(std::string_view path) override;
    Result<std::unique_ptr<OpenFolder>> Open(std::string_view folder) override;
    Result<void> SetAttributes(std::string_view path, std::uint32_t attributes) override;
    Result<void> CopyFile(std::string_view from, std::string_view to, bool overwrite,
                          const CopyObserver& observer) override;
    Result<void> CopyFolder(std::string_view from, std::string_view to, bool overwrite,
                            const CopyObserver& observer) override;
    Result<std::unique_ptr<UnnamedCopy>> PrepareFile(std::string_view from, std::string_view to,
                                                     const CopyObserver& observer) override;
    Result<std::unique_ptr<UnnamedCopy>> PrepareFolder(std::string_view from, std::string_view to,
                                                       const CopyObserver& observer) override;
    Result<std::vector<std::string>> RemoveAbandoned(std::string_view folder) override;
    void CopySoon(std::span<const PlannedCopy> copies) override;
    Result<void> MoveFile(std::string_view from, std::string_view to,
                          const CopyObserver& observer) override;
    Result<void> MoveFolder(std::string_view from, std::string_view to) override;
    Result<void> CopyFileTo(const Look& from, const FreePlace& to,
                            const CopyObserver& observer) override;
    Result<void> MoveFileTo(const Look& from, const FreePlace& to,
                            const CopyObserver& observer) override;
    Result<void> MoveFolderTo(const Look& from, const FreePlace& to) override;
    bool HandMove(const Look& from, const FreePlace& to, MoveNote note) override;
    HandedMoves TakeHanded(MoveWait wait) override;
    Result<std::unique_ptr<UnnamedCopy>> PrepareFileOf(const Look& from, std::string_view to,
                                                       const CopyObserver& observer) override;
    Result<std::unique_ptr<UnnamedCopy>> PrepareFolderOf(const Look& from, std::string_view to,
                                                         const CopyObserver& observer) override;
    Result<void> SetAttributesOf(const Look& object, std::uint32_t attributes) override;
    Result<void> DeleteFileOf(const Look& object, bool force) override;
    Result<void> RemoveFolderOf(const Look& object) override;
    Result<void> DeleteFile(std::string_view path, bool force) override;
    Result<void> RemoveFolder(std::string_view path) override;
    Result<void> CreateFolder(std::string_view path) override;
    Result<std::string> ReadBytes(std::string_view path, std::uint64_t offset,
                                  std::size_t count) override;
    Result<std::unique_ptr<TextStream>> CreateTextFile(std::string_view path,
                                                       bool overwrite) override;
    Result<void> ReplaceContent(std::string_view path, std::string_view from) override;
    Result<std::unique_ptr<TextStream>> OpenAsTextStream(std::string_view path,
                                                         OpenMode mode) override;
    void ExpectChanges(bool many) override;
    Foresight& Foresee() override { return foresight_; }
    void KeepListings(bool isKept) override { listings_->Want(isKept); }
    std::vector<DriveInfo> Drives() override;
    bool AllowsReadingThreads() const override { return true; }
    std::unique_ptr<FolderVisitor> NewVisitor() override;

    // ---- for the other parts of this machine ----

    // The object: 53 missing, 76 when a folder on the way is missing.
    Result<Resolved> Existing(std::string_view path) const { return resolver_.Existing(path); }
    // The object that was seen, as LookAtSeen tells it, put into a new place.
    Result<ObjectFacts> Seen(const SeenObject& seen, Resolved& place);
    // The drive form of an absolute native path.
    std::string DrivePathOf(std::string_view native) const {
        return mounts_.Now()->ToDrive(native);
    }
    // To be told when an object was taken away by another road.
    void NoteGone(const Resolved& place);
    // To be told when it was put back there.
    void NoteBack(const Resolved& place) { NoteMade(place); }
    // A folder by its drive path, as Open gives it.
    Result<LinuxOpenFolder> OpenByPath(std::string_view folder);
    // How many listings were given out of those that are kept.
    std::uint64_t ListingsGiven() const { return listings_->Given(); }
    // What its store of folders had to do so far.
    StoreCounts Counts() const { return store_.Counts(); }

    // A look or a free place hands down what it was resolved to. That is believed as long as a
    // folder is (FolderStore::kBelieved) and nothing was changed here in between.
    struct ResolvedLook;

  private:
    static std::uint64_t NextNumber();
    // To be called once its place is filled.
    std::shared_ptr<const Known> Kept(std::shared_ptr<ResolvedLook> look) const;
    // Null where it isn't believed.
    const Resolved* Believed(const Known* known) const;
    bool Stands(const ResolvedLook& kept) const;
    // Null for what others keep.
    static const ResolvedLook* ResolvedOf(const Known* known);
    // What belongs to the look, or else is put into a new place.
    Result<const Resolved*> ObjectOf(const Look& look, Resolved& anew);
    Result<const Resolved*> SourceOf(const Look& look, Resolved& anew); // 53 for a folder
    Result<const Resolved*> FolderOf(const Look& look, Resolved& anew); // 76 for a file
    Result<const Resolved*> TargetOf(const FreePlace& place, Resolved& anew) const;

    // A copy without its name, and the place where it will get one.
    class Prepared;

    Result<Resolved> TruePlace(std::string_view path);
    // A file for its bytes, links followed: 52, 53, and 70 for writing to a read-only one.
    Result<Resolved> FileForBytes(std::string_view path, bool toWrite);
    Result<ObjectFacts> FactsOf(const Resolved& place, std::string_view path);
    // The parts of the routines above, with both objects found.
    Result<void> Copy(const Resolved& source, const Resolved& target, std::string_view from,
                      std::string_view to, bool overwrite, const CopyObserver& observer);
    Result<void> Move(const Resolved& source, const Resolved& target, std::string_view from,
                      std::string_view to, const CopyObserver& observer);
    Result<void> MoveFolder(const Resolved& source, const Resolved& target, std::string_view from,
                            std::string_view to);
    Result<std::unique_ptr<UnnamedCopy>> PrepareFile(const Resolved& source, std::string_view from,
                                                     std::string_view to,
                                                     const CopyObserver& observer);
    Result<std::unique_ptr<UnnamedCopy>> PrepareFolder(const Resolved& source,
                                                       std::string_view from, std::string_view to,
                                                       const CopyObserver& observer);
    Result<void> SetAttributes(const Resolved& place, std::string_view path,
                               std::uint32_t attributes);
    Result<void> DeleteFile(const Resolved& place, std::string_view path, bool force);
    Result<void> RemoveFolder(const Resolved& place, std::string_view path);
    Result<void> CopyOne(const Resolved& source, const Resolved& target, std::string_view from,
                         std::string_view to, CopyRun& run);
    // The look that was taken at a source to copy it ahead, in the same way, and what it is good
    // for: that copy gets its name, if it can still be used.
    std::optional<Look> CopiedAhead(const SeenObject& seen);
    std::optional<Result<void>> NameAhead(const ResolvedLook& from, std::string_view path,
                                          const FreePlace& to, const CopyObserver& observer);
    void NoteCopied(const Result<void>& copied, const Resolved& target);
    // Where the source of a planned copy lies, if its facts tell of each change. For any thread.
    bool FindAhead(AheadItem& item) const;
    CopyAhead* Ahead() { return roads_.ahead && roads_.unnamedParts ? &ahead_ : nullptr; }
    // Whether a target keeps an object from getting its name.
    bool IsTaken(const Resolved& source, const Resolved& target);
    // `native` is the path that it gets, `to` its place.
    Sys<void> Rename(const Resolved& source, const Resolved& target, std::string_view native,
                     const Sys<Location>& to);
    bool IsGone(const Resolved& source);
    // Whether another object than the source stands there, where that can be told.
    static bool IsExchanged(const Resolved& source, const Location& there);
    // What took the place of a seen object in the moment of its move goes back; `there` is the new
    // place.
    Result<void> CheckMoved(const Resolved& source, const Resolved& target, const Location& there,
                            std::string_view from, std::string_view to);
    // Whether that went back.
    bool TakeBack(const Resolved& source, const Resolved& target, const Location& there);
    static PlatformError AstrayError(std::string_view from, std::string_view to);
    // Whether the names that handed moves will have are known here.
    bool KnowsHanded(const Resolved& target);
    // For the thread that makes moves.
    MoveEnd Make(ReadyMove& move) const;
    void UndoHanded(std::span<const ReadyMove> left);
    // `native` is the path of the target, which the location points to.
    Sys<Location> NewLocation(const Resolved& source, const Resolved& target,
                              const std::string& native);
    Result<void> MoveAcross(const Resolved& source, const Resolved& target, std::string_view from,
                            std::string_view to, const CopyObserver& observer);
    // The names that a copy without a name could have, in a folder that was just opened.
    std::vector<std::string> TemporariesIn(int folder);
    // No look that was taken before stands.
    void NoteChanged() { ++changes_; }
    void NoteMade(const Resolved& place);
    // `to` is the native path that it has now.
    void NoteRenamed(const Resolved& source, std::string_view to);

    Mounts& mounts_;
    std::shared_ptr<ListingStore> listings_;
    FolderStore store_;
    std::shared_ptr<VisitedBy> visitedBy_ = std::make_shared<VisitedBy>(this);
    PathResolver resolver_;
    LinuxForesight foresight_{resolver_};
    std::atomic<std::uint64_t> changes_ = 0; // made here so far, of what stood
    std::atomic<std::uint64_t> makes_ = 0;   // where nothing stood
    const std::uint64_t number_ = NextNumber();
    CopyRoads roads_;
    CopyAhead ahead_{roads_, [this](AheadItem& item) { return FindAhead(item); }};
    std::uint64_t readsBeforeMoves_ = 0; // of the store, when no handed move was on its way
    MoveQueue moves_{[this](ReadyMove& move) { return Make(move); }};
};

struct LinuxFileSystem::ResolvedLook final : Known {
    explicit ResolvedLook(std::uint64_t number) : fileSystem(number) {}
    std::uint64_t fileSystem;
    std::uint64_t changes = 0; // that were made before it
    std::uint64_t makes = 0;
    std::int64_t takenAt = 0;
    bool isUnreached = false; // no folder was opened around it: good for naming its copy alone
    Resolved place;
};

} // namespace tarvix::platform
