#include "text/characters.h"
#include "text/like.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

// The input is a pattern, a line feed and a text. Beside not crashing: a star takes every text,
// each text fits its own characters in classes, and as many "?" as it has characters.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix::text;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t cut = input.find('\n');
    const std::string_view pattern = input.substr(0, cut);
    const std::string_view text =
        cut == std::string_view::npos ? std::string_view() : input.substr(cut + 1);

    const bool fits = Like(text, pattern);
    LikeNoCase(text, pattern);
    if (fits && !Like(text, "*" + std::string(pattern) + "*")) std::abort();

    const std::string escaped = EscapeLikeChars(text);
    const std::string places = Repeat("?", Length(text));
    for (const std::string_view own :
         {std::string_view("*"), std::string_view(escaped), std::string_view(places)}) {
        if (!Like(text, own) || !LikeNoCase(text, own)) std::abort();
    }
    return 0;
}
