#pragma once

#include "platform/error.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvix::platform {

enum class OpenMode { kRead = 1, kWrite = 2, kAppend = 8 };

// An open text file. Read as UTF-8 (a byte order mark dropped, invalid UTF-8 read as Windows-1252),
// lines ended by CR LF or a lone LF; written as it is given. Destroying it closes it. Reading a
// stream opened for writing, and writing one opened for reading, fails with 52.
class TextStream {
  public:
    virtual ~TextStream() = default;
    // Whether nothing is left to read; true when writing.
    virtual bool AtEndOfStream() const = 0;
    // The next line without its end; 62 at the end of the file.
    virtual Result<std::string> ReadLine() = 0;
    // Writes the text, adding nothing; 61 when the disk is full. Buffered until Flush or Close.
    virtual Result<void> Write(std::string_view text) = 0;
    // Writes what is buffered to the file; 61 when the disk is full.
    virtual Result<void> Flush() = 0;
    // Writes what is buffered and closes; later calls fail with 52.
    virtual Result<void> Close() = 0;
};

} // namespace tarvix::platform
