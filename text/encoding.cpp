#include "text/encoding.h"

#include "text/characters.h"

#include <array>

namespace tarvix::text {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Windows-1252 from 0x80 to 0x9F; all other bytes are the code points of the same number.
constexpr std::array<char16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::string FromWindows1252(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 8);
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        AppendUtf8(out, code >= 0x80 && code <= 0x9F ? kWindows1252[code - 0x80U] : code);
    }
    return out;
}

} // namespace

std::string FromFileBytes(std::string_view bytes) {
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    return IsValidUtf8(bytes) ? std::string(bytes) : FromWindows1252(bytes);
}

std::string_view LineReader::Next() {
    if (AtEnd()) return {};
    std::string_view line = text_.substr(pos_);
    const std::size_t lineFeed = line.find('\n');
    if (lineFeed == std::string_view::npos) {
        pos_ = text_.size();
        return line;
    }
    pos_ += lineFeed + 1;
    line = line.substr(0, lineFeed);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

} // namespace tarvix::text
