#pragma once

#include "platform/linux/linux_file_system.h"
#include "platform/linux/trash_folder.h"
#include "platform/trash.h"

#include <optional>
#include <string>

namespace tarvix::platform {

// The trash of the desktop: the user's own for objects on the file system of the home folder, else
// that of the file system they lie on. It is the same as the file manager's, but no object in it is
// ever replaced by another.
class LinuxTrash : public Trash {
  public:
    explicit LinuxTrash(LinuxFileSystem& files) : files_(files) {}
    Result<void> RecycleSeen(std::span<const SeenObject> objects,
                             const TrashObserver& observer) override;
    Result<void> MayTake(std::string_view path) override;
    Result<void> PutBack(std::string_view path) override;

  private:
    LinuxFileSystem& files_;
    // What was taken last.
    std::string path_;
    std::optional<Resolved> place_;
    TrashFolder::Taken taken_;
};

} // namespace tarvix::platform
