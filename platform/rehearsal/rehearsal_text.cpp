#include "platform/rehearsal/rehearsal_text.h"

namespace tarvix::platform {

namespace {
std::unexpected<PlatformError> WrongUse() {
    return Failure(kBadFileName, "The text stream isn't open for this.");
}
} // namespace

Result<std::string> RehearsalReader::ReadLine() {
    if (!isOpen_) return WrongUse();
    if (lines_.AtEnd()) return Failure(kInputPastEnd, "The file has no more lines.");
    return std::string(lines_.Next());
}

Result<void> RehearsalReader::Write(std::string_view) {
    return WrongUse();
}

Result<void> RehearsalReader::Flush() {
    return WrongUse();
}

Result<void> RehearsalReader::Close() {
    if (!isOpen_) return WrongUse();
    isOpen_ = false;
    return {};
}

Result<std::string> RehearsalWriter::ReadLine() {
    return WrongUse();
}

Result<void> RehearsalWriter::Write(std::string_view text) {
    if (!target_) return WrongUse();
    buffer_ += text;
    return {};
}

Result<void> RehearsalWriter::Flush() {
    if (!target_) return WrongUse();
    target_->append(buffer_);
    buffer_.clear();
    return {};
}

Result<void> RehearsalWriter::Close() {
    auto flushed = Flush();
    target_.reset();
    return flushed;
}

} // namespace tarvix::platform
