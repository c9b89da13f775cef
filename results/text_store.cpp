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

char* TextStore::RoomFor(std::size_t bytes) {
    if (bytes > left_ || blocks_.empty()) AddBlock(bytes);
    char* const room = blocks_.back().get() + (size_ - left_);
    left_ -= bytes;
    return room;
}

std::string_view TextStore::Keep(std::string_view text) {
    if (text.empty()) return {};
    char* const at = RoomFor(text.size());
    std::memcpy(at, text.data(), text.size());
    return {at, text.size()};
}

std::string_view TextStore::Keep(std::initializer_list<std::string_view> pieces) {
    std::size_t size = 0;
    for (const std::string_view piece : pieces)
        size += piece.size();
    if (size == 0) return {};
    char* const start = RoomFor(size);
    char* at = start;
    for (const std::string_view piece : pieces) {
        std::memcpy(at, piece.data(), piece.size());
        at += piece.size();
    }
    return {start, size};
}

void TextStore::Clear() {
    blocks_.clear();
    left_ = size_ = 0;
}

} // namespace tarvix::results
