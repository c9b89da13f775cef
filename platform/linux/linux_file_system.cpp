#include "platform/linux/linux_file_system.h"

#include "platform/linux/native_facts.h"
#include "platform/names.h"
#include "platform/short_names.h"
#include "platform/try.h"

#include <fmt/core.h>

#include <cerrno>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <typeinfo>

namespace tarvix::platform {

namespace {
constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

// Opens a folder only if no symbolic link lies on its path: then its path is its true one.
Sys<UniqueFd> OpenWithoutLinks(At at) {
    open_how how{};
    how.flags = kFolderFlags;
    how.resolve = RESOLVE_NO_SYMLINKS;
    UniqueFd fd(static_cast<int>(::syscall(SYS_openat2, at.folder, at.name, &how, sizeof how)));
    if (!fd) return std::unexpected(errno);
    return fd;
}

struct OpenedFolder {
    UniqueFd fd;
    std::string native; // its true path
};

Sys<OpenedFolder> OpenFolderAt(const std::string& native) {
    TX_TRY_ASSIGN(const Location location, Locate(native));
    auto fd = OpenWithoutLinks(location);
    if (fd && !location.folder) return OpenedFolder{std::move(*fd), native.empty() ? "/" : native};
    const bool isOtherwise = fd || fd.error() == ELOOP || fd.error() == ENOSYS ||
                             fd.error() == EPERM || fd.error() == EAGAIN;
    if (!isOtherwise) return std::unexpected(fd.error());
    TX_TRY_ASSIGN(UniqueFd walked, OpenAt(location, kFolderFlags));
    std::string truePath(PATH_MAX, '\0');
    const std::string link = fmt::format("/proc/self/fd/{}", walked.Get());
    const ssize_t length = ::readlink(link.c_str(), truePath.data(), truePath.size());
    truePath.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    if (truePath.empty()) truePath = native;
    return OpenedFolder{std::move(walked), std::move(truePath)};
}

std::string ShortForm(std::string_view truePath) {
    std::string out;
    const bool isShare = truePath.starts_with("\\\\");
    std::size_t rootEnd = truePath.find('\\', isShare ? 2 : 0);
    if (isShare && rootEnd != truePath.npos) rootEnd = truePath.find('\\', rootEnd + 1);
    if (rootEnd == truePath.npos) return std::string(truePath);
    out = truePath.substr(0, rootEnd);
    while (rootEnd < truePath.size()) {
        const std::size_t end = std::min(truePath.find('\\', rootEnd + 1), truePath.size());
        out += '\\';
        if (end > rootEnd + 1) out += ShortNameOf(truePath.substr(rootEnd + 1, end - rootEnd - 1));
        rootEnd = end;
    }
    return out;
}

bool MayLeadToFolder(const Resolved& place) {
    return place.Exists() && (S_ISDIR(place.st->stx_mode) || S_ISLNK(place.st->stx_mode));
}
} // namespace

// ---- looks ----

// No other file system of this program has the same.
std::uint64_t LinuxFileSystem::NextNumber() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

std::shared_ptr<const Known> LinuxFileSystem::Kept(std::shared_ptr<ResolvedLook> look) const {
    look->changes = changes_;
    look->makes = makes_;
    look->takenAt = store_.Tick();
    return look;
}

const Resolved* LinuxFileSystem::Believed(const Known* known) const {
    const ResolvedLook* const kept = ResolvedOf(known);
    return kept && Stands(*kept) && !kept->isUnreached ? &kept->place : nullptr;
}

const LinuxFileSystem::ResolvedLook* LinuxFileSystem::ResolvedOf(const Known* known) {
    const bool isOurs = known != nullptr && typeid(*known) == typeid(ResolvedLook);
    return isOurs ? static_cast<const ResolvedLook*>(known) : nullptr;
}

bool LinuxFileSystem::Stands(const ResolvedLook& kept) const {
    // A file stays what it is while others are made beside it.
    const bool isApart = kept.place.Exists() && !MayLeadToFolder(kept.place);
    return kept.fileSystem == number_ && kept.changes == changes_ &&
           (isApart || kept.makes == makes_) &&
           store_.Tick() - kept.takenAt <= FolderStore::kBelieved;
}

Result<const Resolved*> LinuxFileSystem::TargetOf(const FreePlace& place, Resolved& anew) const {
    const Resolved* const believed = Believed(place.known.get());
    if (believed != nullptr && !believed->lacksFolder) return believed;
    TX_TRY_ASSIGN(anew, resolver_.NewTarget(place.path));
    return &anew;
}

Result<ObjectFacts> LinuxFileSystem::FactsOf(const Resolved& place, std::string_view path) {
    if (place.around) {
        const std::string_view name = place.NativeName();
        return FactsFrom(*place.st, name, {place.around->Get(), name.data()}, place.Drives());
    }
    TX_TRY_ASSIGN(const Location location, Named(store_.Locate(place.native), path));
    const std::string_view name = place.IsRoot() ? std::string_view() : place.NativeName();
    return FactsFrom(*place.st, name, location, place.Drives());
}

Result<ObjectFacts> LinuxFileSystem::Facts(std::string_view path) {
    TX_TRY_ASSIGN(const Resolved place, resolver_.Existing(path));
    return FactsOf(place, path);
}

Result<Look> LinuxFileSystem::LookAt(std::string_view path) {
    auto look = std::make_shared<ResolvedLook>(number_);
    TX_TRY_ASSIGN(look->place, resolver_.Existing(path));
    TX_TRY_ASSIGN(const ObjectFacts facts, FactsOf(look->place, path));
    return Look{std::string(path), facts, Kept(std::move(look))};
}

Result<Look> LinuxFileSystem::LookAtSeen(const SeenObject& seen) {
    if (auto ahead = CopiedAhead(seen)) return std::move(*ahead);
    auto look = std::make_shared<ResolvedLook>(number_);
    TX_TRY_ASSIGN(const ObjectFacts facts, Seen(seen, look->place));
    return Look{std::string(seen.path), facts, Kept(std::move(look)), seen.sighting.location};
}

std::optional<FreePlace> LinuxFileSystem::KnownFree(std::string_view path) {
    auto look = std::make_shared<ResolvedLook>(number_);
    if (!resolver_.KnownFree(path, look->place)) return std::nullopt;
    return FreePlace{std::string(path), Kept(std::move(look))};
}

// ---- paths ----

Result<Resolved> LinuxFileSystem::TruePlace(std::string_view path) {
    auto place = resolver_.Existing(path);
    if (!place || !place->Drives().FoldsCaseAt(DeviceOf(*place->st))) return place;
    return resolver_.Spelled(std::move(*place), path);
}

Result<std::string> LinuxFileSystem::TruePath(std::string_view path) {
    TX_TRY_ASSIGN(const Resolved place, TruePlace(path));
    return place.DrivePath();
}

Result<std::string> LinuxFileSystem::ShortPath(std::string_view path) {
    TX_TRY_ASSIGN(const Resolved place, TruePlace(path));
    return ShortForm(place.DrivePath());
}

Result<LinuxOpenFolder> LinuxFileSystem::OpenByPath(std::string_view folder) {
    TX_TRY_ASSIGN(Resolved place, resolver_.ByText(folder));
    auto opened = OpenFolderAt(place.native);
    if (!opened && opened.error() == ENOENT) {
        TX_TRY_ASSIGN(place, resolver_.Folder(folder));
        opened = OpenFolderAt(place.native);
    }
    if (opened) {
        return LinuxOpenFolder(std::move(opened->fd), place.start->drives,
                               std::move(opened->native), std::string(folder), listings_);
    }
    if (opened.error() == ENOENT) return FailureBy(kPathNotFound, folder);
    return FailureOf(opened.error(), folder);
}

Result<std::unique_ptr<OpenFolder>> LinuxFileSystem::Open(std::string_view folder) {
    TX_TRY_ASSIGN(LinuxOpenFolder opened, OpenByPath(folder));
    return std::make_unique<LinuxOpenFolder>(std::move(opened));
}

LinuxFileSystem::~LinuxFileSystem() {
    visitedBy_->Leave();
}

std::unique_ptr<FolderVisitor> LinuxFileSystem::NewVisitor() {
    return std::make_unique<LinuxFolderVisitor>(visitedBy_);
}

void LinuxFileSystem::ExpectChanges(bool many) {
    many ? store_.BeginRun() : store_.EndRun();
}

std::vector<DriveInfo> LinuxFileSystem::Drives() {
    std::vector<DriveInfo> drives = mounts_.Refreshed()->Drives();
    for (DriveInfo& drive : drives) {
        if (drive.type == DriveType::kNetwork) continue; // asking one that is away takes minutes
        const auto st = StatBehindPath(drive.nativeMount);
        drive.isReady = st && S_ISDIR(st->stx_mode);
    }
    return drives;
}

void LinuxFileSystem::NoteMade(const Resolved& place) {
    if (place.Exists()) {
        NoteChanged();
    } else {
        ++makes_;
    }
    store_.NoteMade(place.native);
}

void LinuxFileSystem::NoteRenamed(const Resolved& source, std::string_view to) {
    NoteChanged();
    if (MayLeadToFolder(source)) store_.NoteMoved(source.native);
    store_.NoteRenamed(source.native, to);
}

void LinuxFileSystem::NoteGone(const Resolved& place) {
    NoteChanged();
    if (MayLeadToFolder(place)) store_.NoteMoved(place.native);
    store_.NoteRemoved(place.native);
}

} // namespace tarvix::platform
