#include "platform/linux/file_copier.h"
#include "platform/linux/folder_copier.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/native_facts.h"

#include <climits>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
constexpr std::size_t kMostPlanned = 64;

// Whether a file's facts can be trusted to tell of each change at once.
bool IsLocal(const Place& place) {
    return std::ranges::any_of(place.drives->Drives(), [&place](const DriveInfo& drive) {
        return drive.path == place.root && drive.type != DriveType::kNetwork;
    });
}

Sys<UniqueFd> OpenItself(const Place& place) {
    const auto location = Locate(place.native);
    if (!location) return std::unexpected(location.error());
    return OpenAt(*location, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
}

bool IsFolder(const Place& place) {
    return place.Exists() && S_ISDIR(place.st->stx_mode);
}

// What a folder copy goes into: the folder that is there, or else the one around it.
Result<UniqueFd> OpenNearest(const Place& target, std::string_view path) {
    if (!IsFolder(target)) return OpenFolderOf(target, path);
    auto itself = OpenItself(target);
    if (!itself) return FailureOf(itself.error(), path);
    return std::move(*itself);
}

Result<UniqueFd> MakeTarget(int outer, const Place& target, std::string_view path) {
    const std::string name(target.NativeName());
    if (::mkdirat(outer, name.c_str(), 0700) != 0) return FailureOf(errno, path);
    auto made = OpenAt({outer, name.c_str()}, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
    if (!made) return FailureOf(made.error(), path);
    return std::move(*made);
}
} // namespace

Result<void> LinuxFileSystem::CopyFile(std::string_view from, std::string_view to, bool overwrite,
                                       const CopyObserver& observer) {
    const auto source = FileLookedAt(from);
    if (!source) return std::unexpected(source.error());
    if (IsSpecial(*source->st)) return FailureBy(kPathFileAccess, from);
    const auto target = overwrite ? resolver_.Target(to) : NewTarget(to);
    if (!target) return std::unexpected(target.error());
    if (target->Exists()) {
        auto can = CheckReplace(*source->st, *target->st, LeadsToFolder(*target), overwrite, to);
        if (!can) return can;
    }
    CopyRun run(observer, roads_, overwrite);
    run.ahead = Ahead();
    return CopyOne(*source, *target, from, to, run);
}

Result<void> LinuxFileSystem::CopyFolder(std::string_view from, std::string_view to, bool overwrite,
                                         const CopyObserver& observer) {
    const auto source = resolver_.Folder(from);
    if (!source) return std::unexpected(source.error());
    if (!S_ISDIR(source->st->stx_mode)) return CopyFile(from, to, overwrite, observer);
    const auto target = resolver_.Target(to);
    if (!target) return std::unexpected(target.error());
    auto nearest = OpenNearest(*target, to);
    if (!nearest) return std::unexpected(nearest.error());
    if (IsWithin(nearest->Get(), *source->st)) return FailureBy(kPathFileAccess, to);
    if (target->Exists() && !IsFolder(*target)) {
        return FailureBy(overwrite ? kPathFileAccess : kAlreadyExists, to);
    }
    auto in = OpenItself(*source);
    if (!in) return FailureOf(in.error(), from);
    auto out = target->Exists() ? std::move(nearest) : MakeTarget(nearest->Get(), *target, to);
    if (!out) return std::unexpected(out.error());
    NoteMade(*target);
    names_.Forget(target->native);
    CopyRun run(observer, roads_, overwrite);
    run.ahead = Ahead();
    if (run.IsObserved()) {
        auto again = OpenItself(*source);
        if (again) run.SetTotal(SizeOfTree(std::move(*again), *source->drives));
    }
    FolderCopier copier(run, *source->drives, from, to);
    return copier.Copy(std::move(*in), std::move(*out), !target->Exists());
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
        if (*target) items.push_back({std::string(copy.from), nullptr, {}, target});
    }
    ahead_.Replace(std::move(items));
}

bool LinuxFileSystem::FindAhead(AheadItem& item) const {
    auto source = resolver_.ByText(item.key);
    if (!source || !IsLocal(*source) || source->native.size() >= PATH_MAX) return false;
    item.source = std::move(source->native);
    return true;
}

Result<void> LinuxFileSystem::CopyOne(const Place& source, const Place& target,
                                      std::string_view from, std::string_view to, CopyRun& run) {
    const auto location = Locate(source.native);
    if (!location) return FailureOf(location.error(), from);
    const auto place = Locate(target.native);
    if (!place) return FailureOf(place.error(), to);
    if (S_ISREG(source.st->stx_mode)) run.SetTotal(source.st->stx_size);
    const At at = *place;
    auto copied = CopyObject({*location, *source.st, from, at.folder, at.name, to}, run);
    if (copied) target.Exists() ? ForgetLooks() : NoteMade(target);
    // Others were faster than what is known of the folder.
    if (!copied && copied.error().number == kAlreadyExists) names_.Forget(target.Folder());
    return copied;
}

} // namespace tarvix::platform
