#include "platform/linux/path_resolver.h"

#include "platform/drive_path.h"
#include "platform/names.h"
#include "platform/try.h"
#include "text/characters.h"
#include "text/paths.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>

namespace tarvix::platform {

namespace {
constexpr int kMostTries = 3;

// Where the last name of a native path starts.
std::size_t NameStart(std::string_view native) {
    return text::LastOf(native, '/') + 1;
}

std::string UpperRoot(std::string_view root) {
    std::string out(root);
    if (out.size() == 2 && out[0] >= 'a' && out[0] <= 'z') {
        out[0] = static_cast<char>(out[0] - 'a' + 'A');
    }
    return out;
}

void SetLastName(std::string& native, std::string_view name) {
    native.replace(NameStart(native), native.npos, name);
}
} // namespace

const std::string& Resolved::WantedPath(std::string& other) const {
    if (otherName.empty()) return native;
    other = native;
    SetLastName(other, otherName);
    return other;
}

std::string Resolved::DrivePath() const {
    std::string out = start->root;
    std::size_t begin = start->end;
    while (begin < native.size()) {
        const std::size_t end = std::min(native.find('/', begin + 1), native.size());
        out += '\\';
        AppendNameToDrive(out, std::string_view(native).substr(begin + 1, end - begin - 1));
        begin = end;
    }
    if (out.size() == 2) out += '\\';
    return out;
}

// ---- by text ----

// Not for names that mean more than a name.
bool PathResolver::ByWay(std::string_view path, Resolved& place) const {
    const std::size_t slash = text::LastOf(path, '\\');
    const std::string_view name = path.substr(slash + 1);
    if (slash == path.npos || !CanBeName(name)) return false;
    place.start = store_.FindWay(mounts_.NowAt(), path.substr(0, slash), name.size(), place.native);
    if (!place.start) return false;
    AppendNameToNative(place.native, name);
    return true;
}

void PathResolver::NoteWay(const Resolved& place, std::string_view path) const {
    const std::size_t slash = text::LastOf(path, '\\');
    if (slash == path.npos || !CanBeName(path.substr(slash + 1))) return;
    store_.NoteWay(place.start, path.substr(0, slash),
                   std::string_view(place.native).substr(0, NameStart(place.native) - 1));
}

Result<Resolved> PathResolver::ByText(std::string_view path) const {
    Resolved place;
    TX_TRY(ByText(path, place));
    return place;
}

Result<void> PathResolver::ByText(std::string_view path, Resolved& place) const {
    const bool isKnown = ByWay(path, place);
    store_.NoteResolved(!isKnown);
    if (isKnown) return {};
    PathStart start;
    start.drives = mounts_.Now();
    TX_TRY_ASSIGN(const DrivePath parsed, ParseDrivePath(path));
    auto base = start.drives->BaseOf(parsed);
    if (!base) return FailureBy(kPathNotFound, path);
    start.root = UpperRoot(parsed.root);
    start.end = base->folder.size();
    place.native = std::move(base->folder);
    place.native.reserve(place.native.size() + path.size());
    for (std::size_t i = 0; i < parsed.names.size(); ++i) {
        if (i < base->namesTaken) {
            start.root += '\\';
            start.root += parsed.names[i];
            continue;
        }
        place.native += '/';
        AppendNameToNative(place.native, parsed.names[i]);
    }
    place.start = std::make_shared<const PathStart>(std::move(start));
    // On a share more than the folder may tell where a name leads.
    if (place.start->root.size() == 2 && !place.IsRoot()) NoteWay(place, path);
    return {};
}

// ---- by the disk ----

Result<Resolved> PathResolver::Existing(std::string_view path) const {
    auto place = Target(path);
    if (place && !place->Exists()) return FailureOf(ENOENT, path);
    return place;
}

Result<Resolved> PathResolver::Target(std::string_view path) const {
    auto place = ByText(path);
    if (!place) return place;
    const auto st = store_.Stat(place->native);
    if (st) {
        place->st = *st;
        return place;
    }
    if (st.error() != ENOENT) return FailureOf(st.error(), path);
    return Loosely(std::move(*place), path);
}

// Each name of the path is one on the disk.
std::size_t PathResolver::FolderLength(const Resolved& place, std::string_view below) {
    below = text::StripTrailingSlash(below);
    std::size_t length = NameStart(place.native) - 1;
    std::size_t slash = below.find('\\');
    while (length > place.start->end && (slash = below.find('\\', slash + 1)) != below.npos)
        length = place.native.rfind('/', length - 1);
    return std::max(length, place.start->end);
}

Result<void> PathResolver::FolderBelow(std::string_view path, std::size_t location,
                                       Resolved& place) const {
    TX_TRY(ByText(path, place));
    if (place.IsRoot()) return {};
    const std::string_view below = path.substr(std::min(location, path.size()));
    auto at = store_.LocateBelow(place.native, FolderLength(place, below));
    if (!at) {
        const bool isOther = at.error() == ELOOP || at.error() == ENOTDIR || at.error() == EXDEV;
        if (isOther) return FailureBy(kChangedSinceSearch, path);
        return at.error() == ENOENT ? FailureBy(kPathNotFound, path) : FailureOf(at.error(), path);
    }
    place.around = std::move(at->folder);
    return {};
}

Sys<Location> PathResolver::FromLocation(std::string_view path, std::size_t location,
                                         Resolved& place) const {
    if (!ByText(path, place) || place.IsRoot()) return std::unexpected(EINVAL);
    const std::string_view below = path.substr(std::min(location, path.size()));
    return store_.LocateFrom(place.native, FolderLength(place, below));
}

Result<void> PathResolver::Below(std::string_view path, std::size_t location,
                                 Resolved& place) const {
    TX_TRY(FolderBelow(path, location, place));
    if (place.IsRoot()) {
        TX_TRY_ASSIGN(place, Existing(path));
        return {};
    }
    const auto st = StatOf({place.around->Get(), place.NameText()});
    if (!st) return FailureOf(st.error(), path);
    place.st = *st;
    return {};
}

Result<Resolved> PathResolver::NewTarget(std::string_view path) const {
    Resolved place;
    if (!KnownFree(path, place)) return Target(path);
    if (!place.lacksFolder) return place;
    const auto folder = store_.Stat(std::string(place.Folder()));
    if (!folder && folder.error() == ENOENT) return FailureBy(kPathNotFound, path);
    // Others made it since.
    store_.Forget("/");
    return Target(path);
}

bool PathResolver::KnownFree(std::string_view path, Resolved& place) const {
    if (!ByText(path, place) || place.IsRoot()) return false;
    const Vacancy vacancy = store_.VacancyOf(place.native);
    place.lacksFolder = vacancy == Vacancy::kFolder;
    return vacancy != Vacancy::kUnknown;
}

// A name that is known but gone was taken away by others: what is there now is read anew.
Sys<std::optional<PathResolver::Found>> PathResolver::FindIn(std::string_view folder,
                                                             const std::string& wanted) const {
    for (int i = 0; i < kMostTries; ++i) {
        TX_TRY_ASSIGN(auto name, store_.Find(folder, NameToDrive(wanted)));
        if (!name) return std::nullopt;
        const auto st =
            store_.Stat(text::Concat({folder == "/" ? std::string_view() : folder, "/", *name}));
        if (st) return Found{std::move(*name), *st};
        if (st.error() != ENOENT) return std::unexpected(st.error());
        store_.Forget(folder);
    }
    return std::nullopt;
}

// Most often only the last name isn't there as it stands.
Result<Resolved> PathResolver::Loosely(Resolved exact, std::string_view path) const {
    if (exact.IsRoot()) return FailureBy(kPathNotFound, path);
    const std::string wanted(exact.NativeName());
    const auto found = FindIn(exact.Folder(), wanted);
    if (!found && found.error() == ENOENT) return ByWalk(std::move(exact), path);
    // A folder that can't be listed holds what its exact names say, and no more.
    const bool isUnlisted = !found && (found.error() == EACCES || found.error() == EPERM);
    if (!found && !isUnlisted) return FailureOf(found.error(), path);
    if (isUnlisted || !*found) return exact;
    if ((*found)->name != wanted) exact.otherName = wanted;
    SetLastName(exact.native, (*found)->name);
    exact.st = (*found)->st;
    return exact;
}

// Where its folder is missing, that around it mostly isn't.
std::size_t PathResolver::StandingLength(const std::string& native, std::size_t baseEnd) const {
    std::size_t end = NameStart(native) - 1;
    while (end > baseEnd) {
        end = native.rfind('/', end - 1);
        if (end > baseEnd && store_.Stat(native.substr(0, end))) return end;
    }
    return baseEnd;
}

Result<Resolved> PathResolver::ByWalk(Resolved place, std::string_view path) const {
    const std::string wanted = std::move(place.native);
    std::size_t begin = StandingLength(wanted, place.start->end);
    place.native = wanted.substr(0, begin);
    while (begin < wanted.size()) {
        const std::size_t end = std::min(wanted.find('/', begin + 1), wanted.size());
        const std::string name = wanted.substr(begin + 1, end - begin - 1);
        const bool isLast = end == wanted.size();
        const std::string folder = place.native.empty() ? "/" : place.native;
        place.native += '/';
        place.native += name;
        begin = end;
        place.st.reset();
        auto st = store_.Stat(place.native);
        if (!st && st.error() == ENOENT) {
            const auto found = FindIn(folder, name);
            const bool isMissing = !found || !*found;
            const bool hasNoFolder =
                !found && (found.error() == ENOENT || found.error() == ENOTDIR);
            if (hasNoFolder || (isMissing && !isLast)) return FailureBy(kPathNotFound, path);
            if (isMissing) return place;
            if (isLast && (*found)->name != name) place.otherName = name;
            SetLastName(place.native, (*found)->name);
            st = (*found)->st;
        }
        if (!st) return FailureOf(st.error(), path);
        place.st = *st;
    }
    return place;
}

Result<Resolved> PathResolver::Spelled(Resolved place, std::string_view path) const {
    const std::string found = std::move(place.native);
    place.native = found.substr(0, place.start->end);
    for (std::size_t begin = place.start->end; begin < found.size();) {
        const std::size_t end = std::min(found.find('/', begin + 1), found.size());
        const std::string name = found.substr(begin + 1, end - begin - 1);
        const auto spelled =
            store_.Find(place.native.empty() ? "/" : place.native, NameToDrive(name));
        if (!spelled && spelled.error() != EACCES) return FailureOf(spelled.error(), path);
        place.native += '/';
        place.native += spelled && *spelled ? **spelled : name;
        begin = end;
    }
    return place;
}

Result<Resolved> PathResolver::Folder(std::string_view path) const {
    auto place = Existing(path);
    if (!place) {
        if (place.error().number != kFileNotFound) return place;
        return FailureBy(kPathNotFound, path);
    }
    if (!LeadsToFolder(*place)) return FailureBy(kPathNotFound, path);
    return place;
}

Result<Resolved> PathResolver::File(std::string_view path) const {
    auto place = Existing(path);
    if (place && S_ISDIR(place->st->stx_mode)) return FailureBy(kFileNotFound, path);
    return place;
}

Sys<Location> LocationOf(const Resolved& place, FolderStore& store) {
    if (!place.around) return store.Locate(place.native);
    return Location{place.around, place.NameText()};
}

bool LeadsToFolder(const Resolved& place) {
    if (!place.Exists()) return false;
    if (S_ISDIR(place.st->stx_mode)) return true;
    if (!S_ISLNK(place.st->stx_mode)) return false;
    const auto behind = StatBehindPath(place.native);
    return behind && S_ISDIR(behind->stx_mode);
}

Sys<UniqueFd> OpenItself(const Resolved& place) {
    constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW;
    if (place.around) {
        TX_TRY_ASSIGN(UniqueFd fd, OpenAt({place.around->Get(), place.NameText()}, kFlags));
        TX_TRY_ASSIGN(const auto st, StatOf(fd.Get()));
        if (!IsSameObject(st, *place.st)) return std::unexpected(EREMCHG);
        return fd;
    }
    TX_TRY_ASSIGN(const Location location, Locate(place.native));
    return OpenAt(location, kFlags);
}

Result<UniqueFd> OpenFolderOf(const Resolved& place, std::string_view path) {
    const std::string folder(place.Folder());
    const auto location = Locate(folder);
    auto fd = location ? OpenAt(*location, O_PATH | O_DIRECTORY)
                       : Sys<UniqueFd>(std::unexpected(location.error()));
    if (!fd && fd.error() == ENOENT) return FailureBy(kPathNotFound, path);
    return Named(std::move(fd), path);
}

} // namespace tarvix::platform
