#include "results/text_store.h"

#include <algorithm>
#include <cstring>

namespace tarvix::results {

namespace {

constexpr std::size_t kBlockSize = 1 << 16;

} // namespace

void TextStore::AddBlock(std::size_t bytes) {
    size_ = left_ = std::max(kBlockSize, bytes);
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(size_));
}

void TextStore::Restart(std::size_t bytes) {
    if (blocks_.size() == 1 && bytes <= size_ && size_ / 2 <= std::max(bytes, kBlockSize)) {
        left_ = size_;
        return;
    }
    Clear();
    if (bytes > 0) AddBlock(bytes);
}

std::string_view TextStore::Keep(std::string_view text) {
    if (text.empty()) return {};
    if (text.size() > left_ || blocks_.empty()) AddBlock(text.size());
    char* const at = blocks_.back().get() + (size_ - left_);
    std::memcpy(at, text.data(), text.size());
    left_ -= text.size();
    return {at, text.size()};
}

void TextStore::Clear() {
    blocks_.clear();
    left_ = size_ = 0;
}

} // namespace tarvix::results
