#pragma once

#include "platform/text_stream.h"
#include "platform/tree/tree_file_system.h"
#include "text/encoding.h"

#include <memory>
#include <string>

namespace tarvix::platform {

// The lines of a file as it was when it was opened.
class TreeReader : public TextStream {
  public:
    explicit TreeReader(std::string_view bytes)
        : text_(text::FromFileBytes(bytes)), lines_(text_) {}

    bool AtEndOfStream() const override { return !isOpen_ || lines_.AtEnd(); }
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
class TreeWriter : public TextStream {
  public:
    // `files` must outlive the stream.
    TreeWriter(TreeFileSystem& files, std::shared_ptr<TreeNode> node);
    ~TreeWriter() override;

    bool AtEndOfStream() const override { return true; }
    Result<std::string> ReadLine() override;
    Result<void> Write(std::string_view text) override;
    Result<void> Flush() override;
    Result<void> Close() override;

  private:
    TreeFileSystem& files_;
    std::shared_ptr<TreeNode> node_; // null once closed
    std::string buffer_;
};

} // namespace tarvix::platform
