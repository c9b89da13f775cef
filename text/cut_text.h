#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

// Texts and paths (UTF-8) made shorter where they agree with others, so that what differs stays in
// sight. What is left out stands as "…".
namespace tarvix::text {

// Whether a text has room where it is to stand.
using Fits = std::function<bool(std::string_view)>;

// Bytes of a text.
struct Span {
    std::size_t start = 0;
    std::size_t length = 0;
    bool operator==(const Span&) const = default;
};

struct Change {
    Span before;
    Span after;
};

// What differs between two texts: whatever lies behind their common beginning and in front of their
// common end, in whole characters. Spans of length 0 where a text has nothing of its own there.
Change ChangedPart(std::string_view before, std::string_view after);

struct CutText {
    std::string text;
    Span span; // where the span stands in it
};

// The text, cut at its beginning and then at its end until it fits; the span is the last to go.
CutText CutAround(std::string_view text, Span span, const Fits& fits);

// "/" where a path (native or drive form, whole or a part) holds one, else "\".
char SeparatorOf(std::string_view path);

// The folder that the path names in front of its last name, without a separator at its end unless
// it is the root; empty for a name alone.
std::string_view FolderPart(std::string_view path);
// What stands behind that.
std::string_view NamePart(std::string_view path);

// The deepest folder in which both folders lie, or that is one of them; empty when there is none.
// A view into `a`.
std::string_view CommonFolder(std::string_view a, std::string_view b);

// The deepest folder that holds everything that was added: of paths the folders in front of their
// names. Empty as long as nothing was, and where there is none.
class SharedFolder {
  public:
    void AddPath(std::string_view path) { AddFolder(FolderPart(path)); }
    void AddFolder(std::string_view folder);
    const std::string& Path() const { return folder_; }

  private:
    std::string folder_;
    bool isEmpty_ = true;
};

// The path from the folder on: "." for the folder itself; the whole path where it does not lie in
// the folder, or the folder is empty or a root.
std::string_view PathBelow(std::string_view path, std::string_view folder);

// The path with whole folders left out behind its first one until it fits; its last name stays.
std::string CutPath(std::string_view path, const Fits& fits);

} // namespace tarvix::text
