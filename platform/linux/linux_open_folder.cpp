#include "platform/linux/linux_open_folder.h"

#include "platform/linux/errno_failure.h"
#include "platform/linux/folder_reader.h"
#include "platform/linux/native_facts.h"
#include "platform/linux/system_calls.h"
#include "platform/names.h"
#include "platform/try.h"
#include "text/paths.h"

#include <climits>

#include <array>
#include <cerrno>
#include <dirent.h>

namespace tarvix::platform {

namespace {
// The kind of an entry, asked of the disk only where the listing leaves it open.
FolderEntry KindOf(int folder, const FolderReader::Entry& raw) {
    FolderEntry entry;
    unsigned char type = raw.type;
    if (type == DT_UNKNOWN) {
        const auto st = StatOf(At{folder, raw.name.data()});
        if (st && S_ISDIR(st->stx_mode)) type = DT_DIR;
        if (st && S_ISLNK(st->stx_mode)) type = DT_LNK;
    }
    entry.isFolder = type == DT_DIR;
    if (type == DT_LNK) {
        const auto behind = StatBehind({folder, raw.name.data()});
        entry.isLink = true;
        entry.isFolder = behind && S_ISDIR(behind->stx_mode);
    }
    return entry;
}

using NameBuffer = std::array<char, NAME_MAX + 1>;

// The disk name, ended by NUL; false when no disk name is that long.
bool PutNativeName(NameBuffer& buffer, std::string_view driveName) {
    std::string carried;
    if (driveName.find('\xEF') != driveName.npos) {
        carried = NameToNative(driveName);
        driveName = carried;
    }
    if (driveName.size() >= buffer.size()) return false;
    buffer[driveName.copy(buffer.data(), driveName.size())] = '\0';
    return true;
}
} // namespace

// Which of its names are boundaries goes by the path, so folders that have some are never kept.
Result<void> LinuxOpenFolder::List(FolderListing& listing) {
    const bool mayKeep = listings_ != nullptr && boundaries_ == nullptr && listings_->IsWanted();
    if (!mayKeep) return Read(listing);
    const auto before = StatOf(fd_.Get());
    if (before && listings_->Find(*before, drives_.get(), listing)) return {};
    TX_TRY(Read(listing));
    if (before) listings_->Keep(fd_.Get(), *before, drives_, listing);
    return {};
}

Result<void> LinuxOpenFolder::Read(FolderListing& listing) {
    listing.Clear();
    FolderReader reader(fd_.Get());
    FolderReader::Entry raw{};
    std::string name;
    while (reader.Next(raw)) {
        FolderEntry entry = KindOf(fd_.Get(), raw);
        entry.isBoundary = boundaries_ != nullptr && boundaries_->contains(std::string(raw.name));
        name.clear();
        AppendNameToDrive(name, raw.name);
        entry.name = name;
        listing.Add(entry);
    }
    if (reader.Error() == ENOENT) return FailureBy(kPathNotFound, path_);
    if (reader.Error() != 0) return FailureOf(reader.Error(), path_);
    listing.SortByName();
    return {};
}

Result<ObjectFacts> LinuxOpenFolder::Facts(std::string_view name) {
    NameBuffer native;
    if (!CanBeName(name) || !PutNativeName(native, name)) {
        return FailureBy(kBadFileName, text::JoinPath(path_, name));
    }
    const At at{fd_.Get(), native.data()};
    const auto st = StatOf(at);
    if (!st) return FailureOf(st.error(), text::JoinPath(path_, name));
    return FactsFrom(*st, native.data(), at, *drives_);
}

} // namespace tarvix::platform
