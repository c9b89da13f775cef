#pragma once

#include "platform/error.h"

#include <expected>
#include <string_view>
#include <type_traits>
#include <utility>

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

// 75, for a folder that something is mounted in.
std::unexpected<PlatformError> HoldsMountFailure(std::string_view path);

// A value as it is; an errno as the failure on the object at a drive path.
template <class T>
Result<T> Named(Sys<T> value, std::string_view path) {
    if (!value) return FailureOf(value.error(), path);
    if constexpr (std::is_void_v<T>) {
        return {};
    } else {
        return std::move(*value);
    }
}

} // namespace tarvix::platform
