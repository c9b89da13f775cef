#include "text/characters.h"
#include "text/dates.h"
#include "text/encoding.h"
#include "text/numbers.h"
#include "text/paths.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

// Lines of foreign files, and what is read from them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string text = tarvix::text::FromFileBytes(bytes);
    if (!tarvix::text::IsValidUtf8(text)) std::abort();
    tarvix::text::LineReader lines(text);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.Next();
        (void)tarvix::text::ParseDate(line);
        (void)tarvix::text::ParseWholeNumber(line);
        (void)tarvix::text::PathRoot(line);
        const std::string clean = tarvix::text::CleanSpacesInPath(line, true);
        if (clean.starts_with(' ') || clean.ends_with(' ')) std::abort();
    }
    return 0;
}
