#pragma once

#include "platform/error.h"

#include <expected>
#include <string_view>

namespace tarvix::platform {

// What calls near the system give: a value or an errno.
template <class T>
using Sys = std::expected<T, int>;

// The run-time error number that stands for an errno.
int NumberOfErrno(int error);

// The failure for an errno on the object at a drive path, with a sentence that names it.
std::unexpected<PlatformError> FailureOf(int error, std::string_view path);

// A failure by number, where no errno tells more.
std::unexpected<PlatformError> FailureBy(int number, std::string_view path);

} // namespace tarvix::platform
