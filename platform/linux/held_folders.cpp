#include "platform/linux/held_folders.h"

#include "platform/linux/system_calls.h"

#include <climits>

#include <algorithm>
#include <fcntl.h>

namespace tarvix::platform {

namespace {
constexpr int kOftenEnough = 6;              // what opening and closing costs must come in again
constexpr std::int64_t kTrusted = 5'000'000; // nanoseconds
} // namespace

HeldFolders& HeldFolders::OfThread() {
    static thread_local HeldFolders folders;
    return folders;
}

void HeldFolders::End() {
    if (--depth_ == 0) LetGo();
}

void HeldFolders::LetGo() {
    for (Held& held : held_)
        held = {};
}

void HeldFolders::LetGoAt(std::string_view path) {
    for (Held& held : held_) {
        const std::string_view folder = held.path;
        const bool isAt = folder.starts_with(path) &&
                          (folder.size() == path.size() || folder[path.size()] == '/');
        if (isAt) held = {};
    }
}

std::shared_ptr<const UniqueFd> HeldFolders::Find(std::string_view folder) {
    if (!IsOn() || folder.empty() || folder.size() >= PATH_MAX) return nullptr;
    ++calls_;
    for (Held& held : held_) {
        if (held.path != folder) continue;
        held.usedAt = calls_;
        if (held.fd && !IsStillThere(held)) held.fd.reset();
        if (!held.fd && ++held.asked >= kOftenEnough) Open(held);
        return held.fd;
    }
    Held& oldest = *std::ranges::min_element(held_, {}, &Held::usedAt);
    oldest = {.path = std::string(folder), .usedAt = calls_};
    return nullptr;
}

void HeldFolders::Open(Held& held) {
    held.asked = 0;
    auto fd = OpenAt({AT_FDCWD, held.path.c_str()}, O_PATH | O_DIRECTORY);
    if (!fd) return;
    const auto st = StatOf(fd->Get());
    if (!st) return;
    held.fd = std::make_shared<const UniqueFd>(std::move(*fd));
    held.device = DeviceOf(*st);
    held.inode = st->stx_ino;
    held.checkedAt = SteadyTick();
}

bool HeldFolders::IsStillThere(Held& held) {
    const std::int64_t now = SteadyTick();
    if (now - held.checkedAt <= kTrusted) return true;
    const auto st = StatBehind({AT_FDCWD, held.path.c_str()});
    held.checkedAt = now;
    return st && DeviceOf(*st) == held.device && st->stx_ino == held.inode;
}

} // namespace tarvix::platform
