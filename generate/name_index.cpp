#include "generate/name_index.h"

#include "generate/file_tree.h"
#include "text/case.h"
#include "text/characters.h"

#include <algorithm>
#include <utility>

namespace tarvix::generate {

namespace {

constexpr std::size_t kRun = 3; // bytes
constexpr std::size_t kBucketBits = 17;
constexpr std::size_t kBuckets = std::size_t{1} << kBucketBits;
constexpr std::uint32_t kNoFile = UINT32_MAX;

// The texts between the stars, in upper case.
std::vector<std::string> PiecesOf(std::string_view pattern) {
    std::vector<std::string> pieces;
    for (const std::string_view piece : text::Split(pattern, '*')) {
        if (!piece.empty()) pieces.push_back(text::Upper(piece));
    }
    return pieces;
}

// Whether the pieces stand in the name one behind the other. A pattern has a star at either end.
bool Fits(std::string_view name, const std::vector<std::string>& pieces) {
    std::size_t from = 0;
    for (const std::string& piece : pieces) {
        const std::size_t at = name.find(piece, from);
        if (at == name.npos) return false;
        from = at + piece.size();
    }
    return true;
}

} // namespace

std::size_t NameIndex::BucketOf(const char* three) {
    const auto byte = [three](int i) {
        return std::uint32_t{static_cast<unsigned char>(three[i])};
    };
    const std::uint32_t run = byte(0) | byte(1) << 8 | byte(2) << 16;
    return run * 2654435761U >> (32 - kBucketBits);
}

NameIndex::NameIndex(const FileTree& tree) : tree_(tree), begins_(kBuckets + 1, 0) {
    std::vector<std::uint32_t> last(kBuckets, kNoFile);
    const auto each = [&](const auto& act) {
        std::ranges::fill(last, kNoFile);
        for (std::size_t file = 0; file < tree_.Count(); ++file) {
            const std::string_view name = tree_.UpperName(file);
            for (std::size_t at = 0; at + kRun <= name.size(); ++at) {
                const std::size_t bucket = BucketOf(name.data() + at);
                if (std::exchange(last[bucket], static_cast<std::uint32_t>(file)) != file) {
                    act(bucket, static_cast<std::uint32_t>(file));
                }
            }
        }
    };
    each([&](std::size_t bucket, std::uint32_t) { ++begins_[bucket + 1]; });
    for (std::size_t bucket = 0; bucket < kBuckets; ++bucket) {
        begins_[bucket + 1] += begins_[bucket];
    }
    files_.resize(begins_.back());
    std::vector<std::uint32_t> next(begins_.begin(), begins_.end() - 1);
    each([&](std::size_t bucket, std::uint32_t file) { files_[next[bucket]++] = file; });
}

bool NameIndex::NarrowDown(const std::vector<std::string>& pieces, std::size_t& begin,
                           std::size_t& end) const {
    bool isNarrow = false;
    for (const std::string& piece : pieces) {
        for (std::size_t at = 0; at + kRun <= piece.size(); ++at) {
            const std::size_t bucket = BucketOf(piece.data() + at);
            const std::size_t count = begins_[bucket + 1] - begins_[bucket];
            if (isNarrow && count >= end - begin) continue;
            isNarrow = true;
            begin = begins_[bucket];
            end = begins_[bucket + 1];
        }
    }
    return isNarrow;
}

void NameIndex::Find(std::string_view pattern,
                     const std::function<bool(std::size_t file)>& take) const {
    const std::vector<std::string> pieces = PiecesOf(pattern);
    std::size_t begin = 0;
    std::size_t end = tree_.Count();
    const bool isNarrow = NarrowDown(pieces, begin, end);
    for (std::size_t i = begin; i < end; ++i) {
        const std::size_t file = isNarrow ? files_[i] : i;
        if (Fits(tree_.UpperName(file), pieces) && !take(file)) return;
    }
}

} // namespace tarvix::generate
