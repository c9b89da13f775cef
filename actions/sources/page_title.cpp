#include "actions/sources/page_title.h"

#include "actions/sources/character_references.h"
#include "actions/sources/page_text.h"
#include "platform/file_system.h"
#include "platform/try.h"
#include "text/characters.h"

namespace tarvix::actions {

namespace {

constexpr std::size_t kBlock = 64 * 1024;

// The "</TITLE>" at or behind `from`, with blanks before its ">" as pages may have them.
std::size_t FindEnd(std::string_view text, std::size_t from) {
    constexpr std::string_view kEnd = "</TITLE";
    for (std::size_t at = FindAscii(text, kEnd, from); at != text.npos;
         at = FindAscii(text, kEnd, at + 1)) {
        const std::size_t behind = text.find_first_not_of(" \t", at + kEnd.size());
        if (behind != text.npos && text[behind] == '>') return at;
    }
    return text.npos;
}

std::string WithoutLineEnds(std::string_view text) {
    return text::Replace(text::Replace(text, "\r\n", ""), "\n", "");
}

} // namespace

std::optional<std::string> TitleIn(std::string_view page) {
    const std::size_t tag = FindAscii(page, "<TITLE");
    if (tag == page.npos) return std::nullopt;
    const std::string line = WithoutLineEnds(page.substr(tag));
    const std::size_t begin = line.find('>');
    const std::size_t end = begin == line.npos ? begin : FindEnd(line, begin + 1);
    if (end == line.npos) return std::nullopt;
    return line.substr(begin + 1, end - begin - 1);
}

std::optional<std::string> TitleOf(platform::ContentTypes& types, std::string_view firstBytes) {
    const PageEncoding encoding = EncodingOf(firstBytes);
    firstBytes.remove_prefix(encoding.markSize);
    if (encoding.IsWide()) {
        auto title = TitleIn(PageText(types, encoding, firstBytes));
        return title ? std::optional(DecodeReferences(*title)) : std::nullopt;
    }
    const auto title = TitleIn(firstBytes);
    if (!title) return std::nullopt;
    return DecodeReferences(PageText(types, encoding, *title));
}

platform::Result<PageTitle> ReadTitle(platform::FileSystem& files, platform::ContentTypes& types,
                                      std::string_view path) {
    std::string page;
    while (page.size() < kTitleLimit) {
        TX_TRY_ASSIGN(const std::string block, files.ReadBytes(path, page.size(), kBlock));
        page += block;
        if (auto title = TitleOf(types, page)) return PageTitle{.title = std::move(title)};
        if (block.size() < kBlock) return PageTitle{};
    }
    return PageTitle{.title = std::nullopt, .isWhole = false};
}

} // namespace tarvix::actions
