#pragma once

#include "actions/sources/page_text.h"
#include "platform/error.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarvix::platform {
class ContentTypes;
class FileSystem;
} // namespace tarvix::platform

namespace tarvix::actions {

// One link of a page, as its bytes stand.
struct PageLink {
    std::string target; // of its HREF
    std::string text;   // up to its end, tags left out
};

// Finds the links of a page that comes in pieces. It keeps no more than one link of it.
class LinkScanner {
  public:
    using Take = std::function<void(const PageLink&)>;
    explicit LinkScanner(Take take) : take_(std::move(take)) {}

    void Feed(std::string_view piece);

    // A link that is longer than this is none.
    static constexpr std::size_t kLongestLink = 64 * 1024;

  private:
    // The bytes that are settled of the link at the front, 0 when more must come first.
    std::size_t ScanLink(std::string_view page);

    Take take_;
    std::string buffer_;
};

// What the links of a page call the objects that they lead to.
class LinkNames {
  public:
    // UTF-8, references and %xx still in the target.
    void Add(std::string_view target, std::string_view text);
    // The text of the first link whose target leads to an object of that name (as people see it),
    // else of the first that has the name as a part of its target; empty without one. Case doesn't
    // count.
    std::string_view TextFor(std::string_view name) const;
    bool IsEmpty() const { return texts_.empty(); }

  private:
    using Index = std::unordered_map<std::string, std::size_t>; // by name in upper case

    std::vector<std::string> texts_;
    Index last_;  // by the last name of the target
    Index parts_; // by what stands between its marks
};

// The same of a page whose bytes come in blocks; the first one tells what it is written in.
class LinkReader {
  public:
    explicit LinkReader(platform::ContentTypes& types);
    void Feed(std::string_view block, bool isLast);
    LinkNames TakeNames() { return std::move(names_); }

  private:
    void Note(const PageLink& link);

    platform::ContentTypes& types_;
    PageEncoding encoding_;
    LinkNames names_;
    LinkScanner scanner_;
    std::string left_; // of two-byte characters, a part of one
    bool hasBegun_ = false;
};

// All links of a page (drive path), read block by block, as long as `goesOn`. The errors of
// ReadBytes.
platform::Result<LinkNames> ReadLinks(platform::FileSystem& files, platform::ContentTypes& types,
                                      std::string_view path, const std::function<bool()>& goesOn);

} // namespace tarvix::actions
