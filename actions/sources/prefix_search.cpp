#include "actions/sources/prefix_search.h"

#include "platform/file_system.h"
#include "platform/try.h"
#include "text/case.h"
#include "text/characters.h"
#include "text/encoding.h"

#include <algorithm>

namespace tarvix::actions {

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 20;

// How many bytes end with a whole character, as far as that can be told.
std::size_t WholeCharacters(std::string_view bytes) {
    std::size_t tail = 0;
    while (tail < 3 && tail < bytes.size() &&
           (static_cast<unsigned char>(bytes[bytes.size() - tail - 1]) & 0xC0) == 0x80)
        ++tail;
    if (tail == bytes.size()) return bytes.size();
    const auto lead = static_cast<unsigned char>(bytes[bytes.size() - tail - 1]);
    return lead >= 0xC0 ? bytes.size() - tail - 1 : bytes.size();
}

} // namespace

PrefixSearch::PrefixSearch(const std::vector<std::string>& prefixes) {
    for (const std::string& prefix : prefixes) {
        upper_.push_back(text::Upper(prefix));
        const std::string& upper = upper_.back();
        longest_ = std::max(longest_, upper.size());
        if (upper.empty()) continue;
        byFirst_[static_cast<unsigned char>(upper.front())].push_back(
            static_cast<std::uint32_t>(upper_.size() - 1));
    }
}

std::size_t PrefixSearch::FirstIn(std::string_view upperText, std::size_t best) const {
    for (std::size_t at = 0; at < upperText.size() && best > 0; ++at) {
        for (const std::uint32_t number : byFirst_[static_cast<unsigned char>(upperText[at])]) {
            if (number >= best) break;
            if (upperText.substr(at).starts_with(upper_[number])) best = number;
        }
    }
    return best;
}

platform::Result<std::optional<std::size_t>>
PrefixSearch::FirstIn(platform::FileSystem& files, std::string_view path,
                      const std::function<bool()>& goesOn) const {
    std::size_t best = upper_.size();
    std::string left; // what a text may begin in that ends in the next block
    for (std::uint64_t offset = 0;;) {
        TX_TRY_ASSIGN(const std::string block, files.ReadBytes(path, offset, kBlock));
        offset += block.size();
        const bool isLast = block.size() < kBlock;
        left += block;
        const std::string_view bytes =
            std::string_view(left).substr(0, isLast ? left.size() : WholeCharacters(left));
        best = FirstIn(text::Upper(bytes), best);
        if (!text::IsValidUtf8(bytes))
            best = FirstIn(text::Upper(text::FromFileBytes(bytes)), best);
        if (isLast || best == 0 || !goesOn()) break;
        // Upper case may take fewer bytes than the text itself.
        constexpr std::size_t kWidest = 4;
        const std::size_t kept = std::min(bytes.size(), longest_ * kWidest);
        left.erase(0, bytes.size() - kept);
    }
    return best < upper_.size() ? std::optional(best) : std::nullopt;
}

} // namespace tarvix::actions
