#pragma once

#include "batch/list_file.h"
#include "batch/move_batch.h"
#include "cli/host.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvix::cli {

// The length of a list (drive path); without a mark, or unreadable, the sentence was told with the
// path as typed.
std::optional<batch::ListLength> Measure(Host& host, platform::FileSystem& files,
                                         const std::string& typed, const std::string& path,
                                         batch::ListMarks marks);

// What a batch would find: a line each, JSON or fields with tabs between. `missing` says what
// becomes of a folder that isn't there. Gives the exit code.
int PrintPlan(Host& host, const std::vector<batch::PlannedStep>& plan, std::string_view missing,
              bool asJson);

// What is the same in the ends of all batches, on stderr; gives the exit code.
int EndBatch(Host& host, const batch::BatchOutcome& outcome);

} // namespace tarvix::cli
