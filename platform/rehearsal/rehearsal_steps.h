#pragma once

#include "platform/tree/tree_file_system.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::platform {

// One change that would have been made, with the paths as they were given. The texts live until the
// next step is recorded.
struct RehearsedStep {
    TreeChange operation;
    std::string_view from; // the object
    std::string_view to;   // its new path, of copies and moves
};

// Changes in the order in which they would have been made, kept in little room.
class RehearsalSteps {
  public:
    std::size_t Size() const { return records_.size(); }
    RehearsedStep operator[](std::size_t index) const;
    void Add(TreeChange operation, std::string_view from, std::string_view to = {});
    void Clear();

  private:
    struct Record {
        std::size_t offset;
        std::uint32_t fromLength;
        std::uint32_t toLength;
        TreeChange operation;
    };
    std::string texts_;
    std::vector<Record> records_;
};

} // namespace tarvix::platform
