#include "platform/error.h"

#include <array>
#include <utility>

namespace tarvix::platform {

namespace {
constexpr std::array<std::pair<int, const char*>, 13> kTexts{{
    {kInvalidCall, "Invalid procedure call or argument"},
    {kInterrupted, "User interrupt occurred"},
    {kBadFileName, "Bad file name or number"},
    {kFileNotFound, "File not found"},
    {kDeviceError, "Device I/O error"},
    {kAlreadyExists, "File already exists"},
    {kDiskFull, "Disk full"},
    {kInputPastEnd, "Input past end of file"},
    {kTooManyFiles, "Too many files"},
    {kPermissionDenied, "Permission denied"},
    {kDiskNotReady, "Disk not ready"},
    {kPathFileAccess, "Path/File access error"},
    {kPathNotFound, "Path not found"},
}};
} // namespace

const char* ErrorText(int number) {
    for (const auto& [known, text] : kTexts) {
        if (known == number) return text;
    }
    return "Unknown error";
}

} // namespace tarvix::platform
