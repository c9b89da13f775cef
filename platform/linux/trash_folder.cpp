#include "platform/linux/trash_folder.h"

#include "platform/linux/glib_pointer.h"
#include "platform/linux/late_gio.h"
#include "platform/linux/part_file.h"
#include "platform/try.h"
#include "text/characters.h"

#include <climits>
#include <fmt/core.h>
#include <gio/gunixmounts.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <unistd.h>

namespace tarvix::platform {

namespace {
constexpr std::string_view kInfoEnd = ".trashinfo";
constexpr std::size_t kMarkRoom = 10; // for what keeps objects of one name apart
constexpr unsigned kCountedNames = 5;
constexpr unsigned kMostTries = 100;
constexpr unsigned kOwnerOnly = 0700;
constexpr int kFolderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW;

Sys<UniqueFd> OpenOrMake(At at, int flags = kFolderFlags) {
    if (::mkdirat(at.folder, at.name, kOwnerOnly) != 0 && errno != EEXIST) {
        return std::unexpected(errno);
    }
    return OpenAt(at, flags);
}

bool IsTrashWanted(const std::string& top) {
    GUnixMountEntry* const mount = TX_GIO(g_unix_mount_at)(top.c_str(), nullptr);
    if (mount == nullptr) return false;
    const char* const given = TX_GIO(g_unix_mount_get_options)(mount);
    const std::string_view options = given == nullptr ? "" : given;
    const bool isInternal = TX_GIO(g_unix_mount_is_system_internal)(mount) != FALSE;
    const bool isWanted = options.find("x-gvfs-notrash") == options.npos &&
                          (!isInternal || options.find("x-gvfs-trash") != options.npos);
    TX_GIO(g_unix_mount_free)(mount);
    return isWanted;
}

// A shared folder in which everyone may make a trash but nobody can take away another's.
Sys<UniqueFd> OpenShared(const std::string& path) {
    auto fd = OpenAt({AT_FDCWD, path.c_str()}, kFolderFlags);
    const auto st = fd ? StatOf(fd->Get()) : std::unexpected(fd.error());
    if (!st) return std::unexpected(st.error());
    if ((st->stx_mode & S_ISVTX) == 0) return std::unexpected(EPERM);
    return fd;
}

constexpr auto kIsPlain = [] {
    std::array<bool, 256> table{};
    for (const char c : std::string_view("-._~/0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                         "abcdefghijklmnopqrstuvwxyz"))
        table[static_cast<unsigned char>(c)] = true;
    return table;
}();

std::string Percented(std::string_view path) {
    static constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string out;
    out.resize_and_overwrite(3 * path.size(), [path](char* const begin, std::size_t) {
        char* to = begin;
        for (const char c : path) {
            const auto byte = static_cast<unsigned char>(c);
            if (kIsPlain[byte]) {
                *to++ = c;
                continue;
            }
            *to++ = '%';
            *to++ = kDigits[byte >> 4];
            *to++ = kDigits[byte & 15];
        }
        return to - begin;
    });
    return out;
}

std::string LocalTime(std::time_t now) {
    std::tm local{};
    ::localtime_r(&now, &local);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &local)};
}

bool IsContinuation(char c) {
    return (c & 0xC0) == 0x80;
}

// The name itself first, then marked by numbers, then by chance, so that the ten thousandth object
// of one name takes no longer than the tenth. A name too long for its info file is cut.
std::string NameForTry(std::string_view name, unsigned number) {
    std::string_view stem = name.substr(0, NAME_MAX - kInfoEnd.size());
    if (number > 1) stem = stem.substr(0, NAME_MAX - kInfoEnd.size() - kMarkRoom);
    const bool isCut = stem.size() < name.size();
    while (isCut && !stem.empty() && IsContinuation(name[stem.size()]))
        stem.remove_suffix(1);
    if (number == 1) return std::string(stem);
    const std::size_t dot = stem.rfind('.');
    const std::size_t end = dot == stem.npos || dot == 0 ? stem.size() : dot;
    std::string out(stem.substr(0, end));
    out += '.';
    out +=
        std::to_string(number <= kCountedNames ? number : TX_GIO(g_random_int)() % 1'000'000'000);
    out += stem.substr(end);
    return out;
}

// What the paths in a folder begin with.
std::string AsFront(const std::string& folder) {
    return folder == "/" ? folder : fmt::format("{}/", folder);
}

// A relative place is none.
std::string DataHome() {
    const std::string data = TX_GIO(g_get_user_data_dir)();
    return data.starts_with('/') ? data : fmt::format("{}/.local/share", TX_GIO(g_get_home_dir)());
}
} // namespace

TrashStamp StampOf(const struct statx& st, bool isNumbered) {
    TrashStamp stamp{.device = DeviceOf(st),
                     .kind = static_cast<std::uint16_t>(st.stx_mode & S_IFMT),
                     .isNumbered = isNumbered};
    if (isNumbered) {
        stamp.number = st.stx_ino;
        stamp.time = (st.stx_mask & STATX_BTIME) != 0 ? TimeOf(st.stx_btime) : 0;
    } else if (!S_ISDIR(st.stx_mode)) {
        stamp.number = st.stx_size;
        stamp.time = TimeOf(st.stx_mtime);
    }
    return stamp;
}

Sys<TrashFolder> TrashFolder::Open(Sys<UniqueFd> folder, std::string path, std::string top) {
    if (!folder) return std::unexpected(folder.error());
    const auto st = StatOf(folder->Get());
    if (!st) return std::unexpected(st.error());
    if (st->stx_uid != ::getuid()) return std::unexpected(EPERM);
    auto info = OpenOrMake({folder->Get(), "info"});
    if (!info) return std::unexpected(info.error());
    auto files = OpenOrMake({folder->Get(), "files"});
    if (!files) return std::unexpected(files.error());
    TrashFolder trash;
    trash.path_ = std::move(path);
    trash.top_ = std::move(top);
    trash.info_ = std::move(*info);
    trash.files_ = std::move(*files);
    return trash;
}

Sys<TrashFolder> TrashFolder::OfHome() {
    const std::string data = DataHome();
    if (TX_GIO(g_mkdir_with_parents)(data.c_str(), 0755) != 0) return std::unexpected(errno);
    // The user may have put a link in its place.
    std::string path = fmt::format("{}/Trash", data);
    auto folder = OpenOrMake({AT_FDCWD, path.c_str()}, O_RDONLY | O_DIRECTORY);
    return Open(std::move(folder), std::move(path), {});
}

Sys<TrashFolder> TrashFolder::OfMount(const std::string& top) {
    if (!IsTrashWanted(top)) return std::unexpected(ENOTSUP);
    const std::string user = std::to_string(::getuid());
    const std::string base = AsFront(top);
    const std::string common = fmt::format("{}.Trash", base);
    if (const auto shared = OpenShared(common)) {
        auto trash = Open(OpenOrMake({shared->Get(), user.c_str()}),
                          fmt::format("{}/{}", common, user), base);
        if (trash) return trash;
    }
    const std::string own = fmt::format("{}.Trash-{}", base, user);
    auto trash = Open(OpenOrMake({AT_FDCWD, own.c_str()}), own, base);
    if (trash || trash.error() == EROFS || trash.error() == ENOSPC) return trash;
    return std::unexpected(ENOTSUP);
}

bool TrashFolder::MayBeMade(const std::string& top) {
    if (!IsTrashWanted(top)) return false;
    const std::string base = AsFront(top);
    const std::string own = fmt::format("{}.Trash-{}", base, ::getuid());
    for (const std::string& folder : {own, fmt::format("{}.Trash", base), base}) {
        if (::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0) return true;
    }
    return false;
}

Sys<std::string> TrashFolder::Take(At object, std::string_view path, const struct statx& st,
                                   bool mustBeSame) {
    const std::string_view name = path.substr(path.rfind('/') + 1);
    const std::string_view told = path.substr(path.starts_with(top_) ? top_.size() : 0);
    const std::string info =
        text::Concat({"[Trash Info]\nPath=", Percented(told), "\nDeletionDate=", TimeText(), "\n"});
    for (unsigned number = 1; number < kMostTries; ++number) {
        std::string there = NameForTry(name, number);
        const auto taken = TakeAs(there, {object, st, mustBeSame}, info);
        if (taken) return there;
        if (taken.error() != EEXIST) return std::unexpected(taken.error());
    }
    return std::unexpected(EEXIST);
}

const std::string& TrashFolder::TimeText() {
    const std::time_t now = std::time(nullptr);
    if (now != timeOfText_ || timeText_.empty()) timeText_ = LocalTime(now);
    timeOfText_ = now;
    return timeText_;
}

// Another object that took its name in that moment goes back into the trash.
Sys<void> TrashFolder::GiveBack(const std::string& trash, std::string_view name,
                                const TrashStamp& stamp, At place) {
    const std::string held = text::Concat({trash, "/files/", name});
    const At there{AT_FDCWD, held.c_str()};
    const auto st = StatOf(there);
    const bool isGone = !st && (st.error() == ENOENT || st.error() == ENOTDIR);
    if (!st && !isGone) return std::unexpected(st.error());
    if (isGone || StampOf(*st, stamp.isNumbered) != stamp) return std::unexpected(ESTALE);
    const bool isFolder = S_ISDIR(st->stx_mode);
    TX_TRY(RenameReadOnly(there, place, isFolder, {}));
    const auto now = StatOf(place);
    if (now && StampOf(*now, stamp.isNumbered) != stamp) {
        (void)RenameWithoutReplacing(place, there, S_ISDIR(now->stx_mode), {});
        return std::unexpected(ESTALE);
    }
    const std::string info = text::Concat({trash, "/info/", name, kInfoEnd});
    ::unlinkat(AT_FDCWD, info.c_str(), 0);
    return {};
}

Sys<void> TrashFolder::TakeAs(const std::string& name, const Wanted& wanted,
                              const std::string& info) {
    const std::string infoName = text::Concat({name, kInfoEnd});
    const auto fd =
        OpenAt({info_.Get(), infoName.c_str()}, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
    if (!fd) return std::unexpected(fd.error());
    auto done = WriteAll(fd->Get(), info);
    if (done) {
        done = RenameReadOnly(wanted.object, {files_.Get(), name.c_str()},
                              S_ISDIR(wanted.st.stx_mode), {});
        if (done) return CheckTaken(name, wanted);
    }
    ::unlinkat(info_.Get(), infoName.c_str(), 0);
    return done;
}

// What can't go back stays in the trash with its info file, from which it can be restored.
Sys<void> TrashFolder::CheckTaken(const std::string& name, const Wanted& wanted) {
    if (!wanted.mustBeSame) return {};
    const At there{files_.Get(), name.c_str()};
    const auto st = StatOf(there);
    if (!st || IsSameObject(*st, wanted.st)) return {};
    if (RenameWithoutReplacing(there, wanted.object, S_ISDIR(st->stx_mode), {})) {
        ::unlinkat(info_.Get(), text::Concat({name, kInfoEnd}).c_str(), 0);
    }
    return std::unexpected(EREMCHG);
}

} // namespace tarvix::platform
