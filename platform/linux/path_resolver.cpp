#include "platform/linux/path_resolver.h"

#include "platform/drive_path.h"
#include "platform/names.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unordered_map>

namespace tarvix::platform {

namespace {
// Where the last name of a native path starts.
std::size_t NameStart(const std::string& native) {
    const void* const slash = ::memrchr(native.data(), '/', native.size());
    return slash == nullptr
               ? 0
               : static_cast<std::size_t>(static_cast<const char*>(slash) - native.data()) + 1;
}

bool MayBeFoundLoosely(int error) {
    return error == ENOENT;
}

// Folders on drives that a thread worked out: most paths are followed by others like them.
class KnownFolders {
  public:
    // Where a path in one of the folders leads; nothing for names that mean more than a name.
    std::optional<Place> Find(const std::shared_ptr<const DriveTable>& drives,
                              std::string_view path) const {
        const std::size_t slash = path.rfind('\\');
        if (slash == path.npos || drives != drives_) return std::nullopt;
        const auto found = folders_.find(path.substr(0, slash));
        if (found == folders_.end() || !CanBeName(path.substr(slash + 1))) return std::nullopt;
        const Folder& known = found->second;
        Place place{known.root, {}, known.baseEnd, {}, drives, {}};
        place.native.reserve(known.native.size() + path.size() - slash);
        place.native.append(known.native).append(1, '/');
        AppendNameToNative(place.native, path.substr(slash + 1));
        return place;
    }

    void Note(const Place& place, std::string_view path) {
        const std::size_t slash = path.rfind('\\');
        if (slash == path.npos || !CanBeName(path.substr(slash + 1))) return;
        if (drives_ != place.drives || folders_.size() >= kMostFolders) folders_.clear();
        drives_ = place.drives;
        folders_.insert_or_assign(
            std::string(path.substr(0, slash)),
            Folder{place.root, place.native.substr(0, NameStart(place.native) - 1), place.baseEnd});
    }

  private:
    static constexpr std::size_t kMostFolders = 2048;
    struct Folder {
        std::string root;
        std::string native;
        std::size_t baseEnd = 0;
    };
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const {
            return std::hash<std::string_view>()(s);
        }
    };

    std::shared_ptr<const DriveTable> drives_;
    // By drive form, as it was given, without the final "\".
    std::unordered_map<std::string, Folder, Hash, std::equal_to<>> folders_;
};

thread_local KnownFolders knownFolders;

std::string UpperRoot(std::string_view root) {
    std::string out(root);
    if (out.size() == 2 && out[0] >= 'a' && out[0] <= 'z') {
        out[0] = static_cast<char>(out[0] - 'a' + 'A');
    }
    return out;
}
} // namespace

std::string_view Place::Folder() const {
    const std::size_t name = NameStart(native);
    if (name <= 1) return "/";
    return std::string_view(native).substr(0, name - 1);
}

std::string_view Place::NativeName() const {
    return std::string_view(native).substr(NameStart(native));
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
    Place place;
    place.drives = mounts_.Now();
    if (auto known = knownFolders.Find(place.drives, path)) return std::move(*known);
    const auto parsed = ParseDrivePath(path);
    if (!parsed) return std::unexpected(parsed.error());
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
        AppendNameToNative(place.native, parsed->names[i]);
    }
    // On a share more than the folder may tell where a name leads.
    if (place.root.size() == 2 && !place.IsRoot()) knownFolders.Note(place, path);
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
    if (auto place = FreePlace(path)) return std::move(*place);
    return Target(path);
}

std::optional<Place> PathResolver::FreePlace(std::string_view path) const {
    auto place = ByText(path);
    if (!place || place->IsRoot()) return std::nullopt;
    if (!names_.IsKnownFree(place->Folder(), place->NativeName())) return std::nullopt;
    return std::move(*place);
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
    if (*name != place.NativeName()) place.otherName = place.NativeName();
    place.native.replace(place.native.rfind('/') + 1, place.native.npos, *name);
    const auto st = StatOfPath(place.native);
    if (st) place.st = *st;
    if (!st && st.error() != ENOENT) return FailureOf(st.error(), path);
    if (!st) names_.Forget(place.Folder());
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
            if (begin == wanted.size() && **found != name) place.otherName = name;
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
    const std::string folder(place.Folder());
    const auto location = Locate(folder);
    auto fd = location ? OpenAt(*location, O_PATH | O_DIRECTORY)
                       : Sys<UniqueFd>(std::unexpected(location.error()));
    if (!fd && fd.error() == ENOENT) return FailureBy(kPathNotFound, path);
    if (!fd) return FailureOf(fd.error(), path);
    return std::move(*fd);
}

} // namespace tarvix::platform
