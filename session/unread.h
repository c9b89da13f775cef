#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tarvix::session {

// An object that a search could not read.
struct UnreadObject {
    std::string path; // drive path
    bool isFolder = false;
    int number = 0; // of the error
};

// What the last search left out because it could not be read, each object once.
class UnreadList {
  public:
    // By the path as it was added, letter by letter.
    bool Has(std::string_view path) const { return known_.contains(std::string(path)); }
    // One of a path that is known already is left out.
    void Add(UnreadObject object) {
        if (known_.insert(object.path).second) all_.push_back(std::move(object));
    }
    void Clear() { *this = {}; }
    // In the order in which they were met.
    const std::vector<UnreadObject>& All() const { return all_; }

  private:
    std::vector<UnreadObject> all_;
    std::unordered_set<std::string> known_;
};

} // namespace tarvix::session
