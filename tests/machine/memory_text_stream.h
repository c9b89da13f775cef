#pragma once

#include "tests/machine/memory_file_system.h"
#include "text/encoding.h"

namespace tarvix::platform {

// The lines of a file as it was when it was opened.
class MemoryReader : public TextStream {
  public:
    explicit MemoryReader(std::string_view bytes);

    bool AtEndOfStream() const override;
    Result<std::string> ReadLine() override;
    Result<void> Write(std::string_view text) override;
    Result<void> Flush() override;
    Result<void> Close() override;

  private:
    std::string text_;
    text::LineReader lines_;
    bool isOpen_ = true;
};

// Adds to the end of a file at each flush; works on when the file is renamed or removed.
class MemoryWriter : public TextStream {
  public:
    MemoryWriter(MemoryFileSystem& files, std::shared_ptr<MemoryNode> node)
        : files_(files), node_(std::move(node)) {
        node_->isBeingWritten = true;
    }
    ~MemoryWriter() override;

    bool AtEndOfStream() const override { return true; }
    Result<std::string> ReadLine() override;
    Result<void> Write(std::string_view text) override;
    Result<void> Flush() override;
    Result<void> Close() override;

  private:
    MemoryFileSystem& files_;
    std::shared_ptr<MemoryNode> node_; // null once closed
    std::string buffer_;
};

} // namespace tarvix::platform
