#pragma once

#include "platform/error.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvix::actions {

// The error of bytes that are still being read; above the numbers that a system gives.
constexpr int kStillReading = 1002;
// So much of a file is read at once.
constexpr std::size_t kFilePart = std::size_t{1} << 20;

// A part of a file (drive path), from `number` times kFilePart on.
struct FilePart {
    std::string path;
    std::uint64_t number = 0;
    auto operator<=>(const FilePart&) const = default;
};

// What another thread has read of files for a preview that waits for no disk. It knows what it
// was given and notes what it lacks; it reads nothing itself.
class KnownBytes {
  public:
    // As FileSystem::ReadBytes; kStillReading where a part is lacking.
    platform::Result<std::string> Read(std::string_view path, std::uint64_t offset,
                                       std::size_t count);
    // Whether Read lacked something since this was asked last.
    bool Lacks() { return std::exchange(lacks_, false); }
    // The parts that Read lacked and that this has not told before.
    std::vector<FilePart> TakeLacking();
    // The bytes of a part, fewer than kFilePart at the end of the file, or why there are none.
    void Take(const FilePart& part, platform::Result<std::string> bytes);
    // A live preview is not for gigabytes: no more parts are told.
    bool IsFull() const { return size_ > kMost; }
    // Knows nothing any more, as files may have changed.
    void Clear();

  private:
    static constexpr std::size_t kMost = std::size_t{32} << 20;

    std::map<FilePart, platform::Result<std::string>> parts_;
    std::set<FilePart> told_;
    std::vector<FilePart> lacking_;
    std::size_t size_ = 0;
    bool lacks_ = false;
};

} // namespace tarvix::actions
