#pragma once

#include "platform/linux/unique_fd.h"
#include "platform/text_stream.h"
#include "text/encoding.h"

#include <mutex>
#include <string>

namespace tarvix::platform {

// A text file read whole when it was opened.
class LinuxTextReader : public TextStream {
  public:
    // `content` is UTF-8, `path` the drive path for messages.
    LinuxTextReader(std::string content, std::string path)
        : content_(std::move(content)), path_(std::move(path)), lines_(content_) {}

    bool AtEndOfStream() const override { return isClosed_ || lines_.AtEnd(); }
    Result<std::string> ReadLine() override;
    Result<void> Write(std::string_view text) override;
    Result<void> Flush() override;
    Result<void> Close() override;

  private:
    std::string content_;
    std::string path_;
    text::LineReader lines_;
    bool isClosed_ = false;
};

// A text file being written, buffered. Several threads may write it.
class LinuxTextWriter : public TextStream {
  public:
    LinuxTextWriter(UniqueFd fd, std::string path) : fd_(std::move(fd)), path_(std::move(path)) {}
    ~LinuxTextWriter() override;

    bool AtEndOfStream() const override { return true; }
    Result<std::string> ReadLine() override;
    Result<void> Write(std::string_view text) override;
    Result<void> Flush() override;
    Result<void> Close() override;

  private:
    Result<void> FlushLocked();

    std::mutex mutex_;
    UniqueFd fd_;
    std::string path_;
    std::string buffer_;
};

} // namespace tarvix::platform
