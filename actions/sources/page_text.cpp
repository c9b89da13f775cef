#include "actions/sources/page_text.h"

#include "platform/content_types.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/encoding.h"

#include <algorithm>
#include <array>

namespace tarvix::actions {

namespace {

using Kind = PageEncoding::Kind;

char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Names of what pages mean by Windows-1252, and of UTF-8; a page that can say so in ASCII isn't
// written in two-byte characters.
constexpr std::array<std::string_view, 12> kWestern{
    "WINDOWS-1252", "CP1252",  "X-CP1252", "ISO-8859-1", "ISO8859-1", "ISO_8859-1",
    "LATIN1",       "LATIN-1", "L1",       "US-ASCII",   "ASCII",     "ANSI_X3.4-1968"};
constexpr std::array<std::string_view, 6> kUnicode{"UTF-8",  "UTF8",     "UNICODE-1-1-UTF-8",
                                                   "UTF-16", "UTF-16LE", "UTF-16BE"};

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
}

// The value behind the "=" at or behind `at`, in quotes or bare; empty without one.
std::string_view ValueBehind(std::string_view text, std::size_t at) {
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    if (at >= text.size() || text[at] != '=') return {};
    ++at;
    while (at < text.size() && (IsBlank(text[at]) || text[at] == '"' || text[at] == '\''))
        ++at;
    const std::size_t end = text.find_first_of("\"'>;/? \t\r\n\f", at);
    return text.substr(at, end == text.npos ? end : end - at);
}

// What <?xml encoding="..."> or a <meta ... charset=...> says; empty where neither does.
std::string_view DeclaredCharset(std::string_view head) {
    constexpr std::string_view kXml = "ENCODING";
    constexpr std::string_view kMeta = "<META";
    constexpr std::string_view kCharset = "CHARSET";
    if (FindAscii(head.substr(0, std::min<std::size_t>(head.size(), 5)), "<?XML") == 0) {
        const std::string_view declaration = head.substr(0, head.find('>'));
        const std::size_t at = FindAscii(declaration, kXml);
        if (at != head.npos) return ValueBehind(declaration, at + kXml.size());
    }
    for (std::size_t meta = FindAscii(head, kMeta); meta != head.npos;
         meta = FindAscii(head, kMeta, meta + 1)) {
        const std::string_view tag = head.substr(meta, head.find('>', meta) - meta);
        for (std::size_t at = FindAscii(tag, kCharset); at != tag.npos;
             at = FindAscii(tag, kCharset, at + 1)) {
            const std::string_view value = ValueBehind(tag, at + kCharset.size());
            if (!value.empty()) return value;
        }
    }
    return {};
}

} // namespace

std::size_t FindAscii(std::string_view text, std::string_view sought, std::size_t from) {
    if (from >= text.size()) return text.npos;
    const auto found =
        std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), sought.begin(),
                    sought.end(), [](char a, char b) { return UpperAscii(a) == b; });
    return found == text.end() ? text.npos : static_cast<std::size_t>(found - text.begin());
}

PageEncoding EncodingOf(std::string_view firstBytes) {
    if (firstBytes.starts_with("\xEF\xBB\xBF")) return {.kind = Kind::kUtf8, .markSize = 3};
    if (firstBytes.starts_with("\xFF\xFE")) return {.kind = Kind::kUtf16Little, .markSize = 2};
    if (firstBytes.starts_with("\xFE\xFF")) return {.kind = Kind::kUtf16Big, .markSize = 2};
    std::string charset = text::Upper(DeclaredCharset(firstBytes));
    const auto isOneOf = [&charset](const auto& names) {
        return std::ranges::find(names, charset) != names.end();
    };
    if (isOneOf(kUnicode)) return {.kind = Kind::kUtf8};
    if (charset.empty() || isOneOf(kWestern)) return {};
    return {.kind = Kind::kDeclared, .charset = std::move(charset)};
}

std::string FromWide(std::string_view bytes, bool isBig) {
    constexpr char32_t kNoCharacter = 0xFFFD;
    const auto unitAt = [&](std::size_t at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        return static_cast<char32_t>(isBig ? first * 256 + second : second * 256 + first);
    };
    std::string out;
    out.reserve(bytes.size());
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        char32_t unit = unitAt(at);
        const bool isHigh = unit >= 0xD800 && unit <= 0xDBFF;
        if (isHigh && at + 3 >= bytes.size()) break;
        if (isHigh) {
            const char32_t low = unitAt(at + 2);
            const bool isPair = low >= 0xDC00 && low <= 0xDFFF;
            unit = isPair ? 0x10000 + (unit - 0xD800) * 0x400 + (low - 0xDC00) : kNoCharacter;
            if (isPair) at += 2;
        } else if (unit >= 0xDC00 && unit <= 0xDFFF) {
            unit = kNoCharacter;
        }
        text::AppendUtf8(out, unit);
    }
    return out;
}

std::string PageText(platform::ContentTypes& types, const PageEncoding& encoding,
                     std::string_view bytes) {
    if (encoding.IsWide()) return FromWide(bytes, encoding.kind == Kind::kUtf16Big);
    if (encoding.kind == Kind::kDeclared) {
        if (auto decoded = types.Decoded(bytes, encoding.charset)) return std::move(*decoded);
    }
    return text::FromFileBytes(bytes);
}

} // namespace tarvix::actions
