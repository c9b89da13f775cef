#include "platform/linux/file_copier.h"

#include "platform/linux/copy_ahead.h"
#include "platform/linux/copy_content.h"
#include "platform/linux/native_facts.h"
#include "platform/linux/temporary.h"
#include "platform/names.h"
#include "platform/try.h"

#include <climits>
#include <fmt/core.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
constexpr int kMostTries = 2; // of a file that changes meanwhile

Sys<void> Synced(int fd) {
    if (::fsync(fd) != 0) return std::unexpected(errno);
    return {};
}

// The folder that an item goes to, and its name there.
struct Target {
    UniqueFd own; // none where the item has an open folder
    int folder;
    const char* name;

    operator At() const { return {folder, name}; } // NOLINT: meant to stand for it
};

Sys<Target> TargetOf(const CopyItem& item) {
    if (item.targetFolder != AT_FDCWD) {
        return Target{{}, item.targetFolder, item.targetName};
    }
    const std::string_view path = item.targetName;
    const std::size_t name = path.rfind('/') + 1;
    auto folder =
        OpenAt({AT_FDCWD, std::string(path.substr(0, name)).c_str()}, O_PATH | O_DIRECTORY);
    if (!folder) return std::unexpected(folder.error());
    const int fd = folder->Get();
    return Target{std::move(*folder), fd, item.targetName + name};
}

// A folder's own content is brought to the disk where that can be done at all.
void SyncFolder(const CopyItem& item) {
    const auto target = TargetOf(item);
    if (!target) return;
    const auto fd = OpenAt({target->folder, "."}, O_RDONLY | O_DIRECTORY);
    if (fd) ::fsync(fd->Get());
}

std::unexpected<PlatformError> TargetFailure(int error, std::string_view path) {
    if (error == ENOENT) return FailureBy(kPathNotFound, path);
    return FailureOf(error, path);
}

// The part, or nothing when its source changed.
Result<std::optional<PartFile>> TryPart(const CopyItem& item, int folder, CopyRun& run) {
    TX_TRY_ASSIGN(const UniqueFd in, Named(OpenForCopy(item.source), item.sourcePath));
    TX_TRY_ASSIGN(const auto st, Named(StatOf(in.Get()), item.sourcePath));
    if (item.isSeen && !IsSameObject(item.st, st)) {
        return FailureBy(kChangedSinceSearch, item.sourcePath);
    }
    if (!S_ISREG(st.stx_mode)) return SpecialFailure(item.sourcePath);
    const unsigned mode = st.stx_mode & kPlainPermissions;
    auto part = run.isInside ? PartFile::CreateInside(folder, item.targetName, mode)
                             : PartFile::Create(folder, mode, run.roads);
    if (!part) return TargetFailure(part.error(), item.targetPath);
    TX_TRY(Named(CopyContent(in.Get(), part->Fd(), st, run), item.targetPath));
    CopyMetadata(in.Get(), part->Fd(), st);
    TX_TRY_ASSIGN(const auto now, Named(StatOf(in.Get()), item.sourcePath));
    if (!IsAsItWas(st, now)) return std::nullopt;
    return std::move(*part);
}

Result<void> CopyNow(const CopyItem& item, CopyRun& run) {
    const auto target = TargetOf(item);
    if (!target) return TargetFailure(target.error(), item.targetPath);
    TX_TRY_ASSIGN(PartFile part, MakePart(item, target->folder, run));
    if (run.sync) TX_TRY(Named(Synced(part.Fd()), item.targetPath));
    const auto named = part.Commit(*target, run.overwrite);
    if (!named) return TargetFailure(named.error(), item.targetPath);
    return {};
}

Result<void> CopyRegular(const CopyItem& item, CopyRun& run) {
    if (run.ahead == nullptr || run.sync) return CopyNow(item, run);
    if (!run.isInside) {
        if (auto done = UseCopyAhead(item, run)) return std::move(*done);
    }
    auto copied = CopyNow(item, run);
    // What lies ready may take the room that this file needs.
    if (!copied && copied.error().number == kDiskFull && run.ahead->Drop()) {
        return CopyNow(item, run);
    }
    return copied;
}

// A link is whole from the moment it is there.
Sys<void> MakeLink(const std::string& text, int folder, const char* name, bool overwrite) {
    if (::symlinkat(text.c_str(), folder, name) == 0) return {};
    if (errno != EEXIST || !overwrite) return std::unexpected(errno);
    const std::string temporary = TemporaryName();
    if (::symlinkat(text.c_str(), folder, temporary.c_str()) != 0) return std::unexpected(errno);
    if (::renameat(folder, temporary.c_str(), folder, name) == 0) return {};
    const int error = errno;
    ::unlinkat(folder, temporary.c_str(), 0);
    return std::unexpected(error);
}

Result<void> CopyLink(const CopyItem& item, CopyRun& run) {
    const auto text = LinkText(item.source);
    if (!text) return FailureOf(text.error(), item.sourcePath);
    const auto target = TargetOf(item);
    if (!target) return TargetFailure(target.error(), item.targetPath);
    const auto made = MakeLink(*text, target->folder, target->name, run.overwrite);
    if (!made) return TargetFailure(made.error(), item.targetPath);
    KeepLinkFacts(item.st, target->folder, target->name);
    return {};
}
} // namespace

std::optional<Result<void>> UseCopyAhead(const CopyItem& item, CopyRun& run) {
    auto part = run.ahead->Take(item.sourcePath, item.st);
    if (!part || run.overwrite) return std::nullopt;
    if (!run.Add(item.st.stx_size)) return FailureBy(kInterrupted, item.targetPath);
    const auto named = part->Commit({item.targetFolder, item.targetName}, false);
    if (named) return Result<void>();
    if (named.error() == EEXIST) return FailureOf(EEXIST, item.targetPath);
    return std::nullopt;
}

std::unexpected<PlatformError> SpecialFailure(std::string_view path) {
    return Failure(kPathFileAccess,
                   fmt::format("{} is a special file, which can't be copied.", ForDisplay(path)));
}

Result<PartFile> MakePart(const CopyItem& item, int folder, CopyRun& run) {
    const std::uint64_t before = run.Done();
    for (int i = 0; i < kMostTries; ++i) {
        run.SetDone(before);
        TX_TRY_ASSIGN(auto part, TryPart(item, folder, run));
        if (part) return std::move(*part);
    }
    return Failure(kPathFileAccess, fmt::format("{} was changed while it was copied, so that its "
                                                "copy was not kept.",
                                                ForDisplay(item.sourcePath)));
}

Sys<std::string> LinkText(At at) {
    std::string text(PATH_MAX, '\0');
    const ssize_t length = ::readlinkat(at.folder, at.name, text.data(), text.size());
    if (length < 0) return std::unexpected(errno);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void KeepLinkFacts(const struct statx& st, int folder, const char* name) {
    // What can't be held there is no failure.
    if (::fchownat(folder, name, st.stx_uid, st.stx_gid, AT_SYMLINK_NOFOLLOW) != 0) errno = 0;
    const std::array<timespec, 2> times{
        {{st.stx_atime.tv_sec, st.stx_atime.tv_nsec}, {st.stx_mtime.tv_sec, st.stx_mtime.tv_nsec}}};
    ::utimensat(folder, name, times.data(), AT_SYMLINK_NOFOLLOW);
}

Result<void> CheckReplace(const struct statx& source, const struct statx& existing,
                          bool leadsToFolder, bool overwrite, std::string_view path) {
    if (!overwrite) return FailureOf(EEXIST, path);
    if (leadsToFolder || IsSpecial(existing) || IsSameObject(source, existing)) {
        return FailureBy(kPathFileAccess, path);
    }
    if (IsReadOnly(existing)) return FailureBy(kPermissionDenied, path);
    return {};
}

Result<void> CopyObject(const CopyItem& item, CopyRun& run) {
    if (IsSpecial(item.st)) return SpecialFailure(item.sourcePath);
    if (!run.Begin(item.sourcePath)) return FailureBy(kInterrupted, item.sourcePath);
    auto copied = S_ISLNK(item.st.stx_mode) ? CopyLink(item, run) : CopyRegular(item, run);
    if (copied && run.sync) SyncFolder(item);
    return copied;
}

// The change time tells also of what is dated back.
bool IsAsItWas(const struct statx& before, const struct statx& now) {
    return before.stx_size == now.stx_size && TimeOf(before.stx_mtime) == TimeOf(now.stx_mtime) &&
           TimeOf(before.stx_ctime) == TimeOf(now.stx_ctime);
}

bool IsUnchanged(const struct statx& before, At source) {
    const auto now = StatOf(source);
    return now && IsSameObject(before, *now) && IsAsItWas(before, *now);
}

} // namespace tarvix::platform
