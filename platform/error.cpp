#include "platform/error.h"

#include <array>
#include <utility>

namespace tarvix::platform {

namespace {
constexpr std::array<std::pair<int, const char*>, 14> kTexts{{
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
    {kChangedSinceSearch, "Changed since the search"},
}};
} // namespace

const char* ErrorText(int number) {
    for (const auto& [known, text] : kTexts) {
        if (known == number) return text;
    }
    return "Unknown error";
}

} // namespace tarvix::platform
