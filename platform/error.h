#pragma once

#include <expected>
#include <string>

namespace tarvix::platform {

// The run-time error numbers that routines branch on.
enum ErrorNumber : int {
    kInvalidCall = 5,
    kInterrupted = 18,
    kBadFileName = 52,
    kFileNotFound = 53,
    kDeviceError = 57,
    kAlreadyExists = 58,
    kDiskFull = 61,
    kInputPastEnd = 62,
    kTooManyFiles = 67,
    kPermissionDenied = 70,
    kDiskNotReady = 71,
    kPathFileAccess = 75,
    kPathNotFound = 76,
    kChangedSinceSearch = 1001, // above those that a system gives
};

// Why a platform call failed: the number, and a sentence for people that names the object.
struct PlatformError {
    int number = 0;
    std::string description;
    std::string path = {}; // the drive path that the sentence names (as ForDisplay); empty for none
};

template <class T>
using Result = std::expected<T, PlatformError>;

// What a routine with a Result returns when it fails; `description` is for people.
inline std::unexpected<PlatformError> Failure(int number, std::string description) {
    return std::unexpected(PlatformError{number, std::move(description)});
}

// The short text of a number, as "Permission denied" for 70; "Unknown error" for others.
const char* ErrorText(int number);

} // namespace tarvix::platform
