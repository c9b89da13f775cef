#pragma once

#include "platform/file_system.h"
#include "platform/linux/drive_table.h"
#include "platform/linux/unique_fd.h"

#include <memory>
#include <string>

namespace tarvix::platform {

class LinuxOpenFolder : public OpenFolder {
  public:
    // `boundaries` belong to `drives`. `path` is the folder's drive path, for messages.
    LinuxOpenFolder(UniqueFd fd, std::shared_ptr<const DriveTable> drives,
                    const DriveTable::Names* boundaries, std::string path)
        : fd_(std::move(fd)), drives_(std::move(drives)), boundaries_(boundaries),
          path_(std::move(path)) {}

    Result<void> List(FolderListing& listing) override;
    Result<ObjectFacts> Facts(std::string_view name) override;

  private:
    UniqueFd fd_;
    std::shared_ptr<const DriveTable> drives_;
    const DriveTable::Names* boundaries_;
    std::string path_;
};

} // namespace tarvix::platform
