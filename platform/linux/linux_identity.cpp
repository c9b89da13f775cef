#include "platform/linux/folder_copier.h"
#include "platform/linux/linux_file_system.h"
#include "platform/try.h"

namespace tarvix::platform {

namespace {
bool LeadsTo(const Resolved& link, const struct statx& object) {
    if (!S_ISLNK(link.st->stx_mode)) return false;
    const auto behind = StatBehindPath(link.native);
    return behind && IsSameObject(*behind, object);
}
} // namespace

Result<bool> LinuxFileSystem::Holds(std::string_view outer, std::string_view inner) {
    TX_TRY_ASSIGN(const Resolved holder, resolver_.Existing(outer));
    TX_TRY_ASSIGN(const Resolved held, resolver_.Existing(inner));
    if (IsSameObject(*holder.st, *held.st) || LeadsTo(held, *holder.st)) return true;
    if (!S_ISDIR(holder.st->stx_mode)) return false;
    TX_TRY_ASSIGN(const UniqueFd around, OpenFolderOf(held, inner));
    return IsWithin(around.Get(), *holder.st);
}

} // namespace tarvix::platform
