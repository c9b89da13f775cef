#pragma once

#include "platform/file_system.h"

#include <deque>
#include <map>
#include <optional>

namespace tarvix::platform {

// What the disk foresees, and one folder that takes nothing new.
class FaultyForesight : public Foresight {
  public:
    explicit FaultyForesight(FileSystem& files) : files_(files) {}

    Result<void> MayRead(std::string_view path) override { return files_.Foresee().MayRead(path); }
    Result<void> MayAddTo(std::string_view folder) override {
        if (!closed.empty() && folder == closed) {
            return Failure(kPermissionDenied, closed + ": Permission denied.");
        }
        return files_.Foresee().MayAddTo(folder);
    }
    Result<void> MayTake(std::string_view path) override { return files_.Foresee().MayTake(path); }
    std::optional<DiskRoom> RoomIn(std::string_view folder) override {
        return files_.Foresee().RoomIn(folder);
    }

    std::string closed;

  private:
    FileSystem& files_;
};

// Hands every call on to another FileSystem, numbers the calls, and fails those it was told to
// without handing them on. The folders and text streams that it opens count too. Operations are
// named as the routines are ("CopyFile", "Facts", "Open"), those of opened objects "List",
// "FolderFacts", "ReadLine", "Write", "Flush" and "Close". A copy that is prepared counts as
// "CopyFile" or "CopyFolder", and "NameCopy" when it gets its name. Numbers start at 1.
class FaultyFileSystem : public FileSystem {
  public:
    struct Call {
        std::string operation;
        std::string path;
        std::string target; // of a copy or move
    };

    explicit FaultyFileSystem(FileSystem& files) : files_(files) {}

    // Fails the n-th call of all, or the n-th of one operation, counted from the last reset.
    void FailCall(std::size_t number, int error);
    void FailCall(std::string_view operation, std::size_t number, int error);
    // Fails each call of an operation, or each call whose source or target is that path (without
    // regard to case); with an empty operation, whatever it does.
    void FailAll(std::string_view operation, int error);
    void FailPath(std::string_view path, int error, std::string_view operation = {});
    // Runs `action` before that call is failed or handed on, to change the disk in the middle.
    void BeforeCall(std::size_t number, std::function<void()> action);
    void BeforeCall(std::string_view operation, std::size_t number, std::function<void()> action);
    void ClearFaults() { faults_.clear(); }
    // It is foreseen that nothing new can be put into this folder; calls don't fail for that.
    void ForeseeNoNewIn(std::string folder) { foresight_.closed = std::move(folder); }

    // All calls since the last reset, failed ones too.
    const std::vector<Call>& Calls() const { return calls_; }
    std::size_t Count() const { return calls_.size(); }
    std::size_t Count(std::string_view operation) const;
    // Starts counting at 1 again; faults stay.
    void ResetCounts();

    // Counts one call; its error if it is to fail.
    Result<void> Enter(std::string_view operation, std::string_view path,
                       std::string_view target = {});

    Result<ObjectFacts> Facts(std::string_view path) override;
    // Counts as "Facts"; what is done to an object that was looked at counts as the routine for a
    // path.
    Result<Look> LookAtSeen(const SeenObject& seen) override;
    Result<void> CopyFileTo(const Look& from, const FreePlace& to,
                            const CopyObserver& observer) override;
    Result<void> MoveFileTo(const Look& from, const FreePlace& to,
                            const CopyObserver& observer) override;
    Result<void> MoveFolderTo(const Look& from, const FreePlace& to) override;
    Result<std::unique_ptr<UnnamedCopy>> PrepareFileOf(const Look& from, std::string_view to,
                                                       const CopyObserver& observer) override;
    Result<std::unique_ptr<UnnamedCopy>> PrepareFolderOf(const Look& from, std::string_view to,
                                                         const CopyObserver& observer) override;
    Result<void> SetAttributesOf(const Look& object, std::uint32_t attributes) override;
    Result<void> DeleteFileOf(const Look& object, bool force) override;
    Result<void> RemoveFolderOf(const Look& object) override;
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
    void CopySoon(std::span<const PlannedCopy> copies) override { files_.CopySoon(copies); }
    // A file that was handed over is moved at once, and counts as "MoveFile"; while moves are held
    // it is moved when it is asked for.
    bool HandMove(const Look& from, const FreePlace& to, MoveNote note) override;
    HandedMoves TakeHanded(MoveWait wait) override;
    void HoldMoves(bool isHeld) { holdsMoves_ = isHeld; }
    // What is moved from there is told to be another object that can't go back.
    void SendAstray(std::string path) { astray_ = std::move(path); }
    // Takes no moves over.
    void RefuseMoves() { refusesMoves_ = true; }
    // Of a folder that is there all names are known.
    std::optional<FreePlace> KnownFree(std::string_view path) override;
    // How many moves were handed over.
    std::size_t Handed() const { return handedCount_; }
    Result<void> MoveFile(std::string_view from, std::string_view to,
                          const CopyObserver& observer) override;
    Result<void> MoveFolder(std::string_view from, std::string_view to) override;
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
    std::vector<DriveInfo> Drives() override { return files_.Drives(); }
    Foresight& Foresee() override { return foresight_; }

  private:
    struct HandedMove {
        Look from;
        FreePlace to;
        MoveNote note;
    };
    void MakeHanded();

    struct Fault {
        std::string operation;  // empty: any
        std::string path;       // empty: any; else upper case, no final "\"
        std::size_t number = 0; // 0: each
        int error = 0;          // 0: none, only the action
        std::function<void()> action;
    };

    bool Applies(const Fault& fault, const Call& call, std::size_t ofAll,
                 std::size_t ofOperation) const;

    FileSystem& files_;
    FaultyForesight foresight_{files_};
    std::vector<Fault> faults_;
    std::vector<Call> calls_;
    std::map<std::string, std::size_t, std::less<>> counts_;
    std::deque<HandedMove> handed_; // those that were not made
    HandedMoves told_;
    std::size_t handedCount_ = 0;
    std::string astray_;
    bool hasRefused_ = false;
    bool holdsMoves_ = false;
    bool refusesMoves_ = false;
};

} // namespace tarvix::platform
