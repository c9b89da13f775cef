#pragma once

#include "platform/error.h"

#include <memory>
#include <string>
#include <string_view>

namespace tarvix::platform {
class FileSystem;
class TextStream;
} // namespace tarvix::platform

namespace tarvix::session {

// A text file that is begun anew and stays open for a whole run. What is written stands in the
// file at once, even if the program is killed next.
class LogFile {
  public:
    LogFile();
    ~LogFile();
    LogFile(LogFile&&) noexcept;
    LogFile& operator=(LogFile&&) noexcept;
    // Empties an existing file of that drive path or creates it, and writes `head`. 70 when another
    // program writes it.
    platform::Result<void> Open(platform::FileSystem& files, const std::string& path,
                                std::string_view head);
    // The same for a new file; 58 when there is one of that name.
    platform::Result<void> Create(platform::FileSystem& files, const std::string& path,
                                  std::string_view head);
    // Appends the text and flushes it; nothing while no file is open. What a failed call leaves is
    // written before the text of the next one.
    platform::Result<void> Write(std::string_view text);
    // Appends a text that may wait for the next Write or Flush.
    platform::Result<void> Add(std::string_view text);
    platform::Result<void> Flush();
    // Writes `tail` and closes; what failed of that first. Closed it is in any case.
    platform::Result<void> Close(std::string_view tail);
    bool IsOpen() const { return stream_ != nullptr; }
    // For what others write into it; none while no file is open.
    const std::shared_ptr<platform::TextStream>& Stream() const { return stream_; }

  private:
    std::shared_ptr<platform::TextStream> stream_;
};

} // namespace tarvix::session
