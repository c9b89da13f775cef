#include "platform/linux/file_copier.h"
#include "platform/linux/folder_copier.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/native_facts.h"
#include "platform/linux/tree_size.h"
#include "platform/try.h"

#include <climits>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
constexpr std::size_t kMostPlanned = 128;

// Whether a file's facts can be trusted to tell of each change at once.
bool IsLocal(const Resolved& place) {
    return std::ranges::any_of(place.Drives().Drives(), [&place](const DriveInfo& drive) {
        return drive.path == place.start->root && drive.type != DriveType::kNetwork;
    });
}
} // namespace

Result<void> LinuxFileSystem::CopyFile(std::string_view from, std::string_view to, bool overwrite,
                                       const CopyObserver& observer) {
    TX_TRY_ASSIGN(const Resolved source, resolver_.File(from));
    if (IsSpecial(*source.st)) return SpecialFailure(from);
    TX_TRY_ASSIGN(const Resolved target,
                  overwrite ? resolver_.Target(to) : resolver_.NewTarget(to));
    return Copy(source, target, from, to, overwrite, observer);
}

Result<void> LinuxFileSystem::CopyFileTo(const Look& from, const FreePlace& to,
                                         const CopyObserver& observer) {
    if (const auto* const ahead = ResolvedOf(from.known.get()); ahead && ahead->isUnreached) {
        if (auto named = NameAhead(*ahead, from.path, to, observer)) return std::move(*named);
    }
    Resolved sourceAnew;
    TX_TRY_ASSIGN(const auto* const source, SourceOf(from, sourceAnew));
    if (IsSpecial(*source->st)) return SpecialFailure(from.path);
    Resolved targetAnew;
    TX_TRY_ASSIGN(const auto* const target, TargetOf(to, targetAnew));
    return Copy(*source, *target, from.path, to.path, false, observer);
}

Result<void> LinuxFileSystem::Copy(const Resolved& source, const Resolved& target,
                                   std::string_view from, std::string_view to, bool overwrite,
                                   const CopyObserver& observer) {
    if (target.Exists()) {
        TX_TRY(CheckReplace(*source.st, *target.st, LeadsToFolder(target), overwrite, to));
    }
    CopyRun run(observer, roads_, overwrite);
    run.ahead = Ahead();
    return CopyOne(source, target, from, to, run);
}

Result<void> LinuxFileSystem::CopyFolder(std::string_view from, std::string_view to, bool overwrite,
                                         const CopyObserver& observer) {
    TX_TRY_ASSIGN(const Resolved source, resolver_.Folder(from));
    if (!S_ISDIR(source.st->stx_mode)) return CopyFile(from, to, overwrite, observer);
    TX_TRY_ASSIGN(const Resolved target, resolver_.Target(to));
    if (!target.Exists()) {
        TX_TRY_ASSIGN(const auto prepared, PrepareFolder(from, to, observer));
        return NameWhole(*prepared);
    }
    if (!S_ISDIR(target.st->stx_mode)) {
        return FailureBy(overwrite ? kPathFileAccess : kAlreadyExists, to);
    }
    TX_TRY_ASSIGN(UniqueFd out, Named(OpenItself(target), to));
    if (IsWithin(out.Get(), *source.st)) return IntoItselfFailure(from, to);
    TX_TRY_ASSIGN(UniqueFd in, Named(OpenItself(source), from));
    NoteChanged();
    store_.Forget(target.native);
    CopyRun run(observer, roads_, overwrite);
    run.ahead = Ahead();
    auto again = run.IsObserved() ? OpenItself(source) : Sys<UniqueFd>();
    TreeSize size(again ? std::move(*again) : UniqueFd(), source.start->drives, roads_.sizeAfter);
    run.size = &size;
    FolderCopier copier(run, source.Drives(), from, to);
    TX_TRY(copier.Copy(std::move(in), std::move(out), false));
    if (std::string skipped = copier.Skipped(); !skipped.empty()) {
        return Failure(kPathFileAccess, std::move(skipped));
    }
    return {};
}

// What its copy was made from is what stands there. Facts that must be asked for one by one are
// left to a look that reaches the object.
std::optional<Look> LinuxFileSystem::CopiedAhead(const SeenObject& seen) {
    const bool isAsked =
        Ahead() != nullptr && store_.IsInRun() && seen.sighting.location != kAnyRoad;
    const auto source = isAsked ? ahead_.LookAt(seen.path) : std::nullopt;
    if (!source || !source->found || source->location != seen.sighting.location) {
        return std::nullopt;
    }
    auto& look = static_cast<ResolvedLook&>(*source->found);
    const DriveTable& drives = look.place.Drives();
    look.place.st = source->st;
    const bool isPlain = !MayHaveHoles(source->st) &&
                         drives.DosAttributesAt(DeviceOf(source->st)) == DosAttributes::kNone;
    if (!isPlain || !Stands(look)) return std::nullopt;
    const auto facts = FactsFrom(source->st, look.place.NativeName(), {AT_FDCWD, ""}, drives);
    if (!CheckSame(seen, facts)) return std::nullopt;
    return Look{std::string(seen.path), facts, source->found, seen.sighting.location};
}

std::optional<Result<void>> LinuxFileSystem::NameAhead(const ResolvedLook& from,
                                                       std::string_view path, const FreePlace& to,
                                                       const CopyObserver& observer) {
    if (!Stands(from)) return std::nullopt;
    Resolved anew;
    const auto target = TargetOf(to, anew);
    if (!target) return std::unexpected(target.error());
    if ((*target)->Exists()) return std::nullopt;
    const auto out = store_.Locate((*target)->native);
    if (!out) return std::nullopt;
    const At at = *out;
    const struct statx& st = *from.place.st;
    CopyRun run(observer, roads_, false);
    run.ahead = &ahead_;
    run.SetTotal(st.stx_size);
    if (!run.Begin(path)) return FailureBy(kInterrupted, path);
    auto named = UseCopyAhead({{AT_FDCWD, ""}, st, path, at.folder, at.name, to.path}, run);
    if (named) NoteCopied(*named, **target);
    return named;
}

void LinuxFileSystem::CopySoon(std::span<const PlannedCopy> copies) {
    if (Ahead() == nullptr) return;
    std::vector<AheadItem> items;
    std::string_view folder;
    std::shared_ptr<UniqueFd> target;
    for (const PlannedCopy& copy : copies.first(std::min(copies.size(), kMostPlanned))) {
        if (target == nullptr || folder != copy.toFolder) {
            folder = copy.toFolder;
            const auto place = resolver_.ByText(folder);
            if (!place || !IsLocal(*place)) continue;
            auto opened = OpenAt({AT_FDCWD, place->native.c_str()}, O_PATH | O_DIRECTORY);
            target = std::make_shared<UniqueFd>(opened ? std::move(*opened) : UniqueFd());
        }
        if (*target) items.push_back({std::string(copy.from), nullptr, {}, target, copy.location});
    }
    ahead_.Replace(std::move(items));
}

bool LinuxFileSystem::FindAhead(AheadItem& item) const {
    auto look = std::make_shared<ResolvedLook>(number_);
    look->changes = changes_;
    look->takenAt = store_.Tick();
    look->isUnreached = true;
    Resolved& source = look->place;
    if (item.location != kAnyRoad) {
        const auto at = resolver_.FromLocation(item.key, item.location, source);
        if (!at || !IsLocal(source) || std::strlen(at->name) >= PATH_MAX) return false;
        item.sourceFolder = at->folder;
        item.source = at->name;
        item.found = std::move(look);
        return true;
    }
    if (!resolver_.ByText(item.key, source) || !IsLocal(source)) return false;
    if (source.native.size() >= PATH_MAX) return false;
    item.source = std::move(source.native);
    return true;
}

Result<void> LinuxFileSystem::CopyOne(const Resolved& source, const Resolved& target,
                                      std::string_view from, std::string_view to, CopyRun& run) {
    TX_TRY_ASSIGN(const Location in, Named(LocationOf(source, store_), from));
    TX_TRY_ASSIGN(const Location out, Named(store_.Locate(target.native), to));
    if (S_ISREG(source.st->stx_mode)) run.SetTotal(source.st->stx_size);
    const At at = out;
    const bool isSeen = source.around != nullptr;
    auto copied = CopyObject({in, *source.st, from, at.folder, at.name, to, isSeen}, run);
    NoteCopied(copied, target);
    return copied;
}

void LinuxFileSystem::NoteCopied(const Result<void>& copied, const Resolved& target) {
    if (copied) target.Exists() ? NoteChanged() : NoteMade(target);
    // Others were faster than what is known of the folder.
    if (!copied && copied.error().number == kAlreadyExists) store_.Forget(target.Folder());
}

} // namespace tarvix::platform
