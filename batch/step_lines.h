#pragma once

#include "batch/list_file.h"

#include <optional>
#include <string>
#include <utility>

namespace tarvix::batch {

struct StepLine {
    std::string search;
    std::string destination;
};

// The lines of a search list and of its destination list, side by side. A repeated destination list
// starts over behind its mark, which is a line like any other before that.
class StepLines {
  public:
    StepLines(platform::FileSystem& files, std::string searchList, std::string destinationList)
        : searches_(files, std::move(searchList)),
          destinations_(files, std::move(destinationList)) {}
    // To the first lines; 53 when a list has gone.
    platform::Result<void> Restart();
    // Nothing at the mark of the search list; 62 where one of them ends without a mark.
    platform::Result<std::optional<StepLine>> Next();
    // After the mark was read: 62 unless another line stands behind it.
    platform::Result<void> ReadPastMark();

  private:
    ListReader searches_;
    ListReader destinations_;
    std::string destination_;
};

} // namespace tarvix::batch
