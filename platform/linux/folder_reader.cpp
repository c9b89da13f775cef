#include "platform/linux/folder_reader.h"

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tarvix::platform {

FolderReader::FolderReader(int fd, bool isJustOpened) : fd_(fd) {
    if (!isJustOpened && ::lseek(fd, 0, SEEK_SET) < 0) error_ = errno;
}

bool FolderReader::Fill() {
    const long got =
        error_ != 0 ? -1 : ::syscall(SYS_getdents64, fd_, buffer_.data(), buffer_.size());
    if (got < 0 && error_ == 0) error_ = errno;
    size_ = got > 0 ? static_cast<std::size_t>(got) : 0;
    pos_ = 0;
    return size_ != 0;
}

bool FolderReader::Next(Entry& entry) {
    while (true) {
        if (pos_ >= size_ && !Fill()) return false;
        const auto* const record = reinterpret_cast<const dirent64*>(buffer_.data() + pos_);
        pos_ += record->d_reclen;
        const std::string_view name(record->d_name);
        if (name == "." || name == "..") continue;
        entry = {name, record->d_type};
        return true;
    }
}

} // namespace tarvix::platform
