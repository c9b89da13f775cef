#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarvix::platform {
class FileSystem;
}

namespace tarvix::actions {

// Finds web pages by the beginnings of their names. Each folder is listed once and kept as it was
// then.
class PageFinder {
  public:
    explicit PageFinder(platform::FileSystem& files) : files_(files) {}

    // The name of the first file in a folder (drive path), in `Dir` order, that is like `base` and
    // "*.htm*", without regard to case; empty when there is none or the folder can't be listed.
    const std::string& First(const std::string& folder, std::string_view base);

  private:
    struct Page {
        std::string upper;
        std::string name;
        std::size_t order; // of `Dir`
    };
    using Pages = std::vector<Page>; // by their upper-case names

    const Pages& PagesOf(const std::string& folder);

    platform::FileSystem& files_;
    std::unordered_map<std::string, Pages> folders_;
};

} // namespace tarvix::actions
