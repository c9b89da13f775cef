#include "platform/linux/folder_stack.h"

#include "platform/linux/folder_reader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>

namespace tarvix::platform {

namespace {
constexpr std::size_t kMostOpen = 100;
constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW;

unsigned char TypeFromMode(unsigned mode) {
    return static_cast<unsigned char>((mode & S_IFMT) >> 12);
}
} // namespace

Sys<void> FolderStack::Begin(UniqueFd fd) {
    const auto st = StatOf(fd.Get());
    if (!st) return std::unexpected(st.error());
    levels_.push_back({std::make_shared<const UniqueFd>(std::move(fd)), *st});
    return {};
}

Sys<void> FolderStack::Enter(const char* name) {
    auto fd = OpenAt({Top(), name}, kFlags);
    if (!fd) return std::unexpected(fd.error());
    if (auto begun = Begin(std::move(*fd)); !begun) return begun;
    if (levels_.size() > kMostOpen) levels_[levels_.size() - 1 - kMostOpen].fd.reset();
    return {};
}

Sys<void> FolderStack::Leave() {
    if (levels_.size() > 1 && !levels_[levels_.size() - 2].fd) {
        auto outer = OpenAt({Top(), ".."}, kFlags);
        if (!outer) return std::unexpected(outer.error());
        const auto st = StatOf(outer->Get());
        if (!st) return std::unexpected(st.error());
        if (!IsSameObject(*st, OuterFacts())) return std::unexpected(ENOENT);
        levels_[levels_.size() - 2].fd = std::make_shared<const UniqueFd>(std::move(*outer));
    }
    levels_.pop_back();
    return {};
}

Sys<FolderNames> FolderNames::Read(int fd) {
    FolderNames names;
    FolderReader reader(fd);
    FolderReader::Entry entry{};
    while (reader.Next(entry)) {
        unsigned char type = entry.type;
        if (type == DT_UNKNOWN) {
            const auto st = StatOf(At{fd, entry.name.data()});
            if (!st) continue;
            type = TypeFromMode(st->stx_mode);
        }
        names.records_.push_back({names.names_.size(), type});
        names.names_ += entry.name;
        names.names_ += '\0';
    }
    if (reader.Error() != 0) return std::unexpected(reader.Error());
    const char* const text = names.names_.c_str();
    std::sort(names.records_.begin(), names.records_.end(),
              [text](const Record& a, const Record& b) {
                  return std::strcmp(text + a.offset, text + b.offset) < 0;
              });
    return names;
}

FolderNames::Item FolderNames::Next() {
    if (next_ == records_.size()) return {nullptr, 0};
    return (*this)[next_++];
}

FolderNames::Item FolderNames::operator[](std::size_t index) const {
    const Record& record = records_[index];
    return {names_.c_str() + record.offset, record.type};
}

} // namespace tarvix::platform
