#pragma once

#include "platform/folder_listing.h"
#include "platform/object_facts.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvix::platform {

class FileSystem;

// Reads folders and facts in the background before they are asked for. Results come in the order of
// the orders, whoever does the work: a second thread where the file system allows it, and the
// caller when it takes what nobody has begun, or would have to wait. Orders that were never taken
// are dropped with this.
class ReadAhead {
  public:
    // `files` must outlive this.
    explicit ReadAhead(FileSystem& files);
    ~ReadAhead();
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    // Asks for the names of a folder, a drive path.
    void OrderListing(std::string folder);
    // The names of the oldest folder ordered; false when it couldn't be read.
    bool TakeListing(FolderListing& listing);

    // Asks for the facts of these names in a folder, a drive path.
    void OrderFacts(std::string folder, FolderListing names);
    // Facts of the oldest names ordered, one for each; none for an object that is gone.
    void TakeFacts(std::vector<std::optional<ObjectFacts>>& facts);

  private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace tarvix::platform
