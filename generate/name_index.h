#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::generate {

class FileTree;

// Finds the files of a tree by patterns without looking at each of them: it knows which names hold
// which three bytes in a row.
class NameIndex {
  public:
    // `tree` must outlive this and stay as it is.
    explicit NameIndex(const FileTree& tree);

    // Calls `take` with each file whose name fits the pattern, in the order of the tree and without
    // regard to case, until it gives false. "*" is any run of characters, all else itself.
    void Find(std::string_view pattern, const std::function<bool(std::size_t file)>& take) const;

  private:
    static std::size_t BucketOf(const char* three);
    // The shortest list of files that holds all that fit; false when it is all of them.
    bool NarrowDown(const std::vector<std::string>& pieces, std::size_t& begin,
                    std::size_t& end) const;

    const FileTree& tree_;
    std::vector<std::uint32_t> begins_; // of each bucket, and the end of the last one
    std::vector<std::uint32_t> files_;
};

} // namespace tarvix::generate
