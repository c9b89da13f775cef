#include "platform/tree/tree_text_stream.h"

#include "platform/try.h"

namespace tarvix::platform {

namespace {
std::unexpected<PlatformError> WrongUse() {
    return Failure(kBadFileName, "The text stream isn't open for this.");
}
} // namespace

Result<std::string> TreeReader::ReadLine() {
    if (!isOpen_) return WrongUse();
    if (lines_.AtEnd()) return Failure(kInputPastEnd, "The file has no more lines.");
    return std::string(lines_.Next());
}

Result<void> TreeReader::Write(std::string_view) {
    return WrongUse();
}

Result<void> TreeReader::Flush() {
    return WrongUse();
}

Result<void> TreeReader::Close() {
    if (!isOpen_) return WrongUse();
    isOpen_ = false;
    return {};
}

TreeWriter::TreeWriter(TreeFileSystem& files, std::shared_ptr<TreeNode> node)
    : files_(files), node_(std::move(node)) {
    node_->isBeingWritten = true;
}

TreeWriter::~TreeWriter() {
    if (node_) (void)Close();
}

Result<std::string> TreeWriter::ReadLine() {
    return WrongUse();
}

Result<void> TreeWriter::Write(std::string_view text) {
    if (!node_) return WrongUse();
    buffer_ += text;
    return {};
}

Result<void> TreeWriter::Flush() {
    if (!node_) return WrongUse();
    if (buffer_.empty()) return {};
    TX_TRY(files_.Append(*node_, buffer_));
    buffer_.clear();
    return {};
}

Result<void> TreeWriter::Close() {
    if (!node_) return WrongUse();
    auto flushed = Flush();
    node_->isBeingWritten = false;
    node_.reset();
    buffer_.clear();
    return flushed;
}

} // namespace tarvix::platform
