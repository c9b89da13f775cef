#include "platform/linux/linux_file_system.h"
#include "platform/linux/part_file.h"
#include "platform/try.h"

#include <algorithm>
#include <ranges>

// Moves that a second thread makes while the next ones are prepared.
namespace tarvix::platform {

namespace {
const LinuxFileSystem::ResolvedLook& KeptOf(const std::shared_ptr<const Known>& known) {
    return static_cast<const LinuxFileSystem::ResolvedLook&>(*known);
}

const Resolved& HandedSource(const ReadyMove& move) {
    return KeptOf(move.source).place;
}

const Resolved& HandedTarget(const ReadyMove& move) {
    return KeptOf(move.target).place;
}

// Where one rename does all, and shows afterwards what it moved.
bool CanBeHanded(const Resolved& source, const Resolved& target) {
    const std::uint64_t device = DeviceOf(*source.st);
    return source.around && S_ISREG(source.st->stx_mode) && !target.Exists() &&
           !target.lacksFolder && target.otherName.empty() &&
           source.Drives().KeepsNumbersAt(device) && !source.Drives().FoldsCaseAt(device);
}
} // namespace

// Names that were read meanwhile are those of a folder in the middle of its changes.
bool LinuxFileSystem::KnowsHanded(const Resolved& target) {
    const std::uint64_t reads = store_.Counts().read;
    if (moves_.IsEmpty()) readsBeforeMoves_ = reads;
    if (reads == readsBeforeMoves_) return true;
    store_.Forget(target.Folder());
    return false;
}

bool LinuxFileSystem::HandMove(const Look& from, const FreePlace& to, MoveNote note) {
    const Resolved* const source = Believed(from.known.get());
    const Resolved* const target = Believed(to.known.get());
    if (!roads_.ahead || !roads_.renameNoReplace || source == nullptr || target == nullptr) {
        return false;
    }
    if (!CanBeHanded(*source, *target) || !KnowsHanded(*target)) return false;
    const auto here = LocationOf(*source, store_);
    const auto there = NewLocation(*source, *target, target->native);
    if (!here || !there) return false;
    const std::int64_t takenAt = std::min(KeptOf(from.known).takenAt, KeptOf(to.known).takenAt);
    const bool isAdded = moves_.Add({.source = from.known,
                                     .target = to.known,
                                     .from = *here,
                                     .to = *there,
                                     .believedUntil = takenAt + FolderStore::kBelieved,
                                     .note = std::move(note),
                                     .unwritten = std::nullopt});
    if (isAdded) NoteRenamed(*source, target->native);
    return isAdded;
}

MoveEnd LinuxFileSystem::Make(ReadyMove& move) const {
    if (store_.Tick() > move.believedUntil) return MoveEnd::kGivenUp;
    if (!RenameInOneStep(move.from, move.to)) return MoveEnd::kRefused;
    if (IsExchanged(HandedSource(move), move.to)) return MoveEnd::kExchanged;
    if (!move.note.stream) return MoveEnd::kMade;
    auto written = move.note.stream->Write(move.note.text);
    if (written) written = move.note.stream->Flush();
    if (!written) move.unwritten = std::move(written.error());
    return MoveEnd::kMade;
}

// Their names count again as they did before they were handed over.
void LinuxFileSystem::UndoHanded(std::span<const ReadyMove> left) {
    NoteChanged();
    for (const ReadyMove& move : std::views::reverse(left))
        store_.NoteRenamed(HandedTarget(move).native, HandedSource(move).native);
}

HandedMoves LinuxFileSystem::TakeHanded(MoveWait wait) {
    auto told = moves_.Take(wait);
    HandedMoves moves{.made = told.made,
                      .left = told.left.size(),
                      .astray = std::nullopt,
                      .unwritten = std::move(told.unwritten)};
    if (told.left.empty()) return moves;
    UndoHanded(told.left);
    const ReadyMove& first = told.left.front();
    const Resolved& source = HandedSource(first);
    const Resolved& target = HandedTarget(first);
    if (told.end == MoveEnd::kRefused) {
        store_.Forget(source.Folder());
        store_.Forget(target.Folder());
    }
    if (told.end == MoveEnd::kExchanged && !TakeBack(source, target, first.to)) {
        moves.astray = AstrayError(source.DrivePath(), target.DrivePath());
    }
    return moves;
}

} // namespace tarvix::platform
