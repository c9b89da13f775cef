#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::shortcuts {

// A text of sections and keys, line by line. Lines that aren't set keep their bytes.
class IniText {
  public:
    // By its mark in front, else UTF-8 where the bytes are that, else Windows-1252. `lineEnd` is
    // for a text that has none of its own.
    IniText(std::string_view bytes, std::string_view lineEnd);

    struct Line {
        std::string raw;  // with its end
        std::string text; // UTF-8, less its end
        // The parts of the text; none for what is no key. A comment has no key.
        std::string_view Key() const;
        std::string_view Value() const; // all behind the "="
        // The name of a section that begins here; empty for none.
        std::string_view Section() const;
    };

    const std::vector<Line>& Lines() const { return lines_; }
    // Replaces what stands behind the "=" of a line.
    void SetValue(std::size_t line, std::string_view value);
    // A new line before that one; Lines().size() puts it at the end.
    void Insert(std::size_t line, std::string_view text);
    void Erase(std::size_t line);
    // Behind the last line of its section that isn't blank; `line` is one of them.
    std::size_t EndOfSection(std::size_t line) const;

    // Whether each character of a text can be written.
    bool CanHold(std::string_view text) const;
    std::string Bytes() const;

  private:
    enum class Encoding { kUtf8, kCodePage, kUtf16, kUtf16Swapped };

    void Split(std::string_view bytes);
    std::string InUtf8() const;
    std::string Decoded(std::string_view raw) const;
    std::string Encoded(std::string_view text) const;
    bool IsWide() const {
        return encoding_ == Encoding::kUtf16 || encoding_ == Encoding::kUtf16Swapped;
    }

    Encoding encoding_ = Encoding::kUtf8;
    std::string mark_;
    std::string lineEnd_;
    std::vector<Line> lines_;
    std::string tail_; // half a character
};

} // namespace tarvix::shortcuts
