#pragma once

#include "cli/raw_arguments.h"
#include "cli/request.h"

#include <expected>
#include <string>
#include <vector>

namespace tarvix::cli {

// The arguments of the process, without the program's name, as one checked record. Whatever is
// wrong with them is found here, before anything is opened.
std::expected<Request, EarlyEnd> ReadArguments(const std::vector<std::string>& arguments);

// The criteria alone; a failure is one sentence.
std::expected<Criteria, std::string> CheckCriteria(const RawArguments& raw);

} // namespace tarvix::cli
