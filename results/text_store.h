#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <vector>

namespace tarvix::results {

// Many short texts, kept in few blocks and given back as views, which stay until the store goes.
class TextStore {
  public:
    // All texts go; what is kept next may be this long together without one more block. Room that
    // is about right is used again.
    void Restart(std::size_t bytes);
    // A copy of `text`.
    std::string_view Keep(std::string_view text);
    // The pieces, one behind the other, as one text.
    std::string_view Keep(std::initializer_list<std::string_view> pieces);
    void Clear();

  private:
    void AddBlock(std::size_t bytes);
    char* RoomFor(std::size_t bytes);

    std::vector<std::unique_ptr<char[]>> blocks_;
    std::size_t left_ = 0; // bytes, at the end of the last block
    std::size_t size_ = 0; // of the last block
};

} // namespace tarvix::results
