#include "platform/linux/linux_text_stream.h"

#include "platform/linux/errno_failure.h"

#include <cerrno>
#include <unistd.h>

namespace tarvix::platform {

namespace {
constexpr std::size_t kBufferSize = 65536;
} // namespace

Result<std::string> LinuxTextReader::ReadLine() {
    if (isClosed_) return FailureBy(kBadFileName, path_);
    if (lines_.AtEnd()) return FailureBy(kInputPastEnd, path_);
    return std::string(lines_.Next());
}

Result<void> LinuxTextReader::Write(std::string_view) {
    return FailureBy(kBadFileName, path_);
}

Result<void> LinuxTextReader::Flush() {
    return FailureBy(kBadFileName, path_);
}

Result<void> LinuxTextReader::Close() {
    if (isClosed_) return FailureBy(kBadFileName, path_);
    isClosed_ = true;
    return {};
}

LinuxTextWriter::~LinuxTextWriter() {
    // Nobody is left to tell of a failure.
    if (fd_) static_cast<void>(Flush());
}

Result<std::string> LinuxTextWriter::ReadLine() {
    return FailureBy(kBadFileName, path_);
}

Result<void> LinuxTextWriter::Write(std::string_view text) {
    const std::scoped_lock lock(mutex_);
    if (!fd_) return FailureBy(kBadFileName, path_);
    buffer_ += text;
    return buffer_.size() < kBufferSize ? Result<void>() : FlushLocked();
}

Result<void> LinuxTextWriter::Flush() {
    const std::scoped_lock lock(mutex_);
    return FlushLocked();
}

Result<void> LinuxTextWriter::FlushLocked() {
    if (!fd_) return FailureBy(kBadFileName, path_);
    // What did go out before a failure must not go out twice.
    std::size_t done = 0;
    int error = 0;
    while (done < buffer_.size() && error == 0) {
        const ssize_t put = ::write(fd_.Get(), buffer_.data() + done, buffer_.size() - done);
        if (put >= 0) {
            done += static_cast<std::size_t>(put);
        } else if (errno != EINTR) {
            error = errno;
        }
    }
    buffer_.erase(0, done);
    if (error != 0) return FailureOf(error, path_);
    return {};
}

Result<void> LinuxTextWriter::Close() {
    const std::scoped_lock lock(mutex_);
    auto flushed = FlushLocked();
    if (!fd_) return flushed;
    const int closed = ::close(fd_.Release());
    if (flushed && closed != 0 && errno != EINTR) return FailureOf(errno, path_);
    return flushed;
}

} // namespace tarvix::platform
