#include "platform/linux/character_sets.h"

#include "text/case.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iconv.h>

namespace tarvix::platform {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::size_t kLongestName = 40;
constexpr std::string_view kMarks = "-_.:+()"; // in names

// What documents mean by a name, where the library means less by it or calls it otherwise.
struct Alias {
    std::string_view told; // upper case
    const char* meant;
};
constexpr std::array kAliases{
    Alias{"SHIFT_JIS", "CP932"},
    Alias{"SHIFT-JIS", "CP932"},
    Alias{"SJIS", "CP932"},
    Alias{"X-SJIS", "CP932"},
    Alias{"MS_KANJI", "CP932"},
    Alias{"WINDOWS-31J", "CP932"},
    Alias{"GB2312", "GB18030"},
    Alias{"GB_2312-80", "GB18030"},
    Alias{"GBK", "GB18030"},
    Alias{"X-GBK", "GB18030"},
    Alias{"X-X-BIG5", "BIG5-HKSCS"},
    Alias{"BIG5", "BIG5-HKSCS"},
    Alias{"EUC-KR", "CP949"},
    Alias{"KS_C_5601-1987", "CP949"},
    Alias{"KSC5601", "CP949"},
    Alias{"X-EUC-JP", "EUC-JP"},
    Alias{"ISO-8859-9", "CP1254"},
    Alias{"LATIN5", "CP1254"},
    Alias{"ISO-8859-11", "CP874"},
    Alias{"TIS-620", "CP874"},
    Alias{"ISO-8859-8-I", "ISO-8859-8"},
    Alias{"ISO-8859-8-E", "ISO-8859-8"},
    Alias{"X-CP1250", "CP1250"},
    Alias{"X-CP1251", "CP1251"},
    Alias{"WIN-1251", "CP1251"},
    Alias{"KOI8", "KOI8-R"},
    Alias{"MACINTOSH", "MACINTOSH"},
    Alias{"X-MAC-ROMAN", "MACINTOSH"},
    Alias{"X-MAC-CYRILLIC", "MAC-CYRILLIC"},
};

// A name that can be handed to the library, which takes switches behind a "/"; empty for none.
std::string LibraryName(std::string_view charset) {
    const bool isName = !charset.empty() && charset.size() <= kLongestName &&
                        std::ranges::all_of(charset, [](char c) {
                            return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                                   (c >= 'a' && c <= 'z') || kMarks.contains(c);
                        });
    if (!isName) return {};
    std::string upper = text::Upper(charset);
    const auto alias = std::ranges::find(kAliases, upper, &Alias::told);
    return alias == kAliases.end() ? upper : alias->meant;
}

// One conversion, open as long as it lives.
class Converter {
  public:
    explicit Converter(const std::string& name) : handle_(::iconv_open("UTF-8", name.c_str())) {}
    ~Converter() {
        if (IsOpen()) ::iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool IsOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }
    std::string Convert(std::string bytes) {
        std::string out;
        char* from = bytes.data();
        std::size_t left = bytes.size();
        while (left > 0) {
            const int error = Step(from, left, out);
            if (error == E2BIG || error == 0) continue;
            out += kReplacement;
            if (error != EILSEQ) break;
            ++from;
            --left;
        }
        Step(out);
        return out;
    }

  private:
    int Step(char*& from, std::size_t& left, std::string& out) {
        std::array<char, 4096> room{};
        char* to = room.data();
        std::size_t free = room.size();
        const std::size_t done = ::iconv(handle_, &from, &left, &to, &free);
        const int error = done == static_cast<std::size_t>(-1) ? errno : 0;
        out.append(room.data(), room.size() - free);
        return error;
    }
    // What a set with shifts still holds back.
    void Step(std::string& out) {
        std::array<char, 64> room{};
        char* to = room.data();
        std::size_t free = room.size();
        ::iconv(handle_, nullptr, nullptr, &to, &free);
        out.append(room.data(), room.size() - free);
    }

    iconv_t handle_;
};

} // namespace

std::optional<std::string> DecodeFrom(std::string_view charset, std::string_view bytes) {
    const std::string name = LibraryName(charset);
    if (name.empty()) return std::nullopt;
    Converter converter(name);
    if (!converter.IsOpen()) return std::nullopt;
    return converter.Convert(std::string(bytes));
}

} // namespace tarvix::platform
