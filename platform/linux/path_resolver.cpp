#include "platform/linux/path_resolver.h"

#include "platform/drive_path.h"
#include "platform/names.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>

namespace tarvix::platform {

namespace {
bool MayBeFoundLoosely(int error) {
    return error == ENOENT;
}

std::string UpperRoot(std::string_view root) {
    std::string out(root);
    if (out.size() == 2 && out[0] >= 'a' && out[0] <= 'z') {
        out[0] = static_cast<char>(out[0] - 'a' + 'A');
    }
    return out;
}
} // namespace

std::string Place::Folder() const {
    const std::size_t slash = native.rfind('/');
    return slash == 0 || slash == native.npos ? "/" : native.substr(0, slash);
}

std::string_view Place::NativeName() const {
    return std::string_view(native).substr(native.rfind('/') + 1);
}

std::string Place::DrivePath() const {
    std::string out = root;
    const std::size_t start = out.size();
    std::size_t begin = baseEnd;
    while (begin < native.size()) {
        const std::size_t end = std::min(native.find('/', begin + 1), native.size());
        out += '\\';
        AppendNameToDrive(out, std::string_view(native).substr(begin + 1, end - begin - 1));
        begin = end;
    }
    if (out.size() == start && start == 2) out += '\\';
    return out;
}

Result<Place> PathResolver::ByText(std::string_view path) const {
    const auto parsed = ParseDrivePath(path);
    if (!parsed) return std::unexpected(parsed.error());
    Place place;
    place.drives = mounts_.Now();
    auto base = place.drives->BaseOf(*parsed);
    if (!base) return FailureBy(kPathNotFound, path);
    place.root = UpperRoot(parsed->root);
    place.native = std::move(base->folder);
    place.native.reserve(place.native.size() + path.size());
    place.baseEnd = place.native.size();
    for (std::size_t i = 0; i < parsed->names.size(); ++i) {
        if (i < base->namesTaken) {
            place.root += '\\';
            place.root += parsed->names[i];
            continue;
        }
        place.native += '/';
        place.native += NameToNative(parsed->names[i]);
    }
    if (!place.IsRoot()) place.wantedName = place.NativeName();
    return place;
}

Result<Place> PathResolver::Existing(std::string_view path) const {
    auto place = ByText(path);
    if (!place) return place;
    const auto st = StatOfPath(place->native);
    if (st) {
        place->st = *st;
        return place;
    }
    if (!MayBeFoundLoosely(st.error())) return FailureOf(st.error(), path);
    auto found = Loosely(std::move(*place), path);
    if (found && !found->Exists()) return FailureOf(ENOENT, path);
    return found;
}

Result<Place> PathResolver::Target(std::string_view path) const {
    auto place = ByText(path);
    if (!place) return place;
    const auto st = StatOfPath(place->native);
    if (st) {
        place->st = *st;
        return place;
    }
    if (!MayBeFoundLoosely(st.error())) return FailureOf(st.error(), path);
    return Loosely(std::move(*place), path);
}

Result<Place> PathResolver::NewTarget(std::string_view path) const {
    auto place = ByText(path);
    if (!place || place->IsRoot()) return place ? Target(path) : place;
    if (names_.IsKnownFree(place->Folder(), NameToDrive(place->NativeName()))) return place;
    return Target(path);
}

// Most often only the last name isn't there as it stands.
Result<Place> PathResolver::Loosely(Place exact, std::string_view path) const {
    if (exact.IsRoot()) return FailureBy(kPathNotFound, path);
    const auto name = names_.Find(exact.Folder(), NameToDrive(exact.NativeName()));
    if (name) return InFolder(std::move(exact), path, *name);
    if (name.error() == ENOENT) return ByWalk(std::move(exact), path);
    // A folder that can't be listed holds what its exact names say, and no more.
    if (name.error() == EACCES || name.error() == EPERM) {
        return InFolder(std::move(exact), path, std::nullopt);
    }
    return FailureOf(name.error(), path);
}

Result<Place> PathResolver::InFolder(Place place, std::string_view path,
                                     const std::optional<std::string>& name) const {
    if (!name) return place;
    const std::string folder = place.Folder();
    place.native = (folder == "/" ? std::string() : folder) + "/" + *name;
    const auto st = StatOfPath(place.native);
    if (st) place.st = *st;
    if (!st && st.error() != ENOENT) return FailureOf(st.error(), path);
    if (!st) names_.Forget(folder);
    return place;
}

Result<Place> PathResolver::ByWalk(Place place, std::string_view path) const {
    const std::string wanted = std::move(place.native);
    place.native = wanted.substr(0, place.baseEnd);
    std::size_t begin = place.baseEnd;
    while (begin < wanted.size()) {
        const std::size_t end = std::min(wanted.find('/', begin + 1), wanted.size());
        const std::string name = wanted.substr(begin + 1, end - begin - 1);
        const std::string folder = place.native.empty() ? "/" : place.native;
        place.native += '/';
        place.native += name;
        begin = end;
        place.st.reset();
        auto st = StatOfPath(place.native);
        if (!st && MayBeFoundLoosely(st.error())) {
            const auto found = names_.Find(folder, NameToDrive(name));
            const bool isMissing = !found || !*found;
            if (isMissing && begin < wanted.size()) return FailureBy(kPathNotFound, path);
            if (!found && (found.error() == ENOENT || found.error() == ENOTDIR)) {
                return FailureBy(kPathNotFound, path);
            }
            if (isMissing) return place;
            place.native.replace(place.native.size() - name.size(), name.size(), **found);
            st = StatOfPath(place.native);
        }
        if (!st) return FailureOf(st.error(), path);
        place.st = *st;
    }
    return place;
}

Result<Place> PathResolver::Spelled(Place place, std::string_view path) const {
    const std::string found = std::move(place.native);
    place.native = found.substr(0, place.baseEnd);
    for (std::size_t begin = place.baseEnd; begin < found.size();) {
        const std::size_t end = std::min(found.find('/', begin + 1), found.size());
        const std::string name = found.substr(begin + 1, end - begin - 1);
        const auto spelled =
            names_.Find(place.native.empty() ? "/" : place.native, NameToDrive(name));
        if (!spelled && spelled.error() != EACCES) return FailureOf(spelled.error(), path);
        place.native += '/';
        place.native += spelled && *spelled ? **spelled : name;
        begin = end;
    }
    return place;
}

Result<Place> PathResolver::Folder(std::string_view path) const {
    auto place = Existing(path);
    if (!place) {
        if (place.error().number != kFileNotFound) return place;
        return FailureBy(kPathNotFound, path);
    }
    if (!LeadsToFolder(*place)) return FailureBy(kPathNotFound, path);
    return place;
}

Result<Place> PathResolver::File(std::string_view path) const {
    auto place = Existing(path);
    if (place && S_ISDIR(place->st->stx_mode)) return FailureBy(kFileNotFound, path);
    return place;
}

bool LeadsToFolder(const Place& place) {
    if (!place.Exists()) return false;
    if (S_ISDIR(place.st->stx_mode)) return true;
    if (!S_ISLNK(place.st->stx_mode)) return false;
    const auto behind = StatBehindPath(place.native);
    return behind && S_ISDIR(behind->stx_mode);
}

Result<UniqueFd> OpenFolderOf(const Place& place, std::string_view path) {
    const std::string folder = place.Folder();
    const auto location = Locate(folder);
    auto fd = location ? OpenAt(*location, O_PATH | O_DIRECTORY)
                       : Sys<UniqueFd>(std::unexpected(location.error()));
    if (!fd && fd.error() == ENOENT) return FailureBy(kPathNotFound, path);
    if (!fd) return FailureOf(fd.error(), path);
    return std::move(*fd);
}

} // namespace tarvix::platform
