#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvix::text {

// The content of a text file as UTF-8: a UTF-8 byte order mark is dropped, and when the rest isn't
// valid UTF-8 all of it is read as Windows-1252 (its five undefined bytes become U+0081 and so on).
std::string FromFileBytes(std::string_view bytes);

// Reads lines from a text, which must outlive the reader and the lines. CR LF or a lone LF ends a
// line; a lone CR belongs to it. The end is reached behind the last line, so a text that ends in a
// line end has no empty line after it.
class LineReader {
  public:
    explicit LineReader(std::string_view text) : text_(text) {}

    bool AtEnd() const { return pos_ >= text_.size(); }

    // The next line without its line end; empty at the end of the text.
    std::string_view Next();

  private:
    std::string_view text_;
    std::size_t pos_ = 0;
};

} // namespace tarvix::text
