#include "actions/request/known_bytes.h"

#include <algorithm>
#include <utility>

namespace tarvix::actions {

platform::Result<std::string> KnownBytes::Read(std::string_view path, std::uint64_t offset,
                                               std::size_t count) {
    std::string bytes;
    while (bytes.size() < count) {
        const std::uint64_t at = offset + bytes.size();
        FilePart part{std::string(path), at / kFilePart};
        const auto known = parts_.find(part);
        if (known == parts_.end()) {
            lacks_ = true;
            if (!IsFull() && told_.insert(part).second) lacking_.push_back(std::move(part));
            return platform::Failure(kStillReading, "It is still being read.");
        }
        if (!known->second) return known->second;
        const std::string_view content = *known->second;
        const auto from = std::min(static_cast<std::size_t>(at % kFilePart), content.size());
        bytes += content.substr(from, count - bytes.size());
        if (content.size() < kFilePart) break; // the file ends in it
    }
    return bytes;
}

std::vector<FilePart> KnownBytes::TakeLacking() {
    return std::exchange(lacking_, {});
}

void KnownBytes::Take(const FilePart& part, platform::Result<std::string> bytes) {
    size_ += bytes ? bytes->size() : 0;
    parts_.insert_or_assign(part, std::move(bytes));
}

void KnownBytes::Clear() {
    *this = KnownBytes();
}

} // namespace tarvix::actions
