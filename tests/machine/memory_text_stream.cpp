#include "tests/machine/memory_text_stream.h"

namespace tarvix::platform {

namespace {
std::unexpected<PlatformError> WrongUse() {
    return Failure(kBadFileName, "The text stream isn't open for this.");
}
} // namespace

MemoryReader::MemoryReader(std::string_view bytes)
    : text_(text::FromFileBytes(bytes)), lines_(text_) {}

bool MemoryReader::AtEndOfStream() const {
    return !isOpen_ || lines_.AtEnd();
}

Result<std::string> MemoryReader::ReadLine() {
    if (!isOpen_) return WrongUse();
    if (lines_.AtEnd()) return Failure(kInputPastEnd, "The file has no more lines.");
    return std::string(lines_.Next());
}

Result<void> MemoryReader::Write(std::string_view) {
    return WrongUse();
}

Result<void> MemoryReader::Flush() {
    return WrongUse();
}

Result<void> MemoryReader::Close() {
    if (!isOpen_) return WrongUse();
    isOpen_ = false;
    return {};
}

MemoryWriter::~MemoryWriter() {
    if (node_) (void)Close();
}

Result<std::string> MemoryWriter::ReadLine() {
    return WrongUse();
}

Result<void> MemoryWriter::Write(std::string_view text) {
    if (!node_) return WrongUse();
    buffer_ += text;
    return {};
}

Result<void> MemoryWriter::Flush() {
    if (!node_) return WrongUse();
    if (buffer_.empty()) return {};
    if (auto room = files_.CheckRoom(*node_, buffer_.size()); !room) return room;
    node_->content.resize(static_cast<std::size_t>(node_->size), '\0');
    node_->content += buffer_;
    node_->size = node_->content.size();
    node_->modified = files_.Now();
    buffer_.clear();
    return {};
}

Result<void> MemoryWriter::Close() {
    if (!node_) return WrongUse();
    auto flushed = Flush();
    node_->isBeingWritten = false;
    node_.reset();
    buffer_.clear();
    return flushed;
}

} // namespace tarvix::platform
