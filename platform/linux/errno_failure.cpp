#include "platform/linux/errno_failure.h"

#include "platform/names.h"

#include <fmt/core.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace tarvix::platform {

namespace {
struct Row {
    int error;
    int number;
};

constexpr std::array<Row, 33> kNumbers{{
    {ENOENT, kFileNotFound},       {ENOTDIR, kPathNotFound},     {EACCES, kPermissionDenied},
    {EPERM, kPermissionDenied},    {EROFS, kPermissionDenied},   {EBUSY, kPermissionDenied},
    {ETXTBSY, kPermissionDenied},  {EXDEV, kPermissionDenied},   {EEXIST, kAlreadyExists},
    {ENOTEMPTY, kPathFileAccess},  {EISDIR, kPathFileAccess},    {EMLINK, kPathFileAccess},
    {EFBIG, kPathFileAccess},      {ENAMETOOLONG, kBadFileName}, {EILSEQ, kBadFileName},
    {EINVAL, kBadFileName},        {ELOOP, kPathNotFound},       {ENXIO, kBadFileName},
    {ENOSPC, kDiskFull},           {EDQUOT, kDiskFull},          {EMFILE, kTooManyFiles},
    {ENFILE, kTooManyFiles},       {EINTR, kInterrupted},        {ECANCELED, kInterrupted},
    {EIO, kDeviceError},           {ENOMEDIUM, kDiskNotReady},   {ENODEV, kDiskNotReady},
    {ENOTCONN, kDiskNotReady},     {ESTALE, kDiskNotReady},      {EHOSTDOWN, kDiskNotReady},
    {EHOSTUNREACH, kDiskNotReady}, {ETIMEDOUT, kDiskNotReady},   {ESHUTDOWN, kDiskNotReady},
}};

std::string Sentence(int number, int error, std::string_view path) {
    const std::string shown = ForDisplay(path);
    switch (number) {
    case kFileNotFound:
        return fmt::format("{} is not there.", shown);
    case kPathNotFound:
        return fmt::format("The folder of {} is not there.", shown);
    case kDiskFull:
        return fmt::format("There is no space left on the drive that holds {}.", shown);
    case kAlreadyExists:
        return fmt::format("{} exists already.", shown);
    case kInterrupted:
        return fmt::format("The work on {} was stopped.", shown);
    default:
        return fmt::format("{}: {}.", shown,
                           error != 0 ? std::string_view(std::strerror(error)) : ErrorText(number));
    }
}
} // namespace

int NumberOfErrno(int error) {
    for (const Row& row : kNumbers) {
        if (row.error == error) return row.number;
    }
    return kPathFileAccess;
}

std::unexpected<PlatformError> FailureOf(int error, std::string_view path) {
    const int number = NumberOfErrno(error);
    return std::unexpected(PlatformError{number, Sentence(number, error, path), std::string(path)});
}

std::unexpected<PlatformError> FailureBy(int number, std::string_view path) {
    return std::unexpected(PlatformError{number, Sentence(number, 0, path), std::string(path)});
}

std::unexpected<PlatformError> HoldsMountFailure(std::string_view path) {
    return Failure(
        kPathFileAccess,
        fmt::format("A drive is mounted in {}, so it stays where it is.", ForDisplay(path)));
}

} // namespace tarvix::platform
