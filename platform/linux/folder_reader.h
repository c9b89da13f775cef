#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarvix::platform {

// Reads the entries of an open folder in the order that the disk gives them, without "." and "..".
class FolderReader {
  public:
    struct Entry {
        std::string_view name; // native; ends in NUL; lives until the next call
        unsigned char type;    // DT_REG ...; DT_UNKNOWN where the disk doesn't tell
    };

    // Reads from the start of the folder; one that was just opened stands there. The descriptor
    // stays the caller's.
    explicit FolderReader(int fd, bool isJustOpened = false);

    // False at the end, or on an error.
    bool Next(Entry& entry);
    // Whether the next call asks the disk again.
    bool IsAtEndOfBlock() const { return pos_ >= size_; }
    // The errno that ended it; 0 at the end of the folder.
    int Error() const { return error_; }

  private:
    bool Fill();

    int fd_;
    int error_ = 0;
    std::size_t size_ = 0;
    std::size_t pos_ = 0;
    alignas(std::uint64_t) std::array<char, 32768> buffer_;
};

} // namespace tarvix::platform
