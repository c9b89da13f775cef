#pragma once

#include "platform/text_stream.h"
#include "text/encoding.h"

#include <memory>
#include <string>

namespace tarvix::platform {

// The lines of a file that was written in the rehearsal, as it was when it was opened.
class RehearsalReader : public TextStream {
  public:
    explicit RehearsalReader(std::string_view bytes)
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

// Adds to a text in memory at each flush.
class RehearsalWriter : public TextStream {
  public:
    explicit RehearsalWriter(std::shared_ptr<std::string> target) : target_(std::move(target)) {}
    ~RehearsalWriter() override {
        if (target_) target_->append(buffer_);
    }

    bool AtEndOfStream() const override { return true; }
    Result<std::string> ReadLine() override;
    Result<void> Write(std::string_view text) override;
    Result<void> Flush() override;
    Result<void> Close() override;

  private:
    std::shared_ptr<std::string> target_; // null once closed
    std::string buffer_;
};

} // namespace tarvix::platform
