#include "platform/linux/folder_copier.h"
#include "platform/linux/linux_file_system.h"

namespace tarvix::platform {

namespace {
bool LeadsTo(const Place& link, const struct statx& object) {
    if (!S_ISLNK(link.st->stx_mode)) return false;
    const auto behind = StatBehindPath(link.native);
    return behind && IsSameObject(*behind, object);
}
} // namespace

Result<bool> LinuxFileSystem::Holds(std::string_view outer, std::string_view inner) {
    const auto holder = resolver_.Existing(outer);
    if (!holder) return std::unexpected(holder.error());
    const auto held = resolver_.Existing(inner);
    if (!held) return std::unexpected(held.error());
    if (IsSameObject(*holder->st, *held->st) || LeadsTo(*held, *holder->st)) return true;
    if (!S_ISDIR(holder->st->stx_mode)) return false;
    const auto around = OpenFolderOf(*held, inner);
    if (!around) return std::unexpected(around.error());
    return IsWithin(around->Get(), *holder->st);
}

} // namespace tarvix::platform
