#include "actions/sources/page_links.h"
#include "fuzz/fuzz_fixture.h"
#include "text/characters.h"

#include <algorithm>
#include <string>
#include <vector>

// The links of a page from anywhere, which are the same in whatever pieces it comes. The first byte
// tells their length.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvix;
    if (size == 0) return 0;
    static fuzz::Fixture fixture;
    const std::string_view page(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto linksIn = [page](std::size_t piece) {
        std::vector<std::string> links;
        actions::LinkScanner scanner([&links](const actions::PageLink& link) {
            links.push_back(link.target + '\0' + link.text);
        });
        for (std::size_t at = 0; at < page.size(); at += piece)
            scanner.Feed(page.substr(at, piece));
        return links;
    };
    fuzz::Require(linksIn(data[0] + 1U) == linksIn(std::max<std::size_t>(page.size(), 1)));
    actions::LinkReader reader(fixture.machine.contentTypes);
    reader.Feed(page, true);
    const actions::LinkNames names = reader.TakeNames();
    fuzz::Require(text::IsValidUtf8(names.TextFor("a.mp3")));
    fuzz::Require(text::IsValidUtf8(names.TextFor("")));
    return 0;
}
