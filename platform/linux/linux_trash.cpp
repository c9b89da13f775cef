#include "platform/linux/linux_trash.h"

#include "platform/linux/glib_pointer.h"
#include "platform/names.h"

#include <array>

namespace tarvix::platform {

namespace {
struct Row {
    int code;
    int number;
};

constexpr std::array<Row, 8> kNumbers{{
    {G_IO_ERROR_NOT_FOUND, kFileNotFound},
    {G_IO_ERROR_PERMISSION_DENIED, kPermissionDenied},
    {G_IO_ERROR_READ_ONLY, kPermissionDenied},
    {G_IO_ERROR_BUSY, kPermissionDenied},
    {G_IO_ERROR_NO_SPACE, kDiskFull},
    {G_IO_ERROR_FILENAME_TOO_LONG, kBadFileName},
    {G_IO_ERROR_TOO_MANY_OPEN_FILES, kTooManyFiles},
    {G_IO_ERROR_NOT_SUPPORTED, kPathFileAccess},
}};

std::unexpected<PlatformError> FailureOfGlib(const GError& error, std::string_view path) {
    const std::string why = ForDisplay(path) + " can't be put in the trash: " + error.message;
    if (error.domain != G_IO_ERROR) return Failure(kPathFileAccess, why);
    for (const Row& row : kNumbers) {
        if (row.code == error.code) return Failure(row.number, why);
    }
    return Failure(kPathFileAccess, why);
}
} // namespace

Result<void> LinuxTrash::Recycle(std::span<const std::string> paths,
                                 const TrashObserver& observer) {
    for (std::size_t done = 0; done < paths.size(); ++done) {
        if (observer && !observer(done)) return FailureBy(kInterrupted, paths[done]);
        if (auto recycled = RecycleOne(paths[done]); !recycled) return recycled;
    }
    return {};
}

Result<void> LinuxTrash::RecycleOne(const std::string& path) {
    const auto place = files_.Existing(path);
    if (!place) return std::unexpected(place.error());
    if (place->IsRoot()) return FailureBy(kPermissionDenied, path);
    const GlibPointer<GFile> file(g_file_new_for_path(place->native.c_str()));
    GError* error = nullptr;
    if (g_file_trash(file.get(), nullptr, &error) == FALSE) {
        const GlibPointer<GError> held(error);
        return FailureOfGlib(*held, path);
    }
    files_.NoteGone(*place);
    return {};
}

} // namespace tarvix::platform
