#pragma once

#include "platform/linux/linux_file_system.h"
#include "platform/linux/taken_objects.h"
#include "platform/trash.h"

#include <cstddef>

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
    std::size_t Taken() const override { return taken_.Count(); }
    Result<void> PutBack(std::size_t number) override;

  private:
    LinuxFileSystem& files_;
    TakenObjects taken_;
};

} // namespace tarvix::platform
