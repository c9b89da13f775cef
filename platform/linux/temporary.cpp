#include "platform/linux/temporary.h"

#include "platform/linux/folder_stack.h"
#include "platform/linux/system_calls.h"
#include "platform/try.h"

#include <fmt/core.h>

#include <atomic>
#include <cerrno>
#include <charconv>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>
#include <vector>

namespace tarvix::platform {

namespace {
constexpr std::string_view kFront = ".tarvix-";
constexpr std::string_view kBack = ".part";
constexpr std::int64_t kSurelyOld = 60; // seconds

// A number at the start of `text`, which loses it; 0 for none.
long TakeNumber(std::string_view& text) {
    long number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) return 0;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

bool IsAlive(pid_t process) {
    return ::kill(process, 0) == 0 || errno != ESRCH;
}

// Where there are no locks a run on another machine may be writing: only age can tell.
bool IsHeld(int folder, const std::string& name) {
    const auto fd = OpenAt({folder, name.c_str()}, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (fd && ::flock(fd->Get(), LOCK_EX | LOCK_NB) == 0) return false;
    if (fd && errno == EWOULDBLOCK) return true;
    const auto st = StatOf(At{folder, name.c_str()});
    return !st || std::time(nullptr) - st->stx_mtime.tv_sec < kSurelyOld;
}

// Our own copies may bear modes that keep us from emptying them.
void MakeOpen(At folder) {
    (void)::fchmodat(folder.folder, folder.name, 0700, 0);
}

// What can't be taken out of a folder stays, and so does the folder.
Sys<void> EmptyTree(UniqueFd top) {
    FolderStack stack;
    std::vector<FolderNames> levels;
    std::vector<std::string> names;
    TX_TRY(stack.Begin(std::move(top)));
    const std::uint64_t device = DeviceOf(stack.TopFacts());
    TX_TRY_ASSIGN(FolderNames first, FolderNames::Read(stack.Top()));
    levels.push_back(std::move(first));
    while (true) {
        const FolderNames::Item item = levels.back().Next();
        if (item.name == nullptr) {
            levels.pop_back();
            if (levels.empty()) return {};
            TX_TRY(stack.Leave());
            ::unlinkat(stack.Top(), names.back().c_str(), AT_REMOVEDIR);
            names.pop_back();
        } else if (item.type != DT_DIR) {
            ::unlinkat(stack.Top(), item.name, 0);
        } else {
            MakeOpen({stack.Top(), item.name});
            TX_TRY(stack.Enter(item.name));
            if (DeviceOf(stack.TopFacts()) != device) return std::unexpected(EXDEV);
            TX_TRY_ASSIGN(FolderNames inner, FolderNames::Read(stack.Top()));
            names.emplace_back(item.name); // which goes with the levels
            levels.push_back(std::move(inner));
        }
    }
}
} // namespace

std::string TemporaryName() {
    static std::atomic<unsigned> counter{0};
    return fmt::format("{}{}-{}{}", kFront, ::getpid(), ++counter, kBack);
}

pid_t MakerOfTemporary(std::string_view nativeName) {
    if (!nativeName.starts_with(kFront) || !nativeName.ends_with(kBack)) return 0;
    nativeName.remove_prefix(kFront.size());
    const long process = TakeNumber(nativeName);
    if (process <= 0 || !nativeName.starts_with('-')) return 0;
    nativeName.remove_prefix(1);
    return TakeNumber(nativeName) > 0 && nativeName == kBack ? static_cast<pid_t>(process) : 0;
}

void LockTemporary(int fd) {
    (void)::flock(fd, LOCK_EX | LOCK_NB);
}

Sys<void> RemoveTemporary(int folder, const std::string& name) {
    if (MakerOfTemporary(name) == 0) return std::unexpected(EINVAL);
    if (::unlinkat(folder, name.c_str(), 0) == 0) return {};
    if (errno != EISDIR && errno != EPERM) return std::unexpected(errno);
    MakeOpen({folder, name.c_str()});
    TX_TRY_ASSIGN(UniqueFd top,
                  OpenAt({folder, name.c_str()}, O_RDONLY | O_DIRECTORY | O_NOFOLLOW));
    TX_TRY(EmptyTree(std::move(top)));
    if (::unlinkat(folder, name.c_str(), AT_REMOVEDIR) != 0) return std::unexpected(errno);
    return {};
}

bool RemoveIfAbandoned(int folder, const std::string& name) {
    const pid_t maker = MakerOfTemporary(name);
    if (maker == 0 || IsAlive(maker)) return false;
    return !IsHeld(folder, name) && RemoveTemporary(folder, name).has_value();
}

} // namespace tarvix::platform
