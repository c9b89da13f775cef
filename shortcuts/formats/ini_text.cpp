#include "shortcuts/formats/ini_text.h"

#include "shortcuts/formats/bytes.h"
#include "text/characters.h"

#include <array>
#include <utility>

namespace tarvix::shortcuts {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kSwappedMark = "\xFE\xFF";

std::string Swapped(std::string_view bytes) {
    std::string result(bytes);
    for (std::size_t i = 0; i + 1 < result.size(); i += 2) {
        std::swap(result[i], result[i + 1]);
    }
    return result;
}

std::string_view LessEnd(std::string_view line) {
    // A lone CR ends no line.
    if (!line.ends_with('\n')) return line;
    line.remove_suffix(1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t");
    if (begin == text.npos) return {};
    return text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
}

} // namespace

IniText::IniText(std::string_view bytes, std::string_view lineEnd) : lineEnd_(lineEnd) {
    struct Marked {
        std::string_view mark;
        Encoding encoding;
    };
    constexpr std::array<Marked, 3> kMarks{{{kUtf8Mark, Encoding::kUtf8},
                                            {kUtf16Mark, Encoding::kUtf16},
                                            {kSwappedMark, Encoding::kUtf16Swapped}}};
    if (!text::IsValidUtf8(bytes)) encoding_ = Encoding::kCodePage;
    for (const Marked& marked : kMarks) {
        if (!bytes.starts_with(marked.mark)) continue;
        mark_ = marked.mark;
        encoding_ = marked.encoding;
        bytes.remove_prefix(mark_.size());
    }
    if (encoding_ == Encoding::kUtf8 && !text::IsValidUtf8(bytes)) encoding_ = Encoding::kCodePage;
    if (IsWide() && bytes.size() % 2 != 0) {
        tail_ = bytes.substr(bytes.size() - 1);
        bytes.remove_suffix(1);
    }
    Split(bytes);
}

void IniText::Split(std::string_view bytes) {
    const std::size_t width = IsWide() ? 2 : 1;
    const std::string lineFeed = Encoded("\n");
    while (!bytes.empty()) {
        std::size_t end = bytes.find(lineFeed);
        while (end != bytes.npos && end % width != 0) {
            end = bytes.find(lineFeed, end + 1);
        }
        end = end == bytes.npos ? bytes.size() : end + width;
        Line line{.raw = std::string(bytes.substr(0, end)), .text = {}};
        const std::string whole = Decoded(line.raw);
        line.text = LessEnd(whole);
        if (lines_.empty() && line.text.size() < whole.size()) {
            lineEnd_ = whole.substr(line.text.size());
        }
        lines_.push_back(std::move(line));
        bytes.remove_prefix(end);
    }
}

std::string IniText::Decoded(std::string_view raw) const {
    switch (encoding_) {
    case Encoding::kUtf16:
        return FromUtf16(raw);
    case Encoding::kUtf16Swapped:
        return FromUtf16(Swapped(raw));
    case Encoding::kCodePage:
        return FromWindows1252(raw);
    case Encoding::kUtf8:
        break;
    }
    return std::string(raw);
}

std::string IniText::Encoded(std::string_view text) const {
    bool isWhole = false;
    switch (encoding_) {
    case Encoding::kUtf16:
        return ToUtf16(text);
    case Encoding::kUtf16Swapped:
        return Swapped(ToUtf16(text));
    case Encoding::kCodePage:
        return ToCodePage(text, '?', isWhole);
    case Encoding::kUtf8:
        break;
    }
    return std::string(text);
}

bool IniText::CanHold(std::string_view text) const {
    bool isWhole = true;
    if (encoding_ == Encoding::kCodePage) (void)ToCodePage(text, '?', isWhole);
    return isWhole;
}

std::string_view IniText::Line::Section() const {
    const std::string_view bare = Trimmed(text);
    if (!bare.starts_with('[')) return {};
    const std::size_t end = bare.find(']');
    return end == bare.npos ? std::string_view() : bare.substr(1, end - 1);
}

std::string_view IniText::Line::Key() const {
    const std::size_t equals = text.find('=');
    const bool isComment = text.starts_with(';') || text.starts_with('#');
    if (equals == text.npos || isComment || !Section().empty()) return {};
    return Trimmed(std::string_view(text).substr(0, equals));
}

std::string_view IniText::Line::Value() const {
    const std::size_t equals = text.find('=');
    return equals == text.npos ? std::string_view() : std::string_view(text).substr(equals + 1);
}

void IniText::SetValue(std::size_t line, std::string_view value) {
    Line& changed = lines_[line];
    const std::string end = Decoded(changed.raw).substr(changed.text.size());
    const std::string front = changed.text.substr(0, changed.text.find('=') + 1);
    changed.text = front + std::string(value);
    changed.raw = Encoded(changed.text + end);
}

void IniText::Insert(std::size_t line, std::string_view text) {
    if (line > 0 && !Decoded(lines_[line - 1].raw).ends_with('\n')) {
        // A lone CR at its end stays one.
        const bool hasReturn = lines_[line - 1].text.ends_with('\r');
        lines_[line - 1].raw += Encoded(hasReturn ? "\r\n" : lineEnd_);
    }
    Line added{.raw = Encoded(std::string(text) + lineEnd_), .text = std::string(text)};
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(line), std::move(added));
}

void IniText::Erase(std::size_t line) {
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(line));
}

std::size_t IniText::EndOfSection(std::size_t line) const {
    std::size_t end = line + 1;
    for (std::size_t i = end; i < lines_.size() && lines_[i].Section().empty(); ++i) {
        if (!Trimmed(lines_[i].text).empty()) end = i + 1;
    }
    return end;
}

std::string IniText::Bytes() const {
    std::string bytes = mark_;
    for (const Line& line : lines_) {
        bytes += line.raw;
    }
    // Without the lines that told it the code page would be lost.
    const bool looksLikeUtf8 = text::IsValidUtf8(bytes) && !text::IsAscii(bytes);
    if (encoding_ == Encoding::kCodePage && looksLikeUtf8) return InUtf8();
    return bytes + tail_;
}

std::string IniText::InUtf8() const {
    std::string bytes = mark_;
    for (const Line& line : lines_) {
        bytes += FromWindows1252(line.raw);
    }
    return bytes;
}

} // namespace tarvix::shortcuts
